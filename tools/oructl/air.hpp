// Whether the services have taken what was committed, and whether it is on the air.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace oructl {

inline constexpr size_t kAirRadios = 2;
inline constexpr size_t kAirBsses = 4;

/// A BSS on a radio, as WSM's live tables have it.
struct AirBss {
    bool on = false;
    std::array<char, 33> ssid = {};
    int64_t stations = 0;
};

struct AirRadio {
    int64_t channel = -1; ///< -1: not told
    std::array<AirBss, kAirBsses> bss = {};

    [[nodiscard]] int64_t stations() const;
};

/// What is on the air. It crosses a pipe as it is.
struct Air {
    std::array<AirRadio, kAirRadios> radios = {};

    [[nodiscard]] int64_t stations() const;
};

/// Somebody listens on a service's port.
bool wsmListens();
bool aaListens();

enum class Tables : uint8_t { Radios, Stations };

/// Asks WSM for its live tables, those of stations too when they are wanted. None when it is away
/// or has not answered all of it in time.
std::optional<Air> askAir(int64_t waitMs, Tables tables);

/// The tables show a station nowhere, in lower-case digits. False also when they can't be read.
bool isNoStation(const std::string &mac);

/// A sentence for each setting that isn't on the air: fixed channels, where BSSes are, their SSIDs.
/// A radio that is switched off has nothing on the air.
std::vector<std::string> missingOnAir(const Air &air);

} // namespace oructl
