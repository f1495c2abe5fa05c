// LMDB: opens the environment read-only and gets one setting in a transaction.
#include "peers/files.hpp"

#include <benchmark/benchmark.h>
#include <lmdb.h>

#include <cstring>

namespace oru::bench {
namespace {

MDB_val bytesOf(const char *text)
{
    return {std::strlen(text), const_cast<char *>(text)};
}

std::string makeEnvironment()
{
    std::string path = memory().root() + "/settings.mdb";
    MDB_env *env = nullptr;
    MDB_txn *change = nullptr;
    MDB_dbi base = 0;
    mdb_env_create(&env);
    mdb_env_open(env, path.c_str(), MDB_NOSUBDIR, 0600);
    mdb_txn_begin(env, nullptr, 0, &change);
    mdb_dbi_open(change, nullptr, 0, &base);
    for (int i = 0; i < kKeys; ++i) {
        const std::string text = std::to_string(valueAt(i));
        MDB_val key = bytesOf(keyAt(i));
        MDB_val value = bytesOf(text.c_str());
        mdb_put(change, base, &key, &value, 0);
    }
    mdb_txn_commit(change);
    mdb_env_close(env);
    return path;
}

int readOne(const char *path, const char *name)
{
    MDB_env *env = nullptr;
    MDB_txn *look = nullptr;
    MDB_dbi base = 0;
    MDB_val key = bytesOf(name);
    MDB_val value{};
    int number = -1;
    mdb_env_create(&env);
    if (mdb_env_open(env, path, MDB_NOSUBDIR | MDB_RDONLY, 0600) == 0 &&
        mdb_txn_begin(env, nullptr, MDB_RDONLY, &look) == 0) {
        if (mdb_dbi_open(look, nullptr, 0, &base) == 0 && mdb_get(look, base, &key, &value) == 0)
            number =
                std::atoi(std::string(static_cast<char *>(value.mv_data), value.mv_size).c_str());
        mdb_txn_abort(look);
    }
    mdb_env_close(env);
    return number;
}

void ReadOneLmdb(benchmark::State &state)
{
    static const std::string path = makeEnvironment();
    readEach(state, [](int i) { return readOne(path.c_str(), keyAt(i)); });
}

BENCHMARK(ReadOneLmdb);

} // namespace
} // namespace oru::bench
