#include "operands.hpp"

#include "values.hpp"

namespace oructl {
namespace {

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

/// Reads what is set by position, and drops it from the words.
std::string parsePositional(const Item &item, Words &words, Call &call)
{
    for (size_t i = 0; i < item.fields.size(); ++i) {
        const Field &field = item.fields[i];
        if (!field.belongsTo(Use::Set) || !field.option.empty()) continue;
        const bool list = field.kind == Kind::List;
        if (words.empty() && !list) return operandName(field) + " is missing";
        call.values[i].given = true;
        for (size_t left = list ? words.size() : 1; left > 0; --left) {
            const std::string problem = parseValue(field, words.front(), call.values[i]);
            if (!problem.empty()) return operandName(field) + ": " + problem;
            words = words.subspan(1);
        }
    }
    return "";
}

/// Reads "--option VALUE", or an option that stands alone.
std::string parseOption(const Item &item, Words &words, Call &call)
{
    const std::string_view word = words.front();
    for (size_t i = 0; i < item.fields.size(); ++i) {
        const Field &field = item.fields[i];
        if (field.option.empty() || !word.starts_with("--") || word.substr(2) != field.option)
            continue;
        if (field.flag) {
            words = words.subspan(1);
            return parseValue(field, "1", call.values[i]);
        }
        if (words.size() < 2) return std::string{word} + " needs a value";
        const std::string problem = parseValue(field, words[1], call.values[i]);
        words = words.subspan(2);
        return problem.empty() ? problem : std::string{word} + ": " + problem;
    }
    return quoted(word) + " is one operand too many";
}

} // namespace

std::string parseOperands(const Item &item, Use verb, Words words, Call &call)
{
    call.values.resize(item.fields.size());
    if (item.scope != Scope::None) {
        if (words.empty()) return std::string{indexName(item.scope)} + " is missing";
        if (std::string problem = parseIndex(item, words.front(), call); !problem.empty())
            return problem;
        words = words.subspan(1);
    }
    if (verb == Use::Set)
        if (std::string problem = parsePositional(item, words, call); !problem.empty())
            return problem;
    while (verb == Use::Set && !words.empty())
        if (std::string problem = parseOption(item, words, call); !problem.empty()) return problem;
    if (verb == Use::Set && item.conflict != nullptr) return item.conflict(call);
    return words.empty() ? "" : quoted(words.front()) + " is one operand too many";
}

std::string operandName(const Field &field)
{
    return field.name.empty() ? "VALUE" : std::string{field.name};
}

std::string operandSynopsis(const Item &item, Use verb)
{
    std::string out{indexName(item.scope)};
    if (verb != Use::Set) return out;
    for (const Field &field : item.fields) {
        if (!field.belongsTo(Use::Set)) continue;
        if (field.flag) {
            out.append(" [--").append(field.option).append("]");
            continue;
        }
        std::string name = field.kind == Kind::Number ? operandName(field) : "";
        for (const Word &word : field.words) name.append(name.empty() ? "" : "|").append(word.word);
        if (name.empty()) name = operandName(field);
        if (field.kind == Kind::List) name.insert(0, "[").append("...]");
        if (!field.option.empty())
            name.insert(0, " ").insert(0, field.option).insert(0, "[--").append("]");
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
