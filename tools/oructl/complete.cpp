#include "complete.hpp"

#include "command.hpp"
#include "request.hpp"
#include "show.hpp"

namespace oructl {
namespace {

class Candidates {
public:
    void add(std::string_view candidate) { text_.append(candidate).append("\n"); }
    void add(Bounds bounds)
    {
        for (int64_t number = bounds.min; number <= bounds.max; ++number)
            add(std::to_string(number));
    }
    void addEach(std::string_view words)
    {
        forEachWord(words, [this](std::string_view word) { add(word); });
    }
    [[nodiscard]] const std::string &text() const { return text_; }

private:
    std::string text_;
};

void addItems(Candidates &out, Use verb)
{
    forEachItem([&](const Item &item) {
        if (verb == Use::Both || (verb == Use::Get ? item.get != nullptr : item.set != nullptr))
            out.add(item.name);
    });
}

void addOperand(Candidates &out, const Item &item, Use verb, size_t count)
{
    if (item.scope != Scope::None) {
        if (count == 0)
            return out.add(item.scope == Scope::Port ? Bounds{0, 1} : legalIndex(item.scope));
        --count;
    }
    if (verb != Use::Set) return;
    if (const Field *field = nextPositional(item, count); field != nullptr) {
        for (const Word &word : field->words) out.add(word.word);
        return;
    }
    for (const Field &field : item.fields)
        if (!field.option.empty()) out.add("--" + std::string{field.option});
}

void addItemOperand(Candidates &out, Use verb, Words words)
{
    if (words.empty()) return addItems(out, verb);
    if (const Item *item = findItem(words.front()); item != nullptr)
        addOperand(out, *item, verb, words.size() - 1);
}

/// What can follow the operands given behind a command or view.
void addArgument(Candidates &out, std::span<const Operand> operands, const Repeat &repeat,
                 size_t count)
{
    const bool required = count < operands.size() && !operands[count].optional;
    if (count < operands.size() && operands[count].field.kind == Kind::Number)
        out.add(operands[count].field.bounds);
    if (count <= operands.size() && !required && !repeat.option.empty()) out.add(repeat.option);
}

/// The next word of each command of the verb whose words go on.
void addCommandWord(Candidates &out, std::string_view verb, Words words)
{
    std::string before;
    for (const char *word : words) before.append(word).append(" ");
    std::string_view last;
    forEachCommand([&](const Command &command) {
        if (command.verb != verb || !command.words.starts_with(before)) return;
        const std::string_view rest = command.words.substr(before.size());
        const std::string_view next = rest.substr(0, rest.find(' '));
        if (next != last) out.add(next);
        last = next;
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
    if (words.empty()) return forEachView([&](const View &view) { out.add(view.name); });
    if (const View *view = findView(words.front()); view != nullptr)
        addArgument(out, view->operands, kWatch, words.size() - 1);
}

void addVerbOperand(Candidates &out, std::string_view verb, Words words)
{
    if (verb == "get") return addItemOperand(out, Use::Get, words);
    if (verb == "set") return addItemOperand(out, Use::Set, words);
    if (verb == "show") return addViewOperand(out, words);
    addCommandOperand(out, verb, words);
    if (verb == "reset" && words.size() == 1 && std::string_view{words.front()} == "bss")
        return out.add(legalIndex(Scope::Bss));
    if (!words.empty()) return;
    if (verb == "commit") out.addEach("radio all");
    if (verb == "reset") out.addEach("all bss");
    if (verb == "list" || verb == "help") addItems(out, Use::Both);
    if (verb == "help")
        for (const Verb &each : verbs()) out.add(each.name);
}

/// Drops the options that words begin with.
Words withoutOptions(Words words)
{
    while (!words.empty() && std::string_view{words.front()}.starts_with("--")) {
        const bool takesValue = std::string_view{words.front()} == "--secret-file";
        words = words.subspan(takesValue && words.size() > 1 ? 2 : 1);
    }
    return words;
}

} // namespace

std::string completions(Words words)
{
    Candidates out;
    words = withoutOptions(words);
    if (words.empty()) {
        for (const Verb &verb : verbs()) out.add(verb.name);
        for (const Option &option : globalOptions()) out.add("--" + std::string{option.name});
        return out.text();
    }
    const std::string_view verb = words.front();
    words = withoutOptions(words.subspan(1));
    addVerbOperand(out, verb, words);
    if (words.empty() && findVerb(verb) != nullptr) out.addEach("--json --help");
    return out.text();
}

} // namespace oructl
