#include "operands.hpp"

#include "nearest.hpp"
#include "values.hpp"

#include <algorithm>

namespace oructl {
namespace {

constexpr std::string_view kAnyOption = " [OPTION...]";

std::string parseIndex(const Item &item, std::string_view text, Call &call)
{
    const std::string name{indexName(item.scope)};
    switch (parseDecimal(text, call.index)) {
    case Decimal::Good: break;
    case Decimal::TooLarge: return quoted(text) + " does not fit 32 bits";
    case Decimal::NotANumber: return quoted(text) + " is no number of a " + name;
    }
    if (call.index < item.index.min || call.index > item.index.max)
        return quoted(text) + " does not fit the " + name + " of " + std::string{item.name};
    return "";
}

bool isOption(std::string_view word)
{
    return word.starts_with("--");
}

/// Reads a secret; one that no word stands for from a source that needs none.
std::string readSecret(const Field &field, Words &words, Value &value, SecretSource &secrets)
{
    std::string_view word = "-";
    if (!words.empty() && !isOption(words.front())) {
        word = words.front();
        words = words.subspan(1);
    } else if (!secrets.answersUnasked()) {
        return "a secret comes from standard input (-) or a file (@FILE)";
    }
    value.given = true;
    return secrets.read(word, operandName(field), value.text);
}

/// Reads the value of one field, and drops it from the words.
std::string parseNext(const Field &field, Words &words, Value &value, SecretSource *secrets)
{
    if (field.kind == Kind::Secret && secrets != nullptr)
        return readSecret(field, words, value, *secrets);
    const std::string_view word = words.front();
    words = words.subspan(1);
    if (field.kind != Kind::Bytes || word != "--hex") return parseValue(field, word, value);
    if (words.empty()) return "--hex needs a value";
    const std::string_view digits = words.front();
    words = words.subspan(1);
    return parseHex(digits, value);
}

/// Reads the entries of a list that are lines of a file.
std::string parseFile(const Field &list, const char *path, Value &value, EntrySecrets secrets)
{
    std::vector<std::string> lines;
    std::string problem = readLines(path, lines);
    for (size_t i = 0; problem.empty() && i < lines.size(); ++i)
        problem = parseValue(list, lines[i], value, secrets);
    return problem;
}

/// Reads all entries of a list, and then the secrets that belong to them.
std::string parseList(const Field &list, Words &words, Value &value, SecretSource *secrets)
{
    const auto apart = secrets != nullptr ? EntrySecrets::Apart : EntrySecrets::Within;
    std::string problem;
    for (; problem.empty() && !words.empty(); words = words.subspan(1)) {
        const bool file = std::string_view{words.front()} == "--file";
        if (file) words = words.subspan(1);
        if (words.empty()) return "--file needs a value";
        problem = file ? parseFile(list, words.front(), value, apart)
                       : parseValue(list, words.front(), value, apart);
    }
    if (secrets == nullptr) return problem;
    for (auto &entry : value.entries)
        for (size_t i = 0; problem.empty() && i < entry.size(); ++i) {
            if (list.entry[i].kind != Kind::Secret) continue;
            entry[i].given = true;
            const std::string name = std::string{list.entry[i].name} + " of " + entry[0].text;
            problem = secrets->read("-", printable(name), entry[i].text);
        }
    return problem;
}

bool isAbsent(const Field &field, Words words, const SecretSource *secrets)
{
    if (!words.empty() && !(field.optional && isOption(words.front()))) return false;
    return field.kind != Kind::List && (field.kind != Kind::Secret || secrets == nullptr);
}

/// Reads what is set by position, and drops it from the words.
std::string parsePositional(const Item &item, Words &words, Call &call, SecretSource *secrets)
{
    for (size_t i = 0; i < item.fields.size(); ++i) {
        const Field &field = item.fields[i];
        if (!field.belongsTo(Use::Set) || !field.option.empty()) continue;
        if (isAbsent(field, words, secrets)) {
            if (!field.optional) return operandName(field) + " is missing";
            continue;
        }
        call.values[i].given = true;
        const std::string problem = field.kind == Kind::List
                                        ? parseList(field, words, call.values[i], secrets)
                                        : parseNext(field, words, call.values[i], secrets);
        if (!problem.empty()) return operandName(field) + ": " + problem;
    }
    return "";
}

/// An option that the item doesn't have, or that stands behind the first operand.
std::string noSuchOption(const Item &item, std::string_view word)
{
    std::vector<std::string> options;
    for (const Field &field : item.fields)
        if (!field.option.empty()) options.push_back("--" + std::string{field.option});
    const std::vector<std::string_view> names(options.begin(), options.end());
    const std::string meant = didYouMean(word, names);
    if (!meant.empty()) return quoted(word) + " is no option of " + std::string{item.name} + meant;
    return quoted(word) + " is one operand too many";
}

/// Reads "--option VALUE", or an option that stands alone.
std::string parseOption(const Item &item, Words &words, Call &call, SecretSource *secrets)
{
    const std::string word = words.front();
    for (size_t i = 0; i < item.fields.size(); ++i) {
        const Field &field = item.fields[i];
        if (field.option.empty() || !isOption(word) || word.substr(2) != field.option) continue;
        if (words.size() < 2 && !field.flag) return word + " needs a value";
        words = words.subspan(1);
        if (field.flag) return parseValue(field, "1", call.values[i]);
        const std::string problem = parseNext(field, words, call.values[i], secrets);
        return problem.empty() ? "" : std::string{word}.append(": ").append(problem);
    }
    return isOption(word) ? noSuchOption(item, word) : quoted(word) + " is one operand too many";
}

std::string parseWords(const Item &item, Use verb, Words words, Call &call, SecretSource *secrets)
{
    if (item.scope != Scope::None) {
        if (words.empty()) return std::string{indexName(item.scope)} + " is missing";
        if (std::string problem = parseIndex(item, words.front(), call); !problem.empty())
            return problem;
        words = words.subspan(1);
    }
    if (verb == Use::Set)
        if (std::string problem = parsePositional(item, words, call, secrets); !problem.empty())
            return problem;
    while (verb == Use::Set && !words.empty())
        if (std::string problem = parseOption(item, words, call, secrets); !problem.empty())
            return problem;
    if (verb == Use::Set && item.conflict != nullptr) return item.conflict(call);
    return words.empty() ? "" : quoted(words.front()) + " is one operand too many";
}

/// How a synopsis calls a field's value.
std::string valueSynopsis(const Field &field)
{
    if (!field.operand.empty()) return std::string{field.operand};
    if (field.kind == Kind::Secret) return "-|@FILE";
    std::string name = field.kind == Kind::Number ? operandName(field) : "";
    for (const Word &word : field.words) name.append(name.empty() ? "" : "|").append(word.word);
    if (name.empty()) name = operandName(field);
    return field.kind == Kind::Bytes ? name + "|--hex HEX" : name;
}

} // namespace

std::string parseOperands(const Item &item, Use verb, Words words, Call &call,
                          SecretSource *secrets)
{
    call.values.resize(item.fields.size());
    std::string problem = parseWords(item, verb, words, call, secrets);
    return hasSecret(item.fields) ? withoutQuotation(problem) : problem;
}

std::string withoutQuotation(const std::string &problem)
{
    const size_t begin = problem.find('\'');
    if (begin == problem.npos) return problem;
    const size_t end = problem.rfind('\'') + 1;
    // what it resembles tells of the word, too
    return problem.substr(0, begin) + "a word" +
           problem.substr(end, problem.find("; did you mean ") - end);
}

bool hasSecret(std::span<const Field> fields)
{
    return std::any_of(fields.begin(), fields.end(), [](const Field &field) {
        return field.kind == Kind::Secret || hasSecret(field.entry);
    });
}

std::string operandName(const Field &field)
{
    return field.name.empty() ? "VALUE" : std::string{field.name};
}

std::string operandSynopsis(const Item &item, Use verb, Synopsis synopsis)
{
    std::string out{indexName(item.scope)};
    if (verb != Use::Set) return out;
    for (const Field &field : item.fields) {
        if (!field.belongsTo(Use::Set)) continue;
        if (!field.option.empty() && synopsis == Synopsis::Brief) {
            if (!out.ends_with(kAnyOption)) out.append(kAnyOption);
            continue;
        }
        if (field.flag) {
            out.append(" [--").append(field.option).append("]");
            continue;
        }
        std::string name = valueSynopsis(field);
        if (field.kind == Kind::List) name += "...";
        if (field.kind == Kind::List && field.bounds.min == 0) name.insert(0, "[").append("]");
        if (!field.option.empty())
            name.insert(0, " ").insert(0, field.option).insert(0, "[--").append("]");
        else if (field.optional) name.insert(0, "[").append("]");
        out.append(out.empty() ? "" : " ").append(name);
    }
    return out;
}

const Field *nextPositional(const Item &item, size_t count)
{
    for (const Field &field : item.fields) {
        if (!field.belongsTo(Use::Set) || !field.option.empty()) continue;
        if (count == 0 || field.kind == Kind::List) return &field;
        --count;
    }
    return nullptr;
}

} // namespace oructl
