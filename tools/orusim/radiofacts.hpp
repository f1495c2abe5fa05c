// What the radios are: country, bands, channels. Kept in a file, so that a product can be turned
// into another.
#pragma once

#include "text.hpp"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace orusim {

inline constexpr const char *kRadioFactsPath = "/config/orusim.radios";

struct RadioFacts {
    std::array<char, 3> country{};   // two letters, and one for the environment
    std::array<uint8_t, 4> bands{};  // the third one is 0 on a product for 2.4 GHz alone
    std::array<Bytes, 2> channels{}; // of each radio; at most kMostChannels
    static constexpr size_t kMostChannels = 59;

    /// As the file says; nothing, and why, when it can't be read or says something that can't be.
    static std::optional<RadioFacts> load(std::string &error);

    /// The dual-band product for the United States.
    static RadioFacts standard();

    /// As an answer tells of a radio; radio 0 or 1.
    [[nodiscard]] Bytes entry(size_t radio) const;
};

/// The file of a ready-made product ("us", "jp", "bg"); nothing when there is no such product.
std::optional<std::string> productFile(std::string_view product);

} // namespace orusim
