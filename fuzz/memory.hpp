// An access point in memory: its files and its service. Stands before the system calls of the
// libraries, so that a run takes microseconds. Everything below kRoot is here, and nothing else.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace oru::fuzz {

inline constexpr char kWsm[] = "/var/wsmDefaults";
inline constexpr char kAa[] = "/var/1x.conf";
inline constexpr char kWsmFactory[] = "/var/wsmDefaults.orig";
inline constexpr char kAaFactory[] = "/var/1x.conf.orig";
inline constexpr char kRadarList[] = "/config/wsmSavedRadarDetectList";
inline constexpr const char *kConfiguration[] = {kWsm, kAa, kWsmFactory, kAaFactory, kRadarList};

/// Lets ORU_ROOT name it, and log lines go into it. No file elsewhere can be opened from then on.
void enterMemory();

/// The text of a file of the access point; empty when there is no such file.
std::string_view textOf(const char *path);

/// Gives a file this text, without a save.
void putText(const char *path, std::string_view text);

/// How often something was written, renamed or removed.
uint64_t writes();

/// What a request of a type is answered with; an empty one: nobody answers in time.
struct Service {
    virtual ~Service() = default;
    virtual std::string_view reply(uint16_t type) = 0;
};

/// Who answers from here on; NULL: nobody listens.
void serve(Service *service);

/// Checks that every file is closed and that no temporary one was left.
void expectTidy();

} // namespace oru::fuzz
