#include "rows.hpp"

namespace oru::bench {

const std::vector<Row> &rows()
{
    static constexpr char kRead[] = "read 1 key of 1000: load, read, free (tmpfs)";
    static constexpr char kCold[] = "the same with cold caches";
    static constexpr char kTwenty[] = "read 20 keys of 1000 in one load";
    static constexpr char kAsk[] = "one request with a reply of 100 bytes";
    constexpr auto kAtMost = Sense::atMost;
    constexpr auto kFaster = Sense::faster;
    static const std::vector<Row> all = {
        {kRead, "system calls and a search", "ReadOne", "ReadOneFloor", kAtMost, 1.4},
        {kRead, "LMDB", "ReadOne", "ReadOneLmdb", kFaster, 3},
        {kRead, "SQLite", "ReadOne", "ReadOneSqlite", kFaster, 10},
        {kRead, "GKeyFile", "ReadOne", "ReadOneGKeyFile", kFaster, 50},
        {kRead, "iniparser", "ReadOne", "ReadOneIniparser", kFaster, 100},
        {kRead, "libconfig", "ReadOne", "ReadOneLibconfig", kFaster, 100},
        {kCold, "system calls and a search", "ReadOneCold", "ReadOneColdFloor", kAtMost, 1.25},
        {kTwenty, "20 searches", "ReadTwenty", "ReadTwentyFloor", kAtMost, 0.6},
        {"the same without SIMD", "20 searches", "ReadTwentyPortable", "ReadTwentyFloor", kAtMost,
         0.8},
        {"oruSdkGetMimo, whole call", "system calls and a search", "GetMimo", "ReadOneFloor",
         kAtMost, 1.6},
        {"change 1 key of 1000, durably (disk)", "write, sync, rename, sync", "ChangeOneDisk",
         "ChangeOneDiskFloor", kAtMost, 1.1},
        {"the same on tmpfs", "write, sync, rename, sync", "ChangeOneMemory",
         "ChangeOneMemoryFloor", kAtMost, 1.6},
        {"a setter that changes nothing, file at rest", "its getter", "SetSame", "GetMimo", kAtMost,
         1.5},
        {"oruSdkSetMacAclList, 256 entries", "a setter of one key", "GrowAclList/256", "SetMimo",
         kAtMost, 4},
        {kAsk, "a bare socket", "AskBssList", "AskFloor", kAtMost, 1.2},
        {kAsk, "sd-bus, peer to peer", "AskBssList", "AskSdBus", kFaster, 2.5},
        {kAsk, "D-Bus through its daemon", "AskBssList", "AskDBus", kFaster, 10},
    };
    return all;
}

const GrowthTable &fileGrowth()
{
    static const GrowthTable table = {"keys",
                                      {100, 1000, 10000, 100000},
                                      1,
                                      3,
                                      {{"read 1 key", "GrowReadOne"},
                                       {"read 20 keys", "GrowReadTwenty"},
                                       {"change 1 key", "GrowChangeOne"},
                                       {"change every key", "GrowChangeEvery"},
                                       {"visit every key", "GrowVisit"}}};
    return table;
}

const GrowthTable &listGrowth()
{
    constexpr double kNLogN = 8.0 / 6.0; // log 256 / log 64
    static const GrowthTable table = {
        "entries", {4, 16, 64, 256}, 2, kNLogN, {{"oruSdkSetMacAclList", "GrowAclList"}}};
    return table;
}

} // namespace oru::bench
