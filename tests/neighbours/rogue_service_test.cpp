// A listener of another user in a service's place: it gets no byte of a request, and an operation
// ends as it does without a service.
#include "asf/child.hpp"
#include "neighbours/operations.hpp"
#include "oruAsf.h"
#include "support/tempdir.hpp"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

using namespace oru::test;
using std::string;

namespace {

constexpr uint32_t kPatienceMs = 30000; // before a test gives up

/// Services that say a good reply before they are asked, and count what they are told.
class Listeners {
public:
    Listeners(const TempDir &box, uid_t user, const Bytes &reply)
    {
        EXPECT_EQ(::chown(box.at("/run/oru").c_str(), user, user), 0);
        EXPECT_EQ(::pipe2(told_, O_CLOEXEC), 0);
        child_ = startChild([&] {
            if (user != 0 && !becomePlainUser(user)) return 1;
            std::array<OruAsfListener *, 2> listeners{};
            for (size_t i = 0; i < listeners.size(); ++i) {
                listeners[i] = oruAsfIpcListen(kServicePorts[i], 1001);
                if (listeners[i] == nullptr) return 2;
                const string path = box.at("/run/oru/" + std::to_string(kServicePorts[i]));
                ::chmod((path + ".1001").c_str(), 0777); // it is the client that refuses
            }
            tell(0); // ready
            for (;;)
                for (OruAsfListener *listener : listeners)
                    if (OruAsfIpc *caller = oruAsfIpcAccept(listener, 1); caller != nullptr)
                        tell(listenTo(caller, reply));
        });
        EXPECT_EQ(told(), 0u);
    }
    ~Listeners()
    {
        ::kill(child_, SIGKILL);
        EXPECT_EQ(waitForChild(child_), 1000 + SIGKILL);
        ::close(told_[0]);
        ::close(told_[1]);
    }
    Listeners(const Listeners &) = delete;
    Listeners &operator=(const Listeners &) = delete;

    /// The bytes that the next caller said before it hung up.
    [[nodiscard]] uint32_t told() const
    {
        uint32_t bytes = 0;
        EXPECT_EQ(::read(told_[0], &bytes, sizeof bytes), static_cast<ssize_t>(sizeof bytes));
        return bytes;
    }

private:
    void tell(uint32_t bytes) const
    {
        if (::write(told_[1], &bytes, sizeof bytes) < 0) ::_exit(3);
    }

    static uint32_t listenTo(OruAsfIpc *caller, const Bytes &reply)
    {
        uint32_t bytes = 0;
        char buffer[4096];
        oruAsfIpcSend(caller, reply.data(), static_cast<uint32_t>(reply.size()));
        while (oruAsfIpcCheck(caller, kPatienceMs) == 1) {
            const int32_t got = oruAsfIpcRecv(caller, buffer, sizeof buffer);
            if (got <= 0) break;
            bytes += static_cast<uint32_t>(got);
        }
        oruAsfIpcClose(caller);
        return bytes;
    }

    int told_[2];
    pid_t child_;
};

class RogueService : public ::testing::Test {
protected:
    RogueService()
    {
        for (const char *folder : {"/run/oru", "/var"})
            std::filesystem::create_directories(box_.at(folder));
        const string share = ORU_SOURCE_DIR "/share";
        std::filesystem::copy(share + "/wsmDefaults.orig", box_.at("/var/wsmDefaults"));
        std::filesystem::copy(share + "/1x.conf.orig", box_.at("/var/1x.conf"));
        std::ofstream{box_.at("/var/1x.conf"), std::ios::app} << kReadersKey << "=1\n";
        ::setenv("ORU_LOG", ("file:" + box_.at("/log")).c_str(), 1);
    }

    void SetUp() override
    {
        if (::geteuid() != 0) GTEST_SKIP() << "needs services of other users";
    }

    struct Outcome {
        uint32_t code;
        string log; // without the times
        bool operator==(const Outcome &other) const
        {
            return code == other.code && log == other.log;
        }
    };

    /// What an operation comes to.
    [[nodiscard]] Outcome outcomeOf(const Talker &talker) const
    {
        box_.write("/log", "");
        const uint32_t code = talker.call();
        string log = box_.read("/log");
        string texts;
        for (size_t at = 0; at < log.size(); at = log.find('\n', at) + 1) {
            const string line = log.substr(at, log.find('\n', at) - at);
            texts += line.substr(line.find("oruSdkAppsIf")) + '\n';
        }
        return {code, texts};
    }

    TempDir box_;
};

} // namespace

TEST_F(RogueService, GetsNoByteAndIsAsGoodAsNone)
{
    size_t callers = 0;
    for (const Talker &talker : talkers()) {
        SCOPED_TRACE(talker.name);
        const Outcome alone = outcomeOf(talker);
        EXPECT_NE(alone.log, "");
        const Listeners rogue{box_, kPlainUser, talker.good.empty() ? Bytes{0} : talker.good};
        EXPECT_EQ(outcomeOf(talker), alone);
        for (int i = 0; i < talker.connections; ++i, ++callers) EXPECT_EQ(rogue.told(), 0u);
    }
    std::printf("torture: operations beside a rogue service: %zu connections, 0 bytes told\n",
                callers);
}

TEST_F(RogueService, IsToldApartFromOneOfRoot)
{
    for (const Talker &talker : talkers()) {
        SCOPED_TRACE(talker.name);
        const Listeners service{box_, 0, talker.good.empty() ? Bytes{0} : talker.good};
        EXPECT_EQ(outcomeOf(talker).code, 0u);
        for (int i = 0; i < talker.connections; ++i) EXPECT_GE(service.told(), 4u);
    }
}
