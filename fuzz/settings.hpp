// Dictionaries as the targets look at them.
#pragma once

#include "fuzz.hpp"
#include "oruAsf.h"

#include <map>
#include <memory>
#include <string>

namespace oru::fuzz {

using Settings = std::map<std::string, std::string>;
using Dict = std::unique_ptr<OruAsfDict, void (*)(OruAsfDict *)>;

inline constexpr char kDamaged[] = "damaged";

inline Dict load(const char *path)
{
    OruAsfDict *dict = nullptr;
    MUST(oruAsfDictCreate(&dict, path) == 0);
    return {dict, oruAsfDictFree};
}

/// Every key with "=" and its value, or with kDamaged.
inline Settings settings(OruAsfDict *dict)
{
    Settings all;
    const auto visit = [](void *context, const char *key, const char *value) {
        auto &found = *static_cast<Settings *>(context);
        MUST(found.emplace(key, value == nullptr ? kDamaged : std::string{"="} + value).second);
        return 0;
    };
    MUST(oruAsfDictVisit(dict, visit, &all) == 0);
    return all;
}

/// Cuts the bytes up to a NUL off.
inline std::string take(std::string &bytes)
{
    const size_t end = bytes.find('\0');
    std::string head = bytes.substr(0, end);
    bytes = end == std::string::npos ? "" : bytes.substr(end + 1);
    return head;
}

} // namespace oru::fuzz
