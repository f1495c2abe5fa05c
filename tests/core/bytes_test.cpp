// The bytes that leave this machine, on the wire and in files: the same on every processor.
#include "oruSdk.h"
#include "support/accesspoint.hpp"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>

namespace oru::test {
namespace {

constexpr const char *kGolden = ORU_SOURCE_DIR "/tests/core/golden/bytes.txt";

/// FNV-1a of 64 bits.
uint64_t digestOf(const std::string &text)
{
    uint64_t digest = 0xcbf29ce484222325u;
    for (const char byte : text)
        digest = (digest ^ static_cast<unsigned char>(byte)) * 0x100000001b3u;
    return digest;
}

std::string hexOf(const Bytes &bytes)
{
    std::string text;
    for (const uint8_t byte : bytes) {
        char pair[4];
        std::snprintf(pair, sizeof pair, "%02x", byte);
        text += pair;
    }
    return text;
}

/// Asks the services all that has arguments to carry. What they answer is of no interest here.
std::string requests(StandIn &standIn)
{
    standIn.replyWith({1, 4, 0, 8, 0, 0, 0, 0});
    const auto radio = std::make_unique<OruSdkRadioStatsParam>();
    radio->selector2 = 0xfe;
    oruSdkGetRadioStats(radio.get());
    const auto station = std::make_unique<OruSdkStaStatsParam>();
    std::memcpy(station->macAddr, "\x02\x11\x22\xaa\xbb\xfe", sizeof station->macAddr);
    oruSdkGetStaStats(station.get());
    sendDisAssocReq(station->macAddr);
    const auto stations = std::make_unique<OruSdkStationParam>();
    std::memcpy(stations->bssIndex, "\x00\x03", 2);
    std::memcpy(stations->radioIndex, "\x00\x01", 2);
    oruSdkGetStationParam(stations.get());
    const auto list = std::make_unique<OruSdkBssListParam>();
    list->radioIndex = 1;
    oruSdkGetBssListParam(list.get());
    OruSdkFeatureParam status{0xffff, 1, 1};
    oruSdkSetAdminStatus(&status);
    oruSdkGenPassword(1, 3);
    uint32_t result = 0;
    oruSdkGetWscStatus(0x1fffe, 0x20009, &result);
    for (uint32_t method = 0; method < 3; ++method) sendWscEnroll(method, 1, 2, "12345670");

    std::string text;
    for (const Sent &sent : standIn.sent())
        text += std::to_string(sent.port) + "." + std::to_string(sent.version) + " " +
                hexOf(sent.message) + "\n";
    return text;
}

/// Stores numbers of each width, with a sign and without, and texts that have to be delimited.
void changeFiles()
{
    OruSdkFeatureParam feature{0xffff, 1, 0};
    EXPECT_EQ(oruSdkSetShortGuardInterval40MHz(&feature), 0u);
    OruSdkOptionParam option{0xffffffff, 1, 2};
    EXPECT_EQ(oruSdkSetTxPower(&option), 0u);
    OruSdkBeaconParam beacon{0, 65535, 255};
    EXPECT_EQ(oruSdkSetBeaconParam(&beacon), 0u);
    OruSdkDfsParam dfs{};
    dfs.paramId = ORUSDK_DFS_CB_SWITCH;
    dfs.cbSwitch = 1000000000;
    EXPECT_EQ(oruSdkSetDfsParamValue(&dfs), 0u);
    EXPECT_EQ(oruSdkSetSbsParams(1, 0x7ffffffe, 0xfffffffe), 0u);
    EXPECT_EQ(oruSdkSetSsid(1, " caf\xc3\xa9 \"guests\" \\ "), 0u);

    OruSdkRadiusServer server{};
    std::strcpy(server.name, "radius.example");
    server.port = 65535;
    std::strcpy(server.secret, "two \"words\" \\ \xc3\xbf\t");
    EXPECT_EQ(oruSdkSetRadiusConf(3, -6, 0, 1, &server), 0u);
    const OruSdkMacAuthParam auth{-1, 0, 2};
    EXPECT_EQ(oruSdkSetMacAuth(&auth), 0u);
}

struct SameBytes : AccessPointTest {};

// The golden file holds them to be read, and one digest of them and of the whole files.
// ORU_UPDATE_GOLDEN=1 writes it anew.
TEST_F(SameBytes, LeaveEveryProcessor)
{
    box.set(kAa, "bss2.wscEnabledFlag", "1");
    const std::string asked = requests(standIn);
    standIn.logs.clear();
    changeFiles();

    char digest[32];
    const std::string all = asked + box.everything();
    std::snprintf(digest, sizeof digest, "%016llx\n",
                  static_cast<unsigned long long>(digestOf(all)));
    const std::string found = asked + digest;
    std::printf("bytes: %s", digest);
    if (std::getenv("ORU_UPDATE_GOLDEN") != nullptr) std::ofstream{kGolden} << found;
    std::ifstream golden{kGolden};
    EXPECT_EQ(found, std::string(std::istreambuf_iterator<char>{golden}, {})) << all;
}

} // namespace
} // namespace oru::test
