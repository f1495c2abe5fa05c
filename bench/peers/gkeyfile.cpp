// GLib's GKeyFile: loads the file and reads one number of its group.
#include "peers/files.hpp"

#include <benchmark/benchmark.h>
#include <glib.h>

namespace oru::bench {
namespace {

int readOne(const char *path, const char *key)
{
    GKeyFile *file = g_key_file_new();
    int value = -1;
    if (g_key_file_load_from_file(file, path, G_KEY_FILE_NONE, nullptr) != FALSE)
        value = g_key_file_get_integer(file, "settings", key, nullptr);
    g_key_file_free(file);
    return value;
}

void ReadOneGKeyFile(benchmark::State &state)
{
    static const std::string path = makeFile("settings.keyfile", "[settings]\n", "%s=%d\n");
    readEach(state, [](int i) { return readOne(path.c_str(), keyAt(i)); });
}

BENCHMARK(ReadOneGKeyFile);

} // namespace
} // namespace oru::bench
