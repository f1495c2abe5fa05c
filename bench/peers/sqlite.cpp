// SQLite: opens the database read-only, prepares a statement and reads one setting by its key.
#include "peers/files.hpp"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace oru::bench {
namespace {

/// The settings in a table with its key as the primary key.
std::string makeDatabase()
{
    std::string path = memory().root() + "/settings.sqlite";
    std::string script = "begin; create table setting (key text primary key, value int) "
                         "without rowid;";
    for (int i = 0; i < kKeys; ++i)
        script += "insert into setting values ('" + std::string(keyAt(i)) + "', " +
                  std::to_string(valueAt(i)) + ");";
    sqlite3 *base = nullptr;
    sqlite3_open(path.c_str(), &base);
    sqlite3_exec(base, (script + "commit;").c_str(), nullptr, nullptr, nullptr);
    sqlite3_close(base);
    return path;
}

int readOne(const char *path, const char *key)
{
    sqlite3 *base = nullptr;
    sqlite3_stmt *query = nullptr;
    int value = -1;
    sqlite3_open_v2(path, &base, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr);
    sqlite3_prepare_v2(base, "select value from setting where key = ?", -1, &query, nullptr);
    sqlite3_bind_text(query, 1, key, -1, SQLITE_STATIC);
    if (sqlite3_step(query) == SQLITE_ROW) value = sqlite3_column_int(query, 0);
    sqlite3_finalize(query);
    sqlite3_close(base);
    return value;
}

void ReadOneSqlite(benchmark::State &state)
{
    static const std::string path = makeDatabase();
    readEach(state, [](int i) { return readOne(path.c_str(), keyAt(i)); });
}

BENCHMARK(ReadOneSqlite);

} // namespace
} // namespace oru::bench
