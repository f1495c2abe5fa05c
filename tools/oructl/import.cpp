#include "import.hpp"

#include "calls.hpp"
#include "change.hpp"
#include "input.hpp"
#include "json_input.hpp"
#include "json_output.hpp"
#include "oruSdk.h"

#include <algorithm>
#include <optional>

namespace oructl {
namespace {

/// Stores what items are to have, whatever the order in which they stand. Some take their value
/// only after others, and some change that of others: what is not as wanted is set again as long
/// as less and less is left.
class Import {
public:
    explicit Import(const std::vector<Wanted> &wanted)
    {
        for (const Wanted &each : wanted)
            steps_.push_back({&each, capturedNow(*each.item, each.index), false, std::nullopt});
        const auto place = [](const Step &step) { return step.wanted->item; };
        forEachItem([&](const Item &item) { // into the order of the catalogue
            for (size_t i = 0; i < steps_.size(); ++i)
                if (place(steps_[i]) == &item) order_.push_back(i);
        });
    }

    void run()
    {
        for (size_t left = steps_.size() + 1;;) {
            const size_t now = pass();
            if (now == 0 || now >= left) return;
            left = now;
        }
    }

    void addProblems(std::vector<Problem> &problems) const
    {
        for (const Step &step : steps_) {
            if (isDone(step)) continue;
            problems.push_back(step.problem ? *step.problem : contradicted(*step.wanted));
        }
    }

    [[nodiscard]] size_t changes() const
    {
        return static_cast<size_t>(
            std::count_if(steps_.begin(), steps_.end(), [](const Step &s) { return s.changed; }));
    }

private:
    struct Step {
        const Wanted *wanted;
        Captured before; ///< for masked secrets
        bool changed;
        std::optional<Problem> problem; ///< of the last try
    };

    static bool isDone(const Step &step)
    {
        return isStored(*step.wanted, capturedNow(*step.wanted->item, step.wanted->index));
    }

    static std::string attemptOf(const Wanted &wanted)
    {
        return wanted.place + ": " + nameOf(*wanted.item, wanted.index);
    }

    static Problem contradicted(const Wanted &wanted)
    {
        return {.kind = "refused",
                .attempt = attemptOf(wanted),
                .code = {},
                .message = "set, but another value is stored in the end",
                .detail = "another item of the file stands against it"};
    }

    /// Sets what is not as wanted, and returns how much is left.
    size_t pass()
    {
        for (const size_t i : order_)
            if (!isDone(steps_[i])) attempt(steps_[i]);
        return static_cast<size_t>(std::count_if(steps_.begin(), steps_.end(),
                                                 [](const Step &step) { return !isDone(step); }));
    }

    static void attempt(Step &step)
    {
        const Item &item = *step.wanted->item;
        std::vector<Value> values = unmasked(item.fields, step.wanted->values, step.before.values);
        values =
            unmasked(item.fields, std::move(values), capturedNow(item, step.wanted->index).values);
        const bool restores = isRestored(item, values);
        Call call{.index = step.wanted->index};
        std::string problem = callFor(item, std::move(values), call);
        if (problem.empty() && item.atOnce) problem = "it acts at once, and can't be imported";
        if (!problem.empty()) {
            step.problem = Problem{.kind = "refused",
                                   .attempt = attemptOf(*step.wanted),
                                   .code = {},
                                   .message = problem};
            return;
        }
        const uint32_t code = restores ? item.restore(call) : item.set(call);
        step.problem.reset();
        if (code == ORUSDK_RC_OK) step.changed = true;
        else step.problem = callProblem(item, Use::Set, code, call, attemptOf(*step.wanted));
    }

    std::vector<Step> steps_;
    std::vector<size_t> order_;
};

/// What is left alone, and why; removes what can't be imported at all.
std::vector<Note> notesOf(std::vector<Wanted> &wanted)
{
    std::vector<Note> notes;
    for (const Wanted &each : wanted) {
        const std::string name = nameOf(*each.item, each.index);
        if (each.unreadable) notes.push_back({name, "could not be read when it was exported"});
        else if (each.item->atOnce) notes.push_back({name, "acts at once; it is as stored"});
        else if (isMasked(each.item->fields, each.values))
            notes.push_back({name, "the secret is masked; the stored one stays"});
    }
    std::erase_if(wanted, [](const Wanted &each) { return each.unreadable; });
    return notes;
}

void showDone(Request &request, size_t changes, const std::vector<Note> &notes)
{
    if (request.json) request.output = jsonDone("import", changes, notes);
    for (const Note &note : notes)
        if (!request.json && !request.quiet)
            request.output.append(note.item).append(": ").append(note.text).append("\n");
}

} // namespace

int runImport(Request &request)
{
    int status = kDone;
    const auto text = readOperandFile(request, status);
    if (!text) return status;
    std::vector<Problem> problems;
    std::vector<Wanted> wanted = parseExport(*text, problems);
    const std::vector<Note> notes = notesOf(wanted);
    Transaction change{request.dryRun ? Transaction::Kind::DryRun : Transaction::Kind::Real};
    if (const auto trouble = change.begin(patienceMs(request)))
        return reportTrouble(request, typed(request), *trouble);
    Import import{wanted};
    {
        const Patience patience{request, typed(request)};
        import.run();
        import.addProblems(problems);
    }
    if (!problems.empty()) return reportAll(request, typed(request), problems);
    status = finishChange(request, change, typed(request));
    if (status == kDone && !request.dryRun) showDone(request, import.changes(), notes);
    return status;
}

} // namespace oructl
