// Random numbers that are the same on every machine for the same seed.
#pragma once

#include <cstdint>

namespace orusim {

class Random {
public:
    explicit Random(uint64_t seed) : state_(seed) {}

    /// From `least` to `most`, both included.
    uint32_t between(uint32_t least, uint32_t most)
    {
        return least + static_cast<uint32_t>(next() % (uint64_t{most} - least + 1));
    }
    bool oneIn(uint32_t n) { return between(1, n) == 1; }

private:
    /// SplitMix64.
    uint64_t next()
    {
        uint64_t mixed = state_ += 0x9e3779b97f4a7c15;
        mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9;
        mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111eb;
        return mixed ^ (mixed >> 31);
    }

    uint64_t state_;
};

} // namespace orusim
