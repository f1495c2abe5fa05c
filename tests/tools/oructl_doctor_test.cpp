// What "doctor" finds: each defect alone, and none in an access point as it leaves the factory.
#include "living.hpp"
#include "tools/oructl_run.hpp"

#include <gmock/gmock.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

#include <sys/wait.h>

using namespace oru::test;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace fs = std::filesystem;

namespace {

/// An access point as it leaves the factory, but for BSS 0, which nobody may enter.
class Doctor : public OructlTest {
protected:
    Doctor()
    {
        installFactoryFiles();
        set(kAa, "bss0.openAccessEnabled", "false");
        setWpa("1");
        set(kAa, "bss0.wpaPsk", "\"quite a secret\"");
    }

    /// The names of the checks that found something, and no notes.
    [[nodiscard]] std::vector<std::string> findings() const
    {
        const Transcript run = this->run({"--json", "doctor"});
        const auto object = nlohmann::json::parse(run.out, nullptr, false);
        std::vector<std::string> names;
        for (const auto &finding : object["findings"])
            if (finding["level"] != "note") names.push_back(finding["check"]);
        EXPECT_EQ(run.exit, names.empty() ? 0 : 20);
        return names;
    }

    [[nodiscard]] std::vector<std::string> notes() const
    {
        const auto object = nlohmann::json::parse(run({"--json", "doctor"}).out, nullptr, false);
        std::vector<std::string> names;
        for (const auto &finding : object["findings"])
            if (finding["level"] == "note") names.push_back(finding["check"]);
        return names;
    }

    /// What the first finding says to do.
    [[nodiscard]] std::string mend() const
    {
        const auto object = nlohmann::json::parse(run({"--json", "doctor"}).out, nullptr, false);
        return object["findings"][0]["mend"];
    }

    void setWpa(const std::string &authentication) const
    {
        set(kAa, "bss0.wpaEnabled", "true");
        set(kAa, "bss0.wpaAuthTypes", authentication);
        set(kWsm, "bss0.BpRSNFlag", "1");
        set(kWsm, "bss0.BpPskFlag", authentication);
    }

    void setMode(const char *path, unsigned mode) const
    {
        fs::permissions(root() + path, static_cast<fs::perms>(mode));
    }

    void drop(const std::string &path, const std::string &key) const
    {
        set(path, key, "");
        std::string text = read(path);
        text.erase(text.find(key + "=\n"));
        write(path, text);
    }

    static constexpr const char *kRadar = "/config/wsmSavedRadarDetectList";
};

TEST_F(Doctor, FindsNothingButThatTheServicesAreAway)
{
    EXPECT_THAT(findings(), IsEmpty());
    EXPECT_THAT(notes(), ElementsAre("country-unknown", "service", "service"));
}

TEST_F(Doctor, FindsEachDefectAlone)
{
    struct Defect {
        const char *check;
        std::function<void()> plant;
    };
    const Defect defects[] = {
        {"missing-file", [&] { remove(kAa); }},
        {"factory-file", [&] { remove(kAaFactory); }},
        {"readable-by-others", [&] { setMode(kAa, 0604); }},
        {"readable-by-others", [&] { setMode(kWsm, 0602); }},
        {"not-writable", [&] { setMode(kWsm, 0400); }},
        {"leftover", [&] { write("/var/.1x.conf.new", "x=1\n"); }},
        {"leftover", [&] { write("/config/.wsmSavedRadarDetectList.new", ""); }},
        {"leftover", [&] { fs::create_directories(root() + "/var/oructl/install.new"); }},
        {"missing-key", [&] { drop(kWsm, "radio1.txPower"); }},
        {"ssid", [&] { drop(kWsm, "bss3.ssId"); }},
        {"missing-key", [&] { drop(kWsm, "bss3.radio"); }},
        {"missing-key", [&] { drop(kAa, "bss2.sessionTimeout"); }},
        {"missing-key", [&] { drop(kWsm, "eth1.pvid"); }},
        {"bad-value", [&] { set(kWsm, "radio1.txPower", "loud"); }},
        {"bad-value", [&] { set(kAa, "bss2.sessionTimeout", "\"60\""); }},
        {"ssid", [&] { set(kWsm, "bss1.ssId", '"' + std::string(33, 'x') + '"'); }},
        {"ssid", [&] { set(kAa, "bss2.ssId", "\"another\""); }},
        {"ssid", [&] { drop(kAa, "bss2.ssId"); }},
        {"assignment", [&] { set(kAa, "bss0.radioctrl", "1"); }},
        {"several-modes", [&] { set(kAa, "bss1.wepEnabled", "true"); }},
        {"no-mode", [&] { set(kAa, "bss1.openAccessEnabled", "false"); }},
        {"psk", [&] { drop(kAa, "bss0.wpaPsk"); }},
        {"radius-server", [&] { setWpa("0"); }},
        {"radius-secret",
         [&] {
             set(kAa, "numRadiusServers", "1");
             set(kAa, "radiusServer.1", "radius.example");
         }},
        {"unused-secret", [&] { set(kAa, "radiusSecret.2", "hush"); }},
        {"radio-flags", [&] { set(kWsm, "bss0.BpRSNFlag", "0"); }},
        {"radio-flags", [&] { set(kWsm, "bss1.BpPskFlag", "1"); }},
        {"open-access", [&] { set(kWsm, "bss1.radio", "2"), set(kAa, "bss1.radioctrl", "2"); }},
        {"wep",
         [&] {
             set(kWsm, "bss1.radio", "2"), set(kAa, "bss1.radioctrl", "2");
             set(kAa, "bss1.openAccessEnabled", "false"), set(kAa, "bss1.wepEnabled", "true");
         }},
        {"radar", [&] { set(kWsm, "radio1.configuredChannel", "52"); }},
        {"secondary", [&] { set(kWsm, "radio1.channelBondingMode", "1"); }},
        {"secondary",
         [&] {
             set(kWsm, "radio1.configuredSecondaryChannel", "44");
             set(kWsm, "radio1.channelBondingMode", "1");
         }},
    };
    const std::array<const char *, 5> files = {kWsm, kAa, kWsmFactory, kAaFactory, kRadar};
    std::vector<std::string> texts;
    for (const char *file : files) texts.push_back(read(file));
    for (const Defect &defect : defects) {
        defect.plant();
        EXPECT_THAT(findings(), ElementsAre(defect.check));
        EXPECT_NE(mend(), "");
        fs::remove(root() + "/var/.1x.conf.new");
        fs::remove(root() + "/config/.wsmSavedRadarDetectList.new");
        fs::remove_all(root() + "/var/oructl");
        for (size_t i = 0; i < files.size(); ++i) {
            remove(files[i]);
            write(files[i], texts[i]);
            setMode(files[i], 0600);
        }
        ASSERT_THAT(findings(), IsEmpty()) << defect.check;
    }
}

TEST_F(Doctor, WhatItSaysMendsTheDefect)
{
    const std::function<void()> plants[] = {
        [&] { set(kAa, "bss2.ssId", "\"another\""); },
        [&] { set(kWsm, "bss2.ssId", "\"\""); },
        [&] { set(kAa, "bss0.radioctrl", "1"); },
        [&] { drop(kWsm, "bss3.ssId"); },
        [&] { set(kAa, "bss1.radioctrl", "1"); },
        [&] { set(kWsm, "bss1.BpPskFlag", "1"); },
        [&] { setMode(kAa, 0604); },
        [&] { setMode(kWsm, 0400); },
        [&] { write("/var/.1x.conf.new", "x=1\n"); },
        [&] {
            set(kWsm, "radio1.radarDetectFlag", "0");
            set(kWsm, "radio1.configuredSecondaryChannel", "40");
        },
    };
    for (const auto &plant : plants) {
        plant();
        const std::string command = mend();
        const int status =
            std::system(("export ORU_ROOT=" + root() + " ORU_LOG=none PATH=" +
                         fs::path(ORUCTL).parent_path().string() + ":$PATH; " + command)
                            .c_str());
        constexpr int kSavedButNotTaken = 4; // no service runs here
        ASSERT_EQ(WEXITSTATUS(status), command == "oructl commit" ? kSavedButNotTaken : 0)
            << command;
        EXPECT_THAT(findings(), IsEmpty()) << command;
    }
}

TEST_F(Doctor, NotesChangesSinceTheLastCommit)
{
    fs::create_directories(root() + "/var/oructl/committed");
    for (const char *path : {kWsm, kAa})
        fs::copy_file(root() + path,
                      root() + "/var/oructl/committed/" + fs::path(path).filename().string());
    EXPECT_THAT(notes(), ElementsAre("country-unknown", "service", "service"));
    set(kWsm, "radio0.txPower", "1");
    set(kWsm, "radio1.txPower", "1");
    EXPECT_THAT(notes(), ElementsAre("uncommitted", "country-unknown", "service", "service"));
    EXPECT_THAT(run({"doctor"}).out, HasSubstr("2 keys of /var/wsmDefaults changed"));
    EXPECT_EQ(run({"doctor"}).exit, 0) << "a note is no finding";
}

TEST_F(Doctor, TerseHasOneLineOfFourValuesEach)
{
    EXPECT_EQ(run({"--terse", "doctor"}).out.substr(0, 21), "note\tcountry-unknown\t");
    set(kAa, "bss0.radioctrl", "1");
    EXPECT_EQ(run({"--terse", "doctor"}).out.substr(0, 17), "error\tassignment\t");
}

TEST_F(Doctor, ColoursTheLevelAlone)
{
    set(kAa, "bss0.radioctrl", "1");
    EXPECT_THAT(run({"--color", "always", "doctor"}).out,
                testing::StartsWith("\x1b[1;31merror\x1b[0m: assignment: "));
    EXPECT_THAT(run({"doctor"}).out, testing::StartsWith("error: assignment: "));
    for (const char *form : {"--json", "--terse"})
        EXPECT_THAT(run({"--color", "always", form, "doctor"}).out, Not(HasSubstr("\x1b")));
}

// ---- A living access point

class DoctorAtWork : public orusim::test::LivingTest {
protected:
    std::string doctor()
    {
        return call([] {
            std::string out;
            FILE *const pipe = ::popen(ORUCTL " --terse doctor", "r");
            std::array<char, 4096> bytes{};
            for (size_t got = 1; got > 0;) {
                got = std::fread(bytes.data(), 1, bytes.size(), pipe);
                out.append(bytes.data(), got);
            }
            ::pclose(pipe);
            return out;
        });
    }
};

TEST_F(DoctorAtWork, AFreshAccessPointHasAnOpenNetworkAndNothingElse)
{
    EXPECT_EQ(doctor(), "warning\topen-access\tBSS 0 is open to everybody, and nothing is "
                        "encrypted\toructl set security 0 wpa2 psk --psk -\n");
}

TEST_F(DoctorAtWork, AChannelThatTheCountryForbidsIsAnError)
{
    std::string text = box.read("/var/wsmDefaults");
    const std::string key = "radio0.configuredChannel=6";
    text.replace(text.find(key), key.size(), "radio0.configuredChannel=13");
    box.write("/var/wsmDefaults", text);
    EXPECT_THAT(doctor(),
                testing::StartsWith("error\tcountry\tradio 0 has channel 13, which is none "
                                    "of its channels in US\toructl set channel 0 auto\n"));
}

} // namespace
