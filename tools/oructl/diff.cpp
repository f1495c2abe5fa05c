#include "diff.hpp"

#include "color.hpp"
#include "input.hpp"
#include "json_input.hpp"
#include "json_output.hpp"
#include "snapshot.hpp"
#include "terse_output.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace oructl {
namespace {

/// One field of a difference. A value that is not there is a dash.
struct Change {
    std::string field;
    std::string from;
    std::string to;
    bool secret;
};

std::string shownText(const Field &field, const Captured *side, size_t i)
{
    if (side == nullptr || !side->values[i].given) return "-";
    const Value &value = side->values[i];
    if (field.coded != nullptr && !value.text.empty()) return printable(value.text);
    if (field.kind != Kind::List) return shownValue(field, value);
    std::string cell = terseLine({&field, 1}, {value}, Secrets::Masked);
    cell.pop_back();
    return cell.empty() ? "none" : printable(cell);
}

std::vector<Change> changesOf(const Difference &difference)
{
    std::vector<Change> changes;
    const auto fields = difference.item->fields;
    const Value none;
    for (size_t i = 0; i < fields.size(); ++i) {
        const Value &from = difference.from != nullptr ? difference.from->values[i] : none;
        const Value &to = difference.to != nullptr ? difference.to->values[i] : none;
        if (!fields[i].belongsTo(Use::Get) || sameValue(fields[i], from, to)) continue;
        Change change{std::string{fields[i].name}, shownText(fields[i], difference.from, i),
                      shownText(fields[i], difference.to, i), false};
        change.secret = fields[i].kind == Kind::Secret || change.from == change.to;
        changes.push_back(std::move(change));
    }
    return changes;
}

std::string textDifference(const Difference &difference, bool colored)
{
    std::string out;
    for (const Change &change : changesOf(difference)) {
        out.append(nameOf(*difference.item, difference.index));
        if (!change.field.empty()) out.append(".").append(change.field);
        out.append(": ");
        if (change.secret) out.append("differs\n");
        else
            out.append(painted(change.from, Paint::Old, colored))
                .append(" -> ")
                .append(painted(change.to, Paint::New, colored))
                .append("\n");
    }
    return out;
}

/// Item, index, field, old and new value, between tabs.
std::string terseDifference(const Difference &difference)
{
    std::string out;
    for (const Change &change : changesOf(difference)) {
        out.append(difference.item->name).append("\t");
        if (difference.item->scope != Scope::None) out.append(std::to_string(difference.index));
        out.append("\t").append(change.field).append("\t");
        out.append(change.secret ? "" : change.from).append("\t");
        out.append(change.secret ? "" : change.to).append("\n");
    }
    return out;
}

int reportFailure(Request &request, const std::string &message, const std::string &detail = "",
                  ExitStatus status = kFailed)
{
    return report(request, {.kind = "failed",
                            .attempt = typed(request),
                            .code = {},
                            .message = message,
                            .detail = detail,
                            .status = status});
}

int showDifferences(Request &request, const Differences &differences)
{
    request.output = shownDifferences(request, differences);
    return differences.any() ? kDifferent : kDone;
}

/// The items of an export, with all that it leaves open as it is stored.
Capture completedCapture(const std::vector<Wanted> &wanted, const Capture &now)
{
    Capture capture{now.texts, now.items};
    for (const Wanted &each : wanted) {
        if (each.unreadable) continue;
        auto old = std::find_if(capture.items.begin(), capture.items.end(), [&](const Captured &c) {
            return c.item == each.item && c.index == each.index;
        });
        if (old == capture.items.end())
            old = capture.items.insert(old, {each.item, each.index, 0, each.values});
        old->code = 0;
        old->values = completed(each.item->fields, each.values, old->values);
    }
    return capture;
}

int diffWithExport(Request &request, const char *path, const Capture &now)
{
    const auto text = readInput(path);
    if (!text)
        return reportFailure(request, std::string{"can't read it: "} + std::strerror(errno), "",
                             errno == EACCES ? kNoPermission : kFileFailed);
    std::vector<Problem> problems;
    const Capture from = completedCapture(parseExport(*text, problems), now);
    if (problems.empty()) return showDifferences(request, differences(from, now));
    return reportFailure(request, problems[0].attempt + ": " + problems[0].message, "",
                         kFileFailed);
}

} // namespace

std::string shownDifferences(const Request &request, const Differences &differences)
{
    if (request.quiet) return "";
    if (request.json) return jsonDifferences(differences);
    const bool colored = inColor(request.color, STDOUT_FILENO);
    std::string out;
    for (const Difference &each : differences.items)
        out += request.terse ? terseDifference(each) : textDifference(each, colored);
    for (const KeyChange &each : differences.keys)
        if (request.terse) out.append("\t\t").append(printable(each.key)).append("\t\t\n");
        else
            out.append("key ")
                .append(printable(each.key))
                .append(" of ")
                .append(each.file)
                .append(": differs\n");
    return out;
}

int runDiff(Request &request)
{
    if (!request.operands.empty()) return reportUsage(request, "too many operands");
    const char *const file = request.option("against");
    const bool factory = request.option("factory") != nullptr;
    if (file != nullptr && factory)
        return reportUsage(request, "--factory and --against don't go together");
    if (file == nullptr && !factory && !hasSnapshot())
        return reportFailure(request, "it is not known what the last commit has made of it",
                             "compare with --factory or --against FILE");
    const std::string root = rootFolder();
    const auto now = capture(storedTexts(root));
    if (!now) return reportFailure(request, "can't copy the configuration", "", kFileFailed);
    if (file != nullptr) return diffWithExport(request, file, *now);
    const auto before = capture(factory ? factoryTexts(root) : committedTexts());
    if (!before) return reportFailure(request, "can't copy the configuration", "", kFileFailed);
    return showDifferences(request, differences(*before, *now));
}

} // namespace oructl
