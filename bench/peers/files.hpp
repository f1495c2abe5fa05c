// Settings in the formats of the peers, and the loop that reads one after another.
#pragma once

#include "folder.hpp"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>

namespace oru::bench {

/// Times read(i), which opens what holds the settings, reads the i-th one and closes it.
template <class Read>
void readEach(benchmark::State &state, Read read)
{
    int i = 0;
    for (auto _ : state) {
        if (read(i) != valueAt(i)) return state.SkipWithError("read");
        i = next(i, kKeys);
    }
}

/// A file of 1000 settings: `head`, and for each a line by `format`, which takes key and value.
inline std::string makeFile(const char *name, const char *head, const char *format)
{
    std::string path = memory().root() + "/" + name;
    std::FILE *file = std::fopen(path.c_str(), "w");
    if (file == nullptr) return path;
    std::fputs(head, file);
    char line[128];
    for (int i = 0; i < kKeys; ++i) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
        std::snprintf(line, sizeof line, format, keyAt(i), valueAt(i));
#pragma GCC diagnostic pop
        std::fputs(line, file);
    }
    std::fclose(file);
    return path;
}

} // namespace oru::bench
