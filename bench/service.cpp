#include "service.hpp"

#include "oruAsf.h"

#include <csignal>
#include <cstdio>
#include <cstring>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace oru::bench {
namespace {

uint8_t *putBss(uint8_t *at, uint8_t number)
{
    constexpr char kSsid[] = "Guests, lobby"; // two of them make up the 100 bytes
    constexpr uint32_t kTextHead = 6;
    const uint8_t mac[] = {0, 0x11, 0x22, 0x33, 0x44, number};
    at = oruAsfPutTtlv(at, 0x00010011, 1, &number);
    at = oruAsfPutTtlv(at, 0x00080005, sizeof kSsid - 1 + kTextHead, kSsid);
    return oruAsfPutTtlv(at, 0x000c0007, sizeof mac, mac);
}

struct Answer {
    uint8_t bytes[kAnswerBytes + 64];

    Answer()
    {
        const uint16_t number = 1;
        uint8_t *at = oruAsfPut16(oruAsfPut16(bytes, 1), kAnswerBytes);
        at = oruAsfPut32(at, 0);
        at = oruAsfPutTtlv(at, 0x00020001, sizeof number, &number);
        at = oruAsfPutTtlv(at, 0x00020012, sizeof number, &number);
        at = putBss(putBss(at, 0), 1);
        if (at != bytes + kAnswerBytes)
            std::fprintf(stderr, "an answer of %td bytes\n", at - bytes);
    }
};

/// A child that is ended when its parent is.
pid_t forkChild()
{
    const pid_t parent = ::getpid();
    const pid_t child = ::fork();
    if (child != 0) return child;
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) ::_exit(1);
    return 0;
}

} // namespace

const uint8_t *answer()
{
    static const Answer ours;
    return ours.bytes;
}

bool Service::start(const std::function<void()> &serve)
{
    const pid_t child = forkChild();
    if (child == 0) {
        serve();
        ::_exit(1);
    }
    return child > 0;
}

std::string startProgram(const char *const arguments[])
{
    int ends[2];
    if (::pipe(ends) != 0) return {};
    const pid_t child = forkChild();
    if (child == 0) {
        ::dup2(ends[1], STDOUT_FILENO);
        ::close(ends[0]);
        ::close(ends[1]);
        ::execvp(arguments[0], const_cast<char *const *>(arguments));
        ::_exit(127);
    }
    ::close(ends[1]);
    char line[512] = "";
    std::FILE *out = ::fdopen(ends[0], "r");
    const bool got = std::fgets(line, sizeof line, out) != nullptr;
    std::fclose(out);
    line[std::strcspn(line, "\n")] = '\0';
    return got ? line : "";
}

int listenAt(const std::string &path, int kind)
{
    sockaddr_un address{AF_UNIX, {}};
    std::snprintf(address.sun_path, sizeof address.sun_path, "%s", path.c_str());
    const int socket = ::socket(AF_UNIX, kind | SOCK_CLOEXEC, 0);
    if (::bind(socket, reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0 ||
        ::listen(socket, 16) != 0)
        std::perror(path.c_str());
    return socket;
}

} // namespace oru::bench
