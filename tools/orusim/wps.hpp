// Wi-Fi Protected Setup: enrollments that run through their stages, and the access point's PINs.
#pragma once

#include "random.hpp"
#include "world.hpp"

#include <functional>
#include <optional>
#include <string>

namespace orusim {

/// Results as they are sent.
enum class WpsResult : uint32_t {
    done = 0,
    inProgress = 1,
    idle = 2, // nothing was started
    timedOut = 3,
    refused = 4, // the BSS is not on the air
    tooLong = 200,
    wrongCheckDigit = 201,
};

/// What is to be said of a PIN: 4 digits, or 8 of which the last one checks the others.
WpsResult verdictOn(std::string_view pin);

class Wps {
public:
    enum class Method { pin, button, enrollee };

    /// Whether a BSS is on the air, and the arrival of the station that was enrolled.
    struct Surroundings {
        std::function<bool(size_t bss, size_t radio)> onAir;
        std::function<void(size_t bss, size_t radio)> enrolled;
        Log log;
    };

    Wps(uint64_t seed, Surroundings surroundings);

    /// Starts anew; an enrollment that runs there ends. The result is done when it has begun.
    WpsResult enroll(size_t bss, size_t radio, Method method, std::string_view pin, int64_t now);

    /// How the enrollment stands.
    [[nodiscard]] WpsResult result(size_t bss, size_t radio) const;
    /// The same in a word: "none", "waiting", "exchanging", or how it ended.
    [[nodiscard]] const char *stage(size_t bss, size_t radio) const;

    /// Whether the other side answers; an enrollment without an answer times out.
    void setPeer(bool answers, int64_t now);

    /// The access point's PIN of a BSS, as it was saved; counts when it differs from the last one.
    void savedPin(size_t bss, const std::string &pin);
    WpsResult setPin(size_t bss, std::string_view pin);
    WpsResult generatePin(size_t bss);
    [[nodiscard]] const std::string &pin(size_t bss) const { return pins_.at(bss); }

    void advanceTo(int64_t now);

private:
    enum class Stage { none, waiting, exchanging, ended };
    struct Session {
        Stage stage = Stage::none;
        Method method = Method::pin;
        int64_t startedAt = 0;
        int64_t exchangeAt = 0;
        WpsResult result = WpsResult::idle;
    };

    [[nodiscard]] const Session *find(size_t bss, size_t radio) const;
    void advance(size_t bss, size_t radio, int64_t now);
    void end(size_t bss, size_t radio, WpsResult result);
    void tell(size_t bss, size_t radio, const char *what) const;

    Random random_;
    Surroundings surroundings_;
    std::array<std::array<Session, kRadios>, kBsses> sessions_;
    std::array<std::string, kBsses> pins_;
    std::array<std::optional<std::string>, kBsses> savedPins_;
    bool peer_ = true;
    int64_t peerSince_ = 0;
};

} // namespace orusim
