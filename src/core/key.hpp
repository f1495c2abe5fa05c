// Texts of fixed room: configuration keys with their indexes, and numbers as they are stored.
#pragma once

#include <cstddef>
#include <cstdint>

namespace oru {

/// A configuration key: each "%d" of the pattern gives way to the next index, in decimal.
class Key {
public:
    explicit Key(const char *pattern, int32_t first = 0, int32_t second = 0);

    operator const char *() const { return text_; }

private:
    char text_[64]; // the longest key takes 47 characters with a one-digit index
};

/// A number as it is stored: "%d", whatever the type that it came in.
class Number {
public:
    template <class Integer>
    explicit Number(Integer value) : Number(static_cast<int32_t>(value))
    {
    }
    explicit Number(int32_t value);

    operator const char *() const { return text_; }

private:
    char text_[12];
};

/// Writes a number in decimal, without a terminator, and returns the end. Takes up to 11 bytes.
char *writeDecimal(char *at, int32_t value);

} // namespace oru
