// Questions to WSM that are given up when the answer takes too long. The library itself waits 20
// seconds for each, out of reach.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <type_traits>

namespace oructl {

/// Lets a child process ask, which fills the bytes of the result or fails. False when it has failed
/// or taken longer.
bool askInChild(int64_t waitMs, void *result, size_t size, const std::function<bool()> &ask);

template <class Result>
std::optional<Result> askWithin(int64_t waitMs, bool (*ask)(Result &result, const void *about),
                                const void *about)
{
    static_assert(std::is_trivially_copyable_v<Result> && sizeof(Result) <= 4096);
    Result result{};
    if (!askInChild(waitMs, &result, sizeof result, [&] { return ask(result, about); }))
        return std::nullopt;
    return result;
}

} // namespace oructl
