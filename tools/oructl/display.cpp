#include "display.hpp"

#include "values.hpp"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace oructl {
namespace {

/// A character, and how many bytes it takes.
struct Letter {
    char32_t code = 0;
    size_t size = 0; ///< 0: the bytes are no UTF-8
};

constexpr bool continues(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// The first character of a text that is not empty.
Letter firstLetter(std::string_view text)
{
    constexpr char32_t kLeast[] = {0, 0x80, 0x800, 0x10000}; // by continuation bytes
    const auto lead = static_cast<unsigned char>(text[0]);
    if (lead < 0x80) return {lead, 1};
    const size_t more = lead >= 0xC2 && lead < 0xE0   ? 1
                        : lead >= 0xE0 && lead < 0xF0 ? 2
                        : lead >= 0xF0 && lead < 0xF5 ? 3
                                                      : 0;
    if (more == 0 || text.size() <= more) return {};
    char32_t code = lead & (0x3Fu >> more);
    for (size_t i = 1; i <= more; ++i) {
        if (!continues(text[i])) return {};
        code = code << 6 | (static_cast<unsigned char>(text[i]) & 0x3Fu);
    }
    if (code < kLeast[more] || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) return {};
    return {code, more + 1};
}

/// Letters that stand alone, run from left to right and have a width that all terminals agree on.
struct Script {
    char32_t first;
    char32_t last;
    uint8_t width;
};

constexpr Script kShown[] = {
    {0x20, 0x7E, 1},     {0xA1, 0xAC, 1},     {0xAE, 0x24F, 1},    // Latin, but the soft hyphen
    {0x391, 0x3A1, 1},   {0x3A3, 0x3CE, 1},   {0x400, 0x482, 1},   // Greek, Cyrillic
    {0x48A, 0x4FF, 1},   {0x2010, 0x2015, 1}, {0x2018, 0x201F, 1}, // dashes, quotation marks
    {0x20AC, 0x20AC, 1}, {0x2122, 0x2122, 1}, {0x3041, 0x3096, 2}, // signs, kana
    {0x30A1, 0x30FA, 2}, {0x4E00, 0x9FEF, 2}, {0xAC00, 0xD7A3, 2}, // ideographs, Hangul
};

/// 0 for what is not shown.
size_t widthOf(char32_t code)
{
    const auto *const script =
        std::find_if(std::begin(kShown), std::end(kShown), [code](const Script &each) {
            return code >= each.first && code <= each.last;
        });
    return script == std::end(kShown) ? 0 : script->width;
}

} // namespace

Charset charsetOfEnvironment()
{
    for (const char *name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char *const locale = std::getenv(name);
        if (locale == nullptr || *locale == '\0') continue;
        std::string flat;
        for (const char *at = locale; *at != '\0'; ++at)
            if (*at != '-') flat += static_cast<char>(*at >= 'A' && *at <= 'Z' ? *at | 0x20 : *at);
        return flat.find(".utf8") == flat.npos ? Charset::Ascii : Charset::Utf8;
    }
    return Charset::Ascii;
}

std::string quotedText(std::string_view text, Charset charset)
{
    std::string out = "\"";
    while (!text.empty()) {
        const Letter letter = firstLetter(text);
        const bool shown = letter.size > 1 && charset == Charset::Utf8 && widthOf(letter.code) > 0;
        const std::string_view bytes = text.substr(0, shown ? letter.size : 1);
        out += shown ? std::string{bytes} : printable(bytes);
        text.remove_prefix(bytes.size());
    }
    return out += '"';
}

size_t harmlessSize(std::string_view text)
{
    const Letter letter = firstLetter(text);
    const bool control = letter.code < 0x20 || (letter.code >= 0x7F && letter.code < 0xA0);
    return control ? 0 : letter.size;
}

size_t displayWidth(std::string_view text)
{
    size_t columns = 0;
    while (!text.empty()) {
        const Letter letter = firstLetter(text);
        columns += letter.size == 0 ? 1 : widthOf(letter.code);
        text.remove_prefix(std::max<size_t>(letter.size, 1));
    }
    return columns;
}

std::string_view cutToWidth(std::string_view text, size_t columns)
{
    size_t end = 0;
    while (end < text.size()) {
        const Letter letter = firstLetter(text.substr(end));
        const size_t width = letter.size == 0 ? 1 : widthOf(letter.code);
        if (width > columns) break;
        columns -= width;
        end += std::max<size_t>(letter.size, 1);
    }
    return text.substr(0, end);
}

} // namespace oructl
