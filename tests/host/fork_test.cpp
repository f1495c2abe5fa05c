// Programs that fork, that start others, and that speak another language.
#include "host/host_program.hpp"
#include "oruAsf.h"

#include <gmock/gmock.h>

#include <atomic>
#include <clocale>
#include <thread>

using namespace oru::test;
using testing::IsEmpty;

namespace {

constexpr const char *kWsm = kFiles[0];

int setSsid(int32_t bss, const string &ssid)
{
    return static_cast<int>(oruSdkSetSsid(bss, ssid.c_str()));
}

std::vector<string> linesOf(const string &text)
{
    std::vector<string> lines;
    std::istringstream stream{text};
    for (string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

class ForkingProgram : public HostProgram {
protected:
    /// Every line of a file but those of SSIDs and the WPS state that goes with them.
    [[nodiscard]] std::vector<string> otherLines(const string &text) const
    {
        std::vector<string> lines = linesOf(text);
        std::erase_if(lines, [](const string &line) {
            return line.find("ssId=") != line.npos || line.find("wpsstate=") != line.npos;
        });
        return lines;
    }

    void expectWholeFiles() const
    {
        for (const char *path : kFiles)
            EXPECT_EQ(otherLines(box.read(path)), otherLines(fresh.at(path))) << path;
        for (const auto &entry : fs::directory_iterator{box.at("/var")})
            EXPECT_NE(entry.path().filename().string().front(), '.') << entry.path();
    }
};

} // namespace

TEST_F(ForkingProgram, TortureSavesInTheParentAndItsChildAtOnce)
{
    const int rounds = whole() ? 2000 : 50;
    for (int round = 0; round < rounds; ++round) {
        const string name = std::to_string(round);
        const pid_t child = startChild([&] { return setSsid(0, "child " + name); });
        EXPECT_EQ(setSsid(0, "parent " + name), 0);
        EXPECT_EQ(waitForChild(child), 0);
        char ssid[33];
        uint32_t length = 0;
        ASSERT_EQ(oruSdkGetSsid(0, ssid, &length), 0U);
        EXPECT_TRUE(ssid == "child " + name || ssid == "parent " + name) << ssid;
    }
    expectWholeFiles();
    std::printf("torture: host programs, parent and child: %d saves\n", 2 * rounds);
}

TEST_F(ForkingProgram, TortureForksWhileItsThreadsSave)
{
    const int forks = whole() ? 1000 : 50;
    std::atomic<bool> over = false;
    std::atomic<size_t> saves = 0;
    std::vector<std::thread> threads;
    for (const int32_t bss : {1, 2})
        threads.emplace_back([&, bss] {
            for (int count = 0; !over; ++count) {
                EXPECT_EQ(setSsid(bss, "thread " + std::to_string(count)), 0);
                ++saves;
            }
        });
    for (int count = 0; count < forks; ++count) {
        const pid_t child = ::fork();
        if (child == 0) {
            ::alarm(60); // it would wait for ever for what a thread held that it has not
            ::_exit(setSsid(0, "child " + std::to_string(count)));
        }
        EXPECT_EQ(waitForChild(child), 0) << "child " << count;
    }
    over = true;
    for (std::thread &thread : threads) thread.join();
    expectWholeFiles();
    std::printf("torture: host programs, forks among threads: %d forks, %zu saves\n", forks,
                saves.load());
}

TEST_F(ForkingProgram, AChildUsesTheHandlesOfItsParent)
{
    OruAsfDict *dict = nullptr;
    ASSERT_EQ(oruAsfDictCreate(&dict, kWsm), 0);
    ASSERT_EQ(oruAsfDictSetString(dict, "bss0.ssId", "\"both\""), 0);
    EXPECT_EQ(inChild([&] {
                  const int saved = oruAsfDictSave(dict, kWsm);
                  oruAsfDictFree(dict);
                  return saved;
              }),
              0);
    EXPECT_EQ(oruAsfDictSave(dict, kWsm), 0);
    oruAsfDictFree(dict);
    expectWholeFiles();
}

TEST_F(ForkingProgram, NothingOfTheLibraryReachesTheProgramsThatItStarts)
{
    const auto open = [] {
        std::string names;
        for (const auto &entry : fs::directory_iterator{"/proc/self/fd"})
            names += entry.path().filename().string() + " ";
        return names;
    };
    const string before = open();
    OruAsfIpc *ipc = oruAsfIpcOpen(2, 1, 0);
    ASSERT_EQ(oruAsfIpcConnect(ipc, "localhost", port, vers), 0);
    OruAsfListener *listener = oruAsfIpcListen(777, 1);
    ASSERT_NE(listener, nullptr);
    EXPECT_NE(open(), before);
    const string seen = box.at("/seen");
    const string command = "readlink /proc/self/fd/* >'" + seen + "'";
    EXPECT_NE(std::system(command.c_str()), -1);
    EXPECT_EQ(readAll(seen).find("socket:"), string::npos) << readAll(seen);
    oruAsfIpcUnlisten(listener);
    oruAsfIpcClose(ipc);
    EXPECT_EQ(open(), before);
}

// ---- Languages

namespace {

/// The locales that the build made, while this lives.
class Locales {
public:
    Locales() { ::setenv("LOCPATH", HOST_LOCALES, 1); }
    ~Locales()
    {
        std::setlocale(LC_ALL, "C");
        ::unsetenv("LOCPATH");
    }
    Locales(const Locales &) = delete;
    Locales &operator=(const Locales &) = delete;

    [[nodiscard]] static bool made() { return fs::exists(HOST_LOCALES "/made"); }
    static constexpr const char *kNames[] = {"de_DE.UTF-8", "tr_TR.UTF-8", "tr_TR.ISO-8859-9"};
};

using ForeignProgram = HostProgram;

} // namespace

TEST_F(ForeignProgram, TortureChangesNothing)
{
    if (!Locales::made()) GTEST_SKIP() << "localedef or its sources are missing (locales)";
    const Locales locales;
    for (const char *name : Locales::kNames) {
        ASSERT_NE(std::setlocale(LC_ALL, name), nullptr) << name;
        std::setlocale(LC_ALL, "C");
        expectTheSame([name] { std::setlocale(LC_ALL, name); }, name);
    }
}

TEST_F(ForeignProgram, ReadsNumbersAsAlways)
{
    if (!Locales::made()) GTEST_SKIP() << "localedef or its sources are missing (locales)";
    const Locales locales;
    // In these the comma splits numbers, and in one the byte a0 is a blank that does not break.
    for (const char *name : Locales::kNames) {
        std::setlocale(LC_ALL, name);
        EXPECT_EQ(oruSdkGetStatsValue("tx", "tx\xa0 7"), -1) << name;
        EXPECT_EQ(oruSdkGetStatsValue("tx", "tx 1.234"), 1) << name;
        EXPECT_EQ(oruSdkGetStatsValue("tx", "tx \xa0"
                                            "7"),
                  -1)
            << name;
        OruSdkBasicRateSetParam rates{0, 3, "6.5"};
        EXPECT_EQ(oruSdkSetBasicRateSetParam(&rates), 0U) << name;
        rates = {0, 3, "6,5"};
        EXPECT_EQ(oruSdkSetBasicRateSetParam(&rates), 0U) << name;
        rates = {0, 3,
                 "\xa0"
                 "6"};
        EXPECT_NE(oruSdkSetBasicRateSetParam(&rates), 0U) << name;
        std::setlocale(LC_ALL, "C");
    }
}
