#include "oruSdk.h"
#include "radio/steps.hpp"
#include "support/accesspoint.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

namespace oru::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The two families have the same rules: five numbers behind each other, or three.
struct Field {
    const char *name;
    size_t at; // behind radioIndex
    const char *key;
    uint32_t min;
    uint32_t max;
    uint32_t code;
    const char *outOfRange;
};

struct Family {
    std::string name;
    std::function<uint32_t(uint32_t *)> get;
    std::function<uint32_t(uint32_t *)> set;
    std::vector<Field> fields;

    /// A record of the radio with values that pass.
    [[nodiscard]] std::vector<uint32_t> record(uint32_t radio) const
    {
        std::vector<uint32_t> numbers{radio};
        for (const Field &field : fields)
            numbers.push_back(field.min + 100 + static_cast<uint32_t>(field.at));
        return numbers;
    }
};

std::ostream &operator<<(std::ostream &to, const Family &family)
{
    return to << family.name;
}

const Family kMac{
    "Dot11MacParam",
    [](uint32_t *record) {
        OruSdkDot11MacParam param{record[0], record[1], record[2], record[3], record[4]};
        const uint32_t code = oruSdkGetDot11MacParam(&param);
        const uint32_t filled[] = {param.radioIndex, param.fragThreshold, param.rtsThreshold,
                                   param.shortRetryLimit, param.longRetryLimit};
        std::copy(std::begin(filled), std::end(filled), record);
        return code;
    },
    [](uint32_t *record) {
        OruSdkDot11MacParam param{record[0], record[1], record[2], record[3], record[4]};
        return oruSdkSetDot11MacParam(&param);
    },
    {{"fragThPeriod", 1, "radio%d.fragThPeriod", 256, 2346, 11, "Fragement threshold out of range"},
     {"rtsThPeriod", 2, "radio%d.rtsThPeriod", 1, 2347, 12, "RTS threshold out of range"},
     {"shortRetryLimit", 3, "radio%d.shortRetryLimit", 0, 255, 13,
      "Short retry limit out of range"},
     {"longRetryLimit", 4, "radio%d.longRetryLimit", 0, 255, 14, "Long retry limit out of range"}}};

const Family kBeacon{
    "BeaconParam",
    [](uint32_t *record) {
        OruSdkBeaconParam param{record[0], record[1], record[2]};
        const uint32_t code = oruSdkGetBeaconParam(&param);
        const uint32_t filled[] = {param.radioIndex, param.beaconPeriod, param.dtimPeriod};
        std::copy(std::begin(filled), std::end(filled), record);
        return code;
    },
    [](uint32_t *record) {
        OruSdkBeaconParam param{record[0], record[1], record[2]};
        return oruSdkSetBeaconParam(&param);
    },
    {{"beaconPeriod", 1, "radio%d.beaconPeriod", 1, 65535, 9, "Beacon period out of range"},
     {"dtimPeriod", 2, "radio%d.dtimPeriod", 1, 255, 10, "DTIM period out of range"}}};

std::string keyOf(const Field &field, uint32_t radio)
{
    std::string key = field.key;
    return key.replace(key.find("%d"), 2, std::to_string(radio));
}

std::string nameOf(const ::testing::TestParamInfo<Family> &info)
{
    return info.param.name;
}

struct MacParameters : AccessPointTest, ::testing::WithParamInterface<Family> {
    const Family &family = GetParam();

    void store(uint32_t radio, const std::vector<uint32_t> &record)
    {
        for (const Field &field : family.fields)
            box.set(kWsm, keyOf(field, radio), std::to_string(record[field.at]));
    }
};

TEST_P(MacParameters, SetWritesEveryKeyOfItsRadioAndGetReadsThem)
{
    for (const uint32_t radio : {0u, 1u}) {
        std::vector<uint32_t> record = family.record(radio);
        EXPECT_EQ(family.set(record.data()), 0u);
        for (const Field &field : family.fields)
            EXPECT_EQ(box.value(kWsm, keyOf(field, radio)), std::to_string(record[field.at]));
        std::vector<uint32_t> read(record.size(), 9999);
        read[0] = radio;
        EXPECT_EQ(family.get(read.data()), 0u);
        EXPECT_EQ(read, record);
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_P(MacParameters, OtherRadioIsLeftAlone)
{
    std::vector<uint32_t> record = family.record(1);
    store(0, record);
    store(1, record);
    const std::string before = box.read(kWsm);
    for (const Field &field : family.fields) ++record[field.at];
    EXPECT_EQ(family.set(record.data()), 0u);
    store(1, family.record(1));
    EXPECT_EQ(box.read(kWsm), before);
}

TEST_P(MacParameters, BothBoundsPassAndTheNextValuesDoNot)
{
    for (const Field &field : family.fields) {
        SCOPED_TRACE(field.name);
        std::vector<uint32_t> record = family.record(0);
        for (const uint32_t value : {field.min, field.max}) {
            record[field.at] = value;
            EXPECT_EQ(family.set(record.data()), 0u) << value;
            EXPECT_EQ(box.value(kWsm, keyOf(field, 0)), std::to_string(value));
        }
        const std::string before = box.everything();
        standIn.reset();
        std::set<uint32_t> outside{field.max + 1, 0x7fffffff, 0x80000000, 0xffffffff};
        if (field.min > 0) outside.insert({field.min - 1, 0});
        for (const uint32_t value : outside) {
            record[field.at] = value;
            EXPECT_EQ(family.set(record.data()), field.code) << value;
            EXPECT_LOGGED(field.outOfRange);
        }
        EXPECT_THAT(standIn.calls, IsEmpty());
        EXPECT_EQ(box.everything(), before);
    }
}

TEST_P(MacParameters, FirstFieldOutOfRangeDecides)
{
    std::vector<uint32_t> record(family.fields.size() + 1, 0xffffffff);
    record[0] = 0;
    for (const Field &field : family.fields) {
        EXPECT_EQ(family.set(record.data()), field.code);
        EXPECT_LOGGED(field.outOfRange);
        record[field.at] = field.max;
    }
    EXPECT_EQ(family.set(record.data()), 0u);
}

TEST_P(MacParameters, RangeIsCheckedBeforeTheFile)
{
    box.remove(kWsm);
    std::vector<uint32_t> record = family.record(0);
    const Field &last = family.fields.back();
    record[last.at] = last.max + 1;
    EXPECT_EQ(family.set(record.data()), last.code);
    EXPECT_LOGGED(last.outOfRange);
    record[last.at] = last.max;
    EXPECT_EQ(family.set(record.data()), 7u);
    EXPECT_LOGGED("Unable to read WSM Defaults file /var/wsmDefaults");
}

TEST_P(MacParameters, FieldsBeforeAMissingKeyAreFilled)
{
    for (const Field &missing : family.fields) {
        SCOPED_TRACE(missing.name);
        const std::vector<uint32_t> stored = family.record(1);
        store(1, stored);
        box.unset(kWsm, keyOf(missing, 1));
        std::vector<uint32_t> read(stored.size(), 9999);
        read[0] = 1;
        EXPECT_EQ(family.get(read.data()), 42u);
        EXPECT_LOGGED(std::string{"Unable to read "} + missing.name +
                      " from config file /var/wsmDefaults");
        for (const Field &field : family.fields)
            EXPECT_EQ(read[field.at], field.at < missing.at ? stored[field.at] : 9999u)
                << field.name;
    }
}

TEST_P(MacParameters, GetGivesWhateverNumberIsStored)
{
    for (const Field &field : family.fields) box.set(kWsm, keyOf(field, 0), "-7");
    std::vector<uint32_t> read(family.fields.size() + 1, 0);
    EXPECT_EQ(family.get(read.data()), 0u);
    for (const Field &field : family.fields) EXPECT_EQ(read[field.at], static_cast<uint32_t>(-7));
}

TEST_P(MacParameters, EachPlaceThatLogsHasANumberOfItsOwn)
{
    const int count = static_cast<int>(family.fields.size());
    for (int n = 0; n < count; ++n) {
        std::vector<uint32_t> record = family.record(0);
        store(0, record);
        for (const char *call : {"oruAsfDictGetInt", "oruAsfDictSetString"}) {
            standIn.failOnly(call);
            standIn.failAt(n + 1);
            family.get(record.data());
            family.set(record.data());
        }
        standIn.failAt(0);
        record[family.fields[static_cast<size_t>(n)].at] = 0xffffffff;
        family.set(record.data());
    }
    std::set<int32_t> lines;
    for (const LogLine &log : standIn.logs) lines.insert(log.line);
    EXPECT_EQ(standIn.logs.size(), static_cast<size_t>(count) * 3);
    EXPECT_EQ(lines.size(), standIn.logs.size());
}

INSTANTIATE_TEST_SUITE_P(Families, MacParameters, ::testing::Values(kMac, kBeacon), nameOf);

struct MacOrder : AccessPointTest {};

TEST_F(MacOrder, KeysAreWrittenAndReadInFieldOrder)
{
    OruSdkDot11MacParam mac{1, 2346, 2347, 7, 4};
    EXPECT_EQ(oruSdkSetDot11MacParam(&mac), 0u);
    EXPECT_THAT(standIn.calls, ElementsAre("oruAsfDictCreate /var/wsmDefaults",
                                           "oruAsfDictSetString radio1.fragThPeriod",
                                           "oruAsfDictSetString radio1.rtsThPeriod",
                                           "oruAsfDictSetString radio1.shortRetryLimit",
                                           "oruAsfDictSetString radio1.longRetryLimit",
                                           "oruAsfDictSave /var/wsmDefaults"));
}

// ---- Each call fails in turn

std::vector<SweepRow> sweepRows()
{
    std::vector<SweepRow> rows;
    for (const Family *family : {&kMac, &kBeacon}) {
        SweepRow get{"Get" + family->name,
                     [family](AccessPoint &box, StandIn &) {
                         for (const Field &field : family->fields)
                             box.set(kWsm, keyOf(field, 1), "3");
                     },
                     [family] { return family->get(family->record(1).data()); },
                     {kLoad}};
        SweepRow set{"Set" + family->name,
                     nullptr,
                     [family] { return family->set(family->record(1).data()); },
                     {kLoad}};
        for (const Field &field : family->fields) {
            const std::string name = field.name;
            get.steps.push_back(readStep(keyOf(field, 1), "Unable to read " + name));
            set.steps.push_back(writeStep(keyOf(field, 1), "Unable to write " + name));
        }
        set.steps.push_back(kSave);
        rows.push_back(get);
        rows.push_back(set);
    }
    return rows;
}

INSTANTIATE_TEST_SUITE_P(Mac, FailureSweep, ::testing::ValuesIn(sweepRows()), rowName);
INSTANTIATE_TEST_SUITE_P(Mac, StatusSweep, ::testing::ValuesIn(sweepRows()), rowName);

} // namespace
} // namespace oru::test
