// Security of the BSSes: the modes, of which one is on, and what belongs to them.
#include "adapt_bss.hpp"
#include "items.hpp"
#include "reasons.hpp"

namespace oructl {
namespace {

int32_t bssOf(const Call &call)
{
    return static_cast<int32_t>(call.index);
}

int32_t signedOf(const Value &value)
{
    return static_cast<int32_t>(value.number);
}

uint32_t unsignedOf(const Value &value)
{
    return static_cast<uint32_t>(value.number);
}

Value shown(uint32_t number)
{
    return {.given = true, .number = static_cast<int32_t>(number)};
}

// ---- WPA

constexpr Word kAuthWords[] = {{"radius", 0}, {"psk", 1}};
constexpr Word kCipherWords[] = {{"aes", 0}, {"1", 1}, {"2", 2}};
constexpr Field kAuth = {.name = "auth",
                         .kind = Kind::Choice,
                         .bounds = {0, 1},
                         .words = kAuthWords,
                         .meaning = "of WPA: by the RADIUS servers or with a pre-shared key",
                         .optional = true};
constexpr Field kCipher = {.name = "cipher",
                           .kind = Kind::Choice,
                           .bounds = {0, 2},
                           .words = kCipherWords,
                           .meaning = "of WPA; 1 and 2 are the authorization agent's own",
                           .optional = true};

constexpr Word kWpaWords[] = {{"off", 0}, {"wpa", 1}, {"wpa2", 2}, {"wpa-mixed", 3}};
constexpr Field kWpa[] = {
    {.name = "mode", .kind = Kind::Choice, .bounds = {0, 3}, .words = kWpaWords}, kAuth, kCipher};

constexpr size_t kWpaPlace = 0;

/// The values of WPA among those of a call: mode, auth and cipher.
std::span<const Value, 3> wpaOf(const Call &call, size_t place)
{
    return std::span{call.values}.subspan(place).first<3>();
}

/// The library takes a negative type as it is.
std::string wpaConflict(bool on, const Value &auth)
{
    if (!on) return auth.given ? "auth and cipher belong to WPA" : "";
    if (!auth.given) return "auth is missing";
    return auth.number < 0 ? "auth takes " + legalValues(kAuth) : "";
}

std::string conflictOfWpa(const Call &call)
{
    return wpaConflict(call.values[0].number != 0, call.values[1]);
}

uint32_t getWpa(Call &call)
{
    uint32_t mode = 0;
    uint32_t auth = 0;
    uint32_t cipher = 0;
    const uint32_t code = oruSdkGetSecModeWpa(bssOf(call), &mode, &auth, &cipher);
    if (code != ORUSDK_RC_OK) return code;
    call.values[0] = shown(mode);
    if (mode == 0) return code;
    call.values[1] = shown(auth);
    call.values[2] = shown(cipher);
    return code;
}

template <size_t Place>
uint32_t setWpa(const Call &call)
{
    const auto wpa = wpaOf(call, Place);
    return oruSdkSetSecModeWpa(bssOf(call), unsignedOf(wpa[0]), signedOf(wpa[1]),
                               unsignedOf(wpa[2]));
}

template <size_t Place>
std::string wpaReason(uint32_t code, const Call &call)
{
    if (code == ORUSDK_RC_ENC_TYPE && isLegal(kCipher, wpaOf(call, Place)[2]))
        return "the access point runs 802.11n only, which takes the cipher aes alone";
    return bssReason(code, call);
}

// ---- WEP

constexpr int32_t kLongWepKey = 13;
constexpr size_t kWepKeys = 4;
constexpr Field kKeyLength = {.name = "key-length",
                              .kind = Kind::Number,
                              .bounds = {5, 13},
                              .unit = "bytes",
                              .option = "key-length",
                              .meaning = "of WEP, 5 or 13; else as long as the default key, or 13"};
constexpr Field kDefaultKey = {.name = "default-key",
                               .kind = Kind::Number,
                               .bounds = {1, 4},
                               .option = "default-key",
                               .meaning = "number of the WEP key to send with; else 1"};

constexpr Field wepKey(std::string_view name, Use use)
{
    return {.name = name,
            .kind = Kind::Secret,
            .use = use,
            .bounds = {10, 26},
            .option = name,
            .meaning = "hexadecimal digits, two a byte; without any key, WEP is dynamic"};
}

constexpr Field kWep[] = {
    {.name = "state", .kind = Kind::Switch, .bounds = {0, 1}, .words = kOnOffWords},
    kKeyLength,
    kDefaultKey,
    wepKey("key1", Use::Both),
    wepKey("key2", Use::Both),
    wepKey("key3", Use::Both),
    wepKey("key4", Use::Both)};

/// The values of WEP among those of a call: key length, default key and four keys.
class Wep {
public:
    Wep(const Call &call, size_t place) : values_(std::span{call.values}.subspan(place, 6)) {}

    [[nodiscard]] bool given() const
    {
        return std::any_of(values_.begin(), values_.end(), [](const Value &v) { return v.given; });
    }
    [[nodiscard]] bool isStatic() const
    {
        const auto keys = values_.subspan(2);
        return std::any_of(keys.begin(), keys.end(), [](const Value &v) { return v.given; });
    }
    [[nodiscard]] uint32_t defaultKey() const
    {
        return values_[1].given ? unsignedOf(values_[1]) : 1;
    }
    [[nodiscard]] int32_t keyLength() const
    {
        if (values_[0].given) return signedOf(values_[0]);
        const uint32_t number = defaultKey();
        if (number < 1 || number > kWepKeys || key(number) == nullptr) return kLongWepKey;
        return static_cast<int32_t>(values_[1 + number].text.size() / 2);
    }
    /// NULL for a key that isn't given.
    [[nodiscard]] const char *key(size_t number) const
    {
        const Value &value = values_[1 + number];
        return value.given ? value.text.c_str() : nullptr;
    }
    [[nodiscard]] uint32_t switchOn(int32_t bss) const
    {
        return oruSdkSetSecModeWep(bss, 1, keyLength(), defaultKey(), key(1), key(2), key(3),
                                   key(4));
    }
    [[nodiscard]] std::string reason(uint32_t code) const;

private:
    std::span<const Value> values_;
};

std::string Wep::reason(uint32_t code) const
{
    const std::string number = std::to_string(defaultKey());
    switch (code) {
    case ORUSDK_RC_WEP_KEY_LENGTH: return "a key has 5 or 13 bytes: 10 or 26 hexadecimal digits";
    case ORUSDK_RC_WEP_KEY_ID: return "default-key takes 1 to 4";
    case ORUSDK_RC_WEP_KEY_MISSING:
        return "the default key is number " + number + ": give it with --key" + number;
    case ORUSDK_RC_WEP_KEY_TEXT_LENGTH:
        return "each key of " + std::to_string(keyLength()) + " bytes has " +
               std::to_string(2 * keyLength()) + " hexadecimal digits";
    case ORUSDK_RC_WEP_KEY_HEX:
        for (size_t i = 1; i <= kWepKeys; ++i)
            if (key(i) != nullptr && isHex(key(i)) == 0)
                return "key" + std::to_string(i) +
                       " holds other characters than hexadecimal digits";
        return "";
    default: return "";
    }
}

std::string wepReason(uint32_t code, const Call &call)
{
    const std::string own = Wep{call, 1}.reason(code);
    return own.empty() ? bssReason(code, call) : own;
}

std::string conflictOfWep(const Call &call)
{
    return call.values[0].number == 0 && Wep{call, 1}.given() ? "off takes no keys" : "";
}

uint32_t getWep(Call &call)
{
    uint32_t on = 0;
    uint32_t keyLength = 0;
    uint32_t defaultKey = 0;
    char keys[kWepKeys][28] = {};
    const uint32_t code = oruSdkGetSecModeWep(bssOf(call), &on, &keyLength, &defaultKey, keys[0],
                                              keys[1], keys[2], keys[3]);
    if (code != ORUSDK_RC_OK) return code;
    call.values[0] = shown(on);
    if (on == 0) return code;
    call.values[1] = shown(keyLength);
    call.values[2] = shown(defaultKey);
    for (size_t i = 0; i < kWepKeys; ++i) call.values[3 + i] = {.given = true, .text = keys[i]};
    return code;
}

uint32_t setWep(const Call &call)
{
    if (call.values[0].number == 1) return Wep{call, 1}.switchOn(bssOf(call));
    return oruSdkSetSecModeWep(bssOf(call), unsignedOf(call.values[0]), 0, 0, nullptr, nullptr,
                               nullptr, nullptr);
}

// ---- security: one mode instead of another

enum Mode : int64_t { kNone, kWpa1, kWpa2, kWpaMixed, kOpen, kWepMode };
constexpr Word kModeWords[] = {
    {"open", kOpen}, {"wep", kWepMode}, {"wpa", kWpa1}, {"wpa2", kWpa2}, {"wpa-mixed", kWpaMixed}};
constexpr Word kPresentWords[] = {{"none", kNone}, {"open", kOpen}, {"wep", kWepMode},
                                  {"wpa", kWpa1},  {"wpa2", kWpa2}, {"wpa-mixed", kWpaMixed}};
constexpr Field kSecurity[] = {
    {.name = "mode",
     .kind = Kind::Choice,
     .use = Use::Get,
     .bounds = {kNone, kWepMode},
     .words = kPresentWords,
     .meaning = "as a get shows it"},
    {.name = "mode",
     .kind = Kind::Choice,
     .use = Use::Set,
     .bounds = {kWpa1, kWepMode},
     .words = kModeWords},
    kAuth,
    kCipher,
    kKeyLength,
    kDefaultKey,
    wepKey("key1", Use::Set),
    wepKey("key2", Use::Set),
    wepKey("key3", Use::Set),
    wepKey("key4", Use::Set),
    {.name = "psk",
     .kind = Kind::Secret,
     .use = Use::Set,
     .bounds = {8, 64},
     .option = "psk",
     .meaning = "64 hexadecimal digits, or a pass-phrase of 8 to 63 characters"}};
constexpr size_t kModePlace = 1;
constexpr size_t kWepPlace = 4;
constexpr size_t kPskPlace = 10;

bool isWpa(int64_t mode)
{
    return mode >= kWpa1 && mode <= kWpaMixed;
}

std::string modeName(int64_t mode)
{
    return std::string{wordOf(kSecurity[kModePlace], mode)};
}

/// Looks at open access first, as the summary of a BSS does.
uint32_t getSecurity(Call &call)
{
    uint32_t open = 0;
    if (const uint32_t code = oruSdkGetSecModeOpen(bssOf(call), &open); code != ORUSDK_RC_OK)
        return code;
    Call wep{.index = call.index, .values = std::vector<Value>(std::size(kWep))};
    if (const uint32_t code = getWep(wep); code != ORUSDK_RC_OK) return code;
    Call wpa{.index = call.index, .values = std::vector<Value>(std::size(kWpa))};
    if (const uint32_t code = getWpa(wpa); code != ORUSDK_RC_OK) return code;
    Value &mode = call.values[0];
    mode = {.given = true, .number = open != 0 ? int64_t{kOpen} : int64_t{kNone}};
    if (open != 0) return ORUSDK_RC_OK;
    if (wep.values[0].number != 0) {
        mode.number = kWepMode;
        std::copy_n(wep.values.begin() + 1, 2, call.values.begin() + kWepPlace);
        return ORUSDK_RC_OK;
    }
    mode.number = wpa.values[0].number;
    std::copy_n(wpa.values.begin() + 1, 2, call.values.begin() + kModePlace + 1);
    return ORUSDK_RC_OK;
}

uint32_t switchOn(const Call &call)
{
    switch (call.values[kModePlace].number) {
    case kOpen: return oruSdkSetSecModeOpen(bssOf(call), 1);
    case kWepMode: return Wep{call, kWepPlace}.switchOn(bssOf(call));
    default: return setWpa<kModePlace>(call);
    }
}

/// Whether a refusal names another mode that is on.
bool namesOtherMode(uint32_t code)
{
    return code == ORUSDK_RC_OPEN_ENABLED || code == ORUSDK_RC_WPA_ENABLED ||
           code == ORUSDK_RC_WEP_ENABLED;
}

/// Switches off the mode that a refusal names.
uint32_t switchOff(uint32_t refusal, const Call &call)
{
    const int32_t bss = bssOf(call);
    uint32_t code = ORUSDK_RC_OK;
    std::string_view mode = "WEP";
    if (refusal == ORUSDK_RC_OPEN_ENABLED) {
        mode = "open access";
        code = oruSdkSetSecModeOpen(bss, 0);
    } else if (refusal == ORUSDK_RC_WPA_ENABLED) {
        mode = "WPA";
        code = oruSdkSetSecModeWpa(bss, 0, 0, 0);
    } else {
        code = oruSdkSetSecModeWep(bss, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    }
    if (code == ORUSDK_RC_OK) call.steps.emplace_back(std::string{mode} + " switched off");
    return code;
}

std::string switchedOn(const Call &call)
{
    const int64_t mode = call.values[kModePlace].number;
    std::string text = modeName(mode);
    if (mode == kWepMode) text += Wep{call, kWepPlace}.isStatic() ? " with keys" : ", dynamic";
    if (isWpa(mode))
        text.append(" with ")
            .append(wordOf(kAuth, wpaOf(call, kModePlace)[1].number))
            .append(" and ")
            .append(wordOf(kCipher, wpaOf(call, kModePlace)[2].number));
    return text + " switched on";
}

/// The key or the servers that WPA needs: stored, or missed in a step of its own.
uint32_t completeWpa(const Call &call)
{
    std::array<char, 66> psk{};
    uint32_t ignored = 0;
    if (call.values[kPskPlace].given) {
        const uint32_t code = oruSdkSetWpaPsk(bssOf(call), call.values[kPskPlace].text.c_str());
        if (code == ORUSDK_RC_OK) call.steps.emplace_back("key stored");
        return code;
    }
    uint32_t missing = ORUSDK_RC_OK;
    if (wpaOf(call, kModePlace)[1].number == 1) {
        missing = oruSdkGetWpaPsk(bssOf(call), psk.data(), &ignored);
    } else {
        OruSdkRadiusServer servers[3] = {};
        missing = oruSdkGetRadiusConf(&ignored, &ignored, &ignored, &ignored, servers);
    }
    if (missing == ORUSDK_RC_PSK_MISSING || missing == ORUSDK_RC_NO_RADIUS_SERVER)
        call.steps.push_back(bssReason(missing, call));
    return ORUSDK_RC_OK;
}

/// The library switches no mode on while another one is: each refusal says which one to switch off
/// first, so that two are never on. What it refuses for other reasons, it refuses before that.
uint32_t setSecurity(const Call &call)
{
    constexpr int kOtherModes = 2;
    uint32_t code = switchOn(call);
    for (int left = kOtherModes; left > 0 && namesOtherMode(code); --left) {
        if (const uint32_t failed = switchOff(code, call); failed != ORUSDK_RC_OK) return failed;
        code = switchOn(call);
    }
    if (code != ORUSDK_RC_OK) {
        if (!call.steps.empty()) call.steps.emplace_back("no mode switched on");
        return code;
    }
    call.steps.push_back(switchedOn(call));
    return isWpa(call.values[kModePlace].number) ? completeWpa(call) : code;
}

uint32_t switchAllOff(int32_t bss)
{
    if (const uint32_t code = oruSdkSetSecModeOpen(bss, 0); code != ORUSDK_RC_OK) return code;
    if (const uint32_t code = oruSdkSetSecModeWpa(bss, 0, 0, 0); code != ORUSDK_RC_OK) return code;
    return oruSdkSetSecModeWep(bss, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
}

/// Stores the mode that a get gives. Its keys are no part of that: WEP is left to the item that
/// has them.
uint32_t restoreSecurity(const Call &call)
{
    const int64_t mode = call.values[0].number;
    if (mode == kNone) return switchAllOff(bssOf(call));
    if (mode == kWepMode) return ORUSDK_RC_WEP_KEY_MISSING;
    Call set = call;
    set.values[kModePlace] = call.values[0];
    if (isWpa(mode) && !wpaOf(set, kModePlace)[1].given) return ORUSDK_RC_AUTH_TYPE_MISSING;
    return setSecurity(set);
}

std::string conflictOfSecurity(const Call &call)
{
    const int64_t mode = call.values[kModePlace].number;
    const Value &psk = call.values[kPskPlace];
    if (std::string problem = outOfBounds(kSecurity, call.values);
        !problem.empty() && !Wep{call, kWepPlace}.given())
        return problem;
    if (mode != kWepMode && Wep{call, kWepPlace}.given()) return "keys with a number belong to wep";
    if (psk.given && !(isWpa(mode) && wpaOf(call, kModePlace)[1].number == 1))
        return "--psk belongs to WPA with psk";
    return wpaConflict(isWpa(mode), wpaOf(call, kModePlace)[1]);
}

std::string securityReason(uint32_t code, const Call &call)
{
    if (code == ORUSDK_RC_WEP_KEY_MISSING && call.values[0].number == kWepMode)
        return "what a get of security shows has no keys: import the item wep";
    const std::string own = Wep{call, kWepPlace}.reason(code);
    return own.empty() ? wpaReason<kModePlace>(code, call) : own;
}

// ---- what belongs to the modes

constexpr Field kPsk[] = {
    {.name = "",
     .kind = Kind::Secret,
     .bounds = {8, 64},
     .meaning = "64 hexadecimal digits, or a pass-phrase of 8 to 63 characters; needs WPA on"}};

constexpr Word kNoTimeout[] = {{"none", 0}};
constexpr Field kTimeouts[] = {{.name = "session-timeout",
                                .kind = Kind::Number,
                                .bounds = {30, INT32_MAX},
                                .unit = "seconds",
                                .words = kNoTimeout},
                               {.name = "group-key-timeout",
                                .kind = Kind::Number,
                                .bounds = {30, INT32_MAX},
                                .unit = "seconds",
                                .meaning = "between two group keys; any when there is no "
                                           "session-timeout"}};

uint32_t getTimeouts(Call &call)
{
    OruSdkSecTimeoutsParam record{};
    const uint32_t code = oruSdkGetSecTimeouts(&record, static_cast<uint8_t>(call.index));
    if (code != ORUSDK_RC_OK) return code;
    call.values[0] = {.given = true, .number = record.sessionTimeout};
    call.values[1] = {.given = true, .number = record.groupKeyTimeout};
    return code;
}

uint32_t setTimeouts(const Call &call)
{
    const OruSdkSecTimeoutsParam record{.sessionTimeout = signedOf(call.values[0]),
                                        .groupKeyTimeout = signedOf(call.values[1])};
    return oruSdkSetSecTimeouts(&record, static_cast<uint8_t>(call.index));
}

uint32_t getMacAuth(Call &call)
{
    OruSdkMacAuthParam record{.bssIndex = bssOf(call), .radioIndex = 0, .authType = 0};
    const uint32_t code = oruSdkGetMacAuth(&record);
    if (code == ORUSDK_RC_OK) call.values[0] = shown(record.authType);
    return code;
}

uint32_t setMacAuth(const Call &call)
{
    const OruSdkMacAuthParam record{
        .bssIndex = bssOf(call), .radioIndex = 0, .authType = unsignedOf(call.values[0])};
    return oruSdkSetMacAuth(&record);
}

uint32_t setOpen(int32_t bss, uint32_t on)
{
    return oruSdkSetSecModeOpen(bss, on);
}

constexpr std::string_view kBothFiles = "/var/1x.conf /var/wsmDefaults";

constexpr Item kItems[] = {
    {.name = "security",
     .scope = Scope::Bss,
     .index = kBssIndex,
     .fields = kSecurity,
     .get = getSecurity,
     .set = setSecurity,
     .operations = "",
     .keys = "bss%d.openAccessEnabled bss%d.wepEnabled bss%d.wpaEnabled bss%d.BpRSNFlag",
     .files = kBothFiles,
     .summary = "security mode: a set switches the other ones off first, and says what it did",
     .reason = securityReason,
     .conflict = conflictOfSecurity,
     .reads = "dot11Mode",
     .restore = restoreSecurity},
    {.name = "open-access",
     .scope = Scope::Bss,
     .index = kBssIndex,
     .fields = kOnOff,
     .get = getNumber<oruSdkGetSecModeOpen>,
     .set = setNumber<uint32_t, setOpen>,
     .operations = "oruSdkGetSecModeOpen oruSdkSetSecModeOpen",
     .keys = "bss%d.openAccessEnabled bss%d.BpRSNFlag",
     .files = kBothFiles,
     .summary = "open access; needs WEP and WPA off",
     .reason = bssReason,
     .reads = "dot11Mode"},
    {.name = "wpa",
     .scope = Scope::Bss,
     .index = kBssIndex,
     .fields = kWpa,
     .get = getWpa,
     .set = setWpa<kWpaPlace>,
     .operations = "oruSdkGetSecModeWpa oruSdkSetSecModeWpa",
     .keys = "bss%d.wpaEnabled bss%d.mixedIeMode bss%d.wpaAuthTypes bss%d.wpaEncTypes "
             "bss%d.BpRSNFlag bss%d.BpPskFlag bss%d.wpsstate",
     .files = kBothFiles,
     .summary = "WPA; needs open access and WEP off",
     .reason = wpaReason<kWpaPlace>,
     .conflict = conflictOfWpa,
     .reads = "dot11Mode"},
    {.name = "wep",
     .scope = Scope::Bss,
     .index = kBssIndex,
     .fields = kWep,
     .get = getWep,
     .set = setWep,
     .operations = "oruSdkGetSecModeWep oruSdkSetSecModeWep isHex",
     .keys = "bss%d.wepEnabled bss%d.dynamicWepEnabled bss%d.wepKeyLen bss%d.wepDefaultKey "
             "bss%d.wepKey.1",
     .files = kBothFiles,
     .summary = "WEP; needs open access and WPA off",
     .reason = wepReason,
     .conflict = conflictOfWep,
     .reads = "dot11Mode"},
    {.name = "psk",
     .scope = Scope::Bss,
     .index = kBssIndex,
     .fields = kPsk,
     .get = getText<oruSdkGetWpaPsk, 65>,
     .set = setText<oruSdkSetWpaPsk>,
     .operations = "oruSdkGetWpaPsk oruSdkSetWpaPsk",
     .keys = "bss%d.wpaPsk",
     .files = kSecurityFile,
     .summary = "pre-shared key or pass-phrase of WPA",
     .reason = bssReason},
    {.name = "timeouts",
     .scope = Scope::Bss,
     .index = {0, UINT8_MAX},
     .fields = kTimeouts,
     .get = getTimeouts,
     .set = setTimeouts,
     .operations = "oruSdkGetSecTimeouts oruSdkSetSecTimeouts",
     .keys = "bss%d.sessionTimeout bss%d.groupKeyTimeout",
     .files = kSecurityFile,
     .summary = "security timeouts"},
    {.name = "mac-auth",
     .scope = Scope::Bss,
     .index = kBssIndex,
     .fields = kNumber<0, 2>,
     .get = getMacAuth,
     .set = setMacAuth,
     .operations = "oruSdkGetMacAuth oruSdkSetMacAuth",
     .keys = "bss%d.macAuthType",
     .files = kSecurityFile,
     .summary = "authentication type of static WEP at the MAC layer"},
};

} // namespace

std::span<const Item> securityItems()
{
    return kItems;
}

} // namespace oructl
