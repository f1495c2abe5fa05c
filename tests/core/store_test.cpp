// The store's helpers, which are not exported.
#include "core/store.hpp"
#include "support/accesspoint.hpp"

#include <gmock/gmock.h>

namespace oru::test {
namespace {

constexpr const char kKey[] = "radio0.txPower";

struct StoreHelpers : AccessPointTest {
    OruSdkOptionParam option{0, 0, 1};
    OruSdkFeatureParam feature{0, 0, 1};
    Dict dict;

    void TearDown() override
    {
        dict = Dict{};
        AccessPointTest::TearDown();
    }
};

TEST_F(StoreHelpers, OpenRefusesANullRecordFirst)
{
    EXPECT_EQ(sdkOpenRadioDefaults(nullptr, kKey, 0, 1, dict), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, ::testing::IsEmpty());
}

TEST_F(StoreHelpers, OpenChecksTheRadioBeforeTheOption)
{
    option = {0, 2, 99};
    EXPECT_EQ(sdkOpenRadioDefaults(&option, kKey, 0, 1, dict), 3u);
    EXPECT_LOGGED("Invalid radio ID: 2");
    option.radioIndex = 0x80000000;
    EXPECT_EQ(sdkOpenRadioDefaults(&option, kKey, 0, 1, dict), 3u);
    EXPECT_LOGGED("Invalid radio ID: -2147483648");
}

TEST_F(StoreHelpers, OpenTakesBothBoundsAndNothingBeyond)
{
    option.featureOptions = 101;
    EXPECT_EQ(sdkOpenRadioDefaults(&option, kKey, 0, 100, dict), 47u);
    EXPECT_LOGGED("Invalid feature option 101 for radio0.txPower");
    option.featureOptions = 9;
    EXPECT_EQ(sdkOpenRadioDefaults(&option, kKey, 10, 100, dict), 47u);
    EXPECT_LOGGED("Invalid feature option 9 for radio0.txPower");
    EXPECT_THAT(standIn.calls, ::testing::IsEmpty());
    for (const uint32_t value : {0u, 100u}) {
        option.featureOptions = value;
        EXPECT_EQ(sdkOpenRadioDefaults(&option, kKey, 0, 100, dict), 0u);
    }
}

TEST_F(StoreHelpers, OpenWithEqualBoundsNeverLooksAtTheOption)
{
    for (const uint32_t value : {0u, 1u, 47u, 4294967295u}) {
        option.featureOptions = value;
        EXPECT_EQ(sdkOpenRadioDefaults(&option, kKey, 0, 0, dict), 0u);
        EXPECT_EQ(sdkOpenRadioDefaults(&option, kKey, 5, 5, dict), 0u);
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(StoreHelpers, OpenOfAMissingFileIs7)
{
    box.remove(kWsm);
    EXPECT_EQ(sdkOpenRadioDefaults(&option, kKey, 0, 1, dict), 7u);
    EXPECT_LOGGED("Unable to read WSM Defaults file /var/wsmDefaults");
    EXPECT_FALSE(dict);
}

TEST_F(StoreHelpers, WriteStoresTheOptionAsASignedNumber)
{
    option.featureOptions = 4294967295u;
    EXPECT_EQ(sdkDictWriteAndSave(&option, kKey, Dict{kWsm}), 0u);
    EXPECT_EQ(box.value(kWsm, kKey), "-1");
}

TEST_F(StoreHelpers, ReadOfAMissingKeyLeavesTheRecord)
{
    option.featureOptions = 77;
    EXPECT_EQ(sdkDictReadInt(&option, "noSuchKey", Dict{kWsm}), 42u);
    EXPECT_LOGGED("Unable to read noSuchKey from config file /var/wsmDefaults");
    EXPECT_EQ(option.featureOptions, 77u);
}

TEST_F(StoreHelpers, FailuresOfAWriteAreToldApart)
{
    option.featureOptions = 2;
    Dict first{kWsm};
    standIn.failAt(1);
    EXPECT_EQ(sdkDictWriteAndSave(&option, kKey, std::move(first)), 25u);
    EXPECT_LOGGED("Unable to write featureOptions 2 to dictionary");
    Dict second{kWsm};
    standIn.failAt(2);
    EXPECT_EQ(sdkDictWriteAndSave(&option, kKey, std::move(second)), 8u);
    EXPECT_LOGGED("Unable to write WSM Defaults file /var/wsmDefaults");
}

TEST_F(StoreHelpers, SwitchGetterGivesAnyStoredNumber)
{
    box.set(kWsm, kKey, "-7");
    EXPECT_EQ(sdkGetRadioFeature(&feature, kKey), 0u);
    EXPECT_EQ(feature.activationFlag, static_cast<uint32_t>(-7));
}

TEST_F(StoreHelpers, SwitchGetterTellsAMissingFileFromAMissingKey)
{
    feature.activationFlag = 77;
    box.unset(kWsm, kKey);
    EXPECT_EQ(sdkGetRadioFeature(&feature, kKey), 42u);
    EXPECT_LOGGED("Unable to read radio0.txPower from config file /var/wsmDefaults");
    box.remove(kWsm);
    EXPECT_EQ(sdkGetRadioFeature(&feature, kKey), 7u);
    EXPECT_LOGGED("Unable to read WSM Defaults file /var/wsmDefaults");
    EXPECT_EQ(feature.activationFlag, 77u);
}

TEST_F(StoreHelpers, SwitchSetterChecksRadioThenFlagThenFile)
{
    box.remove(kWsm);
    feature = {0, 2, 2};
    EXPECT_EQ(sdkSetRadioFeature(&feature, kKey), 3u);
    EXPECT_LOGGED("Invalid radio ID: 2");
    feature.radioIndex = 1;
    EXPECT_EQ(sdkSetRadioFeature(&feature, kKey), 47u);
    EXPECT_LOGGED("Invalid Activation Flag 2 for radio0.txPower");
    EXPECT_THAT(standIn.calls, ::testing::IsEmpty());
    feature.activationFlag = 1;
    EXPECT_EQ(sdkSetRadioFeature(&feature, kKey), 7u);
    EXPECT_LOGGED("Unable to read WSM Defaults file /var/wsmDefaults");
}

TEST_F(StoreHelpers, RadiusServerCountsOnlyAboveZeroAndOnlyTheFirst)
{
    box.unset(kAa, "radiusServer.1");
    box.set(kAa, "radiusServer.2", "10.0.0.2");
    {
        const Dict without{kAa};
        EXPECT_FALSE(sdkRadiusServerConfigured(without, 3));
    }
    box.setDelimited(kAa, "radiusServer.1", "");
    {
        const Dict empty{kAa};
        EXPECT_TRUE(sdkRadiusServerConfigured(empty, 3));
    }
    box.set(kAa, "radiusServer.1", "10.0.0.1");
    Dict with{kAa};
    standIn.calls.clear();
    EXPECT_FALSE(sdkRadiusServerConfigured(with, 0));
    EXPECT_FALSE(sdkRadiusServerConfigured(with, -1));
    EXPECT_THAT(standIn.calls, ::testing::IsEmpty());
    EXPECT_TRUE(sdkRadiusServerConfigured(with, 1));
    EXPECT_TRUE(sdkRadiusServerConfigured(with, 3));
    with = Dict{};
}

TEST_F(StoreHelpers, KeepOpenLeavesTheHandleOpen)
{
    OruAsfDict *handle = nullptr;
    {
        Dict kept{kWsm};
        handle = kept;
        kept.keepOpen();
    }
    EXPECT_EQ(standIn.openDicts(), 1);
    oruAsfDictFree(handle);
}

} // namespace
} // namespace oru::test
