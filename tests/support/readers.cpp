#include "support/readers.hpp"

#include "oruSdk.h"
#include "support/reply.hpp"

#include <cstdlib>
#include <cstring>
#include <memory>

namespace oru::test {
namespace {

// Functions, since other files' tables are made of them before main().
Bytes station()
{
    return {0x00, 0x11, 0x22, 0xaa, 0xbb, 0x01};
}

Bytes shortHead()
{
    return reply({}, 281, 0);
}

Bytes longHead()
{
    return reply({}, 257, 4);
}

/// A record of zeros, with nothing behind it.
template <class Record>
uint32_t into(uint32_t (*read)(Record *), size_t size = sizeof(Record))
{
    const std::unique_ptr<void, void (*)(void *)> block{std::calloc(1, size), std::free};
    return read(static_cast<Record *>(block.get()));
}

uint32_t readRadioInfo()
{
    return into(oruSdkGetRadioInfo, sizeof(OruSdkRadioInfo) + (ORUSDK_RADIO_INFO_MAX_RADIOS - 2) *
                                                                  sizeof(OruSdkRadioInfoEntry));
}

/// An entry of 29 fixed bytes, of which the last counts the channels that follow.
Bytes radioEntry(const Bytes &channels)
{
    Bytes bytes(29, 1);
    bytes[28] = static_cast<uint8_t>(channels.size());
    bytes.insert(bytes.end(), channels.begin(), channels.end());
    return bytes;
}

Bytes textBody(uint8_t type, const std::string &text)
{
    Bytes bytes{1, type, 0, static_cast<uint8_t>(4 + text.size())};
    bytes.insert(bytes.end(), text.begin(), text.end());
    return bytes;
}

std::vector<Reader> tables()
{
    return {
        {"BssList",
         [] { return into(oruSdkGetBssListParam); },
         longHead(),
         {number16(1, 1), number8(17, 2), text(5, "Lobby"), mac(7, station()), number16(18, 3)},
         {0, 48}},
        {"Scanlist",
         [] { return into(oruSdkGetScanlistParam); },
         longHead(),
         {mac(7, station()), text(5, "one"), mac(7, station()), text(5, "two")},
         {0, 48}},
        {"Station",
         [] { return into(oruSdkGetStationParam); },
         longHead(),
         {number16(1, 1), mac(7, station())},
         {0, 48}},
        {"Radio",
         [] { return into(oruSdkGetRadioParam); },
         longHead(),
         {number16(1, 1), text(2, "name"), number32(3, 1), number32(4, 1), number32(6, 1),
          number32(8, 1), number16(18, 1), number32(277, 1), number8(17, 1), mac(7, station())},
         {0, 48}},
        {"RadioInfo",
         readRadioInfo,
         joined({{1, 11, 0, 4}, radioEntry({1, 6, 11}), radioEntry({36, 40})}),
         {},
         {0, 1, 48}},
        {"RadioStats",
         [] { return into(oruSdkGetRadioStats); },
         textBody(18, "tx 42 rx 7"),
         {},
         {0, 1, 48}},
        {"StaStats",
         [] { return into(oruSdkGetStaStats); },
         textBody(20, "tx 42 rx 7"),
         {},
         {0, 1, 48}},
    };
}

std::vector<Reader> controls()
{
    return {
        {"SetDevicePin",
         [] { return oruSdkSetDevicePin(0, 2, "12345670"); },
         shortHead(),
         {number32(10, 5), number16(14, 1)},
         {0, 48}},
        {"GenPassword",
         [] { return oruSdkGenPassword(0, 2); },
         shortHead(),
         {number32(10, 0), number16(15, 1)},
         {0, 48, 119}},
        {"SendWscEnroll",
         [] { return sendWscEnroll(1, 0, 2, ""); },
         longHead(),
         {number32(10, 201), number16(12, 1), number16(11, 1), number16(13, 1)},
         {0, 48, 119}},
        {"GetWscStatus",
         [] {
             const auto result = std::make_unique<uint32_t>();
             return oruSdkGetWscStatus(0, 0, result.get());
         },
         shortHead(),
         {number16(16, 1), number32(10, 201)},
         {0, 48, 119}},
        {"SendDisAssocReq",
         [] { return sendDisAssocReq(station().data()); },
         longHead(),
         {number32(10, 0)},
         {0, 48}},
        {"SetAdminStatus",
         [] {
             OruSdkFeatureParam param{0, 1, 1};
             return oruSdkSetAdminStatus(&param);
         },
         longHead(),
         {number32(10, 0)},
         {0, 48}},
    };
}

} // namespace

Bytes Reader::good() const
{
    Bytes bytes = head;
    for (const Bytes &one : elements) bytes.insert(bytes.end(), one.begin(), one.end());
    bytes[2] = static_cast<uint8_t>(bytes.size() >> 8);
    bytes[3] = static_cast<uint8_t>(bytes.size());
    return bytes;
}

const std::vector<Reader> &readers()
{
    static const std::vector<Reader> all = [] {
        std::vector<Reader> rows = tables();
        for (const Reader &reader : controls()) rows.push_back(reader);
        return rows;
    }();
    return all;
}

} // namespace oru::test
