// Configuration keys with their indexes, and numbers as they are stored. Both are small values;
// their text takes room only where it is needed.
#pragma once

#include <cstdint>

namespace oru {

/// A configuration key: each "%d" of the pattern gives way to the next index, in decimal.
struct Key {
    // Not explicit: a key without an index is its pattern.
    constexpr Key(const char *keyPattern, int32_t first = 0, int32_t second = 0)
        : pattern(keyPattern), indexes{first, second}
    {
    }

    const char *pattern;
    int32_t indexes[2];
};

/// The text of a key.
class KeyText {
public:
    explicit KeyText(const Key &key);

    operator const char *() const { return text_; }

private:
    char text_[64]; // the longest key takes 47 characters with a one-digit index
};

/// A number as it is stored: "%d", whatever the type that it came in.
struct Number {
    template <class Integer>
    constexpr explicit Number(Integer number) : value(static_cast<int32_t>(number))
    {
    }

    int32_t value;
};

/// The text of a number.
class NumberText {
public:
    explicit NumberText(Number number);

    operator const char *() const { return text_; }

private:
    char text_[12];
};

/// Writes a number in decimal, without a terminator, and returns the end. Takes up to 11 bytes.
char *writeDecimal(char *at, int32_t value);

} // namespace oru
