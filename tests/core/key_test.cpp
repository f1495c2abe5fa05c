#include "core/key.hpp"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>

namespace {

using oru::Key;
using oru::KeyText;
using oru::Number;
using oru::NumberText;

TEST(Key, PutsIndexesInDecimalWithoutPadding)
{
    EXPECT_STREQ((KeyText{Key{"radio%d.txPower", 1}}), "radio1.txPower");
    EXPECT_STREQ((KeyText{Key{"bss%d.wepKey.%d", 3, 4}}), "bss3.wepKey.4");
    EXPECT_STREQ((KeyText{Key{"localMacAcl.%d", 256}}), "localMacAcl.256");
    EXPECT_STREQ((KeyText{Key{"bss%d.ssId", -1}}), "bss-1.ssId");
}

TEST(Key, LeavesAPatternWithoutIndexAsItIs)
{
    EXPECT_STREQ((KeyText{Key{"mimoFlag", 1}}), "mimoFlag");
}

TEST(Key, HoldsTheLongestKeyWithTheLongestIndex)
{
    EXPECT_STREQ((KeyText{Key{"radio%d.dot112040BSSCoexistenceManagementSupport", INT32_MIN}}),
                 "radio-2147483648.dot112040BSSCoexistenceManagementSupport");
}

TEST(Key, CutsWhatDoesNotFit)
{
    const std::string pattern(200, 'k');
    const KeyText key{pattern.c_str()};
    EXPECT_EQ(std::strlen(key), 63u);
}

TEST(Key, EndsBeforeAnIndexThatMightNotFit)
{
    EXPECT_STREQ((KeyText{Key{(std::string(52, 'k') + "%d").c_str(), INT32_MIN}}),
                 (std::string(52, 'k') + "-2147483648").c_str());
    EXPECT_STREQ((KeyText{Key{(std::string(53, 'k') + "%d").c_str(), 1}}),
                 std::string(53, 'k').c_str());
}

TEST(Key, LeavesWhatIsNoIndexAsItIs)
{
    EXPECT_STREQ((KeyText{Key{"a%d.%d.%d", 1, 2}}), "a1.2.%d");
    EXPECT_STREQ((KeyText{Key{"a%s%%d%", 1, 2}}), "a%s%1%");
}

TEST(Number, IsWrittenAsASignedNumber)
{
    for (const int32_t value : {0, 1, -1, 9, 10, 99, 100, 65535, INT32_MAX, INT32_MIN}) {
        char expected[16];
        std::snprintf(expected, sizeof expected, "%d", value);
        EXPECT_STREQ(NumberText{Number{value}}, expected);
    }
    EXPECT_STREQ(NumberText{Number{4294967295u}}, "-1");
}

} // namespace
