// Failures: each is logged once, where it is found, and yields its return code in one statement:
//
//     return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
//
// The text and its values are checked against each other when they are compiled. The log line
// carries the number of the place that says fail(), which is unique in the whole library: the build
// gives each source file a range of its own (ORUSDK_LINE_BASE).
#pragma once

#include "core/key.hpp"
#include "oruAsf.h"
#include "oruSdk.h"

#include <cstdint>
#include <type_traits>

#if defined(__clang__) && __clang_major__ < 17
#define ORU_CONSTEVAL constexpr // its consteval constructors don't take the caller's line
#else
#define ORU_CONSTEVAL consteval
#endif

namespace oru {

constexpr const char kLogSource[] = "oruSdkAppsIf"; // the library's one source-file name

namespace detail {

inline void textDoesNotFitItsValues()
{
}

/// Whether a value can stand for a conversion: %d %i %c for numbers of up to 32 bits, %ld for long,
/// %s for text.
template <class Value>
constexpr bool fits(const char *conversion)
{
    using Plain = std::decay_t<Value>;
    switch (conversion[0]) {
    case 'd':
    case 'i':
    case 'c':
        return std::is_integral_v<Plain> && sizeof(Plain) <= 4 && !std::is_same_v<Plain, long>;
    case 'l': return conversion[1] == 'd' && std::is_same_v<Plain, long>;
    case 's':
        return std::is_same_v<Plain, const char *> || std::is_same_v<Plain, char *> ||
               std::is_same_v<Plain, Key>;
    default: return false;
    }
}

/// The place behind the next '%' that asks for a value, or the terminator.
constexpr const char *nextConversion(const char *at)
{
    for (; *at != '\0'; ++at) {
        if (*at != '%') continue;
        if (*++at != '%') return at;
    }
    return at;
}

template <class Value>
constexpr auto passed(const Value &value)
{
    if constexpr (std::is_same_v<Value, Key>) return static_cast<const char *>(value);
    else return std::decay_t<Value>(value);
}

} // namespace detail

// Internal linkage: the range of line numbers differs from source file to source file.
namespace {

/// A log text for values of these types, and the place that holds it.
template <class... Values>
struct LogText {
    const char *format;
    int32_t line;

    ORU_CONSTEVAL LogText(const char *text, int32_t place = __builtin_LINE())
        : format(text), line(ORUSDK_LINE_BASE + place)
    {
        const char *at = detail::nextConversion(text);
        const bool fit =
            ((detail::fits<Values>(at) && (at = detail::nextConversion(at), true)) && ... && true);
        if (!fit || *at != '\0')
            detail::textDoesNotFitItsValues(); // not constexpr: does not compile
    }
};

template <class... Values>
using LogTextFor = std::type_identity_t<LogText<Values...>>;

/// Logs at a level.
template <class... Values>
void logAt(int32_t level, const LogText<Values...> &text, const Values &...values)
{
    oruAsfLogMsg(level, kLogSource, text.line, 0, text.format, detail::passed(values)...);
}

/// Logs a failure and yields its code.
template <class... Values>
[[gnu::cold]] uint32_t fail(uint32_t code, LogTextFor<Values...> text, const Values &...values)
{
    logAt(ORUASF_LOG_ERROR, text, values...);
    return code;
}

/// Logs that something failed, or happened, that changes no result.
template <class... Values>
void logError(LogTextFor<Values...> text, const Values &...values)
{
    logAt(ORUASF_LOG_ERROR, text, values...);
}

/// Logs that a read failed and another value is used instead.
template <class... Values>
void logWarning(LogTextFor<Values...> text, const Values &...values)
{
    logAt(ORUASF_LOG_WARNING, text, values...);
}

/// Logs information.
template <class... Values>
void logInfo(LogTextFor<Values...> text, const Values &...values)
{
    logAt(ORUASF_LOG_INFO, text, values...);
}

} // namespace
} // namespace oru
