// libconfig: parses the file and looks one number up. Its names have no dots.
#include "peers/files.hpp"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <libconfig.h>
#include <vector>

namespace oru::bench {
namespace {

std::string undotted(std::string name)
{
    std::replace(name.begin(), name.end(), '.', '_');
    return name;
}

std::string makeConfiguration()
{
    std::string path = memory().root() + "/settings.cfg";
    std::FILE *file = std::fopen(path.c_str(), "w");
    if (file == nullptr) return path;
    for (int i = 0; i < kKeys; ++i)
        std::fprintf(file, "%s=%d;\n", undotted(keyAt(i)).c_str(), valueAt(i));
    std::fclose(file);
    return path;
}

int readOne(const char *path, const char *key)
{
    config_t file;
    int value = -1;
    config_init(&file);
    if (config_read_file(&file, path) == CONFIG_TRUE) config_lookup_int(&file, key, &value);
    config_destroy(&file);
    return value;
}

void ReadOneLibconfig(benchmark::State &state)
{
    static const std::string path = makeConfiguration();
    std::vector<std::string> keys;
    for (int i = 0; i < kKeys; ++i) keys.push_back(undotted(keyAt(i)));
    readEach(state, [&keys](int i) {
        return readOne(path.c_str(), keys[static_cast<size_t>(i)].c_str());
    });
}

BENCHMARK(ReadOneLibconfig);

} // namespace
} // namespace oru::bench
