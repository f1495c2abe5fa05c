#include "core/messages.hpp"

#include "core/log.hpp"

#include <cstring>

namespace oru {

Request &Request::number16(uint16_t value)
{
    end_ = oruAsfPut16(end_, value);
    return *this;
}

Request &Request::number32(uint32_t value)
{
    end_ = oruAsfPut32(end_, value);
    return *this;
}

Request &Request::element16(uint32_t type, uint16_t value)
{
    end_ = oruAsfPutTtlv(end_, type, sizeof value, &value);
    return *this;
}

Request &Request::elementMac(uint32_t type, const void *address)
{
    end_ = oruAsfPutTtlv(end_, type, 6, address);
    return *this;
}

Request &Request::elementText(uint32_t type, const char *text, uint32_t length)
{
    // The length of a text element counts the 6 bytes of its head, and as many must be readable
    // behind the text.
    constexpr uint32_t kHead = 6;
    char copy[kLongestText + kHead] = {};
    if (length > kLongestText) length = kLongestText;
    std::memcpy(copy, text, length);
    end_ = oruAsfPutTtlv(end_, type, length + kHead, copy);
    return *this;
}

Request &Request::bytes(const void *from, uint32_t length)
{
    std::memcpy(end_, from, length);
    end_ += length;
    return *this;
}

const Request &Request::finish(uint16_t type)
{
    oruAsfPut16(oruAsfPut16(bytes_, type), static_cast<uint16_t>(size()));
    return *this;
}

uint32_t Connection::open(uint32_t servicePort)
{
    ipc_ = oruAsfIpcOpen(2, 1, 0);
    if (ipc_ == nullptr) return fail(ORUSDK_RC_WSM_REQUEST, "IPC Open failed");
    if (oruAsfIpcConnect(ipc_, "localhost", servicePort, vers) < 0)
        return fail(ORUSDK_RC_WSM_REQUEST, "IPC Connect failed");
    return ORUSDK_RC_OK;
}

uint32_t Connection::send(const Request &request)
{
    if (oruAsfIpcSend(ipc_, request.data(), request.size()) < 0)
        return fail(ORUSDK_RC_WSM_REQUEST, "IPC Send failed");
    return ORUSDK_RC_OK;
}

uint32_t Connection::receive(uint8_t *bytes, uint32_t room, uint32_t least, uint32_t &size)
{
    size = 0;
    if (oruAsfIpcCheck(ipc_, kWaitMs) == 0) return ORUSDK_RC_OK;
    const int32_t got = oruAsfIpcRecv(ipc_, bytes, room);
    if (got < 1 || static_cast<uint32_t>(got) < least || static_cast<uint32_t>(got) > room)
        return fail(ORUSDK_RC_WSM_REQUEST, "IPC Recv failed");
    size = static_cast<uint32_t>(got);
    return ORUSDK_RC_OK;
}

uint32_t Element::number() const
{
    const uint32_t kind = ttlv_->type >> 16;
    if (length() == 4 && kind == 3) {
        uint32_t value;
        std::memcpy(&value, ttlv_->value, sizeof value);
        return value;
    }
    if (length() == 2 && kind == 2) {
        uint16_t value;
        std::memcpy(&value, ttlv_->value, sizeof value);
        return value;
    }
    // Of another kind, the bytes stand as they came.
    switch (length()) {
    case 1: return *static_cast<const uint8_t *>(ttlv_->value);
    case 2: return oruAsfGet16(ttlv_->value);
    case 4: return oruAsfGet32(ttlv_->value);
    default: return 0;
    }
}

uint32_t sdkSendWsmRequest(uint32_t type)
{
    Connection wsm;
    if (const uint32_t code = wsm.open(port); code != 0) return code;
    Request request;
    return wsm.send(request.finish(static_cast<uint16_t>(type)));
}

uint32_t sdkWsmTransaction(uint32_t radioIndex, uint32_t adminStatus)
{
    constexpr uint16_t kMessage = 264;
    constexpr uint32_t kRadioElement = 0x00020009;
    constexpr uint32_t kStatusElement = 0x00020008;
    constexpr uint16_t kResult = 10;

    Request request;
    request.number32(kReplyRoom)
        .element16(kRadioElement, static_cast<uint16_t>(radioIndex))
        .element16(kStatusElement, static_cast<uint16_t>(adminStatus));
    Reply<kShortReply> reply;
    if (const uint32_t code = askWsm(request.finish(kMessage), reply, kElementsStart); code != 0)
        return code;

    // A service that says nothing within the wait has agreed: intended.
    if (reply.size == 0) return ORUSDK_RC_OK;
    oruAsfNtohHdr(reply.bytes);
    oruAsfGet32(reply.bytes + kHeaderSize); // of no use here
    return forEachElement(reply, kElementsStart, [](const Element *element) -> uint32_t {
        return element != nullptr && element->id() == kResult ? ORUSDK_RC_OK
                                                              : ORUSDK_RC_WSM_REQUEST;
    });
}

} // namespace oru
