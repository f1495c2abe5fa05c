// Lets each system call and allocation that an operation causes fail in turn.
#include "oruAsf.h"
#include "oruSdk.h"
#include "support/faults.hpp"
#include "support/sweep.hpp"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <sys/socket.h>
#include <unistd.h>

namespace oru::test {
namespace {

namespace fs = std::filesystem;

constexpr const char *kFiles[] = {kWsm, kAa, kRadarList, kWsmFactory, kAaFactory};
constexpr int kErrors[] = {EIO, ENOSPC, EROFS, EACCES, EMFILE, ENOMEM, EINTR};

size_t openDescriptors()
{
    return static_cast<size_t>(std::distance(fs::directory_iterator{"/proc/self/fd"}, {}));
}

/// The services that an operation may call, in this thread: they take a request when the operation
/// waits for the answer.
class Services {
public:
    Services()
    {
        for (const uint32_t number : {5000002u, 5000003u})
            listeners_.push_back(oruAsfIpcListen(number, vers));
    }
    ~Services()
    {
        hangUp();
        for (OruAsfListener *listener : listeners_) oruAsfIpcUnlisten(listener);
        listeners_.clear();
    }
    Services(const Services &) = delete;
    Services &operator=(const Services &) = delete;

    [[nodiscard]] bool ready() const
    {
        return std::find(listeners_.begin(), listeners_.end(), nullptr) == listeners_.end();
    }

    static void answer()
    {
        acceptAll();
        const auto &reply = StandIn::get().answer();
        for (const int caller : callers_)
            if (reply.has_value()) ::send(caller, reply->data(), reply->size(), MSG_NOSIGNAL);
    }
    static void hangUp()
    {
        acceptAll();
        for (const int caller : callers_) ::close(caller);
        callers_.clear();
    }

private:
    static void acceptAll()
    {
        for (OruAsfListener *listener : listeners_)
            for (;;) {
                const int caller =
                    ::accept4(oruAsfIpcListenDescriptor(listener), nullptr, nullptr, SOCK_CLOEXEC);
                if (caller < 0) break;
                callers_.push_back(caller);
            }
    }

    static inline std::vector<OruAsfListener *> listeners_;
    static inline std::vector<int> callers_;
};

/// What an operation may come to: what it does when calls into the support library fail.
struct Outcomes {
    std::set<uint32_t> codes;
    std::set<int> leftOpen;
    std::vector<std::set<std::string>> texts =
        std::vector<std::set<std::string>>(std::size(kFiles));
};

class CallSweep {
public:
    CallSweep(const SweepRow &row, AccessPoint &box) : row_(row), box_(box)
    {
        for (size_t n = 1; n <= row.steps.size() + 1; ++n) {
            prepare();
            note();
            standIn_.failAt(static_cast<int>(n));
            outcomes_.codes.insert(row.operation());
            outcomes_.leftOpen.insert(standIn_.openDicts());
            note();
        }
    }

    /// The calls of a run in which all pass.
    std::vector<std::string> cleanRun()
    {
        EXPECT_EQ(run(Faults::Kind::none, 0, 0), 0u);
        clean_ = box_.everything();
        return calls_;
    }

    void failing(const std::string &call, Faults::Kind kind, size_t n, int error)
    {
        SCOPED_TRACE(row_.name + ": " + call + ", the call " + std::to_string(n) + ", " +
                     (kind == Faults::Kind::cut ? "is cut" : ::strerrorname_np(error)) +
                     (kind == Faults::Kind::failOn ? " from then on" : ""));
        const size_t open = openDescriptors();
        const uint32_t code = run(kind, static_cast<int>(n), error);
        EXPECT_TRUE(Faults::struck());
        EXPECT_EQ(openDescriptors(), open);
        EXPECT_EQ(outcomes_.codes.count(code), 1u) << "code " << code;
        EXPECT_EQ(outcomes_.leftOpen.count(standIn_.openDicts()), 1u);
        EXPECT_EQ(standIn_.openElements(), 0);
        EXPECT_EQ(standIn_.openSockets(), 0);
        if (standIn_.openDicts() == 0) {
            EXPECT_EQ(Faults::blocksLeft(), 0) << "memory";
        }
        for (size_t i = 0; i < std::size(kFiles); ++i)
            EXPECT_EQ(outcomes_.texts[i].count(box_.read(kFiles[i])), 1u) << kFiles[i];
        if (call != "unlinkat") expectNothingBeside();

        EXPECT_EQ(run(Faults::Kind::none, 0, 0), 0u) << "the next call";
        EXPECT_EQ(box_.everything(), clean_) << "the next call";
        removeLeftOvers();
        ++runs_;
    }

    [[nodiscard]] size_t runs() const { return runs_; }

private:
    void prepare()
    {
        box_.restore();
        standIn_.reset();
        if (row_.prepare) row_.prepare(box_, standIn_);
    }

    void note()
    {
        for (size_t i = 0; i < std::size(kFiles); ++i)
            outcomes_.texts[i].insert(box_.read(kFiles[i]));
    }

    uint32_t run(Faults::Kind kind, int n, int error)
    {
        prepare();
        standIn_.sendsMessages = true;
        Faults::armLibraries(kind, n, error, Services::answer);
        const uint32_t code = row_.operation();
        calls_ = Faults::disarm();
        Services::hangUp();
        return code;
    }

    void expectNothingBeside() const
    {
        for (const char *folder : {"/var", "/config"})
            for (const auto &entry : fs::directory_iterator{box_.root() + folder})
                EXPECT_NE(entry.path().filename().string().front(), '.') << entry.path();
    }

    void removeLeftOvers() const
    {
        for (const char *folder : {"/var", "/config"})
            for (const auto &entry : fs::directory_iterator{box_.root() + folder})
                if (entry.path().filename().string().front() == '.') fs::remove(entry.path());
    }

    const SweepRow &row_;
    AccessPoint &box_;
    StandIn &standIn_ = StandIn::get();
    Outcomes outcomes_;
    std::vector<std::string> calls_;
    std::string clean_;
    size_t runs_ = 0;
};

bool isAllocation(const std::string &call)
{
    return call == "malloc" || call == "realloc";
}

} // namespace

TEST_P(FailureSweep, EachSystemCallThatFailsGivesACodeAndWholeFilesAndLeavesNothingOpen)
{
    const bool whole = std::getenv("ORU_TORTURE") != nullptr;
    const Services services;
    ASSERT_TRUE(services.ready());
    CallSweep sweep{GetParam(), box};
    const std::vector<std::string> calls = sweep.cleanRun();
    for (size_t n = 1; n <= calls.size(); ++n) {
        const std::string &call = calls[n - 1];
        if (call == "read" || call == "write") sweep.failing(call, Faults::Kind::cut, n, 0);
        if (isAllocation(call)) {
            sweep.failing(call, Faults::Kind::fail, n, ENOMEM);
            if (whole) sweep.failing(call, Faults::Kind::failOn, n, ENOMEM);
            continue;
        }
        for (size_t i = 0; i < std::size(kErrors); ++i) {
            if (!whole && i != n % std::size(kErrors)) continue;
            sweep.failing(call, Faults::Kind::fail, n, kErrors[i]);
            // Nobody is interrupted for ever.
            if (kErrors[i] != EINTR) sweep.failing(call, Faults::Kind::failOn, n, kErrors[i]);
        }
    }
    std::printf(
        "torture: system calls and allocations that fail: 1 operations, %zu calls, %zu runs\n",
        calls.size(), sweep.runs());
}

} // namespace oru::test
