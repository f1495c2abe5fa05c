// The verb "explain": what a return code means, what can be said of an item, which items a key
// belongs to. It asks nobody and reads factory values alone.
#pragma once

#include "request.hpp"

#include <string_view>
#include <vector>

namespace oructl {

/// A condition under which a code is returned, and the operations that return it then.
struct Cause {
    std::string_view condition;
    std::vector<std::string_view> operations;
};

int runExplain(Request &request);

/// Whether a key is one of a pattern: "%d" is any number, and so is one at its end, since such a
/// pattern names the first of several ("bss%d.wepKey.1").
bool matchesKey(std::string_view pattern, std::string_view key);

/// Whether the value of a key is nobody's business.
bool isSecretKey(std::string_view key);

} // namespace oructl
