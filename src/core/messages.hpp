// One exchange with a service: a short-lived connection, one request, at most one reply.
#pragma once

#include "oruAsf.h"
#include "oruSdk.h"

#include <cstdint>

namespace oru {

constexpr uint32_t kWaitMs = 20000;    // for a reply
constexpr uint32_t kReplyRoom = 20000; // also the number that most request bodies begin with
constexpr uint32_t kShortReply = 2000; // replies to control requests
constexpr uint32_t kHeaderSize = 4;    // 16-bit type, 16-bit length
constexpr uint32_t kElementsStart = 8; // behind the header and a 32-bit field
constexpr uint32_t kMacSize = 6;

/// A request in the making. The header is written last, by finish().
class Request {
public:
    Request() : end_(bytes_ + kHeaderSize) {}

    Request &number16(uint16_t value);
    Request &number32(uint32_t value);
    Request &element16(uint32_t type, uint16_t value);

    /// The six bytes of a MAC address.
    Request &elementMac(uint32_t type, const void *address);

    /// Text of at most kLongestText characters.
    Request &elementText(uint32_t type, const char *text, uint32_t length);
    Request &bytes(const void *from, uint32_t length);

    /// Writes the header.
    const Request &finish(uint16_t type);

    [[nodiscard]] const uint8_t *data() const { return bytes_; }
    [[nodiscard]] uint32_t size() const { return static_cast<uint32_t>(end_ - bytes_); }

    static constexpr uint32_t kLongestText = 1900;

private:
    uint8_t bytes_[2000];
    uint8_t *end_;
};

/// What a service answered.
template <uint32_t Room>
struct Reply {
    uint8_t bytes[Room];
    uint32_t size = 0; // 0: no reply came

    Reply() {} // the bytes stay as they are
};

/// A connection, closed by its owner's end. Every failure is logged and yields code 48.
class Connection {
public:
    Connection() = default;
    ~Connection()
    {
        if (ipc_ != nullptr) oruAsfIpcClose(ipc_);
    }
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    /// Connects to a service of this machine.
    uint32_t open(uint32_t servicePort);

    uint32_t send(const Request &request);

    /// Waits for a reply and takes it. None within the wait is no failure: the size is 0 then. One
    /// shorter than `least` is a failed receive. The header is left in network order.
    template <uint32_t Room>
    uint32_t receive(Reply<Room> &reply, uint32_t least)
    {
        return receive(reply.bytes, Room, least, reply.size);
    }

private:
    uint32_t receive(uint8_t *bytes, uint32_t room, uint32_t least, uint32_t &size);

    OruAsfIpc *ipc_ = nullptr;
};

/// One request to WSM and its reply, if one comes within the wait.
template <uint32_t Room>
uint32_t askWsm(const Request &request, Reply<Room> &reply, uint32_t least)
{
    Connection wsm;
    if (const uint32_t code = wsm.open(port); code != 0) return code;
    if (const uint32_t code = wsm.send(request); code != 0) return code;
    return wsm.receive(reply, least);
}

/// A decoded element of a reply, freed by its owner's end.
class Element {
public:
    /// Decodes the element at a place with `left` bytes; see oruAsfGetStructTtlv().
    Element(const uint8_t *at, uint32_t left) : size_(left)
    {
        ttlv_ = oruAsfGetStructTtlv(at, &size_);
    }
    ~Element()
    {
        if (ttlv_ != nullptr) oruAsfFreeStructTtlv(ttlv_);
    }
    Element(const Element &) = delete;
    Element &operator=(const Element &) = delete;

    explicit operator bool() const { return ttlv_ != nullptr; }
    [[nodiscard]] uint16_t id() const { return static_cast<uint16_t>(ttlv_->type); }
    [[nodiscard]] uint32_t length() const { return ttlv_->length; }
    [[nodiscard]] const void *value() const { return ttlv_->value; }

    /// A value of 1, 2 or 4 bytes; 0 for any other length.
    [[nodiscard]] uint32_t number() const;

    /// Bytes that the element takes in the reply.
    [[nodiscard]] uint32_t size() const { return size_; }

private:
    OruAsfTtlv *ttlv_ = nullptr;
    uint32_t size_;
};

/// The one walk over the elements of a reply: from `start` to the bytes that were received,
/// whatever the reply says of its length. Each element is freed before the next is decoded. `visit`
/// returns 0 to go on, or the code that ends the walk. For an element that can't be decoded it is
/// called with NULL, and what it returns ends the walk.
template <uint32_t Room, class Visit>
uint32_t forEachElement(const Reply<Room> &reply, uint32_t start, Visit &&visit)
{
    uint32_t at = start;
    while (at < reply.size) {
        const Element element{reply.bytes + at, reply.size - at};
        if (!element) return visit(nullptr);
        if (const uint32_t code = visit(&element); code != 0) return code;
        if (element.size() == 0) return 0;
        at += element.size() < reply.size - at ? element.size() : reply.size - at;
    }
    return 0;
}

/// Sends WSM a message without a body, and waits for nothing.
uint32_t sdkSendWsmRequest(uint32_t type);

/// Tells WSM a radio's administrative status and checks its reply.
uint32_t sdkWsmTransaction(uint32_t radioIndex, uint32_t adminStatus);

} // namespace oru
