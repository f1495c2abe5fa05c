// The operations that read replies, each with a good one.
#pragma once

#include "support/standin.hpp"

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace oru::test {

struct Reader {
    std::string name;
    std::function<uint32_t()> call; // into a record that ends with its block of memory
    Bytes head;                     // what stands before the elements
    std::vector<Bytes> elements; // all that it takes, in a good order; none: not made of elements
    std::set<uint32_t> codes;    // what it may return, whatever came

    /// The good reply.
    [[nodiscard]] Bytes good() const;
};

/// All of them.
const std::vector<Reader> &readers();

/// A key that has to be set in /var/1x.conf, to 1.
inline constexpr const char *kReadersKey = "bss2.wscEnabledFlag";

} // namespace oru::test
