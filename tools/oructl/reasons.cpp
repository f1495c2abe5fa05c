#include "reasons.hpp"

#include "oruSdk.h"

#include <array>

namespace oructl {
namespace {

constexpr int32_t kBssCount = 4;

std::string bssName(int64_t bss)
{
    return "BSS " + std::to_string(bss);
}

std::string usesMode(int64_t bss, std::string_view mode, std::string_view item)
{
    return bssName(bss).append(" uses ").append(mode) +
           "; switch it off with: " + command(item, bss, "off");
}

std::string noRadiusServer()
{
    return "no RADIUS server is configured; set one with: oructl set radius TIMEOUT TRIES "
           "NAME:PORT";
}

std::string noKey(int64_t bss)
{
    return "no key of " + bssName(bss) + " is stored; set one with: " + command("psk", bss, "-");
}

std::string longSsid(int64_t bss)
{
    return "the stored SSID of " + bssName(bss) +
           " has more than 32 bytes; set another with: " + command("ssid", bss, "SSID");
}

bool hasMode(int32_t bss)
{
    uint32_t open = 0;
    uint32_t wep = 0;
    std::array<uint32_t, 3> wpa{};
    oruSdkGetSecModeOpen(bss, &open);
    oruSdkGetSecModeWpa(bss, &wpa[0], &wpa[1], &wpa[2]);
    // While WEP is off, the other results are not looked at; while it is on, they are missed last.
    oruSdkGetSecModeWep(bss, &wep, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    return open != 0 || wpa[0] != 0 || wep != 0;
}

bool lacksKey(int32_t bss)
{
    std::array<uint32_t, 3> wpa{};
    if (oruSdkGetSecModeWpa(bss, &wpa[0], &wpa[1], &wpa[2]) != ORUSDK_RC_OK) return false;
    std::array<char, 66> psk{};
    uint32_t length = 0;
    return wpa[0] != 0 && wpa[1] == 1 &&
           oruSdkGetWpaPsk(bss, psk.data(), &length) == ORUSDK_RC_PSK_MISSING;
}

bool hasLongSsid(int32_t bss)
{
    std::array<char, 34> ssid{};
    uint32_t length = 0;
    return oruSdkGetSsid(bss, ssid.data(), &length) == ORUSDK_RC_SSID_LENGTH;
}

std::string noMode(int64_t bss)
{
    return bssName(bss) +
           " has no security mode; set one with: " + command("security", bss, "open") +
           " (or wep, wpa, wpa2, wpa-mixed)";
}

/// Says it of the first BSS that the test finds.
std::string ofFirst(bool (*test)(int32_t), std::string (*say)(int64_t))
{
    for (int32_t bss = 0; bss < kBssCount; ++bss)
        if (test(bss)) return say(bss);
    return "";
}

} // namespace

std::string command(std::string_view item, int64_t index, std::string_view values)
{
    std::string text = "oructl set ";
    return text.append(item).append(" ").append(std::to_string(index)).append(" ").append(values);
}

std::string bssReason(uint32_t code, const Call &call)
{
    const int64_t bss = call.index;
    switch (code) {
    case ORUSDK_RC_OPEN_ENABLED: return usesMode(bss, "open access", "open-access");
    case ORUSDK_RC_WPA_ENABLED: return usesMode(bss, "WPA", "wpa");
    case ORUSDK_RC_WEP_ENABLED: return usesMode(bss, "WEP", "wep");
    case ORUSDK_RC_WPA_NOT_ENABLED:
        return "WPA of " + bssName(bss) +
               " is off; switch it on with: " + command("security", bss, "wpa2 psk");
    case ORUSDK_RC_SECURITY_MODE:
        return "the access point runs 802.11n only, with neither open access nor WEP; use: " +
               command("security", bss, "wpa2 psk aes");
    case ORUSDK_RC_SSID_LENGTH: return longSsid(bss);
    case ORUSDK_RC_PSK_MISSING: return noKey(bss);
    case ORUSDK_RC_NO_RADIUS_SERVER: return noRadiusServer();
    case ORUSDK_RC_RAW_PSK:
    case ORUSDK_RC_PASS_PHRASE:
        return "a key has 64 hexadecimal digits, a pass-phrase 8 to 63 printable ASCII characters";
    default: return "";
    }
}

std::string commitReason(uint32_t code)
{
    switch (code) {
    case ORUSDK_RC_NO_SECURITY_MODE:
        return ofFirst([](int32_t bss) { return !hasMode(bss); }, noMode);
    case ORUSDK_RC_PSK_MISSING: return ofFirst(lacksKey, noKey);
    case ORUSDK_RC_SSID_LENGTH: return ofFirst(hasLongSsid, longSsid);
    case ORUSDK_RC_NO_RADIUS_SERVER: return noRadiusServer();
    default: return "";
    }
}

} // namespace oructl
