// VLANs of an Ethernet port: its own one, which the driver learns at once, and those it belongs to.
#include "core/dict.hpp"
#include "core/key.hpp"
#include "core/log.hpp"
#include "core/store.hpp"
#include "oruSdk.h"

#include <errno.h>
#include <net/if.h>
#include <stdlib.h>
#include <string.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace oru {
namespace {

constexpr int32_t kSlots = 15;

// Places in the command line of the caller.
constexpr int32_t kPortArgument = 3;
constexpr int32_t kPortVlanArgument = 4;
constexpr int32_t kFirstSlotArgument = 5;

/// The number that a text begins with, 0 when there is none. One beyond 32 bits gives the nearest.
int32_t leadingNumber(const char *text)
{
    const long long number = strtoll(text, nullptr, 10);
    if (number > INT32_MAX) return INT32_MAX;
    if (number < INT32_MIN) return INT32_MIN;
    return static_cast<int32_t>(number);
}

bool hasEveryArgument(int32_t argc, char **argv)
{
    if (argv == nullptr || argc < kFirstSlotArgument) return false;
    for (int32_t i = kPortArgument; i < argc; ++i)
        if (argv[i] == nullptr) return false;
    return true;
}

/// Tells the Ethernet driver the port's VLAN. What fails is logged and changes nothing: intended.
void pushToDriver(int32_t ethNumber, int32_t portVlan)
{
    struct {
        uint32_t command; // its meaning is the driver's
        uint32_t portVlan;
    } record{1, static_cast<uint32_t>(portVlan)};

    ifreq request{};
    static_assert(sizeof "eth-2147483648" <= sizeof request.ifr_name);
    memcpy(request.ifr_name, "eth", 3);
    writeDecimal(request.ifr_name + 3, ethNumber);
    request.ifr_data = reinterpret_cast<char *>(&record);

    const int descriptor = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (descriptor < 0 || ioctl(descriptor, SIOCDEVPRIVATE, &request) < 0) {
        const int error = errno;
        logError("Ioctl failed for %s errno %d", request.ifr_name, error);
    }
    if (descriptor >= 0) close(descriptor);
}

uint32_t writeSlot(OruAsfDict *dict, int32_t ethNumber, int32_t slot, const char *vlan)
{
    const Key key{"eth%d.vid%d", ethNumber, slot};
    if (setString(dict, key, vlan) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write %s to dictionary", key);
    return ORUSDK_RC_OK;
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkSetEtherVlanId(int32_t argc, char **argv)
{
    if (!hasEveryArgument(argc, argv)) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    const int32_t ethNumber = leadingNumber(argv[kPortArgument]);
    const int32_t portVlan = leadingNumber(argv[kPortVlanArgument]);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    const Key key{"eth%d.pvid", ethNumber};
    if (setString(dict, key, Number{portVlan}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write %s to dictionary", key);
    pushToDriver(ethNumber, portVlan);

    for (int32_t slot = 0; slot < kSlots; ++slot)
        if (const uint32_t code = writeSlot(dict, ethNumber, slot, "0"); code != 0) return code;
    // More arguments than slots make keys beyond the last slot: intended.
    for (int32_t i = kFirstSlotArgument; i < argc; ++i)
        if (const uint32_t code = writeSlot(dict, ethNumber, i - kFirstSlotArgument, argv[i]);
            code != 0)
            return code;
    return saveRadioFile(dict);
}

uint32_t oruSdkGetEtherVlanId(uint16_t *vlanIds, uint32_t *count, uint32_t *pvid, int32_t ethNumber)
{
    if (vlanIds == nullptr || count == nullptr || pvid == nullptr)
        return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    const Key portKey{"eth%d.pvid", ethNumber};
    int32_t value = 0;
    if (getInt(dict, portKey, &value, 0) != 0)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read %s from config file %s", portKey,
                    kRadioFile);
    *pvid = static_cast<uint32_t>(value);

    uint32_t used = 0;
    for (int32_t slot = 0; slot < kSlots; ++slot) {
        const Key key{"eth%d.vid%d", ethNumber, slot};
        value = 0;
        if (getInt(dict, key, &value, 0) != 0)
            return fail(ORUSDK_RC_KEY_READ, "Unable to read %s from config file %s", key,
                        kRadioFile);
        if (value != 0) vlanIds[used++] = static_cast<uint16_t>(value);
    }
    *count = used;
    return ORUSDK_RC_OK;
}

} // extern "C"
