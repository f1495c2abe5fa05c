#include "values.hpp"

#include "nearest.hpp"

#include <algorithm>
#include <cstdint>

namespace oructl {
namespace {

constexpr char kDigits[] = "0123456789abcdef";

std::vector<std::string_view> wordsOf(const Field &field)
{
    std::vector<std::string_view> words;
    words.reserve(field.words.size());
    for (const Word &word : field.words) words.push_back(word.word);
    return words;
}

std::string reportNoValue(const Field &field, std::string_view text)
{
    std::string problem = quoted(text);
    problem += field.kind == Kind::Number ? " is no whole number" : " is none of its values";
    const bool unbounded = field.kind == Kind::Number && field.bounds.max == field.bounds.min;
    if (!unbounded) problem.append(" (").append(legalValues(field)).append(")");
    return problem + didYouMean(text, wordsOf(field));
}

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
    case Decimal::NotANumber: return reportNoValue(field, text);
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

int hexValue(char digit)
{
    return digit <= '9' ? digit - '0' : (digit | 0x20) - 'a' + 10;
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

/// Where the field before this one ends.
size_t endBefore(const Field &field, std::string_view text)
{
    const size_t comma = text.find(',');
    return field.separator == ',' ? comma : text.substr(0, comma).rfind(field.separator);
}

/// An entry of a list with one field is an operand; fields of an entry with several are separated.
std::string parseEntry(const Field &list, std::string_view text, EntrySecrets secrets,
                       std::vector<Value> &entry)
{
    entry.resize(list.entry.size());
    size_t last = list.entry.size() - 1;
    while (secrets == EntrySecrets::Apart && last > 0 && list.entry[last].kind == Kind::Secret)
        --last;
    for (size_t i = 0; i < last; ++i) {
        const size_t end = endBefore(list.entry[i + 1], text);
        if (end == text.npos) return quoted(text) + " is no whole entry";
        std::string problem = parseValue(list.entry[i], text.substr(0, end), entry[i]);
        if (!problem.empty()) return problem;
        text.remove_prefix(end + 1);
    }
    return parseValue(list.entry[last], text, entry[last]);
}

bool isBetween(Bounds bounds, int64_t number)
{
    return number >= bounds.min && number <= bounds.max;
}

std::string range(Bounds bounds)
{
    const std::string min = std::to_string(bounds.min);
    return bounds.min == bounds.max ? min : min + " to " + std::to_string(bounds.max);
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

std::string parseValue(const Field &field, std::string_view text, Value &value,
                       EntrySecrets secrets)
{
    value.given = true;
    switch (field.kind) {
    case Kind::Number:
    case Kind::Choice: return parseNumber(field, text, value);
    case Kind::Switch: return parseSwitch(field, text, value);
    case Kind::Mac: return parseMac(text, value);
    case Kind::List: return parseEntry(field, text, secrets, value.entries.emplace_back());
    case Kind::Text:
    case Kind::Bytes:
    case Kind::Secret: break;
    }
    value.text = text;
    return "";
}

std::string parseHex(std::string_view digits, Value &value)
{
    if (digits.size() % 2 != 0) return quoted(digits) + " has an odd number of digits";
    value.given = true;
    value.text.clear();
    for (; !digits.empty(); digits.remove_prefix(2)) {
        if (!isHexDigit(digits[0]) || !isHexDigit(digits[1]))
            return quoted(digits.substr(0, 2)) + " is no pair of hexadecimal digits";
        const int byte = hexValue(digits[0]) * 16 + hexValue(digits[1]);
        if (byte == 0) return "the byte 00 ends a text, and can be no part of one";
        value.text += static_cast<char>(byte);
    }
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
    case Kind::Bytes:
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
    std::string words = alternatives(wordsOf(field));
    switch (field.kind) {
    case Kind::Switch:
    case Kind::Choice: return words;
    case Kind::Number:
        return range(field.bounds).append(separator).append(field.unit) +
               (words.empty() ? "" : " or " + words);
    case Kind::Text:
    case Kind::Bytes:
    case Kind::Secret: return range(field.bounds) + " bytes";
    case Kind::Mac: return "a MAC address";
    case Kind::List: break;
    }
    return range(field.bounds) + " entries";
}

std::string shownValue(const Field &field, const Value &value, Secrets secrets)
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
    case Kind::Mac: return printable(value.text);
    case Kind::Secret:
        if (secrets == Secrets::Masked && !value.text.empty()) return std::string{kMask};
        [[fallthrough]];
    case Kind::Text:
    case Kind::Bytes: return '"' + printable(value.text) + '"';
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

std::string hexOf(std::string_view bytes)
{
    std::string out;
    for (const char letter : bytes) {
        const auto byte = static_cast<unsigned char>(letter);
        out.append(1, kDigits[byte >> 4]).append(1, kDigits[byte & 15]);
    }
    return out;
}

bool isUtf8(std::string_view bytes)
{
    const auto at = [&](size_t i) {
        return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0u;
    };
    for (size_t i = 0; i < bytes.size();) {
        const unsigned lead = at(i++);
        if (lead < 0x80) continue;
        const int more = lead >= 0xf0 ? 3 : lead >= 0xe0 ? 2 : 1;
        if (lead < 0xc2 || lead > 0xf4) return false;
        const unsigned low = lead == 0xe0 ? 0xa0 : lead == 0xf0 ? 0x90 : 0x80;
        const unsigned high = lead == 0xed ? 0x9f : lead == 0xf4 ? 0x8f : 0xbf;
        if (at(i) < low || at(i) > high) return false;
        ++i;
        for (int left = more; left > 1; --left)
            if ((at(i++) & 0xc0) != 0x80) return false;
    }
    return true;
}

std::string printable(std::string_view text)
{
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
