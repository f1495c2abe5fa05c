#include "oruSdk.h"
#include "support/accesspoint.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

namespace oru::test {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr const char kKey[] = "bss1.wpaPsk";
const std::string kRaw(64, 'a');

struct Psk : AccessPointTest {
    Psk()
    {
        box.set(kAa, "bss1.wpaEnabled", "true");
        box.setDelimited(kAa, kKey, "the old key");
    }

    void expectStored(const std::string &psk)
    {
        EXPECT_EQ(oruSdkSetWpaPsk(1, psk.c_str()), 0u) << psk;
        EXPECT_EQ(box.value(kAa, kKey), psk);
        EXPECT_NOTHING_LOGGED();
    }

    /// A refused key leaves its handle open.
    void expectRefused(const std::string &psk, uint32_t code, const std::string &log)
    {
        SCOPED_TRACE(psk);
        const std::string before = box.everything();
        EXPECT_EQ(oruSdkSetWpaPsk(1, psk.c_str()), code);
        EXPECT_LOGGED(log + psk);
        EXPECT_EQ(box.everything(), before);
        expectOpenDicts(++refused_);
    }

private:
    int refused_ = 0;
};

// ---- Setting

TEST_F(Psk, TakesARawKeyOf64DigitsOfEitherCase)
{
    expectStored(kRaw);
    expectStored("0123456789abcdefABCDEF" + std::string(42, '9'));
}

TEST_F(Psk, RawKeyWithAnotherCharacterIs31)
{
    for (const char *wrong : {"g", "G", " ", ":", "/", "@", "`", "\x7f", "\xe9"}) {
        for (const size_t place : {size_t{0}, size_t{31}, size_t{63}}) {
            std::string psk = kRaw;
            psk.replace(place, 1, wrong);
            expectRefused(psk, 31, "Invalid raw PSK key ");
        }
    }
}

TEST_F(Psk, PassPhraseOf8To63PrintableCharactersIsStored)
{
    expectStored("8 charac");
    expectStored(std::string(63, '~'));
    expectStored(" !\"#$%&'()*+,-./0123456789:;<=>?@[\\]^_`{|}~ ");
    expectStored(std::string(63, 'a')); // digits too, yet no raw key
}

TEST_F(Psk, OtherLengthsAre31WithTheRawKeysText)
{
    for (const size_t length : {0, 1, 7, 65, 66, 1000})
        expectRefused(std::string(length, 'a'), 31, "Invalid raw PSK key ");
    expectRefused("\t\t\t", 31, "Invalid raw PSK key "); // the length is looked at first
}

TEST_F(Psk, PassPhraseWithAnUnprintableByteIs41)
{
    for (const char *wrong : {"\t", "\n", "\r", "\x01", "\x1f", "\x7f", "\x80", "\xa0", "\xff"}) {
        expectRefused(std::string("passwor") + wrong, 41, "Invalid PSK key ");
        expectRefused(wrong + std::string(62, 'p'), 41, "Invalid PSK key ");
    }
}

TEST_F(Psk, HostilePassPhraseChangesItsKeyAlone)
{
    for (const std::string psk : {"\"; x=1 \"", "a=b=c=d=e", "# comment",
                                  "\\n\\\"\\x00=", "  blanks  ", "bss1.wpaEnabled=false"}) {
        expectStored(psk);
        const std::string stored = box.read(kAa);
        EXPECT_EQ(oruSdkSetWpaPsk(1, "harmless"), 0u);
        box.setDelimited(kAa, kKey, psk);
        EXPECT_EQ(box.read(kAa), stored);
        EXPECT_EQ(box.value(kAa, "bss1.wpaEnabled"), "true");
    }
    box.unset(kAa, kKey);
    const std::string without = box.read(kAa);
    EXPECT_EQ(oruSdkSetWpaPsk(1, "\"bss1.x=\"\\"), 0u);
    box.unset(kAa, kKey);
    EXPECT_EQ(box.read(kAa), without);
}

TEST_F(Psk, WpaMustBeOn)
{
    box.set(kAa, "bss1.wpaEnabled", "false");
    const std::string before = box.everything();
    for (const char *psk : {kRaw.c_str(), "short", static_cast<const char *>(nullptr)}) {
        EXPECT_EQ(oruSdkSetWpaPsk(1, psk), 33u);
        EXPECT_LOGGED("WPA must be enabled");
    }
    EXPECT_EQ(box.everything(), before);
}

TEST_F(Psk, WpaFlagMustBeThere)
{
    for (const char *flag : {"1", "TRUE", ""}) {
        box.set(kAa, "bss1.wpaEnabled", flag);
        EXPECT_EQ(oruSdkSetWpaPsk(1, "short"), 26u);
        EXPECT_LOGGED("Unable to read wpaEnabled from dictionary");
    }
}

TEST_F(Psk, RemovalSucceedsAndIsNotSaved)
{
    const std::string before = box.everything();
    EXPECT_EQ(oruSdkSetWpaPsk(1, nullptr), 0u);
    EXPECT_NOTHING_LOGGED();
    EXPECT_EQ(box.everything(), before);
    EXPECT_THAT(standIn.calls, Contains("oruAsfDictSetDelimitedString bss1.wpaPsk"));
    EXPECT_THAT(standIn.calls, Not(Contains("oruAsfDictSave /var/1x.conf")));
    EXPECT_EQ(box.value(kAa, kKey), "the old key");
}

TEST_F(Psk, BssAbove3Is115BeforeAnythingElse)
{
    for (const int32_t bss : {4, 5, INT32_MAX}) {
        EXPECT_EQ(oruSdkSetWpaPsk(bss, "short"), 115u);
        EXPECT_LOGGED("Invalid bss number ID: " + std::to_string(bss));
        char psk[65];
        uint32_t length = 0;
        EXPECT_EQ(oruSdkGetWpaPsk(bss, psk, &length), 115u);
        EXPECT_LOGGED("Invalid bss number ID: " + std::to_string(bss));
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(Psk, EachBssHasItsOwnKeyAndANegativeNumberFormsOne)
{
    for (const int32_t bss : {0, 3, -1, INT32_MIN}) {
        const std::string prefix = "bss" + std::to_string(bss) + ".";
        box.set(kAa, prefix + "wpaEnabled", "true");
        EXPECT_EQ(oruSdkSetWpaPsk(bss, "password"), 0u);
        EXPECT_EQ(box.value(kAa, prefix + "wpaPsk"), "password");
        char psk[65];
        uint32_t length = 0;
        EXPECT_EQ(oruSdkGetWpaPsk(bss, psk, &length), 0u);
        EXPECT_STREQ(psk, "password");
    }
    EXPECT_EQ(box.value(kAa, kKey), "the old key");
}

// ---- Reading

struct PskRead : Psk {
    char psk[66]; // one byte more than the operation's room
    uint32_t length = 77;

    PskRead() { std::fill(std::begin(psk), std::end(psk), '?'); }
};

TEST_F(PskRead, GivesTextAndLengthWhetherWpaIsOnOrOff)
{
    box.set(kAa, "bss1.wpaEnabled", "false");
    EXPECT_EQ(oruSdkGetWpaPsk(1, psk, &length), 0u);
    EXPECT_STREQ(psk, "the old key");
    EXPECT_EQ(length, 11u);
    EXPECT_NOTHING_LOGGED();
    EXPECT_THAT(standIn.calls, Not(Contains("oruAsfDictGetBool bss1.wpaEnabled")));
}

TEST_F(PskRead, StaysInsideItsRoomOf65Characters)
{
    for (const size_t stored : {63, 64, 65, 300}) {
        const std::string text(stored, 'k');
        box.setDelimited(kAa, kKey, text);
        EXPECT_EQ(oruSdkGetWpaPsk(1, psk, &length), 0u);
        EXPECT_EQ(psk, text.substr(0, 64));
        EXPECT_EQ(length, stored);
        EXPECT_EQ(psk[65], '?');
    }
}

TEST_F(PskRead, EmptyStoredKeyIsAKey)
{
    box.setDelimited(kAa, kKey, "");
    EXPECT_EQ(oruSdkGetWpaPsk(1, psk, &length), 0u);
    EXPECT_STREQ(psk, "");
    EXPECT_EQ(length, 0u);
}

TEST_F(PskRead, MissingKeyIs72AndLeavesTheCallers)
{
    box.unset(kAa, kKey);
    EXPECT_EQ(oruSdkGetWpaPsk(1, psk, &length), 72u);
    EXPECT_LOGGED("Unable to read wpaPsk from dictionary");
    EXPECT_EQ(psk[0], '?');
    EXPECT_EQ(length, 77u);
}

TEST_F(PskRead, NullPointersAre2BeforeTheBss)
{
    EXPECT_EQ(oruSdkGetWpaPsk(4, nullptr, &length), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkGetWpaPsk(4, psk, nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(PskRead, StatusOfZeroOrAboveWithoutATextIsAMissingKey)
{
    standIn.failOnly("oruAsfDictGetDelimitedString");
    standIn.failAt(1, 5);
    EXPECT_EQ(oruSdkGetWpaPsk(1, psk, &length), 72u);
    EXPECT_LOGGED("Unable to read wpaPsk from dictionary");
}

// ---- Every call that can fail

std::vector<SweepRow> rows()
{
    const Step open{"oruAsfDictCreate /var/1x.conf", 7,
                    "Unable to read AA Defaults file /var/1x.conf"};
    const Step flag{"oruAsfDictGetBool bss1.wpaEnabled", 26,
                    "Unable to read wpaEnabled from dictionary"};
    const auto prepare = [](AccessPoint &box, StandIn &) {
        box.set(kAa, "bss1.wpaEnabled", "true");
        box.setDelimited(kAa, kKey, "the old key");
    };
    return {
        {"SetWpaPsk",
         prepare,
         [] { return oruSdkSetWpaPsk(1, "password"); },
         {open,
          flag,
          {"oruAsfDictSetDelimitedString bss1.wpaPsk", 25, "Unable to write wpaPsk to dictionary"},
          {"oruAsfDictSave /var/1x.conf", 8, "Unable to write AA Defaults file /var/1x.conf"}}},
        {"RemoveWpaPsk",
         prepare,
         [] { return oruSdkSetWpaPsk(1, nullptr); },
         {open,
          flag,
          {"oruAsfDictSetDelimitedString bss1.wpaPsk", 25,
           "Unable to delete wpaPsk from dictionary"}}},
        {"GetWpaPsk",
         prepare,
         [] {
             char psk[65];
             uint32_t length = 0;
             return oruSdkGetWpaPsk(1, psk, &length);
         },
         {open,
          {"oruAsfDictGetDelimitedString bss1.wpaPsk", 72,
           "Unable to read wpaPsk from dictionary"}}}};
}
INSTANTIATE_TEST_SUITE_P(Psk, FailureSweep, ::testing::ValuesIn(rows()), rowName);
INSTANTIATE_TEST_SUITE_P(Psk, StatusSweep, ::testing::ValuesIn(rows()), rowName);

} // namespace
} // namespace oru::test
