// All that is set on a radio, through the real program and the factory file.
#include "catalogue.hpp"
#include "display.hpp"
#include "tools/oructl_run.hpp"

#include <gmock/gmock.h>

#include <set>
#include <sstream>

using namespace oru::test;
using nlohmann::json;
using testing::HasSubstr;
using testing::Not;

namespace {

class ShowRadio : public OructlTest {
protected:
    ShowRadio() { useFactoryRadios(); }

    static std::vector<std::string> linesOf(const std::string &text)
    {
        std::vector<std::string> lines;
        std::istringstream in{text};
        for (std::string line; std::getline(in, line);) lines.push_back(line);
        return lines;
    }
};

TEST_F(ShowRadio, AsJsonHasEveryItemOfARadioAsAGetHasIt)
{
    for (const char *radio : {"0", "1"}) {
        const json object = jsonOf({"--json", "show", "radio", radio}, 0);
        EXPECT_EQ(object["radio"].dump(), radio);
        EXPECT_EQ(object["failed"], json::object());
        std::set<std::string> names;
        oructl::forEachItem([&](const oructl::Item &item) {
            if (item.scope != oructl::Scope::Radio || item.get == nullptr) return;
            const std::string name{item.name};
            SCOPED_TRACE(name);
            names.insert(name);
            EXPECT_EQ(object["items"][name], jsonOf({"--json", "get", name, radio}, 0)["value"]);
        });
        EXPECT_EQ(object["items"].size(), names.size());
    }
}

TEST_F(ShowRadio, FitsAScreenOf100Columns)
{
    for (const char *radio : {"0", "1"}) {
        const Transcript run = this->run({"show", "radio", radio});
        EXPECT_EQ(run.exit, 0);
        EXPECT_EQ(run.err, "");
        const std::vector<std::string> lines = linesOf(run.out);
        EXPECT_LE(lines.size(), 60u);
        for (const std::string &line : lines) {
            EXPECT_LE(oructl::displayWidth(line), 100u) << line;
            EXPECT_FALSE(line.ends_with(' ')) << line;
        }
    }
}

TEST_F(ShowRadio, GroupsSettingsByFamilyWithWordsAndUnits)
{
    set(kWsm, "radio0.fixedRate", "104");
    const std::string shown = run({"show", "radio", "0"}).out;
    const std::vector<std::string> lines = linesOf(shown);
    EXPECT_THAT(lines[0], testing::MatchesRegex("Radio +Rates"));
    EXPECT_THAT(shown, Not(HasSubstr("\nRadio"))) << "one heading for switches and options";
    for (const char *heading : {"\nChannel ", "\nDFS ", " MAC\n", " QoS\n", " WPS\n", " Control\n"})
        EXPECT_THAT(shown, HasSubstr(heading));
    EXPECT_THAT(shown, HasSubstr("  bss-width-trigger-scan-interval*  300 seconds  "));
    EXPECT_THAT(shown, HasSubstr("  rate                MCS 7, 40 MHz, short GI (code 104)\n"));
    EXPECT_THAT(shown, HasSubstr("  channel.secondary  none  "));
    EXPECT_THAT(shown, HasSubstr("  beacon.beacon-period         100 time units\n"));
    EXPECT_THAT(shown, Not(HasSubstr("keep-periodic"))) << "can't be read";
}

TEST_F(ShowRadio, StarsWhatIsOneForBothRadios)
{
    const std::string shown = run({"show", "radio", "0"}).out;
    EXPECT_THAT(shown, HasSubstr("  mimo*  "));
    EXPECT_THAT(shown, HasSubstr("  tx-power  "));
    EXPECT_THAT(shown, Not(HasSubstr("tx-power*")));
    EXPECT_THAT(shown, HasSubstr("\n* one for both radios\n"));
}

TEST_F(ShowRadio, AnItemThatCannotBeReadSaysSoInItsPlace)
{
    set(kWsm, "radio0.txPower", "none");
    set(kWsm, "radio0.dot11Mode", "none");
    const Transcript run = this->run({"show", "radio", "0"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_THAT(run.out, HasSubstr("  tx-power                          - (code 42)  "));
    EXPECT_THAT(run.out, HasSubstr("  dot11-mode          - (code 42)\n"));
    EXPECT_THAT(run.out, HasSubstr("  tx-power-adj                      0 steps"));
    EXPECT_THAT(run.out, testing::EndsWith("\n* one for both radios\ncode 42: Error in reading "
                                           "element from configuration file\n"));
    const json object = jsonOf({"--json", "show", "radio", "0"}, 0);
    EXPECT_EQ(object["items"]["tx-power"], nullptr);
    EXPECT_EQ(object["items"]["tx-power-adj"], 0);
    EXPECT_EQ(
        object["failed"].value("tx-power", json{}),
        (json{{"code", 42}, {"message", "Error in reading element from configuration file"}}));
    EXPECT_FALSE(object["failed"].contains("tx-power-adj"));
}

TEST_F(ShowRadio, TerselyHasALineForEachItem)
{
    set(kWsm, "radio0.txPower", "none");
    const std::string shown = run({"--terse", "show", "radio", "0"}).out;
    EXPECT_THAT(shown, HasSubstr("\nmimo\ton\n"));
    EXPECT_THAT(shown, HasSubstr("\nbasic-rates\t6,12,24\t1,2,5.5,11\t6,12,24\t6,12,24\n"));
    EXPECT_THAT(shown, HasSubstr("\ntx-power\t\n")) << "can't be read";
    EXPECT_THAT(run({"--fields", "mimo", "show", "radio", "0"}).err,
                HasSubstr("no field is called 'mimo'; there is none\n"));
}

TEST_F(ShowRadio, FailsWhenNothingCanBeRead)
{
    EXPECT_EQ(run({"show", "radio", "2"}).err,
              "oructl: show radio 2: refused: Invalid radio ID (code 3); RADIO is 0 to 1\n");
    EXPECT_EQ(run({"show", "radio", "256"}).exit, 2) << "never cut";
    remove(kWsm);
    remove(kAa);
    const Transcript run = this->run({"show", "radio", "0"});
    EXPECT_EQ(run.exit, 7);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "oructl: show radio 0: failed: Error in reading configuration file "
                       "(code 7)\n");
}

} // namespace
