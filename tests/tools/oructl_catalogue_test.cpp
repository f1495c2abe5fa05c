// The catalogue as a whole: complete, unique, documented, and each row wired to its own key.
#include "catalogue.hpp"
#include "command.hpp"
#include "items.hpp"
#include "json_output.hpp"
#include "request.hpp"
#include "show.hpp"
#include "tools/oructl_run.hpp"
#include "values.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>

using namespace oru::test;
using namespace oructl;

namespace {

/// Exported operations that verbs call themselves, and the words that do it.
const std::map<std::string, std::string> kWithoutItem = {
    {"oruSdkGetVersion", "version"},       {"oruSdkCommitAll", "commit all"},
    {"oruSdkCommitRadio", "commit radio"}, {"oruSdkResetToDefaults", "reset all"},
    {"oruSdkResetToBss", "reset bss"},
};

std::set<std::string> exportedOperations()
{
    std::set<std::string> names;
    FILE *symbols = ::popen("nm -D --defined-only --without-symbol-versions " ORUSDK, "r");
    if (symbols == nullptr) return names;
    char kind = 0;
    char name[256];
    while (std::fscanf(symbols, "%*s %c %255s", &kind, name) == 2)
        if (kind == 'T') names.insert(name);
    ::pclose(symbols);
    return names;
}

std::vector<std::string> difference(const std::set<std::string> &of,
                                    const std::set<std::string> &without)
{
    std::vector<std::string> rest;
    std::set_difference(of.begin(), of.end(), without.begin(), without.end(),
                        std::back_inserter(rest));
    return rest;
}

std::string keyOf(const Item &item, int64_t index)
{
    std::string key{item.keys};
    if (const size_t at = key.find("%d"); at != key.npos) key.replace(at, 2, std::to_string(index));
    return key;
}

TEST(Catalogue, NamesAreUniqueAndKebabCase)
{
    std::set<std::string_view> names;
    for (const Verb &verb : verbs()) EXPECT_TRUE(names.insert(verb.name).second) << verb.name;
    names.clear(); // an item may be called as a verb is: help shows both
    forEachItem([&](const Item &item) {
        EXPECT_TRUE(names.insert(item.name).second) << item.name;
        EXPECT_EQ(findItem(item.name), &item);
        EXPECT_EQ(item.name.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789-"),
                  item.name.npos)
            << item.name;
    });
    EXPECT_EQ(findItem("no-such-item"), nullptr);
    EXPECT_EQ(findItem(""), nullptr);
}

TEST(Catalogue, EveryItemIsDescribed)
{
    forEachItem([](const Item &item) {
        SCOPED_TRACE(item.name);
        EXPECT_FALSE(item.summary.empty());
        // "security" is made of the operations of other items.
        EXPECT_EQ(item.operations.empty(), item.name == "security");
        EXPECT_TRUE(item.get != nullptr || item.set != nullptr);
        EXPECT_FALSE(item.fields.empty());
        EXPECT_EQ(item.keys.empty(), item.files.empty());
        for (const Field &field : item.fields) {
            EXPECT_TRUE(!field.name.empty() || item.fields.size() == 1) << "fields have names";
            EXPECT_LE(field.bounds.min, field.bounds.max);
            EXPECT_EQ(field.kind == Kind::List, !field.entry.empty());
            EXPECT_TRUE(!field.flag || !field.option.empty()) << "only an option stands alone";
            const bool named = field.kind == Kind::Switch || field.kind == Kind::Choice;
            EXPECT_TRUE(!named || !field.words.empty());
        }
    });
}

TEST(Catalogue, CommandsBelongToVerbsAndAreDescribed)
{
    std::set<std::string> names;
    forEachCommand([&](const Command &command) {
        const std::string name = std::string{command.verb} + ' ' + std::string{command.words};
        SCOPED_TRACE(name);
        EXPECT_TRUE(names.insert(name).second);
        EXPECT_NE(findVerb(command.verb), nullptr);
        EXPECT_FALSE(command.summary.empty());
        EXPECT_FALSE(command.operations.empty());
        bool optional = false;
        for (const Operand &operand : command.operands) {
            EXPECT_TRUE(operand.optional || !optional) << operand.label;
            EXPECT_FALSE(operand.field.name.empty()) << operand.label;
            EXPECT_NE(operand.field.name, command.verb) << "two JSON members of one name";
            optional = operand.optional;
        }
    });
}

TEST(Catalogue, ViewsAreUniqueAndDescribed)
{
    std::set<std::string_view> names;
    forEachView([&](const View &view) {
        SCOPED_TRACE(view.name);
        EXPECT_TRUE(names.insert(view.name).second);
        EXPECT_EQ(findView(view.name), &view);
        EXPECT_FALSE(view.summary.empty());
        EXPECT_EQ(view.operations.empty(), !view.parts.empty()) << "those of its items";
        EXPECT_EQ(view.columns.empty() && view.facts.empty(),
                  !view.parts.empty() || view.text != nullptr);
        EXPECT_EQ(view.columns.empty(), view.empty.empty());
        std::set<std::string_view> fields;
        for (const auto of : {view.columns, view.facts}) {
            fields.clear();
            for (const Field &field : of) EXPECT_TRUE(fields.insert(field.name).second);
        }
        fields.clear();
        for (const Part &part : view.parts) {
            EXPECT_TRUE(fields.insert(part.item).second) << part.item;
            EXPECT_EQ(part.own != nullptr ? part.own->name : part.item, part.item);
            ASSERT_TRUE(part.own != nullptr || findItem(part.item) != nullptr) << part.item;
        }
    });
}

TEST(Catalogue, ListsAndOptionsDoNotMeetInOneItem)
{
    forEachItem([](const Item &item) {
        const auto has = [&](auto test) {
            return std::any_of(item.fields.begin(), item.fields.end(), test);
        };
        const bool list = has([](const Field &f) {
            return f.kind == Kind::List && f.belongsTo(Use::Set) && f.option.empty();
        });
        EXPECT_FALSE(list && has([](const Field &f) { return !f.option.empty(); })) << item.name;
    });
}

/// Operations on a record of many settings, of which each item shows or sets a part.
const std::set<std::string> kShared = {"oruSdkGetDfsParam", "oruSdkSetDfsParamEnable",
                                       "oruSdkSetDfsParamValue"};

TEST(Catalogue, EveryExportedOperationIsCoveredOnce)
{
    std::set<std::string> covered;
    for (const auto &[name, words] : kWithoutItem) {
        EXPECT_NE(findVerb(words.substr(0, words.find(' '))), nullptr) << words;
        covered.insert(name);
    }
    forEachItem([&](const Item &item) {
        forEachWord(item.operations, [&](std::string_view word) {
            const std::string name{word};
            EXPECT_TRUE(covered.insert(name).second || kShared.contains(name))
                << name << " of " << item.name;
        });
    });
    const auto add = [&](std::string_view name) { covered.insert(std::string{name}); };
    forEachCommand([&](const Command &command) { forEachWord(command.operations, add); });
    forEachView([&](const View &view) { forEachWord(view.operations, add); });
    const std::set<std::string> exported = exportedOperations();
    EXPECT_THAT(difference(exported, covered), testing::IsEmpty()) << "exported, without an item";
    EXPECT_THAT(difference(covered, exported), testing::IsEmpty()) << "named, but not exported";
}

// ---- Every item everywhere

std::string textOf(const std::filesystem::path &file)
{
    std::ifstream stream{file};
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

/// The sources of the tests, but for this file, which walks items without naming them.
std::string sourcesOfTests()
{
    std::string text;
    for (const auto &file : std::filesystem::directory_iterator(ORU_SOURCE_DIR "/tests/tools"))
        if (file.path().extension() == ".cpp" &&
            file.path().filename() != "oructl_catalogue_test.cpp")
            text += textOf(file.path());
    return text;
}

class EveryItem : public OructlTest {
protected:
    EveryItem()
    {
        for (const char *file : {kWsm, kAa})
            write(file, textOf(std::string{ORU_SOURCE_DIR "/share"} + (file + 4) + ".orig"));
        std::filesystem::create_directories(root() + "/config");
        const char *const radar = "/wsmSavedRadarDetectList";
        write(std::string{"/config"} + radar, textOf(std::string{ORU_SOURCE_DIR "/share"} + radar));
    }

    /// The words that read an item at its first index.
    static oru::test::Arguments reading(const Item &item)
    {
        oru::test::Arguments words = {"--json", "get", std::string{item.name}};
        if (item.scope != Scope::None) words.push_back(std::to_string(legalIndex(item.scope).min));
        return words;
    }
};

TEST_F(EveryItem, HasHelpInTextAndJson)
{
    forEachItem([&](const Item &item) {
        const std::string name{item.name};
        const Transcript help = run({"help", name});
        EXPECT_EQ(help.exit, 0);
        EXPECT_THAT(help.out, testing::HasSubstr(name + ": " + std::string{item.summary} + '\n'));
        EXPECT_EQ(jsonOf({"--json", "help", name}, 0)["topic"], name);
    });
}

TEST_F(EveryItem, StandsInTheManual)
{
    const std::string page = run({"--man", "oructl-items", "today"}).out;
    forEachItem([&](const Item &item) {
        const std::string tag = "\n.Sy " + std::string{item.name} + "\n.Xc\n";
        EXPECT_NE(page.find(tag), page.npos) << item.name;
    });
}

TEST_F(EveryItem, IsCompletedForTheVerbsThatItHas)
{
    const std::string gets = '\n' + run({"--complete-args", "get"}).out;
    const std::string sets = '\n' + run({"--complete-args", "set"}).out;
    forEachItem([&](const Item &item) {
        const std::string line = '\n' + std::string{item.name} + '\n';
        EXPECT_EQ(gets.find(line) != gets.npos, item.get != nullptr) << item.name;
        EXPECT_EQ(sets.find(line) != sets.npos, item.set != nullptr) << item.name;
    });
}

TEST_F(EveryItem, HasAJsonForm)
{
    // What the factory leaves open.
    EXPECT_EQ(run({"set", "security", "0", "wpa2", "psk"}).exit, 0);
    EXPECT_EQ(runWithInput("secret of the house\n", {"set", "psk", "0", "-"}).exit, 0);
    EXPECT_EQ(runWithInput("hush\n", {"set", "radius", "5", "2", "radius.example:1812"}).exit, 0);
    forEachItem([&](const Item &item) {
        if (item.get == nullptr) return;
        SCOPED_TRACE(item.name);
        const nlohmann::json object = jsonOf(reading(item), 0);
        EXPECT_EQ(object.value("item", ""), item.name);
        ASSERT_TRUE(object.contains("value"));
        for (const Field &field : item.fields) {
            if (field.name.empty() || !field.belongsTo(Use::Get)) continue;
            EXPECT_TRUE(object["value"].contains(jsonName(field))) << field.name;
        }
    });
}

TEST_F(EveryItem, HasATestOfItsOwnOrARowInTheWalkBelow)
{
    const std::string sources = sourcesOfTests();
    std::set<std::string_view> walked;
    for (const auto family : {radioSwitches(), radioOptions()})
        for (const Item &item : family) walked.insert(item.name);
    forEachItem([&](const Item &item) {
        const std::string name{item.name};
        const bool named = sources.find('"' + name + '"') != sources.npos ||
                           sources.find('"' + name + ' ') != sources.npos;
        EXPECT_TRUE(named || walked.contains(item.name)) << name;
    });
}

/// A number that the item takes and that differs from what is stored.
int64_t otherValue(const Field &field, int64_t stored)
{
    return stored == field.bounds.max ? field.bounds.min : field.bounds.max;
}

/// The rows of one number under one key of the radio file.
class NumberRow : public OructlTest {
protected:
    template <class Visit>
    static void forEachRow(Visit &&visit)
    {
        for (const auto family : {radioSwitches(), radioOptions()})
            for (const Item &item : family)
                for (const int64_t radio : {0, 1}) {
                    SCOPED_TRACE(std::string{item.name} + ' ' + std::to_string(radio));
                    visit(item, radio);
                }
    }

    /// Sets another value, checks the file and a get, and sets the stored one again.
    void setAndGet(const Item &item, int64_t radio) const
    {
        const Field &field = item.fields[0];
        const std::string key = keyOf(item, radio);
        const std::string before = read(kWsm);
        const std::optional<std::string> stored = value(kWsm, key);
        ASSERT_TRUE(stored.has_value()) << key;
        const std::string number = std::to_string(otherValue(field, std::stoll(*stored)));
        const std::string name{item.name};
        const std::string index = std::to_string(radio);

        ASSERT_EQ(run({"set", name, index, number}).exit, 0);
        EXPECT_EQ(value(kWsm, key), number);
        Value shown;
        EXPECT_EQ(parseValue(field, number, shown), "");
        EXPECT_EQ(run({"get", name, index}).out,
                  name + '[' + index + "] = " + shownValue(field, shown) + '\n');
        ASSERT_EQ(run({"set", name, index, *stored}).exit, 0);
        EXPECT_EQ(read(kWsm), before) << "another key has changed";
    }
};

TEST_F(NumberRow, ReadsAndWritesItsOwnKeyAlone)
{
    forEachRow([this](const Item &item, int64_t radio) { setAndGet(item, radio); });
}

TEST_F(NumberRow, HasTheBoundsOfTheLibrary)
{
    const std::string before = read(kWsm);
    forEachRow([this](const Item &item, int64_t radio) {
        const Bounds bounds = item.fields[0].bounds;
        for (const int64_t number : {bounds.min - 1, bounds.max + 1}) {
            const Transcript refused =
                run({"set", std::string{item.name}, std::to_string(radio), std::to_string(number)});
            EXPECT_EQ(refused.exit, 1) << number;
            EXPECT_THAT(refused.err, testing::HasSubstr(": refused: ")) << number;
        }
    });
    EXPECT_EQ(read(kWsm), before);
}

} // namespace
