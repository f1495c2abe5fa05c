#include "values.hpp"

#include <algorithm>
#include <cstdint>

namespace oructl {
namespace {

constexpr std::string_view kMask = "********";

std::string parseNumber(const Field &field, std::string_view text, Value &value)
{
    for (const Word &word : field.words) {
        if (word.word != text) continue;
        value.number = word.number;
        return "";
    }
    switch (parseDecimal(text, value.number)) {
    case Decimal::Good: break;
    case Decimal::TooLarge: return quoted(text) + " does not fit 32 bits";
    case Decimal::NotANumber:
        return quoted(text) +
               (field.kind == Kind::Number ? " is no whole number" : " is none of its values");
    }
    return "";
}

/// Switches take "true" and "false" too.
std::string parseSwitch(const Field &field, std::string_view text, Value &value)
{
    if (text == "true") text = "on";
    if (text == "false") text = "off";
    return parseNumber(field, text, value);
}

bool isHexDigit(char digit)
{
    return (digit >= '0' && digit <= '9') || (digit >= 'a' && digit <= 'f') ||
           (digit >= 'A' && digit <= 'F');
}

std::string parseMac(std::string_view text, Value &value)
{
    constexpr size_t kLength = 17;
    bool good = text.size() == kLength;
    for (size_t i = 0; good && i < kLength; ++i)
        good = i % 3 == 2 ? text[i] == ':' : isHexDigit(text[i]);
    if (!good) return quoted(text) + " is no MAC address (six pairs of digits joined by colons)";
    value.text = text;
    return "";
}

/// An entry of a list with one field is an operand; fields of an entry with several are separated
/// by commas.
std::string parseEntry(const Field &list, std::string_view text, std::vector<Value> &entry)
{
    for (size_t i = 0; i < list.entry.size(); ++i) {
        const bool last = i + 1 == list.entry.size();
        const size_t comma = last ? text.npos : text.find(',');
        if (!last && comma == text.npos) return quoted(text) + " is no whole entry";
        std::string problem =
            parseValue(list.entry[i], text.substr(0, comma), entry.emplace_back());
        if (!problem.empty()) return problem;
        if (!last) text.remove_prefix(comma + 1);
    }
    return "";
}

bool isBetween(Bounds bounds, int64_t number)
{
    return number >= bounds.min && number <= bounds.max;
}

std::string range(Bounds bounds)
{
    return std::to_string(bounds.min) + " to " + std::to_string(bounds.max);
}

} // namespace

Decimal parseDecimal(std::string_view text, int64_t &number)
{
    const bool negative = text.starts_with('-');
    if (negative) text.remove_prefix(1);
    if (text.empty()) return Decimal::NotANumber;
    const int64_t limit = negative ? -int64_t{INT32_MIN} : INT32_MAX;
    int64_t sum = 0;
    for (const char digit : text) {
        if (digit < '0' || digit > '9') return Decimal::NotANumber;
        sum = std::min(sum * 10 + (digit - '0'), limit + 1);
    }
    if (sum > limit) return Decimal::TooLarge;
    number = negative ? -sum : sum;
    return Decimal::Good;
}

std::string parseValue(const Field &field, std::string_view text, Value &value)
{
    value.given = true;
    switch (field.kind) {
    case Kind::Number:
    case Kind::Choice: return parseNumber(field, text, value);
    case Kind::Switch: return parseSwitch(field, text, value);
    case Kind::Mac: return parseMac(text, value);
    case Kind::List: return parseEntry(field, text, value.entries.emplace_back());
    case Kind::Text:
    case Kind::Secret: break;
    }
    value.text = text;
    return "";
}

bool isLegal(const Field &field, const Value &value)
{
    switch (field.kind) {
    case Kind::Number:
    case Kind::Switch:
        return isBetween(field.bounds, value.number) || !wordOf(field, value.number).empty();
    case Kind::Choice: return !wordOf(field, value.number).empty();
    case Kind::Text:
    case Kind::Secret: return isBetween(field.bounds, static_cast<int64_t>(value.text.size()));
    case Kind::Mac: return true;
    case Kind::List: break;
    }
    if (!isBetween(field.bounds, static_cast<int64_t>(value.entries.size()))) return false;
    return std::all_of(value.entries.begin(), value.entries.end(), [&](const auto &entry) {
        return std::equal(entry.begin(), entry.end(), field.entry.begin(), field.entry.end(),
                          [](const Value &part, const Field &of) { return isLegal(of, part); });
    });
}

std::string legalValues(const Field &field)
{
    const std::string_view separator = field.unit.empty() ? "" : " ";
    std::vector<std::string_view> names;
    names.reserve(field.words.size());
    for (const Word &word : field.words) names.push_back(word.word);
    std::string words = alternatives(names);
    switch (field.kind) {
    case Kind::Switch:
    case Kind::Choice: return words;
    case Kind::Number:
        return range(field.bounds).append(separator).append(field.unit) +
               (words.empty() ? "" : " or " + words);
    case Kind::Text:
    case Kind::Secret: return range(field.bounds) + " bytes";
    case Kind::Mac: return "a MAC address";
    case Kind::List: break;
    }
    return range(field.bounds) + " entries";
}

std::string shownValue(const Field &field, const Value &value)
{
    switch (field.kind) {
    case Kind::Number:
    case Kind::Switch:
    case Kind::Choice: {
        if (field.coded != nullptr)
            return field.coded->meaning(value.number) + " (code " + std::to_string(value.number) +
                   ')';
        const std::string_view word = wordOf(field, value.number);
        return word.empty() ? std::to_string(value.number) : std::string{word};
    }
    case Kind::Secret: return value.text.empty() ? "\"\"" : std::string{kMask};
    case Kind::Mac: return printable(value.text);
    case Kind::Text: return '"' + printable(value.text) + '"';
    case Kind::List: break;
    }
    return std::to_string(value.entries.size());
}

std::string_view wordOf(const Field &field, int64_t number)
{
    for (const Word &word : field.words)
        if (word.number == number) return word.word;
    return "";
}

std::string printable(std::string_view text)
{
    constexpr char kDigits[] = "0123456789abcdef";
    std::string out;
    for (const char letter : text) {
        const auto byte = static_cast<unsigned char>(letter);
        if (byte >= 0x20 && byte < 0x7f) {
            if (letter == '"' || letter == '\\') out += '\\';
            out += letter;
        } else {
            out.append("\\x").append(1, kDigits[byte >> 4]).append(1, kDigits[byte & 15]);
        }
    }
    return out;
}

std::string quoted(std::string_view text)
{
    return '\'' + printable(text) + '\'';
}

std::string alternatives(const std::vector<std::string_view> &words)
{
    std::string out;
    for (size_t i = 0; i < words.size(); ++i)
        out.append(i == 0 ? "" : i + 1 == words.size() ? " or " : ", ").append(words[i]);
    return out;
}

} // namespace oructl
