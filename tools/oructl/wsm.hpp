// Records that WSM fills: what of them was written, and in which form it is shown.
#pragma once

#include "show.hpp"

#include <chrono>
#include <cstring>
#include <memory>

namespace oructl {

/// For an answer that WSM did not give within the wait of the library, to which silence is an empty
/// list and no failure.
inline uint32_t nobodyAnswered(Answer &answer)
{
    answer.problem = "WSM gave no answer within 20 seconds";
    answer.status = kTimedOut;
    return ORUSDK_RC_OK;
}

/// Every byte of a record before it is asked for: WSM writes 0 into the high bytes of shorter
/// numbers and a NUL behind texts, so that what it left out can be told.
inline constexpr uint8_t kUntouched = 0xA5;

/// A record, and how long the question took.
template <class Record>
class Wsm {
public:
    Wsm() { std::memset(static_cast<void *>(record_.get()), kUntouched, sizeof(Record)); }

    Record *operator->() { return record_.get(); }

    uint32_t ask(uint32_t (*operation)(Record *))
    {
        const auto start = std::chrono::steady_clock::now();
        const uint32_t code = operation(record_.get());
        took_ = std::chrono::steady_clock::now() - start;
        return code;
    }

    /// Whether an empty list stands for silence.
    [[nodiscard]] bool unanswered(const Value &count) const
    {
        return count.number == 0 && took_ >= std::chrono::seconds{20};
    }

private:
    std::unique_ptr<Record> record_{new Record};
    std::chrono::steady_clock::duration took_{};
};

/// The number of bytes that stand most significant first; none when they are as before the
/// question.
template <size_t Size>
Value wsmNumber(const uint8_t (&bytes)[Size])
{
    int64_t number = 0;
    bool written = false;
    for (const uint8_t byte : bytes) {
        number = number << 8 | byte;
        written = written || byte != kUntouched;
    }
    return written ? numberValue(number) : Value{};
}

/// The text up to its NUL; none when there isn't any.
template <size_t Size>
Value wsmText(const char (&text)[Size])
{
    const void *const end = std::memchr(text, '\0', Size);
    if (end == nullptr) return {};
    return textValue({text, static_cast<const char *>(end)});
}

// ---- Statistics

/// A counter of a statistics text. A value that is no whole number of 64 bits is kept as text.
struct Counter {
    std::string name;
    Value value;
};

/// RADIO and, for a station's counters, its address.
extern const Operand kStatisticsOperands[2];

/// Asks for the text of a radio or, when one is given, of a station.
uint32_t askStatistics(const Value &radio, const Value &station, std::string &text, Answer &answer);

/// The pairs of words in a statistics text. A name without a value has none.
std::vector<Counter> countersOf(std::string_view text);

} // namespace oructl
