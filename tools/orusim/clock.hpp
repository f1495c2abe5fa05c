// Time, behind an object, so that tests can move it.
#pragma once

#include <chrono>
#include <cstdint>

namespace orusim {

class Clock {
public:
    virtual ~Clock() = default;

    /// Milliseconds from a fixed moment; never goes back.
    [[nodiscard]] virtual int64_t nowMs() const = 0;
};

class SteadyClock : public Clock {
public:
    [[nodiscard]] int64_t nowMs() const override
    {
        using namespace std::chrono;
        return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
    }
};

/// Stands still until it is moved.
class ManualClock : public Clock {
public:
    [[nodiscard]] int64_t nowMs() const override { return now_; }
    void advance(int64_t ms) { now_ += ms; }

private:
    int64_t now_ = 0;
};

} // namespace orusim
