// The same jobs on files of 100 to 100,000 keys, and access lists of 4 to 256 entries.
#include "folder.hpp"
#include "oruAsf.h"
#include "oruSdk.h"
#include "rows.hpp"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <memory>
#include <vector>

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

/// Every key, one by one, and one save.
void GrowChangeEvery(benchmark::State &state)
{
    const int keys = static_cast<int>(state.range(0));
    bool turn = false;
    withFile(state, [&](OruAsfDict *dict) {
        turn = !turn;
        bool set = true;
        for (int i = 0; i < keys; ++i)
            set &= oruAsfDictSetString(dict, keyAt(i), turn ? "10001" : "10002") == 0;
        return set && oruAsfDictSave(dict, "/var/wsmDefaults") == 0;
    });
}

constexpr int kAclEntries = 256; // the longest list

/// One of two lists that have no address in common.
const char *aclList(int list)
{
    constexpr size_t kField = 18;
    static const std::vector<char> lists = [] {
        std::vector<char> all(2 * kAclEntries * kField);
        for (unsigned i = 0; i < 2 * kAclEntries; ++i)
            std::snprintf(&all[i * kField], kField, "00:11:22:33:%02x:%02x", i / kAclEntries,
                          i % kAclEntries);
        return all;
    }();
    return &lists[static_cast<size_t>(list) * kAclEntries * kField];
}

/// Access lists of so many addresses, each list different from the one before; with the longest
/// list the file holds 1000 keys.
void GrowAclList(benchmark::State &state)
{
    static const Folder own("/dev/shm", kKeys - kAclEntries - 2);
    own.use();
    const int32_t count = static_cast<int32_t>(state.range(0));
    uint32_t mode = 1;
    int list = 0;
    for (auto _ : state)
        if (oruSdkSetMacAclList(&mode, &count, aclList(list ^= 1)) != 0)
            return state.SkipWithError("set");
}

void everyFile(benchmark::internal::Benchmark *job)
{
    for (const int keys : fileGrowth().sizes) job->Arg(keys);
}

void everyList(benchmark::internal::Benchmark *job)
{
    for (const int entries : listGrowth().sizes) job->Arg(entries);
}

BENCHMARK(GrowReadOne)->Apply(everyFile);
BENCHMARK(GrowReadTwenty)->Apply(everyFile);
BENCHMARK(GrowChangeOne)->Apply(everyFile);
BENCHMARK(GrowChangeEvery)->Apply(everyFile);
BENCHMARK(GrowVisit)->Apply(everyFile);
BENCHMARK(GrowAclList)->Apply(everyList);

} // namespace
} // namespace oru::bench
