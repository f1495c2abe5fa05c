#include "folder.hpp"

#include "rows.hpp"

#include <cstdio>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace oru::bench {
namespace {

std::string keyName(int i)
{
    char name[32];
    std::snprintf(name, sizeof name, "radio%d.setting%04d", i % 2, i);
    return name;
}

struct Names {
    std::vector<std::string> keys;
    std::vector<std::string> needles;

    Names()
    {
        for (int i = 0; i < fileGrowth().sizes.back(); ++i) {
            keys.push_back(keyName(i));
            needles.push_back("\n" + keys.back() + "=");
        }
    }
};

const Names &names()
{
    static const Names all;
    return all;
}

/// Writes keys; a line of its own stands in the middle instead of one of them. The first line is a
/// comment, so that a plain search for "\nkey=" finds every key.
void writeFile(const std::string &path, int keys, const char *middle)
{
    std::FILE *file = std::fopen(path.c_str(), "w");
    if (file == nullptr) return std::perror(path.c_str());
    std::fprintf(file, "# measured\n");
    for (int i = 0; i < keys; ++i) {
        std::fprintf(file, "%s=%d\n", keyAt(i), valueAt(i));
        if (i == keys / 2) std::fprintf(file, "%s\n", middle);
    }
    std::fclose(file);
}

} // namespace

const char *keyAt(int i)
{
    return names().keys[static_cast<size_t>(i)].c_str();
}

const std::string &needleAt(int i)
{
    return names().needles[static_cast<size_t>(i)];
}

Folder::Folder(const std::string &where, int keys) : root_(where + "/oru-bench-XXXXXX")
{
    if (::mkdtemp(root_.data()) == nullptr) std::perror(root_.c_str());
    std::filesystem::create_directories(root_ + "/var");
    std::filesystem::create_directories(root_ + "/run/oru");
    writeFile(path(), keys, "mimoFlag=1");
    writeFile(root_ + "/var/1x.conf", keys, "localMacAcl=0");
}

Folder::~Folder()
{
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
}

void Folder::settle() const
{
    constexpr time_t kRest = 92;
    struct stat status {};
    if (::stat(path().c_str(), &status) != 0) return std::perror(path().c_str());
    const time_t rest = status.st_ctim.tv_sec + kRest - std::time(nullptr);
    if (rest > 0) ::sleep(static_cast<unsigned>(rest));
}

const Folder &memory()
{
    static const Folder folder("/dev/shm", kKeys);
    return folder;
}

const Folder &changing()
{
    static const Folder folder("/dev/shm", kKeys);
    return folder;
}

std::string diskFolder()
{
    const char *where = std::getenv("ORU_BENCH_DISK");
    return where == nullptr ? "/var/tmp" : where;
}

const Folder &disk()
{
    static const Folder folder(diskFolder(), kKeys);
    return folder;
}

char *floorLoad(const char *path, size_t &size)
{
    const int file = ::open(path, O_RDONLY | O_CLOEXEC);
    struct stat status {};
    ::fstat(file, &status);
    auto *text = static_cast<char *>(std::malloc(static_cast<size_t>(status.st_size) + 1));
    size = static_cast<size_t>(::read(file, text, static_cast<size_t>(status.st_size)));
    ::close(file);
    return text;
}

const void *search(const char *text, size_t size, int i)
{
    const std::string &needle = needleAt(i);
    return ::memmem(text, size, needle.data(), needle.size());
}

} // namespace oru::bench
