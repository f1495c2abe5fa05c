// Log lines: to the system log, or where ORU_LOG says.
#include "descriptor.hpp"
#include "oruAsf.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <syslog.h>

namespace {

constexpr size_t kLongestLine = 8192;
constexpr int32_t kHighestLevel = 7;

int32_t highestLevel()
{
    const char *text = ::secure_getenv("ORU_LOG_LEVEL");
    if (text == nullptr || text[0] < '0' || text[0] > '7' || text[1] != '\0') return kHighestLevel;
    return text[0] - '0';
}

const char *levelName(int32_t level)
{
    switch (level) {
    case ORUASF_LOG_ERROR: return "error";
    case ORUASF_LOG_WARNING: return "warning";
    case ORUASF_LOG_INFO: return "info";
    default: return "log";
    }
}

/// A line that holds what the caller said, with control bytes as \xHH and without the line feeds at
/// its end: no value can forge a second line or move a terminal's cursor.
class Line {
public:
    void add(const char *text)
    {
        for (; *text != '\0'; ++text) {
            const auto byte = static_cast<unsigned char>(*text);
            if (size_ + 5 > sizeof text_) return;
            if (byte >= 0x20 && byte != 0x7f) text_[size_++] = *text;
            else size_ += static_cast<size_t>(std::snprintf(text_ + size_, 5, "\\x%02x", byte));
        }
    }
    void end() { text_[size_++] = '\n'; }
    [[nodiscard]] const char *text() const { return text_; }
    [[nodiscard]] size_t size() const { return size_; }

private:
    char text_[kLongestLine];
    size_t size_ = 0;
};

void writeTo(int file, const Line &line)
{
    // One write for one line, so that lines of several processes don't mix. A log that can't be
    // written is nobody's failure.
    const ssize_t put = oru::uninterrupted([&] { return ::write(file, line.text(), line.size()); });
    static_cast<void>(put);
}

} // namespace

extern "C" void oruAsfLogMsg(int32_t level, const char *source, int32_t line, int32_t /*zero*/,
                             const char *format, ...)
{
    const int error = errno;
    const char *chosen = ::secure_getenv("ORU_LOG");
    const std::string_view where = chosen != nullptr ? chosen : "syslog";
    if (level > highestLevel() || where == "none") return;

    char text[kLongestLine];
    va_list values;
    va_start(values, format);
    errno = error; // for %m
    if (std::vsnprintf(text, sizeof text, format, values) < 0) text[0] = '\0';
    va_end(values);
    size_t length = std::strlen(text);
    while (length > 0 && text[length - 1] == '\n') text[--length] = '\0';

    char head[64];
    std::snprintf(head, sizeof head, "%.32s:%d: ", source, line);
    Line whole;
    whole.add(head);
    constexpr std::string_view kFile = "file:";
    // Not starts_with(), which without optimization calls into the library of C++.
    const bool toFile =
        where.size() >= kFile.size() && std::memcmp(where.data(), kFile.data(), kFile.size()) == 0;
    if (toFile || where == "stderr") {
        whole.add(levelName(level));
        whole.add(": ");
        whole.add(text);
        whole.end();
        if (toFile) {
            const oru::Descriptor file{
                ::open(chosen + kFile.size(),
                       O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600)};
            if (file) writeTo(file.number(), whole);
        } else {
            writeTo(STDERR_FILENO, whole);
        }
    } else {
        whole.add(text);
        ::syslog(level & LOG_PRIMASK, "%.*s", static_cast<int>(whole.size()), whole.text());
    }
    errno = error;
}
