#include "terse_output.hpp"

#include "display.hpp"

#include <algorithm>

namespace oructl {
namespace {

/// Whole characters stay as they are. Bytes that make none, and those that a terminal would obey,
/// become escapes.
std::string escaped(std::string_view text)
{
    std::string out;
    while (!text.empty()) {
        const char letter = text[0];
        const size_t size = std::max<size_t>(harmlessSize(text), 1);
        if (letter == '\t') out += "\\t";
        else if (letter == '\n') out += "\\n";
        else if (letter == '\\') out += "\\\\";
        else if (harmlessSize(text) == 0) out.append("\\x").append(hexOf({&letter, 1}));
        else out += text.substr(0, size);
        text.remove_prefix(size);
    }
    return out;
}

std::string cellOf(const Field &field, const Value &value, Secrets secrets);

/// Entries between commas, their fields between blanks.
std::string cellOfList(const Field &list, const Value &value, Secrets secrets)
{
    std::string out;
    for (const auto &entry : value.entries) {
        if (&entry != &value.entries.front()) out += ',';
        for (size_t i = 0; i < entry.size(); ++i)
            out.append(i == 0 ? "" : " ").append(cellOf(list.entry[i], entry[i], secrets));
    }
    return out;
}

std::string cellOf(const Field &field, const Value &value, Secrets secrets)
{
    if (!value.given) return "";
    switch (field.kind) {
    case Kind::List: return cellOfList(field, value, secrets);
    case Kind::Secret:
        return secrets == Secrets::Shown || value.text.empty() ? escaped(value.text)
                                                               : std::string{kMask};
    case Kind::Text:
    case Kind::Bytes:
    case Kind::Mac: return escaped(value.text);
    case Kind::Number:
    case Kind::Switch:
    case Kind::Choice: break;
    }
    if (!value.text.empty()) return escaped(value.text);
    if (field.coded != nullptr)
        if (std::string word = field.coded->word(value.number); !word.empty()) return word;
    const std::string_view word = wordOf(field, value.number);
    return word.empty() ? std::to_string(value.number) : std::string{word};
}

} // namespace

std::string terseLine(std::span<const Field> fields, const std::vector<Value> &values,
                      Secrets secrets)
{
    std::string out;
    bool first = true;
    for (size_t i = 0; i < fields.size(); ++i) {
        if (!fields[i].belongsTo(Use::Get)) continue;
        out.append(first ? "" : "\t").append(cellOf(fields[i], values[i], secrets));
        first = false;
    }
    return out += '\n';
}

} // namespace oructl
