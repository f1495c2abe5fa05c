#include "support/standin.hpp"

#include "oruAsf.h"
#include "support/faults.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <net/if.h>
#include <set>
#include <sys/ioctl.h>
#include <sys/socket.h>

namespace oru::test {

StandIn &StandIn::get()
{
    static StandIn one;
    return one;
}

void StandIn::reset()
{
    *this = StandIn{};
}

void StandIn::failAt(int n, int32_t status)
{
    countdown_ = n;
    status_ = status;
    failed_.clear();
}

bool StandIn::fails(const std::string &call, const std::string &about)
{
    calls.push_back(about.empty() ? call : call + " " + about);
    if (!only_.empty() && only_ != call) return false;
    if (countdown_ == 0 || --countdown_ > 0) return false;
    failed_ = call;
    return true;
}

std::vector<std::string> StandIn::logTexts() const
{
    std::vector<std::string> texts;
    for (const LogLine &line : logs) texts.push_back(line.text);
    return texts;
}

std::vector<std::string> StandIn::openDictPaths() const
{
    std::vector<std::string> paths;
    for (const auto &[handle, path] : open_) paths.push_back(path);
    std::sort(paths.begin(), paths.end());
    return paths;
}

int StandIn::openSockets() const
{
    return static_cast<int>(std::count_if(sockets_.begin(), sockets_.end(), [](int descriptor) {
        int domain = 0;
        socklen_t size = sizeof domain;
        return ::getsockopt(descriptor, SOL_SOCKET, SO_DOMAIN, &domain, &size) == 0 &&
               domain == AF_INET;
    }));
}

/// The operations' way to the stand-in's private parts.
struct Operations {
    static StandIn &self() { return StandIn::get(); }
    static bool fails(const char *call, const char *about = nullptr)
    {
        return self().fails(call, about == nullptr ? "" : about);
    }
    static int32_t status() { return self().status_; }
    static int &dicts() { return self().dicts_; }
    static std::map<void *, std::string> &open() { return self().open_; }
    static int &connections() { return self().connections_; }
    static int &elements() { return self().elements_; }
    static std::vector<int> &sockets() { return self().sockets_; }
    static Sent &peer() { return self().peer_; }
    static std::vector<Sent> &sent() { return self().sent_; }
    static std::optional<Bytes> &reply() { return self().reply_; }
    static std::vector<uint32_t> &waits() { return self().waits_; }
    static std::vector<uint32_t> &rooms() { return self().rooms_; }
};

namespace {

/// The operation that comes after ours.
template <class Function>
Function *real(const char *name)
{
    void *found = ::dlsym(RTLD_NEXT, name);
    if (found == nullptr) std::abort();
    return reinterpret_cast<Function *>(found);
}

/// What stays open on purpose is within reach here: the leak checker takes it for no leak.
std::set<OruAsfDict *> &openHandles()
{
    static auto *handles = new std::set<OruAsfDict *>;
    return *handles;
}

} // namespace
} // namespace oru::test

using namespace oru::test;

extern "C" {

// ---- Dictionaries: the real ones, unless told to fail

int32_t oruAsfDictCreate(OruAsfDict **dict, const char *path)
{
    if (Operations::fails("oruAsfDictCreate", path)) return Operations::status();
    const int32_t status = real<decltype(oruAsfDictCreate)>("oruAsfDictCreate")(dict, path);
    if (status == 0) {
        ++Operations::dicts();
        Operations::open()[*dict] = path;
        openHandles().insert(*dict);
    }
    return status;
}

int32_t oruAsfDictGetInt(OruAsfDict *dict, const char *key, int32_t *value, int32_t flag)
{
    if (flag != 0 && flag != 1) std::abort();
    if (Operations::fails("oruAsfDictGetInt",
                          (std::string{key} + (flag != 0 ? " flag" : "")).c_str()))
        return Operations::status();
    return real<decltype(oruAsfDictGetInt)>("oruAsfDictGetInt")(dict, key, value, flag);
}

int32_t oruAsfDictGetBool(OruAsfDict *dict, const char *key, int32_t *value, int32_t flag)
{
    if (flag != 0) std::abort(); // the integer read alone has another one
    if (Operations::fails("oruAsfDictGetBool", key)) return Operations::status();
    return real<decltype(oruAsfDictGetBool)>("oruAsfDictGetBool")(dict, key, value, flag);
}

int32_t oruAsfDictGetString(OruAsfDict *dict, const char *key, const char **value, int32_t flag)
{
    if (flag != 0) std::abort();
    if (Operations::fails("oruAsfDictGetString", key)) return Operations::status();
    return real<decltype(oruAsfDictGetString)>("oruAsfDictGetString")(dict, key, value, flag);
}

int32_t oruAsfDictGetDelimitedString(OruAsfDict *dict, const char *key, const char **value,
                                     int32_t flag)
{
    if (flag != 0) std::abort();
    if (Operations::fails("oruAsfDictGetDelimitedString", key)) return Operations::status();
    return real<decltype(oruAsfDictGetDelimitedString)>("oruAsfDictGetDelimitedString")(
        dict, key, value, flag);
}

int32_t oruAsfDictSetString(OruAsfDict *dict, const char *key, const char *value)
{
    if (Operations::fails("oruAsfDictSetString", key)) return Operations::status();
    return real<decltype(oruAsfDictSetString)>("oruAsfDictSetString")(dict, key, value);
}

int32_t oruAsfDictSetDelimitedString(OruAsfDict *dict, const char *key, const char *value)
{
    if (Operations::fails("oruAsfDictSetDelimitedString", key)) return Operations::status();
    return real<decltype(oruAsfDictSetDelimitedString)>("oruAsfDictSetDelimitedString")(dict, key,
                                                                                        value);
}

int32_t oruAsfDictSave(OruAsfDict *dict, const char *path)
{
    if (Operations::fails("oruAsfDictSave", path)) return Operations::status();
    return real<decltype(oruAsfDictSave)>("oruAsfDictSave")(dict, path);
}

void oruAsfDictFree(OruAsfDict *dict)
{
    --Operations::dicts();
    Operations::open().erase(dict);
    openHandles().erase(dict);
    real<decltype(oruAsfDictFree)>("oruAsfDictFree")(dict);
}

// ---- Messages: answered by the test, unless they are let through. Of the results, only a negative
// one is a failure of connect and send, and only 0 is silence.

OruAsfIpc *oruAsfIpcOpen(int32_t family, int32_t type, int32_t protocol)
{
    if (Operations::fails("oruAsfIpcOpen")) return nullptr;
    if (family != 2 || type != 1 || protocol != 0) std::abort();
    if (Operations::self().sendsMessages)
        return real<decltype(oruAsfIpcOpen)>("oruAsfIpcOpen")(family, type, protocol);
    ++Operations::connections();
    return reinterpret_cast<OruAsfIpc *>(&Operations::peer());
}

int32_t oruAsfIpcConnect(OruAsfIpc *ipc, const char *host, uint32_t port, uint32_t version)
{
    if (Operations::fails("oruAsfIpcConnect", std::to_string(port).c_str())) return -1;
    if (Operations::self().sendsMessages)
        return real<decltype(oruAsfIpcConnect)>("oruAsfIpcConnect")(ipc, host, port, version);
    Operations::peer() = {host, port, version, {}};
    return 1;
}

int32_t oruAsfIpcSend(OruAsfIpc *ipc, const void *message, uint32_t length)
{
    if (Operations::fails("oruAsfIpcSend")) return -1;
    if (Operations::self().sendsMessages)
        return real<decltype(oruAsfIpcSend)>("oruAsfIpcSend")(ipc, message, length);
    const auto *bytes = static_cast<const uint8_t *>(message);
    Operations::peer().message.assign(bytes, bytes + length);
    Operations::sent().push_back(Operations::peer());
    return 0;
}

int32_t oruAsfIpcCheck(OruAsfIpc *ipc, uint32_t waitMs)
{
    Operations::waits().push_back(waitMs);
    if (Operations::fails("oruAsfIpcCheck")) return 0;
    if (Operations::self().sendsMessages)
        return real<decltype(oruAsfIpcCheck)>("oruAsfIpcCheck")(ipc, waitMs);
    return Operations::reply().has_value() ? -1 : 0;
}

int32_t oruAsfIpcRecv(OruAsfIpc *ipc, void *buffer, uint32_t size)
{
    Operations::rooms().push_back(size);
    if (Operations::fails("oruAsfIpcRecv")) return 0;
    if (Operations::self().sendsMessages)
        return real<decltype(oruAsfIpcRecv)>("oruAsfIpcRecv")(ipc, buffer, size);
    const Bytes &reply = *Operations::reply();
    const size_t length = std::min<size_t>(reply.size(), size);
    std::memcpy(buffer, reply.data(), length);
    return static_cast<int32_t>(length);
}

void oruAsfIpcClose(OruAsfIpc *ipc)
{
    Operations::self().calls.emplace_back("oruAsfIpcClose");
    if (Operations::self().sendsMessages)
        return real<decltype(oruAsfIpcClose)>("oruAsfIpcClose")(ipc);
    --Operations::connections();
}

OruAsfTtlv *oruAsfGetStructTtlv(const uint8_t *at, uint32_t *consumed)
{
    if (Operations::fails("oruAsfGetStructTtlv")) return *consumed = 0, nullptr;
    // A copy of exactly the bytes that remain lets the sanitizers see a read behind them.
    const Bytes rest(at, at + *consumed);
    OruAsfTtlv *element =
        real<decltype(oruAsfGetStructTtlv)>("oruAsfGetStructTtlv")(rest.data(), consumed);
    if (element != nullptr) ++Operations::elements();
    return element;
}

void oruAsfFreeStructTtlv(OruAsfTtlv *element)
{
    --Operations::elements();
    real<decltype(oruAsfFreeStructTtlv)>("oruAsfFreeStructTtlv")(element);
}

// ---- Logging: caught

void oruAsfLogMsg(int32_t level, const char *source, int32_t line, int32_t zero, const char *format,
                  ...)
{
    char text[32768];
    va_list values;
    va_start(values, format);
    std::vsnprintf(text, sizeof text, format, values);
    va_end(values);
    Operations::self().logs.push_back({level, source, line, zero, format, text});
}

// ---- The platform

int system(const char *command)
{
    if (Faults::strikes("system", __builtin_return_address(0))) return -1;
    Operations::self().commands.emplace_back(command);
    if (Operations::fails("system")) return 256;
    return Operations::self().runCommands ? real<decltype(system)>("system")(command) : 0;
}

int socket(int domain, int type, int protocol) noexcept
{
    if (Faults::strikes("socket", __builtin_return_address(0))) return -1;
    if (domain != AF_INET) return real<decltype(socket)>("socket")(domain, type, protocol);
    if (Operations::fails("socket")) return errno = EMFILE, -1;
    const int descriptor = real<decltype(socket)>("socket")(domain, type, protocol);
    Operations::sockets().push_back(descriptor);
    return descriptor;
}

int ioctl(int descriptor, unsigned long request, ...) noexcept
{
    va_list values;
    va_start(values, request);
    void *argument = va_arg(values, void *);
    va_end(values);
    if (request != SIOCDEVPRIVATE)
        return real<decltype(ioctl)>("ioctl")(descriptor, request, argument);

    if (Faults::strikes("ioctl", __builtin_return_address(0))) return -1;
    const auto *about = static_cast<const ifreq *>(argument);
    int socketDomain = 0;
    int socketType = 0;
    socklen_t size = sizeof(int);
    ::getsockopt(descriptor, SOL_SOCKET, SO_DOMAIN, &socketDomain, &size);
    ::getsockopt(descriptor, SOL_SOCKET, SO_TYPE, &socketType, &size);
    Ioctl seen{request, about->ifr_name, {}, socketDomain, socketType};
    std::memcpy(seen.words, about->ifr_data, sizeof seen.words);
    Operations::self().ioctls.push_back(seen);
    if (Operations::fails("ioctl")) return errno = EIO, -1;
    if (Operations::self().ioctlError != 0) return errno = Operations::self().ioctlError, -1;
    return 0;
}

} // extern "C"
