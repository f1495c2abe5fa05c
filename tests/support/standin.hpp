// Operations of liboruAsf that stand before the real ones in a test executable.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace oru::test {

using Bytes = std::vector<uint8_t>;

/// A line that the library logged.
struct LogLine {
    int32_t level;
    std::string source;
    int32_t line;
    int32_t zero;
    std::string format;
    std::string text;
};

/// A request that an operation sent, and where to.
struct Sent {
    std::string host;
    uint32_t port;
    uint32_t version;
    Bytes message;
};

/// An ioctl() that an operation made.
struct Ioctl {
    unsigned long request;
    std::string interface;
    uint32_t words[2];
    int socketDomain;
    int socketType;
};

/// What the operations in front of liboruAsf do, and what they saw.
class StandIn {
public:
    /// The one of this process.
    static StandIn &get();

    /// Forgets everything: calls pass, logs are caught, nobody answers messages.
    void reset();

    // ---- Failures

    /// Lets the n-th call from now that can fail do so (1 is the next one); a status of the
    /// dictionary's operations may be another than -1.
    void failAt(int n, int32_t status = -1);

    /// Lets only calls of one operation count for failAt().
    void failOnly(const std::string &operation) { only_ = operation; }

    /// The call that failed, empty when none did.
    [[nodiscard]] const std::string &failed() const { return failed_; }

    // ---- The service: messages are answered by the test instead of sent

    /// Lets messages through to liboruAsf; somebody has to answer them.
    bool sendsMessages = false;
    [[nodiscard]] const std::optional<Bytes> &answer() const { return reply_; }

    void replyWith(Bytes reply) { reply_ = std::move(reply); }
    void replyWithNothing() { reply_.reset(); }
    [[nodiscard]] const std::vector<Sent> &sent() const { return sent_; }
    [[nodiscard]] const std::vector<uint32_t> &waits() const { return waits_; }
    [[nodiscard]] const std::vector<uint32_t> &rooms() const { return rooms_; }

    // ---- What was seen

    std::vector<LogLine> logs;
    std::vector<std::string> calls; // every call in order, with its key or path
    std::vector<std::string>
        commands; // given to system(), which then runs them unless told otherwise
    std::vector<Ioctl> ioctls;
    bool runCommands = true;
    int ioctlError = 0; // errno of the next ioctl() calls

    [[nodiscard]] int openDicts() const { return dicts_; }
    [[nodiscard]] std::vector<std::string> openDictPaths() const; // sorted
    [[nodiscard]] int openConnections() const { return connections_; }
    [[nodiscard]] int openElements() const { return elements_; }
    [[nodiscard]] int openSockets() const;

    /// Texts of the caught log lines.
    [[nodiscard]] std::vector<std::string> logTexts() const;

private:
    friend struct Operations;

    bool fails(const std::string &call, const std::string &about = {});

    int countdown_ = 0;
    int32_t status_ = -1;
    std::string only_;
    std::string failed_;
    std::optional<Bytes> reply_;
    std::vector<Sent> sent_;
    std::vector<uint32_t> waits_;
    std::vector<uint32_t> rooms_;
    Sent peer_{};
    int dicts_ = 0;
    std::map<void *, std::string> open_;
    int connections_ = 0;
    int elements_ = 0;
    std::vector<int> sockets_;
};

} // namespace oru::test
