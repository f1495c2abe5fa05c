// Faults on demand.
#pragma once

#include "text.hpp"

#include <cstdint>
#include <optional>
#include <string>

namespace orusim {

/// What goes wrong with an answer.
struct Fault {
    enum class Kind {
        none,
        silent, // never answers
        slow,   // answers after `argument` milliseconds
        close,  // closes the connection instead of doing anything
        wrong,  // answers with an element (id 3) that belongs into no answer
        cut,    // sends the first `argument` bytes of the answer
    };
    Kind kind = Kind::none;
    uint32_t argument = 0;

    /// As on the command line: "slow 500".
    [[nodiscard]] std::string text() const;
};

/// The fault of one service. It strikes requests that are answered; notices pass.
class Faults {
public:
    /// For the next `count` requests, or until it is cleared.
    void set(Fault fault, std::optional<uint32_t> count = {});
    void clear() { set({}); }

    /// The fault of the request that is here now.
    Fault next();

    /// What is set: "none", "silent", "cut 5 (2 left)".
    [[nodiscard]] std::string text() const;

private:
    Fault fault_;
    std::optional<uint32_t> left_;
};

/// Reads "KIND [ARG]" from the front of the words and takes them away; none when it can't be.
std::optional<Fault> parseFault(std::vector<std::string_view> &words);

} // namespace orusim
