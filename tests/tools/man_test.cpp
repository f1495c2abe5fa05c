// The manual: clean, complete, and with examples that work.
#include "catalogue.hpp"
#include "command.hpp"
#include "exit_status.hpp"
#include "request.hpp"
#include "show.hpp"
#include "tools/simulated.hpp"

#include <gmock/gmock.h>

#include <cstdio>
#include <fstream>
#include <sstream>

using namespace oru::test;
using namespace oructl;
using orusim::test::runToEnd;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

const std::vector<std::string> kPages = {"man1/oructl.1", "man1/orusim.1", "man3/oruAsf.3",
                                         "man3/oruSdk.3", "man7/oructl-items.7"};

std::string output(const std::string &command)
{
    std::string text;
    FILE *const pipe = ::popen((command + " 2>&1").c_str(), "r");
    for (int c = 0; (c = std::fgetc(pipe)) != EOF;) text += static_cast<char>(c);
    text += ::pclose(pipe) == 0 ? "" : "\nexit: failed\n";
    return text;
}

std::string sourceOf(const std::string &page)
{
    std::ifstream file(MAN_FOLDER "/" + page);
    EXPECT_TRUE(file) << page << " is missing";
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::vector<std::string> linesOf(const std::string &text)
{
    std::vector<std::string> lines;
    std::istringstream stream{text};
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

void expectIn(const std::string &page, const std::string &text)
{
    EXPECT_NE(page.find(text), page.npos) << text;
}

/// How a tag of a page is written.
std::string tag(std::string_view words)
{
    std::string line = "\n.Sy";
    forEachWord(words, [&](std::string_view word) {
        line += ' ';
        for (const char c : word) line.append(c == '-' && word[0] == '-' ? "\\" : "").append(1, c);
    });
    return line + '\n';
}

/// How the tag of an option begins.
std::string optionTag(std::string_view name)
{
    std::string line = tag(name.starts_with("--") ? name : "--" + std::string{name});
    line.pop_back();
    return line;
}

bool hasMandoc()
{
    return std::system("command -v mandoc >/dev/null") == 0;
}

/// The checker looks for other pages among those of this machine.
bool namesAPageOfOurs(const std::string &line)
{
    const std::string found = ": STYLE: referenced manual not found: Xr ";
    const size_t at = line.find(found);
    if (at == line.npos) return false;
    std::istringstream words{line.substr(at + found.size())};
    std::string name;
    std::string section;
    words >> name >> section;
    return std::find(kPages.begin(), kPages.end(), "man" + section + '/' + name + '.' + section) !=
           kPages.end();
}

TEST(Man, PagesAreCleanForTheChecker)
{
    if (!hasMandoc()) GTEST_SKIP() << "mandoc is not installed";
    for (const std::string &page : kPages)
        for (const std::string &line : linesOf(output("mandoc -T lint " MAN_FOLDER "/" + page)))
            EXPECT_TRUE(namesAPageOfOurs(line) || line.starts_with("exit: ") || line.empty())
                << line;
}

TEST(Man, PagesAreReadable)
{
    if (!hasMandoc()) GTEST_SKIP() << "mandoc is not installed";
    const std::string text = output("mandoc -T ascii " MAN_FOLDER "/man1/oructl.1 | col -b");
    EXPECT_THAT(text, HasSubstr("--timeout SECONDS\n"));
    EXPECT_THAT(text, HasSubstr("oructl set ssid 0 \"Lobby\"\n"));
}

TEST(Man, TheProgramsPageHasEachVerbCommandViewOptionAndStatus)
{
    const std::string page = sourceOf("man1/oructl.1");
    for (const Verb &verb : verbs()) {
        expectIn(page, tag(std::string{verb.name}.append(" ").append(verb.operands)));
        for (const Option &option : verb.options) expectIn(page, optionTag(option.name));
        const std::vector<CommandLine> lines = commandLines(verb);
        for (size_t i = 0; lines.size() > 1 && i < lines.size(); ++i)
            expectIn(page, tag(lines[i].synopsis));
    }
    for (const Option &option : globalOptions()) expectIn(page, optionTag(option.name));
    for (const ExitMeaning &each : exitMeanings()) expectIn(page, tag(std::to_string(each.status)));
}

TEST(Man, TheItemsPageHasEachItem)
{
    const std::string page = sourceOf("man7/oructl-items.7");
    forEachItem([&](const Item &item) { expectIn(page, tag(item.name)); });
}

/// Expects each operation of a library in its page; gives how many there are.
size_t operationsIn(const std::string &page, const std::string &library)
{
    size_t operations = 0;
    for (const std::string &line :
         linesOf(output("nm -D --defined-only --without-symbol-versions " + library))) {
        const size_t at = line.find(" T ");
        if (at == line.npos) continue;
        expectIn(page, tag(line.substr(at + 3)));
        ++operations;
    }
    return operations;
}

TEST(Man, TheLibrarysPageHasEachOperationAndCode)
{
    const std::string page = sourceOf("man3/oruSdk.3");
    EXPECT_GT(operationsIn(page, ORUSDK), 100u);
    expectIn(page, tag("0 ORUSDK_RC_OK"));
    expectIn(page, "\n.Sy 121 ORUSDK_RC_");
}

TEST(Man, TheSupportLibrarysPageHasEachOperation)
{
    EXPECT_GT(operationsIn(sourceOf("man3/oruAsf.3"), ORUASF), 30u);
}

TEST(Man, TheSimulatorsPageHasEachOption)
{
    const std::string page = sourceOf("man1/orusim.1");
    size_t options = 0;
    for (const std::string &line : linesOf(runToEnd({"--help"}).output)) {
        if (!line.starts_with("  --")) continue;
        expectIn(page, optionTag(line.substr(4, line.find(' ', 4) - 4)));
        ++options;
    }
    EXPECT_GT(options, 10u);
}

TEST(Man, AnUnknownPageIsNoOption)
{
    const auto run = output(ORUCTL " --man nothing today");
    EXPECT_THAT(run, HasSubstr("'--man' is no option"));
}

// ---- Examples

class ManExamples : public SimulatedTest {
protected:
    /// The command lines of a page's section EXAMPLES.
    static std::vector<std::string> examplesOf(const std::string &page)
    {
        std::vector<std::string> examples;
        bool within = false;
        bool literal = false;
        for (const std::string &line : linesOf(sourceOf(page))) {
            if (line.starts_with(".Sh ")) within = line == ".Sh EXAMPLES";
            if (line.starts_with(".Ed")) literal = false;
            if (within && literal) {
                std::string command = line;
                for (size_t i = 0; (i = command.find("\\-")) != command.npos;) command.erase(i, 1);
                examples.push_back(command);
            }
            if (line.starts_with(".Bd ")) literal = true;
        }
        return examples;
    }

    /// What a shell prints that finds the tools, and a line "exit: failed" when it fails.
    std::string inShell(const std::string &command) const
    {
        std::string line = "env -i HOME=" + root();
        for (const std::string &variable : environment()) line += " '" + variable + "'";
        write("/example", command + "\n");
        return output(line + " sh -e " + root() + "/example");
    }
};

TEST_F(ManExamples, OfTheProgramWorkOnAnAccessPointFromTheFactory)
{
    standIn("oructl", "exec " ORUCTL " \"$@\"\n");
    startServices();
    const std::vector<std::string> examples = examplesOf("man1/oructl.1");
    EXPECT_GT(examples.size(), 8u);
    for (const std::string &command : examples) {
        EXPECT_THAT(command, HasSubstr("oructl "));
        EXPECT_THAT(inShell(command), Not(HasSubstr("exit: failed"))) << command;
    }
    EXPECT_EQ(value(kWsm, "bss0.ssId"), "\"Lobby\"");
}

TEST_F(ManExamples, OfTheSimulatorWork)
{
    standIn("orusim", "exec " ORUSIM " --factory " ORU_SOURCE_DIR "/share \"$@\"\n");
    std::string script;
    for (std::string command : examplesOf("man1/orusim.1")) {
        if (const size_t at = command.find("/tmp/ap"); at != command.npos)
            command.replace(at, 7, root() + "/ap");
        const bool background = command.ends_with('&');
        if (background) command.insert(command.size() - 1, " >" + root() + "/ready ");
        script += command + '\n';
        if (background) script += "until grep -q ready " + root() + "/ready; do :; done\n";
    }
    EXPECT_THAT(script, HasSubstr("station add"));
    EXPECT_THAT(inShell("mkdir " + root() + "/ap\n" + script + "wait"),
                Not(HasSubstr("exit: failed")));
}

} // namespace
