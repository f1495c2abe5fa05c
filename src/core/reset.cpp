// Reset: everything to its factory values, or one BSS.
#include "core/dict.hpp"
#include "core/key.hpp"
#include "core/log.hpp"
#include "core/store.hpp"
#include "oruSdk.h"

#include <cerrno>
#include <cstdlib>

namespace oru {
namespace {

constexpr uint32_t kSsidLength = 32;

/// The factory dictionary of a file and the current one.
struct Files {
    Dict factory;
    Dict current;
};

bool writeInt(const Files &files, Key key, int32_t value)
{
    return setString(files.current, key, Number{value}) == 0;
}

bool writeBool(const Files &files, Key key, int32_t value)
{
    return setString(files.current, key, value != 0 ? "true" : "false") == 0;
}

uint32_t copySsid(const Files &wsm, int32_t bss)
{
    const Key key{"bss%d.ssId", bss};
    const char *ssid = nullptr;
    const int32_t length = getDelimitedString(wsm.factory, key, &ssid, 0);
    if (length < 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read ssid from config file %s", kRadioFile);
    if (length > static_cast<int32_t>(kSsidLength))
        return fail(ORUSDK_RC_SSID_LENGTH, "Invalid SSID length: %d", length);
    if (setDelimitedString(wsm.current, key, ssid) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write ssId to dictionary");
    return ORUSDK_RC_OK;
}

uint32_t copyWpa(const Files &aa, int32_t bss)
{
    int32_t value = 0;
    const Key open{"bss%d.openAccessEnabled", bss};
    if (getBool(aa.factory, open, &value, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read openAccessEnabled from dictionary");
    if (!writeBool(aa, open, value))
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write openAccessEnabled to dictionary");

    const Key wpa{"bss%d.wpaEnabled", bss};
    if (getBool(aa.factory, wpa, &value, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read wpaEnabled from dictionary");
    if (!writeBool(aa, wpa, value))
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write wpaEnabled to dictionary");

    const Key mixedIe{"bss%d.mixedIeMode", bss};
    if (getInt(aa.factory, mixedIe, &value, 1) != 0) {
        logWarning("Unable to read mixedIeMode from dictionary, using 1");
        value = 1;
    }
    if (!writeInt(aa, mixedIe, value))
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write mixedIeMode to dictionary");

    const Key auth{"bss%d.wpaAuthTypes", bss};
    if (getInt(aa.factory, auth, &value, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read wpaAuthTypes from config file %s",
                    kSecurityFile);
    if (!writeInt(aa, auth, value))
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write wpaAuthTypes to dictionary");

    const Key encryption{"bss%d.wpaEncTypes", bss};
    if (getInt(aa.factory, encryption, &value, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read wpaEncTypes from config file %s",
                    kSecurityFile);
    if (!writeInt(aa, encryption, value))
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write wpaEncTypes to dictionary");
    return ORUSDK_RC_OK;
}

uint32_t copySuppressSsid(const Files &wsm, int32_t bss)
{
    const Key key{"bss%d.suppressSSIDFlag", bss};
    int32_t value = 0;
    if (getInt(wsm.factory, key, &value, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read %s from config file %s", key, kRadioFile);
    if (!writeInt(wsm, key, value))
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write suppressSSIDFlag to dictionary");
    return ORUSDK_RC_OK;
}

uint32_t copyWep(const Files &aa, int32_t bss)
{
    int32_t value = 0;
    const Key macAuth{"bss%d.macAuthType", bss};
    if (getInt(aa.factory, macAuth, &value, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read macAuthType from config file %s",
                    kSecurityFile);
    if (!writeInt(aa, macAuth, value))
        return fail(ORUSDK_RC_DICT_WRITE,
                    "Unable to write radio%d MAC static WEP auth type to dictionary", bss);

    const Key wep{"bss%d.wepEnabled", bss};
    if (getBool(aa.factory, wep, &value, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read wepEnabled dictionary");
    if (!writeBool(aa, wep, value))
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write wepEnabled to dictionary");

    const Key keyLength{"bss%d.wepKeyLen", bss};
    if (getInt(aa.factory, keyLength, &value, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read wepKeyLen dictionary");
    if (!writeInt(aa, keyLength, value))
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write wepKeyLen to dictionary");

    const Key defaultKey{"bss%d.wepDefaultKey", bss};
    if (getInt(aa.factory, defaultKey, &value, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read wepDefaultKey dictionary");
    if (!writeInt(aa, defaultKey, value))
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write wepDefaultKey to dictionary");

    const Key dynamicWep{"bss%d.dynamicWepEnabled", bss};
    if (getBool(aa.factory, dynamicWep, &value, 0) != 0) {
        // Announces a fallback, yet the reset stops: intended.
        logWarning("Unable to read dynamicWepEnabled from dictionary, set to 0");
        return ORUSDK_RC_DICT_READ;
    }
    if (!writeBool(aa, dynamicWep, value))
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write dynamicWepEnabled to dictionary");
    return ORUSDK_RC_OK;
}

uint32_t copyRadioFlags(const Files &wsm, int32_t bss)
{
    int32_t value = 0;
    const Key rsn{"bss%d.BpRSNFlag", bss};
    if (getInt(wsm.factory, rsn, &value, 0) != 0) // names another key: intended
        return fail(ORUSDK_RC_DICT_READ, "Unable to read wepDefaultKey dictionary");
    if (!writeInt(wsm, rsn, value))
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write BpRSNFlag to dictionary");

    const Key enforcePin{"bss%d.enforcepintimeout", bss};
    if (getInt(wsm.factory, enforcePin, &value, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read enforcepintimeout dictionary");
    if (!writeInt(wsm, enforcePin, value))
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write enforcepintimeout to dictionary");
    return ORUSDK_RC_OK;
}

/// A key that the factory file lacks is deleted from the current one.
uint32_t copyWepKeys(const Files &aa, int32_t bss)
{
    for (int32_t number = 1; number <= 4; ++number) {
        const Key key{"bss%d.wepKey.%d", bss, number};
        const char *value = nullptr;
        getString(aa.factory, key, &value, 0);
        if (setString(aa.current, key, value) != 0) // which one, the text doesn't say: intended
            return fail(ORUSDK_RC_DICT_WRITE, "Unable to write wepkeyArr[cnt] to dictionary");
    }
    return ORUSDK_RC_OK;
}

uint32_t copyVlan(const Files &wsm, int32_t bss)
{
    const Key key{"bss%d.wvid", bss};
    int32_t value = 0;
    if (getInt(wsm.factory, key, &value, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read %s from config file %s", key, kRadioFile);
    if (!writeInt(wsm, key, value))
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write %s to dictionary", key);
    return ORUSDK_RC_OK;
}

uint32_t copyBss(const Files &aa, const Files &wsm, int32_t bss)
{
    if (const uint32_t code = copySsid(wsm, bss); code != 0) return code;
    if (const uint32_t code = copyWpa(aa, bss); code != 0) return code;
    if (const uint32_t code = copySuppressSsid(wsm, bss); code != 0) return code;
    if (const uint32_t code = copyWep(aa, bss); code != 0) return code;
    if (const uint32_t code = copyRadioFlags(wsm, bss); code != 0) return code;
    if (const uint32_t code = copyWepKeys(aa, bss); code != 0) return code;
    return copyVlan(wsm, bss);
}

/// Runs one of two shell commands: below ORU_ROOT the folder reaches the shell through the
/// environment, never as text of the command.
int run(const char *command, const char *commandBelowRoot)
{
    const char *root = ::secure_getenv("ORU_ROOT");
    errno = 0;
    return std::system(root == nullptr || root[0] == '\0' ? command : commandBelowRoot);
}

/// Whether a file was copied by a command with this status. A program that ignores its children, or
/// takes all of them, leaves no status to be had: what the command did or did not do is done again.
bool isCopied(int status, const char *factory, const char *current)
{
    if (status != -1 || errno != ECHILD) return status == 0;
    const Dict dict{factory};
    return dict && oruAsfDictSave(dict, current) == 0;
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkResetToDefaults()
{
    const int radio = run("cp /var/wsmDefaults.orig /var/wsmDefaults",
                          R"(cp -- "$ORU_ROOT/var/wsmDefaults.orig" "$ORU_ROOT/var/wsmDefaults")");
    if (!isCopied(radio, kRadioFactoryFile, kRadioFile))
        return fail(ORUSDK_RC_FILE_COPY, "Failed to copy configuration file %s", kRadioFile);
    const int security = run("cp /var/1x.conf.orig /var/1x.conf",
                             R"(cp -- "$ORU_ROOT/var/1x.conf.orig" "$ORU_ROOT/var/1x.conf")");
    if (!isCopied(security, kSecurityFactoryFile, kSecurityFile))
        return fail(ORUSDK_RC_FILE_COPY, "Failed to copy configuration file %s", kSecurityFile);
    return ORUSDK_RC_OK;
}

uint32_t oruSdkResetToBss(int32_t bssIndex)
{
    // A negative number passes and forms its keys with the sign: intended.
    if (bssIndex > 3) return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bssIndex);

    Files aa;
    Files wsm;
    aa.factory = Dict{kSecurityFactoryFile};
    if (!aa.factory) // this text and the third name the current file: intended
        return fail(ORUSDK_RC_FILE_READ, "Unable to read AA Original Defaults file %s",
                    kSecurityFile);
    aa.current = Dict{kSecurityFile};
    if (!aa.current)
        return fail(ORUSDK_RC_FILE_READ, "Unable to read AA Defaults file %s", kSecurityFile);
    wsm.factory = Dict{kRadioFactoryFile};
    if (!wsm.factory)
        return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Original Default file %s", kRadioFile);
    wsm.current = Dict{kRadioFile};
    if (!wsm.current)
        return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Default file %s", kRadioFile);

    if (const uint32_t code = copyBss(aa, wsm, bssIndex); code != 0) return code;
    if (const uint32_t code = saveRadioFile(wsm.current); code != 0) return code;
    // The radio side stays restored when this save fails: intended.
    return saveSecurityFile(aa.current);
}

} // extern "C"
