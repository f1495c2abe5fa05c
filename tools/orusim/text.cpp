#include "text.hpp"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>

namespace orusim {

std::string format(const char *format, ...)
{
    va_list values;
    va_start(values, format);
    char *text = nullptr;
    const int length = ::vasprintf(&text, format, values);
    va_end(values);
    if (length < 0) return {};
    std::string copy(text, static_cast<size_t>(length));
    std::free(text);
    return copy;
}

std::string printable(std::string_view text)
{
    std::string out;
    bool quote = text.empty();
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte >= 0x7f || c == '\\') out += format("\\x%02X", byte);
        else out += c;
        quote |= c == ' ' || c == '"';
    }
    return quote ? '"' + out + '"' : out;
}

std::string hex(std::span<const uint8_t> bytes)
{
    std::string out;
    for (const uint8_t byte : bytes) out += format(out.empty() ? "%02x" : ":%02x", byte);
    return out;
}

std::optional<uint32_t> toNumber(std::string_view text)
{
    uint32_t number = 0;
    const char *end = text.data() + text.size();
    const auto [at, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc{} || at != end) return {};
    return number;
}

std::optional<Address> toAddress(std::string_view text)
{
    constexpr size_t kPair = 3; // with its colon
    Address address{};
    if (text.size() != kPair * address.size() - 1) return {};
    for (size_t i = 0; i < address.size(); ++i) {
        const std::string_view pair = text.substr(kPair * i, 2);
        const auto [at, error] = std::from_chars(pair.begin(), pair.end(), address[i], 16);
        if (error != std::errc{} || at != pair.end()) return {};
        if (i + 1 < address.size() && text[kPair * i + 2] != ':') return {};
    }
    return address;
}

std::vector<std::string_view> words(std::string_view text)
{
    const auto isBlank = [](char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; };
    std::vector<std::string_view> found;
    for (auto at = text.begin(); at != text.end();) {
        at = std::find_if_not(at, text.end(), isBlank);
        const auto end = std::find_if(at, text.end(), isBlank);
        if (at != end) found.emplace_back(at, end);
        at = end;
    }
    return found;
}

std::string rooted(std::string_view path)
{
    const char *root = ::secure_getenv("ORU_ROOT");
    std::string all = root != nullptr ? root : "";
    while (!all.empty() && all.back() == '/') all.pop_back();
    return all.append(path);
}

} // namespace orusim
