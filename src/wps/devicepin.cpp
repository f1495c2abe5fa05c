// The access point's own WPS PIN, and the generation of its password.
#include "core/dict.hpp"
#include "core/key.hpp"
#include "core/log.hpp"
#include "core/messages.hpp"
#include "core/store.hpp"
#include "oruSdk.h"

#include <cstring>

namespace oru {
namespace {

constexpr uint16_t kMessage = 280;
constexpr uint32_t kLongestStoredPin = 64;

void logResult(const Element &element)
{
    logError("Result Code is %ld\n", static_cast<long>(static_cast<int32_t>(element.number())));
}

bool isResult(const Element &element)
{
    return element.id() == 10 && element.length() == 4;
}

/// WSM's verdict on the PIN is logged, and otherwise ignored: intended.
uint32_t takePinReply(const Element *element)
{
    if (element == nullptr) return fail(ORUSDK_RC_WSM_REQUEST, "ttlv is NULL \n");
    if (isResult(*element)) return logResult(*element), ORUSDK_RC_OK;
    if (element->id() == 14) return logError("wsc config set AP password\n"), ORUSDK_RC_OK;
    return fail(ORUSDK_RC_WSM_REQUEST, "Default\n");
}

/// Another code than for the PIN: intended.
uint32_t takePasswordReply(const Element *element)
{
    if (element == nullptr) return fail(ORUSDK_RC_PARAMETERS, "ttlv is NULL \n");
    if (isResult(*element)) return logResult(*element), ORUSDK_RC_OK;
    if (element->id() == 15) return logError("wsc config set generate AP password\n"), ORUSDK_RC_OK;
    return fail(ORUSDK_RC_PARAMETERS, "Default\n");
}

/// Hands the PIN to WSM. Silence within the wait is no failure.
uint32_t sendPin(uint16_t radio, uint16_t bss, const char *pin)
{
    constexpr uint32_t kPinElement = 0x0008000E;
    constexpr uint32_t kBssElement = 0x00020011;
    Connection wsm;
    if (const uint32_t code = wsm.open(port); code != 0) return code;
    const size_t length = ::strnlen(pin, Request::kLongestText + 1);
    if (length > Request::kLongestText) return fail(ORUSDK_RC_WSM_REQUEST, "IPC Send failed");

    Request request;
    request.number16(radio)
        .number16(bss)
        .elementText(kPinElement, pin, static_cast<uint32_t>(length))
        .element16(kBssElement, bss);
    if (const uint32_t code = wsm.send(request.finish(kMessage)); code != 0) return code;
    Reply<kReplyRoom> reply;
    if (const uint32_t code = wsm.receive(reply, kHeaderSize); code != 0) return code;
    if (reply.size == 0) return ORUSDK_RC_OK;
    oruAsfNtohHdr(reply.bytes);
    return forEachElement(reply, kHeaderSize, takePinReply);
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkSetDevicePin(uint32_t radioIndex, uint32_t bssIndex, const char *pin)
{
    const auto radio = static_cast<uint16_t>(radioIndex);
    const auto bss = static_cast<uint16_t>(bssIndex);
    if (radio >= kRadios) return ORUSDK_RC_RADIO_ID; // without a line: intended
    if (bss >= kBsses) return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bss);
    if (pin == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (const uint32_t code = sendPin(radio, bss, pin); code != 0) return code;

    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);
    if (setDelimitedString(dict, Key{"bss%d.appinpasswd", bss}, pin) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write AP pin to dictionary");
    return saveRadioFile(dict);
}

uint32_t oruSdkGetDevicePin(int32_t bssIndex, char *pin, uint32_t *length)
{
    if (pin == nullptr || length == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (bssIndex >= static_cast<int32_t>(kBsses))
        return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bssIndex);
    const Dict dict{kRadioFile};
    if (!dict) return fail(ORUSDK_RC_FILE_READ, "Unable to read WSM Defaults file %s", kRadioFile);

    const char *stored = nullptr;
    const int32_t size = getDelimitedString(dict, Key{"bss%d.appinpasswd", bssIndex}, &stored, 0);
    if (size < 0 || stored == nullptr)
        return fail(ORUSDK_RC_KEY_READ, "Unable to read AP pin from config file %s", kRadioFile);
    if (size > static_cast<int32_t>(kLongestStoredPin))
        return fail(ORUSDK_RC_LENGTH, "Invalid PIN length: %d\n", size);
    std::memcpy(pin, stored, static_cast<size_t>(size));
    pin[size] = '\0';
    *length = static_cast<uint32_t>(size);
    return ORUSDK_RC_OK;
}

uint32_t oruSdkGenPassword(uint32_t radioIndex, uint32_t bssIndex)
{
    constexpr uint32_t kGenerateElement = 0x0002000F;
    const auto radio = static_cast<uint16_t>(radioIndex);
    const auto bss = static_cast<uint16_t>(bssIndex);
    if (radio >= kRadios) return ORUSDK_RC_RADIO_ID; // without a line: intended
    if (bss >= kBsses) return fail(ORUSDK_RC_BSS_NUMBER, "Invalid bss number ID: %d", bss);

    Request request;
    request.number16(radio).number16(bss).element16(kGenerateElement, 1);
    Reply<kReplyRoom> reply;
    if (const uint32_t code = askWsm(request.finish(kMessage), reply, kHeaderSize); code != 0)
        return code;
    if (reply.size == 0) return ORUSDK_RC_OK;
    oruAsfNtohHdr(reply.bytes);
    return forEachElement(reply, kHeaderSize, takePasswordReply);
}

} // extern "C"
