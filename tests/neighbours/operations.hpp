// The operations that talk to services, and where these listen.
#pragma once

#include "oruSdk.h"
#include "support/readers.hpp"

#include <vector>

namespace oru::test {

inline constexpr uint32_t kServicePorts[] = {5000002, 5000003};

struct Talker {
    std::string name;
    std::function<uint32_t()> call;
    Bytes good;               // a reply; none: it waits for none
    std::set<uint32_t> codes; // what it may return, whatever came
    int connections = 1;
};

/// All of them.
inline std::vector<Talker> talkers()
{
    std::vector<Talker> all;
    for (const Reader &reader : readers())
        all.push_back({reader.name, reader.call, reader.good(), reader.codes});
    all.push_back({"CommitRadio", oruSdkCommitRadio, {}, {0}});
    all.push_back({"CommitAll", oruSdkCommitAll, {}, {0}, 2});
    return all;
}

} // namespace oru::test
