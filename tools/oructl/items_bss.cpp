// Assignment, identity and VLANs of BSSes, and the VLANs of Ethernet ports.
#include "adapt_bss.hpp"
#include "items.hpp"
#include "reasons.hpp"

namespace oructl {
namespace {

// ---- assign

constexpr Field kAssignment[] = {
    {.name = "radio", .kind = Kind::Number, .use = Use::Set, .bounds = {0, 1}},
    {.name = "state",
     .kind = Kind::Switch,
     .use = Use::Set,
     .bounds = {0, 1},
     .words = kOnOffWords},
    {.name = "radio0",
     .kind = Kind::Switch,
     .use = Use::Get,
     .bounds = {0, 1},
     .words = kOnOffWords},
    {.name = "radio1",
     .kind = Kind::Switch,
     .use = Use::Get,
     .bounds = {0, 1},
     .words = kOnOffWords}};

uint32_t getAssignment(Call &call)
{
    uint32_t mask = 0;
    const uint32_t code = oruSdkGetAssignBssReq(static_cast<int32_t>(call.index), &mask);
    if (code != ORUSDK_RC_OK) return code;
    call.values[2] = {.given = true, .number = mask & 1};
    call.values[3] = {.given = true, .number = mask >> 1 & 1};
    return code;
}

uint32_t setAssignment(const Call &call)
{
    OruSdkAssignBssParam record{.bssIndex = static_cast<int32_t>(call.index),
                                .radioIndex = static_cast<uint32_t>(call.values[0].number),
                                .enable = static_cast<uint32_t>(call.values[1].number)};
    return oruSdkAssignBss(&record);
}

/// Stores what a get gives: the state of each radio, where it is another.
uint32_t restoreAssignment(const Call &call)
{
    Call now{.index = call.index, .values = std::vector<Value>(std::size(kAssignment))};
    if (const uint32_t code = getAssignment(now); code != ORUSDK_RC_OK) return code;
    for (const size_t radio : {0, 1}) {
        const Value &wanted = call.values[2 + radio];
        if (!wanted.given || wanted.number == now.values[2 + radio].number) continue;
        OruSdkAssignBssParam record{.bssIndex = static_cast<int32_t>(call.index),
                                    .radioIndex = static_cast<uint32_t>(radio),
                                    .enable = static_cast<uint32_t>(wanted.number)};
        if (const uint32_t code = oruSdkAssignBss(&record); code != ORUSDK_RC_OK) return code;
    }
    return ORUSDK_RC_OK;
}

// ---- SSID

constexpr Field kSsid[] = {
    {.name = "",
     .kind = Kind::Bytes,
     .bounds = {0, 32},
     .meaning = "as it is typed, or in hexadecimal digits; an SSID of '--hex' is --hex 2d2d686578",
     .operand = "SSID|--hex HEX"}};

uint32_t getHidden(Call &call)
{
    OruSdkSuppressSsidParam record{.bssIndex = static_cast<uint32_t>(call.index), .suppress = 0};
    const uint32_t code = oruSdkGetSuppressSsid(&record);
    if (code != ORUSDK_RC_OK) return code;
    call.values[0] = {.given = true, .number = static_cast<int32_t>(record.suppress)};
    return code;
}

uint32_t setHidden(const Call &call)
{
    OruSdkSuppressSsidParam record{.bssIndex = static_cast<uint32_t>(call.index),
                                   .suppress = static_cast<uint32_t>(call.values[0].number)};
    return oruSdkSetSuppressSsid(&record);
}

// ---- VLANs

uint32_t vlanOf(int32_t bss, uint32_t *vlan)
{
    return oruSdkGetVlanId(vlan, static_cast<uint32_t>(bss));
}

constexpr Bounds kVlanIds = {1, 4095};
constexpr size_t kMostMemberships = 15;
constexpr Field kMembership[] = {{.name = "", .kind = Kind::Number, .bounds = kVlanIds}};
constexpr Field kPortVlans[] = {
    {.name = "pvid", .kind = Kind::Number, .bounds = kVlanIds, .meaning = "the port's own VLAN"},
    {.name = "members",
     .kind = Kind::List,
     .bounds = {0, kMostMemberships},
     .entry = kMembership,
     .meaning = "the VLANs that the port carries, too"}};

uint32_t getPortVlans(Call &call)
{
    std::array<uint16_t, kMostMemberships> members{};
    uint32_t count = 0;
    uint32_t pvid = 0;
    const uint32_t code =
        oruSdkGetEtherVlanId(members.data(), &count, &pvid, static_cast<int32_t>(call.index));
    if (code != ORUSDK_RC_OK) return code;
    call.values[0] = {.given = true, .number = static_cast<int32_t>(pvid)};
    call.values[1].given = true;
    for (size_t i = 0; i < count && i < members.size(); ++i)
        call.values[1].entries.push_back({{.given = true, .number = members[i]}});
    return code;
}

/// The operation takes a command line and stores parts of it as they stand: it gets numbers that
/// are checked and written anew, never the words of this process.
uint32_t setPortVlans(const Call &call)
{
    std::vector<std::string> words = {"oructl", "set", "ether-vlan", std::to_string(call.index),
                                      std::to_string(call.values[0].number)};
    for (const auto &entry : call.values[1].entries)
        words.push_back(std::to_string(entry[0].number));
    std::vector<char *> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string &word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    const uint32_t code = oruSdkSetEtherVlanId(static_cast<int32_t>(words.size()), pointers.data());
    if (code == ORUSDK_RC_OK || code == ORUSDK_RC_FILE_WRITE)
        call.steps.emplace_back("the Ethernet driver was told the port's own VLAN at once (a "
                                "failure there is only logged); the rest waits for a commit");
    return code;
}

constexpr Item kItems[] = {
    {.name = "assign",
     .scope = Scope::Bss,
     .index = kBssIndex,
     .fields = kAssignment,
     .get = getAssignment,
     .set = setAssignment,
     .operations = "oruSdkAssignBss oruSdkGetAssignBssReq",
     .keys = "bss%d.radio bss%d.radioctrl",
     .files = "/var/wsmDefaults /var/1x.conf",
     .summary = "radios that the BSS runs on",
     .conflict = boundedHere<kAssignment>,
     .restore = restoreAssignment},
    {.name = "ssid",
     .scope = Scope::Bss,
     .index = kBssIndex,
     .fields = kSsid,
     .get = getText<oruSdkGetSsid, 33>,
     .set = setText<oruSdkSetSsid>,
     .operations = "oruSdkGetSsid oruSdkSetSsid",
     .keys = "bss%d.ssId",
     .files = "/var/wsmDefaults /var/1x.conf",
     .summary = "name of the network; a new one makes a WPS state of 1 become 2",
     .reason = bssReason,
     .conflict = boundedHere<kSsid>},
    {.name = "hide-ssid",
     .scope = Scope::Bss,
     .index = {0, INT32_MAX},
     .fields = kOnOff,
     .get = getHidden,
     .set = setHidden,
     .operations = "oruSdkGetSuppressSsid oruSdkSetSuppressSsid",
     .keys = "bss%d.suppressSSIDFlag",
     .files = kRadioFile,
     .summary = "keeps the SSID out of the beacons"},
    {.name = "intra-bss",
     .scope = Scope::Bss,
     .index = {0, 3},
     .fields = kOnOff,
     .get = getNumber<oruSdkGetIntraBss>,
     .set = setNumber<int32_t, oruSdkSetIntraBss>,
     .operations = "oruSdkGetIntraBss oruSdkSetIntraBss",
     .keys = "bss%d.IntraBSS",
     .files = kRadioFile,
     .summary = "lets stations of the BSS talk to each other",
     .conflict = boundedHere<kOnOff>},
    {.name = "inter-bss",
     .scope = Scope::Radio,
     .index = {0, 1},
     .fields = kOnOff,
     .get = getNumber<oruSdkGetInterBss>,
     .set = setNumber<int32_t, oruSdkSetInterBss>,
     .operations = "oruSdkGetInterBss oruSdkSetInterBss",
     .keys = "InterBSS.radio%d",
     .files = kRadioFile,
     .summary = "lets stations of different BSSes on the radio talk to each other",
     .conflict = boundedHere<kOnOff>},
    {.name = "vlan",
     .scope = Scope::Bss,
     .index = kBssIndex,
     .fields = kNumber<1, 4095>,
     .get = getNumber<vlanOf>,
     .set = setNumber<uint32_t, oruSdkSetVlanId>,
     .operations = "oruSdkGetVlanId oruSdkSetVlanId",
     .keys = "bss%d.wvid",
     .files = kRadioFile,
     .summary = "VLAN of the BSS"},
    {.name = "ether-vlan",
     .scope = Scope::Port,
     .index = {0, INT32_MAX},
     .fields = kPortVlans,
     .get = getPortVlans,
     .set = setPortVlans,
     .operations = "oruSdkGetEtherVlanId oruSdkSetEtherVlanId",
     .keys = "eth%d.pvid eth%d.vid0",
     .files = kRadioFile,
     .summary = "VLANs of an Ethernet port (vid0 to vid14)",
     .conflict = boundedHere<kPortVlans>,
     .atOnce = true},
};

} // namespace

std::span<const Item> bssItems()
{
    return kItems;
}

} // namespace oructl
