// Hostile texts through every operation that takes or gives a text.
#include "host/host_program.hpp"
#include "oruAsf.h"
#include "values/setters.hpp"
#include "values/texts.hpp"

#include <gmock/gmock.h>

#include <regex>

using namespace oru::test;

namespace {

constexpr const char *kWsm = kFiles[0];
constexpr const char *kAa = kFiles[1];

/// A text as C sees it.
string ofC(const string &text)
{
    return text.c_str();
}

/// A text as it stands in a log line, which has no line feeds at its end.
string escaped(const string &text)
{
    string shown;
    for (const char byte : text.substr(0, text.find_last_not_of('\n') + 1)) {
        char hex[8];
        const auto number = static_cast<unsigned char>(byte);
        std::snprintf(hex, sizeof hex, "\\x%02x", number);
        shown += number < 0x20 || number == 0x7f ? string{hex} : string{byte};
    }
    return shown;
}

std::vector<string> linesOf(const string &text)
{
    std::vector<string> lines;
    std::istringstream stream{text};
    for (string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

/// Keys that an operation may change. The answers are kept: an expression is slow, and asked often.
class Keys {
public:
    explicit Keys(const string &expression) : expression_(expression) {}

    [[nodiscard]] bool match(const string &key)
    {
        const auto known = known_.find(key);
        if (known != known_.end()) return known->second;
        return known_[key] = std::regex_match(key, expression_);
    }

    /// The lines of a file that do not set one of them.
    std::vector<string> linesBeside(const string &text)
    {
        std::vector<string> lines = linesOf(text);
        std::erase_if(lines,
                      [&](const string &line) { return match(line.substr(0, line.find('='))); });
        return lines;
    }

private:
    std::regex expression_;
    std::map<string, bool> known_;
};

/// The value of a key as it reads.
std::optional<string> stored(const string &file, const string &key)
{
    OruAsfDict *dict = nullptr;
    const char *value = nullptr;
    if (oruAsfDictCreate(&dict, file.c_str()) != 0) return {};
    oruAsfDictGetString(dict, key.c_str(), &value, 0);
    std::optional<string> found;
    if (value != nullptr) found = value;
    oruAsfDictFree(dict);
    return found;
}

class HostileTexts : public HostProgram {
protected:
    /// Lines at the end count more than earlier ones of the same key.
    std::map<string, string> prepare(const string &settings) const
    {
        restore();
        if (!settings.empty()) box.write(kAa, fresh.at(kAa) + settings);
        return outcomeOf(0).files;
    }

    /// A line for each thing that was said, nothing else in it.
    void expectWholeLog(const string &log) const
    {
        static const std::regex line{R"(oruSdkAppsIf:\d+: (error|warning|info): .*)"};
        for (const string &one : linesOf(log)) {
            EXPECT_TRUE(std::regex_match(one.substr(0, 60), line)) << one.substr(0, 200);
            for (const char byte : one)
                EXPECT_FALSE((byte >= 0 && byte < 0x20) || byte == 0x7f) << one.substr(0, 200);
        }
    }

    void expectKept(const TextSetter &row, const string &text) const
    {
        const string kept = row.kept ? row.kept(ofC(text)) : ofC(text);
        if (!row.key.empty()) {
            EXPECT_EQ(stored(row.file, row.key), kept);
        }
        if (row.get) {
            EXPECT_EQ(row.get(), kept);
        }
    }

    void check(const TextSetter &row, Keys &keys, const string &text)
    {
        const std::map<string, string> before = prepare(row.settings);
        const uint32_t code = row.set(text);
        const Outcome after = outcomeOf(0);
        if (code != 0) {
            EXPECT_EQ(after.files, before) << "refused: " << code;
            ++refused;
        } else {
            for (const auto &[path, now] : after.files)
                if (now != before.at(path)) {
                    EXPECT_EQ(keys.linesBeside(now), keys.linesBeside(before.at(path))) << path;
                }
            expectKept(row, text);
            ++taken;
        }
        expectWholeLog(after.log);
        if (code != 0 && !row.logged.empty() && text.size() < 8000 &&
            after.log.find(row.logged) != string::npos) {
            EXPECT_NE(after.log.find(row.logged + escaped(ofC(text))), string::npos) << after.log;
            ++inLog;
        }
    }

    size_t taken = 0;
    size_t refused = 0;
    size_t inLog = 0;
};

/// Names of the parameters, and of the fields of records, that are texts, by operation.
std::set<string> textsOfTheHeader()
{
    const string header = std::regex_replace(readAll(ORU_SOURCE_DIR "/include/oruSdk.h"),
                                             std::regex{R"(/\*\*<[^/]*/)"}, "");
    std::map<string, std::vector<string>> records;
    string record;
    const std::regex field{R"(^\s+char \*?(\w+)(\[\d+\])?;)"};
    const std::regex start{R"(^typedef struct (\w+) \{)"};
    std::set<string> found;
    string declaration;
    for (const string &line : linesOf(header)) {
        std::smatch match;
        if (std::regex_search(line, match, start)) record = match[1];
        else if (std::regex_search(line, match, field)) records[record].push_back(match[1]);
        if (line.rfind("ORUSDK_API", 0) == 0) declaration.clear();
        declaration += line + " ";
        if (line.empty() || line.back() != ';' || declaration.rfind("ORUSDK_API", 0) != 0) continue;

        if (!std::regex_search(declaration, match, std::regex{R"((\w+)\((.*)\);)"})) continue;
        const string name = match[1];
        const string parameters = match[2];
        const std::regex text{R"((?:const char \*|char \*\*)(\w+))"};
        for (std::sregex_iterator at{parameters.begin(), parameters.end(), text}, end; at != end;
             ++at)
            found.insert(name + "." + string{(*at)[1]});
        if (name.rfind("oruSdkSet", 0) == 0)
            for (const auto &[type, fields] : records)
                if (parameters.find(type + " *") != string::npos)
                    for (const string &one : fields) found.insert(name + "." + one);
        declaration.clear();
    }
    return found;
}

} // namespace

TEST_F(HostileTexts, EveryTextThatTheHeaderTakesIsInTheTable)
{
    std::set<string> listed;
    for (const TextSetter &row : textSetters()) listed.insert(row.name);
    EXPECT_EQ(listed, textsOfTheHeader());
    EXPECT_GT(listed.size(), 15U);
    EXPECT_GE(hostileTexts().size(), 200U);
}

TEST_F(HostileTexts, TortureTextsAreRefusedOrStoredAsTheyAreAndNowhereElse)
{
    const auto texts = sampledTexts(9);
    for (const TextSetter &row : textSetters()) {
        Keys keys{row.keys};
        for (const string &text : texts) {
            SCOPED_TRACE(row.name + " of " + escaped(text.substr(0, 80)));
            check(row, keys, text);
        }
    }
    std::printf("torture: hostile texts, set: %zu operations, %zu runs, %zu taken, %zu refused\n",
                textSetters().size(), textSetters().size() * texts.size(), taken, refused);
    EXPECT_GT(refused, 50U);
    EXPECT_GT(inLog, 10U);
}

TEST_F(HostileTexts, TortureStoredTextsFitWhereTheHeaderPromises)
{
    size_t runs = 0;
    size_t given = 0;
    for (const TextGetter &row : textGetters())
        for (const string &text : sampledTexts(9))
            for (const bool raw : {true, false}) {
                SCOPED_TRACE(row.name + ", " + row.key + " of " + escaped(text.substr(0, 80)));
                restore();
                box.write(kAa, fresh.at(kAa) + row.settings);
                if (raw) {
                    const string before = box.read(row.file);
                    box.write(row.file, before + row.key + "=" + ofC(text) + "\n");
                } else {
                    box.set(row.file.c_str(), row.key.c_str(), text.c_str());
                }
                const Outcome before = outcomeOf(0);
                uint32_t code = 0;
                EXPECT_TRUE(row.get(code));
                const Outcome after = outcomeOf(0);
                EXPECT_EQ(after.files, before.files);
                expectWholeLog(after.log);
                given += code == 0 ? 1 : 0;
                ++runs;
            }
    std::printf("torture: hostile texts, stored: %zu runs, %zu given\n", runs, given);
    EXPECT_GT(given, runs / 4);
}

TEST_F(HostileTexts, NothingReachesTheShellOfAReset)
{
    const string folder = box.at("/$(touch pwned);'\"`touch pwned` %s%n");
    const string root = box.root();
    for (const char *part : {"/var", "/config"}) fs::create_directories(folder + part);
    for (const char *path : kFiles) fs::copy_file(box.at(path), folder + path);
    for (const char *path : {kWsm, kAa}) std::ofstream{folder + path} << "changed=1\n";
    ::setenv("ORU_ROOT", folder.c_str(), 1);
    EXPECT_EQ(oruSdkResetToDefaults(), 0U);
    ::setenv("ORU_ROOT", root.c_str(), 1);
    for (const char *path : {kWsm, kAa}) EXPECT_EQ(readAll(folder + path), fresh.at(path));
    EXPECT_FALSE(fs::exists("pwned"));
}
