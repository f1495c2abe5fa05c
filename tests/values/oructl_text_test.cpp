// Hostile texts through oructl: whatever the files hold, and whatever is set, no control character
// reaches the terminal, and JSON stays JSON.
#include "tools/oructl_run.hpp"
#include "values/texts.hpp"

#include <gmock/gmock.h>

#include <cstdio>
#include <map>
#include <sstream>

using namespace oru::test;
using std::string;

namespace {

/// Where a text stands in the files.
struct Place {
    const char *file;
    const char *key;
    bool bare; // the value is no text for oructl, and stands as it is
};
constexpr const char *kWsm = "/var/wsmDefaults";
constexpr const char *kAa = "/var/1x.conf";
constexpr Place kPlaces[] = {
    {kWsm, "bss0.ssId", false},
    {kAa, "bss0.ssId", false},
    {kWsm, "bss0.uuid", false},
    {kWsm, "bss0.wpsintf", false},
    {kWsm, "bss0.appinpasswd", false},
    {kWsm, "wdsRulesSsId", false},
    {kWsm, "bssId", false},
    {kAa, "bss0.wpaPsk", false},
    {kAa, "radiusServer.1", false},
    {kAa, "radiusSecret.1", false},
    {kAa, "localMacAcl.1", false},
    {kAa, "bss0.wepKey.1", false},
    {kWsm, "radio0.dot11aRates", false},
    {kWsm, "countryCode", false},
    {kWsm, "radio0.txPower", true},
    {kWsm, "dot11Mode", true},
    {kAa, "bss0.wpaEnabled", true},
    {kAa, "localMacAcl", true},
};

const std::vector<Arguments> kReaders = {
    {"get", "ssid", "0"},
    {"--show-secrets", "get", "psk", "0"},
    {"--show-secrets", "get", "wep", "0"},
    {"get", "uuid", "0"},
    {"--show-secrets", "get", "radius"},
    {"get", "basic-rates", "0"},
    {"get", "world-mode"},
    {"get", "tx-power", "0"},
    {"show", "bss"},
    {"show", "bss", "0"},
    {"show", "radio", "0"},
    {"show", "bss-info", "0"},
    {"export"},
    {"--show-secrets", "export"},
    {"diff"},
    {"doctor"},
    {"explain", "ssid"},
    {"explain", "bss0.ssId"},
    {"--show-secrets", "wps", "get-pin", "0"},
};

class OructlTexts : public OructlTest {
protected:
    OructlTexts()
    {
        installFactoryFiles();
        locale_ = "C.UTF-8"; // in which bytes above 7f are shown at all
    }

    /// A value in double quotes, as the library writes it.
    static string quoted(const string &text)
    {
        string value = "\"";
        for (const char byte : text) {
            char hex[8];
            const auto number = static_cast<unsigned char>(byte);
            std::snprintf(hex, sizeof hex, "\\x%02x", number);
            const size_t letter = string{"\n\r\t"}.find(byte);
            if (letter != string::npos) value += string{"\\"} + "nrt"[letter];
            else if (number < 0x20 || number == 0x7f) value += hex;
            else if (byte == '"' || byte == '\\') value += string{"\\"} + byte;
            else value += byte;
        }
        return value + "\"";
    }

    /// The text in every place, at the end of its file, where it counts.
    void plant(const string &text, bool raw) const
    {
        installFactoryFiles();
        std::map<string, string> files = {{kWsm, read(kWsm)}, {kAa, read(kAa)}};
        for (const Place &place : kPlaces)
            files[place.file] +=
                string{place.key} + "=" + (raw || place.bare ? text : quoted(text)) + "\n";
        for (const auto &[path, content] : files) write(path, content);
    }

    void expectHarmless(const Arguments &arguments, const string &text)
    {
        const Transcript plain = runWithInput("", arguments);
        const string what = testing::PrintToString(arguments) + " of " + quoted(text.substr(0, 60));
        EXPECT_LT(plain.exit, 126) << what;
        EXPECT_TRUE(isHarmlessOutput(plain.out)) << what << ": " << quoted(plain.out);
        EXPECT_TRUE(isHarmlessOutput(plain.err)) << what << ": " << quoted(plain.err);
        ++runs;
    }

    void expectJson(Arguments arguments, const string &text)
    {
        arguments.insert(arguments.begin(), "--json");
        const Transcript json = runWithInput("", arguments);
        const string what = testing::PrintToString(arguments) + " of " + quoted(text.substr(0, 60));
        EXPECT_NE(json.out, "") << what;
        std::istringstream lines{json.out}; // of objects
        for (string line; std::getline(lines, line);)
            EXPECT_TRUE(nlohmann::json::accept(line)) << what << ": " << quoted(line);
        EXPECT_TRUE(isHarmlessOutput(json.out + json.err)) << what << ": " << quoted(json.out);
        ++runs;
    }

    size_t runs = 0;
};

} // namespace

TEST_F(OructlTexts, TortureStoredTextsReachNoTerminal)
{
    for (const string &text : sampledTexts(60)) {
        const string asC = text.c_str();
        for (const bool raw : {false, true}) {
            plant(asC.substr(0, 4096), raw);
            for (const Arguments &arguments : kReaders) {
                expectHarmless(arguments, asC);
                expectJson(arguments, asC);
            }
            expectHarmless({"--terse", "get", "ssid", "0"}, asC);
        }
    }
    std::printf("torture: hostile texts, oructl reads: %zu runs\n", runs);
}

TEST_F(OructlTexts, TortureGivenTextsReachNoTerminal)
{
    const std::vector<Arguments> setters = {
        {"set", "ssid", "0"},
        {"set", "uuid", "0"},
        {"set", "tx-power", "0"},
        {"set", "basic-rates", "0"},
        {"set", "security", "0"},
        {"get"},
        {"explain"},
        {"show"},
        {"no-such-verb"},
        {"set", "mac-acl", "1"},
        {"set", "mimo"},
        {"list"},
    };
    for (const string &text : sampledTexts(25)) {
        const string asC = string{text.c_str()}.substr(0, 65536);
        for (Arguments arguments : setters) {
            arguments.push_back(asC);
            expectHarmless(arguments, asC);
            if (asC.rfind('-', 0) != 0) expectJson(arguments, asC);
        }
    }
    std::printf("torture: hostile texts, oructl is given: %zu runs\n", runs);
}

TEST_F(OructlTexts, AnSsidComesBackAsItWasSet)
{
    for (const string &text : sampledTexts(25)) {
        const string ssid = string{text.c_str()};
        if (ssid.size() > 32) continue;
        const Transcript set = run({"--", "set", "ssid", "0", ssid});
        if (set.exit != 0) continue;
        EXPECT_EQ(value(kWsm, "bss0.ssId"), quoted(ssid));
    }
}
