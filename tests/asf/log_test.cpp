// Log lines. That a set-uid process ignores the environment is secure_getenv()'s; no test can be
// one.
#include "asf/child.hpp"
#include "oruAsf.h"
#include "support/tempdir.hpp"

#include <gtest/gtest.h>

#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <string>
#include <sys/stat.h>

using namespace oru::test;
using std::string;

namespace {

class Log : public ::testing::Test {
protected:
    ~Log() override
    {
        ::unsetenv("ORU_LOG");
        ::unsetenv("ORU_LOG_LEVEL");
    }

    /// What body() writes to the log file.
    template <class Body>
    string fileOf(Body body)
    {
        box.write("/log", "");
        ::setenv("ORU_LOG", ("file:" + box.at("/log")).c_str(), 1);
        body();
        return box.read("/log");
    }

    /// What body() writes to the standard streams with ORU_LOG as it is given.
    template <class Body>
    std::pair<string, string> streamsOf(const char *destination, Body body)
    {
        const int status = inChild([&] {
            for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) {
                const string path = box.at(stream == STDOUT_FILENO ? "/out" : "/error");
                const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
                if (::dup2(file, stream) != stream) return 1;
            }
            if (destination == nullptr) ::unsetenv("ORU_LOG");
            else ::setenv("ORU_LOG", destination, 1);
            body();
            return 0;
        });
        EXPECT_EQ(status, 0);
        return {box.read("/out"), box.read("/error")};
    }

    TempDir box;
};

void logOne()
{
    oruAsfLogMsg(3, "source", 42, 0, "number %d", 7);
}

} // namespace

TEST_F(Log, GoesToAFile)
{
    EXPECT_EQ(fileOf(logOne), "source:42: error: number 7\n");
    EXPECT_EQ(fileOf([] { logOne(), logOne(); }),
              "source:42: error: number 7\nsource:42: error: number 7\n");
}

TEST_F(Log, MakesItsFileForItsUserAlone)
{
    ::setenv("ORU_LOG", ("file:" + box.at("/new")).c_str(), 1);
    logOne();
    EXPECT_EQ(box.read("/new"), "source:42: error: number 7\n");
    struct stat status {};
    ASSERT_EQ(::stat(box.at("/new").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0600u);
}

TEST_F(Log, ThatCannotBeWrittenIsDropped)
{
    ASSERT_EQ(::mkfifo(box.at("/fifo").c_str(), 0600), 0);
    ASSERT_EQ(::symlink("target", box.at("/link").c_str()), 0);
    for (const char *path : {"/missing/log", "", "/fifo", "/link"}) {
        ::setenv("ORU_LOG", ("file:" + box.at(path)).c_str(), 1);
        logOne();
    }
    ::setenv("ORU_LOG", "file:", 1);
    logOne();
    EXPECT_EQ(box.names(), (std::vector<string>{"fifo", "link"}));
}

TEST_F(Log, GoesToStandardErrorOrNowhereAndNeverToStandardOutput)
{
    const struct {
        const char *destination;
        const char *error;
    } rows[] = {
        {"stderr", "source:42: error: number 7\n"},
        {"none", ""},
        {nullptr, ""},
        {"", ""},
        {"syslog", ""},
        {"stdout", ""},
        {"file:/dev/stdout", ""},
        {"STDERR", ""},
    };
    for (const auto &row : rows) {
        const auto [out, error] = streamsOf(row.destination, logOne);
        EXPECT_EQ(out, "") << row.destination;
        EXPECT_EQ(error, row.error) << row.destination;
    }
}

TEST_F(Log, HoldsNoLevelAboveTheHighestOne)
{
    const struct {
        const char *highest; // nullptr: not set
        int32_t level;
        bool written;
        const char *reason;
    } rows[] = {
        {nullptr, 3, true, "by default"},    {nullptr, 7, true, "by default up to 7"},
        {nullptr, 8, false, "no level"},     {"3", 3, true, "the highest itself"},
        {"3", 4, false, "one above"},        {"0", 0, true, "the lowest"},
        {"0", 1, false, "above the lowest"}, {"7", 7, true, "all"},
        {"6", 6, true, "information"},       {"6", 7, false, "no debugging"},
        {"", 7, true, "empty: the default"}, {"8", 7, true, "no level: the default"},
        {"-1", 7, true, "no level"},         {"33", 7, true, "no level"},
        {"x", 7, true, "no number"},
    };
    for (const auto &row : rows) {
        if (row.highest == nullptr) ::unsetenv("ORU_LOG_LEVEL");
        else ::setenv("ORU_LOG_LEVEL", row.highest, 1);
        const string text = fileOf([&] { oruAsfLogMsg(row.level, "s", 1, 0, "text"); });
        EXPECT_EQ(!text.empty(), row.written) << row.reason;
    }
}

TEST_F(Log, NamesTheLevel)
{
    const struct {
        int32_t level;
        const char *line;
    } rows[] = {{3, "s:1: error: t\n"}, {4, "s:1: warning: t\n"}, {6, "s:1: info: t\n"},
                {0, "s:1: log: t\n"},   {7, "s:1: log: t\n"},     {-1, "s:1: log: t\n"}};
    for (const auto &row : rows)
        EXPECT_EQ(fileOf([&] { oruAsfLogMsg(row.level, "s", 1, 0, "t"); }), row.line);
}

TEST_F(Log, ShowsControlBytesAndDropsLineFeedsAtTheEnd)
{
    const struct {
        const char *text;
        const char *line;
        const char *reason;
    } rows[] = {
        {"", "s:1: error: \n", "empty"},
        {"a\n", "s:1: error: a\n", "a line feed at the end"},
        {"a\n\n\n", "s:1: error: a\n", "more of them"},
        {"\n", "s:1: error: \n", "nothing else"},
        {"a\nb", "s:1: error: a\\x0ab\n", "a line feed inside forges no line"},
        {"\x1b[2J", "s:1: error: \\x1b[2J\n", "an escape sequence"},
        {"\x01\t\r\x1f\x7f", "s:1: error: \\x01\\x09\\x0d\\x1f\\x7f\n", "others"},
        {"\xc3\xa9", "s:1: error: \xc3\xa9\n", "UTF-8"},
        {"100%s", "s:1: error: 100%s\n", "a value is no format"},
    };
    for (const auto &row : rows)
        EXPECT_EQ(fileOf([&] { oruAsfLogMsg(3, "s", 1, 0, "%s", row.text); }), row.line)
            << row.reason;
    EXPECT_EQ(fileOf([] { oruAsfLogMsg(3, "a\nb", -1, 0, "t"); }), "a\\x0ab:-1: error: t\n")
        << "the source too";
}

TEST_F(Log, OfATextThatCannotBeFormattedHoldsItsPlaceAlone)
{
    const wchar_t noCharacter[] = {static_cast<wchar_t>(0x7fffffff), L'\0'};
    EXPECT_EQ(fileOf([&] { oruAsfLogMsg(3, "s", 1, 0, "text %ls", noCharacter); }),
              "s:1: error: \n");
}

TEST_F(Log, CutsWhatIsTooLong)
{
    for (const char byte : {'x', '\x01'})
        for (const size_t size : {8000u, 8191u, 8192u, 100000u}) {
            const string text(size, byte);
            const string line = fileOf([&] { oruAsfLogMsg(3, "s", 1, 0, "%s", text.c_str()); });
            EXPECT_LE(line.size(), 8192u);
            EXPECT_GE(line.size(), 8000u);
            EXPECT_EQ(line.find('\n'), line.size() - 1);
            EXPECT_EQ(line.compare(0, 12, "s:1: error: "), 0);
        }
    const string source(1000, 's');
    EXPECT_EQ(fileOf([&] { oruAsfLogMsg(3, source.c_str(), 1, 0, "t"); }),
              string(32, 's') + ":1: error: t\n");
}

TEST_F(Log, KeepsErrno)
{
    for (const string &destination : {string{"none"}, string{"syslog"}, "file:" + box.at("/log"),
                                      string{"file:/missing/log"}}) {
        ::setenv("ORU_LOG", destination.c_str(), 1);
        errno = 4711;
        logOne();
        EXPECT_EQ(errno, 4711) << destination;
    }
    EXPECT_EQ(fileOf([] {
                  errno = ENOENT;
                  static const char *format = "%m"; // no format of C++, but of ours
                  oruAsfLogMsg(3, "s", 1, 0, format, 0);
              }),
              "s:1: error: No such file or directory\n");
}

TEST_F(Log, KeepsOffTheNumbersOfClosedStandardStreams)
{
    ::setenv("ORU_LOG", ("file:" + box.at("/log")).c_str(), 1);
    EXPECT_EQ(inChild([] {
                  for (const int number : {0, 1, 2}) ::close(number);
                  logOne();
                  for (const int number : {0, 1, 2})
                      if (::fcntl(number, F_GETFD) >= 0) return 1;
                  return 0;
              }),
              0);
    EXPECT_EQ(box.read("/log"), "source:42: error: number 7\n");
}
