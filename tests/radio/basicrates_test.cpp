#include "oruSdk.h"
#include "radio/steps.hpp"
#include "support/accesspoint.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstring>

namespace oru::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Rate {
    const char *mbps;
    const char *plain;
    const char *basic;
};

const std::vector<Rate> k11b{
    {"1", "02", "82"}, {"2", "04", "84"}, {"5.5", "0B", "8B"}, {"11", "16", "96"}};
const std::vector<Rate> kOfdm{{"6", "0C", "8C"},  {"9", "12", "92"},  {"12", "18", "98"},
                              {"18", "24", "A4"}, {"24", "30", "B0"}, {"36", "48", "C8"},
                              {"48", "60", "E0"}, {"54", "6C", "EC"}};

struct Family {
    std::string name;
    uint32_t mode;
    const std::vector<Rate> &rates;
    char (OruSdkBasicRateSetInfo::*list)[64];

    [[nodiscard]] std::string key(uint32_t radio) const
    {
        return "radio" + std::to_string(radio) + ".dot11" + name + "Rates";
    }
};

std::ostream &operator<<(std::ostream &to, const Family &family)
{
    return to << family.name;
}

const Family kFamilies[] = {
    {"a", 0, kOfdm, &OruSdkBasicRateSetInfo::dot11aRates},
    {"b", 1, k11b, &OruSdkBasicRateSetInfo::dot11bRates},
    {"g", 2, kOfdm, &OruSdkBasicRateSetInfo::dot11gRates},
    {"n", 3, kOfdm, &OruSdkBasicRateSetInfo::dot11nRates},
};

const char kNoBasic11b[] = "02:04:0B:16";
const char kNoBasicOfdm[] = "0C:12:18:24:30:48:60:6C";

OruSdkBasicRateSetParam listed(uint32_t radio, uint32_t mode, const std::string &list)
{
    OruSdkBasicRateSetParam param{radio, mode, {}};
    std::memset(param.rateSet, '7', sizeof param.rateSet); // nothing behind the text is read
    std::memcpy(param.rateSet, list.c_str(), std::min(list.size() + 1, sizeof param.rateSet));
    return param;
}

uint32_t set(uint32_t radio, uint32_t mode, const std::string &list)
{
    OruSdkBasicRateSetParam param = listed(radio, mode, list);
    return oruSdkSetBasicRateSetParam(&param);
}

/// A record in which every text is "untouched".
OruSdkBasicRateSetInfo blank(uint32_t radio)
{
    OruSdkBasicRateSetInfo info{radio, {}, {}, {}, {}};
    for (const Family &family : kFamilies) std::strcpy(info.*family.list, "untouched");
    return info;
}

struct BasicRates : AccessPointTest, ::testing::WithParamInterface<Family> {
    BasicRates()
    {
        for (const Family &each : kFamilies)
            for (const uint32_t radio : {0u, 1u})
                box.set(kWsm, each.key(radio), each.mode == 1 ? kNoBasic11b : kNoBasicOfdm);
        standIn.reset();
    }

    /// The list that is read for a stored text of the family.
    std::string readBack(const std::string &stored)
    {
        box.set(kWsm, family.key(1), stored);
        OruSdkBasicRateSetInfo info = blank(1);
        EXPECT_EQ(oruSdkGetBasicRateSetParam(&info), 0u) << stored;
        return info.*family.list;
    }

    const Family &family = GetParam();
};

TEST_P(BasicRates, EverySubsetIsStoredWholeAndReadBack)
{
    for (uint32_t chosen = 0; chosen < 1u << family.rates.size(); ++chosen) {
        std::string list;
        std::string backwards;
        std::string stored;
        for (size_t n = 0; n < family.rates.size(); ++n) {
            const Rate &rate = family.rates[n];
            const bool basic = (chosen >> n & 1) != 0;
            stored += (n == 0 ? "" : ":") + std::string{basic ? rate.basic : rate.plain};
            if (!basic) continue;
            list += (list.empty() ? "" : " ") + std::string{rate.mbps};
            backwards = rate.mbps + (backwards.empty() ? "" : " " + backwards);
        }
        ASSERT_EQ(set(1, family.mode, backwards), 0u) << backwards;
        EXPECT_EQ(box.value(kWsm, family.key(1)), stored);

        OruSdkBasicRateSetInfo info = blank(1);
        EXPECT_EQ(oruSdkGetBasicRateSetParam(&info), 0u);
        EXPECT_STREQ(info.*family.list, chosen == 0 ? "untouched" : list.c_str());
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_P(BasicRates, OtherFamiliesAndTheOtherRadioAreLeftAlone)
{
    const std::string before = box.read(kWsm);
    EXPECT_EQ(set(0, family.mode, family.rates.back().mbps), 0u);
    EXPECT_NE(box.read(kWsm), before);
    box.set(kWsm, family.key(0), family.mode == 1 ? kNoBasic11b : kNoBasicOfdm);
    EXPECT_EQ(box.read(kWsm), before);
}

TEST_P(BasicRates, BlanksBetweenAndAroundRatesAndDoubledRatesDontCount)
{
    const std::string first = family.rates[0].mbps;
    const std::string last = family.rates.back().mbps;
    ASSERT_EQ(set(1, family.mode, first + " " + last), 0u);
    const std::string stored = *box.value(kWsm, family.key(1));
    for (const std::string &list : {"  " + first + " " + last + "   ", last + "    " + first,
                                    first + " " + last + " " + last + " " + first}) {
        ASSERT_EQ(set(1, family.mode, ""), 0u);
        EXPECT_EQ(set(1, family.mode, list), 0u);
        EXPECT_EQ(box.value(kWsm, family.key(1)), stored) << list;
    }
    EXPECT_EQ(set(1, family.mode, "     "), 0u);
    EXPECT_EQ(box.value(kWsm, family.key(1)), family.mode == 1 ? kNoBasic11b : kNoBasicOfdm);
}

TEST_P(BasicRates, ListMayFillItsRoomWithoutATerminator)
{
    const std::string last = family.rates.back().mbps;
    OruSdkBasicRateSetParam param = listed(1, family.mode, std::string(64 - last.size(), ' '));
    std::memcpy(param.rateSet + 64 - last.size(), last.data(), last.size());
    EXPECT_EQ(oruSdkSetBasicRateSetParam(&param), 0u);
    OruSdkBasicRateSetInfo info = blank(1);
    EXPECT_EQ(oruSdkGetBasicRateSetParam(&info), 0u);
    EXPECT_EQ(info.*family.list, last);
    std::memset(param.rateSet, '1', sizeof param.rateSet);
    EXPECT_EQ(oruSdkSetBasicRateSetParam(&param), 22u);
}

TEST_P(BasicRates, TokensThatAreNoRateOfTheFamilyAre22BeforeTheFileIsOpened)
{
    const std::string before = box.everything();
    standIn.reset();
    for (const char *list : {"0",
                             "3",
                             "7",
                             "13",
                             "55",
                             "108",
                             "160",
                             "-6",
                             "-1",
                             "x",
                             "x6",
                             ".5",
                             "6,9",
                             "1,2",
                             "8C",
                             "82",
                             "%d",
                             "\xff",
                             "4294967302",
                             "4294967297",
                             "18446744073709551622",
                             "99999999999999999999999"}) {
        const std::string good = family.rates[0].mbps;
        if (family.mode == 3 && std::strcmp(list, "6,9") == 0) continue; // read as 6
        for (const std::string &tried : {std::string{list}, good + " " + list, list + (" " + good)})
            EXPECT_EQ(set(1, family.mode, tried), 22u) << tried;
    }
    const std::vector<Rate> &others = family.mode == 1 ? kOfdm : k11b;
    for (const Rate &rate : others) EXPECT_EQ(set(1, family.mode, rate.mbps), 22u) << rate.mbps;
    for (const std::string &text : standIn.logTexts())
        EXPECT_EQ(text, family.mode == 3 ? "Invalid 11n basic rate set" : "Invalid basic rate set");
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(box.everything(), before);
}

TEST_P(BasicRates, OnlyBlanksSeparateRates)
{
    const std::string one = family.rates[0].mbps;
    const std::string two = family.rates[1].mbps;
    for (const char *between : {"\t", "\n", ",", ":"}) {
        const uint32_t code = set(1, family.mode, one + between + two);
        if (family.mode != 3) {
            EXPECT_EQ(code, 22u);
        } else { // the digits of the first rate count
            EXPECT_EQ(code, 0u);
            EXPECT_EQ(box.value(kWsm, family.key(1)), "8C:12:18:24:30:48:60:6C");
        }
    }
}

TEST_P(BasicRates, DigitsThatATokenBeginsWithCountFor11nAlone)
{
    for (const char *list : {"6.5", "06", "+6", "6x", "6.", "6-9"}) {
        if (family.mode == 1) continue;
        EXPECT_EQ(set(1, family.mode, list), family.mode == 3 ? 0u : 22u) << list;
        EXPECT_EQ(box.value(kWsm, family.key(1)),
                  family.mode == 3 ? "8C:12:18:24:30:48:60:6C" : kNoBasicOfdm);
    }
    if (family.mode != 1) return;
    for (const char *list : {"5", "05", "5.55", "5.50", "5.", "1.0", "01", "+2", "11x"})
        EXPECT_EQ(set(1, family.mode, list), 22u) << list;
    EXPECT_EQ(box.value(kWsm, family.key(1)), kNoBasic11b);
}

TEST_P(BasicRates, ReadGoesThroughTheStoredTextInItsOrder)
{
    EXPECT_EQ(readBack("EC:8C:98"), "54 6 12");
    EXPECT_EQ(readBack("82:8C:8B"), "1 6 5.5"); // rates of any family
    EXPECT_EQ(readBack("8C:8C"), "6 6");
    EXPECT_EQ(readBack("::8C::92:"), "6 9");
    EXPECT_EQ(readBack("8c:92"), "9");
    EXPECT_EQ(readBack("8C "), "untouched");
    for (const char *stored : {"", ":", ":::", "8", "8C8C", "8C92:", "0C:12", "ec", "x"})
        EXPECT_EQ(readBack(stored), "untouched") << stored;
}

TEST_P(BasicRates, ReadReplacesTheTextFromItsFirstByte)
{
    OruSdkBasicRateSetInfo info = blank(1);
    box.set(kWsm, family.key(1), "8C:12");
    EXPECT_EQ(oruSdkGetBasicRateSetParam(&info), 0u);
    EXPECT_STREQ(info.*family.list, "6");
    EXPECT_EQ(std::string((info.*family.list) + 2, 7), "touched");
}

TEST_P(BasicRates, TextTooLongForItsRoomGivesTheWholeRatesThatFit)
{
    const auto times = [](int count, const std::string &text) {
        std::string all;
        for (int n = 0; n < count; ++n) all += text;
        return all;
    };
    const std::string sixty = times(20, "54 ");
    EXPECT_EQ(readBack(times(20, "EC:") + "8B"), sixty + "5.5"); // 63 characters
    EXPECT_EQ(readBack(times(20, "EC:") + "8B:82"), sixty + "5.5");
    EXPECT_EQ(readBack(times(21, "EC:")), sixty + "54"); // 62
    EXPECT_EQ(readBack(times(21, "EC:") + "82"), sixty + "54");
    EXPECT_EQ(readBack(times(20, "EC:") + "82:82"), sixty + "1 1");
    EXPECT_EQ(readBack(times(20, "EC:") + "82:96:82"), sixty + "1"); // none behind the cut
    EXPECT_EQ(readBack(times(32, "8C:")), times(31, "6 ") + "6");    // 63
    EXPECT_EQ(readBack(times(33, "8C:")), times(31, "6 ") + "6");
    EXPECT_EQ(readBack(times(5000, "8C:")), times(31, "6 ") + "6");
}

TEST_P(BasicRates, MissingKeyIs42WithTheTextsBeforeItFilled)
{
    for (const Family &each : kFamilies) box.set(kWsm, each.key(1), "8C");
    box.unset(kWsm, family.key(1));
    OruSdkBasicRateSetInfo info = blank(1);
    EXPECT_EQ(oruSdkGetBasicRateSetParam(&info), 42u);
    EXPECT_LOGGED("Unable to read dot11" + family.name + "Rates from config file /var/wsmDefaults");
    for (const Family &each : kFamilies)
        EXPECT_STREQ(info.*each.list, each.mode < family.mode ? "6" : "untouched") << each.name;
}

TEST_P(BasicRates, OnlyAStatusOfMinusOneIsAFailedRead)
{
    for (const Family &each : kFamilies) box.set(kWsm, each.key(1), "8C");
    for (const int32_t status : {1, -2, 7}) {
        standIn.reset();
        standIn.failAt(static_cast<int>(family.mode) + 2, status);
        OruSdkBasicRateSetInfo info = blank(1);
        EXPECT_EQ(oruSdkGetBasicRateSetParam(&info), 0u);
        EXPECT_EQ(standIn.failed(), "oruAsfDictGetString");
        EXPECT_NOTHING_LOGGED();
        for (const Family &each : kFamilies)
            EXPECT_STREQ(info.*each.list, each.mode == family.mode ? "untouched" : "6");
    }
}

INSTANTIATE_TEST_SUITE_P(Families, BasicRates, ::testing::ValuesIn(kFamilies),
                         [](const auto &info) { return "dot11" + info.param.name; });

// ---- Checks

struct BasicRateSet : AccessPointTest {};

TEST_F(BasicRateSet, StoresTheNamedExamples)
{
    EXPECT_EQ(set(0, 2, "6 12 24"), 0u);
    EXPECT_EQ(box.value(kWsm, "radio0.dot11gRates"), "8C:12:98:24:B0:48:60:6C");
    EXPECT_EQ(set(0, 1, "1 2"), 0u);
    EXPECT_EQ(box.value(kWsm, "radio0.dot11bRates"), "82:84:0B:16");
    EXPECT_EQ(set(1, 1, "5.5 11"), 0u);
    EXPECT_EQ(box.value(kWsm, "radio1.dot11bRates"), "02:04:8B:96");
    EXPECT_EQ(set(1, 0, "54 6"), 0u);
    EXPECT_EQ(box.value(kWsm, "radio1.dot11aRates"), "8C:12:18:24:30:48:60:EC");
    OruSdkBasicRateSetInfo info = blank(1);
    EXPECT_EQ(oruSdkGetBasicRateSetParam(&info), 0u);
    EXPECT_STREQ(info.dot11aRates, "6 54");
    EXPECT_STREQ(info.dot11bRates, "5.5 11");
    EXPECT_EQ(set(1, 3, "6 13"), 22u);
    EXPECT_LOGGED("Invalid 11n basic rate set");
}

TEST_F(BasicRateSet, ChecksRadioThenModeThenRatesThenFile)
{
    box.remove(kWsm);
    EXPECT_EQ(set(2, 4, "nonsense"), 3u);
    EXPECT_LOGGED("Invalid radio ID: 2");
    for (const uint32_t mode : {4u, 0x80000000u, 0xffffffffu}) {
        EXPECT_EQ(set(1, mode, "nonsense"), 21u);
        EXPECT_LOGGED("Invalid 802.11 mode: " + std::to_string(static_cast<int32_t>(mode)));
    }
    EXPECT_EQ(set(1, 2, "nonsense"), 22u);
    EXPECT_LOGGED("Invalid basic rate set");
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(set(1, 2, ""), 7u);
    EXPECT_LOGGED("Unable to read WSM Defaults file /var/wsmDefaults");
}

TEST_F(BasicRateSet, RecordIsLeftAsItWas)
{
    OruSdkBasicRateSetParam param = listed(1, 3, "6.5  54 9");
    const OruSdkBasicRateSetParam before = param;
    EXPECT_EQ(oruSdkSetBasicRateSetParam(&param), 0u);
    EXPECT_EQ(std::memcmp(&param, &before, sizeof param), 0);
    EXPECT_THAT(standIn.calls, ElementsAre("oruAsfDictCreate /var/wsmDefaults",
                                           "oruAsfDictSetString radio1.dot11nRates",
                                           "oruAsfDictSave /var/wsmDefaults"));
}

// ---- Each call fails in turn

std::vector<SweepRow> sweepRows()
{
    SweepRow get{"GetBasicRateSetParam",
                 [](AccessPoint &box, StandIn &standIn) {
                     for (const Family &family : kFamilies) box.set(kWsm, family.key(1), "8C");
                     standIn.reset();
                 },
                 [] {
                     OruSdkBasicRateSetInfo info = blank(1);
                     return oruSdkGetBasicRateSetParam(&info);
                 },
                 {kLoad}};
    std::vector<SweepRow> rows;
    for (const Family &family : kFamilies) {
        get.steps.push_back({.call = "oruAsfDictGetString " + family.key(1),
                             .code = 42,
                             .log = "Unable to read dot11" + family.name +
                                    "Rates from config file /var/wsmDefaults",
                             .onlyMinus1 = true});
        rows.push_back(
            {"SetBasicRateSetParam" + family.name,
             nullptr,
             [&family] { return set(1, family.mode, family.rates[1].mbps); },
             {kLoad, writeStep(family.key(1), "Unable to write dot11" + family.name + "Rates"),
              kSave}});
    }
    rows.push_back(get);
    return rows;
}

INSTANTIATE_TEST_SUITE_P(BasicRates, FailureSweep, ::testing::ValuesIn(sweepRows()), rowName);
INSTANTIATE_TEST_SUITE_P(BasicRates, StatusSweep, ::testing::ValuesIn(sweepRows()), rowName);

} // namespace
} // namespace oru::test
