// Bytes of messages.
#include "oruAsf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

using std::string;
using Bytes = std::vector<uint8_t>;

namespace {

struct Free {
    void operator()(OruAsfTtlv *element) const { oruAsfFreeStructTtlv(element); }
};

/// An element that was decoded from a block of exactly these bytes.
struct Decoded {
    explicit Decoded(const Bytes &bytes) : consumed(static_cast<uint32_t>(bytes.size()))
    {
        const auto exact = std::make_unique<uint8_t[]>(bytes.size()); // for the sanitizers
        std::copy(bytes.begin(), bytes.end(), exact.get());
        element.reset(oruAsfGetStructTtlv(exact.get(), &consumed));
    }

    [[nodiscard]] Bytes value() const
    {
        const auto *at = static_cast<const uint8_t *>(element->value);
        return {at, at + element->length};
    }

    uint32_t consumed;
    std::unique_ptr<OruAsfTtlv, Free> element;
};

Bytes encoded(uint32_t type, uint32_t length, const void *value)
{
    Bytes room(70000, 0xee);
    const uint8_t *end = oruAsfPutTtlv(room.data(), type, length, value);
    const auto size = static_cast<size_t>(end - room.data());
    for (size_t i = size; i < room.size(); ++i)
        if (room[i] != 0xee) ADD_FAILURE() << "wrote behind the end, at " << i;
    room.resize(size);
    return room;
}

/// The bytes of an element whose head says what it likes.
Bytes element(uint32_t type, uint16_t length, const Bytes &value)
{
    Bytes bytes(6);
    oruAsfPut16(oruAsfPut32(bytes.data(), type), length);
    bytes.insert(bytes.end(), value.begin(), value.end());
    return bytes;
}

} // namespace

TEST(Numbers, StandInNetworkByteOrder)
{
    uint8_t room[6];
    EXPECT_EQ(oruAsfPut16(room, 0x0102), room + 2);
    EXPECT_EQ(oruAsfPut32(room + 2, 0x03040506), room + 6);
    EXPECT_THAT(room, ::testing::ElementsAre(1, 2, 3, 4, 5, 6));
    EXPECT_EQ(oruAsfGet16(room), 0x0102);
    EXPECT_EQ(oruAsfGet32(room + 2), 0x03040506u);
}

TEST(Numbers, ReadBackAtEveryAlignmentAndLimit)
{
    uint8_t room[16];
    for (size_t at = 0; at < 8; ++at)
        for (const uint32_t number :
             {0u, 1u, 0x7fffu, 0x8000u, 0xffffu, 0x7fffffffu, 0x80000000u, 0xffffffffu}) {
            oruAsfPut32(room + at, number);
            EXPECT_EQ(oruAsfGet32(room + at), number);
            oruAsfPut16(room + at, static_cast<uint16_t>(number));
            EXPECT_EQ(oruAsfGet16(room + at), static_cast<uint16_t>(number));
        }
}

TEST(Header, IsConvertedInPlaceAndAlone)
{
    uint8_t message[] = {0x01, 0x0c, 0x00, 0x04, 0x05, 0x06};
    oruAsfNtohHdr(message);
    uint16_t head[2];
    std::memcpy(head, message, sizeof head);
    EXPECT_EQ(head[0], 268);
    EXPECT_EQ(head[1], 4);
    EXPECT_EQ(message[4], 5);
    EXPECT_EQ(message[5], 6);
}

TEST(Element, OfEachKindHasTheseBytes)
{
    const uint8_t number8 = 0xab;
    const uint16_t number16 = 0x0102;
    const uint32_t number32 = 0x01020304;
    const uint8_t mac[] = {0, 1, 2, 0xfd, 0xfe, 0xff};
    EXPECT_EQ(encoded(0x00010005, 1, &number8), (Bytes{0, 1, 0, 5, 0, 1, 0xab}));
    EXPECT_EQ(encoded(0x00020009, 2, &number16), (Bytes{0, 2, 0, 9, 0, 2, 1, 2}));
    EXPECT_EQ(encoded(0x00030007, 4, &number32), (Bytes{0, 3, 0, 7, 0, 4, 1, 2, 3, 4}));
    EXPECT_EQ(encoded(0x000c0007, 6, mac), (Bytes{0, 12, 0, 7, 0, 6, 0, 1, 2, 0xfd, 0xfe, 0xff}));
    EXPECT_EQ(encoded(0x00080001, 3 + 6, "abc"), (Bytes{0, 8, 0, 1, 0, 3, 'a', 'b', 'c'}));
    EXPECT_EQ(encoded(0x12345678, 2, "xy"), (Bytes{0x12, 0x34, 0x56, 0x78, 0, 2, 'x', 'y'}))
        << "a kind of no meaning: bytes as they stand";
}

TEST(Element, OfTextCountsItsHeadInTheLength)
{
    const string text(70000, 'x');
    const struct {
        uint32_t length;
        size_t size;
        const char *reason;
    } rows[] = {
        {0, 0, "below the head"},
        {5, 0, "one below the head"},
        {6, 6, "an empty text"},
        {7, 7, "one character"},
        {65535, 65535, "a length that would fit as it is"},
        {65541, 65541, "the longest text: 65535 characters"},
        {65542, 0, "one more"},
        {UINT32_MAX, 0, "far too long"},
    };
    for (const auto &row : rows) {
        const Bytes bytes = encoded(0x00080001, row.length, text.data());
        EXPECT_EQ(bytes.size(), row.size) << row.reason;
        if (row.size == 0) continue;
        EXPECT_EQ(oruAsfGet16(&bytes[4]), row.size - 6) << row.reason;
    }
}

TEST(Element, OfOtherBytesTakesAtMost65535)
{
    const string bytes(70000, 'x');
    EXPECT_EQ(encoded(0x00090001, 0, bytes.data()).size(), 6u);
    EXPECT_EQ(encoded(0x00090001, 65535, bytes.data()).size(), 65541u);
    EXPECT_EQ(encoded(0x00090001, 65536, bytes.data()).size(), 0u);
}

TEST(Element, WithoutAValueIsNotStored)
{
    EXPECT_TRUE(encoded(0x00020001, 2, nullptr).empty());
    EXPECT_TRUE(encoded(0x00080001, 7, nullptr).empty());
    EXPECT_EQ(encoded(0x00080001, 6, nullptr).size(), 6u) << "nothing to read";
}

TEST(ElementDecoded, HoldsNumbersInHostOrderAndANulBehindTheValue)
{
    const uint8_t number8 = 0xab;
    const uint16_t number16 = 0x0102;
    const uint32_t number32 = 0x01020304;
    const struct {
        uint32_t type;
        uint32_t length;
        const void *value;
        const char *reason;
    } rows[] = {
        {0x00010005, 1, &number8, "8 bits"},       {0x00020009, 2, &number16, "16 bits"},
        {0x00030007, 4, &number32, "32 bits"},     {0x000c0007, 6, "\0\1\2\3\4\5", "a MAC address"},
        {0x00080001, 5, "text", "text"},           {0x00080001, 0, "", "an empty text"},
        {0x00090001, 3, "\0\1\2", "another kind"}, {0xffffffff, 0, "", "another kind, empty"},
    };
    for (const auto &row : rows) {
        const bool text = row.type >> 16 == 8;
        const Bytes bytes = encoded(row.type, row.length + (text ? 6 : 0), row.value);
        const Decoded decoded{bytes};
        ASSERT_NE(decoded.element, nullptr) << row.reason;
        EXPECT_EQ(decoded.consumed, bytes.size()) << row.reason;
        EXPECT_EQ(decoded.element->type, row.type) << row.reason;
        EXPECT_EQ(decoded.element->length, row.length) << row.reason;
        const auto *value = static_cast<const uint8_t *>(decoded.element->value);
        EXPECT_EQ(std::memcmp(value, row.value, row.length), 0) << row.reason;
        EXPECT_EQ(value[row.length], 0) << row.reason;
    }
}

TEST(ElementDecoded, IsNoneOfBytesThatAreCutAnywhere)
{
    for (const uint32_t type :
         {0x00010001u, 0x00020001u, 0x00030001u, 0x00080001u, 0x000c0001u, 0x00090001u}) {
        const Bytes whole = encoded(type, type >> 16 == 8 ? 16 : 10, "0123456789");
        for (size_t size = 0; size < whole.size(); ++size) {
            const Decoded decoded{
                Bytes(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(size))};
            EXPECT_EQ(decoded.element, nullptr) << type << " cut to " << size;
            EXPECT_EQ(decoded.consumed, 0u);
        }
        Bytes longer = whole;
        longer.push_back(0xff);
        EXPECT_EQ(Decoded{longer}.consumed, whole.size()) << "the next element is not looked at";
    }
}

TEST(ElementDecoded, IsNoneWhenTheLengthDoesNotFitTheKind)
{
    const struct {
        uint32_t kind;
        int fits; // -1: every length
    } rows[] = {{1, 1}, {2, 2}, {3, 4}, {12, 6}, {0, -1}, {4, -1}, {8, -1}, {13, -1}, {0xffff, -1}};
    for (const auto &row : rows)
        for (uint16_t length = 0; length < 12; ++length) {
            const Decoded decoded{element(row.kind << 16 | 1, length, Bytes(20, 0x61))};
            const bool fits = row.fits < 0 || row.fits == length;
            ASSERT_EQ(decoded.element != nullptr, fits) << row.kind << ' ' << length;
            if (fits) {
                EXPECT_EQ(decoded.value(), Bytes(length, 0x61));
            }
        }
}

TEST(ElementDecoded, NeverReachesPastTheBytesThatRemain)
{
    EXPECT_EQ(Decoded{element(0x00080001, 65535, Bytes(65534))}.element, nullptr);
    EXPECT_NE(Decoded{element(0x00080001, 65535, Bytes(65535))}.element, nullptr);
    uint32_t remaining = 6;
    EXPECT_EQ(oruAsfGetStructTtlv(nullptr, &remaining), nullptr);
    EXPECT_EQ(oruAsfGetStructTtlv(Bytes(6).data(), nullptr), nullptr);

    std::mt19937 random{20216};
    for (int round = 0; round < 20000; ++round) {
        Bytes bytes(random() % 24);
        for (uint8_t &byte : bytes) byte = static_cast<uint8_t>(random() % 4);
        const Decoded decoded{bytes};
        if (decoded.element == nullptr) {
            ASSERT_EQ(decoded.consumed, 0u);
            continue;
        }
        ASSERT_LE(decoded.consumed, bytes.size());
        ASSERT_EQ(decoded.consumed, 6 + decoded.element->length);
    }
}

TEST(ElementDecoded, OfNothingIsFreedToo)
{
    oruAsfFreeStructTtlv(nullptr);
}

TEST(HexString, IsCutToWholePairsThatFit)
{
    const uint8_t bytes[] = {0x00, 0x1a, 0xff, 0x09, 0xa0, 0x7f};
    const char *const fitting[] = {nullptr,
                                   "",
                                   "",
                                   "00",
                                   "00",
                                   "00",
                                   "00:1a",
                                   "00:1a",
                                   "00:1a",
                                   "00:1a:ff",
                                   "00:1a:ff",
                                   "00:1a:ff",
                                   "00:1a:ff:09",
                                   "00:1a:ff:09",
                                   "00:1a:ff:09",
                                   "00:1a:ff:09:a0",
                                   "00:1a:ff:09:a0",
                                   "00:1a:ff:09:a0",
                                   "00:1a:ff:09:a0:7f",
                                   "00:1a:ff:09:a0:7f",
                                   "00:1a:ff:09:a0:7f"};
    for (uint32_t size = 0; size <= 20; ++size) {
        char text[24];
        std::memset(text, '?', sizeof text);
        EXPECT_EQ(oruAsfHexStr(bytes, sizeof bytes, text, size), text);
        if (size > 0) {
            EXPECT_STREQ(text, fitting[size]) << size;
        }
        for (size_t i = size; i < sizeof text; ++i) EXPECT_EQ(text[i], '?') << size;
    }
}

TEST(HexString, OfNoBytesIsEmpty)
{
    char text[] = "???";
    EXPECT_STREQ(oruAsfHexStr(nullptr, 0, text, sizeof text), "");
    EXPECT_EQ(oruAsfHexStr("x", 1, nullptr, 10), nullptr);
}
