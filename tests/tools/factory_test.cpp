// The factory files hold every key that the operations read, in its kind.
#include "oruSdk.h"
#include "simbox.hpp"

#include <gmock/gmock.h>

#include <sys/stat.h>

namespace orusim::test {
namespace {

using ::testing::HasSubstr;

enum class Kind { number, boolean, text, delimited };

struct KeyRow {
    const char *file;
    Kind kind;
    const char *key; // %r a radio, %b a BSS, %e an Ethernet port, %v a VLAN slot
};

constexpr const char *kWsm = "/var/wsmDefaults.orig";
constexpr const char *kAa = "/var/1x.conf.orig";
constexpr const char *kRadar = "/config/wsmSavedRadarDetectList";

constexpr KeyRow kKeys[] = {
    // Switches
    {kWsm, Kind::number, "radio%r.ShortGuardInterval40MHz"},
    {kWsm, Kind::number, "radio%r.ShortGuardInterval20MHz"},
    {kWsm, Kind::number, "radio%r.RifsSupport"},
    {kWsm, Kind::number, "radio%r.sbsEnabled"},
    {kWsm, Kind::number, "radio%r.GreenfieldCapability"},
    {kWsm, Kind::number, "radio%r.11bSupport"},
    {kWsm, Kind::number, "radio%r.enchRatesFlag"},
    {kWsm, Kind::number, "radio%r.dot112040BSSCoexistenceManagementSupport"},
    {kWsm, Kind::number, "spectrumManagementFlag"},
    {kWsm, Kind::number, "reverseFcsFlag"},
    {kWsm, Kind::number, "proximity"},
    {kWsm, Kind::number, "mimoFlag"},
    {kWsm, Kind::number, "radioProprietaryExt"},
    // Options
    {kWsm, Kind::number, "localPowerConstraint"},
    {kWsm, Kind::number, "radio%r.MaxMpduFactor"},
    {kWsm, Kind::number, "radio%r.MpduDensity"},
    {kWsm, Kind::number, "radio%r.BlockAckAuto"},
    {kWsm, Kind::number, "bss2040CoexistElement"},
    {kWsm, Kind::number, "dot11BSSWidthTriggerScanInterval"},
    {kWsm, Kind::number, "numSs"},
    {kWsm, Kind::number, "radio%r.txPowerAdj"},
    {kWsm, Kind::number, "radio%r.txPower"},
    {kWsm, Kind::number, "radio%r.networkDensityValue"},
    {kWsm, Kind::number, "radio%r.networkDensity"},
    {kWsm, Kind::number, "radio%r.shortPreambleFlag"},
    // Country, channels, DFS, radar
    {kWsm, Kind::number, "worldModeSupport"},
    {kWsm, Kind::number, "countryCodeFlag"},
    {kWsm, Kind::delimited, "countryCode"},
    {kWsm, Kind::number, "radio%r.channelSelectionType"},
    {kWsm, Kind::number, "radio%r.configuredChannel"},
    {kWsm, Kind::number, "radio%r.configuredSecondaryChannel"},
    {kWsm, Kind::number, "periodicDfsFlag"},
    {kWsm, Kind::number, "periodicMeasFlag"},
    {kWsm, Kind::number, "measurementDisabled"},
    {kWsm, Kind::number, "periodicDfsTmr"},
    {kWsm, Kind::number, "dfsPreferred24GPrimChan"},
    {kWsm, Kind::number, "dfsPreferred24GSecdChan"},
    {kWsm, Kind::number, "dfsPreferred5GPrimChan"},
    {kWsm, Kind::number, "dfsPreferred5GSecdChan"},
    {kWsm, Kind::number, "dfsLowUNIIBand"},
    {kWsm, Kind::number, "dfsMidUNIIBand"},
    {kWsm, Kind::number, "dfsHighUNIIBand"},
    {kWsm, Kind::number, "dfsPreferredBand"},
    {kWsm, Kind::number, "dfsWeightMargin"},
    {kWsm, Kind::number, "cbSwitch"},
    {kWsm, Kind::number, "dfsPersistRdr"},
    {kWsm, Kind::number, "dfsForceChSelChan"},
    {kWsm, Kind::number, "dfsRdrParking"},
    {kWsm, Kind::number, "dfsRdrChanWghtFactor"},
    {kWsm, Kind::number, "radio%r.radarDetectFlag"},
    {kRadar, Kind::text, "rdrChans"},
    {kWsm, Kind::number, "radio%r.bandType"},
    {kWsm, Kind::number, "radio%r.persona"},
    // Modes and rates
    {kWsm, Kind::number, "radio%r.dot11Mode"},
    {kWsm, Kind::number, "dot11Mode"},
    {kWsm, Kind::number, "ERPFlag"},
    {kWsm, Kind::number, "radio%r.fixedRate"},
    {kWsm, Kind::number, "radio%r.broadcastRate24GHz"},
    {kWsm, Kind::number, "radio%r.broadcastRate5GHz"},
    {kWsm, Kind::number, "MaxRate"},
    {kWsm, Kind::text, "radio%r.dot11aRates"},
    {kWsm, Kind::text, "radio%r.dot11bRates"},
    {kWsm, Kind::text, "radio%r.dot11gRates"},
    {kWsm, Kind::text, "radio%r.dot11nRates"},
    {kWsm, Kind::number, "radio%r.fragThPeriod"},
    {kWsm, Kind::number, "radio%r.rtsThPeriod"},
    {kWsm, Kind::number, "radio%r.shortRetryLimit"},
    {kWsm, Kind::number, "radio%r.longRetryLimit"},
    {kWsm, Kind::number, "radio%r.beaconPeriod"},
    {kWsm, Kind::number, "radio%r.dtimPeriod"},
    {kWsm, Kind::number, "radio%r.dot11Protection"},
    {kWsm, Kind::number, "radio%r.ProtectionMode"},
    {kWsm, Kind::number, "dot11gShortSlotTime"},
    {kWsm, Kind::number, "radio%r.standardExt"},
    {kWsm, Kind::number, "radio%r.adminDot11bStaFlag"},
    {kWsm, Kind::number, "adminDot11bStaFlag"},
    {kWsm, Kind::number, "radio%r.sbsThreshold"},
    {kWsm, Kind::number, "radio%r.sbsCounter"},
    {kWsm, Kind::number, "wmmEnabledFlag"},
    {kWsm, Kind::number, "TrafficClassifier"},
    {kWsm, Kind::number, "edcaProfile"},
    {kWsm, Kind::number, "dynamicProfileSelection"},
    {kWsm, Kind::number, "radio%r.channelBondingMode"},
    // BSSes
    {kWsm, Kind::number, "bss%b.radio"},
    {kAa, Kind::number, "bss%b.radioctrl"},
    {kWsm, Kind::delimited, "bss%b.ssId"},
    {kAa, Kind::delimited, "bss%b.ssId"},
    {kWsm, Kind::number, "bss%b.suppressSSIDFlag"},
    {kWsm, Kind::number, "bss%b.IntraBSS"},
    {kWsm, Kind::number, "InterBSS.radio%r"},
    {kWsm, Kind::number, "bss%b.wvid"},
    {kWsm, Kind::number, "eth%e.pvid"},
    {kWsm, Kind::number, "eth%e.vid%v"},
    // Security
    {kAa, Kind::boolean, "bss%b.openAccessEnabled"},
    {kAa, Kind::boolean, "bss%b.wepEnabled"},
    {kAa, Kind::boolean, "bss%b.wpaEnabled"},
    {kAa, Kind::boolean, "bss%b.dynamicWepEnabled"},
    {kAa, Kind::boolean, "bss%b.dynWepEnabled"},
    {kAa, Kind::number, "bss%b.mixedIeMode"},
    {kAa, Kind::number, "bss%b.wpaAuthTypes"},
    {kAa, Kind::number, "bss%b.wpaEncTypes"},
    {kWsm, Kind::number, "bss%b.BpRSNFlag"},
    {kWsm, Kind::number, "bss%b.BpPskFlag"},
    {kAa, Kind::number, "bss%b.wepKeyLen"},
    {kAa, Kind::number, "bss%b.wepDefaultKey"},
    {kAa, Kind::number, "bss%b.sessionTimeout"},
    {kAa, Kind::number, "bss%b.groupKeyTimeout"},
    {kAa, Kind::number, "bss%b.macAuthType"},
    {kAa, Kind::number, "localMacAcl"},
    // Wi-Fi Protected Setup
    {kWsm, Kind::number, "bss%b.registrarinfo"},
    {kWsm, Kind::number, "bss%b.enforcepintimeout"},
    {kWsm, Kind::number, "bss%b.wpsstate"},
    {kAa, Kind::number, "bss%b.wscEnabledFlag"},
    {kWsm, Kind::delimited, "bss%b.uuid"},
    {kWsm, Kind::delimited, "bss%b.wpsintf"},
    {kWsm, Kind::delimited, "bss%b.appinpasswd"},
    {kWsm, Kind::delimited, "wdsRulesSsId"},
    {kAa, Kind::delimited, "ssid"},
    {kWsm, Kind::text, "bssId"},
    {kWsm, Kind::number, "bssNum"},
    // Status
    {kWsm, Kind::number, "radio%r.adminStatus"},
};

/// The key with each index that its mark can have.
std::vector<std::string> keysOf(const std::string &pattern)
{
    constexpr struct {
        const char *mark;
        int count;
    } kMarks[] = {{"%r", 2}, {"%b", 4}, {"%e", 2}, {"%v", 15}};
    for (const auto &[mark, count] : kMarks) {
        const size_t at = pattern.find(mark);
        if (at == std::string::npos) continue;
        std::vector<std::string> all;
        for (int i = 0; i < count; ++i)
            for (const std::string &key :
                 keysOf(pattern.substr(0, at) + std::to_string(i) + pattern.substr(at + 2)))
                all.push_back(key);
        return all;
    }
    return {pattern};
}

class FactoryFiles : public ::testing::Test {
protected:
    FactoryFiles() { EXPECT_EQ(initialise(kFactory, false, {}), ""); }

    static OruAsfDict *load(const char *path)
    {
        OruAsfDict *dict = nullptr;
        EXPECT_EQ(oruAsfDictCreate(&dict, path), 0) << path;
        return dict;
    }

    Box box;
};

TEST_F(FactoryFiles, HoldEveryKeyInItsKind)
{
    for (const auto &[file, kind, pattern] : kKeys) {
        OruAsfDict *dict = load(file);
        for (const std::string &key : keysOf(pattern)) {
            int32_t number = 0;
            const char *text = nullptr;
            switch (kind) {
            case Kind::number:
                EXPECT_EQ(oruAsfDictGetInt(dict, key.c_str(), &number, 0), 0) << file << key;
                break;
            case Kind::boolean:
                EXPECT_EQ(oruAsfDictGetBool(dict, key.c_str(), &number, 0), 0) << file << key;
                break;
            case Kind::text:
                EXPECT_EQ(oruAsfDictGetString(dict, key.c_str(), &text, 0), 0) << file << key;
                EXPECT_NE(text, nullptr) << file << key;
                break;
            case Kind::delimited:
                EXPECT_GE(oruAsfDictGetDelimitedString(dict, key.c_str(), &text, 0), 0)
                    << file << key;
                EXPECT_THAT(box.read(file), HasSubstr("\n" + key + "=\"")) << "not delimited";
                break;
            }
        }
        oruAsfDictFree(dict);
    }
}

TEST_F(FactoryFiles, HoldNoKeyThatIsNotListed)
{
    for (const char *file : {kWsm, kAa, kRadar}) {
        std::vector<std::string> listed;
        for (const KeyRow &row : kKeys)
            if (std::string_view(row.file) == file)
                for (const std::string &key : keysOf(row.key)) listed.push_back(key);

        std::vector<std::string> found;
        OruAsfDict *dict = load(file);
        oruAsfDictVisit(
            dict,
            [](void *context, const char *key, const char *value) {
                EXPECT_NE(value, nullptr) << key;
                static_cast<std::vector<std::string> *>(context)->push_back(key);
                return int32_t{0};
            },
            &found);
        oruAsfDictFree(dict);
        EXPECT_THAT(found, ::testing::UnorderedElementsAreArray(listed)) << file;
    }
}

TEST_F(FactoryFiles, SetNeitherKeysNorServersNorAccessLists)
{
    OruAsfDict *dict = load(kAa);
    for (const char *key : {"bss0.wpaPsk", "bss0.wepKey.1", "radiusTimeout", "radiusServer.1",
                            "radiusSecret.1", "localMacAclCount", "localMacAcl.1"}) {
        const char *text = nullptr;
        EXPECT_EQ(oruAsfDictGetString(dict, key, &text, 0), 0) << key;
        EXPECT_EQ(text, nullptr) << key;
    }
    oruAsfDictFree(dict);
}

TEST_F(FactoryFiles, PassTheCheckOfCommit)
{
    EXPECT_EQ(oruSdkCommitAll(), 0u);
}

TEST_F(FactoryFiles, BringEachBssBack)
{
    const std::string wsm = box.read("/var/wsmDefaults");
    const std::string aa = box.read("/var/1x.conf");
    for (int bss = 0; bss < 4; ++bss) EXPECT_EQ(oruSdkResetToBss(bss), 0u) << bss;
    EXPECT_EQ(box.read("/var/wsmDefaults"), wsm);
    EXPECT_EQ(box.read("/var/1x.conf"), aa);
}

TEST_F(FactoryFiles, HoldUuidsOf32HexadecimalDigits)
{
    OruAsfDict *dict = load(kWsm);
    for (const std::string &key : keysOf("bss%b.uuid")) {
        const char *text = nullptr;
        EXPECT_EQ(oruAsfDictGetDelimitedString(dict, key.c_str(), &text, 0), 32) << key;
        EXPECT_EQ(std::string_view(text).find_first_not_of("0123456789abcdef"),
                  std::string_view::npos);
    }
    oruAsfDictFree(dict);
}

// ---- Putting them in their places

TEST(Initialise, MakesTheFoldersAndEachFileReadableByItsOwnerAlone)
{
    const Box box;
    std::vector<std::string> lines;
    EXPECT_EQ(initialise(kFactory, false, [&](std::string_view text) { lines.emplace_back(text); }),
              "");
    EXPECT_TRUE(fs::is_directory(box.at("/run/oru")));
    for (const char *path : {"/var/wsmDefaults", "/var/wsmDefaults.orig", "/var/1x.conf",
                             "/var/1x.conf.orig", "/config/wsmSavedRadarDetectList"}) {
        struct stat status {};
        ASSERT_EQ(::stat(box.at(path).c_str(), &status), 0) << path;
        EXPECT_EQ(status.st_mode & 07777, 0600u) << path;
        EXPECT_GT(status.st_size, 0) << path;
        EXPECT_THAT(lines, ::testing::Contains("wrote " + box.at(path)));
    }
    EXPECT_EQ(box.read("/var/1x.conf"), box.read("/var/1x.conf.orig"));
    EXPECT_EQ(box.read("/var/wsmDefaults"), box.read("/var/wsmDefaults.orig"));
    EXPECT_EQ(std::distance(fs::directory_iterator(box.at("/var")), {}), 4) << "something is left";
}

TEST(Initialise, KeepsFilesThatExist)
{
    const Box box;
    fs::create_directories(box.at("/var"));
    box.write("/var/wsmDefaults", "mine=1\n");
    EXPECT_EQ(initialise(kFactory, false, {}), "");
    EXPECT_EQ(box.read("/var/wsmDefaults"), "mine=1\n");
    EXPECT_THAT(box.read("/var/wsmDefaults.orig"), HasSubstr("mimoFlag=1"));
}

TEST(Initialise, ReplacesFilesThatExistWhenForced)
{
    const Box box;
    fs::create_directories(box.at("/var"));
    box.write("/var/wsmDefaults", "mine=1\n");
    EXPECT_EQ(initialise(kFactory, true, {}), "");
    EXPECT_EQ(box.read("/var/wsmDefaults"), box.read("/var/wsmDefaults.orig"));
    EXPECT_EQ(std::distance(fs::directory_iterator(box.at("/var")), {}), 4) << "something is left";
}

TEST(Initialise, SaysWhichFactoryFileIsMissing)
{
    const Box box;
    EXPECT_THAT(initialise(box.root(), false, {}), HasSubstr("wsmDefaults.orig: No such file"));
    EXPECT_TRUE(fs::is_empty(box.root())) << "nothing is made";
}

} // namespace
} // namespace orusim::test
