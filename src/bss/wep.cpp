// The security mode WEP of a BSS, with four static keys or with keys from 802.1X (dynamic WEP).
#include "core/dict.hpp"
#include "core/key.hpp"
#include "core/log.hpp"
#include "core/store.hpp"
#include "oruSdk.h"

#include <string.h>

namespace oru {
namespace {

constexpr int32_t kOnly11n = 9; // "dot11Mode"
constexpr int32_t kKeys = 4;
constexpr size_t kLongestKey = 26; // digits

struct Wep {
    int32_t keyLength;
    uint32_t defaultKeyId;
    const char *keys[kKeys];

    [[nodiscard]] bool dynamic() const
    {
        return keys[0] == nullptr && keys[1] == nullptr && keys[2] == nullptr && keys[3] == nullptr;
    }
};

uint32_t switchWepOff(int32_t bss)
{
    const Dict aa{kSecurityFile};
    if (!aa) return fail(ORUSDK_RC_FILE_READ, "Unable to read AA Defaults file %s", kSecurityFile);
    if (setString(aa, Key{"bss%d.wepEnabled", bss}, "false") != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write wepEnabled to dictionary");
    if (setString(aa, Key{"bss%d.dynamicWepEnabled", bss}, "false") != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write dynamicWepEnabled to dictionary");
    return saveSecurityFile(aa);
}

/// The lines hold the keys themselves: intended.
uint32_t checkKeys(const Wep &wep)
{
    if (wep.keyLength != 5 && wep.keyLength != 13)
        return fail(ORUSDK_RC_WEP_KEY_LENGTH, "Invalid wepKeyLen %d", wep.keyLength);
    if (wep.defaultKeyId - 1 > 3)
        return fail(ORUSDK_RC_WEP_KEY_ID, "Invalid defaultKeyId %d", wep.defaultKeyId);
    if (wep.dynamic()) return ORUSDK_RC_OK;
    if (wep.keys[wep.defaultKeyId - 1] == nullptr)
        return fail(ORUSDK_RC_WEP_KEY_MISSING, "NULL default key");

    for (int32_t number = 1; number <= kKeys; ++number) {
        const char *key = wep.keys[number - 1];
        if (key == nullptr) continue;
        const size_t length = strlen(key);
        if (length != static_cast<size_t>(wep.keyLength) * 2) {
            logError("Invalid number of characters %d in wep key %s", static_cast<int32_t>(length),
                     key);
            return fail(ORUSDK_RC_WEP_KEY_TEXT_LENGTH, "Invalid WEP key[%d] %s", number, key);
        }
        if (isHex(key) != 1)
            return fail(ORUSDK_RC_WEP_KEY_HEX, "Invalid WEP key[%d] %s", number, key);
    }
    return ORUSDK_RC_OK;
}

uint32_t checkOtherModes(OruAsfDict *aa, int32_t bss)
{
    int32_t value = 0;
    if (getBool(aa, Key{"bss%d.openAccessEnabled", bss}, &value, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read openAccessEnabled dictionary");
    if (value != 0) return fail(ORUSDK_RC_OPEN_ENABLED, "OPEN must not be enabled");
    if (getBool(aa, Key{"bss%d.wpaEnabled", bss}, &value, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read wpaEnabled dictionary");
    if (value != 0) return fail(ORUSDK_RC_WPA_ENABLED, "WPA must not be enabled");
    return ORUSDK_RC_OK;
}

/// Key length and default key are written for dynamic WEP, too.
uint32_t writeMode(OruAsfDict *aa, int32_t bss, const Wep &wep)
{
    if (setString(aa, Key{"bss%d.wepEnabled", bss}, "true") != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write wepEnabled to dictionary");
    if (setString(aa, Key{"bss%d.dynamicWepEnabled", bss}, wep.dynamic() ? "true" : "false") != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write dynamicWepEnabled to dictionary");
    if (setString(aa, Key{"bss%d.wepKeyLen", bss}, Number{wep.keyLength}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write wepKeyLen to dictionary");
    if (setString(aa, Key{"bss%d.wepDefaultKey", bss}, Number{wep.defaultKeyId}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write wepDefaultKey to dictionary");
    return ORUSDK_RC_OK;
}

/// The stored form of a key that was checked: pairs of digits, joined by colons.
class JoinedKey {
public:
    explicit JoinedKey(const char *digits)
    {
        char *at = text_;
        for (; digits[0] != '\0' && at < text_ + sizeof text_; digits += 2) {
            *at++ = digits[0];
            *at++ = digits[1];
            *at++ = ':';
        }
        at[-1] = '\0';
    }
    operator const char *() const { return text_; }

private:
    char text_[kLongestKey / 2 * 3];
};

uint32_t writeKeys(OruAsfDict *aa, int32_t bss, const Wep &wep)
{
    for (int32_t number = 1; number <= kKeys; ++number) {
        const Key name{"bss%d.wepKey.%d", bss, number};
        const char *key = wep.keys[number - 1];
        if (key == nullptr) {
            if (setString(aa, name, nullptr) != 0)
                logInfo("Unable to delete wepkeyArr[i] from dictionary");
        } else if (setString(aa, name, JoinedKey{key}) != 0) {
            return fail(ORUSDK_RC_DICT_WRITE, "Unable to write wepkeyArr[i] to dictionary");
        }
    }
    return ORUSDK_RC_OK;
}

/// The first two characters of each piece between colons, as many as the caller has room for.
void splitKey(const char *stored, char *digits)
{
    const char *end = digits + kLongestKey;
    int32_t inPiece = 0;
    for (; stored != nullptr && *stored != '\0' && digits < end; ++stored) {
        if (*stored == ':') inPiece = 0;
        else if (inPiece++ < 2) *digits++ = *stored;
    }
    *digits = '\0';
}

uint32_t readKeys(OruAsfDict *aa, int32_t bss, char *const (&keys)[kKeys])
{
    for (int32_t number = 1; number <= kKeys; ++number) {
        char *key = keys[number - 1];
        if (key == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
        const char *stored = nullptr; // a key that can't be read is an empty one
        getString(aa, Key{"bss%d.wepKey.%d", bss, number}, &stored, 0);
        splitKey(stored, key);
    }
    return ORUSDK_RC_OK;
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkSetSecModeWep(int32_t bssIndex, uint32_t enable, int32_t keyLength,
                             uint32_t defaultKeyId, const char *key1, const char *key2,
                             const char *key3, const char *key4)
{
    if (enable > 1) return fail(ORUSDK_RC_BOOLEAN, "Invalid BOOLEAN value %d", enable);
    // A negative number passes and forms its keys with the sign: intended.
    if (bssIndex > 3) return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bssIndex);
    if (enable == 0) return switchWepOff(bssIndex);

    Dict wsm{kRadioFile};
    if (!wsm) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    int32_t dot11Mode = 0;
    if (getInt(wsm, "dot11Mode", &dot11Mode, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read dot11Mode from config file");
    if (dot11Mode == kOnly11n) {
        wsm.keepOpen();                 // intended
        return ORUSDK_RC_SECURITY_MODE; // without a line: intended
    }
    // The keys come before the other modes: a bad key is reported even when WPA is on.
    const Wep wep{keyLength, defaultKeyId, {key1, key2, key3, key4}};
    if (const uint32_t code = checkKeys(wep); code != 0) return code;
    const Dict aa{kSecurityFile};
    if (!aa) return fail(ORUSDK_RC_FILE_READ, "Unable to read AA Defaults file %s", kSecurityFile);
    if (const uint32_t code = checkOtherModes(aa, bssIndex); code != 0) return code;

    if (const uint32_t code = writeMode(aa, bssIndex, wep); code != 0) return code;
    // The radio side is saved before the keys are written: intended.
    if (setString(wsm, Key{"bss%d.BpRSNFlag", bssIndex}, "0") != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write BpRSNFlag to dictionary");
    if (const uint32_t code = saveRadioFile(wsm); code != 0) return code;
    if (const uint32_t code = writeKeys(aa, bssIndex, wep); code != 0) return code;
    return saveSecurityFile(aa);
}

uint32_t oruSdkGetSecModeWep(int32_t bssIndex, uint32_t *enabled, uint32_t *keyLength,
                             uint32_t *defaultKeyId, char *key1, char *key2, char *key3, char *key4)
{
    // A negative number passes: intended.
    if (bssIndex > 3) return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bssIndex);
    const Dict aa{kSecurityFile};
    if (!aa) return fail(ORUSDK_RC_FILE_READ, "Unable to read AA Defaults file %s", kSecurityFile);
    // Each result is looked at when its turn comes; while WEP is off, most may be NULL.
    int32_t value = 0;
    if (getBool(aa, Key{"bss%d.wepEnabled", bssIndex}, &value, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read wepEnabled dictionary");
    if (enabled == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    *enabled = static_cast<uint32_t>(value);
    if (value != 1) return ORUSDK_RC_OK;

    value = 0;
    if (keyLength == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (getInt(aa, Key{"bss%d.wepKeyLen", bssIndex}, &value, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read wepKeyLen dictionary");
    *keyLength = static_cast<uint32_t>(value);
    value = 0;
    if (defaultKeyId == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (getInt(aa, Key{"bss%d.wepDefaultKey", bssIndex}, &value, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read wepDefaultKey dictionary");
    *defaultKeyId = static_cast<uint32_t>(value);
    return readKeys(aa, bssIndex, {key1, key2, key3, key4});
}

} // extern "C"
