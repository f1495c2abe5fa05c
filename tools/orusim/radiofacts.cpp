#include "radiofacts.hpp"

#include "configuration.hpp"
#include "message.hpp"

#include <algorithm>

namespace orusim {
namespace {

struct Product {
    const char *name;
    const char *title;
    const char *country;
    const char *bands;
    const char *channels; // of either radio: each works in every band of the product
};

constexpr Product kProducts[] = {
    {"us", "United States, 2.4 and 5 GHz", "US ", "1 1 1 1",
     "1 2 3 4 5 6 7 8 9 10 11 36 40 44 48 52 56 60 64 100 104 108 112 116 120 124 128 132 136 140 "
     "149 153 157 161"},
    {"jp", "Japan, 2.4 and 5 GHz", "JP ", "1 1 1 1",
     "1 2 3 4 5 6 7 8 9 10 11 12 13 14 36 40 44 48 52 56 60 64 100 104 108 112 116 120 124 128 "
     "132 136 140"},
    {"bg", "United States, 2.4 GHz alone (802.11b/g)", "US ", "1 1 0 1", "1 2 3 4 5 6 7 8 9 10 11"},
};

/// Numbers from 0 to 255 between blanks or commas.
std::optional<Bytes> toBytes(std::string text)
{
    std::ranges::replace(text, ',', ' ');
    Bytes bytes;
    for (const std::string_view word : words(text)) {
        const auto number = toNumber(word);
        if (!number || *number > 255) return {};
        bytes.push_back(static_cast<uint8_t>(*number));
    }
    return bytes;
}

std::optional<RadioFacts> facts(const std::optional<std::string> &country,
                                const std::optional<std::string> &bands,
                                const std::array<std::optional<std::string>, 2> &channels,
                                std::string &error)
{
    const auto refuse = [&](const char *text) { return error = text, std::nullopt; };
    RadioFacts facts;
    if (!country || country->size() != facts.country.size())
        return refuse("country is two letters and one for the environment");
    std::ranges::copy(*country, facts.country.begin());

    const auto bandBytes = toBytes(bands.value_or(""));
    if (!bandBytes || bandBytes->size() != facts.bands.size())
        return refuse("bandSupport is four numbers from 0 to 255");
    std::ranges::copy(*bandBytes, facts.bands.begin());

    for (size_t radio = 0; radio < facts.channels.size(); ++radio) {
        auto numbers = channels[radio] ? toBytes(*channels[radio]) : std::nullopt;
        if (!numbers || numbers->size() > RadioFacts::kMostChannels)
            return refuse("radio0.channels and radio1.channels are at most 59 numbers below 256");
        facts.channels[radio] = std::move(*numbers);
    }
    return facts;
}

} // namespace

std::optional<RadioFacts> RadioFacts::load(std::string &error)
{
    const auto file = Configuration::load(kRadioFactsPath);
    if (!file) return error = "can't be read", std::nullopt;
    return facts(file->text("country"), file->text("bandSupport"),
                 {file->text("radio0.channels"), file->text("radio1.channels")}, error);
}

RadioFacts RadioFacts::standard()
{
    const Product &us = kProducts[0];
    std::string error;
    return facts(us.country, us.bands, {us.channels, us.channels}, error).value_or(RadioFacts{});
}

Bytes RadioFacts::entry(size_t radio) const
{
    constexpr uint16_t kBsses = 4;
    constexpr uint16_t kStations = 256;
    // Nobody reads most of the numbers between the country and the bands.
    return Writer{0}
        .put({reinterpret_cast<const uint8_t *>(country.data()), country.size()})
        .put16(static_cast<uint16_t>(radio))
        .put16(kBsses)
        .put16(kStations)
        .put16(0)
        .put32(0)
        .put(std::array<uint8_t, 1>{})
        .put16(0)
        .put16(0)
        .put32(0)
        .put(bands)
        .put(std::array{static_cast<uint8_t>(channels.at(radio).size())})
        .put(channels.at(radio))
        .body();
}

std::optional<std::string> productFile(std::string_view product)
{
    const auto found = std::ranges::find(kProducts, product, &Product::name);
    if (found == std::end(kProducts)) return {};
    return format("# The radios of the simulated access point: %s.\n"
                  "# Read whenever a caller asks.\n"
                  "\n"
                  "# Two letters, and one for the environment (a blank: any)\n"
                  "country=\"%s\"\n"
                  "\n"
                  "# Four numbers; with 0 as the third one the product is for 2.4 GHz alone\n"
                  "bandSupport=\"%s\"\n"
                  "\n"
                  "# Allowed channels, at most 59\n"
                  "radio0.channels=\"%s\"\n"
                  "radio1.channels=\"%s\"\n",
                  found->title, found->country, found->bands, found->channels, found->channels);
}

} // namespace orusim
