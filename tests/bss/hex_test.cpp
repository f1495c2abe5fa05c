#include "oruSdk.h"
#include "support/accesspoint.hpp"

namespace oru::test {
namespace {

TEST(IsHex, DigitsOfBothCasesAndTheEmptyText)
{
    for (const char *text : {"", "0aF", "0123456789abcdefABCDEF", "a"})
        EXPECT_EQ(isHex(text), 1u) << text;
}

TEST(IsHex, AnyOtherCharacterAnywhereGives0)
{
    for (const char *text :
         {"0x1", "g", "G", "/", ":", "@", "`", " 1", "1 ", "12\n", "-1", "\xe1", "ab:cd"})
        EXPECT_EQ(isHex(text), 0u) << text;
}

TEST(IsHex, ExactlyTheDigitsOfAllCharacters)
{
    for (int c = 1; c < 256; ++c) {
        const char text[] = {'0', static_cast<char>(c), '\0'};
        const bool digit =
            (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
        EXPECT_EQ(isHex(text), digit ? 1u : 0u) << c;
    }
}

struct IsHexNull : AccessPointTest {};

TEST_F(IsHexNull, NullGives0WithoutALine)
{
    EXPECT_EQ(isHex(nullptr), 0u);
    EXPECT_NOTHING_LOGGED();
}

} // namespace
} // namespace oru::test
