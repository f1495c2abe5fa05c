#include "oruSdk.h"
#include "support/accesspoint.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

#include <cstring>

namespace oru::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr const char *kShort = "0a1B2c3D4e";
constexpr const char *kShortStored = "0a:1B:2c:3D:4e";
constexpr const char *kLong = "00112233445566778899aAbBcC";
constexpr const char *kLongStored = "00:11:22:33:44:55:66:77:88:99:aA:bB:cC";

std::string keyName(int number)
{
    return "bss2.wepKey." + std::to_string(number);
}

/// BSS 2 without any security mode and with four stored keys.
void prepare(AccessPoint &box, StandIn &standIn)
{
    box.set(kWsm, "dot11Mode", "4");
    box.set(kWsm, "bss2.BpRSNFlag", "77");
    for (const char *key : {"bss2.openAccessEnabled", "bss2.wepEnabled", "bss2.wpaEnabled"})
        box.set(kAa, key, "false");
    box.set(kAa, "bss2.dynamicWepEnabled", "old");
    box.set(kAa, "bss2.wepKeyLen", "77");
    box.set(kAa, "bss2.wepDefaultKey", "77");
    for (int number = 1; number <= 4; ++number) box.set(kAa, keyName(number), "77:77:77:77:77");
    standIn.calls.clear();
}

struct Wep : AccessPointTest {
    Wep() { prepare(box, standIn); }

    std::string aa(const std::string &key) const { return box.value(kAa, key).value_or("-"); }
    std::vector<std::string> keys() const
    {
        return {aa(keyName(1)), aa(keyName(2)), aa(keyName(3)), aa(keyName(4))};
    }

    /// Of switching WEP on with these values on BSS 2: code and lines, nothing changed.
    void refused(uint32_t code, const std::vector<std::string> &logs, int32_t length,
                 uint32_t defaultKey, std::vector<const char *> texts)
    {
        const std::string before = box.everything();
        EXPECT_EQ(
            oruSdkSetSecModeWep(2, 1, length, defaultKey, texts[0], texts[1], texts[2], texts[3]),
            code);
        expectLogged(3, logs, __FILE__, __LINE__);
        EXPECT_EQ(box.everything(), before);
    }
};

// ---- On

TEST_F(Wep, OneLongKeyIsStoredInPairsAndTheOthersAreDeleted)
{
    EXPECT_EQ(oruSdkSetSecModeWep(2, 1, 13, 2, nullptr, kLong, nullptr, nullptr), 0u);
    EXPECT_EQ(aa("bss2.wepEnabled"), "true");
    EXPECT_EQ(aa("bss2.dynamicWepEnabled"), "false");
    EXPECT_EQ(aa("bss2.wepKeyLen"), "13");
    EXPECT_EQ(aa("bss2.wepDefaultKey"), "2");
    EXPECT_THAT(keys(), ElementsAre("-", kLongStored, "-", "-"));
    EXPECT_EQ(box.value(kWsm, "bss2.BpRSNFlag"), "0");
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Wep, FourShortKeys)
{
    EXPECT_EQ(oruSdkSetSecModeWep(2, 1, 5, 4, kShort, "1111111111", "2222222222", "fFfFfFfFfF"),
              0u);
    EXPECT_THAT(keys(),
                ElementsAre(kShortStored, "11:11:11:11:11", "22:22:22:22:22", "fF:fF:fF:fF:fF"));
    EXPECT_EQ(aa("bss2.wepKeyLen"), "5");
    EXPECT_EQ(aa("bss2.wepDefaultKey"), "4");
}

TEST_F(Wep, NoKeyMakesItDynamic)
{
    EXPECT_EQ(oruSdkSetSecModeWep(2, 1, 5, 3, nullptr, nullptr, nullptr, nullptr), 0u);
    EXPECT_EQ(aa("bss2.wepEnabled"), "true");
    EXPECT_EQ(aa("bss2.dynamicWepEnabled"), "true");
    EXPECT_EQ(aa("bss2.wepKeyLen"), "5");
    EXPECT_EQ(aa("bss2.wepDefaultKey"), "3");
    EXPECT_THAT(keys(), ElementsAre("-", "-", "-", "-"));
}

TEST_F(Wep, AnyKeyAloneMakesItStatic)
{
    for (size_t number = 0; number < 4; ++number) {
        const char *key[4] = {};
        key[number] = kShort;
        const auto id = static_cast<uint32_t>(number) + 1;
        EXPECT_EQ(oruSdkSetSecModeWep(2, 1, 5, id, key[0], key[1], key[2], key[3]), 0u);
        EXPECT_EQ(aa("bss2.dynamicWepEnabled"), "false") << number;
        std::vector<std::string> stored(4, "-");
        stored[number] = kShortStored;
        EXPECT_EQ(keys(), stored);
        EXPECT_NOTHING_LOGGED();
    }
}

TEST_F(Wep, DynamicWepStillNeedsKeyLengthAndDefaultKey)
{
    const std::vector<const char *> none(4, nullptr);
    refused(34, {"Invalid wepKeyLen 8"}, 8, 1, none);
    refused(35, {"Invalid defaultKeyId 0"}, 5, 0, none);
}

TEST_F(Wep, OtherKeysOfTheFilesStay)
{
    const auto rest = [this] {
        std::string text;
        for (const char *path : {kAa, kWsm}) {
            const std::string all = "\n" + box.read(path);
            for (size_t at = 0; (at = all.find('\n', at)) != std::string::npos; ++at) {
                const std::string line = all.substr(at + 1, all.find('\n', at + 1) - at - 1);
                if (line.starts_with("bss2.wep") || line.starts_with("bss2.dynamicWep") ||
                    line.starts_with("bss2.BpRSNFlag"))
                    continue;
                text += line + "\n";
            }
        }
        return text;
    };
    const std::string before = rest();
    EXPECT_EQ(oruSdkSetSecModeWep(2, 1, 5, 1, kShort, nullptr, nullptr, nullptr), 0u);
    EXPECT_EQ(rest(), before);
}

TEST_F(Wep, FlagThenBssBeforeTheFiles)
{
    EXPECT_EQ(oruSdkSetSecModeWep(4, 2, 0, 0, "", "", "", ""), 38u);
    EXPECT_LOGGED("Invalid BOOLEAN value 2");
    EXPECT_EQ(oruSdkSetSecModeWep(4, UINT32_MAX, 0, 0, "", "", "", ""), 38u);
    EXPECT_LOGGED("Invalid BOOLEAN value -1");
    for (const uint32_t enable : {0u, 1u}) {
        EXPECT_EQ(oruSdkSetSecModeWep(4, enable, 0, 0, "", "", "", ""), 115u);
        EXPECT_LOGGED("Invalid bss number ID: 4");
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(Wep, Mode9Is114WithoutALineBeforeTheValuesAndLeavesTheFileOpen)
{
    box.set(kWsm, "dot11Mode", "9");
    refused(114, {}, 8, 0, {"g", nullptr, nullptr, nullptr});
    EXPECT_THAT(standIn.openDictPaths(), ElementsAre(kWsm));
    EXPECT_THAT(standIn.calls, Not(Contains("oruAsfDictCreate /var/1x.conf")));
    box.set(kWsm, "dot11Mode", "8");
    refused(34, {"Invalid wepKeyLen 8"}, 8, 0, {"g", nullptr, nullptr, nullptr});
    expectOpenDicts(1);
}

TEST_F(Wep, UnreadableModeComesBeforeTheValues)
{
    box.unset(kWsm, "dot11Mode");
    refused(42, {"Unable to read dot11Mode from config file"}, 8, 0,
            {"g", nullptr, nullptr, nullptr});
}

TEST_F(Wep, KeyLengthIs5Or13)
{
    for (const int32_t length : {0, 4, 6, 8, 12, 14, 26, -5, INT32_MAX, INT32_MIN})
        refused(34, {"Invalid wepKeyLen " + std::to_string(length)}, length, 0,
                {kShort, nullptr, nullptr, nullptr});
}

TEST_F(Wep, DefaultKeyIs1To4BeforeTheKeys)
{
    for (const uint32_t number : {0u, 5u, UINT32_MAX, 0x80000001u})
        refused(35, {"Invalid defaultKeyId " + std::to_string(static_cast<int32_t>(number))}, 5,
                number, {"g", nullptr, nullptr, nullptr});
    EXPECT_EQ(oruSdkSetSecModeWep(2, 1, 5, 1, kShort, nullptr, nullptr, nullptr), 0u);
    EXPECT_EQ(oruSdkSetSecModeWep(2, 1, 5, 4, nullptr, nullptr, nullptr, kShort), 0u);
}

TEST_F(Wep, DefaultKeyMustBeGivenWhenAnyIs)
{
    refused(37, {"NULL default key"}, 5, 1, {nullptr, "g", nullptr, nullptr});
    refused(37, {"NULL default key"}, 5, 4, {kShort, kShort, kShort, nullptr});
}

TEST_F(Wep, KeyOfAnotherLengthIs39WithTwoLines)
{
    const auto line = [](size_t length, const std::string &key) {
        return "Invalid number of characters " + std::to_string(length) + " in wep key " + key;
    };
    refused(39, {line(10, kShort), std::string("Invalid WEP key[1] ") + kShort}, 13, 1,
            {kShort, nullptr, nullptr, nullptr});
    refused(39, {line(26, kLong), std::string("Invalid WEP key[3] ") + kLong}, 5, 1,
            {kShort, nullptr, kLong, nullptr});
    for (const std::string &key :
         {std::string(), std::string(9, '1'), std::string(11, '1'), std::string(5000, '1')})
        refused(39, {line(key.size(), key), "Invalid WEP key[4] " + key}, 5, 4,
                {nullptr, nullptr, nullptr, key.c_str()});
    for (const std::string &key : {std::string(25, '1'), std::string(27, '1')})
        refused(39, {line(key.size(), key), "Invalid WEP key[2] " + key}, 13, 2,
                {nullptr, key.c_str(), nullptr, nullptr});
}

TEST_F(Wep, KeyWithAnotherCharacterIs36)
{
    for (const char *key : {"0a1b2c3d4g", "0a:b2c3d4e", " a1b2c3d4e", "0a1b2c3d4\n", "%s%s%s%s%s"})
        refused(36, {std::string("Invalid WEP key[2] ") + key}, 5, 2,
                {nullptr, key, nullptr, nullptr});
}

TEST_F(Wep, KeysAreCheckedOneByOneLengthThenDigits)
{
    // The bad digit of the first one comes before the length of the second one.
    refused(36, {"Invalid WEP key[1] gggggggggg"}, 5, 1, {"gggggggggg", "1", nullptr, nullptr});
    refused(39, {"Invalid number of characters 1 in wep key g", "Invalid WEP key[1] g"}, 5, 1,
            {"g", "gggggggggg", nullptr, nullptr});
    // Keys behind and before the default one, too.
    refused(36, {"Invalid WEP key[4] gggggggggg"}, 5, 1, {kShort, nullptr, nullptr, "gggggggggg"});
    refused(36, {"Invalid WEP key[1] gggggggggg"}, 5, 4, {"gggggggggg", nullptr, nullptr, "1"});
}

TEST_F(Wep, BadKeyIsReportedBeforeTheOtherModes)
{
    box.set(kAa, "bss2.openAccessEnabled", "true");
    box.set(kAa, "bss2.wpaEnabled", "true");
    refused(36, {"Invalid WEP key[1] gggggggggg"}, 5, 1, {"gggggggggg", nullptr, nullptr, nullptr});
    EXPECT_THAT(standIn.calls, Not(Contains("oruAsfDictCreate /var/1x.conf")));
    refused(32, {"OPEN must not be enabled"}, 5, 1, {kShort, nullptr, nullptr, nullptr});
    box.set(kAa, "bss2.openAccessEnabled", "false");
    refused(45, {"WPA must not be enabled"}, 5, 1, {kShort, nullptr, nullptr, nullptr});
}

TEST_F(Wep, UnreadableOpenThenWpa)
{
    box.unset(kAa, "bss2.openAccessEnabled");
    box.unset(kAa, "bss2.wpaEnabled");
    refused(26, {"Unable to read openAccessEnabled dictionary"}, 5, 1,
            {kShort, nullptr, nullptr, nullptr});
    box.set(kAa, "bss2.openAccessEnabled", "false");
    refused(26, {"Unable to read wpaEnabled dictionary"}, 5, 1,
            {kShort, nullptr, nullptr, nullptr});
}

TEST_F(Wep, RadioSideIsSavedBeforeTheKeysAreWritten)
{
    EXPECT_EQ(oruSdkSetSecModeWep(2, 1, 5, 1, kShort, nullptr, nullptr, nullptr), 0u);
    EXPECT_THAT(
        standIn.calls,
        ElementsAre("oruAsfDictCreate /var/wsmDefaults", "oruAsfDictGetInt dot11Mode",
                    "oruAsfDictCreate /var/1x.conf", "oruAsfDictGetBool bss2.openAccessEnabled",
                    "oruAsfDictGetBool bss2.wpaEnabled", "oruAsfDictSetString bss2.wepEnabled",
                    "oruAsfDictSetString bss2.dynamicWepEnabled",
                    "oruAsfDictSetString bss2.wepKeyLen", "oruAsfDictSetString bss2.wepDefaultKey",
                    "oruAsfDictSetString bss2.BpRSNFlag", "oruAsfDictSave /var/wsmDefaults",
                    "oruAsfDictSetString bss2.wepKey.1", "oruAsfDictSetString bss2.wepKey.2",
                    "oruAsfDictSetString bss2.wepKey.3", "oruAsfDictSetString bss2.wepKey.4",
                    "oruAsfDictSave /var/1x.conf"));
}

TEST_F(Wep, FailedKeyLeavesTheRadioSideSavedAndTheSecurityFileNot)
{
    const std::string before = box.read(kAa);
    standIn.failOnly("oruAsfDictSetString");
    standIn.failAt(6);
    EXPECT_EQ(oruSdkSetSecModeWep(2, 1, 5, 1, kShort, nullptr, nullptr, nullptr), 25u);
    EXPECT_LOGGED("Unable to write wepkeyArr[i] to dictionary");
    EXPECT_EQ(box.value(kWsm, "bss2.BpRSNFlag"), "0");
    EXPECT_EQ(box.read(kAa), before);
}

TEST_F(Wep, FailedDeletionOfAKeyIsOnlyInformation)
{
    standIn.failOnly("oruAsfDictSetString");
    standIn.failAt(7);
    EXPECT_EQ(oruSdkSetSecModeWep(2, 1, 5, 1, kShort, nullptr, nullptr, nullptr), 0u);
    EXPECT_LOGGED_AT(6, "Unable to delete wepkeyArr[i] from dictionary");
    EXPECT_THAT(keys(), ElementsAre(kShortStored, "77:77:77:77:77", "-", "-"));
}

TEST_F(Wep, Bss0And3AreAccepted)
{
    for (const int32_t bss : {0, 3}) {
        const std::string prefix = "bss" + std::to_string(bss) + ".";
        box.set(kAa, prefix + "openAccessEnabled", "false");
        box.set(kAa, prefix + "wpaEnabled", "false");
        EXPECT_EQ(oruSdkSetSecModeWep(bss, 1, 5, 1, kShort, nullptr, nullptr, nullptr), 0u);
        EXPECT_EQ(aa(prefix + "wepKey.1"), kShortStored);
        uint32_t number = 0;
        char text[27];
        EXPECT_EQ(oruSdkGetSecModeWep(bss, &number, &number, &number, text, text, text, text), 0u);
        EXPECT_EQ(oruSdkSetSecModeWep(bss, 0, 0, 0, nullptr, nullptr, nullptr, nullptr), 0u);
        EXPECT_EQ(aa(prefix + "wepEnabled"), "false");
    }
    EXPECT_THAT(keys(), ::testing::Each("77:77:77:77:77"));
}

TEST_F(Wep, NegativeBssFormsItsKeysWithTheSign)
{
    box.set(kAa, "bss-1.openAccessEnabled", "false");
    box.set(kAa, "bss-1.wpaEnabled", "false");
    EXPECT_EQ(oruSdkSetSecModeWep(-1, 1, 5, 1, kShort, nullptr, nullptr, nullptr), 0u);
    EXPECT_EQ(aa("bss-1.wepKey.1"), kShortStored);
    EXPECT_EQ(box.value(kWsm, "bss-1.BpRSNFlag"), "0");
    uint32_t number = 0;
    char text[27];
    EXPECT_EQ(oruSdkGetSecModeWep(-1, &number, &number, &number, text, text, text, text), 0u);
    EXPECT_EQ(oruSdkSetSecModeWep(-1, 0, 0, 0, nullptr, nullptr, nullptr, nullptr), 0u);
    EXPECT_EQ(aa("bss-1.wepEnabled"), "false");
}

// ---- Off

TEST_F(Wep, OffClearsTheFlagsAndKeepsTheKeysEvenWithWpaOnAndMode9)
{
    box.set(kAa, "bss2.wepEnabled", "true");
    box.set(kAa, "bss2.wpaEnabled", "true");
    box.set(kWsm, "dot11Mode", "9");
    const std::string radios = box.read(kWsm);
    standIn.calls.clear();
    EXPECT_EQ(oruSdkSetSecModeWep(2, 0, 8, 9, "g", "g", "g", "g"), 0u);
    EXPECT_THAT(standIn.calls, Not(Contains(HasSubstr("wsmDefaults"))));
    EXPECT_EQ(aa("bss2.wepEnabled"), "false");
    EXPECT_EQ(aa("bss2.dynamicWepEnabled"), "false");
    EXPECT_EQ(aa("bss2.wepKeyLen"), "77");
    EXPECT_EQ(aa("bss2.wepDefaultKey"), "77");
    EXPECT_THAT(keys(), ::testing::Each("77:77:77:77:77"));
    EXPECT_EQ(aa("bss2.wpaEnabled"), "true");
    EXPECT_EQ(box.read(kWsm), radios);
    EXPECT_NOTHING_LOGGED();
}

// ---- Reading

/// Buffers of exactly 27 bytes: the sanitizers would see a byte more.
struct Buffers {
    std::unique_ptr<char[]> text[4];
    Buffers()
    {
        for (auto &one : text) {
            one = std::make_unique<char[]>(27);
            std::memset(one.get(), '~', 27);
        }
    }
    char *operator[](size_t i) { return text[i].get(); }
};

struct Read {
    uint32_t enabled = 9;
    uint32_t length = 9;
    uint32_t defaultKey = 9;
    Buffers keys;
    uint32_t code =
        oruSdkGetSecModeWep(2, &enabled, &length, &defaultKey, keys[0], keys[1], keys[2], keys[3]);
};

TEST_F(Wep, ReaderGivesBackWhatWasSet)
{
    EXPECT_EQ(oruSdkSetSecModeWep(2, 1, 13, 2, nullptr, kLong, nullptr, kLong), 0u);
    Read read;
    EXPECT_EQ(read.code, 0u);
    EXPECT_EQ(read.enabled, 1u);
    EXPECT_EQ(read.length, 13u);
    EXPECT_EQ(read.defaultKey, 2u);
    EXPECT_STREQ(read.keys[0], "");
    EXPECT_STREQ(read.keys[1], kLong);
    EXPECT_STREQ(read.keys[2], "");
    EXPECT_STREQ(read.keys[3], kLong);
    EXPECT_EQ(oruSdkSetSecModeWep(2, 1, 5, 1, kShort, nullptr, nullptr, nullptr), 0u);
    Read again;
    EXPECT_STREQ(again.keys[0], kShort);
    EXPECT_STREQ(again.keys[1], "");
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Wep, ReaderTakesTwoCharactersOfEachPieceAndNeverMoreThan26)
{
    box.set(kAa, "bss2.wepEnabled", "true");
    std::string endless;
    for (int i = 0; i < 1000; ++i) endless += "ab:";
    box.set(kAa, keyName(1), "1:23:456:7:::89");
    box.set(kAa, keyName(2), endless);
    box.set(kAa, keyName(3), std::string(500, 'x'));
    box.set(kAa, keyName(4), ":::");
    Read read;
    EXPECT_EQ(read.code, 0u);
    EXPECT_STREQ(read.keys[0], "12345789");
    EXPECT_STREQ(read.keys[1], "ababababababababababababab");
    EXPECT_STREQ(read.keys[2], "xx");
    EXPECT_STREQ(read.keys[3], "");
}

TEST_F(Wep, ReaderCutsAt26CharactersWithinAPiece)
{
    box.set(kAa, "bss2.wepEnabled", "true");
    std::string odd = "1";
    for (int i = 0; i < 20; ++i) odd += ":ab";
    box.set(kAa, keyName(1), odd);
    Read read;
    EXPECT_STREQ(read.keys[0], "1ababababababababababababa");
}

TEST_F(Wep, ReaderOfAnOffTouchesTheFlagAlone)
{
    Read read;
    EXPECT_EQ(read.code, 0u);
    EXPECT_EQ(read.enabled, 0u);
    EXPECT_EQ(read.length, 9u);
    EXPECT_EQ(read.defaultKey, 9u);
    EXPECT_EQ(read.keys[0][0], '~');
    uint32_t enabled = 9;
    EXPECT_EQ(
        oruSdkGetSecModeWep(2, &enabled, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr), 0u);
    EXPECT_EQ(enabled, 0u);
}

TEST_F(Wep, ReaderChecksTheBssBeforeTheFile)
{
    EXPECT_EQ(oruSdkGetSecModeWep(4, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr),
              115u);
    EXPECT_LOGGED("Invalid bss number ID: 4");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(Wep, ReaderLooksAtEachPointerWhenItsTurnComes)
{
    box.set(kAa, "bss2.wepEnabled", "true");
    box.set(kAa, keyName(1), kShortStored);
    box.set(kAa, keyName(2), kShortStored);
    uint32_t enabled = 9;
    uint32_t length = 9;
    uint32_t defaultKey = 9;
    Buffers keys;
    EXPECT_EQ(oruSdkGetSecModeWep(2, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr),
              2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(
        oruSdkGetSecModeWep(2, &enabled, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(enabled, 1u);
    EXPECT_EQ(
        oruSdkGetSecModeWep(2, &enabled, &length, nullptr, nullptr, nullptr, nullptr, nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(length, 77u);
    EXPECT_EQ(
        oruSdkGetSecModeWep(2, &enabled, &length, &defaultKey, nullptr, keys[1], keys[2], keys[3]),
        2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(defaultKey, 77u);
    EXPECT_EQ(keys[1][0], '~');
    EXPECT_EQ(
        oruSdkGetSecModeWep(2, &enabled, &length, &defaultKey, keys[0], keys[1], nullptr, keys[3]),
        2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_STREQ(keys[0], kShort);
    EXPECT_STREQ(keys[1], kShort);
    EXPECT_EQ(keys[3][0], '~');
}

TEST_F(Wep, ReaderReadsTheFlagBeforeItsPointer)
{
    box.unset(kAa, "bss2.wepEnabled");
    EXPECT_EQ(oruSdkGetSecModeWep(2, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr),
              26u);
    EXPECT_LOGGED("Unable to read wepEnabled dictionary");
}

TEST_F(Wep, ReaderFillsWhatItReadBeforeAFailure)
{
    box.set(kAa, "bss2.wepEnabled", "true");
    box.unset(kAa, "bss2.wepDefaultKey");
    Read read;
    EXPECT_EQ(read.code, 26u);
    EXPECT_LOGGED("Unable to read wepDefaultKey dictionary");
    EXPECT_EQ(read.enabled, 1u);
    EXPECT_EQ(read.length, 77u);
    EXPECT_EQ(read.defaultKey, 9u);
    EXPECT_EQ(read.keys[0][0], '~');
}

// ---- Each call failing

const Step kOpenAa{"oruAsfDictCreate /var/1x.conf", 7,
                   "Unable to read AA Defaults file /var/1x.conf"};
const Step kSaveAa{"oruAsfDictSave /var/1x.conf", 8,
                   "Unable to write AA Defaults file /var/1x.conf"};

Step write(const std::string &item)
{
    return {"oruAsfDictSetString bss2." + item, 25, "Unable to write " + item + " to dictionary"};
}

std::vector<Step> stepsOfOn()
{
    const std::string deleted = "Unable to delete wepkeyArr[i] from dictionary";
    const std::string written = "Unable to write wepkeyArr[i] to dictionary";
    return {{"oruAsfDictCreate /var/wsmDefaults", 7,
             "Unable to read WSM Defaults file /var/wsmDefaults"},
            {"oruAsfDictGetInt dot11Mode", 42, "Unable to read dot11Mode from config file"},
            kOpenAa,
            {"oruAsfDictGetBool bss2.openAccessEnabled", 26,
             "Unable to read openAccessEnabled dictionary"},
            {"oruAsfDictGetBool bss2.wpaEnabled", 26, "Unable to read wpaEnabled dictionary"},
            write("wepEnabled"),
            write("dynamicWepEnabled"),
            write("wepKeyLen"),
            write("wepDefaultKey"),
            write("BpRSNFlag"),
            {"oruAsfDictSave /var/wsmDefaults", 8,
             "Unable to write WSM Defaults file /var/wsmDefaults"},
            {"oruAsfDictSetString bss2.wepKey.1", 0, deleted, 6},
            {"oruAsfDictSetString bss2.wepKey.2", 25, written, 3, true},
            {"oruAsfDictSetString bss2.wepKey.3", 0, deleted, 6},
            {"oruAsfDictSetString bss2.wepKey.4", 25, written, 3, true},
            {kSaveAa.call, kSaveAa.code, kSaveAa.log, 3, true}};
}

std::vector<SweepRow> rows()
{
    const auto prepareOn = [](AccessPoint &box, StandIn &standIn) {
        prepare(box, standIn);
        box.set(kAa, "bss2.wepEnabled", "true");
    };
    std::vector<Step> reading{
        kOpenAa,
        {"oruAsfDictGetBool bss2.wepEnabled", 26, "Unable to read wepEnabled dictionary"},
        {"oruAsfDictGetInt bss2.wepKeyLen", 26, "Unable to read wepKeyLen dictionary"},
        {"oruAsfDictGetInt bss2.wepDefaultKey", 26, "Unable to read wepDefaultKey dictionary"}};
    for (int number = 1; number <= 4; ++number)
        reading.push_back({"oruAsfDictGetString " + keyName(number), 0, ""});
    return {{"SetSecModeWepOn", prepare,
             [] { return oruSdkSetSecModeWep(2, 1, 13, 2, nullptr, kLong, nullptr, kLong); },
             stepsOfOn()},
            {"SetSecModeWepOff",
             prepareOn,
             [] { return oruSdkSetSecModeWep(2, 0, 0, 0, nullptr, nullptr, nullptr, nullptr); },
             {kOpenAa, write("wepEnabled"), write("dynamicWepEnabled"), kSaveAa}},
            {"GetSecModeWep", prepareOn, [] { return Read{}.code; }, reading}};
}
INSTANTIATE_TEST_SUITE_P(Wep, FailureSweep, ::testing::ValuesIn(rows()), rowName);
INSTANTIATE_TEST_SUITE_P(Wep, StatusSweep, ::testing::ValuesIn(rows()), rowName);

} // namespace
} // namespace oru::test
