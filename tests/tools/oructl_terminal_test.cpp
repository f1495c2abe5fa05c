// What oructl does with a terminal: the live view, and the prompt for a secret.
#include "display.hpp"
#include "tools/oructl_run.hpp"
#include "tools/wsm_service.hpp"

#include <gmock/gmock.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

using namespace oru::test;
using testing::HasSubstr;
using testing::Not;

namespace {

constexpr const char *kHide = "\x1b[?25l";
constexpr const char *kShow = "\x1b[?25h";
constexpr const char *kError = "\x1b[1;31moructl:\x1b[0m";

/// oructl with a terminal of 40 columns and 6 lines.
class Session {
public:
    Session(const std::vector<std::string> &environment, const Arguments &arguments)
    {
        std::vector<const char *> words = {"oructl"};
        for (const std::string &argument : arguments) words.push_back(argument.c_str());
        words.push_back(nullptr);
        std::vector<const char *> variables;
        for (const std::string &variable : environment) variables.push_back(variable.c_str());
        variables.push_back(nullptr);
        winsize size = {6, 40, 0, 0};
        child_ = ::forkpty(&terminal_, nullptr, nullptr, &size);
        if (child_ == 0) {
            ::execve(ORUCTL, const_cast<char *const *>(words.data()),
                     const_cast<char *const *>(variables.data()));
            ::_exit(127);
        }
    }
    ~Session()
    {
        if (child_ > 0) {
            ::kill(child_, SIGKILL);
            ::waitpid(child_, nullptr, 0);
        }
        ::close(terminal_);
    }
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;

    /// Reads until a text has come `times` times, at most 20 seconds.
    bool waitFor(const std::string &text, size_t times = 1)
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds{20};
        while (std::chrono::steady_clock::now() < end) {
            size_t count = 0;
            for (size_t at = 0; (at = shown_.find(text, at)) != shown_.npos; ++at) ++count;
            if (count >= times) return true;
            if (!readSome()) return false;
        }
        return false;
    }

    void type(const std::string &text) const
    {
        EXPECT_EQ(::write(terminal_, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }

    void signal(int number) const { ::kill(child_, number); }

    /// What the process ends with, as a shell sees it. Reads the rest of what it shows.
    int end()
    {
        while (readSome()) {}
        int status = 0;
        ::waitpid(child_, &status, 0);
        child_ = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }

    /// Stops, and waits until it has.
    void stop()
    {
        ::kill(child_, SIGTSTP);
        int status = 0;
        ASSERT_EQ(::waitpid(child_, &status, WUNTRACED), child_);
        ASSERT_TRUE(WIFSTOPPED(status));
    }

    [[nodiscard]] bool echoes() const
    {
        termios settings = {};
        ::tcgetattr(terminal_, &settings);
        return (settings.c_lflag & ECHO) != 0;
    }

    [[nodiscard]] const std::string &shown() const { return shown_; }

private:
    bool readSome()
    {
        pollfd ready = {terminal_, POLLIN, 0};
        if (::poll(&ready, 1, 20000) != 1) return false;
        char bytes[4096];
        const ssize_t got = ::read(terminal_, bytes, sizeof bytes);
        if (got > 0) shown_.append(bytes, static_cast<size_t>(got));
        return got > 0;
    }

    pid_t child_ = -1;
    int terminal_ = -1;
    std::string shown_;
};

class Terminal : public OructlTest {
protected:
    Terminal() : wsm(root())
    {
        wsm.answer(258, {reply({number16(1, 7), mac(7, {2, 0, 0, 0, 0, 1})})});
        wsm.answer(280, {reply({}, 281, 0)});
    }

    const Arguments kWatchStations = {"show", "stations", "0", "0", "--watch", "1"};
    WsmService wsm;
};

TEST_F(Terminal, WatchDrawsInPlaceAndShowsTheCursorAgainWhenInterrupted)
{
    Session session{environment(), kWatchStations};
    ASSERT_TRUE(session.waitFor("02:00:00:00:00:01\x1b[K\r\n", 2)) << session.shown();
    session.type("\x03");
    EXPECT_EQ(session.end(), 130);
    EXPECT_THAT(session.shown(), testing::StartsWith(kHide));
    EXPECT_THAT(session.shown(), HasSubstr("\x1b[J\x1b[2A\rid"));
    EXPECT_THAT(session.shown(), testing::EndsWith(kShow));
    EXPECT_THAT(session.shown(), Not(HasSubstr("\x1b[?1049")));
}

TEST_F(Terminal, EverySignalThatEndsAWatchShowsTheCursor)
{
    for (const int number : {SIGTERM, SIGHUP, SIGQUIT}) {
        Session session{environment(), kWatchStations};
        ASSERT_TRUE(session.waitFor("\x1b[J"));
        session.signal(number);
        EXPECT_EQ(session.end(), 128 + number);
        EXPECT_THAT(session.shown(), testing::EndsWith(kShow)) << number;
    }
}

TEST_F(Terminal, AnInterruptEndsAWatchThatWaitsForTheService)
{
    wsm.answer(258, {reply({number16(1, 7)}), {}});
    wsm.answer(260, {});
    Session session{environment(), {"show", "scan", "--watch"}};
    ASSERT_TRUE(session.waitFor(kHide));
    while (wsm.requests().empty()) ::usleep(1000);
    session.type("\x03");
    EXPECT_EQ(session.end(), 130);
    EXPECT_THAT(session.shown(), testing::EndsWith(kShow));
}

TEST_F(Terminal, AStoppedWatchShowsTheCursorAndHidesItWhenItGoesOn)
{
    Session session{environment(), kWatchStations};
    ASSERT_TRUE(session.waitFor("\x1b[J"));
    session.stop();
    ASSERT_TRUE(session.waitFor(kShow));
    session.signal(SIGCONT);
    ASSERT_TRUE(session.waitFor(kHide, 2));
    ASSERT_TRUE(session.waitFor("\x1b[J", 2));
    session.signal(SIGTERM);
    EXPECT_EQ(session.end(), 143);
}

TEST_F(Terminal, WatchCutsWhatDoesNotFit)
{
    std::vector<Bytes> stations;
    for (uint16_t id = 0; id < 30; ++id) stations.push_back(number16(1, id));
    wsm.answer(258, {reply(stations)});
    Session session{environment(), kWatchStations};
    ASSERT_TRUE(session.waitFor("\x1b[J\x1b[5A\r")) << session.shown();
    session.signal(SIGTERM);
    session.end();
    EXPECT_THAT(session.shown(), Not(HasSubstr("4   -")));

    wsm.answer(260, {reply({mac(7, {2, 0, 0, 0, 0, 1}), text(5, std::string(32, 'x'))})});
    Session wide{environment(), {"show", "scan", "--watch"}};
    ASSERT_TRUE(wide.waitFor("\x1b[J"));
    EXPECT_THAT(wide.shown(), HasSubstr("01  \"" + std::string(20, 'x') + "\x1b[K"));
}

TEST_F(Terminal, AFailureEndsAWatchAndShowsTheCursorFirst)
{
    wsm.answer(258, {reply({number16(1, 7)}), reply({number16(99, 1)})});
    Session session{environment(), kWatchStations};
    EXPECT_EQ(session.end(), 1);
    EXPECT_THAT(session.shown(),
                HasSubstr(std::string(kShow) + kError + " show stations 0 0: failed"));
}

TEST_F(Terminal, WatchInAPipePrintsOneTableAnInterval)
{
    const std::string row = "7   02:00:00:00:00:01\n";
    wsm.answer(258, {reply({number16(1, 7), mac(7, {2, 0, 0, 0, 0, 1})}), reply({}),
                     reply({number16(99, 1)})});
    const Transcript text = run(kWatchStations);
    EXPECT_EQ(text.exit, 1);
    EXPECT_EQ(text.out, "id  mac\n" + row + "\nno stations\n");
    EXPECT_THAT(text.err, HasSubstr("(code 48)"));

    wsm.answer(258, {reply({}), reply({number16(99, 1)})});
    const Transcript lines = run({"--json", "show", "stations", "0", "0", "--watch", "1"});
    EXPECT_EQ(lines.exit, 1);
    EXPECT_THAT(lines.out, testing::MatchesRegex("\\{[^\n]*\"rows\":\\[\\]\\}\n"
                                                 "\\{[^\n]*\"error\":[^\n]*\\}\n"));
    EXPECT_EQ(run(kWatchStations, Stdout::Full).exit, 1);
}

TEST_F(Terminal, ASecretIsAskedForWithoutEcho)
{
    Session session{environment(), {"wps", "set-pin", "0", "1"}};
    ASSERT_TRUE(session.waitFor("PIN: "));
    EXPECT_FALSE(session.echoes());
    session.type("12345670\n");
    EXPECT_EQ(session.end(), 0);
    EXPECT_EQ(session.shown(), "PIN: \r\n");
    EXPECT_EQ(value(kWsm, "bss1.appinpasswd"), "\"12345670\"");
}

TEST_F(Terminal, AnInterruptedPromptBringsTheEchoBackAndStoresNothing)
{
    Session session{environment(), {"wps", "set-pin", "0", "1"}};
    ASSERT_TRUE(session.waitFor("PIN: "));
    session.type("1234\x03");
    EXPECT_EQ(session.end(), 2);
    EXPECT_TRUE(session.echoes());
    EXPECT_EQ(value(kWsm, "bss1.appinpasswd"), std::nullopt);
}

// ---- Colours

TEST_F(Terminal, ErrorsAreColouredOnATerminalThatCan)
{
    const Arguments wrong = {"get", "no-such-item"};
    const auto shownWith = [&](const std::vector<std::string> &more, const Arguments &arguments) {
        std::vector<std::string> variables = environment();
        std::erase_if(variables, [](const std::string &each) { return each.starts_with("TERM="); });
        variables.insert(variables.end(), more.begin(), more.end());
        Session session{variables, arguments};
        EXPECT_EQ(session.end(), 2);
        return session.shown();
    };
    const auto colored = testing::StartsWith(kError);
    const auto plain = testing::AllOf(testing::StartsWith("oructl: "), Not(HasSubstr("\x1b")));
    EXPECT_THAT(shownWith({"TERM=xterm"}, wrong), colored);
    EXPECT_THAT(shownWith({"TERM=xterm", "NO_COLOR="}, wrong), colored);
    EXPECT_THAT(shownWith({"TERM=xterm", "NO_COLOR=1"}, wrong), plain);
    EXPECT_THAT(shownWith({"TERM=dumb"}, wrong), plain);
    EXPECT_THAT(shownWith({}, wrong), plain);
    EXPECT_THAT(shownWith({"TERM=xterm"}, {"--color", "never", "get", "no-such-item"}), plain);
    EXPECT_THAT(shownWith({"TERM=dumb", "NO_COLOR=1"}, {"get", "--color", "always", "x"}), colored);
}

TEST_F(Terminal, APipeIsColouredOnlyWhenAskedFor)
{
    EXPECT_THAT(run({"get", "no-such-item"}).err, Not(HasSubstr("\x1b")));
    EXPECT_THAT(run({"--color=always", "get", "no-such-item"}).err, testing::StartsWith(kError));
    EXPECT_THAT(run({"--color=always", "--json", "get", "no-such-item"}).out,
                Not(HasSubstr("\x1b")));
}

// ---- Texts

TEST(Display, WideLettersTakeTwoColumns)
{
    EXPECT_EQ(oructl::displayWidth("a\xc3\xa9\xe6\x97\xa5"), 4u);
    EXPECT_EQ(oructl::cutToWidth("a\xe6\x97\xa5z", 2), "a");
    EXPECT_EQ(oructl::cutToWidth("a\xe6\x97\xa5z", 3), "a\xe6\x97\xa5");
    EXPECT_EQ(oructl::cutToWidth("abc", 10), "abc");
}

TEST(Display, CombiningReversingAndPrivateLettersAreEscaped)
{
    for (const char *hidden : {"\xcc\x81", "\xe2\x80\xae", "\xe2\x80\x8b", "\xee\x80\x80",
                               "\xc2\x85", "\xc2\xad", "\xef\xbb\xbf", "\xf0\x9f\x98\x80"})
        EXPECT_THAT(oructl::quotedText(hidden, oructl::Charset::Utf8), testing::StartsWith("\"\\x"))
            << hidden;
}

TEST(Display, TheLocaleSaysWhatTheTerminalShows)
{
    const auto charset = [](const char *all, const char *ctype, const char *lang) {
        ::setenv("LC_ALL", all, 1);
        ::setenv("LC_CTYPE", ctype, 1);
        ::setenv("LANG", lang, 1);
        return oructl::charsetOfEnvironment();
    };
    EXPECT_EQ(charset("", "", ""), oructl::Charset::Ascii);
    EXPECT_EQ(charset("", "", "de_DE.UTF-8"), oructl::Charset::Utf8);
    EXPECT_EQ(charset("", "en_US.utf8", "C"), oructl::Charset::Utf8);
    EXPECT_EQ(charset("C", "en_US.UTF-8", "en_US.UTF-8"), oructl::Charset::Ascii);
    EXPECT_EQ(charset("", "", "de_DE.ISO-8859-1"), oructl::Charset::Ascii);
}

TEST_F(Terminal, AResetIsAskedForAtATerminal)
{
    ASSERT_EQ(run({"set", "mimo", "0", "off"}).exit, 0);
    {
        Session refused{environment(), {"reset", "all"}};
        ASSERT_TRUE(refused.waitFor("Store factory values for everything? [y/N] "));
        refused.type("\n");
        EXPECT_EQ(refused.end(), 1);
        EXPECT_THAT(refused.shown(), HasSubstr("not done"));
    }
    EXPECT_NE(read(kWsm), read(kWsmFactory));
    Session allowed{environment(), {"reset", "all"}};
    ASSERT_TRUE(allowed.waitFor("[y/N] "));
    allowed.type("yes\n");
    EXPECT_EQ(allowed.end(), 0);
    EXPECT_EQ(read(kWsm), read(kWsmFactory));
}

TEST_F(Terminal, YesAndDryRunAskNothing)
{
    for (const char *option : {"--yes", "--dry-run"}) {
        Session session{environment(), {option, "reset", "bss", "1"}};
        EXPECT_EQ(session.end(), 0) << option;
        EXPECT_THAT(session.shown(), Not(HasSubstr("[y/N]"))) << option;
    }
}

} // namespace
