// WPS settings of a BSS that are texts: the UUID and the interface name.
#include "core/dict.hpp"
#include "core/key.hpp"
#include "core/log.hpp"
#include "core/store.hpp"
#include "oruSdk.h"

#include <cstring>

namespace oru {
namespace {

constexpr int32_t kLastBss =
    3; // a negative number passes and forms its key with the sign: intended
constexpr size_t kUuid = 32;
constexpr size_t kInterface = 9;

/// Reads a text and gives its length, negative when it is missing.
int32_t readText(OruAsfDict *dict, Key key, const char *&text)
{
    text = nullptr;
    const int32_t length = getDelimitedString(dict, key, &text, 0);
    return text == nullptr ? -1 : length;
}

/// Gives a text of known length to the caller.
void giveText(const char *text, int32_t length, char *to, uint32_t *toLength)
{
    std::memcpy(to, text, static_cast<size_t>(length));
    to[length] = '\0';
    *toLength = static_cast<uint32_t>(length);
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkGetUuid(int32_t bssIndex, char *uuid, uint32_t *length)
{
    if (uuid == nullptr || length == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (bssIndex > kLastBss)
        return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bssIndex);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    const char *text = nullptr;
    const int32_t textLength = readText(dict, Key{"bss%d.uuid", bssIndex}, text);
    if (textLength < 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read uuid from config file %s", kRadioFile);
    if (textLength > static_cast<int32_t>(kUuid))
        return fail(ORUSDK_RC_LENGTH, "Invalid UUID length: %d", textLength);
    giveText(text, textLength, uuid, length);
    return ORUSDK_RC_OK;
}

uint32_t oruSdkSetUuid(int32_t bssIndex, const char *uuid)
{
    if (uuid == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (bssIndex > kLastBss)
        return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bssIndex);
    if (::strnlen(uuid, kUuid + 1) != kUuid || isHex(uuid) == 0)
        return fail(ORUSDK_RC_UUID, "Invalid UUID setting");
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    if (setDelimitedString(dict, Key{"bss%d.uuid", bssIndex}, uuid) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write uuid to dictionary");
    return saveRadioFile(dict);
}

uint32_t oruSdkGetWpsIntf(int32_t bssIndex, char *interface, uint32_t *length)
{
    if (interface == nullptr || length == nullptr)
        return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (bssIndex > kLastBss)
        return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bssIndex);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    const char *text = nullptr;
    const int32_t textLength = readText(dict, Key{"bss%d.wpsintf", bssIndex}, text);
    if (textLength < 0)
        return fail(ORUSDK_RC_NOT_SET, "Unable to read wpsintf from config file %s", kRadioFile);
    if (textLength > static_cast<int32_t>(kInterface))
        return fail(ORUSDK_RC_ERROR, "Invalid wps interface length: %d\n", textLength);
    giveText(text, textLength, interface, length);
    return ORUSDK_RC_OK;
}

uint32_t oruSdkSetWpsIntf(int32_t bssIndex, const char *interface)
{
    if (bssIndex > kLastBss)
        return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bssIndex);
    if (interface == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    char name[kInterface + 1];
    std::strncpy(name, interface, kInterface);
    name[kInterface] = '\0';
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    if (setDelimitedString(dict, Key{"bss%d.wpsintf", bssIndex}, name) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write wpsintf to dictionary");
    return saveRadioFile(dict);
}

} // extern "C"
