// Dictionaries, through their operations.
#include "asf/child.hpp"
#include "asf/samehash.hpp"
#include "oruAsf.h"
#include "support/tempdir.hpp"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <sys/stat.h>
#include <vector>

using namespace oru::test;
using std::optional;
using std::string;

// That saves are synced has tests of its own; the thousands of this file need not wait for a disk.
extern "C" int fsync(int)
{
    return 0;
}

namespace {

constexpr const char *kFile = "/config";

struct Free {
    void operator()(OruAsfDict *dict) const { oruAsfDictFree(dict); }
};
using Dict = std::unique_ptr<OruAsfDict, Free>;

Dict load(const char *path = kFile)
{
    OruAsfDict *dict = nullptr;
    oruAsfDictCreate(&dict, path);
    return Dict{dict};
}

/// The value that both text reads give; they must agree.
optional<string> textOf(const Dict &dict, const string &key)
{
    const char *plain = nullptr;
    const char *delimited = nullptr;
    const int32_t status = oruAsfDictGetString(dict.get(), key.c_str(), &plain, 0);
    const int32_t length = oruAsfDictGetDelimitedString(dict.get(), key.c_str(), &delimited, 0);
    EXPECT_EQ(length < 0, plain == nullptr) << key;
    if (plain == nullptr || delimited == nullptr) return {};
    EXPECT_EQ(status, 0);
    EXPECT_STREQ(plain, delimited);
    EXPECT_EQ(length, static_cast<int32_t>(string{plain}.size()));
    return plain;
}

class Dictionary : public ::testing::Test {
protected:
    /// A dictionary of a text.
    Dict dictOf(const string &text)
    {
        box.write(kFile, text);
        Dict dict = load();
        EXPECT_NE(dict, nullptr);
        return dict;
    }

    /// The file after a few changes of it; nullptr deletes.
    string changed(const string &text,
                   const std::vector<std::pair<const char *, const char *>> &changes)
    {
        const Dict dict = dictOf(text);
        for (const auto &[key, value] : changes)
            EXPECT_EQ(oruAsfDictSetString(dict.get(), key, value), 0) << key;
        EXPECT_EQ(oruAsfDictSave(dict.get(), kFile), 0);
        return box.read(kFile);
    }

    TempDir box;
};

using DictionaryLoad = Dictionary;
using DictionaryNumber = Dictionary;
using DictionaryText = Dictionary;
using DictionaryKey = Dictionary;
using DictionarySave = Dictionary;
using DictionaryVisit = Dictionary;

/// Four changes are looked up one by one, more in one walk through the lines: the changes of keys
/// that are absent, and stay so, make more of them.
const std::vector<std::pair<const char *, const char *>> kMore = {
    {"absent1", nullptr}, {"absent2", nullptr}, {"absent3", nullptr}, {"absent4", nullptr}};

} // namespace

TEST_F(DictionaryLoad, TakesAnEmptyFileForAnEmptyDictionary)
{
    const Dict dict = dictOf("");
    EXPECT_FALSE(textOf(dict, "a"));
    EXPECT_EQ(oruAsfDictSave(dict.get(), kFile), 0);
    EXPECT_EQ(box.read(kFile), "");
}

TEST_F(DictionaryLoad, FailsAndLeavesTheHandleAlone)
{
    box.write("/nul", string{"a=1\nb=\0\n", 8});
    box.write("/nulAtEnd", string{"a=1\n\0", 5});
    box.write("/large", string(ORUASF_DICT_MAX_BYTES - 3, '\n') + "a=1\n");
    ::mkdir(box.at("/folder").c_str(), 0755);
    ::mkfifo(box.at("/fifo").c_str(), 0600);
    ::symlink("loop", box.at("/loop").c_str());
    ::symlink("nowhere", box.at("/dangling").c_str());
    const struct {
        const char *path;
        const char *reason;
    } rows[] = {
        {"/missing", "missing"},
        {"/missing/file", "missing folder"},
        {"/nul", "a NUL byte"},
        {"/nulAtEnd", "a NUL byte at the end"},
        {"/large", "one byte above 4 MiB"},
        {"/folder", "a folder"},
        {"/fifo", "a FIFO"},
        {"/loop", "a link to itself"},
        {"/dangling", "a link to nothing"},
        {"", "no path"},
    };
    for (const auto &row : rows) {
        auto *const untouched = reinterpret_cast<OruAsfDict *>(&box);
        OruAsfDict *dict = untouched;
        EXPECT_EQ(oruAsfDictCreate(&dict, row.path), -1) << row.reason;
        EXPECT_EQ(dict, untouched) << row.reason;
    }
}

TEST_F(DictionaryLoad, FailsForAFileThatTheUserMayNotRead)
{
    box.write(kFile, "a=1\n");
    ::chmod(box.at(kFile).c_str(), 0);
    EXPECT_EQ(asPlainUser([] { return load() == nullptr ? 0 : 1; }), 0);
}

TEST_F(DictionaryLoad, TakesAFileOfExactly4MiB)
{
    const Dict dict = dictOf("a=1\n" + string(ORUASF_DICT_MAX_BYTES - 8, '#') + "\nb=2");
    EXPECT_EQ(textOf(dict, "a"), "1");
    EXPECT_EQ(textOf(dict, "b"), "2");
    EXPECT_EQ(textOf(dict, "c"), std::nullopt);
}

TEST_F(DictionaryLoad, FollowsALink)
{
    box.write("/real", "a=1\n");
    ::symlink("real", box.at(kFile).c_str());
    EXPECT_EQ(textOf(load(), "a"), "1");
}

TEST_F(DictionaryLoad, RefusesNullArguments)
{
    const Dict dict = dictOf("a=1\n");
    OruAsfDict *created = nullptr;
    int32_t number = 7;
    const char *text = "untouched";
    EXPECT_EQ(oruAsfDictCreate(nullptr, kFile), -1);
    EXPECT_EQ(oruAsfDictCreate(&created, nullptr), -1);
    EXPECT_EQ(created, nullptr);
    for (OruAsfDict *handle : {dict.get(), static_cast<OruAsfDict *>(nullptr)})
        for (const char *key : {"a", static_cast<const char *>(nullptr)})
            for (const bool output : {false, true}) {
                if (handle != nullptr && key != nullptr && output) continue;
                EXPECT_EQ(oruAsfDictGetInt(handle, key, output ? &number : nullptr, 0), -1);
                EXPECT_EQ(oruAsfDictGetBool(handle, key, output ? &number : nullptr, 0), -1);
                EXPECT_EQ(oruAsfDictGetString(handle, key, output ? &text : nullptr, 0), -1);
                EXPECT_EQ(oruAsfDictGetDelimitedString(handle, key, output ? &text : nullptr, 0),
                          -1);
            }
    EXPECT_EQ(number, 7);
    EXPECT_STREQ(text, "untouched");
    EXPECT_EQ(oruAsfDictSetString(nullptr, "a", "2"), -1);
    EXPECT_EQ(oruAsfDictSetString(dict.get(), nullptr, "2"), -1);
    EXPECT_EQ(oruAsfDictSetDelimitedString(nullptr, "a", "2"), -1);
    EXPECT_EQ(oruAsfDictSetDelimitedString(dict.get(), nullptr, "2"), -1);
    EXPECT_EQ(oruAsfDictSave(nullptr, kFile), -1);
    EXPECT_EQ(oruAsfDictSave(dict.get(), nullptr), -1);
    EXPECT_EQ(oruAsfDictVisit(dict.get(), nullptr, nullptr), -1);
    EXPECT_EQ(oruAsfDictVisit(
                  nullptr, [](void *, const char *, const char *) { return 0; }, nullptr),
              -1);
    oruAsfDictFree(nullptr);
    EXPECT_EQ(box.read(kFile), "a=1\n");
}

TEST_F(DictionaryNumber, IsAWholeDecimalNumberOf32BitsSigned)
{
    const struct {
        const char *written;
        optional<int32_t> number;
        const char *reason;
    } rows[] = {
        {"0", 0, "zero"},
        {"-0", 0, "signed zero"},
        {"7", 7, "one digit"},
        {"-1", -1, "negative"},
        {"00012", 12, "leading zeros"},
        {"-007", -7, "leading zeros behind a sign"},
        {"0000000000000000000000000000001", 1, "many leading zeros"},
        {"2147483647", INT32_MAX, "the largest"},
        {"2147483648", {}, "above the largest"},
        {"-2147483648", INT32_MIN, "the smallest"},
        {"-2147483649", {}, "below the smallest"},
        {"4294967296", {}, "zero if it wrapped"},
        {"18446744073709551616", {}, "zero if it wrapped at 64 bits"},
        {"99999999999999999999999999", {}, "far too large"},
        {"", {}, "empty"},
        {"+1", {}, "a plus sign"},
        {"-", {}, "a sign alone"},
        {"--1", {}, "two signs"},
        {"1-", {}, "a sign behind"},
        {"1x", {}, "trailing text"},
        {"x1", {}, "leading text"},
        {"0x10", {}, "hexadecimal"},
        {"1.0", {}, "a fraction"},
        {"1e3", {}, "an exponent"},
        {" 1", {}, "a blank in front"},
        {"1 ", {}, "a blank behind"},
        {"1\t", {}, "a tab behind"},
        {"1\r", {}, "a carriage return"},
        {"\"1\"", {}, "delimited"},
        {"true", {}, "a boolean"},
        {"\xd9\xa1", {}, "a digit of another script"},
    };
    for (const auto &row : rows) {
        const Dict dict = dictOf(string{"n="} + row.written + "\n");
        for (const int32_t flag : {0, 1}) {
            int32_t number = 4711;
            EXPECT_EQ(oruAsfDictGetInt(dict.get(), "n", &number, flag), row.number ? 0 : -1)
                << row.reason;
            EXPECT_EQ(number, row.number.value_or(4711)) << row.reason;
        }
    }
}

TEST_F(DictionaryNumber, IsABooleanWhenItIsExactlyTrueOrFalse)
{
    const struct {
        const char *written;
        optional<int32_t> value;
        const char *reason;
    } rows[] = {
        {"true", 1, "true"},      {"false", 0, "false"},         {"", {}, "empty"},
        {"1", {}, "a number"},    {"0", {}, "a number"},         {"TRUE", {}, "case counts"},
        {"True", {}, "case"},     {"true ", {}, "a blank"},      {" true", {}, "a blank"},
        {"tru", {}, "cut"},       {"truee", {}, "longer"},       {"true\r", {}, "CRLF"},
        {"yes", {}, "a synonym"}, {"\"true\"", {}, "delimited"}, {"false\t", {}, "a tab"},
    };
    for (const auto &row : rows) {
        const Dict dict = dictOf(string{"b="} + row.written + "\n");
        int32_t value = 4711;
        EXPECT_EQ(oruAsfDictGetBool(dict.get(), "b", &value, 0), row.value ? 0 : -1) << row.reason;
        EXPECT_EQ(value, row.value.value_or(4711)) << row.reason;
    }
}

TEST_F(DictionaryNumber, OfAnAbsentKeyFails)
{
    const Dict dict = dictOf("a=1\n");
    int32_t number = 4711;
    EXPECT_EQ(oruAsfDictGetInt(dict.get(), "b", &number, 0), -1);
    EXPECT_EQ(oruAsfDictGetBool(dict.get(), "b", &number, 0), -1);
    EXPECT_EQ(number, 4711);
}

TEST_F(DictionaryText, OfAnAbsentKeyLeavesTheOutputAlone)
{
    const Dict dict = dictOf("a=1\nb\n");
    for (const char *key : {"b", "c", "", "a=1", "A"}) {
        const char *text = "untouched";
        EXPECT_EQ(oruAsfDictGetString(dict.get(), key, &text, 0), 0) << key;
        EXPECT_STREQ(text, "untouched") << key;
        EXPECT_EQ(oruAsfDictGetDelimitedString(dict.get(), key, &text, 0), -1) << key;
        EXPECT_STREQ(text, "untouched") << key;
    }
}

TEST_F(DictionaryText, ThatIsDamagedFailsAndLeavesTheOutputAlone)
{
    for (const char *written : {"\"", "\"a", "\"a\"b", "\"\\q\"", "\"\\x00\"", "\"a\"\r"}) {
        const Dict dict = dictOf(string{"a="} + written + "\nb=2\n");
        const char *text = "untouched";
        EXPECT_EQ(oruAsfDictGetString(dict.get(), "a", &text, 0), -1) << written;
        EXPECT_EQ(oruAsfDictGetDelimitedString(dict.get(), "a", &text, 0), -1) << written;
        EXPECT_STREQ(text, "untouched") << written;
        EXPECT_EQ(textOf(dict, "b"), "2") << written;
        EXPECT_EQ(oruAsfDictSetString(dict.get(), "b", "3"), 0);
        EXPECT_EQ(oruAsfDictSave(dict.get(), kFile), 0);
        EXPECT_EQ(box.read(kFile), string{"a="} + written + "\nb=3\n") << "it survives a save";
    }
}

TEST_F(DictionaryText, LivesUntilTheDictionaryIsFreed)
{
    const Dict dict = dictOf("a=first\n");
    const char *text = nullptr;
    ASSERT_EQ(oruAsfDictGetString(dict.get(), "a", &text, 0), 0);
    for (int i = 0; i < 1000; ++i) {
        ASSERT_EQ(oruAsfDictSetString(dict.get(), "a", std::to_string(i).c_str()), 0);
        textOf(dict, "a");
    }
    EXPECT_STREQ(text, "first");
}

TEST_F(DictionaryText, OfAnyLengthStandsAmongOthers)
{
    const Dict dict = dictOf("");
    const size_t sizes[] = {0, 1, 7, 100, 4000, 4080, 4090, 4095, 4096, 5000, 1, 100000, 2};
    for (int round = 0; round < 3; ++round) {
        for (const size_t size : sizes)
            EXPECT_EQ(oruAsfDictSetString(dict.get(), ("k" + std::to_string(size)).c_str(),
                                          string(size, static_cast<char>('a' + round)).c_str()),
                      0);
        for (const size_t size : sizes)
            EXPECT_EQ(textOf(dict, "k" + std::to_string(size)),
                      string(size, static_cast<char>('a' + round)));
    }
}

TEST_F(DictionaryText, MayBeSetToWhatWasReadFromTheSameDictionary)
{
    const Dict dict = dictOf("a=first\nb=second\n");
    const char *text = nullptr;
    ASSERT_EQ(oruAsfDictGetString(dict.get(), "a", &text, 0), 0);
    ASSERT_EQ(oruAsfDictSetDelimitedString(dict.get(), "a", text), 0);
    ASSERT_EQ(oruAsfDictGetString(dict.get(), "a", &text, 0), 0);
    ASSERT_EQ(oruAsfDictSetString(dict.get(), "b", text), 0);
    EXPECT_EQ(textOf(dict, "a"), "first");
    EXPECT_EQ(textOf(dict, "b"), "first");
}

TEST_F(DictionaryKey, ThatCouldNotBeReadBackIsRefusedAndChangesNothing)
{
    const string text = "a=1\n# a comment\nb=2\n";
    std::vector<string> refused = {"",   "=",           "a=",  "=a", "a=1\nb", "a\n",
                                   "#a", "# a comment", "a b", " a", "a "};
    for (char byte = 1; byte < 0x20; ++byte) refused.push_back(string{"a"} + byte);
    refused.emplace_back("a\x7f");
    const Dict dict = dictOf(text);
    for (const string &key : refused) {
        EXPECT_EQ(oruAsfDictSetString(dict.get(), key.c_str(), "9"), -1) << key;
        EXPECT_EQ(oruAsfDictSetDelimitedString(dict.get(), key.c_str(), "9"), -1) << key;
        EXPECT_EQ(oruAsfDictSetString(dict.get(), key.c_str(), nullptr), -1) << key;
        EXPECT_EQ(textOf(dict, key), std::nullopt) << key;
    }
    EXPECT_EQ(oruAsfDictSave(dict.get(), kFile), 0);
    EXPECT_EQ(box.read(kFile), text);
}

TEST_F(DictionaryKey, IsNotTakenForAnotherOfTheSameHash)
{
    for (const auto &[one, other] : kSameHash)
        for (const bool many : {false, true}) {
            const Dict dict = dictOf(string{one} + "=1\n");
            if (many) {
                for (const auto &[key, value] : kMore)
                    EXPECT_EQ(oruAsfDictSetString(dict.get(), key, value), 0);
            }
            ASSERT_EQ(oruAsfDictSetString(dict.get(), one, "2"), 0);
            EXPECT_FALSE(textOf(dict, other)) << other;
            ASSERT_EQ(oruAsfDictSetString(dict.get(), other, "3"), 0);
            EXPECT_EQ(textOf(dict, one), "2");
            EXPECT_EQ(textOf(dict, other), "3");
            EXPECT_EQ(oruAsfDictSave(dict.get(), kFile), 0);
            EXPECT_EQ(box.read(kFile), string{one} + "=2\n" + other + "=3\n");
        }
}

TEST_F(DictionaryKey, OfMoreThan4MiBIsRefusedAndSoIsSuchAValue)
{
    const string text = "a=1\n";
    const Dict dict = dictOf(text);
    const string large(ORUASF_DICT_MAX_BYTES + 1, 'k');
    EXPECT_EQ(oruAsfDictSetString(dict.get(), large.c_str(), "9"), -1);
    EXPECT_EQ(oruAsfDictSetDelimitedString(dict.get(), large.c_str(), "9"), -1);
    EXPECT_EQ(oruAsfDictSetString(dict.get(), large.c_str(), nullptr), -1);
    EXPECT_EQ(oruAsfDictSetString(dict.get(), "a", large.c_str()), -1);
    EXPECT_EQ(oruAsfDictSetDelimitedString(dict.get(), "a", large.c_str()), -1);
    EXPECT_EQ(textOf(dict, "a"), "1");
    EXPECT_EQ(oruAsfDictSave(dict.get(), kFile), 0);
    EXPECT_EQ(box.read(kFile), text);
}

TEST_F(DictionaryKey, ThatIsAbsentCanBeDeleted)
{
    const Dict dict = dictOf("a=1\n");
    EXPECT_EQ(oruAsfDictSetString(dict.get(), "b", nullptr), 0);
    EXPECT_EQ(oruAsfDictSetDelimitedString(dict.get(), "c", nullptr), 0);
    EXPECT_EQ(oruAsfDictSave(dict.get(), kFile), 0);
    EXPECT_EQ(box.read(kFile), "a=1\n");
}

TEST_F(DictionaryKey, ThatWasDeletedIsAbsentUntilItIsSetAgain)
{
    const Dict dict = dictOf("a=1\nb=2\n");
    ASSERT_EQ(oruAsfDictSetDelimitedString(dict.get(), "a", nullptr), 0);
    EXPECT_EQ(textOf(dict, "a"), std::nullopt);
    ASSERT_EQ(oruAsfDictSetString(dict.get(), "a", "3"), 0);
    EXPECT_EQ(textOf(dict, "a"), "3");
    EXPECT_EQ(oruAsfDictSave(dict.get(), kFile), 0);
    EXPECT_EQ(box.read(kFile), "a=3\nb=2\n");
}

TEST_F(DictionarySave, PutsOnlyTheChangedLinesElsewise)
{
    const struct {
        const char *before;
        std::vector<std::pair<const char *, const char *>> changes;
        const char *after;
        const char *reason;
    } rows[] = {
        {"", {{"a", "1"}}, "a=1\n", "the first key"},
        {"a=1", {{"b", "2"}}, "a=1\nb=2\n", "behind a line without line feed"},
        {"a=1", {{"a", "2"}}, "a=2", "a line without line feed"},
        {"a=1\nb=2", {{"b", nullptr}}, "a=1\n", "the last line goes"},
        {"a=1\n", {{"a", nullptr}}, "", "the only line goes"},
        {"a=1\nb=2\n",
         {{"c", "3"}, {"d", "4"}},
         "a=1\nb=2\nc=3\nd=4\n",
         "in the order of the sets"},
        {"a=1\nb=2\na=3\n", {}, "a=1\nb=2\na=3\n", "a key that stands twice, not written"},
        {"a=1\nb=2\na=3\n", {{"a", "4"}}, "b=2\na=4\n", "a write leaves one line"},
        {"a=1\nb=2\na=3\n", {{"a", "3"}}, "b=2\na=3\n", "also one of the same value"},
        {"a=1\nb=2\na=3\n", {{"a", nullptr}}, "b=2\n", "a deletion leaves none"},
        {"a=1\na=1\na=1", {{"a", "1"}}, "a=1", "three times in a row"},
        {"a=1\na=2", {{"a", nullptr}}, "", "all lines go"},
        {"b=1\na=2\nb=3\na=4\n", {{"a", "5"}, {"b", "6"}}, "b=6\na=5\n", "two keys, interleaved"},
        {"# a=1\n\n a=2\na\n=3\na=4\n",
         {{"a", "5"}},
         "# a=1\n\n a=2\na\n=3\na=5\n",
         "comments, blank lines and unknown lines"},
        {"a=1\r\nb=2\r\n", {{"b", "3"}}, "a=1\r\nb=3\n", "CRLF lines"},
        {"\n\n\na=1\n\n\n", {{"a", "2"}, {"b", "3"}}, "\n\n\na=2\n\n\nb=3\n", "blank lines"},
        {"a=1\n \t\n", {{"c", "2"}}, "a=1\n \t\nc=2\n", "a line of blanks"},
        {"\x80=\xff\n", {{"a", "1"}}, "\x80=\xff\na=1\n", "bytes above ASCII"},
        {"a=1\n", {{"a", "x\ny=2"}}, "a=\"x\\ny=2\"\n", "a line feed makes no line"},
        {"a=1\n", {{"b", nullptr}, {"b", "2"}}, "a=1\nb=2\n", "deleted, then set"},
        {"a=1\n", {{"b", "2"}, {"b", nullptr}}, "a=1\n", "set, then deleted"},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(changed(row.before, row.changes), row.after) << row.reason;
        auto more = row.changes;
        more.insert(more.begin(), kMore.begin(), kMore.end());
        more.insert(more.end(), kMore.begin(), kMore.end());
        EXPECT_EQ(changed(row.before, more), row.after) << row.reason << ", with many changes";
    }
}

TEST_F(DictionarySave, KeepsTheRestOfALargeFileWhenOneOfManyLinesOfAKeyIsWritten)
{
    string lines;
    while (lines.size() < ORUASF_DICT_MAX_BYTES - 100) lines += "a=1\n";
    EXPECT_EQ(changed("b=1\n" + lines + "c=1\n", {{"a", "2"}}), "b=1\na=2\nc=1\n");
}

TEST_F(DictionarySave, GoesToAnotherFileThanTheOneThatWasLoaded)
{
    const Dict dict = dictOf("a=1\n");
    EXPECT_EQ(oruAsfDictSave(dict.get(), "/other"), 0);
    EXPECT_EQ(box.read("/other"), "a=1\n");
    ASSERT_EQ(oruAsfDictSetString(dict.get(), "a", "2"), 0);
    EXPECT_EQ(oruAsfDictSave(dict.get(), "/other"), 0);
    EXPECT_EQ(box.read("/other"), "a=2\n");
    EXPECT_EQ(box.read(kFile), "a=1\n");
}

TEST_F(DictionarySave, WritesTheWholeDictionaryOverWhatOthersSavedMeanwhile)
{
    const Dict dict = dictOf("a=1\n");
    for (const char *text : {"a=2\n", "", "a=1\nb=2\n"}) { // the first is as long, in place
        box.write(kFile, text);
        EXPECT_EQ(oruAsfDictSave(dict.get(), kFile), 0) << text;
        EXPECT_EQ(box.read(kFile), "a=1\n") << text;
    }
}

TEST_F(DictionarySave, CanBeRepeatedAfterFurtherChanges)
{
    const Dict dict = dictOf("a=1\n");
    for (const char *value : {"2", "1", "1", "3"}) {
        ASSERT_EQ(oruAsfDictSetString(dict.get(), "a", value), 0);
        EXPECT_EQ(oruAsfDictSave(dict.get(), kFile), 0);
        EXPECT_EQ(box.read(kFile), string{"a="} + value + "\n");
    }
}

TEST_F(DictionarySave, TakesExactly4MiBAndNotAByteMore)
{
    const string most(ORUASF_DICT_MAX_BYTES - 7, 'v'); // "a=1\n" and "b=" and a line feed
    const Dict dict = dictOf("a=1\n");
    ASSERT_EQ(oruAsfDictSetString(dict.get(), "b", most.c_str()), 0);
    EXPECT_EQ(oruAsfDictSave(dict.get(), kFile), 0);
    EXPECT_EQ(textOf(load(), "b"), most);

    ASSERT_EQ(oruAsfDictSetString(dict.get(), "b", (most + "v").c_str()), 0);
    EXPECT_EQ(oruAsfDictSave(dict.get(), kFile), -1);
    EXPECT_EQ(textOf(load(), "b"), most);
    EXPECT_EQ(box.names(), std::vector<string>{"config"});
}

TEST_F(DictionarySave, ReadsEveryAwkwardValueBackAndTouchesNoOtherKey)
{
    const string before = "first=1\n# comment\nkey=old\nlast=\"two words\"\n";
    std::vector<string> values = {"",
                                  " ",
                                  "  a  ",
                                  "\"",
                                  "\"\"",
                                  "\"a\"",
                                  "\\",
                                  "\\\"",
                                  "#",
                                  "# a",
                                  "=",
                                  "a=b",
                                  "\n",
                                  "\nlast=9",
                                  "\r",
                                  "\r\n",
                                  "\t",
                                  "a\t",
                                  "\\n",
                                  "\\x41",
                                  "a\"",
                                  "\"a",
                                  "key=",
                                  "first=2",
                                  "\nfirst=2\n",
                                  "\"\nfirst=2\n#\"",
                                  string(200000, 'x'),
                                  string(100000, '\n'),
                                  string(100000, '"')};
    for (int code = 1; code < 256; ++code) values.emplace_back(1, static_cast<char>(code));
    std::mt19937 random{20213};
    for (int round = 0; round < 1500; ++round) {
        string value(random() % 64, '\0');
        for (char &byte : value) byte = static_cast<char>(random() % 255 + 1);
        values.push_back(value);
    }
    for (const string &value : values)
        for (const auto set : {oruAsfDictSetString, oruAsfDictSetDelimitedString})
            for (const char *key : {"key", "new"}) {
                const Dict dict = dictOf(before);
                ASSERT_EQ(set(dict.get(), key, value.c_str()), 0);
                ASSERT_EQ(textOf(dict, key), value);
                ASSERT_EQ(oruAsfDictSave(dict.get(), kFile), 0);

                std::map<string, string> seen;
                const Dict again = load();
                ASSERT_EQ(oruAsfDictVisit(
                              again.get(),
                              [](void *context, const char *name, const char *text) {
                                  auto &all = *static_cast<std::map<string, string> *>(context);
                                  return all.emplace(name, text).second ? 0 : 1;
                              },
                              &seen),
                          0);
                std::map<string, string> expected = {
                    {"first", "1"}, {"key", "old"}, {"last", "two words"}};
                expected[key] = value;
                ASSERT_EQ(seen, expected);
                ASSERT_EQ(textOf(again, key), value);
            }
}

TEST_F(DictionaryVisit, SeesEveryKeyOnceInTheOrderOfTheFileWithItsChanges)
{
    const Dict dict = dictOf("a=1\n# c\nb=\"x y\"\na=2\nd=\"damaged\nunknown\ne=5");
    ASSERT_EQ(oruAsfDictSetString(dict.get(), "e", "6"), 0);
    ASSERT_EQ(oruAsfDictSetString(dict.get(), "f", "7"), 0);
    string seen;
    const auto note = [](void *context, const char *key, const char *value) {
        *static_cast<string *>(context) += string{key} + ":" + (value ? value : "(null)") + ";";
        return 0;
    };
    EXPECT_EQ(oruAsfDictVisit(dict.get(), note, &seen), 0);
    EXPECT_EQ(seen, "b:x y;a:2;d:(null);e:6;f:7;");
}

TEST_F(DictionaryVisit, EndsWhenTheVisitorSaysSo)
{
    const Dict dict = dictOf("a=1\nb=2\n");
    int visits = 0;
    const auto stop = [](void *context, const char *, const char *) {
        ++*static_cast<int *>(context);
        return 42;
    };
    EXPECT_EQ(oruAsfDictVisit(dict.get(), stop, &visits), 42);
    EXPECT_EQ(visits, 1);
}

namespace {

/// What a dictionary should do, the plain way: a list of lines.
class Twin {
public:
    explicit Twin(const string &text)
    {
        for (size_t at = 0; at < text.size();) {
            const size_t end = std::min(text.find('\n', at), text.size());
            const string line = text.substr(at, end - at);
            const size_t equals = line.find('=');
            const bool setting =
                equals != string::npos && equals > 0 && line[0] != '#' && line.find(' ') >= equals;
            lines_.push_back({line, setting ? line.substr(0, equals) : ""});
            at = end + 1;
        }
    }

    void set(const string &key, const optional<string> &value)
    {
        bool known = false;
        for (auto &[changed, to] : changes_)
            if (changed == key) known = true, to = value;
        if (!known) changes_.emplace_back(key, value);
    }

    [[nodiscard]] optional<string> get(const string &key) const
    {
        for (const auto &[changed, to] : changes_)
            if (changed == key) return to;
        for (auto line = lines_.rbegin(); line != lines_.rend(); ++line)
            if (line->key == key) return line->text.substr(key.size() + 1);
        return {};
    }

    /// The lines of a save; the line feed at the end is not compared.
    [[nodiscard]] string saved() const
    {
        auto lines = lines_;
        for (const auto &[key, to] : changes_) {
            bool placed = false;
            for (size_t i = lines.size(); i-- > 0;) {
                if (lines[i].key != key) continue;
                if (to && !placed) lines[i].text = key + "=" + *to;
                else lines.erase(lines.begin() + static_cast<ptrdiff_t>(i));
                placed = true;
            }
            if (to && !placed) lines.push_back({key + "=" + *to, ""});
        }
        string text;
        for (const auto &line : lines) text += line.text + "\n";
        return text;
    }

private:
    struct Line {
        string text;
        string key;
    };
    std::vector<Line> lines_;
    std::vector<std::pair<string, optional<string>>> changes_;
};

string randomText(std::mt19937 &random)
{
    string text;
    for (size_t lines = random() % 25; lines > 0; --lines) {
        switch (random() % 8) {
        case 0: text += "# key1=comment"; break;
        case 1: break;
        case 2: text += "no setting"; break;
        default:
            text += "key" + std::to_string(random() % 12) + "=" + std::to_string(random() % 100);
        }
        if (lines > 1 || random() % 2 == 0) text += '\n';
    }
    return text;
}

} // namespace

TEST_F(Dictionary, DoesWhatAPlainListOfLinesDoesInRandomSequences)
{
    std::mt19937 random{20214};
    for (int round = 0; round < 4000; ++round) {
        const string text = randomText(random);
        const Dict dict = dictOf(text);
        Twin twin{text};
        // From a single look-up, which searches, to dozens, which use an index; and from one change
        // to more than can be gone through one by one.
        const size_t operations = random() % 2 == 0 ? random() % 6 : random() % 60;
        for (size_t i = 0; i < operations; ++i) {
            const string key = "key" + std::to_string(random() % 14);
            switch (random() % 6) {
            case 0:
                twin.set(key, {});
                ASSERT_EQ(oruAsfDictSetString(dict.get(), key.c_str(), nullptr), 0);
                break;
            case 1:
            case 2: {
                const string value = std::to_string(random() % 100);
                twin.set(key, value);
                ASSERT_EQ(oruAsfDictSetString(dict.get(), key.c_str(), value.c_str()), 0);
                break;
            }
            case 3:
                if (random() % 8 == 0) {
                    ASSERT_EQ(oruAsfDictSave(dict.get(), "/between"), 0);
                }
                break;
            default: {
                const char *value = nullptr;
                ASSERT_EQ(oruAsfDictGetString(dict.get(), key.c_str(), &value, 0), 0);
                const auto expected = twin.get(key);
                ASSERT_EQ(value == nullptr, !expected) << text << key;
                if (expected) {
                    ASSERT_EQ(value, *expected) << text << key;
                }
            }
            }
        }
        ASSERT_EQ(oruAsfDictSave(dict.get(), kFile), 0);
        string saved = box.read(kFile);
        if (!saved.empty() && saved.back() != '\n') saved += '\n';
        ASSERT_EQ(saved, twin.saved()) << "round " << round << " from:\n" << text;
    }
}

TEST_F(Dictionary, HoldsThousandsOfKeys)
{
    const Dict dict = dictOf("");
    for (int i = 0; i < 20000; ++i) {
        const string key = "key" + std::to_string(i);
        ASSERT_EQ(oruAsfDictSetString(dict.get(), key.c_str(), key.c_str()), 0);
    }
    ASSERT_EQ(oruAsfDictSave(dict.get(), kFile), 0);
    const Dict again = load();
    for (int i = 0; i < 20000; ++i) {
        const string key = "key" + std::to_string(i);
        const char *value = nullptr;
        ASSERT_EQ(oruAsfDictGetString(again.get(), key.c_str(), &value, 0), 0);
        ASSERT_STREQ(value, key.c_str());
    }
}
