#include "oruSdk.h"
#include "support/accesspoint.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

#include <ostream>
#include <set>

namespace oru::test {
namespace {

using ::testing::IsEmpty;
using ::testing::ValuesIn;

uint32_t setRegistrar(int32_t bss, uint32_t value)
{
    OruSdkRegistrarParam param{bss, 1, value};
    return oruSdkSetRegistrarInfo(&param);
}

/// A number of a BSS, with what its operations say.
struct Item {
    const char *name;
    uint32_t (*get)(int32_t, uint32_t *);
    uint32_t (*set)(int32_t, uint32_t);
    const char *key; // behind "bss%d."
    const char *file;
    uint32_t min;
    uint32_t max;
    uint32_t badCode;
    const char *badText;
    uint32_t missingCode;
    const char *missingText; // nullptr: nothing is logged
    const char *getLoadText;
    const char *setLoadText;
    const char *writeText;
    const char *saveText;
};

std::ostream &operator<<(std::ostream &to, const Item &item)
{
    return to << item.name;
}

const Item kItems[] = {
    {"RegistrarInfo", oruSdkGetRegistrarInfo, setRegistrar, "registrarinfo", kWsm, 0, 3, 110,
     "Invalid Registrar setting ", 109,
     "Unable to read registrarInfo from config file /var/wsmDefaults",
     "Unable to read WSM Defaults file /var/wsmDefaults",
     "Unable to read WSM Defaults file /var/wsmDefaults",
     "Unable to write radio%d registrarInfo to dictionary",
     "Unable to write WSM Defaults file /var/wsmDefaults"},
    {"ApEnforcePinTimeout", oruSdkGetApEnforcePinTimeout, oruSdkSetApEnforcePinTimeout,
     "enforcepintimeout", kWsm, 0, 1, 40, "Invalid input ", 42,
     "Unable to read enforcepintimeout info from config file /var/wsmDefaults",
     "Unable to read WSM Defaults file /var/wsmDefaults",
     "Unable to read wsm Defaults file /var/wsmDefaults",
     "Unable to write enforcePinTimeout  to dictionary",
     "Unable to write WSM Defaults file /var/wsmDefaults"},
    {"WscState", oruSdkGetWscState, oruSdkSetWscState, "wpsstate", kWsm, 1, 2, 40, "Invalid input ",
     109, nullptr, "Unable to read WSM Defaults file /var/1x.conf",
     "Unable to read wsm Defaults file /var/wsmDefaults", "Unable to write wpsstate to dictionary",
     "Unable to write WSM Defaults file /var/wsmDefaults"},
    {"Wsc", oruSdkGetWsc, oruSdkSetWsc, "wscEnabledFlag", kAa, 0, 1, 40, "Invalid input ", 109,
     nullptr, "Unable to read WSM Defaults file /var/1x.conf",
     "Unable to read AA Defaults file /var/1x.conf", "Unable to write wscEnabledFlag to dictionary",
     "Unable to write AA Defaults file /var/1x.conf"}};

std::string keyOf(const Item &item, int32_t bss)
{
    return "bss" + std::to_string(bss) + "." + item.key;
}

struct WpsItem : AccessPointTest, ::testing::WithParamInterface<Item> {
    const Item &item = GetParam();
    uint32_t value = 77;
};

TEST_P(WpsItem, EveryValidValueIsStoredUnderItsKeyAlone)
{
    for (const int32_t bss : {0, 1, 2, 3}) {
        for (uint32_t wanted = item.min; wanted <= item.max; ++wanted) {
            box.restore();
            box.set(item.file, keyOf(item, bss), std::to_string(wanted));
            const std::string expected = box.everything();
            box.set(item.file, keyOf(item, bss), "9");
            EXPECT_EQ(item.set(bss, wanted), 0u);
            EXPECT_EQ(box.everything(), expected);
            EXPECT_EQ(item.get(bss, &value), 0u);
            EXPECT_EQ(value, wanted);
        }
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_P(WpsItem, OtherValuesAreRefused)
{
    const std::string before = box.everything();
    std::set<uint32_t> wrong{item.max + 1, item.max + 256, 4294967295u, 2147483648u};
    if (item.min > 0) wrong.insert(item.min - 1);
    for (const uint32_t refused : wrong) {
        EXPECT_EQ(item.set(1, refused), item.badCode) << refused;
        EXPECT_LOGGED(item.badText + std::to_string(static_cast<int32_t>(refused)));
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(box.everything(), before);
}

TEST_P(WpsItem, BssAbove3Is115)
{
    for (const int32_t bss : {4, 9, INT32_MAX}) {
        const std::string text = "Invalid bss number ID: " + std::to_string(bss);
        EXPECT_EQ(item.set(bss, item.min), 115u);
        EXPECT_LOGGED(text);
        EXPECT_EQ(item.get(bss, &value), 115u);
        EXPECT_LOGGED(text);
        EXPECT_EQ(item.get(bss, nullptr), 115u); // before the pointer
        EXPECT_LOGGED(text);
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(value, 77u);
}

TEST_P(WpsItem, NegativeBssFormsItsKeyWithTheSign)
{
    for (const int32_t bss : {-1, INT32_MIN}) {
        EXPECT_EQ(item.set(bss, item.max), 0u);
        EXPECT_EQ(box.value(item.file, keyOf(item, bss)), std::to_string(item.max));
        EXPECT_EQ(item.get(bss, &value), 0u);
        EXPECT_EQ(value, item.max);
    }
}

TEST_P(WpsItem, NullResultIs2)
{
    EXPECT_EQ(item.get(0, nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_P(WpsItem, MissingKeyHasItsCode)
{
    for (const char *stored : {"", "x", "1x"}) {
        box.set(item.file, keyOf(item, 2), stored);
        EXPECT_EQ(item.get(2, &value), item.missingCode);
        standIn.logs.clear();
    }
    box.unset(item.file, keyOf(item, 2));
    EXPECT_EQ(item.get(2, &value), item.missingCode);
    if (item.missingText == nullptr) {
        EXPECT_NOTHING_LOGGED();
    } else {
        EXPECT_LOGGED(item.missingText);
    }
    EXPECT_EQ(value, 77u);
}

TEST_P(WpsItem, StoredNumberIsNotChecked)
{
    box.set(item.file, keyOf(item, 2), "-5");
    EXPECT_EQ(item.get(2, &value), 0u);
    EXPECT_EQ(value, static_cast<uint32_t>(-5));
}

INSTANTIATE_TEST_SUITE_P(Wps, WpsItem, ValuesIn(kItems),
                         [](const auto &info) { return std::string(info.param.name); });

struct WpsItems : AccessPointTest {};

TEST_F(WpsItems, ValueComesBeforeTheBss)
{
    EXPECT_EQ(oruSdkSetWscState(9, 5), 40u);
    EXPECT_LOGGED("Invalid input 5");
    EXPECT_EQ(oruSdkSetWsc(9, 2), 40u);
    EXPECT_LOGGED("Invalid input 2");
    EXPECT_EQ(oruSdkSetApEnforcePinTimeout(9, 2), 40u);
    EXPECT_LOGGED("Invalid input 2");
}

TEST_F(WpsItems, RegistrarChecksRecordThenRadioThenBssThenValue)
{
    EXPECT_EQ(oruSdkSetRegistrarInfo(nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    OruSdkRegistrarParam param{4, 2, 4};
    EXPECT_EQ(oruSdkSetRegistrarInfo(&param), 3u);
    EXPECT_LOGGED("Invalid radio ID: 2");
    param.radioIndex = 1;
    EXPECT_EQ(oruSdkSetRegistrarInfo(&param), 115u);
    EXPECT_LOGGED("Invalid bss number ID: 4");
    param.bssIndex = 3;
    EXPECT_EQ(oruSdkSetRegistrarInfo(&param), 110u);
    EXPECT_LOGGED("Invalid Registrar setting 4");
    EXPECT_THAT(standIn.calls, IsEmpty());
    param.registrarInfo = 3;
    EXPECT_EQ(oruSdkSetRegistrarInfo(&param), 0u);
    param.radioIndex = 4294967295u;
    EXPECT_EQ(oruSdkSetRegistrarInfo(&param), 3u);
    EXPECT_LOGGED("Invalid radio ID: -1");
}

std::vector<SweepRow> rows()
{
    std::vector<SweepRow> rows;
    for (const Item &item : kItems) {
        const std::string key = keyOf(item, 1);
        const auto prepare = [&item, key](AccessPoint &box, StandIn &) {
            box.set(item.file, key, "7");
        };
        Step load{std::string("oruAsfDictCreate ") + item.file, 7, item.getLoadText};
        if (item.get == oruSdkGetWsc) {
            load.log = "cannot create dict\n";
            load.thenLog = item.getLoadText;
        }
        rows.push_back({std::string("Get") + item.name,
                        prepare,
                        [&item] {
                            uint32_t value = 0;
                            return item.get(1, &value);
                        },
                        {load,
                         {"oruAsfDictGetInt " + key, item.missingCode,
                          item.missingText == nullptr ? "" : item.missingText}}});
        rows.push_back({std::string("Set") + item.name,
                        prepare,
                        [&item] { return item.set(1, item.max); },
                        {{std::string("oruAsfDictCreate ") + item.file, 7, item.setLoadText},
                         {"oruAsfDictSetString " + key, 25, item.writeText},
                         {std::string("oruAsfDictSave ") + item.file, 8, item.saveText}}});
    }
    return rows;
}
INSTANTIATE_TEST_SUITE_P(WpsItems, FailureSweep, ValuesIn(rows()), rowName);
INSTANTIATE_TEST_SUITE_P(WpsItems, StatusSweep, ValuesIn(rows()), rowName);

} // namespace
} // namespace oru::test
