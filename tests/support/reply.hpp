// Replies of a service, byte by byte.
#pragma once

#include "support/standin.hpp"

#include <cstdint>
#include <string>
#include <vector>

namespace oru::test {

/// One element: type, length, value, in network byte order.
inline Bytes element(uint32_t type, const Bytes &value)
{
    Bytes bytes{static_cast<uint8_t>(type >> 24),        static_cast<uint8_t>(type >> 16),
                static_cast<uint8_t>(type >> 8),         static_cast<uint8_t>(type),
                static_cast<uint8_t>(value.size() >> 8), static_cast<uint8_t>(value.size())};
    bytes.insert(bytes.end(), value.begin(), value.end());
    return bytes;
}

inline Bytes number8(uint16_t id, uint8_t value)
{
    return element(1u << 16 | id, {value});
}

inline Bytes number16(uint16_t id, uint16_t value)
{
    return element(2u << 16 | id, {static_cast<uint8_t>(value >> 8), static_cast<uint8_t>(value)});
}

inline Bytes number32(uint16_t id, uint32_t value)
{
    return element(3u << 16 | id,
                   {static_cast<uint8_t>(value >> 24), static_cast<uint8_t>(value >> 16),
                    static_cast<uint8_t>(value >> 8), static_cast<uint8_t>(value)});
}

inline Bytes text(uint16_t id, const std::string &value)
{
    return element(8u << 16 | id, Bytes(value.begin(), value.end()));
}

inline Bytes mac(uint16_t id, const Bytes &value)
{
    return element(12u << 16 | id, value);
}

inline Bytes joined(const std::vector<Bytes> &parts)
{
    Bytes bytes;
    for (const Bytes &part : parts) bytes.insert(bytes.end(), part.begin(), part.end());
    return bytes;
}

/// A reply: its head of 4 bytes, `field` more, and the elements.
inline Bytes reply(const std::vector<Bytes> &elements, uint16_t type = 257, size_t field = 4)
{
    Bytes bytes{static_cast<uint8_t>(type >> 8), static_cast<uint8_t>(type), 0, 0};
    bytes.resize(4 + field);
    const Bytes body = joined(elements);
    bytes.insert(bytes.end(), body.begin(), body.end());
    bytes[2] = static_cast<uint8_t>(bytes.size() >> 8);
    bytes[3] = static_cast<uint8_t>(bytes.size());
    return bytes;
}

} // namespace oru::test
