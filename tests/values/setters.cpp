#include "values/setters.hpp"

#include "oruSdk.h"

#include <cstring>

namespace oru::test {
namespace {

using std::optional;
using std::string;

constexpr const char *kWsm = "/var/wsmDefaults";
constexpr const char *kAa = "/var/1x.conf";
constexpr const char *kRadar = "/config/wsmSavedRadarDetectList";

Kept firstBytes(size_t most)
{
    return [most](const string &text) { return text.substr(0, most); };
}

/// A text as a field of a record: without its end when it has no room.
template <size_t Room>
void fill(char (&field)[Room], const string &text)
{
    std::memset(field, 0, Room);
    std::memcpy(field, text.data(), std::min(Room, text.size()));
}

/// Room that ends where it is said to end.
template <size_t Room>
class Field {
public:
    Field() { std::memset(bytes_, kMark, sizeof bytes_); }
    char *at() { return bytes_ + kBeside; }
    [[nodiscard]] string text() const { return bytes_ + kBeside; }

    /// The marks stand, and a text ends inside or nothing was written.
    [[nodiscard]] bool kept() const
    {
        for (size_t i = 0; i < kBeside; ++i)
            if (bytes_[i] != kMark || bytes_[kBeside + Room + i] != kMark) return false;
        return bytes_[kBeside] == kMark || ::strnlen(bytes_ + kBeside, Room) < Room;
    }

private:
    static constexpr char kMark = '\x5a';
    static constexpr size_t kBeside = 64;
    char bytes_[Room + 2 * kBeside];
};

template <size_t Room>
optional<string> textOf(uint32_t (*get)(int32_t, char *, uint32_t *))
{
    Field<Room> field;
    uint32_t length = 0;
    if (get(0, field.at(), &length) != 0) return {};
    return field.text();
}

uint32_t setWepKey(int number, const string &key)
{
    const char *keys[4] = {};
    keys[number - 1] = key.c_str();
    const int32_t length = key.size() == 26 ? 13 : 5;
    return oruSdkSetSecModeWep(1, 1, length, static_cast<uint32_t>(number), keys[0], keys[1],
                               keys[2], keys[3]);
}

optional<string> wepKey(int number)
{
    uint32_t numbers[3];
    Field<27> keys[4];
    if (oruSdkGetSecModeWep(1, &numbers[0], &numbers[1], &numbers[2], keys[0].at(), keys[1].at(),
                            keys[2].at(), keys[3].at()) != 0)
        return {};
    return keys[number - 1].text();
}

TextSetter wepRow(int number)
{
    return {
        "oruSdkSetSecModeWep.key" + std::to_string(number),
        "bss1.openAccessEnabled=false\n",
        [number](const string &text) { return setWepKey(number, text); },
        R"(bss1\.(wepEnabled|dynamicWepEnabled|wepKeyLen|wepDefaultKey|wepKey\.[1-4]|BpRSNFlag))",
        "",
        "",
        "Invalid WEP key[" + std::to_string(number) + "] ",
        {},
        [number] { return wepKey(number); }};
}

OruSdkRadiusServer server(const string &name, const string &secret)
{
    OruSdkRadiusServer one{};
    fill(one.name, name);
    fill(one.secret, secret);
    one.port = 1812;
    return one;
}

uint32_t setRadius(const OruSdkRadiusServer &one)
{
    return oruSdkSetRadiusConf(5, 3, 0, 1, &one);
}

optional<OruSdkRadiusServer> radius()
{
    uint32_t numbers[4];
    OruSdkRadiusServer servers[3]{};
    if (oruSdkGetRadiusConf(numbers, numbers + 1, numbers + 2, numbers + 3, servers) != 0)
        return {};
    return servers[0];
}

uint32_t setEtherVlan(size_t place, const string &text)
{
    string words[] = {"oructl", "set", "vlan", "1", "5", "7"};
    words[place] = text;
    char *argv[std::size(words)];
    for (size_t i = 0; i < std::size(words); ++i) argv[i] = words[i].data();
    return oruSdkSetEtherVlanId(std::size(words), argv);
}

uint32_t setAcl(const string &text)
{
    const uint32_t mode = 1;
    const int32_t count = 1;
    char entry[18] = {};
    std::memcpy(entry, text.data(), std::min(sizeof entry, text.size()));
    return oruSdkSetMacAclList(&mode, &count, entry);
}

optional<string> acl()
{
    uint32_t mode = 0;
    int32_t count = 0;
    Field<18> entry;
    if (oruSdkGetMacAclList(&mode, &count, entry.at()) != 0) return {};
    return entry.text();
}

uint32_t setClient(const string *ssid, const string *bssid)
{
    string texts[] = {ssid == nullptr ? "" : *ssid, bssid == nullptr ? "" : *bssid};
    OruSdkClientAdminCritParam param{};
    if (ssid != nullptr) param.ssid = texts[0].data();
    if (bssid != nullptr) param.bssid = texts[1].data();
    return oruSdkSetClientAdminCrit(&param);
}

struct Client {
    Field<33> ssid;
    Field<18> bssid;
    uint32_t code = 0;
};

Client client()
{
    Client found;
    OruSdkClientAdminCritParam param{};
    param.ssid = found.ssid.at();
    param.bssid = found.bssid.at();
    found.code = oruSdkGetClientAdminCrit(&param);
    return found;
}

const char *kClientKeys = "wdsRulesSsId|ssid|bssNum|bssId";
const char *kRadiusKeys =
    R"(radius(Timeout|MaxTries|Server\.1|Port\.1|Secret\.1)|numRadiusServers)";
const char *kEtherKeys = R"(eth-?\d+\.(pvid|vid\d+))";

} // namespace

const std::vector<TextSetter> &textSetters()
{
    static const std::vector<TextSetter> rows = {
        {"oruSdkSetSsid.ssid", "",
         [](const string &text) { return oruSdkSetSsid(0, text.c_str()); },
         R"(bss0\.(ssId|wpsstate))", "bss0.ssId", kAa, "", firstBytes(32),
         [] { return textOf<33>(oruSdkGetSsid); }},
        {"oruSdkSetWpaPsk.psk",
         "bss0.wpaEnabled=true\n",
         [](const string &text) { return oruSdkSetWpaPsk(0, text.c_str()); },
         R"(bss0\.wpaPsk)",
         "bss0.wpaPsk",
         kAa,
         "PSK key ",
         {},
         [] { return textOf<65>(oruSdkGetWpaPsk); }},
        wepRow(1),
        wepRow(2),
        wepRow(3),
        wepRow(4),
        {"oruSdkSetRadiusConf.name",
         "",
         [](const string &text) { return setRadius(server(text, "secret")); },
         kRadiusKeys,
         "radiusServer.1",
         kAa,
         "",
         {},
         []() -> optional<string> {
             if (const auto one = radius()) return one->name;
             return {};
         }},
        {"oruSdkSetRadiusConf.secret",
         "",
         [](const string &text) { return setRadius(server("radius.example", text)); },
         kRadiusKeys,
         "radiusSecret.1",
         kAa,
         "",
         {},
         []() -> optional<string> {
             if (const auto one = radius()) return one->secret;
             return {};
         }},
        {"oruSdkSetMacAclList.entries", "", setAcl, R"(localMacAcl(Count|\.\d+)?)", "localMacAcl.1",
         kAa, "", firstBytes(17), acl},
        {"oruSdkSetUuid.uuid",
         "",
         [](const string &text) { return oruSdkSetUuid(0, text.c_str()); },
         R"(bss0\.uuid)",
         "bss0.uuid",
         kWsm,
         "",
         {},
         [] { return textOf<33>(oruSdkGetUuid); }},
        {"oruSdkSetWpsIntf.interface", "",
         [](const string &text) { return oruSdkSetWpsIntf(0, text.c_str()); }, R"(bss0\.wpsintf)",
         "bss0.wpsintf", kWsm, "", firstBytes(9), [] { return textOf<10>(oruSdkGetWpsIntf); }},
        {"oruSdkSetDevicePin.pin", "",
         [](const string &text) { return oruSdkSetDevicePin(0, 0, text.c_str()); },
         R"(bss0\.appinpasswd)", "bss0.appinpasswd", kWsm, ""},
        {"sendWscEnroll.pin", "bss0.wscEnabledFlag=1\n",
         [](const string &text) { return sendWscEnroll(0, 0, 0, text.c_str()); }, "none", "", "",
         ""},
        {"oruSdkSetClientAdminCrit.ssid",
         "",
         [](const string &text) { return setClient(&text, nullptr); },
         kClientKeys,
         "wdsRulesSsId",
         kWsm,
         "Invalid SSID: ",
         {},
         []() -> optional<string> {
             return client().code == 0 ? optional{client().ssid.text()} : std::nullopt;
         }},
        {"oruSdkSetClientAdminCrit.bssid",
         "",
         [](const string &text) { return setClient(nullptr, &text); },
         kClientKeys,
         "bssId",
         kWsm,
         "Invalid BSSID ",
         {},
         []() -> optional<string> {
             return client().code == 0 ? optional{client().bssid.text()} : std::nullopt;
         }},
        {"oruSdkSetRdrPersistChan.channels", "",
         [](const string &text) { return oruSdkSetRdrPersistChan(text.c_str()); }, "rdrChans",
         "rdrChans", kRadar, ""},
        {"oruSdkSetBasicRateSetParam.rateSet", "",
         [](const string &text) {
             OruSdkBasicRateSetParam param{0, 1, {}};
             fill(param.rateSet, text);
             return oruSdkSetBasicRateSetParam(&param);
         },
         R"(radio0\.dot11bRates)", "", "", ""},
        {"oruSdkSetWorldMode.countryCode", "",
         [](const string &text) {
             OruSdkWorldModeParam param{};
             param.worldModeSupport = 1;
             fill(param.countryCode, text);
             return oruSdkSetWorldMode(&param);
         },
         "worldModeSupport", "", "", ""},
        {"oruSdkSetEtherVlanId.argv", "", [](const string &text) { return setEtherVlan(5, text); },
         kEtherKeys, "eth1.vid0", kWsm, ""},
        {"oruSdkSetEtherVlanId.argv", "", [](const string &text) { return setEtherVlan(4, text); },
         kEtherKeys, "", "", ""},
        {"oruSdkSetEtherVlanId.argv", "", [](const string &text) { return setEtherVlan(3, text); },
         kEtherKeys, "", "", ""},
        {"isHex.text", "", [](const string &text) { return isHex(text.c_str()); }, "none", "", "",
         ""},
        {"oruSdkGetStatsValue.name", "",
         [](const string &text) {
             return static_cast<uint32_t>(oruSdkGetStatsValue(text.c_str(), "tx 42 rx 7"));
         },
         "none", "", "", ""},
        {"oruSdkGetStatsValue.text", "",
         [](const string &text) {
             return static_cast<uint32_t>(oruSdkGetStatsValue("c", text.c_str()));
         },
         "none", "", "", ""},
    };
    return rows;
}

namespace {

template <size_t Room>
TextGetter bssGetter(const char *name, const char *file, const char *key,
                     uint32_t (*get)(int32_t, char *, uint32_t *))
{
    return {name, file, key, "", [get](uint32_t &code) {
                Field<Room> field;
                uint32_t length = 0;
                code = get(0, field.at(), &length);
                return field.kept();
            }};
}

bool getWep(uint32_t &code)
{
    uint32_t numbers[3];
    Field<27> keys[4];
    code = oruSdkGetSecModeWep(0, &numbers[0], &numbers[1], &numbers[2], keys[0].at(), keys[1].at(),
                               keys[2].at(), keys[3].at());
    for (const auto &key : keys)
        if (!key.kept()) return false;
    return true;
}

/// A record between marks, whose texts end inside their fields.
template <class Record>
struct Marked {
    char before[64];
    Record record;
    char after[64];

    Marked()
    {
        std::memset(this, 0, sizeof *this);
        std::memset(before, 'Z', sizeof before);
        std::memset(after, 'Z', sizeof after);
    }
    [[nodiscard]] bool kept() const
    {
        for (size_t i = 0; i < sizeof before; ++i)
            if (before[i] != 'Z' || after[i] != 'Z') return false;
        return true;
    }
};

template <size_t Room>
bool ends(const char (&field)[Room])
{
    return ::strnlen(field, Room) < Room;
}

bool getRadius(uint32_t &code)
{
    struct Servers {
        OruSdkRadiusServer one[3];
    };
    Marked<Servers> marked;
    uint32_t numbers[4];
    code = oruSdkGetRadiusConf(numbers, numbers + 1, numbers + 2, numbers + 3, marked.record.one);
    return marked.kept() && ends(marked.record.one[0].name) && ends(marked.record.one[0].secret);
}

bool getRates(uint32_t &code)
{
    Marked<OruSdkBasicRateSetInfo> marked;
    code = oruSdkGetBasicRateSetParam(&marked.record);
    const OruSdkBasicRateSetInfo &rates = marked.record;
    return marked.kept() && ends(rates.dot11aRates) && ends(rates.dot11bRates) &&
           ends(rates.dot11gRates) && ends(rates.dot11nRates);
}

bool getWorldMode(uint32_t &code)
{
    Marked<OruSdkWorldModeParam> marked;
    code = oruSdkGetWorldMode(&marked.record);
    return marked.kept() && ends(marked.record.countryCode);
}

bool getBssInfo(uint32_t &code)
{
    Marked<OruSdkBssInfoParam> marked;
    code = oruSdkGetBssInfoParam(&marked.record);
    return marked.kept() && ends(marked.record.ssid) && ends(marked.record.securityMode);
}

bool getAcl(uint32_t &code)
{
    uint32_t mode = 0;
    int32_t count = 0;
    Field<18> entry;
    code = oruSdkGetMacAclList(&mode, &count, entry.at());
    return entry.kept();
}

bool getClient(uint32_t &code)
{
    const Client found = client();
    code = found.code;
    return found.ssid.kept() && found.bssid.kept();
}

} // namespace

const std::vector<TextGetter> &textGetters()
{
    const char *const acl = "localMacAcl=1\nlocalMacAclCount=1\n";
    const char *const radius = "radiusTimeout=5\nradiusMaxTries=3\nnumRadiusServers=1\n";
    static const std::vector<TextGetter> rows = {
        bssGetter<33>("oruSdkGetSsid", kWsm, "bss0.ssId", oruSdkGetSsid),
        bssGetter<65>("oruSdkGetWpaPsk", kAa, "bss0.wpaPsk", oruSdkGetWpaPsk),
        bssGetter<33>("oruSdkGetUuid", kWsm, "bss0.uuid", oruSdkGetUuid),
        bssGetter<10>("oruSdkGetWpsIntf", kWsm, "bss0.wpsintf", oruSdkGetWpsIntf),
        bssGetter<65>("oruSdkGetDevicePin", kWsm, "bss0.appinpasswd", oruSdkGetDevicePin),
        {"oruSdkGetSecModeWep", kAa, "bss0.wepKey.1", "bss0.wepEnabled=true\n", getWep},
        {"oruSdkGetSecModeWep", kAa, "bss0.wepKey.4", "bss0.wepEnabled=true\n", getWep},
        {"oruSdkGetRadiusConf", kAa, "radiusServer.1", radius, getRadius},
        {"oruSdkGetRadiusConf", kAa, "radiusSecret.1", radius, getRadius},
        {"oruSdkGetMacAclList", kAa, "localMacAcl.1", acl, getAcl},
        {"oruSdkGetClientAdminCrit", kWsm, "wdsRulesSsId", "", getClient},
        {"oruSdkGetClientAdminCrit", kWsm, "bssId", "", getClient},
        {"oruSdkGetBasicRateSetParam", kWsm, "radio0.dot11aRates", "", getRates},
        {"oruSdkGetBasicRateSetParam", kWsm, "radio0.dot11nRates", "", getRates},
        {"oruSdkGetWorldMode", kWsm, "countryCode", "", getWorldMode},
        {"oruSdkGetBssInfoParam", kWsm, "bss0.ssId", "", getBssInfo},
    };
    return rows;
}

} // namespace oru::test
