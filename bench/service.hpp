// Services that answer, each a process of its own on the same processor.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace oru::bench {

constexpr size_t kAnswerBytes = 100;

/// What every service answers: two BSSes, as WSM lists them.
const uint8_t *answer();

/// A process that ends with this one.
class Service {
public:
    /// Runs `serve` in a process of its own once `ready` returns; false when it can't be started.
    static bool start(const std::function<void()> &serve);
};

/// Runs a program that ends with this one, and returns the first line that it prints.
std::string startProgram(const char *const arguments[]);

/// A listening socket below a path, of a kind (SOCK_STREAM, SOCK_SEQPACKET).
int listenAt(const std::string &path, int kind);

} // namespace oru::bench
