// A hash table from keys to numbers, for keys that stand somewhere else.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace oru {

/// Hashes 8 bytes at a time. Not for keys that an attacker chooses in masses: a file has at most
/// 4 MiB, and whoever writes it owns the device.
inline uint32_t hashOf(std::string_view key)
{
    constexpr uint64_t kMix = 0x9e3779b97f4a7c15;
    uint64_t hash = key.size() * kMix;
    // A product's low bits know nothing of its factors' high ones, where a word's last bytes are.
    const auto mix = [&](uint64_t word) {
        hash = (hash ^ word) * kMix;
        hash ^= hash >> 29;
    };
    const char *at = key.data();
    size_t left = key.size();
    uint64_t word;
    for (; left >= sizeof word; at += sizeof word, left -= sizeof word) {
        std::memcpy(&word, at, sizeof word);
        mix(word);
    }
    if (left > 0 && key.size() >= sizeof word) { // the last 8 bytes, some of them again
        std::memcpy(&word, at + left - sizeof word, sizeof word);
        mix(word);
    } else if (left > 0) {
        word = 0;
        std::memcpy(&word, at, left);
        mix(word);
    }
    return static_cast<uint32_t>((hash * kMix) >> 32);
}

/// Open addressing. Holds no keys: the caller says, for a number, whether it is the one looked for.
class KeyTable {
public:
    static constexpr uint32_t kNone = UINT32_MAX;

    KeyTable() = default;
    ~KeyTable() { std::free(slots_); }
    KeyTable(const KeyTable &) = delete;
    KeyTable &operator=(const KeyTable &) = delete;

    [[nodiscard]] bool empty() const { return slots_ == nullptr; }

    /// Makes room for count keys in all. False when there is no memory; the table is then empty.
    bool reserve(uint32_t count)
    {
        uint32_t size = 16;
        while (size < count + count / 2) size *= 2;
        std::free(slots_);
        slots_ = static_cast<Slot *>(std::malloc(size * sizeof(Slot)));
        mask_ = size - 1;
        if (slots_ == nullptr) return false;
        for (uint32_t i = 0; i < size; ++i) slots_[i].number = kNone;
        return true;
    }

    /// The slot of a key: its number, or kNone and a place where one can be put.
    template <class IsKey>
    uint32_t &at(uint32_t hash, IsKey isKey)
    {
        for (uint32_t i = hash & mask_;; i = (i + 1) & mask_) {
            Slot &slot = slots_[i];
            if (slot.number == kNone) slot.hash = hash;
            if (slot.number == kNone || (slot.hash == hash && isKey(slot.number)))
                return slot.number;
        }
    }

private:
    struct Slot {
        uint32_t hash;
        uint32_t number;
    };

    Slot *slots_ = nullptr;
    uint32_t mask_ = 0;
};

} // namespace oru
