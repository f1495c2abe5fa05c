// The syntax of a configuration text. The search for a line is compiled a second time with its
// portable block.
#include "asf/lines.hpp"
#include "asf/samehash.hpp"
#include "asf/text.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <set>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

using std::string;
using std::string_view;

#if !defined(ORU_NO_SIMD)
#define FIND_LINE FindLastLine
#define FIND_LINE_RANDOM FindLastLineRandom
#else
#define FIND_LINE FindLastLinePortable
#define FIND_LINE_RANDOM FindLastLinePortableRandom
#endif

namespace {

/// A text between two pages that can't be touched: with exactly kFrontRoom bytes in front of it,
/// or with nothing behind it.
class GuardedText {
public:
    enum class Guard { front, back };

    GuardedText(string_view text, Guard guard)
    {
        const auto page = static_cast<size_t>(::sysconf(_SC_PAGESIZE));
        const size_t used = text.size() + oru::kFrontRoom;
        room_ = (used + page - 1) / page * page + 2 * page;
        base_ = static_cast<char *>(
            ::mmap(nullptr, room_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        ::mprotect(base_ + page, room_ - 2 * page, PROT_READ | PROT_WRITE);
        char *start = guard == Guard::front ? base_ + page : base_ + room_ - page - used;
        std::memset(start, '\n', oru::kFrontRoom);
        std::memcpy(start + oru::kFrontRoom, text.data(), text.size());
        text_ = {start + oru::kFrontRoom, text.size()};
    }
    ~GuardedText() { ::munmap(base_, room_); }
    GuardedText(const GuardedText &) = delete;
    GuardedText &operator=(const GuardedText &) = delete;

    [[nodiscard]] string_view text() const { return text_; }

private:
    char *base_;
    size_t room_;
    string_view text_;
};

constexpr ptrdiff_t kNone = -1;

/// The place of the last line that sets key, found the plain way.
ptrdiff_t placeOfLast(const string &text, const string &key)
{
    ptrdiff_t found = kNone;
    for (size_t at = 0; at < text.size();) {
        size_t end = text.find('\n', at);
        if (end == string::npos) end = text.size();
        const string line = text.substr(at, end - at);
        if (line.compare(0, key.size() + 1, key + "=") == 0) found = static_cast<ptrdiff_t>(at);
        at = end + 1;
    }
    return found;
}

/// The same by findLastLine(), with a guard on either side; the line itself is checked too.
ptrdiff_t found(const string &text, const string &key)
{
    ptrdiff_t places[2];
    for (const auto guard : {GuardedText::Guard::front, GuardedText::Guard::back}) {
        const GuardedText guarded{text, guard};
        const string_view line = oru::findLastLine(guarded.text(), key);
        ptrdiff_t &place = places[guard == GuardedText::Guard::front ? 0 : 1];
        place = line.data() == nullptr ? kNone : line.data() - guarded.text().data();
        if (place == kNone) continue;
        const size_t end = std::min(text.find('\n', static_cast<size_t>(place)), text.size());
        EXPECT_EQ(line, text.substr(static_cast<size_t>(place), end - static_cast<size_t>(place)));
    }
    EXPECT_EQ(places[0], places[1]);
    return places[0];
}

/// The same by an index.
ptrdiff_t placeIn(oru::LineIndex &index, const string &text, const string &key)
{
    const string_view line = index.find(key);
    return line.data() == nullptr ? kNone : line.data() - text.data();
}

} // namespace

TEST(FIND_LINE, FindsTheLastLineOfAKeyAndNothingElse)
{
    const struct {
        const char *text;
        const char *key;
        ptrdiff_t place;
        const char *reason;
    } rows[] = {
        {"", "a", kNone, "empty text"},
        {"a", "a", kNone, "a key without '='"},
        {"a=", "a", 0, "empty value, no line feed"},
        {"a=1", "a", 0, "first line, no line feed"},
        {"a=1\n", "a", 0, "first line"},
        {"b=1\na=2\n", "a", 4, "second line"},
        {"a=1\na=2\n", "a", 4, "twice: the last counts"},
        {"a=1\na=2\nb=3\na=4", "a", 12, "three times, the last without line feed"},
        {"ba=1\n", "a", kNone, "the end of another key"},
        {"ab=1\n", "a", kNone, "the start of another key"},
        {"b=a=1\n", "a", kNone, "inside a value"},
        {"#a=1\n", "a", kNone, "a comment"},
        {" a=1\n", "a", kNone, "a blank in front"},
        {"a =1\n", "a", kNone, "a blank behind"},
        {"\n\n\na=1\n\n", "a", 3, "between blank lines"},
        {"a=1\r\n", "a", 0, "CRLF: the CR belongs to the value"},
        {"A=1\n", "a", kNone, "case counts"},
        {"a=1", "", kNone, "an empty key is none"},
        {"=1\n", "", kNone, "an empty key is none, even where one stands"},
        {"a=b=1\n", "a=b", kNone, "a key has no '='"},
        {"#a=1\n", "#a", kNone, "a key is no comment"},
        {"b=1\na=2\n", "1\na", kNone, "a key has no line feed"},
        {"a=1", "a=", kNone, "a key is no line"},
        {"ab=1", "abcdefghijklmnopqrstuvwxyz", kNone, "longer than the text"},
    };
    for (const auto &row : rows) EXPECT_EQ(found(row.text, row.key), row.place) << row.reason;
}

TEST(FIND_LINE, FindsALineAtEveryPlaceOfATextOfEverySize)
{
    for (size_t front = 0; front < 40; ++front)
        for (size_t behind = 0; behind < 40; ++behind)
            for (const string key : {"k", "key", "radio0.txPower", "a-key-of-more-than-16-bytes"}) {
                const string before = front == 0 ? "" : string(front - 1, 'x') + "\n";
                const string text = before + key + "=" + string(behind, '=');
                ASSERT_EQ(found(text, key), static_cast<ptrdiff_t>(front)) << text;
                ASSERT_EQ(found(text, key + "y"), kNone) << text;
            }
}

TEST(FIND_LINE_RANDOM, FindsWhatAPlainSearchFindsInRandomTexts)
{
    std::mt19937 random{20210};
    const string letters = "ab=\n\n#\" \xff";
    for (int round = 0; round < 20000; ++round) {
        string text;
        const size_t size = random() % 90;
        while (text.size() < size) text += letters[random() % letters.size()];
        oru::LineIndex index;
        ASSERT_TRUE(index.build(text));
        for (const string key : {"a", "b", "ab", "ba", "aa", "aab", "\xff", "abababab"}) {
            const ptrdiff_t place = placeOfLast(text, key);
            ASSERT_EQ(found(text, key), place) << round << ": " << text;
            ASSERT_EQ(placeIn(index, text, key), place) << round << ": " << text;
        }
    }
}

TEST(FIND_LINE_RANDOM, AgreesWithTheIndex)
{
    std::mt19937 random{20211};
    for (int round = 0; round < 500; ++round) {
        string text;
        for (size_t lines = random() % 60; lines > 0; --lines) {
            text += "key" + std::to_string(random() % 20) + "=" + std::to_string(random() % 1000);
            if (lines > 1 || random() % 2 == 0) text += '\n';
        }
        oru::LineIndex index;
        ASSERT_TRUE(index.build(text));
        for (int number = 0; number < 21; ++number) {
            const string key = "key" + std::to_string(number);
            ASSERT_EQ(placeIn(index, text, key), found(text, key)) << key << " in " << text;
        }
    }
}

#if !defined(ORU_NO_SIMD) // the rest is the same code for both

namespace {

string unwritten(string_view written)
{
    const ptrdiff_t size = oru::readSize(written);
    if (size < 0) return "(damaged)";
    string value(static_cast<size_t>(size), '?');
    EXPECT_EQ(oru::readValue(value.data(), written), value.data() + size);
    return value;
}

string written(string_view value, oru::Form form)
{
    string text(oru::writtenSize(value, form), '?');
    EXPECT_EQ(oru::writeValue(text.data(), value, form), text.data() + text.size());
    return text;
}

} // namespace

TEST(Key, IsWhatCanBeFoundAgain)
{
    EXPECT_FALSE(oru::isKey("")) << "empty";
    EXPECT_FALSE(oru::isKey("#a")) << "the line would be a comment";
    EXPECT_TRUE(oru::isKey("a#")) << "'#' counts at the start only";
    EXPECT_TRUE(oru::isKey(string(1000, 'k'))) << "long";
    for (int code = 0; code < 256; ++code) {
        const char byte = static_cast<char>(code);
        const bool refused = code < 0x20 || code == 0x7f || byte == ' ' || byte == '=';
        EXPECT_EQ(oru::isKey(string{'a', byte, 'b'}), !refused) << code;
        EXPECT_EQ(oru::isKey(string{'a', byte}), !refused) << code;
        EXPECT_EQ(oru::isKey(string{byte, 'a'}), !refused && byte != '#') << code;
    }
}

TEST(Key, OfALineEndsAtTheFirstEqualsSign)
{
    EXPECT_EQ(oru::keyOfLine("a=b=c"), "a");
    EXPECT_EQ(oru::keyOfLine("a="), "a");
    for (const char *line : {"", "a", "=", "=a", " a=b", "a =b", "#a=b", "a b=c", "\ta=b"})
        EXPECT_TRUE(oru::keyOfLine(line).empty()) << line;
}

TEST(Key, SpreadsOverATableWhereverItsNumberStands)
{
    constexpr uint32_t kSlots = 2048;
    for (size_t front = 0; front < 12; ++front)
        for (size_t behind = 0; behind < 12; ++behind) {
            std::set<uint32_t> slots;
            for (int number = 1000; number < 2000; ++number) {
                const string key =
                    string(front, 'f') + std::to_string(number) + string(behind, 'b');
                slots.insert(oru::hashOf(key) % kSlots);
            }
            // 1000 keys that fell anywhere would take 791 of the slots.
            EXPECT_GT(slots.size(), 650U) << front << " bytes in front, " << behind << " behind";
        }
}

TEST(Key, IsNotTakenForAnotherOfTheSameHash)
{
    for (const auto &[one, other] : oru::test::kSameHash) {
#if __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
        EXPECT_EQ(oru::hashOf(one), oru::hashOf(other)) << one;
#endif
        for (const string &text : {string{one} + "=", string{one} + "=1\nb=2\n"}) {
            oru::LineIndex index;
            ASSERT_TRUE(index.build(text));
            EXPECT_EQ(placeIn(index, text, one), 0) << text;
            EXPECT_EQ(placeIn(index, text, other), kNone) << text;
        }
    }
}

TEST(Value, StandsInTheFormThatReadsBackTheSame)
{
    const struct {
        const char *value;
        const char *bare; // what the plain write stores
        const char *delimited;
        const char *reason;
    } rows[] = {
        {"", "", "\"\"", "empty"},
        {"1", "1", "\"1\"", "a number"},
        {"a b", "a b", "\"a b\"", "a blank inside"},
        {" a", "\" a\"", "\" a\"", "a blank in front"},
        {"a ", "\"a \"", "\"a \"", "a blank behind"},
        {" ", "\" \"", "\" \"", "a blank alone"},
        {"\"", "\"\\\"\"", "\"\\\"\"", "a quote alone"},
        {"\"a\"", "\"\\\"a\\\"\"", "\"\\\"a\\\"\"", "a value that looks delimited"},
        {"a\"b", "a\"b", "\"a\\\"b\"", "a quote inside"},
        {"a\\", "a\\", "\"a\\\\\"", "a backslash"},
        {"a#b", "a#b", "\"a#b\"", "no comment"},
        {"#", "#", "\"#\"", "no comment either"},
        {"a=b", "a=b", "\"a=b\"", "an equals sign"},
        {"a\nb=c", "\"a\\nb=c\"", "\"a\\nb=c\"", "a line feed"},
        {"\r", "\"\\r\"", "\"\\r\"", "a carriage return"},
        {"\t", "\"\\t\"", "\"\\t\"", "a tab"},
        {"\x01\x1f\x7f", "\"\\x01\\x1f\\x7f\"", "\"\\x01\\x1f\\x7f\"", "control bytes"},
        {"\x80\xff", "\x80\xff", "\"\x80\xff\"", "bytes above ASCII"},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(written(row.value, oru::plainForm(row.value)), row.bare) << row.reason;
        EXPECT_EQ(written(row.value, oru::Form::delimited), row.delimited) << row.reason;
        EXPECT_EQ(unwritten(row.bare), row.value) << row.reason;
        EXPECT_EQ(unwritten(row.delimited), row.value) << row.reason;
    }
}

TEST(Value, OfEveryPairOfBytesReadsBackTheSameAndStaysOnItsLine)
{
    for (int first = 1; first < 256; ++first)
        for (int second = 1; second < 256; ++second) {
            const string value{static_cast<char>(first), static_cast<char>(second)};
            for (const auto form : {oru::plainForm(value), oru::Form::delimited}) {
                const string text = written(value, form);
                ASSERT_EQ(unwritten(text), value) << first << ' ' << second;
                for (const char byte : text)
                    ASSERT_TRUE(static_cast<unsigned char>(byte) >= 0x20 && byte != 0x7f);
            }
        }
}

TEST(Value, ThatIsDamagedIsRefused)
{
    const struct {
        const char *written;
        const char *reason;
    } rows[] = {
        {"\"", "a quote alone"},
        {"\"a", "no end"},
        {"\"a\\\"", "the end is escaped"},
        {"\"a\" ", "a blank behind the end"},
        {"\"a\"b", "text behind the end"},
        {"\"a\"\r", "a carriage return behind the end"},
        {"\"a\"b\"", "a quote inside"},
        {"\"\"\"", "three quotes"},
        {"\"\\\"", "a backslash alone"},
        {"\"\\q\"", "no such escape"},
        {"\"\\N\"", "case counts"},
        {"\"\\x\"", "no digits"},
        {"\"\\x1\"", "one digit"},
        {"\"\\x1g\"", "no hexadecimal digit"},
        {"\"\\xg1\"", "no hexadecimal digit first"},
        {"\"\\x1/\"", "the byte before the digits"},
        {"\"\\x1:\"", "the byte behind the digits"},
        {"\"\\x1@\"", "the byte before the capital ones"},
        {"\"\\x1G\"", "the byte behind the capital ones"},
        {"\"\\x1`\"", "the byte before the small ones"},
        {"\"\\x00\"", "a NUL byte"},
        {"\"\\0\"", "no octal escapes"},
    };
    for (const auto &row : rows) EXPECT_EQ(oru::readSize(row.written), -1) << row.reason;
}

TEST(Value, MayBeWrittenByHandInOtherWays)
{
    EXPECT_EQ(unwritten("\"\\x41\\x4a\\x4A\\xfF\""), "AJJ\xff") << "escapes that need not be";
    EXPECT_EQ(unwritten("\"\t\""), "\t") << "a tab that stands for itself";
    EXPECT_EQ(unwritten(" a "), " a ") << "blanks of a bare value belong to it";
    EXPECT_EQ(unwritten("a\\n\\x41\""), "a\\n\\x41\"") << "a bare value has no escapes";
}

TEST(Value, OfRandomBytesReadsBackTheSame)
{
    std::mt19937 random{20212};
    for (int round = 0; round < 20000; ++round) {
        string value(random() % 40, '\0');
        for (char &byte : value) byte = static_cast<char>(random() % 255 + 1);
        ASSERT_EQ(unwritten(written(value, oru::plainForm(value))), value);
        ASSERT_EQ(unwritten(written(value, oru::Form::delimited)), value);
    }
}

#endif
