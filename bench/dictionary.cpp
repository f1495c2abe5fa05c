// Dictionaries: a file of 1000 keys (24 KB), read and changed.
#include "oruAsf.h"
#include "oruSdk.h"
#include "rows.hpp"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace oru::bench {

const Row kRows[] = {
    {"read 1 key of 1000: load, read, free (tmpfs)", "ReadOne", "ReadOneFloor"},
    {"read 20 keys of 1000 in one load (tmpfs)", "ReadTwenty", "ReadTwentyFloor"},
    {"oruSdkGetMimo, whole call (tmpfs)", "GetMimo", "ReadOneFloor"},
    {"change 1 key of 1000, saved durably (tmpfs)", "ChangeOneMemory", "ChangeOneMemoryFloor"},
    {"change 1 key of 1000, saved durably (disk)", "ChangeOneDisk", "ChangeOneDiskFloor"},
    {"a setter that changes nothing, against its getter (tmpfs)", "SetSame", "GetMimo"},
};
const int kRowCount = sizeof kRows / sizeof *kRows;

namespace {

constexpr int kKeys = 1000;
constexpr int kTwenty = 20;

std::string keyName(int i)
{
    char name[32];
    std::snprintf(name, sizeof name, "radio%d.setting%04d", i % 2, i);
    return name;
}

/// The keys, and what a plain search looks for: made before anything is measured.
struct Names {
    std::vector<std::string> keys;
    std::vector<std::string> needles;

    Names()
    {
        for (int i = 0; i < kKeys; ++i) {
            keys.push_back(keyName(i));
            std::string needle(1, '\n');
            needle.append(keys.back()).append("=");
            needles.push_back(needle);
        }
    }
};

const Names &names()
{
    static const Names all;
    return all;
}

const char *keyAt(int i)
{
    return names().keys[static_cast<size_t>(i)].c_str();
}

const void *search(const char *text, size_t size, int i)
{
    const std::string &needle = names().needles[static_cast<size_t>(i)];
    return ::memmem(text, size, needle.data(), needle.size());
}

/// A folder with a file of 1000 keys below ORU_ROOT.
class Folder {
public:
    explicit Folder(const char *where)
    {
        root_ = std::string(where) + "/oru-bench-XXXXXX";
        if (::mkdtemp(root_.data()) == nullptr) std::perror(root_.c_str());
        ::mkdir((root_ + "/var").c_str(), 0700);
        path_ = root_ + "/var/wsmDefaults";
        std::FILE *file = std::fopen(path_.c_str(), "w");
        for (int i = 0; i < kKeys - 1; ++i) std::fprintf(file, "%s=%d\n", keyName(i).c_str(), i);
        std::fprintf(file, "mimoFlag=1\n");
        std::fclose(file);
    }
    ~Folder()
    {
        ::unlink(path_.c_str());
        ::rmdir((root_ + "/var").c_str());
        ::rmdir(root_.c_str());
    }
    Folder(const Folder &) = delete;
    Folder &operator=(const Folder &) = delete;

    void use() const { ::setenv("ORU_ROOT", root_.c_str(), 1); }
    [[nodiscard]] const char *path() const { return path_.c_str(); }
    [[nodiscard]] std::string varFolder() const { return root_ + "/var"; }

private:
    std::string root_;
    std::string path_;
};

const Folder &memory()
{
    static const Folder folder("/dev/shm");
    return folder;
}

const Folder &disk()
{
    const char *where = std::getenv("ORU_BENCH_DISK");
    static const Folder folder(where == nullptr ? "." : where);
    return folder;
}

/// The floor of a load: one block with the file's bytes.
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

void ReadOne(benchmark::State &state)
{
    memory().use();
    int i = 0;
    for (auto _ : state) {
        OruAsfDict *dict = nullptr;
        int32_t value = 0;
        if (oruAsfDictCreate(&dict, "/var/wsmDefaults") != 0) return state.SkipWithError("load");
        if (oruAsfDictGetInt(dict, keyAt(i), &value, 0) != 0) return state.SkipWithError("read");
        oruAsfDictFree(dict);
        benchmark::DoNotOptimize(value);
        i = (i + 37) % (kKeys - 1);
    }
}

void ReadOneFloor(benchmark::State &state)
{
    int i = 0;
    for (auto _ : state) {
        size_t size = 0;
        char *text = floorLoad(memory().path(), size);
        benchmark::DoNotOptimize(search(text, size, i));
        std::free(text);
        i = (i + 37) % (kKeys - 1);
    }
}

void ReadTwenty(benchmark::State &state)
{
    memory().use();
    int i = 0;
    for (auto _ : state) {
        OruAsfDict *dict = nullptr;
        if (oruAsfDictCreate(&dict, "/var/wsmDefaults") != 0) return state.SkipWithError("load");
        for (int k = 0; k < kTwenty; ++k) {
            int32_t value = 0;
            if (oruAsfDictGetInt(dict, keyAt(i), &value, 0) != 0)
                return state.SkipWithError("read");
            benchmark::DoNotOptimize(value);
            i = (i + 37) % (kKeys - 1);
        }
        oruAsfDictFree(dict);
    }
}

void ReadTwentyFloor(benchmark::State &state)
{
    int i = 0;
    for (auto _ : state) {
        size_t size = 0;
        char *text = floorLoad(memory().path(), size);
        for (int k = 0; k < kTwenty; ++k) {
            benchmark::DoNotOptimize(search(text, size, i));
            i = (i + 37) % (kKeys - 1);
        }
        std::free(text);
    }
}

void GetMimo(benchmark::State &state)
{
    memory().use();
    for (auto _ : state) {
        OruSdkFeatureParam param{0, 0, 0};
        if (oruSdkGetMimo(&param) != 0) return state.SkipWithError("get");
        benchmark::DoNotOptimize(param.activationFlag);
    }
}

void SetSame(benchmark::State &state)
{
    memory().use();
    for (auto _ : state) {
        OruSdkFeatureParam param{0, 0, 1};
        if (oruSdkSetMimo(&param) != 0) return state.SkipWithError("set");
    }
}

void changeOne(benchmark::State &state, const Folder &folder)
{
    folder.use();
    int i = 0;
    for (auto _ : state) {
        OruAsfDict *dict = nullptr;
        char value[16];
        std::snprintf(value, sizeof value, "%d", 10000 + i);
        if (oruAsfDictCreate(&dict, "/var/wsmDefaults") != 0) return state.SkipWithError("load");
        if (oruAsfDictSetString(dict, "radio0.setting0500", value) != 0 ||
            oruAsfDictSave(dict, "/var/wsmDefaults") != 0)
            return state.SkipWithError("save");
        oruAsfDictFree(dict);
        i = (i + 1) % 1000;
    }
}

/// The floor of a change: load, write a temporary file, sync it, rename it, sync the folder.
void changeOneFloor(benchmark::State &state, const Folder &folder)
{
    const std::string temporary = std::string(folder.path()) + ".floor";
    const std::string var = folder.varFolder();
    for (auto _ : state) {
        size_t size = 0;
        char *text = floorLoad(folder.path(), size);
        const int file = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        const bool written = ::write(file, text, size) == static_cast<ssize_t>(size);
        ::fsync(file);
        ::close(file);
        const bool renamed = ::rename(temporary.c_str(), folder.path()) == 0;
        const int directory = ::open(var.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        ::fsync(directory);
        ::close(directory);
        std::free(text);
        if (!written || !renamed) return state.SkipWithError("write");
    }
}

void ChangeOneMemory(benchmark::State &state)
{
    changeOne(state, memory());
}
void ChangeOneMemoryFloor(benchmark::State &state)
{
    changeOneFloor(state, memory());
}
void ChangeOneDisk(benchmark::State &state)
{
    changeOne(state, disk());
}
void ChangeOneDiskFloor(benchmark::State &state)
{
    changeOneFloor(state, disk());
}

BENCHMARK(ReadOne);
BENCHMARK(ReadOneFloor);
BENCHMARK(ReadTwenty);
BENCHMARK(ReadTwentyFloor);
BENCHMARK(GetMimo);
BENCHMARK(SetSame);
BENCHMARK(ChangeOneMemory);
BENCHMARK(ChangeOneMemoryFloor);
BENCHMARK(ChangeOneDisk);
BENCHMARK(ChangeOneDiskFloor);

} // namespace
} // namespace oru::bench
