// Stored secrets: every one of the catalogue is planted, and no verb shows it unasked.
#include "catalogue.hpp"
#include "command.hpp"
#include "request.hpp"
#include "show.hpp"
#include "tools/oructl_run.hpp"

#include <gmock/gmock.h>

#include <map>
#include <set>

using namespace oru::test;
using oructl::forEachItem;
using testing::HasSubstr;

namespace {

// What stands in the files, and what a get makes of it. A WEP key has colons there.
constexpr const char *kPsk = "kestrel-of-the-psk";
constexpr const char *kSecret = "kestrel-of-the-radius";
constexpr const char *kStoredWep = "0d:db:a1:1c:af:e0:dd:ba:11:ca:fe:0d:da";
constexpr const char *kWep = "0ddba11cafe0ddba11cafe0dda";
constexpr const char *kPin = "90817263";

/// The items and commands that hold secrets, and what was planted for each.
const std::map<std::string, std::string> kPlanted = {
    {"psk", kPsk}, {"wep", kWep}, {"radius", kSecret}, {"wps get-pin", kPin}};

/// Those that only take secrets, and show none.
const std::set<std::string> kTakers = {"security", "wps enroll pin", "wps set-pin"};

bool holdsSecret(std::span<const oructl::Field> fields)
{
    for (const oructl::Field &field : fields)
        if (field.kind == oructl::Kind::Secret || holdsSecret(field.entry)) return true;
    return false;
}

/// Every command line of a few words that shows or changes something, and each verb by itself.
std::vector<Arguments> commandLines()
{
    std::vector<Arguments> lines;
    for (const oructl::Verb &verb : oructl::verbs()) {
        lines.push_back({std::string{verb.name}});
        lines.push_back({std::string{verb.name}, "no-such/word"});
        lines.push_back({"help", std::string{verb.name}});
    }
    forEachItem([&](const oructl::Item &item) {
        const std::string name{item.name};
        for (const char *verb : {"get", "set", "explain", "help", "list"}) {
            lines.push_back({verb, name});
            lines.push_back({verb, name, "0"});
            lines.push_back({verb, name, "1", "on"});
        }
        oructl::forEachWord(item.keys, [&](std::string_view pattern) {
            std::string key{pattern};
            if (const size_t at = key.find("%d"); at != key.npos) key.replace(at, 2, "0");
            lines.push_back({"explain", key});
        });
    });
    oructl::forEachView([&](const oructl::View &view) {
        lines.push_back({"show", std::string{view.name}, "0", "0"});
    });
    for (const char *pin : {"get-pin", "generate", "status"}) lines.push_back({"wps", pin, "0"});
    lines.push_back({"commit", "all"});
    return lines;
}

class StoredSecrets : public OructlTest {
protected:
    StoredSecrets()
    {
        installFactoryFiles();
        log_ = "file:" + root() + "/log";
        plant();
    }

    /// In the files as they are, and in those of the factory: a key is explained from there.
    void plant() const
    {
        for (const char *file : {kAa, kAaFactory}) {
            for (const char bss : {'0', '1', '2', '3'}) {
                const std::string key = std::string("bss") + bss + '.';
                set(file, key + "wpaPsk", quoted(kPsk));
                for (const char number : {'1', '2', '3', '4'})
                    set(file, key + "wepKey." + number, kStoredWep);
            }
            for (const char number : {'1', '2', '3'}) {
                set(file, std::string("radiusServer.") + number, "radius.example");
                set(file, std::string("radiusPort.") + number, "1812");
                set(file, std::string("radiusSecret.") + number, kSecret);
            }
            for (const char *key : {"radiusTimeout", "radiusMaxTries", "numRadiusServers"})
                set(file, key, "3");
            set(file, "bss0.wepEnabled", "true");
            set(file, "bss0.openAccessEnabled", "false");
        }
        for (const char *file : {kWsm, kWsmFactory})
            for (const char bss : {'0', '1', '2', '3'})
                set(file, std::string("bss") + bss + ".appinpasswd", quoted(kPin));
    }

    static std::string quoted(const std::string &text) { return '"' + text + '"'; }

    static std::vector<std::string> secretsIn(const std::string &text)
    {
        std::vector<std::string> found;
        for (const char *secret : {kPsk, kSecret, kStoredWep, kWep, kPin})
            if (text.find(secret) != text.npos) found.emplace_back(secret);
        return found;
    }

    void expectHidden(const Arguments &arguments) const
    {
        const Transcript run = runWithInput("", arguments);
        EXPECT_THAT(secretsIn(run.out + run.err), testing::IsEmpty())
            << testing::PrintToString(arguments) << run.out;
    }
};

TEST_F(StoredSecrets, AreAllPlanted)
{
    std::set<std::string> holders;
    forEachItem([&](const oructl::Item &item) {
        if (holdsSecret(item.fields)) holders.emplace(item.name);
    });
    oructl::forEachCommand([&](const oructl::Command &command) {
        for (const oructl::Operand &operand : command.operands)
            if (holdsSecret({&operand.field, 1}))
                holders.insert(std::string{command.verb}.append(" ").append(command.words));
    });
    holders.insert("wps get-pin"); // its secret is no operand
    std::set<std::string> known = kTakers;
    for (const auto &[name, secret] : kPlanted) known.insert(name);
    EXPECT_EQ(holders, known);
}

constexpr const char *kForms[] = {"--color=never", "--json", "--terse", "--dry-run", "--quiet"};

// A program with sanitizers takes 20 times as long to start: there each form runs every seventh
// line. There are 15 lines to an item, so that each form meets lines of every kind.
#ifdef __SANITIZE_ADDRESS__
constexpr size_t kStep = 7;
#else
constexpr size_t kStep = 1;
#endif

class StoredSecretsIn : public StoredSecrets, public testing::WithParamInterface<size_t> {};

INSTANTIATE_TEST_SUITE_P(Form, StoredSecretsIn, testing::Range<size_t>(0, std::size(kForms)));

TEST_P(StoredSecretsIn, AreInNoOutputAndNoLogLine)
{
    const auto lines = commandLines();
    for (size_t i = GetParam() % kStep; i < lines.size(); i += kStep) {
        Arguments arguments = lines[i];
        arguments.insert(arguments.begin(), kForms[GetParam()]);
        expectHidden(arguments);
    }
    expectHidden(
        {kForms[GetParam()], "show", "stations", "0", "0"}); // nobody answers: one line at least
    EXPECT_NE(read("/log"), "");
    EXPECT_THAT(secretsIn(read("/log")), testing::IsEmpty());
}

TEST_F(StoredSecrets, AreNotSaidByAChangeOfThem)
{
    for (const char *form : {"--json", "--terse", "--dry-run", "--force"}) {
        const Transcript run = runWithInput(
            "another-key-of-psk\n", {form, "set", "security", "0", "wpa2", "psk", "--psk", "-"});
        EXPECT_EQ(run.exit, 0) << run.err;
        EXPECT_THAT(secretsIn(run.out + run.err), testing::IsEmpty());
        EXPECT_EQ((run.out + run.err).find("another-key"), std::string::npos);
    }
    EXPECT_THAT(secretsIn(read("/log")), testing::IsEmpty());
    EXPECT_EQ(read("/log").find("another-key"), std::string::npos);
}

TEST_F(StoredSecrets, AreShownWhereTheyShouldWhenAskedFor)
{
    for (const auto &[name, secret] : kPlanted) {
        Arguments get = {"--show-secrets", "get", name};
        if (name == "wps get-pin") get = {"--show-secrets", "wps", "get-pin", "0"};
        else if (name != "radius") get.emplace_back("0");
        EXPECT_THAT(run(get).out, HasSubstr(secret)) << name;
        get.insert(get.begin(), "--json");
        EXPECT_THAT(run(get).out, HasSubstr(secret)) << name;
    }
    EXPECT_THAT(run({"--show-secrets", "explain", "bss0.wepKey.1"}).out, HasSubstr(kStoredWep));
}

} // namespace
