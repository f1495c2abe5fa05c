#include "change.hpp"

#include "json_output.hpp"
#include "values.hpp"

namespace oructl {
namespace {

/// What a dry run would have stored.
void showChanges(Request &request, const std::vector<KeyChange> &changes)
{
    if (request.json) {
        request.output = jsonChanges(changes);
        return;
    }
    if (changes.empty() && !request.quiet) request.output = "would change nothing\n";
    for (const KeyChange &change : changes)
        request.output.append("would change ")
            .append(printable(change.key))
            .append(" of ")
            .append(change.file)
            .append("\n");
}

} // namespace

int64_t patienceMs(const Request &request)
{
    return request.timeout ? *request.timeout * 1000 : Lock::kPatienceMs;
}

int reportTrouble(Request &request, const std::string &attempt, const Trouble &trouble)
{
    return report(request, {.kind = "failed",
                            .attempt = attempt,
                            .message = trouble.message,
                            .detail = trouble.detail,
                            .status = trouble.status});
}

int finishChange(Request &request, Transaction &change, const std::string &attempt)
{
    if (const auto trouble = change.finish(request.force))
        return reportTrouble(request, attempt, *trouble);
    if (request.dryRun) showChanges(request, change.changes());
    return kDone;
}

} // namespace oructl
