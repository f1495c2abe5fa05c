// liboruSdk as a guest in another program: what the program did with its descriptors, signals,
// children and locale changes nothing, and the library changes nothing of the program's.
#include "host/host_program.hpp"
#include "host/watch.hpp"
#include "oruAsf.h"

#include <gmock/gmock.h>

#include <csignal>
#include <set>
#include <sys/resource.h>
#include <sys/time.h>

using namespace oru::test;
using testing::IsEmpty;

namespace {

/// By operation: the codes that the header documents.
std::map<string, std::set<int>> documentedCodes()
{
    const string header = readAll(ORU_SOURCE_DIR "/include/oruSdk.h");
    const string mark = "ORUSDK_API ";
    const string code = "@retval ";
    std::map<string, std::set<int>> all;
    for (size_t at = 0; (at = header.find("\n" + mark, at)) != header.npos; ++at) {
        const size_t open = header.find_first_of("(;", at);
        if (header[open] != '(') continue; // a variable
        const size_t name = header.find_last_of(" *", open) + 1;
        std::set<int> &codes = all[header.substr(name, open - name)];
        const size_t comment = header.rfind("/**", at);
        for (size_t one = comment; (one = header.find(code, one)) < at; ++one)
            codes.insert(std::atoi(header.c_str() + one + code.size()));
    }
    return all;
}

void closeStandard(int which)
{
    for (int number = 0; number < 3; ++number)
        if ((which >> number & 1) != 0) ::close(number);
}

volatile sig_atomic_t alarms = 0;

/// A timer that interrupts system calls; they are not started again.
void interruptOften()
{
    struct sigaction action {};
    action.sa_handler = [](int) { alarms = alarms + 1; };
    ::sigaction(SIGALRM, &action, nullptr);
    const itimerval often{{0, 100}, {0, 100}};
    ::setitimer(ITIMER_REAL, &often, nullptr);
}

/// What of a process belongs to its program.
string belongings()
{
    string all = fs::current_path().string() + "\n" + std::setlocale(LC_ALL, nullptr) + "\n";
    const mode_t mask = ::umask(0);
    ::umask(mask);
    all += std::to_string(mask) + "\n";
    for (int number = 1; number < NSIG; ++number) {
        struct sigaction action {};
        if (::sigaction(number, nullptr, &action) == 0)
            all += std::to_string(reinterpret_cast<uintptr_t>(action.sa_handler)) + " ";
    }
    sigset_t blocked;
    ::sigprocmask(SIG_BLOCK, nullptr, &blocked);
    for (int number = 1; number < NSIG; ++number)
        all += ::sigismember(&blocked, number) == 1 ? '1' : '0';
    for (char **at = environ; *at != nullptr; ++at) all += string{"\n"} + *at;
    for (const auto &entry : fs::directory_iterator{"/proc/self/fd"})
        all += "\n" + entry.path().filename().string();
    return all;
}

} // namespace

TEST_F(HostProgram, EveryOperationOfTheHeaderIsInTheTable)
{
    std::set<string> declared;
    for (const auto &[name, codes] : documentedCodes()) declared.insert(name);
    std::set<string> listed;
    for (const Operation &operation : operations()) listed.insert(operation.name);
    EXPECT_EQ(listed, declared);
    EXPECT_GT(declared.size(), 150U);
}

TEST_F(HostProgram, MostRowsOfTheTableGoAllTheWay)
{
    std::set<string> refused;
    std::set<string> writers;
    for (const Operation &operation : operations()) {
        const Outcome outcome = run(operation);
        if (outcome.code != 0) refused.insert(operation.name + " " + std::to_string(outcome.code));
        if (outcome.files != fresh) writers.insert(operation.name);
    }
    EXPECT_LT(refused.size(), 30U) << testing::PrintToString(refused);
    EXPECT_GT(writers.size(), 60U) << testing::PrintToString(writers);
}

TEST_F(HostProgram, TortureMayHaveClosedItsStandardStreams)
{
    for (const int which : whole() ? std::vector<int>{1, 2, 3, 4, 5, 6, 7} : std::vector<int>{7}) {
        const string what = "descriptors closed " + std::to_string(which);
        expectTheSame([which] { closeStandard(which); }, what.c_str());
    }
}

TEST_F(HostProgram, TortureMayBeInterruptedAllTheTime)
{
    const int rounds = whole() ? 20 : 1;
    for (int round = 0; round < rounds; ++round) expectTheSame(interruptOften, "a timer of 100 us");
}

TEST_F(HostProgram, MayRunInAnyState)
{
    // Belongings are looked at before and after in the same process.
    size_t operationsSeen = 0;
    for (const Operation &operation : operations()) {
        restore();
        EXPECT_EQ(inChild([&] {
                      const string before = belongings();
                      operation.call();
                      return before == belongings() ? 0 : 1;
                  }),
                  0)
            << operation.name << " leaves its program changed";
        ++operationsSeen;
    }
    EXPECT_GT(operationsSeen, 150U);
}

TEST_F(HostProgram, TortureIsWatchedAtEachSystemCall)
{
    size_t calls = 0;
    for (const int which : {0, 7})
        for (const Operation &operation : sampled()) {
            restore();
            const Watched seen =
                watch([which] { closeStandard(which); },
                      [&] { return static_cast<int>(operation.call()); }, runsShell(operation));
            if (seen.code < 0) GTEST_SKIP() << "nobody may watch a process here";
            EXPECT_LT(seen.code, 1000) << operation.name;
            EXPECT_THAT(seen.wrong, IsEmpty()) << operation.name << ", closed: " << which;
            calls += seen.calls;
        }
    std::printf("torture: host programs, watched: %zu operations, %zu system calls\n",
                2 * sampled().size(), calls);
    EXPECT_GT(calls, 1000U);
}

TEST_F(HostProgram, TortureOutOfDescriptorsGivesADocumentedCodeAndWholeFiles)
{
    const auto documented = documentedCodes();
    size_t runs = 0;
    size_t refused = 0;
    for (const Operation &operation : sampled()) {
        const Outcome plain = run(operation);
        for (rlim_t left = 0; left <= (whole() ? 6 : 2); ++left) {
            SCOPED_TRACE(operation.name + " with " + std::to_string(left) + " descriptors left");
            const Outcome outcome = run(operation, [left] {
                ::closefrom(3);
                const rlimit limit{3 + left, 3 + left};
                ::setrlimit(RLIMIT_NOFILE, &limit);
            });
            const std::set<int> &codes = documented.at(operation.name);
            EXPECT_TRUE(outcome.code == plain.code || codes.count(outcome.code) == 1)
                << "code " << outcome.code;
            for (const auto &[path, text] : outcome.files)
                EXPECT_TRUE(text == fresh.at(path) || text == plain.files.at(path)) << path;
            if (outcome.code != plain.code) ++refused;
            ++runs;
        }
    }
    EXPECT_GT(refused, sampled().size());
    std::printf("torture: host programs, out of descriptors: %zu runs, %zu refusals\n", runs,
                refused);
}

namespace {

/// A service that takes callers and hangs up on them, in a process of its own.
class RudeService {
public:
    RudeService(uint32_t number, bool reads)
    {
        int ends[2];
        if (::pipe2(ends, O_CLOEXEC) != 0) std::abort();
        child_ = startChild([&] {
            OruAsfListener *listener = oruAsfIpcListen(number, vers);
            const char ready = listener == nullptr ? 'n' : 'y';
            if (::write(ends[1], &ready, 1) != 1 || listener == nullptr) return 1;
            for (;;) {
                OruAsfIpc *caller = oruAsfIpcAccept(listener, 60000);
                char bytes[64];
                if (reads && caller != nullptr && oruAsfIpcCheck(caller, 1000) > 0)
                    oruAsfIpcRecv(caller, bytes, sizeof bytes);
                oruAsfIpcClose(caller);
            }
        });
        char ready = 'n';
        ready_ = ::read(ends[0], &ready, 1) == 1 && ready == 'y';
        for (const int end : ends) ::close(end);
    }
    ~RudeService()
    {
        ::kill(child_, SIGKILL);
        waitForChild(child_);
    }
    RudeService(const RudeService &) = delete;
    RudeService &operator=(const RudeService &) = delete;

    [[nodiscard]] bool ready() const { return ready_; }

private:
    pid_t child_;
    bool ready_ = false;
};

} // namespace

TEST_F(HostProgram, SurvivesServicesThatHangUp)
{
    services.reset();
    const auto documented = documentedCodes();
    size_t runs = 0;
    for (const bool reads : {false, true}) {
        const RudeService wsm{port, reads};
        const RudeService aa{authPort, reads};
        ASSERT_TRUE(wsm.ready() && aa.ready());
        for (const Operation &operation : sampled()) {
            const std::set<int> &codes = documented.at(operation.name);
            if (codes.empty()) continue;
            const Outcome outcome = run(operation, [] { ::signal(SIGPIPE, SIG_DFL); });
            EXPECT_EQ(codes.count(outcome.code), 1U) << operation.name << ": " << outcome.code;
            ++runs;
        }
    }
    std::printf("torture: host programs, services that hang up: %zu runs\n", runs);
}

namespace {

struct Reaper {
    const char *what;
    void (*prepare)();
};

constexpr Reaper kReapers[] = {
    {"ignores its children", [] { ::signal(SIGCHLD, SIG_IGN); }},
    {"wants no children to wait for",
     [] {
         struct sigaction action {};
         action.sa_handler = [](int) {};
         action.sa_flags = SA_NOCLDWAIT;
         ::sigaction(SIGCHLD, &action, nullptr);
     }},
    {"takes every child",
     [] {
         struct sigaction action {};
         action.sa_handler = [](int) {
             while (::waitpid(-1, nullptr, WNOHANG) > 0) continue;
         };
         ::sigaction(SIGCHLD, &action, nullptr);
     }},
    {"blocks everything",
     [] {
         sigset_t all;
         ::sigfillset(&all);
         ::sigprocmask(SIG_BLOCK, &all, nullptr);
     }},
};

} // namespace

TEST_F(HostProgram, IsResetWhateverItDoesWithItsChildren)
{
    for (const Reaper &reaper : kReapers) {
        restore();
        for (const char *path : {kFiles[0], kFiles[1]}) box.write(path, "changed=1\n");
        EXPECT_EQ(inChild([&] {
                      reaper.prepare();
                      return static_cast<int>(oruSdkResetToDefaults());
                  }),
                  0)
            << "a program that " << reaper.what;
        EXPECT_EQ(outcomeOf(0).files, fresh) << "a program that " << reaper.what;
    }
}

TEST_F(HostProgram, LearnsOfAFailedResetWhateverItDoesWithItsChildren)
{
    for (const Reaper &reaper : kReapers) {
        restore();
        box.write(kFiles[0], "changed=1\n");
        fs::remove(box.at(kFiles[2]));
        EXPECT_EQ(inChild([&] {
                      reaper.prepare();
                      closeStandard(4); // what cp says of it
                      return static_cast<int>(oruSdkResetToDefaults());
                  }),
                  58)
            << "a program that " << reaper.what;
        EXPECT_EQ(box.read(kFiles[0]), "changed=1\n");
    }
}
