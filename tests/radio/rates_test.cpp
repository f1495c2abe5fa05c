// Fixed, broadcast and maximum rates.
#include "oruSdk.h"
#include "support/accesspoint.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace oru::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::ValuesIn;

constexpr const char *kNoFile = "Unable to read WSM Defaults file /var/wsmDefaults";
constexpr const char *kNoSave = "Unable to write WSM Defaults file /var/wsmDefaults";
constexpr const char *kRadio[] = {"radio0.", "radio1."};

/// What both radios have unless a case says otherwise: every rate can be set.
void preparePlain(const AccessPoint &box)
{
    std::string text = "MaxRate=54\n";
    for (const std::string radio : kRadio)
        for (const char *key :
             {"dot11Mode=0", "configuredChannel=6", "bandType=0", "channelBondingMode=0",
              "ShortGuardInterval40MHz=0", "ShortGuardInterval20MHz=0", "fixedRate=0",
              "broadcastRate5GHz=200", "broadcastRate24GHz=300"})
            text += radio + key + "\n";
    box.write(kWsm, text);
}

struct Rates : AccessPointTest {
    Rates() { preparePlain(box); }

    void set(const std::string &key, int value) const { box.set(kWsm, key, std::to_string(value)); }
    [[nodiscard]] std::string value(const std::string &key) const
    {
        return box.value(kWsm, key).value_or("absent");
    }
    void expectLog(const std::vector<std::string> &texts, int line) const
    {
        expectLogged(3, texts, __FILE__, line);
    }
};

using Operation = uint32_t (*)(OruSdkOptionParam *);

struct Named {
    const char *name;
    Operation operation;
};

std::ostream &operator<<(std::ostream &to, const Named &row)
{
    return to << row.name;
}

std::string nameOf(const ::testing::TestParamInfo<Named> &info)
{
    return info.param.name;
}

// ---- What all of them check first

struct EveryRateOperation : Rates, ::testing::WithParamInterface<Named> {};

TEST_P(EveryRateOperation, ChecksRecordThenRadioThenFile)
{
    const std::string before = box.everything();
    EXPECT_EQ(GetParam().operation(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    for (const uint32_t radio : {2u, 0x80000000u, 0xffffffffu}) {
        OruSdkOptionParam param{0, radio, 999}; // the value is out of range as well
        EXPECT_EQ(GetParam().operation(&param), 3u);
        EXPECT_LOGGED("Invalid radio ID: " + std::to_string(static_cast<int32_t>(radio)));
        EXPECT_EQ(param.featureOptions, 999u);
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(box.everything(), before);

    box.remove(kWsm);
    OruSdkOptionParam param{0, 1, 999};
    EXPECT_EQ(GetParam().operation(&param), 7u);
    EXPECT_LOGGED(kNoFile);
    EXPECT_EQ(param.featureOptions, 999u);
}

const Named kOperations[] = {{"SetRateParam", oruSdkSetRateParam},
                             {"GetRateParam", oruSdkGetRateParam},
                             {"SetMcsRateParam", oruSdkSetMcsRateParam},
                             {"GetMcsRateParam", oruSdkGetMcsRateParam},
                             {"SetBroadcastRate", oruSdkSetBroadcastRate},
                             {"GetBroadcastRate", oruSdkGetBroadcastRate},
                             {"SetBroadcastMcsRate", oruSdkSetBroadcastMcsRate},
                             {"GetBroadcastMcsRate", oruSdkGetBroadcastMcsRate}};
INSTANTIATE_TEST_SUITE_P(All, EveryRateOperation, ValuesIn(kOperations), nameOf);

// ---- Fixed rate

TEST_F(Rates, FixedRateIsStoredAsItsCodePerRadio)
{
    OruSdkOptionParam param{0xabcd, 0, 11};
    EXPECT_EQ(oruSdkSetRateParam(&param), 0u);
    expectLog({"internal rate code = 134", "featureOptions = 134"}, __LINE__);
    EXPECT_EQ(param.featureOptions, 134u);
    EXPECT_EQ(param.reserved, 0xabcdu);
    EXPECT_EQ(value("radio0.fixedRate"), "134");
    EXPECT_EQ(value("radio1.fixedRate"), "0");
    param = {0, 1, 7};
    EXPECT_EQ(oruSdkSetMcsRateParam(&param), 0u);
    EXPECT_NOTHING_LOGGED();
    EXPECT_EQ(param.featureOptions, 8u);
    EXPECT_EQ(value("radio0.fixedRate"), "134");
    EXPECT_EQ(value("radio1.fixedRate"), "8");
}

TEST_F(Rates, FixedRateGettersGiveWhatEitherSetterStoredLast)
{
    for (const Operation get : {oruSdkGetRateParam, oruSdkGetMcsRateParam}) {
        OruSdkOptionParam param{0, 1, 54};
        EXPECT_EQ(oruSdkSetRateParam(&param), 0u);
        OruSdkOptionParam read{0xabcd, 1, 99};
        EXPECT_EQ(get(&read), 0u);
        EXPECT_EQ(read.featureOptions, 140u);
        EXPECT_EQ(read.reserved, 0xabcdu);
        param.featureOptions = 32;
        EXPECT_EQ(oruSdkSetMcsRateParam(&param), 0u);
        EXPECT_EQ(get(&read), 0u);
        EXPECT_EQ(read.featureOptions, 141u);
    }
}

TEST_F(Rates, FixedRateOf160IsAutomaticForBothFamilies)
{
    for (const Operation set : {oruSdkSetRateParam, oruSdkSetMcsRateParam}) {
        set == oruSdkSetRateParam ? this->set("radio0.fixedRate", 140)
                                  : this->set("radio0.fixedRate", 141);
        OruSdkOptionParam param{0, 0, 160};
        EXPECT_EQ(set(&param), 0u);
        EXPECT_EQ(param.featureOptions, 0u);
        EXPECT_EQ(value("radio0.fixedRate"), "0");
        OruSdkOptionParam read{0, 0, 99};
        EXPECT_EQ(oruSdkGetRateParam(&read), 0u);
        EXPECT_EQ(read.featureOptions, 0u);
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Rates, FixedRateHasNoRangeOfItsOwn)
{
    OruSdkOptionParam param{0, 0, 55};
    EXPECT_EQ(oruSdkSetRateParam(&param), 6u);
    expectLog({"internal rate code = 6", "Illegal data rate"}, __LINE__);
    EXPECT_EQ(param.featureOptions, 55u);
}

TEST_F(Rates, RefusedFixedRateChangesNothing)
{
    const std::string before = box.everything();
    OruSdkOptionParam param{0, 0, 3};
    EXPECT_EQ(oruSdkSetRateParam(&param), 6u);
    EXPECT_EQ(param.featureOptions, 3u);
    EXPECT_EQ(box.everything(), before);

    set("radio0.bandType", 1);
    set("radio0.dot11Mode", 2);
    const std::string only11b = box.everything();
    param.featureOptions = 1;
    EXPECT_EQ(oruSdkSetRateParam(&param), 68u);
    EXPECT_EQ(param.featureOptions, 1u);
    EXPECT_EQ(box.everything(), only11b);
}

TEST_F(Rates, RefusedFixedMcsRateChangesNothingAndLeavesItsDictionaryOpen)
{
    const std::string before = box.everything();
    OruSdkOptionParam param{0, 0, 33};
    EXPECT_EQ(oruSdkSetMcsRateParam(&param), 6u);
    EXPECT_LOGGED("Illegal MCS Rate Index");
    EXPECT_EQ(param.featureOptions, 33u);
    EXPECT_EQ(standIn.openDicts(), 1);
    EXPECT_EQ(box.everything(), before);

    set("radio0.dot11Mode", 2);
    const std::string only11b = box.everything();
    param.featureOptions = 0;
    EXPECT_EQ(oruSdkSetMcsRateParam(&param), 6u);
    EXPECT_LOGGED("Illegal data rate");
    EXPECT_EQ(standIn.openDicts(), 2);
    EXPECT_EQ(box.everything(), only11b);
    expectOpenDicts(2);
}

TEST_F(Rates, FixedRateGettersNameAnotherKeyWhenTheirsIsMissing)
{
    box.unset(kWsm, "radio1.fixedRate");
    for (const Operation get : {oruSdkGetRateParam, oruSdkGetMcsRateParam}) {
        OruSdkOptionParam param{0, 1, 77};
        EXPECT_EQ(get(&param), 42u);
        EXPECT_LOGGED("Unable to read ackMode from config file /var/wsmDefaults");
        EXPECT_EQ(param.featureOptions, 77u);
    }
}

TEST_F(Rates, RecordHoldsTheCodeAfterAFailedWrite)
{
    for (const int step : {1, 2}) {
        for (const Named &row : {kOperations[0], kOperations[2], kOperations[4], kOperations[6]}) {
            standIn.reset();
            standIn.failOnly(step == 1 ? "oruAsfDictSetString" : "oruAsfDictSave");
            standIn.failAt(1);
            OruSdkOptionParam param{0, 0, 11};
            EXPECT_EQ(row.operation(&param), step == 1 ? 25u : 8u) << row.name;
            const std::string name = row.name;
            EXPECT_EQ(param.featureOptions, name.find("Mcs") == name.npos ? 134u : 12u) << name;
            EXPECT_EQ(standIn.openDicts(), 0);
        }
    }
}

// ---- Broadcast rate

TEST_F(Rates, BroadcastRateGoesToTheKeyOfTheBand)
{
    for (int band = -1; band <= 3; ++band) {
        preparePlain(box);
        set("radio1.bandType", band);
        const std::string here =
            band == 2 ? "radio1.broadcastRate5GHz" : "radio1.broadcastRate24GHz";
        const std::string other =
            band == 2 ? "radio1.broadcastRate24GHz" : "radio1.broadcastRate5GHz";
        const std::string untouched = value(other);

        OruSdkOptionParam param{0xabcd, 1, 54};
        standIn.logs.clear();
        EXPECT_EQ(oruSdkSetBroadcastRate(&param), 0u);
        expectLog({"internal rate code = 140", "featureOptions = 140", "key =  " + here}, __LINE__);
        EXPECT_EQ(param.featureOptions, 140u);
        EXPECT_EQ(param.reserved, 0xabcdu);
        EXPECT_EQ(value(here), "140");

        param.featureOptions = 31;
        EXPECT_EQ(oruSdkSetBroadcastMcsRate(&param), 0u);
        EXPECT_NOTHING_LOGGED();
        EXPECT_EQ(param.featureOptions, 32u);
        EXPECT_EQ(value(here), "32");
        EXPECT_EQ(value(other), untouched);
        EXPECT_EQ(value("radio0.broadcastRate24GHz"), "300");
        EXPECT_EQ(value("radio0.broadcastRate5GHz"), "200");
    }
}

TEST_F(Rates, BroadcastGettersReadTheKeyOfTheBandAsItIs)
{
    set("radio1.broadcastRate5GHz", 99999);
    set("radio1.broadcastRate24GHz", -7);
    for (int band = 0; band <= 2; ++band) {
        set("radio1.bandType", band);
        const uint32_t stored = band == 2 ? 99999u : static_cast<uint32_t>(-7);
        const std::string key =
            band == 2 ? "radio1.broadcastRate5GHz" : "radio1.broadcastRate24GHz";
        OruSdkOptionParam param{0xabcd, 1, 0};
        EXPECT_EQ(oruSdkGetBroadcastRate(&param), 0u);
        expectLog({"key =  " + key}, __LINE__);
        EXPECT_EQ(param.featureOptions, stored);
        EXPECT_EQ(param.reserved, 0xabcdu);
        param.featureOptions = 0;
        EXPECT_EQ(oruSdkGetBroadcastMcsRate(&param), 0u);
        EXPECT_NOTHING_LOGGED();
        EXPECT_EQ(param.featureOptions, stored);
    }
}

TEST_F(Rates, BroadcastRateIsInvisibleAfterTheBandChanges)
{
    set("radio0.bandType", 2);
    OruSdkOptionParam param{0, 0, 6};
    EXPECT_EQ(oruSdkSetBroadcastRate(&param), 0u);
    set("radio0.bandType", 1);
    EXPECT_EQ(oruSdkGetBroadcastRate(&param), 0u);
    EXPECT_EQ(param.featureOptions, 300u);
}

TEST_F(Rates, BroadcastRateIsBelow55)
{
    const std::string before = box.everything();
    for (const uint32_t rate : {55u, 160u, 0x80000000u, 0xffffffffu}) {
        OruSdkOptionParam param{0, 1, rate};
        EXPECT_EQ(oruSdkSetBroadcastRate(&param), 47u);
        EXPECT_LOGGED("Invalid feature option " + std::to_string(static_cast<int32_t>(rate)) +
                      " for radio1.broadcastRate24GHz");
        EXPECT_EQ(param.featureOptions, rate);
    }
    OruSdkOptionParam param{0, 1, 53}; // in the range, and no rate
    EXPECT_EQ(oruSdkSetBroadcastRate(&param), 6u);
    EXPECT_EQ(box.everything(), before);
}

TEST_F(Rates, BroadcastMcsRateIsBelow32)
{
    set("radio1.bandType", 2);
    const std::string before = box.everything();
    for (const uint32_t index : {32u, 33u, 160u, 0x80000000u, 0xffffffffu}) {
        OruSdkOptionParam param{0, 1, index};
        EXPECT_EQ(oruSdkSetBroadcastMcsRate(&param), 47u);
        EXPECT_LOGGED("Invalid feature option " + std::to_string(static_cast<int32_t>(index)) +
                      " for radio1.broadcastRate5GHz");
        EXPECT_EQ(param.featureOptions, index);
    }
    EXPECT_EQ(box.everything(), before);
}

TEST_F(Rates, BroadcastRangeIsCheckedBehindTheBandAndBeforeTheValidator)
{
    box.unset(kWsm, "radio0.dot11Mode");
    OruSdkOptionParam param{0, 0, 55};
    EXPECT_EQ(oruSdkSetBroadcastRate(&param), 47u);
    EXPECT_EQ(oruSdkSetBroadcastMcsRate(&param), 47u);
    standIn.logs.clear();
    box.unset(kWsm, "radio0.bandType");
    for (const Operation set : {oruSdkSetBroadcastRate, oruSdkSetBroadcastMcsRate}) {
        EXPECT_EQ(set(&param), 42u);
        EXPECT_EQ(standIn.logs.at(0).format, "Unable to read radio%d.bandType from config file %s");
        EXPECT_LOGGED("Unable to read radio0.bandType from config file /var/wsmDefaults");
    }
    EXPECT_EQ(param.featureOptions, 55u);
}

TEST_F(Rates, BroadcastMcs7InA40MHzChannelWithTheShortIntervalIs104)
{
    set("radio0.channelBondingMode", 1);
    set("radio0.ShortGuardInterval40MHz", 1);
    OruSdkOptionParam param{0, 0, 7};
    EXPECT_EQ(oruSdkSetBroadcastMcsRate(&param), 0u);
    EXPECT_EQ(value("radio0.broadcastRate24GHz"), "104");
}

TEST_F(Rates, RefusedBroadcastRateChangesNothingAndFreesItsDictionary)
{
    set("radio0.bandType", 1);
    set("radio0.dot11Mode", 2);
    const std::string before = box.everything();
    OruSdkOptionParam param{0, 0, 11};
    EXPECT_EQ(oruSdkSetBroadcastRate(&param), 68u);
    EXPECT_EQ(standIn.openDicts(), 0);
    standIn.logs.clear();
    EXPECT_EQ(oruSdkSetBroadcastMcsRate(&param), 6u);
    EXPECT_LOGGED("Illegal data rate");
    EXPECT_EQ(standIn.openDicts(), 0);
    EXPECT_EQ(param.featureOptions, 11u);
    EXPECT_EQ(box.everything(), before);
}

TEST_F(Rates, BroadcastGettersNameTheMissingKey)
{
    box.unset(kWsm, "radio0.broadcastRate24GHz");
    OruSdkOptionParam param{0, 0, 77};
    EXPECT_EQ(oruSdkGetBroadcastRate(&param), 42u);
    expectLog({"key =  radio0.broadcastRate24GHz",
               "Unable to read radio0.broadcastRate24GHz from config file /var/wsmDefaults"},
              __LINE__);
    EXPECT_EQ(oruSdkGetBroadcastMcsRate(&param), 42u);
    EXPECT_LOGGED("Unable to read radio0.broadcastRate24GHz from config file /var/wsmDefaults");
    EXPECT_EQ(param.featureOptions, 77u);
}

// ---- Maximum rate

TEST_F(Rates, RadiosShareTheMaximumRate)
{
    OruSdkMaxRateParam param{1, 130};
    EXPECT_EQ(oruSdkSetMaxRate(&param), 0u);
    EXPECT_EQ(value("MaxRate"), "130");
    OruSdkMaxRateParam read{0, 0};
    EXPECT_EQ(oruSdkGetMaxRate(&read), 0u);
    EXPECT_EQ(read.maxRate, 130u);
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Rates, MaximumRateIsAtMost300)
{
    OruSdkMaxRateParam param{0, 300};
    EXPECT_EQ(oruSdkSetMaxRate(&param), 0u);
    EXPECT_EQ(value("MaxRate"), "300");
    const std::string before = box.everything();
    standIn.calls.clear();
    for (const uint32_t rate : {301u, 0x80000000u, 0xffffffffu}) {
        param.maxRate = rate;
        EXPECT_EQ(oruSdkSetMaxRate(&param), 22u);
        EXPECT_LOGGED("Invalid data rate: " + std::to_string(static_cast<int32_t>(rate)));
        EXPECT_EQ(param.maxRate, rate);
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(box.everything(), before);
}

TEST_F(Rates, MaximumRateOf0CanBeSetAndReadsAsAbsent)
{
    OruSdkMaxRateParam param{0, 0};
    EXPECT_EQ(oruSdkSetMaxRate(&param), 0u);
    EXPECT_NOTHING_LOGGED();
    param.maxRate = 77;
    EXPECT_EQ(oruSdkGetMaxRate(&param), 2u);
    EXPECT_LOGGED("Maximum data rate must be greater than 0");
    EXPECT_EQ(param.maxRate, 77u);
}

TEST_F(Rates, MaximumRateGetterGivesAnyOtherStoredNumber)
{
    OruSdkMaxRateParam param{1, 77};
    for (const int stored : {1, 301, -1}) {
        set("MaxRate", stored);
        EXPECT_EQ(oruSdkGetMaxRate(&param), 0u);
        EXPECT_EQ(param.maxRate, static_cast<uint32_t>(stored));
    }
    box.unset(kWsm, "MaxRate");
    param.maxRate = 77;
    EXPECT_EQ(oruSdkGetMaxRate(&param), 42u);
    EXPECT_LOGGED("Unable to read MaxRate from config file /var/wsmDefaults");
    EXPECT_EQ(param.maxRate, 77u);
}

TEST_F(Rates, MaximumRateChecksRecordThenRadioThenValueThenFile)
{
    box.remove(kWsm);
    for (const auto operation : {oruSdkSetMaxRate, oruSdkGetMaxRate}) {
        EXPECT_EQ(operation(nullptr), 2u);
        EXPECT_LOGGED("NULL pointer");
        for (const uint32_t radio : {2u, 0xffffffffu}) {
            OruSdkMaxRateParam param{radio, 301};
            EXPECT_EQ(operation(&param), 3u);
            EXPECT_LOGGED("Invalid radio ID: " + std::to_string(static_cast<int32_t>(radio)));
        }
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    OruSdkMaxRateParam param{1, 301};
    EXPECT_EQ(oruSdkSetMaxRate(&param), 22u);
    EXPECT_LOGGED("Invalid data rate: 301");
    param.maxRate = 300;
    EXPECT_EQ(oruSdkSetMaxRate(&param), 7u);
    EXPECT_LOGGED(kNoFile);
    EXPECT_EQ(oruSdkGetMaxRate(&param), 7u);
    EXPECT_LOGGED(kNoFile);
}

// ---- Failures of the support library

constexpr const char *kDictCreate = "oruAsfDictCreate /var/wsmDefaults";
constexpr const char *kDictSave = "oruAsfDictSave /var/wsmDefaults";

SweepRow row(const std::string &name, Operation operation, uint32_t value, std::vector<Step> steps)
{
    steps.insert(steps.begin(), {kDictCreate, 7, kNoFile});
    return {name, [](AccessPoint &box, StandIn &) { preparePlain(box); },
            [operation, value] {
                OruSdkOptionParam param{0, 1, value};
                return operation(&param);
            },
            std::move(steps)};
}

Step failedRead(const std::string &key, const std::string &text, int leftOpen = 0)
{
    return {.call = "oruAsfDictGetInt radio1." + key,
            .code = 42,
            .log = "Unable to read " + text + " from config file /var/wsmDefaults",
            .leftOpen = leftOpen};
}

const Step kSaveFixed[] = {
    {"oruAsfDictSetString radio1.fixedRate", 25, "Unable to write fixedRate to dictionary"},
    {kDictSave, 8, kNoSave}};

const SweepRow kSweeps[] = {
    row("SetRateParam", oruSdkSetRateParam, 160,
        {failedRead("dot11Mode", "dot11Mode"), failedRead("configuredChannel", "channel"),
         kSaveFixed[0], kSaveFixed[1]}),
    row("SetMcsRateParam", oruSdkSetMcsRateParam, 5,
        {failedRead("dot11Mode", "dot11Mode", 1),
         failedRead("channelBondingMode", "channel bonding mode", 1),
         failedRead("ShortGuardInterval20MHz", "Short Guard Interval", 1), kSaveFixed[0],
         kSaveFixed[1]}),
    row("GetRateParam", oruSdkGetRateParam, 0, {failedRead("fixedRate", "ackMode")}),
    row("GetMcsRateParam", oruSdkGetMcsRateParam, 0, {failedRead("fixedRate", "ackMode")}),
    row("SetBroadcastMcsRate", oruSdkSetBroadcastMcsRate, 5,
        {failedRead("bandType", "radio1.bandType"),
         failedRead("dot11Mode", "dot11Mode"),
         failedRead("channelBondingMode", "channel bonding mode"),
         failedRead("ShortGuardInterval20MHz", "Short Guard Interval"),
         {"oruAsfDictSetString radio1.broadcastRate24GHz", 25,
          "Unable to write featureOptions 6 to dictionary"},
         {kDictSave, 8, kNoSave}}),
    row("GetBroadcastMcsRate", oruSdkGetBroadcastMcsRate, 0,
        {failedRead("bandType", "radio1.bandType"),
         failedRead("broadcastRate24GHz", "radio1.broadcastRate24GHz")}),
    {"SetMaxRate",
     nullptr,
     [] {
         OruSdkMaxRateParam param{1, 300};
         return oruSdkSetMaxRate(&param);
     },
     {{kDictCreate, 7, kNoFile},
      {"oruAsfDictSetString MaxRate", 25, "Unable to write MaxRate to dictionary"},
      {kDictSave, 8, kNoSave}}},
    {"GetMaxRate",
     [](AccessPoint &box, StandIn &) { preparePlain(box); },
     [] {
         OruSdkMaxRateParam param{1, 0};
         return oruSdkGetMaxRate(&param);
     },
     {{kDictCreate, 7, kNoFile},
      {"oruAsfDictGetInt MaxRate", 42,
       "Unable to read MaxRate from config file /var/wsmDefaults"}}},
};
INSTANTIATE_TEST_SUITE_P(Rates, FailureSweep, ValuesIn(kSweeps), rowName);
INSTANTIATE_TEST_SUITE_P(Rates, StatusSweep, ValuesIn(kSweeps), rowName);

/// The same for operations that also write trace lines: the last line is the failure's.
void sweepTraced(const AccessPoint &box, StandIn &standIn, const SweepRow &sweep)
{
    const std::string before = box.everything();
    for (size_t n = 0; n <= sweep.steps.size(); ++n) {
        SCOPED_TRACE(sweep.name + ", failing call " + std::to_string(n + 1));
        standIn.reset();
        standIn.failAt(static_cast<int>(n) + 1);
        const uint32_t code = sweep.operation();
        EXPECT_EQ(standIn.openDicts(), 0);
        if (n == sweep.steps.size()) {
            EXPECT_EQ(standIn.failed(), "");
            EXPECT_EQ(code, 0u);
            continue;
        }
        const Step &step = sweep.steps[n];
        EXPECT_EQ(code, step.code);
        EXPECT_EQ(standIn.calls.back(), step.call);
        ASSERT_FALSE(standIn.logs.empty());
        EXPECT_EQ(standIn.logs.back().text, step.log);
        EXPECT_EQ(standIn.logs.back().level, 3);
        EXPECT_EQ(box.everything(), before);
    }
}

TEST_F(Rates, EachFailedCallOfTheLegacySettersHasItsCode)
{
    sweepTraced(
        box, standIn,
        row("SetRateParam", oruSdkSetRateParam, 11,
            {failedRead("dot11Mode", "dot11Mode"), failedRead("configuredChannel", "channel"),
             failedRead("bandType", "radio1.bandType"), kSaveFixed[0], kSaveFixed[1]}));
    sweepTraced(box, standIn,
                row("SetBroadcastRate", oruSdkSetBroadcastRate, 54,
                    {failedRead("bandType", "radio1.bandType"),
                     failedRead("dot11Mode", "dot11Mode"),
                     failedRead("configuredChannel", "channel"),
                     failedRead("bandType", "radio1.bandType"),
                     {"oruAsfDictSetString radio1.broadcastRate24GHz", 25,
                      "Unable to write featureOptions 140 to dictionary"},
                     {kDictSave, 8, kNoSave}}));
}

TEST_F(Rates, EachFailedCallOfTheBroadcastGetterHasItsCode)
{
    sweepTraced(box, standIn,
                row("GetBroadcastRate", oruSdkGetBroadcastRate, 0,
                    {failedRead("bandType", "radio1.bandType"),
                     failedRead("broadcastRate24GHz", "radio1.broadcastRate24GHz")}));
}

} // namespace
} // namespace oru::test
