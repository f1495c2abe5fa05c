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

#include <cstddef>
#include <cstdint>
#include <type_traits>

#if defined(__clang__) && __clang_major__ < 17
#define ORU_CONSTEVAL constexpr // its consteval constructors don't take the caller's line
#else
#define ORU_CONSTEVAL consteval
#endif

namespace oru {

inline constexpr char kLogSource[] = "oruSdkAppsIf"; // the library's one source-file name

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

/// A value as it is handed on: one type for all texts, one for all numbers of up to 32 bits.
template <class Value>
constexpr auto passed(const Value &value)
{
    using Plain = std::decay_t<Value>;
    if constexpr (std::is_same_v<Plain, Key> || std::is_same_v<Plain, long>) return value;
    else if constexpr (std::is_integral_v<Plain>) return static_cast<int32_t>(value);
    else return static_cast<const char *>(value);
}

/// A value as it is logged. What it yields lives as long as the call that it is written in.
inline KeyText shown(Key key)
{
    return KeyText{key};
}
template <class Value>
constexpr Value shown(Value value)
{
    return value;
}

// Failures make most of the library's places, and take most of its room: each is a call of one of
// these, of which there is one for each sequence of types in the whole library.

template <class... Passed>
[[gnu::noinline, gnu::cold]] void logLine(int32_t level, int32_t line, const char *format,
                                          Passed... values)
{
    oruAsfLogMsg(level, kLogSource, line, 0, format, +shown(values)...); // +: a key as its text
}

template <class... Passed>
[[gnu::noinline, gnu::cold]] uint32_t failLine(uint32_t code, int32_t line, const char *format,
                                               Passed... values)
{
    oruAsfLogMsg(ORUASF_LOG_ERROR, kLogSource, line, 0, format,
                 +shown(values)...); // +: a key as its text
    return code;
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

    // Of a TableText, which was checked.
    constexpr LogText(const char *text, int32_t number, std::true_type) : format(text), line(number)
    {
    }
};

/// A log text in a table, which holds its characters: a pointer would cost a relocation.
template <size_t Room, class... Values>
struct TableText {
    char format[Room];
    int32_t line;

    template <size_t Size>
    ORU_CONSTEVAL TableText(const char (&text)[Size], int32_t place = __builtin_LINE())
        : format{}, line(LogText<Values...>{text, place}.line)
    {
        static_assert(Size <= Room);
        for (size_t at = 0; at < Size; ++at) format[at] = text[at];
    }

    constexpr operator LogText<Values...>() const { return {format, line, std::true_type{}}; }
};

template <class... Values>
using LogTextFor = std::type_identity_t<LogText<Values...>>;

/// Logs at a level.
template <class... Values>
void logAt(int32_t level, const LogText<Values...> &text, const Values &...values)
{
    detail::logLine(level, text.line, text.format, detail::passed(values)...);
}

/// Logs a failure and yields its code.
template <class... Values>
[[gnu::always_inline]] inline uint32_t fail(uint32_t code, LogTextFor<Values...> text,
                                            const Values &...values)
{
    return detail::failLine(code, text.line, text.format, detail::passed(values)...);
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
