// What each operation of the library returns, and when: as its comments in oruSdk.h say.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace oructl {

struct Return {
    std::string_view operation;
    int64_t code;
    std::string_view condition;
};

/// All of them, operation by operation, each in the order of its checks.
std::vector<Return> returns();

} // namespace oructl
