// WPS enrollment and its status.
#include "core/dict.hpp"
#include "core/key.hpp"
#include "core/log.hpp"
#include "core/messages.hpp"
#include "core/store.hpp"
#include "oruSdk.h"

#include <cstring>

namespace oru {
namespace {

long asLong(uint32_t value)
{
    return static_cast<int32_t>(value);
}

/// Appends what a method asks for. A method that is not known is refused without a line: intended.
uint32_t addMethod(Request &request, uint32_t method, const char *pin)
{
    constexpr uint32_t kPinElement = 0x0008000B;
    constexpr uint32_t kPushButtonElement = 0x0002000C;
    constexpr uint32_t kEnrolleeElement = 0x0002000D;
    const size_t length = ::strnlen(pin, Request::kLongestText + 1);
    switch (method) {
    case 0:
        if (length > Request::kLongestText) return fail(ORUSDK_RC_WSM_REQUEST, "IPC Send failed");
        request.elementText(kPinElement, pin, static_cast<uint32_t>(length));
        return ORUSDK_RC_OK;
    case 1: request.element16(kPushButtonElement, 1); return ORUSDK_RC_OK;
    case 2: request.element16(kEnrolleeElement, 1); return ORUSDK_RC_OK;
    default: return ORUSDK_RC_WSM_REQUEST;
    }
}

/// A result is only logged: the caller learns it from the status.
void logResult(uint32_t result)
{
    logError("Result Code is %ld\n", asLong(result));
    if (result == 0) logError("Result Code is SUCCESS \n");
    if (result == 200) logError("Result code is FAIL, reason Key lenght too long \n");
    if (result == 201) logError("Result code is FAIL, invalid checksum\n");
}

uint32_t takeEnrollment(const Element *element)
{
    if (element == nullptr) return fail(ORUSDK_RC_PARAMETERS, "ttlv is NULL \n");
    switch (element->id()) {
    case 10:
        if (element->length() != 4) break;
        return logResult(element->number()), ORUSDK_RC_OK;
    case 11: return logError("wsc method is PIN method \n"), ORUSDK_RC_OK;
    case 12: return logError("wsc method is PBC \n"), ORUSDK_RC_OK;
    case 13: return logError("AP as enrollee PIN method \n"), ORUSDK_RC_OK;
    default: break;
    }
    return fail(ORUSDK_RC_PARAMETERS, "Default \n");
}

uint32_t takeStatus(const Element *element, uint32_t &result)
{
    if (element == nullptr) return fail(ORUSDK_RC_PARAMETERS, "ttlv is NULL \n");
    if (element->id() == 10 && element->length() == 4) {
        result = element->number();
        return logError("Result Code is %ld\n", asLong(result)), ORUSDK_RC_OK;
    }
    if (element->id() == 16) return logError("wps status\n"), ORUSDK_RC_OK;
    return fail(ORUSDK_RC_PARAMETERS, "Default\n");
}

/// The exchange itself, once WPS is known to be on.
uint32_t enroll(uint32_t method, uint16_t radio, uint16_t bss, const char *pin)
{
    constexpr uint16_t kMessage = 278;
    Connection wsm;
    if (const uint32_t code = wsm.open(port); code != 0) return code;
    Request request;
    request.number32(kReplyRoom).number16(radio).number16(bss);
    if (const uint32_t code = addMethod(request, method, pin); code != 0) return code;
    if (const uint32_t code = wsm.send(request.finish(kMessage)); code != 0) return code;

    Reply<kShortReply> reply;
    if (const uint32_t code = wsm.receive(reply, kElementsStart); code != 0) return code;
    if (reply.size == 0) return ORUSDK_RC_OK;
    char dump[3 * kShortReply];
    logError("Recv: (%d) %s\n", reply.size,
             oruAsfHexStr(reply.bytes, reply.size, dump, sizeof dump));
    oruAsfNtohHdr(reply.bytes);
    oruAsfGet32(reply.bytes + kHeaderSize); // of no use here
    return forEachElement(reply, kElementsStart, takeEnrollment);
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t sendWscEnroll(uint32_t method, uint32_t radioIndex, uint32_t bssIndex, const char *pin)
{
    const auto radio = static_cast<uint16_t>(radioIndex);
    const auto bss = static_cast<uint16_t>(bssIndex);
    if (radio >= kRadios) return ORUSDK_RC_RADIO_ID; // without a line: intended
    if (bss >= kBsses) return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bss);
    if (pin == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");

    const Dict dict{kSecurityFile};
    if (!dict) // names the other file's kind: intended
        return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kSecurityFile);
    int32_t enabled = 0;
    if (getInt(dict, Key{"bss%d.wscEnabledFlag", bss}, &enabled, 0) != 0)
        return fail(ORUSDK_RC_NOT_SET, "Unable to read wscEnabledFlag from config file %s",
                    kSecurityFile);
    if (enabled == 0)
        return fail(ORUSDK_RC_NOT_SET, "WSC feature not enabled in %s", kSecurityFile);
    return enroll(method, radio, bss, pin);
}

uint32_t oruSdkGetWscStatus(uint32_t radioIndex, uint32_t bssIndex, uint32_t *result)
{
    constexpr uint16_t kMessage = 280;
    constexpr uint32_t kStatusElement = 0x00020010;
    if (result == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");

    Request request;
    request.number16(static_cast<uint16_t>(radioIndex))
        .number16(static_cast<uint16_t>(bssIndex))
        .element16(kStatusElement, 1);
    Reply<kReplyRoom> reply;
    if (const uint32_t code = askWsm(request.finish(kMessage), reply, kHeaderSize); code != 0)
        return code;
    if (reply.size == 0) return ORUSDK_RC_OK;
    oruAsfNtohHdr(reply.bytes);
    return forEachElement(reply, kHeaderSize, [result](const Element *element) {
        return takeStatus(element, *result);
    });
}

} // extern "C"
