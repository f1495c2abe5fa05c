// Messages between processes: UNIX-domain sequenced-packet sockets, one packet a message.
#include "descriptor.hpp"
#include "oruAsf.h"
#include "root.hpp"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <new>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/un.h>

using oru::Descriptor;
using oru::RootedPath;
using oru::uninterrupted;

struct OruAsfIpc {
    int socket;
};

struct OruAsfListener {
    int socket;
    int folder; // of the socket, kept so that it is removed from where it was made
    char name[24];
    ino_t inode; // of the socket, so that a successor's is not removed
};

namespace {

constexpr char kFolder[] = "/run/oru";
constexpr time_t kLongestConnect = 2; // seconds, to a service with a full queue
constexpr mode_t kMode = 0660;        // owner and group may connect, whatever the umask
constexpr int kQueue = 1024;          // callers that wait to be accepted

template <size_t N>
void socketName(char (&name)[N], uint32_t port, uint32_t version)
{
    std::snprintf(name, N, "%u.%u", port, version);
}

Descriptor openFolder()
{
    const RootedPath path{kFolder};
    return Descriptor{path.empty() ? -1 : ::open(path.text(), O_PATH | O_DIRECTORY | O_CLOEXEC)};
}

/// The address of a service's socket. A socket address holds only 107 characters: below a long
/// ORU_ROOT the folder is opened, and reached through this process's list of descriptors.
class Address {
public:
    Address(uint32_t port, uint32_t version)
    {
        char name[24];
        socketName(name, port, version);
        const RootedPath path{kFolder};
        const int length =
            std::snprintf(address_.sun_path, sizeof address_.sun_path, "%s/%s", path.text(), name);
        if (!path.empty() && static_cast<size_t>(length) < sizeof address_.sun_path) return;
        folder_ = openFolder().release();
        std::snprintf(address_.sun_path, sizeof address_.sun_path, "/proc/self/fd/%d/%s", folder_,
                      name);
    }
    ~Address()
    {
        if (folder_ < 0) return;
        const int error = errno;
        ::close(folder_);
        errno = error;
    }
    Address(const Address &) = delete;
    Address &operator=(const Address &) = delete;

    [[nodiscard]] const sockaddr *get() const
    {
        return reinterpret_cast<const sockaddr *>(&address_);
    }
    static constexpr socklen_t size() { return sizeof(sockaddr_un); }

private:
    int folder_ = -1;
    sockaddr_un address_{AF_UNIX, {}};
};

int openSocket()
{
    return Descriptor{::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)}
        .release();
}

bool setBlocking(int socket, bool blocking)
{
    const int flags = ::fcntl(socket, F_GETFL);
    return flags >= 0 &&
           ::fcntl(socket, F_SETFL, blocking ? flags & ~O_NONBLOCK : flags | O_NONBLOCK) == 0;
}

/// Connects; to a service whose queue is full, waits for a while.
bool connectTo(int socket, const Address &address)
{
    if (uninterrupted([&] { return ::connect(socket, address.get(), Address::size()); }) == 0)
        return true;
    if (errno != EAGAIN) return false;

    const timeval wait{kLongestConnect, 0};
    if (::setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &wait, sizeof wait) != 0 ||
        !setBlocking(socket, true))
        return false;
    const bool connected =
        uninterrupted([&] { return ::connect(socket, address.get(), Address::size()); }) == 0;
    return setBlocking(socket, false) && connected;
}

/// A configuration request must not reach whoever put a socket in the service's place.
bool isTrusted(int socket)
{
    ucred peer{};
    socklen_t size = sizeof peer;
    if (::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) != 0) return false;
    return peer.uid == 0 || peer.uid == ::geteuid();
}

int64_t nowMs()
{
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1000000;
}

/// Waits until something can be read, or the peer has gone: 1; 0 when the time is over; -1.
int waitFor(int descriptor, uint32_t waitMs)
{
    const int64_t end = nowMs() + waitMs + 1;
    pollfd entry{descriptor, POLLIN, 0};
    for (int64_t left = waitMs;; left = end - nowMs()) {
        if (left < 0) left = 0;
        const int ready = ::poll(&entry, 1, static_cast<int>(left < INT_MAX ? left : INT_MAX));
        if (ready >= 0 || errno != EINTR) return ready;
    }
}

OruAsfIpc *newHandle(int socket)
{
    if (socket < 0) return nullptr;
    auto *ipc = static_cast<OruAsfIpc *>(std::malloc(sizeof(OruAsfIpc)));
    if (ipc == nullptr) {
        ::close(socket);
        return nullptr;
    }
    return new (ipc) OruAsfIpc{socket};
}

/// Makes a folder and those above it.
void makeFolders(char *path)
{
    for (char *at = path + 1; *at != '\0'; ++at) {
        if (*at != '/') continue;
        *at = '\0';
        ::mkdir(path, 0755);
        *at = '/';
    }
    ::mkdir(path, 0755);
}

/// Binds the service's socket, replacing one that nobody listens on any more.
bool bindSocket(int socket, const OruAsfListener &listener, const Address &address)
{
    ::fchmod(socket, kMode); // before it has a name, so that nobody else ever connects
    if (::bind(socket, address.get(), Address::size()) == 0) return true;
    if (errno != EADDRINUSE) return false;

    const Descriptor probe{openSocket()};
    if (!probe) return false;
    if (::connect(probe.number(), address.get(), Address::size()) == 0 || errno != ECONNREFUSED) {
        errno = EADDRINUSE;
        return false;
    }
    return ::unlinkat(listener.folder, listener.name, 0) == 0 &&
           ::bind(socket, address.get(), Address::size()) == 0;
}

bool startListening(OruAsfListener &listener, uint32_t port, uint32_t version)
{
    struct stat status {};
    if (!bindSocket(listener.socket, listener, Address{port, version})) return false;
    const bool listening = ::listen(listener.socket, kQueue) == 0;
    if (::fstatat(listener.folder, listener.name, &status, AT_SYMLINK_NOFOLLOW) != 0) return false;
    listener.inode = status.st_ino;
    return listening && ::fchmodat(listener.folder, listener.name, kMode, 0) == 0;
}

} // namespace

extern "C" {

OruAsfIpc *oruAsfIpcOpen(int32_t /*family*/, int32_t /*type*/, int32_t /*protocol*/)
{
    return newHandle(openSocket());
}

int32_t oruAsfIpcConnect(OruAsfIpc *ipc, const char *host, uint32_t port, uint32_t version)
{
    if (ipc == nullptr || host == nullptr || std::strcmp(host, "localhost") != 0) return -1;
    const Address address{port, version};
    return connectTo(ipc->socket, address) && isTrusted(ipc->socket) ? 0 : -1;
}

int32_t oruAsfIpcSend(OruAsfIpc *ipc, const void *message, uint32_t length)
{
    if (ipc == nullptr || message == nullptr || length == 0 || length > INT32_MAX) return -1;
    const ssize_t sent =
        uninterrupted([&] { return ::send(ipc->socket, message, length, MSG_NOSIGNAL); });
    return sent == static_cast<ssize_t>(length) ? static_cast<int32_t>(length) : -1;
}

int32_t oruAsfIpcCheck(OruAsfIpc *ipc, uint32_t waitMs)
{
    // A wait that fails is not a wait without an answer: the receive that follows will say so.
    return ipc == nullptr ? -1 : waitFor(ipc->socket, waitMs);
}

int32_t oruAsfIpcRecv(OruAsfIpc *ipc, void *buffer, uint32_t size)
{
    if (ipc == nullptr || buffer == nullptr || size == 0 || size > INT32_MAX) return -1;
    const auto receive = [&] { return ::recv(ipc->socket, buffer, size, 0); };
    ssize_t got = uninterrupted(receive);
    // Told once when the peer closed before it read all; its last messages stand behind that.
    if (got < 0 && errno == ECONNRESET) got = uninterrupted(receive);
    return got < 0 ? -1 : static_cast<int32_t>(got);
}

void oruAsfIpcClose(OruAsfIpc *ipc)
{
    if (ipc == nullptr) return;
    ::close(ipc->socket);
    std::free(ipc);
}

int32_t oruAsfIpcDescriptor(const OruAsfIpc *ipc)
{
    return ipc == nullptr ? -1 : ipc->socket;
}

OruAsfListener *oruAsfIpcListen(uint32_t port, uint32_t version)
{
    RootedPath path{kFolder};
    if (path.empty()) {
        errno = ENAMETOOLONG;
        return nullptr;
    }
    makeFolders(path.writable());

    auto *listener = static_cast<OruAsfListener *>(std::malloc(sizeof(OruAsfListener)));
    if (listener == nullptr) return nullptr;
    new (listener) OruAsfListener{openSocket(), openFolder().release(), {}, 0};
    socketName(listener->name, port, version);
    if (listener->socket >= 0 && listener->folder >= 0 && startListening(*listener, port, version))
        return listener;

    const int error = errno;
    oruAsfIpcUnlisten(listener);
    errno = error;
    return nullptr;
}

OruAsfIpc *oruAsfIpcAccept(OruAsfListener *listener, uint32_t waitMs)
{
    if (listener == nullptr || waitFor(listener->socket, waitMs) <= 0) return nullptr;
    return newHandle(uninterrupted([&] {
        return Descriptor{
            ::accept4(listener->socket, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK)}
            .release();
    }));
}

int32_t oruAsfIpcListenDescriptor(const OruAsfListener *listener)
{
    return listener == nullptr ? -1 : listener->socket;
}

void oruAsfIpcUnlisten(OruAsfListener *listener)
{
    if (listener == nullptr) return;
    struct stat status {};
    if (listener->inode != 0 &&
        ::fstatat(listener->folder, listener->name, &status, AT_SYMLINK_NOFOLLOW) == 0 &&
        status.st_ino == listener->inode)
        ::unlinkat(listener->folder, listener->name, 0);
    if (listener->socket >= 0) ::close(listener->socket);
    if (listener->folder >= 0) ::close(listener->folder);
    std::free(listener);
}

} // extern "C"
