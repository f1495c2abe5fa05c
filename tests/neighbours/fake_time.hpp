// Time that passes only while the libraries wait: their waits stand before libc's in a test
// executable, take none of the machine's time, and let the test be the other side meanwhile.
#pragma once

#include <cstdint>
#include <functional>

namespace oru::test {

class FakeTime {
public:
    using Peer = std::function<void(int64_t nowMs)>;

    /// From here on, waits are counted and `peer` acts: behind each connect, send and receive, and
    /// over and over while somebody waits.
    explicit FakeTime(Peer peer);
    ~FakeTime();
    FakeTime(const FakeTime &) = delete;
    FakeTime &operator=(const FakeTime &) = delete;

    /// What the waits came to.
    [[nodiscard]] static int64_t waitedMs();
};

} // namespace oru::test
