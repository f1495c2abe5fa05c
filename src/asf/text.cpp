#include "text.hpp"

#include "lines.hpp"

#include <cstring>

// ORU_NO_SIMD builds what machines without it get.
#if defined(__SSE2__) && !defined(ORU_NO_SIMD)
#define ORU_SSE2 1
#include <emmintrin.h>
#endif

namespace oru {
namespace {

bool isControl(char byte)
{
    return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7f;
}

bool isBlank(char byte)
{
    return byte == ' ';
}

/// The letter of a short escape, 0 when the byte has none.
char shortEscape(char byte)
{
    switch (byte) {
    case '"': return '"';
    case '\\': return '\\';
    case '\n': return 'n';
    case '\r': return 'r';
    case '\t': return 't';
    default: return '\0';
    }
}

/// The byte behind a short escape's letter, 0 when there is no such escape.
char shortEscaped(char letter)
{
    switch (letter) {
    case '"': return '"';
    case '\\': return '\\';
    case 'n': return '\n';
    case 'r': return '\r';
    case 't': return '\t';
    default: return '\0';
    }
}

int hexDigit(char digit)
{
    if (digit >= '0' && digit <= '9') return digit - '0';
    if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
    if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
    return -1;
}

bool isDelimited(std::string_view written)
{
    return !written.empty() && written.front() == '"';
}

/// One byte of a delimited value.
struct Unescaped {
    char byte;
    size_t taken; // bytes of the written form; 0: damaged
};

Unescaped unescape(const char *at, const char *end)
{
    if (*at == '"') return {'\0', 0};
    if (*at != '\\') return {*at, 1};
    if (end - at < 2) return {'\0', 0};
    if (const char byte = shortEscaped(at[1]); byte != '\0') return {byte, 2};
    if (at[1] != 'x' || end - at < 4) return {'\0', 0};

    const int high = hexDigit(at[2]);
    const int low = hexDigit(at[3]);
    if (high < 0 || low < 0 || (high == 0 && low == 0)) return {'\0', 0};
    return {static_cast<char>(high * 16 + low), 4};
}

/// Whether the line behind `feed`, if there is a line feed, begins with key; the caller saw the
/// '='.
bool startsWithKey(const char *feed, std::string_view key)
{
    return *feed == '\n' && std::memcmp(feed + 1, key.data(), key.size()) == 0;
}

// Where a line sets a key, the key's last byte and a '=' stand side by side. Both are tested for a
// block of places at once, from the end of the text to its start. Few places pass: keys of one
// length are common, and a search takes 1.7 times as long when the line feed is tested instead.
#if defined(ORU_SSE2)

constexpr ptrdiff_t kBlock = 16;
constexpr ptrdiff_t kStride = 4 * kBlock; // one test for four blocks: up to 1.4 times as fast

__m128i matches(const char *at, size_t keySize, char last)
{
    const auto load = [](const char *from) {
        return _mm_loadu_si128(reinterpret_cast<const __m128i *>(from));
    };
    return _mm_and_si128(_mm_cmpeq_epi8(load(at + keySize), _mm_set1_epi8(last)),
                         _mm_cmpeq_epi8(load(at + keySize + 1), _mm_set1_epi8('=')));
}

bool strideHasCandidate(const char *at, size_t keySize, char last)
{
    const __m128i low =
        _mm_or_si128(matches(at, keySize, last), matches(at + kBlock, keySize, last));
    const __m128i high = _mm_or_si128(matches(at + 2 * kBlock, keySize, last),
                                      matches(at + 3 * kBlock, keySize, last));
    return _mm_movemask_epi8(_mm_or_si128(low, high)) != 0;
}

uint32_t candidates(const char *at, size_t keySize, char last)
{
    return static_cast<uint32_t>(_mm_movemask_epi8(matches(at, keySize, last)));
}

#else

constexpr ptrdiff_t kBlock = 8;
constexpr ptrdiff_t kStride = 4 * kBlock;

/// Not 0 when a byte matches. The test for a zero byte knows no byte order.
uint64_t matches(const char *at, size_t keySize, char last)
{
    constexpr uint64_t kOnes = 0x0101010101010101;
    uint64_t lasts;
    uint64_t equals;
    std::memcpy(&lasts, at + keySize, sizeof lasts);
    std::memcpy(&equals, at + keySize + 1, sizeof equals);
    const uint64_t differs =
        (lasts ^ (kOnes * static_cast<unsigned char>(last))) | (equals ^ (kOnes * '='));
    return (differs - kOnes) & ~differs & (kOnes << 7);
}

bool strideHasCandidate(const char *at, size_t keySize, char last)
{
    return (matches(at, keySize, last) | matches(at + kBlock, keySize, last) |
            matches(at + 2 * kBlock, keySize, last) | matches(at + 3 * kBlock, keySize, last)) != 0;
}

uint32_t candidates(const char *at, size_t keySize, char last)
{
    if (matches(at, keySize, last) == 0) return 0;
    uint32_t found = 0;
    for (uint32_t i = 0; i < kBlock; ++i)
        if (at[i + keySize] == last && at[i + keySize + 1] == '=') found |= 1u << i;
    return found;
}

#endif

/// The last line feed of the block at `at`, not before `first`, that a line of key stands behind;
/// null when there is none.
const char *lastFeedIn(const char *at, const char *first, std::string_view key)
{
    uint32_t found = candidates(at, key.size(), key.back());
    if (at < first) found &= ~0u << (first - at);
    while (found != 0) {
        const int last = 31 - __builtin_clz(found);
        if (startsWithKey(at + last, key)) return at + last;
        found &= ~(1u << last);
    }
    return nullptr;
}

/// The place of the last line feed before a line that sets key, null when there is none.
const char *lastFeedBefore(std::string_view text, std::string_view key)
{
    const char *first = text.data() - 1;
    const char *at = text.data() + text.size() - (key.size() + 1); // behind the last feed
    while (at > first) {
        const bool whole = at - first >= kStride;
        if (whole && !strideHasCandidate(at - kStride, key.size(), key.back())) {
            at -= kStride;
            continue;
        }
        for (const char *stop = whole ? at - kStride : first; at > stop;) {
            at -= kBlock;
            if (const char *feed = lastFeedIn(at, first, key); feed != nullptr) return feed;
        }
    }
    return nullptr;
}

} // namespace

bool isKey(std::string_view key)
{
    if (key.empty() || key.front() == '#') return false;
    for (const char byte : key)
        if (isControl(byte) || isBlank(byte) || byte == '=') return false;
    return true;
}

std::string_view keyOfLine(std::string_view line)
{
    const std::string_view name = nameOfLine(line);
    return isKey(name) ? name : std::string_view{};
}

std::string_view findLastLine(std::string_view text, std::string_view key)
{
    if (text.size() < key.size() + 1 || !isKey(key)) return {};
    const char *feed = lastFeedBefore(text, key);
    if (feed == nullptr) return {};

    const char *line = feed + 1;
    const size_t rest = static_cast<size_t>(text.data() + text.size() - line);
    const void *end = std::memchr(line, '\n', rest);
    return {line,
            end == nullptr ? rest : static_cast<size_t>(static_cast<const char *>(end) - line)};
}

Form plainForm(std::string_view value)
{
    if (value.empty()) return Form::bare;
    if (value.front() == '"' || isBlank(value.front()) || isBlank(value.back()))
        return Form::delimited;
    for (const char byte : value)
        if (isControl(byte)) return Form::delimited;
    return Form::bare;
}

size_t writtenSize(std::string_view value, Form form)
{
    if (form == Form::bare) return value.size();
    size_t size = value.size() + 2;
    for (const char byte : value) {
        if (shortEscape(byte) != '\0') size += 1;
        else if (isControl(byte)) size += 3;
    }
    return size;
}

char *writeValue(char *at, std::string_view value, Form form)
{
    constexpr char kDigits[] = "0123456789abcdef";
    if (form == Form::bare) {
        if (!value.empty()) std::memcpy(at, value.data(), value.size());
        return at + value.size();
    }
    *at++ = '"';
    for (const char byte : value) {
        if (const char letter = shortEscape(byte); letter != '\0') {
            *at++ = '\\';
            *at++ = letter;
        } else if (isControl(byte)) {
            *at++ = '\\';
            *at++ = 'x';
            *at++ = kDigits[static_cast<unsigned char>(byte) >> 4];
            *at++ = kDigits[static_cast<unsigned char>(byte) & 15];
        } else {
            *at++ = byte;
        }
    }
    *at++ = '"';
    return at;
}

ptrdiff_t readSize(std::string_view written)
{
    if (!isDelimited(written)) return static_cast<ptrdiff_t>(written.size());
    if (written.size() < 2 || written.back() != '"') return -1;

    ptrdiff_t size = 0;
    const char *end = written.data() + written.size() - 1;
    for (const char *at = written.data() + 1; at < end; ++size) {
        const Unescaped next = unescape(at, end);
        if (next.taken == 0) return -1;
        at += next.taken;
    }
    return size;
}

char *readValue(char *at, std::string_view written)
{
    if (!isDelimited(written)) {
        if (!written.empty()) std::memcpy(at, written.data(), written.size());
        return at + written.size();
    }
    const char *end = written.data() + written.size() - 1;
    for (const char *from = written.data() + 1; from < end;) {
        const Unescaped next = unescape(from, end);
        *at++ = next.byte;
        from += next.taken;
    }
    return at;
}

} // namespace oru
