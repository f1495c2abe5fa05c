// Operations that read and change settings, each with its save.
#include "folder.hpp"
#include "oruAsf.h"
#include "oruSdk.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/uio.h>
#include <unistd.h>

namespace oru::bench {
namespace {

void GetMimo(benchmark::State &state)
{
    memory().use();
    for (auto _ : state) {
        OruSdkFeatureParam param{0, 0, 0};
        if (oruSdkGetMimo(&param) != 0) return state.SkipWithError("get");
        benchmark::DoNotOptimize(param.activationFlag);
    }
}

/// Sets what is set: nothing is written.
void SetSame(benchmark::State &state)
{
    memory().use();
    OruSdkFeatureParam param{0, 0, 0};
    oruSdkGetMimo(&param);
    for (auto _ : state)
        if (oruSdkSetMimo(&param) != 0) return state.SkipWithError("set");
}

/// Sets another value each time.
void SetMimo(benchmark::State &state)
{
    changing().use();
    OruSdkFeatureParam param{0, 0, 0};
    for (auto _ : state) {
        param.activationFlag ^= 1;
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
        if (oruAsfDictSetString(dict, keyAt(kKeys / 2), value) != 0 ||
            oruAsfDictSave(dict, "/var/wsmDefaults") != 0)
            return state.SkipWithError("save");
        oruAsfDictFree(dict);
        i = (i + 1) % kKeys;
    }
}

/// A file's three parts, the middle one changed, written by one call to a temporary file that
/// takes its place once it is on the disk.
bool replaceFloor(const char *path, const char *temporary, const char *folder, char *text,
                  size_t size)
{
    const size_t half = size / 2;
    char changed[] = "10000";
    const size_t rest = half + sizeof changed - 1;
    const iovec parts[] = {{text, half}, {changed, sizeof changed - 1}, {text + rest, size - rest}};
    const int file = ::open(temporary, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    const bool written = ::writev(file, parts, 3) == static_cast<ssize_t>(size);
    const bool synced = ::fsync(file) == 0;
    ::close(file);
    const bool renamed = ::rename(temporary, path) == 0;
    const int directory = ::open(folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const bool kept = ::fsync(directory) == 0;
    ::close(directory);
    return written && synced && renamed && kept;
}

void changeOneFloor(benchmark::State &state, const Folder &folder)
{
    const std::string source = folder.path();
    const std::string path = source + ".floor";
    const std::string temporary = path + ".new";
    const std::string var = folder.root() + "/var";
    for (auto _ : state) {
        size_t size = 0;
        char *text = floorLoad(source.c_str(), size);
        if (!replaceFloor(path.c_str(), temporary.c_str(), var.c_str(), text, size))
            return state.SkipWithError("write");
        std::free(text);
    }
}

void ChangeOneMemory(benchmark::State &state)
{
    changeOne(state, changing());
}
void ChangeOneMemoryFloor(benchmark::State &state)
{
    changeOneFloor(state, changing());
}
void ChangeOneDisk(benchmark::State &state)
{
    changeOne(state, disk());
}
void ChangeOneDiskFloor(benchmark::State &state)
{
    changeOneFloor(state, disk());
}

BENCHMARK(GetMimo);
BENCHMARK(SetSame);
BENCHMARK(SetMimo);
BENCHMARK(ChangeOneMemory);
BENCHMARK(ChangeOneMemoryFloor);
BENCHMARK(ChangeOneDisk);
BENCHMARK(ChangeOneDiskFloor);

} // namespace
} // namespace oru::bench
