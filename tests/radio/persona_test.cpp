// Persona and channel set. WSM is asked once in a process, so each case that lets it answer needs
// one of its own, as ctest gives it.
#include "oruSdk.h"
#include "radio/wsm.hpp"
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

void preparePlain(const AccessPoint &box)
{
    box.write(kWsm, "radio0.persona=7\nradio0.bandType=7\nradio0.fixedRate=0\n"
                    "radio1.persona=7\nradio1.bandType=7\nradio1.fixedRate=0\n");
}

using Operation = uint32_t (*)(OruSdkOptionParam *);

struct Item {
    const char *name;
    Operation get;
    Operation set;
    const char *key;
    const char *inMessages;
};

std::ostream &operator<<(std::ostream &to, const Item &item)
{
    return to << item.name;
}

constexpr Item kPersona{"Persona", oruSdkGetRadioPersona, oruSdkSetRadioPersona, "persona",
                        "Radio Persona"};
constexpr Item kChannelSet{"ChannelSet", oruSdkGetChannelSet, oruSdkSetChannelSet, "bandType",
                           "Radio Band"};

struct PersonaAndBand : AccessPointTest {
    PersonaAndBand() { preparePlain(box); }

    [[nodiscard]] std::string value(const Item &item, uint32_t radio) const
    {
        return box.value(kWsm, "radio" + std::to_string(radio) + "." + item.key).value_or("absent");
    }

    /// Sets an item; what is refused leaves record and files.
    uint32_t set(const Item &item, uint32_t radio, uint32_t choice)
    {
        const std::string before = box.everything();
        OruSdkOptionParam param{0xabcd, radio, choice};
        standIn.calls.clear();
        const uint32_t code = item.set(&param);
        EXPECT_EQ(param.reserved, 0xabcdu);
        EXPECT_EQ(param.radioIndex, radio);
        EXPECT_EQ(param.featureOptions, choice);
        if (code == 0) {
            EXPECT_EQ(value(item, radio), std::to_string(choice));
        } else {
            EXPECT_EQ(box.everything(), before);
        }
        return code;
    }

    /// Of a product without 5 GHz; radio 1's bytes say otherwise, and don't count.
    void beBgOnly() { standIn.replyWith(radioReply({{.band5 = 0}, {.band5 = 1}})); }
    void beDualBand() { standIn.replyWith(radioReply({{.band5 = 1}, {.band5 = 0}})); }
};

struct EitherItem : PersonaAndBand, ::testing::WithParamInterface<Item> {
    const Item &item = GetParam();
};

INSTANTIATE_TEST_SUITE_P(All, EitherItem, ::testing::Values(kPersona, kChannelSet),
                         [](const auto &info) { return std::string(info.param.name); });

TEST_P(EitherItem, EachRadioHasAKeyOfItsOwn)
{
    beDualBand();
    for (const uint32_t radio : {0u, 1u})
        for (const uint32_t choice : {0u, 1u, 2u}) {
            preparePlain(box);
            EXPECT_EQ(set(item, radio, choice), 0u);
            EXPECT_EQ(value(item, 1 - radio), "7");
            OruSdkOptionParam read{0xabcd, radio, 99};
            EXPECT_EQ(item.get(&read), 0u);
            EXPECT_EQ(read.featureOptions, choice);
            EXPECT_EQ(read.reserved, 0xabcdu);
        }
    EXPECT_EQ(standIn.sent().size(), 1u);
    EXPECT_NOTHING_LOGGED();
}

TEST_P(EitherItem, SetChangesNothingElse)
{
    beDualBand();
    const std::string before = box.read(kWsm);
    EXPECT_EQ(set(item, 1, 2), 0u);
    box.set(kWsm, std::string("radio1.") + item.key, "7");
    EXPECT_EQ(box.read(kWsm), before);
}

TEST_P(EitherItem, GetterGivesWhateverIsStored)
{
    for (const int stored : {3, -1}) {
        box.set(kWsm, std::string("radio1.") + item.key, std::to_string(stored));
        OruSdkOptionParam param{0, 1, 99};
        EXPECT_EQ(item.get(&param), 0u);
        EXPECT_EQ(param.featureOptions, static_cast<uint32_t>(stored));
    }
    box.unset(kWsm, std::string("radio0.") + item.key);
    OruSdkOptionParam param{0, 0, 99};
    EXPECT_EQ(item.get(&param), 42u);
    EXPECT_LOGGED("Unable to read radio0." + std::string(item.key) +
                  " from config file /var/wsmDefaults");
    EXPECT_EQ(param.featureOptions, 99u);
}

TEST_P(EitherItem, RangeIsCheckedBeforeProductAndFile)
{
    beBgOnly();
    box.remove(kWsm);
    for (const uint32_t choice : {3u, 0x80000000u, 0xffffffffu}) {
        OruSdkOptionParam param{0, 1, choice};
        EXPECT_EQ(item.set(&param), 47u);
        EXPECT_LOGGED("Invalid feature option " + std::to_string(static_cast<int32_t>(choice)) +
                      " for " + item.inMessages);
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_THAT(standIn.sent(), IsEmpty());
}

TEST_P(EitherItem, FileIsOpenedBeforeTheProductIsAskedFor)
{
    beBgOnly();
    box.remove(kWsm);
    OruSdkOptionParam param{0, 1, 0};
    EXPECT_EQ(item.set(&param), 7u);
    EXPECT_LOGGED("Unable to read WSM Defaults file /var/wsmDefaults");
    EXPECT_THAT(standIn.sent(), IsEmpty());
}

TEST_P(EitherItem, RecordThenRadioAreCheckedFirst)
{
    for (const Operation operation : {item.get, item.set}) {
        EXPECT_EQ(operation(nullptr), 2u);
        EXPECT_LOGGED("NULL pointer");
        for (const uint32_t radio : {2u, 0x80000000u, 0xffffffffu}) {
            OruSdkOptionParam param{0, radio, 3};
            EXPECT_EQ(operation(&param), 3u);
            EXPECT_LOGGED("Invalid radio ID: " + std::to_string(static_cast<int32_t>(radio)));
        }
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
}

// ---- Products without 5 GHz

TEST_F(PersonaAndBand, BgOnlyProductRefusesPersonaAny)
{
    beBgOnly();
    for (const uint32_t radio : {0u, 1u}) {
        EXPECT_EQ(set(kPersona, radio, 0), 95u);
        EXPECT_LOGGED("Persona ANY is invalid for b/g only radio product");
        EXPECT_EQ(set(kPersona, radio, 1), 0u);
        EXPECT_EQ(set(kPersona, radio, 2), 0u);
    }
}

TEST_F(PersonaAndBand, BgOnlyProductTakesThe24GHzBandAlone)
{
    beBgOnly();
    for (const uint32_t radio : {0u, 1u}) {
        for (const uint32_t band : {0u, 2u}) {
            EXPECT_EQ(set(kChannelSet, radio, band), 94u);
            EXPECT_LOGGED("Any and 5Ghz bands are invalid for b/g only radio product");
        }
        EXPECT_EQ(set(kChannelSet, radio, 1), 0u);
    }
}

TEST_F(PersonaAndBand, ProductIsNotAskedForWhereItDoesNotMatter)
{
    beBgOnly();
    EXPECT_EQ(set(kPersona, 0, 1), 0u);
    EXPECT_EQ(set(kPersona, 0, 2), 0u);
    EXPECT_EQ(set(kChannelSet, 0, 1), 0u);
    EXPECT_THAT(standIn.sent(), IsEmpty());
    EXPECT_NOTHING_LOGGED();
}

TEST_F(PersonaAndBand, ProductIsCheckedBeforeTheFixedRateIsRead)
{
    beBgOnly();
    box.unset(kWsm, "radio1.fixedRate");
    EXPECT_EQ(set(kChannelSet, 1, 2), 94u);
    EXPECT_EQ(standIn.calls.front(), "oruAsfDictCreate /var/wsmDefaults");
}

TEST_F(PersonaAndBand, ProductThatCantBeHadCountsAsDualBandOnceAndAsBgOnlyAfterwards)
{
    standIn.failOnly("oruAsfIpcConnect");
    standIn.failAt(1);
    EXPECT_EQ(set(kPersona, 1, 0), 0u);
    expectLogged(3,
                 {"IPC Connect failed", "oruSdkGetRadioParam() failed", "getRadioInfo() failed",
                  "getRadioProductBand() failed"},
                 __FILE__, __LINE__);
    EXPECT_EQ(set(kPersona, 1, 0), 95u);
    EXPECT_EQ(set(kChannelSet, 1, 0), 94u);
}

TEST_F(PersonaAndBand, SilenceOfWsmCountsAsBgOnly)
{
    EXPECT_EQ(set(kPersona, 0, 0), 95u);
    EXPECT_EQ(standIn.sent().size(), 1u);
    EXPECT_LOGGED("Persona ANY is invalid for b/g only radio product");
}

// ---- Fixed rate and band

TEST_F(PersonaAndBand, BandsBeyond24GHzRefuseFixedRates65To68)
{
    beDualBand();
    for (const int rate : {-1, 0, 64, 65, 66, 67, 68, 69, 129, 134}) {
        box.set(kWsm, "radio1.fixedRate", std::to_string(rate));
        for (const uint32_t band : {0u, 1u, 2u}) {
            const bool refused = band != 1 && rate >= 65 && rate <= 68;
            EXPECT_EQ(set(kChannelSet, 1, band), refused ? 62u : 0u) << rate << " " << band;
            if (refused) {
                EXPECT_LOGGED("Fixed rate must not be set to 802.11b rates");
            } else {
                EXPECT_NOTHING_LOGGED();
            }
        }
    }
}

TEST_F(PersonaAndBand, FixedRateIsThatOfTheRadio)
{
    beDualBand();
    box.set(kWsm, "radio0.fixedRate", "65");
    EXPECT_EQ(set(kChannelSet, 1, 2), 0u);
    EXPECT_EQ(set(kChannelSet, 0, 2), 62u);
}

TEST_F(PersonaAndBand, FixedRateIsReadForEveryBand)
{
    beDualBand();
    box.unset(kWsm, "radio1.fixedRate");
    for (const uint32_t band : {0u, 1u, 2u}) {
        EXPECT_EQ(set(kChannelSet, 1, band), 42u);
        EXPECT_LOGGED("Unable to read rate from config file /var/wsmDefaults");
    }
}

TEST_F(PersonaAndBand, OnlyMinus1FailsTheFixedRate)
{
    beDualBand();
    box.set(kWsm, "radio1.fixedRate", "65"); // not seen: the value starts as 0
    standIn.failOnly("oruAsfDictGetInt");
    standIn.failAt(1, 3);
    EXPECT_EQ(set(kChannelSet, 1, 2), 0u);
    EXPECT_EQ(standIn.failed(), "oruAsfDictGetInt");
    EXPECT_NOTHING_LOGGED();
}

// ---- Failures of the support library

SweepRow row(const std::string &name, Operation operation, uint32_t choice, std::vector<Step> steps)
{
    steps.insert(steps.begin(), {"oruAsfDictCreate /var/wsmDefaults", 7,
                                 "Unable to read WSM Defaults file /var/wsmDefaults"});
    return {name,
            [](AccessPoint &box, StandIn &standIn) {
                // From here on WSM has told that the product is a dual-band one.
                preparePlain(box);
                standIn.replyWith(radioReply({Radio{}, Radio{}}));
                OruSdkOptionParam param{0, 0, 0};
                ASSERT_EQ(oruSdkSetRadioPersona(&param), 0u);
                preparePlain(box);
                standIn.reset();
            },
            [operation, choice] {
                OruSdkOptionParam param{0, 1, choice};
                return operation(&param);
            },
            steps};
}

Step failedRead(const std::string &key, const std::string &text)
{
    return {.call = "oruAsfDictGetInt radio1." + key,
            .code = 42,
            .log = "Unable to read " + text + " from config file /var/wsmDefaults",
            .onlyMinus1 = key == "fixedRate"};
}

std::vector<SweepRow> sweeps()
{
    const Step save{"oruAsfDictSave /var/wsmDefaults", 8,
                    "Unable to write WSM Defaults file /var/wsmDefaults"};
    std::vector<SweepRow> rows;
    rows.push_back(
        row("GetPersona", oruSdkGetRadioPersona, 0, {failedRead("persona", "radio1.persona")}));
    rows.push_back(
        row("GetChannelSet", oruSdkGetChannelSet, 0, {failedRead("bandType", "radio1.bandType")}));
    for (const uint32_t choice : {0u, 1u, 2u}) {
        const std::string text =
            "Unable to write featureOptions " + std::to_string(choice) + " to dictionary";
        rows.push_back(row("SetPersona" + std::to_string(choice), oruSdkSetRadioPersona, choice,
                           {{"oruAsfDictSetString radio1.persona", 25, text}, save}));
        rows.push_back(row("SetChannelSet" + std::to_string(choice), oruSdkSetChannelSet, choice,
                           {failedRead("fixedRate", "rate"),
                            {"oruAsfDictSetString radio1.bandType", 25, text},
                            save}));
    }
    return rows;
}
INSTANTIATE_TEST_SUITE_P(PersonaAndBand, FailureSweep, ValuesIn(sweeps()), rowName);
INSTANTIATE_TEST_SUITE_P(PersonaAndBand, StatusSweep, ValuesIn(sweeps()), rowName);

} // namespace
} // namespace oru::test
