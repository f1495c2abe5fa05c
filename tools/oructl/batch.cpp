#include "batch.hpp"

#include "calls.hpp"
#include "change.hpp"
#include "input.hpp"
#include "json_output.hpp"
#include "oruSdk.h"

#include <optional>

namespace oructl {
namespace {

/// One line: a set when there is an item, else a reset of one BSS or of all.
struct Change {
    std::string attempt;
    const Item *item = nullptr;
    Call call = {};
    std::optional<int64_t> bss = {};
};

std::string parseSet(Words operands, Change &change)
{
    if (operands.empty()) return "ITEM is missing";
    const std::string name = operands.front();
    change.item = findItem(name);
    if (change.item == nullptr) return "no item is called " + quoted(name);
    if (change.item->set == nullptr) return name + " can't be set";
    if (change.item->atOnce) return name + " acts at once, and can't be part of a batch";
    return parseOperands(*change.item, Use::Set, operands.subspan(1), change.call);
}

std::string parseReset(Words operands, Change &change)
{
    if (operands.empty()) return "all or bss is missing";
    const std::string_view what = operands.front();
    if (what == "all") return operands.size() > 1 ? "too many operands" : "";
    if (what != "bss") return quoted(what) + " is neither all nor bss";
    return parseResetBss(operands.subspan(1), change.bss.emplace());
}

std::string parseChange(const std::vector<std::string> &words, Change &change)
{
    std::vector<const char *> pointers;
    std::string typed = words[0];
    for (const std::string &word : words) pointers.push_back(word.c_str());
    const Words operands = Words{pointers}.subspan(1);
    for (const char *word : operands) typed.append(" ").append(printable(word));
    std::string problem;
    if (words[0] == "set") problem = parseSet(operands, change);
    else if (words[0] == "reset") problem = parseReset(operands, change);
    else problem = quoted(words[0]) + " is no part of a batch: only set and reset are";
    if (change.item == nullptr) change.attempt += words[0] == "reset" ? typed : "";
    else change.attempt += callAttempt(*change.item, "set", change.call, typed);
    return problem;
}

/// Adds what is wrong with each line to the problems.
std::vector<Change> parseBatch(std::string_view text, std::vector<Problem> &problems)
{
    std::vector<Change> changes;
    for (size_t number = 1; !text.empty(); ++number) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        const std::string place = "line " + std::to_string(number);
        std::vector<std::string> words;
        Change change{.attempt = place + ": "};
        std::string problem = parseLine(line, words);
        if (problem.empty() && words.empty()) continue;
        if (problem.empty()) problem = parseChange(words, change);
        if (problem.empty()) changes.push_back(std::move(change));
        else
            problems.push_back({.kind = "usage",
                                .attempt = change.attempt.ends_with(": ") ? place : change.attempt,
                                .code = {},
                                .message = problem});
    }
    return changes;
}

void run(const Change &change, std::vector<Problem> &problems)
{
    uint32_t code = ORUSDK_RC_OK;
    if (change.item != nullptr) code = change.item->set(change.call);
    else if (change.bss) code = oruSdkResetToBss(static_cast<int32_t>(*change.bss));
    else code = oruSdkResetToDefaults();
    if (code == ORUSDK_RC_OK) return;
    problems.push_back(change.item != nullptr
                           ? callProblem(*change.item, Use::Set, code, change.call, change.attempt)
                           : resetProblem(change.bss.value_or(0), code, change.attempt));
}

class LineReader {
public:
    explicit LineReader(std::string_view line) : rest_(line) {}

    [[nodiscard]] bool atEnd() const { return rest_.empty(); }
    [[nodiscard]] char next() const { return rest_.front(); }
    [[nodiscard]] bool atBlank() const { return atEnd() || isBlank(next()); }
    void skipBlanks()
    {
        while (!atEnd() && isBlank(next())) rest_.remove_prefix(1);
    }

    /// Takes the next character, a quoted text or an escaped character. False without an end.
    bool take(std::string &word)
    {
        const char letter = pop();
        if (letter == '\'' || letter == '"') return takeQuoted(letter, word);
        if (letter == '\\' && atEnd()) return false;
        word += letter == '\\' ? pop() : letter;
        return true;
    }

private:
    static bool isBlank(char letter) { return letter == ' ' || letter == '\t' || letter == '\r'; }

    char pop()
    {
        const char letter = rest_.front();
        rest_.remove_prefix(1);
        return letter;
    }

    bool takeQuoted(char quote, std::string &word)
    {
        while (!atEnd()) {
            const char letter = pop();
            if (letter == quote) return true;
            const bool escape =
                quote == '"' && letter == '\\' && !atEnd() && (next() == '"' || next() == '\\');
            word += escape ? pop() : letter;
        }
        return false;
    }

    std::string_view rest_;
};

} // namespace

std::string parseLine(std::string_view line, std::vector<std::string> &words)
{
    if (line.find('\0') != line.npos) return "a line can't hold the byte 00";
    LineReader reader{line};
    for (reader.skipBlanks(); !reader.atEnd() && reader.next() != '#'; reader.skipBlanks()) {
        std::string &word = words.emplace_back();
        while (!reader.atBlank())
            if (!reader.take(word)) return "a quotation has no end";
    }
    return "";
}

int runBatch(Request &request)
{
    int status = kDone;
    const auto text = readOperandFile(request, status);
    if (!text) return status;
    std::vector<Problem> problems;
    const std::vector<Change> changes = parseBatch(*text, problems);
    Transaction change{request.dryRun ? Transaction::Kind::DryRun : Transaction::Kind::Real};
    if (const auto trouble = change.begin(patienceMs(request)))
        return reportTrouble(request, typed(request), *trouble);
    {
        const Patience patience{request, typed(request)};
        for (const Change &each : changes) run(each, problems);
    }
    if (!problems.empty()) return reportAll(request, typed(request), problems);
    status = finishChange(request, change, typed(request));
    if (status == kDone && !request.dryRun && request.json)
        request.output = jsonDone("batch", changes.size(), {});
    return status;
}

} // namespace oructl
