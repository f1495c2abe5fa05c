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

/// The time of the simulated world: starts at 0, runs so many times as fast as another clock, and
/// can be moved on.
class WorldClock : public Clock {
public:
    WorldClock(const Clock &clock, uint32_t speed)
        : clock_(clock), speed_(speed > 0 ? speed : 1), start_(clock.nowMs())
    {
    }

    [[nodiscard]] int64_t nowMs() const override
    {
        return moved_ + (clock_.nowMs() - start_) * speed_;
    }
    void advance(int64_t ms) { moved_ += ms; }

    /// How long the other clock takes until a moment of this one; 0 when it is over.
    [[nodiscard]] int64_t realMsUntil(int64_t moment) const
    {
        const int64_t left = moment - nowMs();
        return left > 0 ? (left + speed_ - 1) / speed_ : 0;
    }

private:
    const Clock &clock_;
    int64_t speed_;
    int64_t start_;
    int64_t moved_ = 0;
};

} // namespace orusim
