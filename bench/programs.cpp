#include "programs.hpp"

#include "folder.hpp"

#include <cstdio>
#include <cstring>
#include <fstream>

namespace oru::bench {
namespace {

/// What a shell command prints to both its streams.
std::string outputOf(const std::string &command)
{
    std::string text;
    std::FILE *out = ::popen((command + " 2>&1").c_str(), "r");
    if (out == nullptr) return text;
    char piece[512];
    while (std::fgets(piece, sizeof piece, out) != nullptr) text += piece;
    ::pclose(out);
    return text;
}

/// The instructions of a command that must print `answer`; -1 when it can't be counted.
int64_t countInstructions(const std::string &command, const char *answer)
{
    const std::string text = outputOf(
        "ORU_LOG=none valgrind --tool=callgrind --callgrind-out-file=/dev/null " + command);
    const char *collected = std::strstr(text.c_str(), "Collected : ");
    if (collected == nullptr || text.find(answer) == std::string::npos) return -1;
    return std::atoll(collected + std::strlen("Collected : "));
}

/// The settings as the other programs read them. Each holds as many as the file of the library.
std::string makeJson()
{
    std::string path = memory().root() + "/program.json";
    std::ofstream file(path);
    file << "{\n";
    for (int i = 0; i < kKeys; ++i) file << "\"" << keyAt(i) << "\": " << valueAt(i) << ",\n";
    file << "\"mimoFlag\": 1\n}\n";
    return path;
}

std::string makeGitConfiguration()
{
    std::string path = memory().root() + "/program.gitconfig";
    std::ofstream file(path);
    for (int radio = 0; radio < 2; ++radio) {
        file << "[radio" << radio << "]\n";
        for (int i = radio; i < kKeys; i += 2)
            file << "\t" << std::strchr(keyAt(i), '.') + 1 << " = " << valueAt(i) << "\n";
    }
    file << "[wsm]\n\tmimoFlag = 1\n";
    return path;
}

std::string makeDatabase()
{
    std::string path = memory().root() + "/program.sqlite";
    const std::string script = memory().root() + "/program.sql";
    {
        std::ofstream file(script);
        file << "begin; create table setting (key text primary key, value int) without rowid;\n";
        for (int i = 0; i < kKeys; ++i)
            file << "insert into setting values ('" << keyAt(i) << "', " << valueAt(i) << ");\n";
        file << "insert into setting values ('mimoFlag', 1); commit;\n";
    }
    outputOf("sqlite3 " + path + " <" + script);
    return path;
}

} // namespace

std::vector<Program> countPrograms()
{
    memory().use();
    std::vector<Program> all = {{"an empty program", countInstructions(ORU_BENCH_EMPTY, "")}};
#if defined(ORU_BENCH_ORUCTL)
    all.push_back(
        {"oructl get mimo 0", countInstructions(ORU_BENCH_ORUCTL " get mimo 0", "mimo[0] = ")});
#endif
    all.push_back(
        {"git config -f",
         countInstructions("git config -f " + makeGitConfiguration() + " wsm.mimoFlag", "\n1\n")});
    all.push_back({"jq", countInstructions("jq .mimoFlag " + makeJson(), "\n1\n")});
    all.push_back(
        {"sqlite3", countInstructions("sqlite3 -readonly " + makeDatabase() +
                                          " \"select value from setting where key = 'mimoFlag'\"",
                                      "\n1\n")});
    return all;
}

} // namespace oru::bench
