// Basic rates: each family of a radio is stored as one text with every rate of the family, in which
// the basic ones carry bit 7. Callers speak of the basic rates alone, in Mbps.
#include "core/dict.hpp"
#include "core/key.hpp"
#include "core/log.hpp"
#include "core/store.hpp"
#include "oruSdk.h"

#include <cstdlib>
#include <cstring>
#include <string_view> // std::size(); <iterator> brings the streams along
#include <utility>

namespace oru {
namespace {

constexpr size_t kListSize = sizeof OruSdkBasicRateSetParam{}.rateSet;
constexpr uint32_t kRatePairs = 12;

const char *octetOf(uint32_t pair)
{
    return rateMap[2 * pair];
}

const char *mbpsOf(uint32_t pair)
{
    return rateMap[2 * pair + 1];
}

/// The rates that a family is made of: pairs of rateMap, and the text without a basic rate.
struct Rates {
    uint32_t first;
    uint32_t count;
    char plain[24];
};

constexpr Rates k11bRates{0, 4, "02:04:0B:16"};
constexpr Rates kOfdmRates{4, 8, "0C:12:18:24:30:48:60:6C"};
constexpr size_t kStoredSize = sizeof "0C:12:18:24:30:48:60:6C";

/// The rates of a caller's list, one by one. The list may lack its terminator.
class Tokens {
public:
    explicit Tokens(const char *list) { std::memcpy(text_, list, kListSize); }

    /// NULL after the last one.
    const char *next() { return ::strtok_r(std::exchange(start_, nullptr), " ", &rest_); }

private:
    char text_[kListSize + 1] = {};
    char *start_ = text_;
    char *rest_ = nullptr;
};

bool sameText(const char *token, const char *rate)
{
    return std::strcmp(token, rate) == 0;
}

/// The digits that a token begins with count: "6.5" is 6.
bool sameNumber(const char *token, const char *rate)
{
    return std::strtol(token, nullptr, 10) == std::strtol(rate, nullptr, 10);
}

using Match = bool (*)(const char *token, const char *rate);

/// The position of a token in the order of the rates; their count when it is none of them.
uint32_t positionOf(const char *token, const Rates &rates, Match match)
{
    uint32_t position = 0;
    while (position < rates.count && !match(token, mbpsOf(rates.first + position))) ++position;
    return position;
}

bool isValidRateList(const char *list, const Rates &rates, Match match)
{
    Tokens tokens{list};
    while (const char *token = tokens.next())
        if (positionOf(token, rates, match) == rates.count) return false;
    return true;
}

/// The stored form of a valid list, whose numbers name the rates of every family.
void buildRateString(const char *list, const Rates &rates, char (&stored)[kStoredSize])
{
    std::strcpy(stored, rates.plain);
    Tokens tokens{list};
    while (const char *token = tokens.next()) {
        const uint32_t position = positionOf(token, rates, sameNumber);
        std::memcpy(stored + 3 * size_t{position}, octetOf(rates.first + position), 2);
    }
}

/// A list in the making; always terminated once it holds a rate.
class MbpsList {
public:
    explicit MbpsList(char (&text)[kListSize]) : text_(text) {}

    /// False when the rate does not fit any more.
    bool add(const char *mbps)
    {
        const size_t blank = used_ == 0 ? 0 : 1;
        const size_t length = std::strlen(mbps);
        if (used_ + blank + length >= kListSize) return false;
        if (blank != 0) text_[used_++] = ' ';
        std::memcpy(text_ + used_, mbps, length + 1);
        used_ += length;
        return true;
    }

private:
    char *text_;
    size_t used_ = 0;
};

/// The basic rates of a stored text, in its order. Without any the list is left as it was:
/// intended.
void rateStringToMbps(const char *stored, char (&text)[kListSize])
{
    MbpsList list{text};
    while (*stored != '\0') {
        const size_t length = std::strcspn(stored, ":");
        for (uint32_t pair = 0; pair < kRatePairs; ++pair)
            if (length == 2 && std::memcmp(stored, octetOf(pair), 2) == 0 &&
                !list.add(mbpsOf(pair)))
                return;
        stored += length;
        if (*stored == ':') ++stored;
    }
}

struct Family {
    char key[20];
    bool is11b;
    bool takesNumbers; // "6.5" stands for 6: more than the other families take, intended
    char (OruSdkBasicRateSetInfo::*list)[kListSize];
    TableText<28> invalid;
    TableText<44> unwritten;
    TableText<48, const char *> unread;

    [[nodiscard]] const Rates &rates() const { return is11b ? k11bRates : kOfdmRates; }
    [[nodiscard]] Match match() const { return takesNumbers ? sameNumber : sameText; }
};

/// By rateMode.
constexpr Family kFamilies[] = {
    {
        "radio%d.dot11aRates",
        false,
        false,
        &OruSdkBasicRateSetInfo::dot11aRates,
        "Invalid basic rate set",
        "Unable to write dot11aRates to dictionary",
        "Unable to read dot11aRates from config file %s",
    },
    {
        "radio%d.dot11bRates",
        true,
        false,
        &OruSdkBasicRateSetInfo::dot11bRates,
        "Invalid basic rate set",
        "Unable to write dot11bRates to dictionary",
        "Unable to read dot11bRates from config file %s",
    },
    {
        "radio%d.dot11gRates",
        false,
        false,
        &OruSdkBasicRateSetInfo::dot11gRates,
        "Invalid basic rate set",
        "Unable to write dot11gRates to dictionary",
        "Unable to read dot11gRates from config file %s",
    },
    {
        "radio%d.dot11nRates",
        false,
        true,
        &OruSdkBasicRateSetInfo::dot11nRates,
        "Invalid 11n basic rate set",
        "Unable to write dot11nRates to dictionary",
        "Unable to read dot11nRates from config file %s",
    },
};

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkGetBasicRateSetParam(OruSdkBasicRateSetInfo *info)
{
    if (info == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (info->radioIndex >= kRadios) return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID");
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    for (const Family &family : kFamilies) {
        const char *stored = nullptr;
        const int32_t status = getString(dict, radioKey(family.key, info), &stored, 0);
        // Any other status than -1 passes: intended. An absent key reads as 0 without a text.
        if (status == -1 || (status == 0 && stored == nullptr))
            return fail<const char *>(ORUSDK_RC_KEY_READ, family.unread, kRadioFile);
        if (stored != nullptr) rateStringToMbps(stored, info->*family.list);
    }
    return ORUSDK_RC_OK;
}

uint32_t oruSdkSetBasicRateSetParam(OruSdkBasicRateSetParam *param)
{
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (param->radioIndex >= kRadios)
        return fail(ORUSDK_RC_RADIO_ID, "Invalid radio ID: %d", param->radioIndex);
    if (param->rateMode >= std::size(kFamilies))
        return fail(ORUSDK_RC_DOT11_MODE, "Invalid 802.11 mode: %d", param->rateMode);
    const Family &family = kFamilies[param->rateMode];
    if (!isValidRateList(param->rateSet, family.rates(), family.match()))
        return fail(ORUSDK_RC_RATE_SET, family.invalid);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    char stored[kStoredSize];
    buildRateString(param->rateSet, family.rates(), stored);
    if (setString(dict, radioKey(family.key, param), stored) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, family.unwritten);
    return saveRadioFile(dict);
}

} // extern "C"
