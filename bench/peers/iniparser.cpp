// iniparser: loads the file and reads one number of its section.
#include "peers/files.hpp"

#include <benchmark/benchmark.h>
#include <iniparser.h>

namespace oru::bench {
namespace {

int readOne(const char *path, const char *key)
{
    dictionary *file = iniparser_load(path);
    const int value = iniparser_getint(file, key, -1);
    iniparser_freedict(file);
    return value;
}

void ReadOneIniparser(benchmark::State &state)
{
    static const std::string path = makeFile("settings.ini", "[settings]\n", "%s=%d\n");
    int i = 0;
    for (auto _ : state) {
        const std::string key = std::string("settings:") + keyAt(i);
        if (readOne(path.c_str(), key.c_str()) != valueAt(i)) return state.SkipWithError("read");
        i = next(i, kKeys);
    }
}

BENCHMARK(ReadOneIniparser);

} // namespace
} // namespace oru::bench
