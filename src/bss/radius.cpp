// RADIUS servers: up to three, and how often each is tried. One list for the whole access point.
#include "core/dict.hpp"
#include "core/key.hpp"
#include "core/log.hpp"
#include "core/store.hpp"
#include "oruSdk.h"

#include <cstring>

namespace oru {
namespace {

constexpr int32_t kServers = 3;
constexpr int32_t kTotalSeconds = 20;
constexpr size_t kLongestName = 63; // one below the room, where a getter still gives 64: intended
constexpr size_t kLongestSecret = 65;
constexpr uint32_t kNoDeadTime = 0xdeadbeef; // what callers know "not supported" by

/// timeout x maxTries in 32 bits, wrapping: intended.
int32_t totalSeconds(int32_t timeout, int32_t maxTries)
{
    return static_cast<int32_t>(static_cast<uint32_t>(timeout) * static_cast<uint32_t>(maxTries));
}

/// Characters of a text in a field of the record; the whole room when nothing ends it.
template <size_t Room>
size_t lengthOf(const char (&field)[Room])
{
    return ::strnlen(field, Room);
}

uint32_t writeServer(OruAsfDict *dict, int32_t number, const OruSdkRadiusServer &server)
{
    const size_t nameLength = lengthOf(server.name);
    if (nameLength > kLongestName)
        return fail(ORUSDK_RC_RADIUS_NAME_LENGTH, "Invalid length %d for RADIUS server name",
                    static_cast<int32_t>(nameLength));
    if (setString(dict, Key{"radiusServer.%d", number}, server.name) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write radiusServer.%d to dictionary", number);
    if (setString(dict, Key{"radiusPort.%d", number}, Number{server.port}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write radiusPort.%d to dictionary", number);
    const size_t secretLength = lengthOf(server.secret);
    if (secretLength < 1 || secretLength > kLongestSecret)
        return fail(ORUSDK_RC_RADIUS_SECRET_LENGTH, "Invalid length %d for RADIUS server secret",
                    static_cast<int32_t>(secretLength));
    if (setString(dict, Key{"radiusSecret.%d", number}, server.secret) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write radiusSecret.%d to dictionary", number);
    return ORUSDK_RC_OK;
}

/// Copies a stored text into a field of the record, cut to its room; an absent one leaves the
/// field.
template <size_t Room>
void readText(OruAsfDict *dict, Key key, char (&field)[Room])
{
    const char *text = nullptr;
    if (getString(dict, key, &text, 0) != 0 || text == nullptr) return;
    std::strncpy(field, text, Room - 1);
    field[Room - 1] = '\0';
}

/// What the file lacks is left as it was, without a log line: entries need not be complete.
void readServer(OruAsfDict *dict, int32_t number, OruSdkRadiusServer &server)
{
    readText(dict, Key{"radiusServer.%d", number}, server.name);
    int32_t port = 0;
    if (getInt(dict, Key{"radiusPort.%d", number}, &port, 0) == 0)
        server.port = static_cast<uint32_t>(port);
    readText(dict, Key{"radiusSecret.%d", number}, server.secret);
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkSetRadiusConf(int32_t timeout, int32_t maxTries, int32_t /*deadTime*/,
                             int32_t numServers, const OruSdkRadiusServer *servers)
{
    if (timeout < 0) return fail(ORUSDK_RC_RADIUS_TIMEOUT, "Invalid timeout value: %d", timeout);
    if (totalSeconds(timeout, maxTries) >= kTotalSeconds) // a negative count passes: intended
        return fail(ORUSDK_RC_RADIUS_TOTAL_TIME, "timeout x maxTries must be less than %d secs",
                    kTotalSeconds);
    if (numServers < 1 || numServers > kServers)
        return fail(ORUSDK_RC_RADIUS_SERVER_COUNT, "Invalid numservers value: %d", numServers);
    if (servers == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");

    const Dict dict{kSecurityFile};
    if (!dict)
        return fail(ORUSDK_RC_FILE_READ, "Unable to read AA Defaults file %s", kSecurityFile);
    if (setString(dict, "radiusTimeout", Number{timeout}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write radiusTimeout to dictionary");
    if (setString(dict, "radiusMaxTries", Number{maxTries}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write radiusMaxTries to dictionary");
    if (setString(dict, "numRadiusServers", Number{numServers}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write numRadiusServers to dictionary");
    // Entries of an earlier, longer list stay: intended.
    for (int32_t number = 1; number <= numServers; ++number)
        if (const uint32_t code = writeServer(dict, number, servers[number - 1]); code != 0)
            return code;
    return saveSecurityFile(dict);
}

uint32_t oruSdkGetRadiusConf(uint32_t *timeout, uint32_t *maxTries, uint32_t *deadTime,
                             uint32_t *numServers, OruSdkRadiusServer *servers)
{
    if (timeout == nullptr || maxTries == nullptr || deadTime == nullptr || numServers == nullptr)
        return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (servers == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");

    const Dict dict{kSecurityFile};
    if (!dict)
        return fail(ORUSDK_RC_FILE_READ, "Unable to read AA Defaults file %s", kSecurityFile);
    int32_t value = 0;
    if (getInt(dict, "radiusTimeout", &value, 0) != 0) {
        logError("Unable to read radiusTimeout from dictionary");
        return fail(ORUSDK_RC_NO_RADIUS_SERVER, "Radius server not yet configured\n");
    }
    *timeout = static_cast<uint32_t>(value);
    if (getInt(dict, "radiusMaxTries", &value, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read radiusMaxTries from dictionary");
    *maxTries = static_cast<uint32_t>(value);
    *deadTime = kNoDeadTime;
    if (getInt(dict, "numRadiusServers", &value, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read numRadiusServers from dictionary");
    *numServers = static_cast<uint32_t>(value);
    // All three, whatever the count: intended.
    for (int32_t number = 1; number <= kServers; ++number)
        readServer(dict, number, servers[number - 1]);
    return ORUSDK_RC_OK;
}

} // extern "C"
