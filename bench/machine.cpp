#include "machine.hpp"

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <linux/magic.h>
#include <sched.h>
#include <sys/utsname.h>
#include <sys/vfs.h>

namespace oru::bench {

int pinToOneProcessor()
{
    cpu_set_t allowed;
    if (::sched_getaffinity(0, sizeof allowed, &allowed) != 0) return -1;
    int chosen = -1;
    for (int i = 0; i < CPU_SETSIZE; ++i)
        if (CPU_ISSET(i, &allowed)) chosen = i;
    if (const char *wanted = std::getenv("ORU_BENCH_CPU"); wanted != nullptr)
        chosen = std::atoi(wanted);
    if (chosen < 0 || chosen >= CPU_SETSIZE) return -1;
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(chosen, &one);
    return ::sched_setaffinity(0, sizeof one, &one) == 0 ? chosen : -1;
}

std::string processorName()
{
    std::ifstream file("/proc/cpuinfo");
    for (std::string line; std::getline(file, line);)
        if (line.rfind("model name", 0) == 0) return line.substr(line.find(": ") + 2);
    return "unknown";
}

std::string kernelName()
{
    utsname names{};
    ::uname(&names);
    return std::string(names.sysname) + " " + names.release + " " + names.machine;
}

std::string fileSystemOf(const std::string &folder)
{
    struct statfs status {};
    if (::statfs(folder.c_str(), &status) != 0) return "missing";
    switch (status.f_type) {
    case EXT4_SUPER_MAGIC: return "ext4";
    case TMPFS_MAGIC: return "tmpfs";
    case BTRFS_SUPER_MAGIC: return "btrfs";
    case XFS_SUPER_MAGIC: return "xfs";
    case OVERLAYFS_SUPER_MAGIC: return "overlayfs";
    default: return "type " + std::to_string(status.f_type);
    }
}

std::string now()
{
    const std::time_t seconds = std::time(nullptr);
    std::tm fields{};
    ::gmtime_r(&seconds, &fields);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M UTC", &fields);
    return text;
}

} // namespace oru::bench
