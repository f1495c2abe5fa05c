// The bytes of messages: numbers and elements in network byte order.
#include "oruAsf.h"

#include <cstdlib>
#include <cstring>

namespace {

constexpr uint32_t kHead = 6; // 32-bit type, 16-bit count of value bytes

enum Kind : uint32_t { kNumber8 = 1, kNumber16 = 2, kNumber32 = 3, kText = 8, kMac = 12 };

Kind kindOf(uint32_t type)
{
    return static_cast<Kind>(type >> 16);
}

/// The bytes that a value of this kind always has, 0 when they vary.
uint32_t fixedSize(Kind kind)
{
    switch (kind) {
    case kNumber8: return 1;
    case kNumber16: return 2;
    case kNumber32: return 4;
    case kMac: return 6;
    default: return 0;
    }
}

} // namespace

extern "C" {

uint8_t *oruAsfPut16(uint8_t *at, uint16_t value)
{
    at[0] = static_cast<uint8_t>(value >> 8);
    at[1] = static_cast<uint8_t>(value);
    return at + 2;
}

uint8_t *oruAsfPut32(uint8_t *at, uint32_t value)
{
    at = oruAsfPut16(at, static_cast<uint16_t>(value >> 16));
    return oruAsfPut16(at, static_cast<uint16_t>(value));
}

uint8_t *oruAsfPutTtlv(uint8_t *at, uint32_t type, uint32_t length, const void *value)
{
    const Kind kind = kindOf(type);
    if (kind == kText) {
        if (length < kHead) return at;
        length -= kHead;
    } else if (fixedSize(kind) != 0) {
        length = fixedSize(kind);
    }
    if (length > UINT16_MAX || (value == nullptr && length > 0)) return at;

    at = oruAsfPut32(at, type);
    at = oruAsfPut16(at, static_cast<uint16_t>(length));
    if (kind == kNumber16) {
        uint16_t number;
        std::memcpy(&number, value, sizeof number);
        return oruAsfPut16(at, number);
    }
    if (kind == kNumber32) {
        uint32_t number;
        std::memcpy(&number, value, sizeof number);
        return oruAsfPut32(at, number);
    }
    if (length > 0) std::memcpy(at, value, length);
    return at + length;
}

void oruAsfNtohHdr(void *message)
{
    auto *at = static_cast<unsigned char *>(message);
    const uint16_t type = oruAsfGet16(at);
    const uint16_t length = oruAsfGet16(at + 2);
    std::memcpy(at, &type, sizeof type);
    std::memcpy(at + 2, &length, sizeof length);
}

uint16_t oruAsfGet16(const void *at)
{
    const auto *bytes = static_cast<const uint8_t *>(at);
    return static_cast<uint16_t>(bytes[0] << 8 | bytes[1]);
}

uint32_t oruAsfGet32(const void *at)
{
    const auto *bytes = static_cast<const uint8_t *>(at);
    return uint32_t{oruAsfGet16(bytes)} << 16 | oruAsfGet16(bytes + 2);
}

OruAsfTtlv *oruAsfGetStructTtlv(const uint8_t *at, uint32_t *consumed)
{
    if (at == nullptr || consumed == nullptr) return nullptr;
    const uint32_t remaining = *consumed;
    *consumed = 0;
    if (remaining < kHead) return nullptr;

    const uint32_t type = oruAsfGet32(at);
    const uint32_t length = oruAsfGet16(at + 4);
    const uint32_t fixed = fixedSize(kindOf(type));
    if (length > remaining - kHead || (fixed != 0 && length != fixed)) return nullptr;

    auto *element = static_cast<OruAsfTtlv *>(std::malloc(sizeof(OruAsfTtlv) + length + 1));
    if (element == nullptr) return nullptr;
    auto *value = reinterpret_cast<uint8_t *>(element + 1);
    std::memcpy(value, at + kHead, length);
    value[length] = 0;
    if (kindOf(type) == kNumber16) {
        const uint16_t number = oruAsfGet16(at + kHead);
        std::memcpy(value, &number, sizeof number);
    } else if (kindOf(type) == kNumber32) {
        const uint32_t number = oruAsfGet32(at + kHead);
        std::memcpy(value, &number, sizeof number);
    }
    *element = {type, length, value};
    *consumed = kHead + length;
    return element;
}

void oruAsfFreeStructTtlv(OruAsfTtlv *element)
{
    std::free(element);
}

const char *oruAsfHexStr(const void *bytes, uint32_t length, char *text, uint32_t size)
{
    constexpr char kDigits[] = "0123456789abcdef";
    const auto *from = static_cast<const uint8_t *>(bytes);
    if (text == nullptr || size == 0) return text;
    char *at = text;
    for (uint32_t i = 0; i < length && size >= 3; ++i, size -= 3) {
        if (i > 0) at[-1] = ':';
        *at++ = kDigits[from[i] >> 4];
        *at++ = kDigits[from[i] & 15];
        *at++ = '\0';
    }
    if (at == text) *text = '\0';
    return text;
}

} // extern "C"
