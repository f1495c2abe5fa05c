// The same jobs on files of 100 to 100,000 keys.
#include "folder.hpp"
#include "oruAsf.h"
#include "rows.hpp"

#include <benchmark/benchmark.h>

#include <map>
#include <memory>

namespace oru::bench {
namespace {

/// The folder with a file of so many keys.
const Folder &ofKeys(int keys)
{
    static std::map<int, std::unique_ptr<Folder>> folders;
    std::unique_ptr<Folder> &folder = folders[keys];
    if (folder == nullptr) folder = std::make_unique<Folder>("/dev/shm", keys);
    return *folder;
}

/// Loads the file, lets `work` at it, and frees it.
template <class Work>
void withFile(benchmark::State &state, Work work)
{
    ofKeys(static_cast<int>(state.range(0))).use();
    for (auto _ : state) {
        OruAsfDict *dict = nullptr;
        if (oruAsfDictCreate(&dict, "/var/wsmDefaults") != 0) return state.SkipWithError("load");
        if (!work(dict)) state.SkipWithError("work");
        oruAsfDictFree(dict);
    }
}

void readMany(benchmark::State &state, int count)
{
    const int keys = static_cast<int>(state.range(0));
    const int step = keys > 1000 ? keys / 27 + 1 : 37; // every part of the file gets its turn
    int i = 0;
    withFile(state, [&](OruAsfDict *dict) {
        bool read = true;
        for (int k = 0; k < count; ++k, i = (i + step) % keys) {
            int32_t value = 0;
            read &= oruAsfDictGetInt(dict, keyAt(i), &value, 0) == 0;
            benchmark::DoNotOptimize(value);
        }
        return read;
    });
}

void GrowReadOne(benchmark::State &state)
{
    readMany(state, 1);
}

void GrowReadTwenty(benchmark::State &state)
{
    readMany(state, kTwenty);
}

void GrowChangeOne(benchmark::State &state)
{
    const char *key = keyAt(static_cast<int>(state.range(0) / 2));
    bool turn = false;
    withFile(state, [&](OruAsfDict *dict) {
        turn = !turn;
        return oruAsfDictSetString(dict, key, turn ? "10001" : "10002") == 0 &&
               oruAsfDictSave(dict, "/var/wsmDefaults") == 0;
    });
}

void GrowVisit(benchmark::State &state)
{
    withFile(state, [&](OruAsfDict *dict) {
        const auto visit = [](void *, const char *key, const char *) {
            benchmark::DoNotOptimize(key);
            return 0;
        };
        return oruAsfDictVisit(dict, visit, nullptr) == 0;
    });
}

void everySize(benchmark::internal::Benchmark *job)
{
    for (const int keys : kGrowth) job->Arg(keys);
}

BENCHMARK(GrowReadOne)->Apply(everySize);
BENCHMARK(GrowReadTwenty)->Apply(everySize);
BENCHMARK(GrowChangeOne)->Apply(everySize);
BENCHMARK(GrowVisit)->Apply(everySize);

} // namespace
} // namespace oru::bench
