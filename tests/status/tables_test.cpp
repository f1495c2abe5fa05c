// The live tables: every reader over good and hostile replies.
#include "oruSdk.h"
#include "support/reply.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

#include <cstring>
#include <memory>

namespace oru::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const Bytes kMac1{0x00, 0x11, 0x22, 0xaa, 0xbb, 0x01};
const Bytes kMac2{0x00, 0x11, 0x22, 0xaa, 0xbb, 0x02};
constexpr const char kText1[] = "00:11:22:aa:bb:01";
constexpr const char kText2[] = "00:11:22:aa:bb:02";

/// A record in a block of exactly its size, filled with a pattern that shows what was written.
template <class Record>
struct Boxed {
    std::unique_ptr<Record> record = std::make_unique<Record>();

    Boxed() { std::memset(record.get(), 0xa5, sizeof(Record)); }
    Record *operator->() { return record.get(); }
    Record *get() { return record.get(); }
};

/// Whether a stretch still holds the pattern.
template <class Field>
bool untouched(const Field &field)
{
    const auto *bytes = reinterpret_cast<const uint8_t *>(&field);
    for (size_t i = 0; i < sizeof field; ++i)
        if (bytes[i] != 0xa5) return false;
    return true;
}

struct Tables : AccessPointTest {
    Boxed<OruSdkBssListParam> bss;
    Boxed<OruSdkScanlistParam> scan;
    Boxed<OruSdkStationParam> stations;
    Boxed<OruSdkRadioParam> radios;

    Tables()
    {
        bss->radioIndex = 1;
        bss->numBss = 77;
        const uint8_t index[2] = {0, 1};
        std::memcpy(stations->bssIndex, index, 2);
        std::memcpy(stations->radioIndex, index, 2);
    }
};

// ---- Requests

TEST_F(Tables, RequestsAreExactToTheByte)
{
    EXPECT_EQ(oruSdkGetBssListParam(bss.get()), 0u);
    EXPECT_EQ(oruSdkGetScanlistParam(scan.get()), 0u);
    EXPECT_EQ(oruSdkGetStationParam(stations.get()), 0u);
    EXPECT_EQ(oruSdkGetRadioParam(radios.get()), 0u);
    ASSERT_EQ(standIn.sent().size(), 4u);
    EXPECT_THAT(standIn.sent()[0].message,
                ElementsAre(0x01, 0x1b, 0, 16, 0, 0, 0x4e, 0x20, 0, 2, 0, 1, 0, 2, 0, 1));
    EXPECT_THAT(standIn.sent()[1].message, ElementsAre(0x01, 0x04, 0, 8, 0, 0, 0x4e, 0x20));
    EXPECT_THAT(standIn.sent()[2].message, ElementsAre(0x01, 0x02, 0, 24, 0, 0, 0x4e, 0x20, 0, 2, 0,
                                                       17, 0, 2, 0, 1, 0, 2, 0, 1, 0, 2, 0, 1));
    EXPECT_THAT(standIn.sent()[3].message, ElementsAre(0x01, 0x00, 0, 8, 0, 0, 0x4e, 0x20));
    for (const Sent &sent : standIn.sent()) EXPECT_EQ(sent.port, 5000002u);
    EXPECT_THAT(standIn.waits(), ElementsAre(20000u, 20000u, 20000u, 20000u));
}

TEST_F(Tables, BssListSendsAnyRadioIndex)
{
    bss->radioIndex = 0xfffe;
    EXPECT_EQ(oruSdkGetBssListParam(bss.get()), 0u);
    EXPECT_EQ(standIn.sent()[0].message[14], 0xff);
    EXPECT_EQ(standIn.sent()[0].message[15], 0xfe);
}

TEST_F(Tables, NullRecordsAre2)
{
    EXPECT_EQ(oruSdkGetBssListParam(nullptr), 2u);
    EXPECT_EQ(oruSdkGetScanlistParam(nullptr), 2u);
    EXPECT_EQ(oruSdkGetStationParam(nullptr), 2u);
    EXPECT_EQ(oruSdkGetRadioParam(nullptr), 2u);
    EXPECT_THAT(standIn.logTexts(), ::testing::Each("NULL pointer"));
    EXPECT_EQ(standIn.logs.size(), 4u);
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(Tables, StationReaderChecksRadioSilentlyThenBss)
{
    stations->radioIndex[1] = 2;
    stations->bssIndex[1] = 4;
    EXPECT_EQ(oruSdkGetStationParam(stations.get()), 3u);
    EXPECT_NOTHING_LOGGED();
    stations->radioIndex[1] = 1;
    EXPECT_EQ(oruSdkGetStationParam(stations.get()), 115u);
    EXPECT_LOGGED("Invalid bss number ID: 4");
    stations->bssIndex[0] = 1; // 0x0104
    EXPECT_EQ(oruSdkGetStationParam(stations.get()), 115u);
    EXPECT_LOGGED("Invalid bss number ID: 260");
    stations->radioIndex[0] = 1;
    EXPECT_EQ(oruSdkGetStationParam(stations.get()), 3u);
    EXPECT_THAT(standIn.sent(), IsEmpty());
}

TEST_F(Tables, StationReaderAsksForEveryBssOfBothRadios)
{
    for (uint8_t radio = 0; radio < 2; ++radio)
        for (uint8_t index = 0; index < 4; ++index) {
            stations->radioIndex[1] = radio;
            stations->bssIndex[1] = index;
            EXPECT_EQ(oruSdkGetStationParam(stations.get()), 0u);
            EXPECT_EQ(standIn.sent().back().message[15], index);
            EXPECT_EQ(standIn.sent().back().message[23], radio);
        }
}

// ---- No reply, and replies without elements

TEST_F(Tables, NoReplyGivesACountOfZero)
{
    EXPECT_EQ(oruSdkGetBssListParam(bss.get()), 0u);
    EXPECT_EQ(oruSdkGetScanlistParam(scan.get()), 0u);
    EXPECT_EQ(oruSdkGetStationParam(stations.get()), 0u);
    EXPECT_EQ(oruSdkGetRadioParam(radios.get()), 0u);
    EXPECT_EQ(bss->numBss, 0u);
    EXPECT_THAT(scan->numEntries, ElementsAre(0, 0, 0, 0));
    EXPECT_THAT(stations->numStations, ElementsAre(0, 0, 0, 0));
    EXPECT_THAT(radios->numRadios, ElementsAre(0, 0, 0, 0));
    EXPECT_TRUE(untouched(bss->bss) && untouched(scan->entries) && untouched(stations->stations) &&
                untouched(radios->radios));
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Tables, ReplyWithoutElementsGivesACountOfZero)
{
    standIn.replyWith(reply({}));
    EXPECT_EQ(oruSdkGetBssListParam(bss.get()), 0u);
    EXPECT_EQ(oruSdkGetScanlistParam(scan.get()), 0u);
    EXPECT_EQ(oruSdkGetStationParam(stations.get()), 0u);
    EXPECT_EQ(oruSdkGetRadioParam(radios.get()), 0u);
    EXPECT_EQ(bss->numBss, 0u);
    EXPECT_THAT(scan->numEntries, ElementsAre(0, 0, 0, 0));
    EXPECT_THAT(stations->numStations, ElementsAre(0, 0, 0, 0));
    EXPECT_THAT(radios->numRadios, ElementsAre(0, 0, 0, 0));
    EXPECT_THAT(standIn.rooms(), ElementsAre(20000u, 20000u, 20000u, 20000u));
}

// ---- BSS list

TEST_F(Tables, BssListFillsTwoEntries)
{
    standIn.replyWith(reply({number16(1, 0x1234), number8(17, 2), text(5, "Lobby"), mac(7, kMac1),
                             number8(17, 255), text(5, ""), mac(7, kMac2), number16(18, 0xabcd)}));
    EXPECT_EQ(oruSdkGetBssListParam(bss.get()), 0u);
    EXPECT_EQ(bss->numBss, 2u);
    EXPECT_THAT(bss->element1, ElementsAre(0x12, 0x34));
    EXPECT_THAT(bss->element18, ElementsAre(0xab, 0xcd));
    EXPECT_THAT(bss->bss[0].element17, ElementsAre(0, 0, 0, 2));
    EXPECT_STREQ(bss->bss[0].ssid, "Lobby");
    EXPECT_STREQ(bss->bss[0].bssid, kText1);
    EXPECT_THAT(bss->bss[1].element17, ElementsAre(0, 0, 0, 255));
    EXPECT_STREQ(bss->bss[1].ssid, "");
    EXPECT_STREQ(bss->bss[1].bssid, kText2);
    EXPECT_TRUE(untouched(bss->bss[2]) && untouched(bss->bss[0].reserved1));
    EXPECT_EQ(bss->radioIndex, 1);
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Tables, BssListTakesFourEntriesAndRefusesAFifth)
{
    std::vector<Bytes> elements(4, number8(17, 1));
    standIn.replyWith(reply(elements));
    EXPECT_EQ(oruSdkGetBssListParam(bss.get()), 0u);
    EXPECT_EQ(bss->numBss, 4u);
    elements.push_back(number8(17, 9));
    bss->numBss = 77;
    standIn.replyWith(reply(elements));
    EXPECT_EQ(oruSdkGetBssListParam(bss.get()), 48u);
    EXPECT_EQ(bss->numBss, 77u);
    EXPECT_EQ(bss->radioIndex, 1);
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Tables, BssListRefusesTextOrAddressBeforeAnEntry)
{
    for (const Bytes &early : {text(5, "x"), mac(7, kMac1)}) {
        standIn.replyWith(reply({number16(1, 1), early, number8(17, 1)}));
        EXPECT_EQ(oruSdkGetBssListParam(bss.get()), 48u);
    }
}

TEST_F(Tables, BssListRefusesEveryOtherElementAndKeepsWhatCameBefore)
{
    for (uint16_t id = 0; id <= 300; ++id) {
        if (id == 1 || id == 5 || id == 7 || id == 17 || id == 18) continue;
        standIn.replyWith(reply({number8(17, 3), text(5, "kept"), number16(id, 1)}));
        EXPECT_EQ(oruSdkGetBssListParam(bss.get()), 48u) << id;
    }
    EXPECT_STREQ(bss->bss[0].ssid, "kept");
    EXPECT_EQ(bss->numBss, 77u);
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Tables, LongSsidIsCutAndTerminated)
{
    standIn.replyWith(reply({number8(17, 1), text(5, std::string(40, 's'))}));
    EXPECT_EQ(oruSdkGetBssListParam(bss.get()), 0u);
    EXPECT_STREQ(bss->bss[0].ssid, std::string(32, 's').c_str());
    EXPECT_TRUE(untouched(bss->bss[0].reserved1));
}

// ---- Scan list

TEST_F(Tables, ScanListPairsAddressAndText)
{
    standIn.replyWith(
        reply({mac(7, kMac1), text(5, "one"), mac(7, kMac2), text(5, std::string(33, 't'))}));
    EXPECT_EQ(oruSdkGetScanlistParam(scan.get()), 0u);
    EXPECT_THAT(scan->numEntries, ElementsAre(0, 0, 0, 2));
    EXPECT_STREQ(scan->entries[0].bssid, kText1);
    EXPECT_STREQ(scan->entries[0].ssid, "one");
    EXPECT_EQ(scan->entries[0].ssid[32], '\0');
    EXPECT_STREQ(scan->entries[1].bssid, kText2);
    EXPECT_STREQ(scan->entries[1].ssid, std::string(32, 't').c_str());
    EXPECT_TRUE(untouched(scan->reserved) && untouched(scan->entries[0].reserved) &&
                untouched(scan->entries[1].reserved) && untouched(scan->entries[2]));
}

TEST_F(Tables, ScanListWithoutItsLastTextKeepsTheOldCount)
{
    standIn.replyWith(reply({mac(7, kMac1), text(5, "one"), mac(7, kMac2)}));
    EXPECT_EQ(oruSdkGetScanlistParam(scan.get()), 0u);
    EXPECT_TRUE(untouched(scan->numEntries));
    EXPECT_STREQ(scan->entries[1].bssid, kText2);
}

TEST_F(Tables, ScanListRefusesEveryOtherOrder)
{
    const std::vector<std::vector<Bytes>> bad = {
        {text(5, "first")},
        {mac(7, kMac1), mac(7, kMac2)},
        {mac(7, kMac1), text(5, "a"), text(5, "b")},
        {mac(7, kMac1), text(5, "a"), number16(1, 1)},
        {number8(17, 1)},
    };
    for (const auto &elements : bad) {
        standIn.replyWith(reply(elements));
        EXPECT_EQ(oruSdkGetScanlistParam(scan.get()), 48u);
        EXPECT_TRUE(untouched(scan->numEntries));
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Tables, ScanListHasRoomForTheMostEntriesOfAReply)
{
    std::vector<Bytes> elements;
    for (int i = 0; i < 1110; ++i) {
        elements.push_back(mac(7, kMac1));
        elements.push_back(text(5, ""));
    }
    ASSERT_LE(reply(elements).size(), 20000u);
    ASSERT_GT(reply(elements).size(), 20000u - 18);
    standIn.replyWith(reply(elements));
    EXPECT_EQ(oruSdkGetScanlistParam(scan.get()), 0u);
    EXPECT_THAT(scan->numEntries, ElementsAre(0, 0, 0x04, 0x56));
}

// ---- Stations

TEST_F(Tables, StationsAreFilled)
{
    standIn.replyWith(reply({number16(1, 0x0102), mac(7, kMac1), number16(1, 3), mac(7, kMac2)}));
    EXPECT_EQ(oruSdkGetStationParam(stations.get()), 0u);
    EXPECT_THAT(stations->numStations, ElementsAre(0, 0, 0, 2));
    EXPECT_THAT(stations->stations[0].staId, ElementsAre(0, 0, 1, 2));
    EXPECT_STREQ(stations->stations[0].macAddr, kText1);
    EXPECT_THAT(stations->stations[1].staId, ElementsAre(0, 0, 0, 3));
    EXPECT_STREQ(stations->stations[1].macAddr, kText2);
    EXPECT_TRUE(untouched(stations->stations[2]));
}

TEST_F(Tables, StationsEndAt256)
{
    std::vector<Bytes> elements(256, number16(1, 1));
    standIn.replyWith(reply(elements));
    EXPECT_EQ(oruSdkGetStationParam(stations.get()), 0u);
    EXPECT_THAT(stations->numStations, ElementsAre(0, 0, 1, 0));
    elements.push_back(number16(1, 1));
    standIn.replyWith(reply(elements));
    EXPECT_EQ(oruSdkGetStationParam(stations.get()), 48u);
    EXPECT_THAT(stations->numStations, ElementsAre(0, 0, 1, 0));
    EXPECT_THAT(stations->bssIndex, ElementsAre(0, 1));
}

TEST_F(Tables, StationReaderRefusesAnAddressFirstAndOtherElements)
{
    for (const Bytes &bad : {mac(7, kMac1), text(5, "x"), number16(10, 0), number8(17, 0)}) {
        standIn.replyWith(reply({bad}));
        EXPECT_EQ(oruSdkGetStationParam(stations.get()), 48u);
    }
    EXPECT_TRUE(untouched(stations->numStations));
}

// ---- Radios

TEST_F(Tables, RadioIsFilledFromItsElements)
{
    standIn.replyWith(
        reply({number16(1, 0x0203), text(2, "radio name"), number32(3, 0x01020304),
               number32(8, 0x11121314), number32(4, 0x21222324), number32(277, 0x31323334),
               number32(6, 0x41424344), number16(18, 0x5152), number8(17, 6), mac(7, kMac1),
               number8(17, 7), mac(7, kMac2)}));
    EXPECT_EQ(oruSdkGetRadioParam(radios.get()), 0u);
    EXPECT_THAT(radios->numRadios, ElementsAre(0, 0, 0, 1));
    const OruSdkRadioEntry &radio = radios->radios[0];
    EXPECT_THAT(radio.element1, ElementsAre(0, 0, 2, 3));
    EXPECT_STREQ(radio.element2, "radio name");
    EXPECT_THAT(radio.element3, ElementsAre(1, 2, 3, 4));
    EXPECT_THAT(radio.element8, ElementsAre(0x11, 0x12, 0x13, 0x14));
    EXPECT_THAT(radio.element4, ElementsAre(0x21, 0x22, 0x23, 0x24));
    EXPECT_THAT(radio.element277, ElementsAre(0x31, 0x32, 0x33, 0x34));
    EXPECT_THAT(radio.element6, ElementsAre(0x41, 0x42, 0x43, 0x44));
    EXPECT_THAT(radio.element18, ElementsAre(0x51, 0x52));
    EXPECT_THAT(radio.bss[0].element17, ElementsAre(0, 0, 0, 6));
    EXPECT_STREQ(radio.bss[0].bssid, kText1);
    EXPECT_THAT(radio.bss[1].element17, ElementsAre(0, 0, 0, 7));
    EXPECT_STREQ(radio.bss[1].bssid, kText2);
    EXPECT_TRUE(untouched(radio.reserved) && untouched(radio.bss[0].ssid) &&
                untouched(radio.bss[0].reserved1) && untouched(radio.bss[2]) &&
                untouched(radios->radios[1]));
}

TEST_F(Tables, RadioTextIsCutTo16Characters)
{
    standIn.replyWith(reply({number16(1, 0), text(2, std::string(30, 'n'))}));
    EXPECT_EQ(oruSdkGetRadioParam(radios.get()), 0u);
    EXPECT_STREQ(radios->radios[0].element2, std::string(16, 'n').c_str());
    EXPECT_TRUE(untouched(radios->radios[0].element3));
}

TEST_F(Tables, SecondRadioStartsItsBssesAnewAndAThirdIsRefused)
{
    const std::vector<Bytes> two{number16(1, 0), mac(7, kMac1), mac(7, kMac1), number16(1, 1),
                                 mac(7, kMac2)};
    standIn.replyWith(reply(two));
    EXPECT_EQ(oruSdkGetRadioParam(radios.get()), 0u);
    EXPECT_THAT(radios->numRadios, ElementsAre(0, 0, 0, 2));
    EXPECT_STREQ(radios->radios[1].bss[0].bssid, kText2);
    EXPECT_TRUE(untouched(radios->radios[1].bss[1]));
    std::vector<Bytes> three = two;
    three.push_back(number16(1, 2));
    standIn.replyWith(reply(three));
    EXPECT_EQ(oruSdkGetRadioParam(radios.get()), 48u);
    EXPECT_THAT(radios->numRadios, ElementsAre(0, 0, 0, 2));
}

TEST_F(Tables, FifthBssOfARadioIsRefused)
{
    std::vector<Bytes> elements{number16(1, 0)};
    for (int i = 0; i < 4; ++i) elements.push_back(mac(7, kMac1));
    standIn.replyWith(reply(elements));
    EXPECT_EQ(oruSdkGetRadioParam(radios.get()), 0u);
    for (const Bytes &fifth : {mac(7, kMac2), number8(17, 1)}) {
        std::vector<Bytes> more = elements;
        more.push_back(fifth);
        standIn.replyWith(reply(more));
        EXPECT_EQ(oruSdkGetRadioParam(radios.get()), 48u);
    }
    EXPECT_TRUE(untouched(radios->radios[1]));
}

TEST_F(Tables, RadioReaderRefusesEverythingBeforeTheFirstRadioAndEveryOtherElement)
{
    for (const uint16_t id : std::initializer_list<uint16_t>{2, 3, 4, 6, 7, 8, 17, 18, 277}) {
        standIn.replyWith(reply({number32(id, 0)}));
        EXPECT_EQ(oruSdkGetRadioParam(radios.get()), 48u) << id;
    }
    for (uint16_t id = 0; id <= 300; ++id) {
        const std::vector<int> known{1, 2, 3, 4, 6, 7, 8, 17, 18, 277};
        if (std::find(known.begin(), known.end(), id) != known.end()) continue;
        standIn.replyWith(reply({number16(1, 0), number32(id, 0)}));
        EXPECT_EQ(oruSdkGetRadioParam(radios.get()), 48u) << id;
    }
    EXPECT_TRUE(untouched(radios->numRadios));
    EXPECT_NOTHING_LOGGED();
}

// ---- All readers over hostile replies

struct Reader {
    const char *name;
    std::function<uint32_t()> call;
    std::vector<Bytes> good; // elements that it takes, each kind once
};

uint32_t callBss()
{
    Boxed<OruSdkBssListParam> record;
    return oruSdkGetBssListParam(record.get());
}

uint32_t callScan()
{
    Boxed<OruSdkScanlistParam> record;
    return oruSdkGetScanlistParam(record.get());
}

uint32_t callStations()
{
    Boxed<OruSdkStationParam> record;
    std::memset(record->bssIndex, 0, 2);
    std::memset(record->radioIndex, 0, 2);
    return oruSdkGetStationParam(record.get());
}

uint32_t callRadios()
{
    Boxed<OruSdkRadioParam> record;
    return oruSdkGetRadioParam(record.get());
}

const std::vector<Reader> &readers()
{
    static const std::vector<Reader> all{
        {"BssList",
         callBss,
         {number16(1, 1), number8(17, 2), text(5, "Lobby"), mac(7, kMac1), number16(18, 3)}},
        {"Scanlist", callScan, {mac(7, kMac1), text(5, "one")}},
        {"Station", callStations, {number16(1, 1), mac(7, kMac1)}},
        {"Radio",
         callRadios,
         {number16(1, 1), text(2, "name"), number32(3, 1), number32(4, 1), number32(6, 1),
          number32(8, 1), number16(18, 1), number32(277, 1), number8(17, 1), mac(7, kMac1)}},
    };
    return all;
}

struct TableReaders : AccessPointTest, ::testing::WithParamInterface<size_t> {
    const Reader &reader = readers()[GetParam()];
};

TEST_P(TableReaders, EveryCutOfAGoodReplyEndsAtAnElementOrIsRefused)
{
    const Bytes whole = reply(reader.good);
    std::vector<size_t> ends{8};
    for (const Bytes &one : reader.good) ends.push_back(ends.back() + one.size());
    for (size_t size = 1; size <= whole.size(); ++size) {
        standIn.reset();
        standIn.replyWith(Bytes(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(size)));
        const bool atEnd = std::find(ends.begin(), ends.end(), size) != ends.end();
        EXPECT_EQ(reader.call(), atEnd ? 0u : 48u) << size;
        if (size < 8) {
            EXPECT_LOGGED("IPC Recv failed");
        } else {
            EXPECT_NOTHING_LOGGED();
        }
    }
}

TEST_P(TableReaders, EachElementOfAnUnsuitableLengthIsRefused)
{
    for (size_t i = 0; i < reader.good.size(); ++i) {
        const Bytes &good = reader.good[i];
        const bool isText = good[1] == 8;
        const uint16_t id = static_cast<uint16_t>(good[2] << 8 | good[3]);
        for (const uint32_t kind : {1u, 2u, 3u, 8u, 9u, 12u})
            for (size_t length = 0; length <= 20; ++length) {
                const bool decodes = (kind != 1 || length == 1) && (kind != 2 || length == 2) &&
                                     (kind != 3 || length == 4) && (kind != 12 || length == 6);
                const bool suits = isText || length == good.size() - 6;
                std::vector<Bytes> elements(reader.good.begin(),
                                            reader.good.begin() + static_cast<ptrdiff_t>(i));
                elements.push_back(element(kind << 16 | id, Bytes(length, 0x41)));
                standIn.replyWith(reply(elements));
                EXPECT_EQ(reader.call(), decodes && suits ? 0u : 48u)
                    << "element " << id << " kind " << kind << " length " << length;
            }
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_P(TableReaders, EveryByteOfAGoodReplyThroughEveryValueStaysInBounds)
{
    const Bytes whole = reply(reader.good);
    for (size_t at = 0; at < whole.size(); ++at)
        for (int value = 0; value < 256; ++value) {
            Bytes changed = whole;
            changed[at] = static_cast<uint8_t>(value);
            standIn.replyWith(changed);
            const uint32_t code = reader.call();
            ASSERT_TRUE(code == 0 || code == 48) << at << " " << value;
        }
    EXPECT_EQ(standIn.openElements(), 0);
}

TEST_P(TableReaders, ElementsInEveryOrderOfUpToFourGiveACodeAndNoLine)
{
    const size_t kinds = reader.good.size();
    for (size_t a = 0; a < kinds; ++a)
        for (size_t b = 0; b < kinds; ++b)
            for (size_t c = 0; c < kinds; ++c)
                for (size_t d = 0; d < kinds; ++d) {
                    standIn.replyWith(
                        reply({reader.good[a], reader.good[b], reader.good[c], reader.good[d]}));
                    const uint32_t code = reader.call();
                    ASSERT_TRUE(code == 0 || code == 48);
                }
    EXPECT_NOTHING_LOGGED();
}

INSTANTIATE_TEST_SUITE_P(All, TableReaders, ::testing::Range<size_t>(0, 4),
                         [](const auto &info) { return readers()[info.param].name; });

std::vector<SweepRow> rows()
{
    std::vector<SweepRow> all;
    for (const Reader &reader : readers()) {
        std::vector<Step> steps{{"oruAsfIpcOpen", 48, "IPC Open failed"},
                                {"oruAsfIpcConnect 5000002", 48, "IPC Connect failed"},
                                {"oruAsfIpcSend", 48, "IPC Send failed"},
                                {"oruAsfIpcCheck", 0, ""},
                                {"oruAsfIpcRecv", 48, "IPC Recv failed"}};
        for (size_t i = 0; i < reader.good.size(); ++i)
            steps.push_back({"oruAsfGetStructTtlv", 48, ""});
        all.push_back({std::string("Get") + reader.name + "Param",
                       [good = reader.good](AccessPoint &, StandIn &standIn) {
                           standIn.replyWith(reply(good));
                       },
                       reader.call, steps});
    }
    return all;
}
INSTANTIATE_TEST_SUITE_P(Tables, FailureSweep, ::testing::ValuesIn(rows()), rowName);

} // namespace
} // namespace oru::test
