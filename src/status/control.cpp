// What acts at once: a radio's administrative status, and the disassociation of a station.
#include "core/log.hpp"
#include "core/messages.hpp"
#include "core/store.hpp"
#include "oruSdk.h"

namespace oru {
namespace {

/// Chosen, not formed: an index that is refused later reads as radio 1's.
const char *adminKey(const OruSdkFeatureParam *param)
{
    return param == nullptr || param->radioIndex == 0 ? "radio0.adminStatus" : "radio1.adminStatus";
}

uint32_t takeDisassociation(const Element *element)
{
    if (element != nullptr && element->id() == 7 && element->length() == kMacSize) {
        char mac[18];
        logError("macAddr %s\n", oruAsfHexStr(element->value(), kMacSize, mac, sizeof mac));
        return ORUSDK_RC_OK;
    }
    if (element != nullptr && element->id() == 10 && element->length() == 4) {
        // WSM's verdict changes nothing here: intended.
        logError("Result Code %ld\n", static_cast<long>(static_cast<int32_t>(element->number())));
        return ORUSDK_RC_OK;
    }
    return fail(ORUSDK_RC_WSM_REQUEST, "Default\n");
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkGetAdminStatus(OruSdkFeatureParam *param)
{
    return sdkGetRadioFeature(param, adminKey(param));
}

uint32_t oruSdkSetAdminStatus(OruSdkFeatureParam *param)
{
    if (const uint32_t code = sdkSetRadioFeature(param, adminKey(param)); code != 0) return code;
    // The stored value stays when WSM can't be told: intended.
    if (sdkWsmTransaction(param->radioIndex, param->activationFlag) != 0)
        return fail(ORUSDK_RC_WSM_REQUEST, "Failed to send admin state request to WSM");
    return ORUSDK_RC_OK;
}

uint32_t sendDisAssocReq(const uint8_t *macAddr)
{
    constexpr uint16_t kMessage = 262;
    constexpr uint32_t kStationElement = 0x000C0007;
    if (macAddr == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");

    Request request;
    request.number32(kReplyRoom).elementMac(kStationElement, macAddr);
    Reply<kShortReply> reply;
    if (const uint32_t code = askWsm(request.finish(kMessage), reply, kElementsStart); code != 0)
        return code;
    if (reply.size == 0) return ORUSDK_RC_OK;

    char dump[3 * kShortReply];
    logError(":Recv: (%d) %s\n", reply.size,
             oruAsfHexStr(reply.bytes, reply.size, dump, sizeof dump));
    oruAsfNtohHdr(reply.bytes);
    oruAsfGet32(reply.bytes + kHeaderSize); // of no use here
    return forEachElement(reply, kElementsStart, takeDisassociation);
}

} // extern "C"
