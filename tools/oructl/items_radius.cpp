// Lists that all BSSes share: RADIUS servers and station addresses.
#include "adapt_bss.hpp"
#include "items.hpp"
#include "reasons.hpp"

namespace oructl {
namespace {

// ---- RADIUS servers

constexpr int64_t kMostServers = 3;
constexpr int64_t kTotalSeconds = 20;
constexpr Field kServer[] = {
    {.name = "name", .kind = Kind::Text, .bounds = {0, 63}},
    {.name = "port", .kind = Kind::Number, .bounds = {1, UINT16_MAX}, .separator = ':'},
    {.name = "secret", .kind = Kind::Secret, .bounds = {1, 65}}};
constexpr Word kDeadTimeWords[] = {{"not-supported", 0xdeadbeef}};
constexpr Field kRadius[] = {
    {.name = "timeout",
     .kind = Kind::Number,
     .bounds = {0, INT32_MAX},
     .unit = "seconds",
     .meaning = "to wait for an answer; timeout x tries stays below 20"},
    {.name = "tries", .kind = Kind::Number, .bounds = {0, INT32_MAX}},
    {.name = "dead-time",
     .kind = Kind::Choice,
     .use = Use::Get,
     .bounds = {0xdeadbeef, 0xdeadbeef},
     .words = kDeadTimeWords},
    {.name = "servers",
     .kind = Kind::List,
     .bounds = {1, kMostServers},
     .entry = kServer,
     .meaning = "NAME:PORT each; their secrets are read in this order, one a line of standard "
                "input or of the --secret-file (with --insecure-argv: NAME:PORT,SECRET)",
     .operand = "NAME:PORT"}};

/// A text in a field of the record: whole, or too long for the library as well.
template <size_t Room>
void put(char (&field)[Room], const std::string &text)
{
    std::memcpy(field, text.data(), std::min(text.size(), Room));
}

template <size_t Room>
Value textOf(const char (&field)[Room])
{
    return {.given = true, .text = std::string(field, ::strnlen(field, Room))};
}

uint32_t getRadius(Call &call)
{
    uint32_t timeout = 0;
    uint32_t tries = 0;
    uint32_t deadTime = 0;
    uint32_t count = 0;
    OruSdkRadiusServer servers[kMostServers] = {};
    const uint32_t code = oruSdkGetRadiusConf(&timeout, &tries, &deadTime, &count, servers);
    if (code != ORUSDK_RC_OK) return code;
    call.values[0] = {.given = true, .number = static_cast<int32_t>(timeout)};
    call.values[1] = {.given = true, .number = static_cast<int32_t>(tries)};
    call.values[2] = {.given = true, .number = deadTime};
    call.values[3].given = true;
    for (uint32_t i = 0; i < count && i < kMostServers; ++i)
        call.values[3].entries.push_back({textOf(servers[i].name),
                                          {.given = true, .number = servers[i].port},
                                          textOf(servers[i].secret)});
    return code;
}

uint32_t setRadius(const Call &call)
{
    std::vector<OruSdkRadiusServer> servers(std::max<size_t>(call.values[3].entries.size(), 1));
    for (size_t i = 0; i < call.values[3].entries.size(); ++i) {
        const auto &entry = call.values[3].entries[i];
        put(servers[i].name, entry[0].text);
        servers[i].port = static_cast<uint32_t>(entry[1].number);
        put(servers[i].secret, entry[2].text);
    }
    return oruSdkSetRadiusConf(static_cast<int32_t>(call.values[0].number),
                               static_cast<int32_t>(call.values[1].number), 0,
                               static_cast<int32_t>(call.values[3].entries.size()), servers.data());
}

/// The library takes ports and tries as they are, and lets the product of seconds run over.
std::string conflictOfRadius(const Call &call)
{
    if (call.values[1].number < 0) return "tries takes 0 to " + std::to_string(INT32_MAX);
    for (const auto &entry : call.values[3].entries)
        if (!isLegal(kServer[1], entry[1])) return "port takes " + legalValues(kServer[1]);
    const int64_t seconds = call.values[0].number * call.values[1].number;
    return seconds > INT32_MAX ? "timeout x tries stays below 20 seconds" : "";
}

std::string radiusReason(uint32_t code, const Call &call)
{
    if (code != ORUSDK_RC_RADIUS_TOTAL_TIME) return bssReason(code, call);
    const int64_t seconds = call.values[0].number * call.values[1].number;
    return "timeout x tries is " + std::to_string(seconds) + ", and has to stay below " +
           std::to_string(kTotalSeconds);
}

// ---- station addresses

constexpr size_t kAddressRoom = 18;
constexpr size_t kMostAddresses = 256;
constexpr Word kAclWords[] = {{"off", 0}, {"1", 1}, {"2", 2}};
constexpr Field kAddress[] = {{.name = "", .kind = Kind::Mac}};
constexpr Field kAcl[] = {
    {.name = "mode",
     .kind = Kind::Choice,
     .bounds = {0, 2},
     .words = kAclWords,
     .meaning = "1 and 2 are the two ways in which the authorization agent applies the list"},
    {.name = "stations",
     .kind = Kind::List,
     .bounds = {0, kMostAddresses},
     .entry = kAddress,
     .meaning = "addresses, or --file FILE with one a line",
     .operand = "MAC|--file FILE"}};

uint32_t getAcl(Call &call)
{
    uint32_t mode = 0;
    int32_t count = 0;
    std::vector<char> entries((kMostAddresses + 1) * kAddressRoom);
    const uint32_t code = oruSdkGetMacAclList(&mode, &count, entries.data());
    if (code != ORUSDK_RC_OK) return code;
    call.values[0] = {.given = true, .number = static_cast<int32_t>(mode)};
    call.values[1].given = true;
    for (int32_t i = 0; i < count; ++i) {
        const char *entry = &entries[static_cast<size_t>(i) * kAddressRoom];
        if (*entry == '\0') break;
        call.values[1].entries.push_back(
            {{.given = true, .text = std::string(entry, ::strnlen(entry, kAddressRoom))}});
    }
    return code;
}

uint32_t setAcl(const Call &call)
{
    const auto &addresses = call.values[1].entries;
    const auto mode = static_cast<uint32_t>(call.values[0].number);
    const auto count = static_cast<int32_t>(addresses.size());
    std::vector<char> entries((addresses.size() + 1) * kAddressRoom);
    for (size_t i = 0; i < addresses.size(); ++i)
        std::memcpy(&entries[i * kAddressRoom], addresses[i][0].text.data(), kAddressRoom - 1);
    return oruSdkSetMacAclList(&mode, &count, entries.data());
}

std::string conflictOfAcl(const Call &call)
{
    return call.values[0].number == 0 && !call.values[1].entries.empty() ? "off takes no addresses"
                                                                         : "";
}

constexpr Item kItems[] = {
    {.name = "radius",
     .scope = Scope::None,
     .index = {0, 0},
     .fields = kRadius,
     .get = getRadius,
     .set = setRadius,
     .operations = "oruSdkGetRadiusConf oruSdkSetRadiusConf",
     .keys = "radiusTimeout radiusMaxTries numRadiusServers radiusServer.1 radiusPort.1 "
             "radiusSecret.1",
     .files = kSecurityFile,
     .summary = "RADIUS servers of all BSSes",
     .reason = radiusReason,
     .conflict = conflictOfRadius},
    {.name = "mac-acl",
     .scope = Scope::None,
     .index = {0, 0},
     .fields = kAcl,
     .get = getAcl,
     .set = setAcl,
     .operations = "oruSdkGetMacAclList oruSdkSetMacAclList",
     .keys = "localMacAcl localMacAclCount localMacAcl.1",
     .files = kSecurityFile,
     .summary = "list of station addresses of all BSSes",
     .conflict = conflictOfAcl},
};

} // namespace

std::span<const Item> radiusItems()
{
    return kItems;
}

} // namespace oructl
