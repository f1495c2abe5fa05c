#include "wps.hpp"

#include <algorithm>
#include <utility>

namespace orusim {
namespace {

constexpr int64_t kWindowMs = 120'000; // in which the other side has to answer
constexpr int64_t kExchangeMs = 3'000;

/// How long the other side takes to answer.
int64_t answerMs(Wps::Method method)
{
    return method == Wps::Method::button ? 10'000 : 2'000;
}

const char *nameOf(WpsResult result)
{
    switch (result) {
    case WpsResult::done: return "done";
    case WpsResult::timedOut: return "timed out";
    case WpsResult::wrongCheckDigit: return "wrong PIN";
    case WpsResult::tooLong: return "PIN too long";
    default: return "refused";
    }
}

constexpr bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// The sum that a whole PIN brings to a multiple of 10: its digits, every other one threefold.
uint32_t weigh(std::string_view digits)
{
    uint32_t sum = 0;
    for (size_t i = 0; i < digits.size(); ++i)
        sum += static_cast<uint32_t>(digits[i] - '0') * (i % 2 == 0 ? 3 : 1);
    return sum;
}

} // namespace

WpsResult verdictOn(std::string_view pin)
{
    constexpr size_t kShort = 4; // without a check digit
    constexpr size_t kWhole = 8;
    if (pin.size() > kWhole) return WpsResult::tooLong;
    const bool right = std::ranges::all_of(pin, isDigit) &&
                       (pin.size() == kShort || (pin.size() == kWhole && weigh(pin) % 10 == 0));
    return right ? WpsResult::done : WpsResult::wrongCheckDigit;
}

Wps::Wps(uint64_t seed, Surroundings surroundings)
    : random_(seed), surroundings_(std::move(surroundings))
{
}

const Wps::Session *Wps::find(size_t bss, size_t radio) const
{
    return bss < kBsses && radio < kRadios ? &sessions_[bss][radio] : nullptr;
}

WpsResult Wps::enroll(size_t bss, size_t radio, Method method, std::string_view pin, int64_t now)
{
    if (find(bss, radio) == nullptr || !surroundings_.onAir(bss, radio)) return WpsResult::refused;
    const WpsResult verdict = method == Method::pin        ? verdictOn(pin)
                              : method == Method::enrollee ? verdictOn(pins_[bss])
                                                           : WpsResult::done;
    sessions_[bss][radio] = {Stage::waiting, method, now, 0, WpsResult::inProgress};
    if (verdict != WpsResult::done) end(bss, radio, verdict);
    else tell(bss, radio, "waits for the other side");
    return verdict;
}

WpsResult Wps::result(size_t bss, size_t radio) const
{
    const Session *session = find(bss, radio);
    return session == nullptr ? WpsResult::idle : session->result;
}

const char *Wps::stage(size_t bss, size_t radio) const
{
    const Session *session = find(bss, radio);
    switch (session == nullptr ? Stage::none : session->stage) {
    case Stage::waiting: return "waiting";
    case Stage::exchanging: return "exchanging";
    case Stage::ended: return nameOf(session->result);
    case Stage::none: break;
    }
    return "none";
}

void Wps::setPeer(bool answers, int64_t now)
{
    peer_ = answers;
    peerSince_ = now;
}

void Wps::savedPin(size_t bss, const std::string &pin)
{
    if (savedPins_.at(bss) != pin) pins_.at(bss) = pin;
    savedPins_.at(bss) = pin;
}

WpsResult Wps::setPin(size_t bss, std::string_view pin)
{
    if (bss >= kBsses) return WpsResult::refused;
    const WpsResult verdict = verdictOn(pin);
    if (verdict == WpsResult::done) pins_[bss] = pin;
    return verdict;
}

WpsResult Wps::generatePin(size_t bss)
{
    if (bss >= kBsses) return WpsResult::refused;
    std::string pin = format("%07u", random_.between(0, 9'999'999));
    pins_[bss] = pin + static_cast<char>('0' + (10 - weigh(pin) % 10) % 10);
    return WpsResult::done;
}

void Wps::advanceTo(int64_t now)
{
    for (size_t bss = 0; bss < kBsses; ++bss)
        for (size_t radio = 0; radio < kRadios; ++radio) advance(bss, radio, now);
}

void Wps::advance(size_t bss, size_t radio, int64_t now)
{
    Session &session = sessions_[bss][radio];
    const bool runs = session.stage == Stage::waiting || session.stage == Stage::exchanging;
    if (runs && !surroundings_.onAir(bss, radio)) return end(bss, radio, WpsResult::refused);

    if (session.stage == Stage::waiting) {
        const int64_t closesAt = session.startedAt + kWindowMs;
        const int64_t answersAt =
            std::max(session.startedAt + answerMs(session.method), peerSince_);
        if (peer_ && answersAt < closesAt && answersAt <= now) {
            session.stage = Stage::exchanging;
            session.exchangeAt = answersAt;
            tell(bss, radio, "exchanges keys");
        } else if (closesAt <= now) {
            end(bss, radio, WpsResult::timedOut);
        }
    }
    if (session.stage == Stage::exchanging && session.exchangeAt + kExchangeMs <= now) {
        end(bss, radio, WpsResult::done);
        if (session.method != Method::enrollee) surroundings_.enrolled(bss, radio);
    }
}

void Wps::end(size_t bss, size_t radio, WpsResult result)
{
    Session &session = sessions_[bss][radio];
    session.stage = Stage::ended;
    session.result = result;
    tell(bss, radio, nameOf(result));
}

void Wps::tell(size_t bss, size_t radio, const char *what) const
{
    if (surroundings_.log)
        surroundings_.log(format("WPS of bss %zu on radio %zu: %s", bss, radio, what));
}

} // namespace orusim
