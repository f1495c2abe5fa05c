// Values, operands and both output forms for items of every shape.
#include "catalogue.hpp"
#include "complete.hpp"
#include "json_output.hpp"
#include "nearest.hpp"
#include "operands.hpp"
#include "text_output.hpp"
#include "values.hpp"

#include <nlohmann/json.hpp>

#include <gmock/gmock.h>

using namespace oructl;
using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

constexpr Word kAuto[] = {{"auto", 0}};
constexpr Word kModes[] = {{"none", 0}, {"allow", 1}, {"deny", 2}};
constexpr Field kAddress[] = {{.name = "", .kind = Kind::Mac}};
constexpr Field kServer[] = {{.name = "name", .kind = Kind::Text, .bounds = {1, 5}},
                             {.name = "secret", .kind = Kind::Secret, .bounds = {1, 65}}};

constexpr Field kShape[] = {
    {.name = "channel", .kind = Kind::Number, .bounds = {0, 165}, .words = kAuto},
    {.name = "mode", .kind = Kind::Choice, .bounds = {0, 2}, .words = kModes},
    {.name = "secondary",
     .kind = Kind::Number,
     .bounds = {0, 165},
     .option = "secondary",
     .meaning = "the other half of a 40 MHz channel"},
    {.name = "state", .kind = Kind::Text, .use = Use::Get, .bounds = {0, 32}}};
constexpr Item kMany = {.name = "many",
                        .scope = Scope::Bss,
                        .index = {INT32_MIN, INT32_MAX},
                        .fields = kShape,
                        .get = nullptr,
                        .set = nullptr,
                        .operations = "",
                        .keys = "bss%d.one two",
                        .files = "/var/a /var/b",
                        .summary = "several fields"};

constexpr Field kListShape[] = {
    {.name = "mode", .kind = Kind::Choice, .bounds = {0, 2}, .words = kModes},
    {.name = "stations", .kind = Kind::List, .bounds = {0, 2}, .entry = kAddress}};
constexpr Item kList = {.name = "acl",
                        .scope = Scope::None,
                        .index = {0, 0},
                        .fields = kListShape,
                        .get = nullptr,
                        .set = nullptr,
                        .operations = "",
                        .keys = "",
                        .files = "",
                        .summary = "a list"};

constexpr Field kServersShape[] = {
    {.name = "servers", .kind = Kind::List, .bounds = {1, 3}, .entry = kServer}};
constexpr Item kServers = {.name = "radius",
                           .scope = Scope::None,
                           .index = {0, 0},
                           .fields = kServersShape,
                           .get = nullptr,
                           .set = nullptr,
                           .operations = "",
                           .keys = "",
                           .files = "",
                           .summary = "entries of several fields"};

std::string parse(const Item &item, const std::vector<const char *> &words, Call &call,
                  Use verb = Use::Set)
{
    return parseOperands(item, verb, words, call);
}

TEST(Operands, FieldsAreTakenInOrderAndOptionsBehindThem)
{
    Call call;
    EXPECT_EQ(parse(kMany, {"-1", "36", "deny", "--secondary", "40"}, call), "");
    EXPECT_EQ(call.index, -1);
    EXPECT_EQ(call.values[0].number, 36);
    EXPECT_EQ(call.values[1].number, 2);
    EXPECT_EQ(call.values[2].number, 40);
    EXPECT_FALSE(call.values[3].given) << "only read";
}

TEST(Operands, ANumberMayHaveAWordAndAnOptionMayBeAbsent)
{
    Call call;
    EXPECT_EQ(parse(kMany, {"0", "auto", "none"}, call), "");
    EXPECT_EQ(call.values[0].number, 0);
    EXPECT_FALSE(call.values[2].given);
}

TEST(Operands, WhatIsWrongIsNamed)
{
    Call call;
    EXPECT_EQ(parse(kMany, {"0", "36"}, call), "mode is missing");
    EXPECT_EQ(parse(kMany, {"0", "36", "may"}, call),
              "mode: 'may' is none of its values (none, allow or deny)");
    EXPECT_EQ(parse(kMany, {"0", "36", "none", "--secondary"}, call), "--secondary needs a value");
    EXPECT_EQ(parse(kMany, {"0", "36", "none", "--secondary", "x"}, call),
              "--secondary: 'x' is no whole number (0 to 165)");
    EXPECT_EQ(parse(kMany, {"0", "36", "none", "--other", "1"}, call),
              "'--other' is one operand too many");
    EXPECT_EQ(parse(kMany, {"0", "36", "none", "40"}, call), "'40' is one operand too many");
    EXPECT_EQ(parse(kMany, {}, call, Use::Get), "BSS is missing");
    EXPECT_EQ(parse(kMany, {"0", "1"}, call, Use::Get), "'1' is one operand too many");
}

TEST(Operands, AListTakesAllThatRemainsAndMayBeEmpty)
{
    Call call;
    EXPECT_EQ(parse(kList, {"deny", "00:11:22:33:44:55", "aa:BB:cc:dd:ee:ff"}, call), "");
    ASSERT_EQ(call.values[1].entries.size(), 2u);
    EXPECT_EQ(call.values[1].entries[1][0].text, "aa:BB:cc:dd:ee:ff");
    Call empty;
    EXPECT_EQ(parse(kList, {"deny"}, empty), "");
    EXPECT_TRUE(empty.values[1].given);
    EXPECT_THAT(empty.values[1].entries, IsEmpty());
}

TEST(Operands, EntriesOfSeveralFieldsAreSeparatedByCommas)
{
    Call call;
    EXPECT_EQ(parse(kServers, {"host,a,b", "other,"}, call), "");
    ASSERT_EQ(call.values[0].entries.size(), 2u);
    EXPECT_EQ(call.values[0].entries[0][0].text, "host");
    EXPECT_EQ(call.values[0].entries[0][1].text, "a,b") << "the last field takes the rest";
    Call wrong;
    EXPECT_EQ(parse(kServers, {"host"}, wrong), "servers: a word is no whole entry")
        << "of an item with a secret, no word is shown";
}

TEST(Operands, SynopsisNamesWhatASetTakes)
{
    EXPECT_EQ(operandSynopsis(kMany, Use::Get), "BSS");
    EXPECT_EQ(operandSynopsis(kMany, Use::Set),
              "BSS channel|auto none|allow|deny [--secondary secondary]");
    EXPECT_EQ(operandSynopsis(kMany, Use::Set, Synopsis::Brief),
              "BSS channel|auto none|allow|deny [OPTION...]");
    EXPECT_EQ(operandSynopsis(kList, Use::Set), "none|allow|deny [stations...]");
}

TEST(Values, MacAddressesAreSixPairsJoinedByColons)
{
    Value value;
    EXPECT_EQ(parseValue(kAddress[0], "00:1a:2B:33:44:55", value), "");
    for (const char *wrong : {"", "00:11:22:33:44", "00:11:22:33:44:5", "00:11:22:33:44:555",
                              "00-11-22-33-44-55", "0g:11:22:33:44:55", "001122334455"})
        EXPECT_THAT(parseValue(kAddress[0], wrong, value), HasSubstr("is no MAC address")) << wrong;
}

TEST(Values, TextOfAnyBytesIsShownOnOneLine)
{
    const Field text = {.name = "", .kind = Kind::Text};
    Value value;
    EXPECT_EQ(parseValue(text, "a \"b\"\\\n\x1b\x7f\xff", value), "");
    EXPECT_EQ(shownValue(text, value), R"("a \"b\"\\\x0a\x1b\x7f\xff")");
}

TEST(Values, SecretsAreMaskedInBothForms)
{
    Call call;
    ASSERT_EQ(parse(kServers, {"host,hidden"}, call), "");
    EXPECT_EQ(textValue(kServers, call), "radius.servers = 1\n"
                                         "radius.servers.1.name = \"host\"\n"
                                         "radius.servers.1.secret = ********\n");
    EXPECT_EQ(json::parse(jsonValue(kServers, call))["value"]["servers"],
              (json{{{"name", "host"}, {"secret", "********"}}}));
}

TEST(Values, LegalityFollowsTheFieldsBounds)
{
    Value value;
    value.number = 165;
    EXPECT_TRUE(isLegal(kShape[0], value));
    value.number = 166;
    EXPECT_FALSE(isLegal(kShape[0], value));
    value.number = 3;
    EXPECT_FALSE(isLegal(kShape[1], value));
    value.text = "12345";
    EXPECT_TRUE(isLegal(kServer[0], value));
    value.text = "123456";
    EXPECT_FALSE(isLegal(kServer[0], value));
    Call call;
    ASSERT_EQ(parse(kServers, {"longname,s"}, call), "");
    EXPECT_FALSE(isLegal(kServersShape[0], call.values[0])) << "an entry's field is illegal";
    EXPECT_FALSE(isLegal(kServersShape[0], Value{})) << "too few entries";
}

TEST(Values, LegalValuesAreSaidInWords)
{
    EXPECT_EQ(legalValues(kShape[0]), "0 to 165 or auto");
    EXPECT_EQ(legalValues(kShape[1]), "none, allow or deny");
    EXPECT_EQ(legalValues(kServer[0]), "1 to 5 bytes");
    EXPECT_EQ(legalValues(kAddress[0]), "a MAC address");
    EXPECT_EQ(legalValues(kListShape[1]), "0 to 2 entries");
}

TEST(Output, SeveralFieldsAreOneLineEach)
{
    Call call;
    ASSERT_EQ(parse(kMany, {"2", "auto", "deny"}, call), "");
    EXPECT_EQ(textValue(kMany, call), "many[2].channel = auto\nmany[2].mode = deny\n");
    EXPECT_EQ(json::parse(jsonValue(kMany, call)),
              (json{{"schema", "oructl/1"},
                    {"item", "many"},
                    {"index", 2},
                    {"value",
                     {{"channel", 0},
                      {"mode", {{"word", "deny"}, {"number", 2}}},
                      {"secondary", nullptr},
                      {"state", nullptr}}}}));
    EXPECT_EQ(whereStored(kMany, call), "keys bss2.one, two of /var/a and /var/b");
}

TEST(Output, ListsAreNumberedLinesAndArrays)
{
    Call call;
    ASSERT_EQ(parse(kList, {"allow", "00:11:22:33:44:55"}, call), "");
    EXPECT_EQ(textValue(kList, call),
              "acl.mode = allow\nacl.stations = 1\nacl.stations.1 = 00:11:22:33:44:55\n");
    const json object = json::parse(jsonValue(kList, call));
    EXPECT_EQ(object["index"], nullptr);
    EXPECT_EQ(object["value"]["stations"], json::array({"00:11:22:33:44:55"}));
}

TEST(Output, BytesThatAreNoUtf8NeverBreakTheJson)
{
    Call call;
    ASSERT_EQ(parse(kServers, {"\xff\xc3\x28\xed\xa0\x80,x"}, call), "");
    EXPECT_TRUE(json::accept(jsonValue(kServers, call)));
}

TEST(Values, Utf8IsWhatItsDefinitionAdmits)
{
    for (const char *good : {"", "a", "\xc2\x80", "\xdf\xbf", "\xe0\xa0\x80", "\xed\x9f\xbf",
                             "\xee\x80\x80", "\xf0\x90\x80\x80", "\xf4\x8f\xbf\xbf",
                             "a\xc3\xbc"
                             "b"})
        EXPECT_TRUE(isUtf8(good)) << hexOf(good);
    for (const char *bad :
         {"\x80", "\xc1\xbf", "\xc2",
          "\xc2"
          "a",
          "\xe0\x9f\xbf", "\xe1\x80", "\xed\xa0\x80", "\xf0\x8f\xbf\xbf", "\xf1\x80\x80",
          "\xf4\x90\x80\x80", "\xf5\x80\x80\x80", "\xff", "\xc3\xbc\xbc"})
        EXPECT_FALSE(isUtf8(bad)) << hexOf(bad);
}

TEST(Values, HexadecimalDigitsAreBytesOfEitherCase)
{
    Value value;
    EXPECT_EQ(parseHex("00", value).substr(0, 11), "the byte 00");
    EXPECT_EQ(parseHex("09afAFff", value), "");
    EXPECT_EQ(value.text, "\x09\xaf\xaf\xff");
    EXPECT_EQ(hexOf(value.text), "09afafff");
    EXPECT_EQ(parseHex("", value), "");
    EXPECT_EQ(value.text, "");
    for (const char *bad : {"0", "0g", "/1", ":1", "@1", "G1", "`1", "g1", "1 "})
        EXPECT_NE(parseHex(bad, value), "") << bad;
}

TEST(Nearest, DistanceCountsSingleLetters)
{
    EXPECT_EQ(editDistance("", ""), 0u);
    EXPECT_EQ(editDistance("abc", ""), 3u);
    EXPECT_EQ(editDistance("mimo", "mino"), 1u);
    EXPECT_EQ(editDistance("kitten", "sitting"), 3u);
}

TEST(Nearest, NamesComeByDistanceAndBeginnings)
{
    EXPECT_THAT(nearest("tx-powr", {"tx-power-adj", "tx-power", "mimo"}), ElementsAre("tx-power"));
    EXPECT_THAT(nearest("tx-", {"mimo", "tx-power-adj", "tx-power"}),
                ElementsAre("tx-power-adj", "tx-power"));
    EXPECT_THAT(nearest("", {"mimo"}), IsEmpty());
    EXPECT_THAT(nearest("completely-different", {"mimo"}), IsEmpty());
}

} // namespace
