// Settings in the formats of the peers.
#pragma once

#include "folder.hpp"

#include <cstdio>
#include <string>

namespace oru::bench {

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
