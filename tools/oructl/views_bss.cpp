// What is stored of the BSSes: all of them in a table, or one in detail.
#include "adapt_bss.hpp"
#include "oruSdk.h"
#include "readings.hpp"
#include "reasons.hpp"
#include "views.hpp"

#include <algorithm>

namespace oructl {
namespace {

constexpr Operand kOptionalBss = {.label = kBssOperand.label,
                                  .field = kBssOperand.field,
                                  .holds = kBssOperand.holds,
                                  .optional = true};
constexpr Operand kMaybeBss[] = {kOptionalBss};
constexpr Operand kBss[] = {kBssOperand};

// ---- bss

constexpr Field kRadios[] = {
    {.name = "radio0", .kind = Kind::Switch, .bounds = {0, 1}, .words = kOnOffWords},
    {.name = "radio1", .kind = Kind::Switch, .bounds = {0, 1}, .words = kOnOffWords}};

/// Belongs to the radios, whichever BSS is shown.
uint32_t getInterBss(Call &call)
{
    for (int32_t radio = 0; radio < 2; ++radio) {
        uint32_t on = 0;
        if (const uint32_t code = oruSdkGetInterBss(radio, &on); code != ORUSDK_RC_OK) return code;
        call.values[static_cast<size_t>(radio)] = numberValue(static_cast<int32_t>(on));
    }
    return ORUSDK_RC_OK;
}

constexpr Item kInterBss = {.name = "inter-bss",
                            .scope = Scope::Bss,
                            .index = kBssIndex,
                            .fields = kRadios,
                            .get = getInterBss,
                            .set = nullptr,
                            .operations = "oruSdkGetInterBss",
                            .keys = "InterBSS.radio%d",
                            .files = kRadioFile,
                            .summary = "radios on which stations of different BSSes may talk"};

/// The radios of which the last two values are switched on.
std::string radiosOf(const Call &call)
{
    const bool zero = call.values[call.values.size() - 2].number != 0;
    const bool one = call.values.back().number != 0;
    if (zero && one) return "0,1";
    return zero ? "0" : one ? "1" : "none";
}

/// The mode and, of WPA, how stations are known.
std::string modeOf(const Call &call)
{
    const std::span<const Field> fields = findItem("security")->fields;
    std::string out = shownValue(fields[0], call.values[0]);
    if (call.values[2].given) out.append("/").append(shownValue(fields[2], call.values[2]));
    return out;
}

constexpr Part kParts[] = {
    {"identity", "ssid", "ssid"},
    {"identity", "hide-ssid", "hidden"},
    {"identity", "assign", "radios", radiosOf},
    {"identity", "vlan", "vlan"},
    {"forwarding", "intra-bss", "intra"},
    {"forwarding", "inter-bss", "inter", radiosOf, &kInterBss},
    {"security", "security", "security", modeOf},
    {"security", "timeouts", "timeouts(s)"},
    {"security", "mac-auth"},
    {"wps", "wps", "wps"},
    {"wps", "wps-state", "wps-state"},
    {"wps", "registrar"},
    {"wps", "enforce-pin-timeout"},
    {"wps", "uuid"},
    {"wps", "wps-interface"},
};

uint32_t fetchBss(const Arguments &arguments, Answer &answer)
{
    const Value &bss = arguments.values[0];
    if (!bss.given) return readParts(kParts, kOptionalBss.field.bounds, answer);
    // The first getter refuses an illegal index; others would cut it to a legal one.
    const bool legal = isLegal(kOptionalBss.field, bss);
    return readParts(legal ? std::span{kParts} : std::span{kParts}.first(1),
                     {bss.number, bss.number}, answer);
}

// ---- bss-info

/// The numbers of the item "security", where it has them.
constexpr Word kSummaryWords[] = {{"none-or-dynamic-wep", 0},
                                  {"wpa", 1},
                                  {"wpa2", 2},
                                  {"wpa-mixed", 3},
                                  {"open", 4},
                                  {"wep", 5},
                                  {"unknown", 6}};
constexpr Field kSummary[] = {
    {.name = "ssid", .kind = Kind::Bytes},
    {.name = "hidden", .kind = Kind::Switch, .words = kOnOffWords},
    {.name = "security", .kind = Kind::Choice, .words = kSummaryWords},
    {.name = "security-text", .kind = Kind::Text, .meaning = "as the library gives it"}};

/// The texts of the library, by the numbers of the words; the first stands for none.
constexpr std::string_view kSummaryTexts[] = {"",          "WPA ",     "WPA2 ",  "WPA + WPA2 ",
                                              "OPEN Mode", "WEP Mode", "UnKNown"};

Value securityOf(std::string_view text)
{
    const auto *const found = std::find(std::begin(kSummaryTexts), std::end(kSummaryTexts), text);
    return found == std::end(kSummaryTexts) ? Value{} : numberValue(found - kSummaryTexts);
}

uint32_t fetchSummary(const Arguments &arguments, Answer &answer)
{
    const int64_t bss = arguments.values[0].number;
    OruSdkBssInfoParam record{}; // without a text the mode is none, or dynamic WEP
    record.bssIndex = static_cast<int32_t>(bss);
    const uint32_t code = oruSdkGetBssInfoParam(&record);
    answer.detail = bssReason(code, {.index = bss});
    const std::string text = record.securityMode;
    answer.facts = {textValue(record.ssid), numberValue(static_cast<int32_t>(record.suppressSsid)),
                    securityOf(text), text.empty() ? Value{} : textValue(text)};
    return code;
}

constexpr View kViews[] = {
    {.name = "bss",
     .operands = kMaybeBss,
     .columns = {},
     .empty = "",
     .summary = "what is stored of the BSSes, or all of one",
     .operations = "",
     .fetch = fetchBss,
     .parts = kParts},
    {"bss-info",
     kBss,
     {},
     "",
     "a summary of a BSS; fails where a commit of it would",
     "oruSdkGetBssInfoParam",
     fetchSummary,
     kSummary},
};

} // namespace

std::span<const View> bssViews()
{
    return kViews;
}

} // namespace oructl
