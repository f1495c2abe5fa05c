// Wi-Fi Protected Setup of the BSSes, and what a client bridge joins.
#include "adapt_bss.hpp"
#include "items.hpp"
#include "reasons.hpp"

namespace oructl {
namespace {

constexpr Word kStateWords[] = {{"not-configured", 1}, {"configured", 2}};
constexpr Field kState[] = {
    {.name = "", .kind = Kind::Choice, .bounds = {1, 2}, .words = kStateWords}};
constexpr Field kUuid[] = {{.name = "",
                            .kind = Kind::Text,
                            .bounds = {32, 32},
                            .meaning = "32 hexadecimal digits, stored as they are given"}};
constexpr Field kInterface[] = {{.name = "", .kind = Kind::Text, .bounds = {0, 9}}};

/// The reason of the item that code 109 speaks of, with what a set of it takes.
template <Literal Item, Literal Values>
std::string isNotSet(uint32_t code, const Call &call)
{
    if (code == ORUSDK_RC_UUID) return "a UUID has 32 hexadecimal digits";
    if (code != ORUSDK_RC_NOT_SET) return "";
    return "nothing is stored, so the feature is off; set it with: " +
           command(Item.text, call.index, Values.text);
}

uint32_t setRegistrar(const Call &call)
{
    OruSdkRegistrarParam record{.bssIndex = static_cast<int32_t>(call.index),
                                .radioIndex = 0,
                                .registrarInfo = static_cast<uint32_t>(call.values[0].number)};
    return oruSdkSetRegistrarInfo(&record);
}

// ---- client admission

constexpr Field kClientAdmission[] = {
    {.name = "ssid", .kind = Kind::Bytes, .bounds = {0, 32}, .meaning = "empty: none"},
    {.name = "bssid",
     .kind = Kind::Mac,
     .option = "bssid",
     .meaning = "without it, any: a set stores an address of zeros"}};

uint32_t getClientAdmission(Call &call)
{
    std::array<char, 34> ssid{};
    std::array<char, 19> bssid{};
    OruSdkClientAdminCritParam record{.radioIndex = static_cast<uint32_t>(call.index),
                                      .ssid = ssid.data(),
                                      .bssid = bssid.data()};
    const uint32_t code = oruSdkGetClientAdminCrit(&record);
    if (code != ORUSDK_RC_OK) return code;
    call.values[0] = {.given = true, .text = ssid.data()};
    call.values[1] = {.given = true, .text = bssid.data()};
    return code;
}

uint32_t setClientAdmission(const Call &call)
{
    std::string ssid = call.values[0].text;
    std::string bssid = call.values[1].text;
    OruSdkClientAdminCritParam record{.radioIndex = static_cast<uint32_t>(call.index),
                                      .ssid = ssid.data(),
                                      .bssid = call.values[1].given ? bssid.data() : nullptr};
    return oruSdkSetClientAdminCrit(&record);
}

constexpr Item kItems[] = {
    {.name = "wps",
     .scope = Scope::Bss,
     .index = kBssIndex,
     .fields = kOnOff,
     .get = getNumber<oruSdkGetWsc>,
     .set = setNumber<uint32_t, oruSdkSetWsc>,
     .operations = "oruSdkGetWsc oruSdkSetWsc",
     .keys = "bss%d.wscEnabledFlag",
     .files = kSecurityFile,
     .summary = "Wi-Fi Protected Setup",
     .reason = isNotSet<"wps", "on">},
    {.name = "wps-state",
     .scope = Scope::Bss,
     .index = kBssIndex,
     .fields = kState,
     .get = getNumber<oruSdkGetWscState>,
     .set = setNumber<uint32_t, oruSdkSetWscState>,
     .operations = "oruSdkGetWscState oruSdkSetWscState",
     .keys = "bss%d.wpsstate",
     .files = kRadioFile,
     .summary = "whether WPS takes the BSS as configured",
     .reason = isNotSet<"wps-state", "configured">},
    {.name = "registrar",
     .scope = Scope::Bss,
     .index = kBssIndex,
     .fields = kNumber<0, 3>,
     .get = getNumber<oruSdkGetRegistrarInfo>,
     .set = setRegistrar,
     .operations = "oruSdkGetRegistrarInfo oruSdkSetRegistrarInfo",
     .keys = "bss%d.registrarinfo",
     .files = kRadioFile,
     .summary = "WPS registrar, as a number of the services' own",
     .reason = isNotSet<"registrar", "VALUE">},
    {.name = "enforce-pin-timeout",
     .scope = Scope::Bss,
     .index = kBssIndex,
     .fields = kOnOff,
     .get = getNumber<oruSdkGetApEnforcePinTimeout>,
     .set = setNumber<uint32_t, oruSdkSetApEnforcePinTimeout>,
     .operations = "oruSdkGetApEnforcePinTimeout oruSdkSetApEnforcePinTimeout",
     .keys = "bss%d.enforcepintimeout",
     .files = kRadioFile,
     .summary = "enforces the timeout of WPS PINs"},
    {.name = "uuid",
     .scope = Scope::Bss,
     .index = kBssIndex,
     .fields = kUuid,
     .get = getText<oruSdkGetUuid, 33>,
     .set = setText<oruSdkSetUuid>,
     .operations = "oruSdkGetUuid oruSdkSetUuid",
     .keys = "bss%d.uuid",
     .files = kRadioFile,
     .summary = "UUID under which WPS knows the BSS",
     .reason = isNotSet<"uuid", "VALUE">},
    {.name = "wps-interface",
     .scope = Scope::Bss,
     .index = kBssIndex,
     .fields = kInterface,
     .get = getText<oruSdkGetWpsIntf, 10>,
     .set = setText<oruSdkSetWpsIntf>,
     .operations = "oruSdkGetWpsIntf oruSdkSetWpsIntf",
     .keys = "bss%d.wpsintf",
     .files = kRadioFile,
     .summary = "interface on which WPS runs",
     .reason = isNotSet<"wps-interface", "VALUE">,
     .conflict = boundedHere<kInterface>},
    {.name = "client-admission",
     .scope = Scope::Radio,
     .index = {INT32_MIN, INT32_MAX},
     .fields = kClientAdmission,
     .get = getClientAdmission,
     .set = setClientAdmission,
     .operations = "oruSdkGetClientAdminCrit oruSdkSetClientAdminCrit",
     .keys = "wdsRulesSsId bssId bssNum ssid",
     .files = "/var/wsmDefaults /var/1x.conf",
     .summary = "network that a client bridge is to join"},
};

} // namespace

std::span<const Item> wpsItems()
{
    return kItems;
}

} // namespace oructl
