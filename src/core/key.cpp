#include "core/key.hpp"

#include <cstddef>

namespace oru {

char *writeDecimal(char *at, int32_t value)
{
    auto rest = static_cast<uint32_t>(value);
    if (value < 0) {
        *at++ = '-';
        rest = 0 - rest;
    }
    char digits[10];
    size_t count = 0;
    do {
        digits[count++] = static_cast<char>('0' + rest % 10);
        rest /= 10;
    } while (rest != 0);
    while (count > 0) *at++ = digits[--count];
    return at;
}

KeyText::KeyText(const Key &key)
{
    constexpr size_t kLongestNumber = 11;
    const char *pattern = key.pattern;
    size_t used = 0;
    char *at = text_;
    const char *end = text_ + sizeof text_ - 1;
    for (; *pattern != '\0' && at < end; ++pattern) {
        if (pattern[0] == '%' && pattern[1] == 'd' && used < 2) {
            if (static_cast<size_t>(end - at) < kLongestNumber) break;
            at = writeDecimal(at, key.indexes[used++]);
            ++pattern;
        } else {
            *at++ = *pattern;
        }
    }
    *at = '\0';
}

NumberText::NumberText(Number number)
{
    *writeDecimal(text_, number.value) = '\0';
}

} // namespace oru
