#include "oruSdk.h"
#include "support/accesspoint.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

#include <cstddef>
#include <cstring>

namespace oru::test {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::Not;

static_assert(offsetof(OruSdkRadiusServer, port) == 68);
static_assert(offsetof(OruSdkRadiusServer, secret) == 72);

OruSdkRadiusServer server(const std::string &name, uint32_t port, const std::string &secret)
{
    OruSdkRadiusServer entry{};
    std::memcpy(entry.name, name.data(), std::min(name.size(), sizeof entry.name));
    entry.port = port;
    std::memcpy(entry.secret, secret.data(), std::min(secret.size(), sizeof entry.secret));
    return entry;
}

void clear(const AccessPoint &box)
{
    for (const char *key : {"radiusTimeout", "radiusMaxTries", "numRadiusServers"})
        box.unset(kAa, key);
    for (const char *number : {"1", "2", "3"})
        for (const char *key : {"radiusServer.", "radiusPort.", "radiusSecret."})
            box.unset(kAa, std::string(key) + number);
}

const OruSdkRadiusServer kThree[] = {server("10.0.0.1", 1812, "one"),
                                     server("radius.example", 1813, "two words"),
                                     server("::1", 65535, "three")};

struct Radius : AccessPointTest {
    Radius() { clear(box); }

    /// Sets one server and expects a refusal, with nothing written.
    void expectRefused(int32_t timeout, int32_t maxTries, int32_t count,
                       const OruSdkRadiusServer *servers, uint32_t code, const std::string &log)
    {
        SCOPED_TRACE(std::to_string(timeout) + " x " + std::to_string(maxTries) + ", " +
                     std::to_string(count));
        const std::string before = box.everything();
        EXPECT_EQ(oruSdkSetRadiusConf(timeout, maxTries, 0, count, servers), code);
        EXPECT_LOGGED(log);
        EXPECT_EQ(box.everything(), before);
    }
};

// ---- Setting

TEST_F(Radius, ThreeServersAreStoredUnderTheirKeys)
{
    EXPECT_EQ(oruSdkSetRadiusConf(3, 6, 12345, 3, kThree), 0u);
    EXPECT_NOTHING_LOGGED();
    EXPECT_EQ(box.value(kAa, "radiusTimeout"), "3");
    EXPECT_EQ(box.value(kAa, "radiusMaxTries"), "6");
    EXPECT_EQ(box.value(kAa, "numRadiusServers"), "3");
    EXPECT_EQ(box.value(kAa, "radiusServer.1"), "10.0.0.1");
    EXPECT_EQ(box.value(kAa, "radiusPort.1"), "1812");
    EXPECT_EQ(box.value(kAa, "radiusSecret.1"), "one");
    EXPECT_EQ(box.value(kAa, "radiusServer.2"), "radius.example");
    EXPECT_EQ(box.value(kAa, "radiusPort.2"), "1813");
    EXPECT_EQ(box.value(kAa, "radiusSecret.2"), "two words");
    EXPECT_EQ(box.value(kAa, "radiusServer.3"), "::1");
    EXPECT_EQ(box.value(kAa, "radiusPort.3"), "65535");
    EXPECT_EQ(box.value(kAa, "radiusSecret.3"), "three");
    EXPECT_EQ(box.read(kAa).find("12345"), std::string::npos);
}

TEST_F(Radius, ProductBelow20Passes)
{
    for (const auto &[timeout, tries] : std::vector<std::pair<int32_t, int32_t>>{
             {3, 6}, {19, 1}, {1, 19}, {0, 0}, {0, INT32_MAX}, {0, INT32_MIN}, {4, -5}, {20, -1}}) {
        EXPECT_EQ(oruSdkSetRadiusConf(timeout, tries, 0, 1, kThree), 0u) << timeout << " " << tries;
        EXPECT_EQ(box.value(kAa, "radiusTimeout"), std::to_string(timeout));
        EXPECT_EQ(box.value(kAa, "radiusMaxTries"), std::to_string(tries));
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(Radius, ProductOf20AndMoreIs87)
{
    for (const auto &[timeout, tries] : std::vector<std::pair<int32_t, int32_t>>{
             {4, 5}, {5, 4}, {20, 1}, {1, 20}, {1, INT32_MAX}, {INT32_MAX, 1}})
        expectRefused(timeout, tries, 1, kThree, 87,
                      "timeout x maxTries must be less than 20 secs");
}

TEST_F(Radius, ProductWrapsAsA32BitNumber)
{
    EXPECT_EQ(oruSdkSetRadiusConf(65536, 65536, 0, 1, kThree), 0u); // 0
    EXPECT_EQ(oruSdkSetRadiusConf(65536, 32768, 0, 1, kThree), 0u); // the smallest number
    EXPECT_EQ(oruSdkSetRadiusConf(INT32_MAX, 2, 0, 1, kThree), 0u); // -2
    EXPECT_EQ(oruSdkSetRadiusConf(5, 858993463, 0, 1, kThree), 0u); // 19
    for (const auto &[timeout, tries] : std::vector<std::pair<int32_t, int32_t>>{
             {3, 1431655772}, {65537, 65537}, {3, -1431655700}}) // 20, 131073, 196
        expectRefused(timeout, tries, 1, kThree, 87,
                      "timeout x maxTries must be less than 20 secs");
}

TEST_F(Radius, NegativeTimeoutIs82BeforeTheProduct)
{
    for (const int32_t timeout : {-1, INT32_MIN})
        expectRefused(timeout, -100, 0, nullptr, 82,
                      "Invalid timeout value: " + std::to_string(timeout));
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(Radius, ProductComesBeforeTheCount)
{
    expectRefused(4, 5, 0, nullptr, 87, "timeout x maxTries must be less than 20 secs");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(Radius, CountOutside1To3Is84BeforeTheServers)
{
    for (const int32_t count : {0, 4, -1, INT32_MAX, INT32_MIN})
        expectRefused(1, 1, count, nullptr, 84,
                      "Invalid numservers value: " + std::to_string(count));
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(Radius, NullServersAre2)
{
    expectRefused(1, 1, 1, nullptr, 2, "NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(Radius, NameOf63CharactersPassesAnd64Is85)
{
    OruSdkRadiusServer entry = server(std::string(63, 'n'), 1, "s");
    EXPECT_EQ(oruSdkSetRadiusConf(1, 1, 0, 1, &entry), 0u);
    EXPECT_EQ(box.value(kAa, "radiusServer.1"), std::string(63, 'n'));
    entry = server(std::string(64, 'm'), 2, "");
    expectRefused(1, 1, 1, &entry, 85, "Invalid length 64 for RADIUS server name");
    entry = server(std::string(65, 'm'), 2, "t"); // nothing ends it
    expectRefused(1, 1, 1, &entry, 85, "Invalid length 65 for RADIUS server name");
}

TEST_F(Radius, EmptyNameIsAccepted)
{
    const OruSdkRadiusServer entry = server("", 1, "s");
    EXPECT_EQ(oruSdkSetRadiusConf(1, 1, 0, 1, &entry), 0u);
    EXPECT_EQ(box.value(kAa, "radiusServer.1"), "");
}

TEST_F(Radius, SecretOf1To65CharactersPasses)
{
    for (const size_t length : {1, 65}) {
        const OruSdkRadiusServer entry = server("n", 1, std::string(length, 's'));
        EXPECT_EQ(oruSdkSetRadiusConf(1, 1, 0, 1, &entry), 0u);
        EXPECT_EQ(box.value(kAa, "radiusSecret.1"), std::string(length, 's'));
    }
}

TEST_F(Radius, SecretOf0Or66CharactersIs86)
{
    OruSdkRadiusServer entry = server("n", 1, "");
    expectRefused(1, 1, 1, &entry, 86, "Invalid length 0 for RADIUS server secret");
    entry = server("n", 1, std::string(66, 's')); // nothing ends it
    expectRefused(1, 1, 1, &entry, 86, "Invalid length 66 for RADIUS server secret");
}

TEST_F(Radius, ServersAreCheckedAndWrittenOneByOne)
{
    OruSdkRadiusServer servers[] = {kThree[0], kThree[1], server(std::string(64, 'n'), 1, "")};
    expectRefused(1, 1, 3, servers, 85, "Invalid length 64 for RADIUS server name");
    EXPECT_THAT(standIn.calls, Contains("oruAsfDictSetString radiusSecret.2"));
    EXPECT_THAT(standIn.calls, Not(Contains("oruAsfDictSetString radiusServer.3")));
    servers[2] = server("n", 1, "");
    expectRefused(1, 1, 3, servers, 86, "Invalid length 0 for RADIUS server secret");
    EXPECT_THAT(standIn.calls, Contains("oruAsfDictSetString radiusPort.3"));
    EXPECT_THAT(standIn.calls, Not(Contains("oruAsfDictSetString radiusSecret.3")));
    EXPECT_EQ(oruSdkSetRadiusConf(1, 1, 0, 2, servers), 0u); // the third is not looked at
}

TEST_F(Radius, PortIsUncheckedAndStoredAsASignedNumber)
{
    const OruSdkRadiusServer entry = server("n", 4294967295u, "s");
    EXPECT_EQ(oruSdkSetRadiusConf(1, 1, 0, 1, &entry), 0u);
    EXPECT_EQ(box.value(kAa, "radiusPort.1"), "-1");
}

TEST_F(Radius, HostileTextsChangeTheirKeysAlone)
{
    EXPECT_EQ(oruSdkSetRadiusConf(1, 1, 0, 1, kThree), 0u);
    const std::string harmless = box.read(kAa);
    for (const std::string text : {"a\nnumRadiusServers=9", "\"quoted\"", "x=y", " # ", "\\", "\t",
                                   "\xff\x80", "a\r\nb", "=\n="}) {
        const OruSdkRadiusServer entry = server(text, 1812, text);
        EXPECT_EQ(oruSdkSetRadiusConf(1, 1, 0, 1, &entry), 0u);
        EXPECT_EQ(box.value(kAa, "radiusServer.1"), text);
        EXPECT_EQ(box.value(kAa, "radiusSecret.1"), text);
        EXPECT_EQ(box.value(kAa, "numRadiusServers"), "1");
        box.set(kAa, "radiusServer.1", "10.0.0.1");
        box.set(kAa, "radiusSecret.1", "one");
        EXPECT_EQ(box.read(kAa), harmless);
    }
}

// ---- Reading

struct RadiusRead : Radius {
    uint32_t timeout = 71;
    uint32_t tries = 72;
    uint32_t deadTime = 73;
    uint32_t count = 74;
    OruSdkRadiusServer servers[3];

    RadiusRead() { std::memset(servers, '?', sizeof servers); }
    uint32_t get() { return oruSdkGetRadiusConf(&timeout, &tries, &deadTime, &count, servers); }
};

TEST_F(RadiusRead, GivesWhatWasSet)
{
    EXPECT_EQ(oruSdkSetRadiusConf(3, 6, 0, 3, kThree), 0u);
    EXPECT_EQ(get(), 0u);
    EXPECT_EQ(timeout, 3u);
    EXPECT_EQ(tries, 6u);
    EXPECT_EQ(deadTime, 0xdeadbeefu);
    EXPECT_EQ(count, 3u);
    for (int i = 0; i < 3; ++i) {
        EXPECT_STREQ(servers[i].name, kThree[i].name);
        EXPECT_EQ(servers[i].port, kThree[i].port);
        EXPECT_STREQ(servers[i].secret, kThree[i].secret);
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(RadiusRead, EntriesBeyondTheCountComeFromTheOldKeys)
{
    EXPECT_EQ(oruSdkSetRadiusConf(1, 1, 0, 3, kThree), 0u);
    const OruSdkRadiusServer two[] = {server("a", 1, "x"), server("b", 2, "y")};
    EXPECT_EQ(oruSdkSetRadiusConf(1, 1, 0, 2, two), 0u);
    EXPECT_EQ(get(), 0u);
    EXPECT_EQ(count, 2u);
    EXPECT_STREQ(servers[0].name, "a");
    EXPECT_STREQ(servers[1].secret, "y");
    EXPECT_STREQ(servers[2].name, "::1");
    EXPECT_EQ(servers[2].port, 65535u);
    EXPECT_STREQ(servers[2].secret, "three");
}

TEST_F(RadiusRead, WhatIsMissingIsLeftAloneSilently)
{
    EXPECT_EQ(oruSdkSetRadiusConf(1, 1, 0, 1, kThree), 0u);
    box.set(kAa, "radiusPort.1", "none");
    box.unset(kAa, "radiusSecret.1");
    EXPECT_EQ(get(), 0u);
    EXPECT_NOTHING_LOGGED();
    EXPECT_STREQ(servers[0].name, "10.0.0.1");
    EXPECT_EQ(servers[0].port, 0x3f3f3f3fu);
    EXPECT_EQ(servers[0].secret[0], '?');
    EXPECT_EQ(servers[0].secret[65], '?');
    for (int i = 1; i < 3; ++i) {
        EXPECT_EQ(servers[i].name[0], '?');
        EXPECT_EQ(servers[i].port, 0x3f3f3f3fu);
        EXPECT_EQ(servers[i].secret[0], '?');
    }
}

TEST_F(RadiusRead, StoredTextsAreCutToTheirRoom)
{
    EXPECT_EQ(oruSdkSetRadiusConf(1, 1, 0, 1, kThree), 0u);
    for (const size_t length : {63, 64, 65, 66, 500}) {
        std::memset(servers, '?', sizeof servers);
        const std::string text(length, 'n');
        box.set(kAa, "radiusServer.1", text);
        box.set(kAa, "radiusSecret.1", text);
        box.set(kAa, "radiusPort.1", "63");
        EXPECT_EQ(get(), 0u);
        EXPECT_EQ(servers[0].name, text.substr(0, 64));
        EXPECT_EQ(servers[0].port, 63u);
        EXPECT_EQ(servers[0].secret, text.substr(0, 65));
        EXPECT_EQ(servers[1].name[0], '?');
    }
}

TEST_F(RadiusRead, WithoutATimeoutNoServerIsConfigured)
{
    EXPECT_EQ(oruSdkSetRadiusConf(1, 1, 0, 1, kThree), 0u);
    box.unset(kAa, "radiusTimeout");
    EXPECT_EQ(get(), 81u);
    expectLogged(
        3, {"Unable to read radiusTimeout from dictionary", "Radius server not yet configured\n"},
        __FILE__, __LINE__);
    EXPECT_EQ(timeout, 71u);
    EXPECT_EQ(tries, 72u);
    EXPECT_EQ(deadTime, 73u);
    EXPECT_EQ(count, 74u);
}

TEST_F(RadiusRead, FieldsAreFilledAsTheirKeysAreRead)
{
    EXPECT_EQ(oruSdkSetRadiusConf(1, 2, 0, 1, kThree), 0u);
    box.unset(kAa, "numRadiusServers");
    EXPECT_EQ(get(), 26u);
    EXPECT_LOGGED("Unable to read numRadiusServers from dictionary");
    EXPECT_EQ(timeout, 1u);
    EXPECT_EQ(tries, 2u);
    EXPECT_EQ(deadTime, 0xdeadbeefu);
    EXPECT_EQ(count, 74u);
    EXPECT_EQ(servers[0].name[0], '?');
    box.unset(kAa, "radiusMaxTries");
    deadTime = 73;
    EXPECT_EQ(get(), 26u);
    EXPECT_LOGGED("Unable to read radiusMaxTries from dictionary");
    EXPECT_EQ(deadTime, 73u);
}

TEST_F(RadiusRead, EveryNullPointerIs2)
{
    EXPECT_EQ(oruSdkGetRadiusConf(nullptr, &tries, &deadTime, &count, servers), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkGetRadiusConf(&timeout, nullptr, &deadTime, &count, servers), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkGetRadiusConf(&timeout, &tries, nullptr, &count, servers), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkGetRadiusConf(&timeout, &tries, &deadTime, nullptr, servers), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkGetRadiusConf(&timeout, &tries, &deadTime, &count, nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

// ---- Every call that can fail

std::vector<SweepRow> rows()
{
    const Step open{"oruAsfDictCreate /var/1x.conf", 7,
                    "Unable to read AA Defaults file /var/1x.conf"};
    std::vector<Step> set{open};
    for (const char *key :
         {"radiusTimeout", "radiusMaxTries", "numRadiusServers", "radiusServer.1", "radiusPort.1",
          "radiusSecret.1", "radiusServer.2", "radiusPort.2", "radiusSecret.2"})
        set.push_back({std::string("oruAsfDictSetString ") + key, 25,
                       std::string("Unable to write ") + key + " to dictionary"});
    set.push_back(
        {"oruAsfDictSave /var/1x.conf", 8, "Unable to write AA Defaults file /var/1x.conf"});

    std::vector<Step> get{
        open,
        {"oruAsfDictGetInt radiusTimeout", 81, "Unable to read radiusTimeout from dictionary", 3,
         false, 0, "Radius server not yet configured\n"},
        {"oruAsfDictGetInt radiusMaxTries", 26, "Unable to read radiusMaxTries from dictionary"},
        {"oruAsfDictGetInt numRadiusServers", 26,
         "Unable to read numRadiusServers from dictionary"}};
    for (const char *number : {"1", "2", "3"}) {
        get.push_back({std::string("oruAsfDictGetString radiusServer.") + number, 0, ""});
        get.push_back({std::string("oruAsfDictGetInt radiusPort.") + number, 0, ""});
        get.push_back({std::string("oruAsfDictGetString radiusSecret.") + number, 0, ""});
    }
    return {{"SetRadiusConf", [](AccessPoint &box, StandIn &) { clear(box); },
             [] { return oruSdkSetRadiusConf(2, 3, 0, 2, kThree); }, set},
            {"GetRadiusConf",
             [](AccessPoint &, StandIn &standIn) {
                 oruSdkSetRadiusConf(2, 3, 0, 3, kThree);
                 standIn.reset();
             },
             [] {
                 uint32_t timeout = 0;
                 uint32_t tries = 0;
                 uint32_t deadTime = 0;
                 uint32_t count = 0;
                 OruSdkRadiusServer servers[3];
                 return oruSdkGetRadiusConf(&timeout, &tries, &deadTime, &count, servers);
             },
             get}};
}
INSTANTIATE_TEST_SUITE_P(Radius, FailureSweep, ::testing::ValuesIn(rows()), rowName);
INSTANTIATE_TEST_SUITE_P(Radius, StatusSweep, ::testing::ValuesIn(rows()), rowName);

} // namespace
} // namespace oru::test
