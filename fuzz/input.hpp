// The bytes of a run, as a target takes them one after another; zeros behind their end.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

namespace oru::fuzz {

class Input {
public:
    Input(const uint8_t *data, size_t size) : at_(data), end_(data + size) {}

    [[nodiscard]] bool empty() const { return at_ == end_; }
    uint8_t byte() { return empty() ? 0 : *at_++; }

    /// 32 bits, signed.
    int64_t number()
    {
        uint32_t value = 0;
        for (int i = 0; i < 4; ++i) value = value << 8 | byte();
        return static_cast<int32_t>(value);
    }

    void fill(void *to, size_t size)
    {
        auto *at = static_cast<uint8_t *>(to);
        for (size_t i = 0; i < size; ++i) at[i] = byte();
    }

    /// At most so many bytes, up to a NUL.
    std::string text(size_t most)
    {
        const auto *end = at_ + std::min(most, static_cast<size_t>(end_ - at_));
        const auto *stop = std::find(at_, end, uint8_t{0});
        std::string text{at_, stop};
        at_ = stop == end ? end : stop + 1;
        return text;
    }

private:
    const uint8_t *at_;
    const uint8_t *end_;
};

} // namespace oru::fuzz
