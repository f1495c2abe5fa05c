// The main program of a cross build's tests. CTest runs each case in a process of its own, in which
// the libraries are as they are loaded; an emulator takes longer to start than most cases to run.
// So here it starts once: all cases run in one child, and those that did not pass in such company
// again, each in a child of its own. That counts.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <set>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Names = std::set<std::string>;

constexpr int kSkipped = 77;

std::string nameOf(const ::testing::TestInfo &info)
{
    return std::string(info.test_suite_name()) + "." + info.name();
}

Names allCases()
{
    Names names;
    const auto &all = *::testing::UnitTest::GetInstance();
    for (int n = 0; n < all.total_test_suite_count(); ++n)
        for (int m = 0; m < all.GetTestSuite(n)->total_test_count(); ++m)
            names.insert(nameOf(*all.GetTestSuite(n)->GetTestInfo(m)));
    return names;
}

/// Writes the name of each case that passes.
class PassedTo : public ::testing::EmptyTestEventListener {
public:
    explicit PassedTo(int file) : file_(file) {}
    void OnTestEnd(const ::testing::TestInfo &info) override
    {
        if (info.result()->Passed()) ::dprintf(file_, "%s\n", nameOf(info).c_str());
    }

private:
    int file_;
};

/// Prints what failed and what was skipped, nothing else.
class Printed : public ::testing::EmptyTestEventListener {
    void OnTestStart(const ::testing::TestInfo &info) override { name_ = nameOf(info); }
    void OnTestPartResult(const ::testing::TestPartResult &result) override
    {
        if (result.skipped()) {
            std::printf("skipped: %s: %s\n", name_.c_str(), result.summary());
        } else if (result.failed()) {
            const char *file = result.file_name() != nullptr ? result.file_name() : "";
            std::printf("%s:%d: %s\n", file, result.line_number(), result.message());
        }
    }

    std::string name_;
};

/// Runs what the filter names, and tells a listener alone.
int run(::testing::TestEventListener *listener)
{
    auto &listeners = ::testing::UnitTest::GetInstance()->listeners();
    delete listeners.Release(listeners.default_result_printer());
    listeners.Append(listener);
    const int failed = RUN_ALL_TESTS();
    const bool skipped = ::testing::UnitTest::GetInstance()->skipped_test_count() > 0;
    return failed == 0 && skipped ? kSkipped : failed;
}

pid_t startChild(const std::function<int()> &body)
{
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child == 0) std::exit(body());
    return child;
}

Names passedTogether()
{
    Names names;
    int pipe[2];
    if (::pipe(pipe) != 0) return names;
    const pid_t child = startChild([&] {
        ::close(pipe[0]);
        return run(new PassedTo(pipe[1]));
    });
    ::close(pipe[1]);
    std::FILE *file = ::fdopen(pipe[0], "r");
    char line[512];
    while (std::fgets(line, sizeof line, file) != nullptr)
        names.insert(std::string(line, std::string(line).find('\n')));
    std::fclose(file);
    ::waitpid(child, nullptr, 0);
    return names;
}

/// The exit status of one case; 1 also when a signal ended it.
int runAlone(const std::string &name)
{
    const pid_t child = startChild([&] {
        GTEST_FLAG_SET(filter, name);
        return run(new Printed);
    });
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child) return 1;
    if (!WIFEXITED(status)) std::printf("ended by signal %d\n", WTERMSIG(status));
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}

} // namespace

int main(int argc, char **argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests) || GTEST_FLAG_GET(filter) != "*") return RUN_ALL_TESTS();

    Names others = allCases();
    size_t passed = 0;
    for (const std::string &name : passedTogether()) passed += others.erase(name);
    size_t skipped = 0;
    for (const std::string &name : others) {
        const int result = runAlone(name);
        passed += result == 0 ? 1 : 0;
        skipped += result == kSkipped ? 1 : 0;
        if (result != 0 && result != kSkipped) std::printf("failed: %s\n", name.c_str());
    }
    const size_t failed = allCases().size() - passed - skipped;
    std::printf("cases: %zu passed, %zu skipped, %zu failed\n", passed, skipped, failed);
    return failed == 0 && passed > 0 ? 0 : 1;
}
