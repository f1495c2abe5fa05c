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
    readEach(state, [](int i) {
        return readOne(path.c_str(), (std::string("settings:") + keyAt(i)).c_str());
    });
}

BENCHMARK(ReadOneIniparser);

} // namespace
} // namespace oru::bench
