// Reads of a file of 1000 keys (24 KB).
#include "folder.hpp"
#include "oruAsf.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <dlfcn.h>
#include <vector>

namespace oru::bench {
namespace {

/// Walks over so much memory that nothing of before is left in the processor's caches.
void coolCaches()
{
    constexpr size_t kBytes = size_t{16} << 20;
    constexpr size_t kLine = 64;
    static std::vector<unsigned char> memory(kBytes);
    for (size_t at = 0; at < kBytes; at += kLine) ++memory[at];
    benchmark::ClobberMemory();
}

/// What the support library exports, from the one that is linked or from another.
struct Library {
    decltype(&oruAsfDictCreate) create = oruAsfDictCreate;
    decltype(&oruAsfDictGetInt) getInt = oruAsfDictGetInt;
    decltype(&oruAsfDictFree) free = oruAsfDictFree;
};

/// Reads some keys in one load. False when one can't be read.
bool readKeys(const Library &library, int &i, int count)
{
    OruAsfDict *dict = nullptr;
    if (library.create(&dict, "/var/wsmDefaults") != 0) return false;
    bool read = true;
    for (int k = 0; k < count; ++k, i = next(i, kKeys)) {
        int32_t value = 0;
        read &= library.getInt(dict, keyAt(i), &value, 0) == 0;
        benchmark::DoNotOptimize(value);
    }
    library.free(dict);
    return read;
}

void readKeysFloor(const char *path, int &i, int count)
{
    size_t size = 0;
    char *text = floorLoad(path, size);
    for (int k = 0; k < count; ++k, i = next(i, kKeys))
        benchmark::DoNotOptimize(search(text, size, i));
    std::free(text);
}

void read(benchmark::State &state, const Library &library, int count)
{
    memory().use();
    int i = 0;
    for (auto _ : state)
        if (!readKeys(library, i, count)) return state.SkipWithError("a key can't be read");
}

void readFloor(benchmark::State &state, int count)
{
    const std::string path = memory().path();
    int i = 0;
    for (auto _ : state) readKeysFloor(path.c_str(), i, count);
}

/// Times single calls, each with cold caches.
template <class Call>
void timeCold(benchmark::State &state, Call call)
{
    for (auto _ : state) {
        coolCaches();
        const auto start = std::chrono::steady_clock::now();
        call();
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(taken.count());
    }
}

void ReadOne(benchmark::State &state)
{
    read(state, Library{}, 1);
}
void ReadOneFloor(benchmark::State &state)
{
    readFloor(state, 1);
}
void ReadTwenty(benchmark::State &state)
{
    read(state, Library{}, kTwenty);
}
void ReadTwentyFloor(benchmark::State &state)
{
    readFloor(state, kTwenty);
}

/// The build for machines without SSE2.
void ReadTwentyPortable(benchmark::State &state)
{
    static void *const module = ::dlopen(ORU_BENCH_PORTABLE, RTLD_NOW | RTLD_LOCAL);
    if (module == nullptr) return state.SkipWithError(::dlerror());
    Library library;
    library.create =
        reinterpret_cast<decltype(library.create)>(::dlsym(module, "oruAsfDictCreate"));
    library.getInt =
        reinterpret_cast<decltype(library.getInt)>(::dlsym(module, "oruAsfDictGetInt"));
    library.free = reinterpret_cast<decltype(library.free)>(::dlsym(module, "oruAsfDictFree"));
    read(state, library, kTwenty);
}

void ReadOneCold(benchmark::State &state)
{
    memory().use();
    int i = 0;
    timeCold(state, [&] { readKeys(Library{}, i, 1); });
}
void ReadOneColdFloor(benchmark::State &state)
{
    const std::string path = memory().path();
    int i = 0;
    timeCold(state, [&] { readKeysFloor(path.c_str(), i, 1); });
}

constexpr int kColdCalls = 20; // a round; they take turns with walks of milliseconds

BENCHMARK(ReadOne);
BENCHMARK(ReadOneFloor);
BENCHMARK(ReadTwenty);
BENCHMARK(ReadTwentyPortable);
BENCHMARK(ReadTwentyFloor);
BENCHMARK(ReadOneCold)->UseManualTime()->Iterations(kColdCalls);
BENCHMARK(ReadOneColdFloor)->UseManualTime()->Iterations(kColdCalls);

} // namespace
} // namespace oru::bench
