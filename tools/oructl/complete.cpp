#include "complete.hpp"

#include "codes.hpp"
#include "command.hpp"
#include "live_values.hpp"
#include "patience.hpp"
#include "request.hpp"
#include "show.hpp"

#include <algorithm>
#include <vector>

namespace oructl {
namespace {

struct Candidate {
    std::string word;
    std::string description;
};

/// What the words on the command line say so far, and what the next one may be.
class Candidates {
public:
    void add(std::string_view word, std::string_view description = {})
    {
        const auto same = [&](const Candidate &each) { return each.word == word; };
        if (std::none_of(all_.begin(), all_.end(), same))
            all_.push_back({std::string{word}, std::string{description}});
    }
    void add(Bounds bounds, std::string_view description = {})
    {
        for (int64_t number = bounds.min; number <= bounds.max; ++number)
            add(std::to_string(number), description);
    }
    void add(std::span<const Option> options)
    {
        for (const Option &option : options) add("--" + std::string{option.name}, option.summary);
    }
    void add(const std::vector<std::string> &words, std::string_view description)
    {
        for (const std::string &word : words) add(word, description);
    }
    std::vector<Candidate> &all() { return all_; }

private:
    std::vector<Candidate> all_;
};

bool isOption(std::string_view word)
{
    return word.starts_with("--");
}

void addItems(Candidates &out, Use verb)
{
    forEachItem([&](const Item &item) {
        if (verb == Use::Both || (verb == Use::Get ? item.get != nullptr : item.set != nullptr))
            out.add(item.name, item.summary);
    });
}

void addKeys(Candidates &out)
{
    forEachItem([&](const Item &item) {
        forEachWord(item.keys, [&](std::string_view pattern) {
            const size_t at = pattern.find("%d");
            if (at == pattern.npos) return out.add(pattern, item.summary);
            const Bounds index = item.scope == Scope::Port ? Bounds{0, 0} : legalIndex(item.scope);
            for (int64_t i = index.min; i <= index.max; ++i)
                out.add(std::string{pattern}.replace(at, 2, std::to_string(i)), item.summary);
        });
    });
}

/// What stands in a synopsis for words of a class: "FILE", "VERB".
void addClass(Candidates &out, std::string_view name)
{
    if (name == "FILE") out.add(kFiles);
    if (name == "DIR") out.add(kFolders);
    if (name == "ITEM" || name == "PATTERN") addItems(out, Use::Both);
    if (name == "KEY") addKeys(out);
    if (name == "BSS") out.add(legalIndex(Scope::Bss));
    if (name == "VERB")
        for (const Verb &each : verbs()) out.add(each.name, each.summary);
    if (name == "CODE")
        for (int64_t code = 0; code <= kLastCode; ++code)
            out.add(std::to_string(code), messageLine(code));
}

bool isWord(std::string_view term)
{
    return std::none_of(term.begin(), term.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
}

/// The alternatives of a term of a synopsis: "[FILE|-]". Yields the last one.
std::string_view addTerm(Candidates &out, std::string_view term)
{
    while (term.starts_with('[')) term.remove_prefix(1);
    term = term.substr(0, term.find_first_of("]."));
    for (;;) {
        const size_t end = term.find('|');
        const std::string_view each = term.substr(0, end);
        if (isWord(each)) out.add(each);
        else addClass(out, each);
        if (end == term.npos) return each;
        term.remove_prefix(end + 1);
    }
}

/// What a synopsis says of the word behind those given. A term behind alternatives belongs to the
/// last one when that is a word: "all|bss BSS".
void addTerms(Candidates &out, std::string_view synopsis, Words words)
{
    size_t at = 0;
    bool fits = true;
    forEachWord(synopsis, [&](std::string_view term) {
        if (at == words.size() && fits) addTerm(out, term);
        if (at < words.size()) {
            Candidates unused;
            const std::string_view last = addTerm(unused, term);
            fits = fits && (!isWord(last) || last == words[at]);
        }
        ++at;
    });
}

// ---- Values

void addValue(Candidates &out, const Field &field, int64_t index);

void addNumbers(Candidates &out, const Field &field, int64_t index)
{
    constexpr int64_t kFew = 16; // more of them tell nothing
    if (field.name == "channel" || field.name == "primary")
        return out.add(allowedChannels(index), "allowed now");
    if (field.bounds.max - field.bounds.min < kFew && field.bounds.max > field.bounds.min)
        out.add(field.bounds, field.unit);
}

void addValue(Candidates &out, const Field &field, int64_t index)
{
    for (const Word &word : field.words) out.add(word.word, field.meaning);
    switch (field.kind) {
    case Kind::Number: return addNumbers(out, field, index);
    case Kind::Mac: return out.add(stationAddresses(), "station");
    case Kind::Secret: out.add("-", "the next line of standard input"); return out.add(kAtFiles);
    case Kind::Bytes: return out.add("--hex", "the value in hexadecimal digits");
    case Kind::List:
        if (field.entry.size() == 1) addValue(out, field.entry[0], index);
        return out.add("--file", "the entries are the lines of a file");
    default: return;
    }
}

const Field *optionOf(const Item &item, std::string_view word)
{
    for (const Field &field : item.fields)
        if (isOption(word) && !field.option.empty() && field.option == word.substr(2))
            return &field;
    return nullptr;
}

/// What the words of a set behind its index have come to.
struct Progress {
    size_t positional = 0;
    const Field *awaits = nullptr; ///< an option that needs its value now
    std::string_view word = {};    ///< "--hex" or "--file", which needs its value now
    bool options = false;          ///< given: no value comes by position any more
};

Progress progressOf(const Item &item, Words words)
{
    Progress now;
    for (const std::string_view word : words) {
        const bool value = now.awaits != nullptr || !now.word.empty();
        if (!now.word.empty()) ++now.positional;
        now.awaits = nullptr;
        now.word = {};
        if (value) continue;
        const Field *const option = optionOf(item, word);
        now.options = now.options || option != nullptr;
        if (option != nullptr && !option->flag) now.awaits = option;
        else if (word == "--hex" || word == "--file") now.word = word;
        else if (option == nullptr) ++now.positional;
    }
    return now;
}

void addSetOperand(Candidates &out, const Item &item, int64_t index, Words words)
{
    const Progress now = progressOf(item, words);
    if (now.word == "--file") return out.add(kFiles);
    if (!now.word.empty()) return;
    if (now.awaits != nullptr) return addValue(out, *now.awaits, index);
    const Field *next = now.options ? nullptr : nextPositional(item, now.positional);
    if (next != nullptr) addValue(out, *next, index);
    if (next != nullptr && !next->optional) return;
    for (const Field &field : item.fields) {
        const std::string option = "--" + std::string{field.option};
        if (!field.option.empty() && std::find(words.begin(), words.end(), option) == words.end())
            out.add(option, field.meaning);
    }
}

void addItemOperand(Candidates &out, Use verb, Words words)
{
    if (words.empty()) return addItems(out, verb);
    const Item *item = findItem(words.front());
    if (item == nullptr) return;
    words = words.subspan(1);
    int64_t index = 0;
    if (item->scope != Scope::None) {
        if (words.empty())
            return out.add(item->scope == Scope::Port ? Bounds{0, 1} : legalIndex(item->scope),
                           indexName(item->scope));
        (void)parseDecimal(words.front(), index);
        words = words.subspan(1);
    }
    if (verb == Use::Set) addSetOperand(out, *item, index, words);
}

// ---- Commands and views

/// What can follow the operands given behind a command or view.
void addArgument(Candidates &out, std::span<const Operand> operands, const Repeat &repeat,
                 size_t count)
{
    const bool required = count < operands.size() && !operands[count].optional;
    if (count < operands.size()) {
        const Operand &next = operands[count];
        if (next.field.kind == Kind::Number) out.add(next.field.bounds, next.label);
        else if (next.field.name == "counter") out.add(counterNames(), "counter");
        else addValue(out, next.field, 0);
    }
    if (count <= operands.size() && !required && !repeat.option.empty()) out.add(repeat.option);
}

/// The next word of each command of the verb whose words go on.
void addCommandWord(Candidates &out, std::string_view verb, Words words)
{
    std::string before;
    for (const char *word : words) before.append(word).append(" ");
    forEachCommand([&](const Command &command) {
        if (command.verb != verb || !command.words.starts_with(before)) return;
        const std::string_view rest = command.words.substr(before.size());
        const size_t end = rest.find(' ');
        out.add(rest.substr(0, end), end == rest.npos ? command.summary : "");
    });
}

void addCommandOperand(Candidates &out, std::string_view verb, Words words)
{
    const Command *const command = findCommand(verb, words);
    if (command == nullptr) return addCommandWord(out, verb, words);
    size_t count = words.size();
    forEachWord(command->words, [&](std::string_view) { --count; });
    addArgument(out, command->operands, command->repeat, count);
}

void addViewOperand(Candidates &out, Words words)
{
    if (words.empty())
        return forEachView([&](const View &view) { out.add(view.name, view.summary); });
    if (const View *view = findView(words.front()); view != nullptr)
        addArgument(out, view->operands, kWatch, words.size() - 1);
}

void addVerbOperand(Candidates &out, const Verb &verb, Words words)
{
    bool hasCommands = false;
    forEachCommand([&](const Command &each) { hasCommands |= each.verb == verb.name; });
    if (verb.name == "get") addItemOperand(out, Use::Get, words);
    else if (verb.name == "set") addItemOperand(out, Use::Set, words);
    else if (verb.run == runShow) addViewOperand(out, words);
    else if (hasCommands) addCommandOperand(out, verb.name, words);
    else addTerms(out, verb.operands, words);
}

// ---- Options

/// The option that the last word begins and the next one is the value of; NULL when there is none.
const Option *awaitedBy(std::string_view last, std::span<const Option> ofVerb)
{
    for (const auto options : {globalOptions(), ofVerb})
        for (const Option &option : options)
            if (option.value != nullptr && isOption(last) && last.substr(2) == option.name)
                return &option;
    return nullptr;
}

void addOptionValue(Candidates &out, const Option &option)
{
    forEachWord(option.words, [&](std::string_view word) { out.add(word); });
    if (option.words.empty()) addClass(out, option.value);
}

/// Reads options as a run does, so that values come from the folder of --root. True when the words
/// end within them; the candidates are complete then.
bool addOptions(Candidates &out, std::span<const Option> ofVerb, Words &words)
{
    std::vector<char *> copy;
    std::vector<std::string> texts(words.begin(), words.end());
    for (std::string &text : texts) copy.push_back(text.data());
    copy.push_back(nullptr);
    Request request;
    int operand = 0;
    const auto count = static_cast<int>(words.size());
    const std::string problem = parseOptions(count, copy.data(), ofVerb, request, operand);
    const std::string_view last = words.back();
    words = words.subspan(static_cast<size_t>(operand));
    if (!words.empty()) return false;
    const Option *const awaited = problem.empty() ? nullptr : awaitedBy(last, ofVerb);
    if (awaited != nullptr) addOptionValue(out, *awaited);
    return awaited != nullptr;
}

/// The words begin with the program's name.
void complete(Candidates &out, Words words)
{
    if (addOptions(out, {}, words)) return;
    if (words.empty()) {
        for (const Verb &verb : verbs()) out.add(verb.name, verb.summary);
        return out.add(globalOptions());
    }
    const Verb *const verb = findVerb(words.front());
    if (verb == nullptr || addOptions(out, verb->options, words)) return;
    addVerbOperand(out, *verb, words);
    if (!words.empty()) return;
    out.add(verb->options);
    out.add(globalOptions());
}

std::vector<Candidate> candidatesBehind(Words words)
{
    constexpr int64_t kLongestWait = 1;
    ::setenv("ORU_LOG", "none", 1); // a service that is away is no failure here
    const Patience patience{kLongestWait, ""};
    std::vector<const char *> line = {"oructl"};
    line.insert(line.end(), words.begin(), words.end());
    Candidates out;
    complete(out, line);
    return std::move(out.all());
}

} // namespace

std::string completions(Words words)
{
    std::string text;
    for (const Candidate &each : candidatesBehind(words)) text.append(each.word).append("\n");
    return text;
}

std::string describedCompletions(Words words)
{
    if (words.empty()) return "";
    const std::string_view current = words.front();
    std::vector<const char *> before(words.begin() + 1, words.end());
    const size_t equals = isOption(current) ? current.find('=') : current.npos;
    const std::string option{equals == current.npos ? "" : current.substr(0, equals)};
    if (!option.empty()) before.push_back(option.c_str());

    const std::vector<Candidate> all = candidatesBehind(before);
    const bool optionsAlone = std::all_of(
        all.begin(), all.end(), [](const Candidate &each) { return isOption(each.word); });
    std::string text;
    for (const auto &[word, description] : all) {
        std::string whole = option;
        whole.append(option.empty() ? "" : "=").append(word);
        if (isOption(word) && !current.starts_with('-') && !optionsAlone) continue;
        if (!word.starts_with(':') && !whole.starts_with(current)) continue;
        text += word.starts_with(':') ? word : whole;
        if (!description.empty()) text.append("\t").append(description);
        text += '\n';
    }
    return text;
}

} // namespace oructl
