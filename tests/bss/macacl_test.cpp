#include "oruSdk.h"
#include "support/accesspoint.hpp"
#include "support/sweep.hpp"

#include <gmock/gmock.h>

#include <cstdio>
#include <cstring>

namespace oru::test {
namespace {

using ::testing::IsEmpty;

constexpr size_t kField = 18;

std::string address(int number)
{
    char text[kField];
    std::snprintf(text, sizeof text, "00:11:22:33:%02x:%02x", (number >> 8) & 255, number & 255);
    return text;
}

/// Fields of 18 bytes with the addresses 1 to count.
std::string fields(int count)
{
    std::string all;
    for (int number = 1; number <= count; ++number) all += address(number) + '\0';
    return all;
}

std::string entryKey(int number)
{
    return "localMacAcl." + std::to_string(number);
}

void clear(const AccessPoint &box)
{
    std::string text;
    std::string all = box.read(kAa);
    for (size_t at = 0; at < all.size();) {
        const size_t end = all.find('\n', at);
        const std::string line = all.substr(at, end - at);
        if (line.rfind("localMacAcl", 0) != 0) text += line + "\n";
        at = end == std::string::npos ? all.size() : end + 1;
    }
    box.write(kAa, text);
}

struct MacAcl : AccessPointTest {
    MacAcl() { clear(box); }

    uint32_t set(uint32_t mode, int32_t count, const std::string &entries)
    {
        return oruSdkSetMacAclList(&mode, &count, entries.data());
    }

    /// The file holds exactly the addresses 1 to count.
    void expectStored(const std::string &mode, int count)
    {
        EXPECT_EQ(box.value(kAa, "localMacAcl"), mode);
        EXPECT_EQ(box.value(kAa, "localMacAclCount"), std::to_string(count));
        const std::string text = box.read(kAa);
        int found = 0;
        for (size_t at = 0; (at = text.find("localMacAcl.", at)) != std::string::npos; ++at)
            ++found;
        EXPECT_EQ(found, count);
        for (const int number : {1, 2, count - 1, count})
            if (number >= 1 && number <= count) {
                EXPECT_EQ(box.value(kAa, entryKey(number)), address(number));
            }
    }
};

// ---- Setting

TEST_F(MacAcl, ListsOf0To256EntriesAreStored)
{
    for (const int count : {0, 1, 2, 255, 256}) {
        EXPECT_EQ(set(1, count, fields(count)), 0u);
        expectStored("1", count);
        EXPECT_EQ(set(2, count, fields(count)), 0u);
        expectStored("2", count);
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(MacAcl, ShorterListLeavesNoEntryOfALongerOne)
{
    EXPECT_EQ(set(1, 256, fields(256)), 0u);
    for (const int count : {10, 3, 1, 0}) {
        EXPECT_EQ(set(1, count, fields(count)), 0u);
        expectStored("1", count);
    }
}

TEST_F(MacAcl, MoreThan256Is89)
{
    EXPECT_EQ(set(1, 10, fields(10)), 0u);
    const std::string before = box.everything();
    for (const int32_t count : {257, INT32_MAX}) {
        EXPECT_EQ(set(2, count, fields(3)), 89u);
        EXPECT_LOGGED("Invalid numEntries:" + std::to_string(count));
    }
    EXPECT_EQ(box.everything(), before);
}

TEST_F(MacAcl, NegativeCountIsStoredWithoutEntries)
{
    for (const int32_t count : {-1, INT32_MIN}) {
        EXPECT_EQ(set(1, 2, fields(2)), 0u);
        EXPECT_EQ(set(1, count, ""), 0u);
        EXPECT_EQ(box.value(kAa, "localMacAclCount"), std::to_string(count));
        EXPECT_EQ(box.read(kAa).find("localMacAcl."), std::string::npos);
    }
}

TEST_F(MacAcl, ModeAbove2Is90BeforeTheFileIsOpened)
{
    for (const uint32_t mode : {3u, 255u, 4294967295u}) {
        EXPECT_EQ(oruSdkSetMacAclList(&mode, nullptr, nullptr), 90u);
        EXPECT_LOGGED("Invalid macAcl:" + std::to_string(static_cast<int32_t>(mode)));
    }
    EXPECT_EQ(oruSdkSetMacAclList(nullptr, nullptr, nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_F(MacAcl, ListMustBeThereInModes1And2)
{
    EXPECT_EQ(set(2, 2, fields(2)), 0u);
    const std::string before = box.everything();
    const uint32_t mode = 1;
    const int32_t tooMany = 257;
    EXPECT_EQ(oruSdkSetMacAclList(&mode, nullptr, before.data()), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkSetMacAclList(&mode, &tooMany, nullptr), 2u); // before the count
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(box.everything(), before);
}

TEST_F(MacAcl, ModeIsWrittenBeforeTheListIsLookedAt)
{
    const uint32_t mode = 1;
    const std::vector<std::string> opened{"oruAsfDictCreate /var/1x.conf",
                                          "oruAsfDictSetString localMacAcl"};
    standIn.calls.clear();
    EXPECT_EQ(oruSdkSetMacAclList(&mode, nullptr, nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(standIn.calls, opened);
    standIn.calls.clear();
    EXPECT_EQ(set(1, 257, ""), 89u);
    EXPECT_LOGGED("Invalid numEntries:257");
    EXPECT_EQ(standIn.calls, opened);
    standIn.failAt(2);
    EXPECT_EQ(oruSdkSetMacAclList(&mode, nullptr, nullptr), 25u);
    EXPECT_LOGGED("Unable to write localMacAcl to dictionary");
}

TEST_F(MacAcl, MissingFileComesBeforeTheList)
{
    box.remove(kAa);
    const uint32_t mode = 1;
    EXPECT_EQ(oruSdkSetMacAclList(&mode, nullptr, nullptr), 7u);
    EXPECT_LOGGED("Unable to read AA Defaults file /var/1x.conf");
}

TEST_F(MacAcl, Mode0RemovesCountAndEveryEntry)
{
    EXPECT_EQ(set(1, 256, fields(256)), 0u);
    const uint32_t mode = 0;
    EXPECT_EQ(oruSdkSetMacAclList(&mode, nullptr, nullptr), 0u);
    EXPECT_NOTHING_LOGGED();
    EXPECT_EQ(box.value(kAa, "localMacAcl"), "0");
    EXPECT_EQ(box.value(kAa, "localMacAclCount"), std::nullopt);
    EXPECT_EQ(box.read(kAa).find("localMacAcl."), std::string::npos);

    uint32_t readMode = 9;
    int32_t count = 77;
    std::string out(kField, '?');
    EXPECT_EQ(oruSdkGetMacAclList(&readMode, &count, out.data()), 0u);
    EXPECT_EQ(readMode, 0u);
    EXPECT_EQ(count, 77);
    EXPECT_EQ(out, std::string(kField, '?'));
}

TEST_F(MacAcl, FieldWithoutATerminatorIsCutTo17Characters)
{
    const std::string two = std::string(18, 'x') + address(2) + '\0';
    EXPECT_EQ(set(1, 2, two), 0u);
    EXPECT_EQ(box.value(kAa, entryKey(1)), std::string(17, 'x'));
    EXPECT_EQ(box.value(kAa, entryKey(2)), address(2));
}

TEST_F(MacAcl, TextOfAnEntryIsNotChecked)
{
    EXPECT_EQ(set(1, 1, "harmless" + std::string(10, '\0')), 0u);
    const std::string harmless = box.read(kAa);
    for (const std::string text :
         {"", "a\nlocalMacAcl=0", "\"x\"", "a=b", "#", " ", "\\", "\xff"}) {
        std::string field = text;
        field.resize(kField);
        EXPECT_EQ(set(1, 1, field), 0u);
        EXPECT_EQ(box.value(kAa, entryKey(1)), text);
        EXPECT_EQ(box.value(kAa, "localMacAcl"), "1");
        box.set(kAa, entryKey(1), "harmless");
        EXPECT_EQ(box.read(kAa), harmless);
    }
}

TEST_F(MacAcl, KeysAreWrittenInOrderAfter256Removals)
{
    standIn.calls.clear();
    EXPECT_EQ(set(1, 2, fields(2)), 0u);
    std::vector<std::string> expected{"oruAsfDictCreate /var/1x.conf",
                                      "oruAsfDictSetString localMacAcl",
                                      "oruAsfDictSetString localMacAclCount"};
    for (int number = 1; number <= 256; ++number)
        expected.push_back("oruAsfDictSetString " + entryKey(number));
    for (int number = 1; number <= 2; ++number)
        expected.push_back("oruAsfDictSetString " + entryKey(number));
    expected.push_back("oruAsfDictSave /var/1x.conf");
    EXPECT_EQ(standIn.calls, expected);

    standIn.calls.clear();
    EXPECT_EQ(set(0, 2, fields(2)), 0u);
    expected.erase(expected.end() - 3, expected.end() - 1);
    EXPECT_EQ(standIn.calls, expected);
}

// ---- Reading

struct MacAclRead : MacAcl {
    uint32_t mode = 9;
    int32_t count = 77;
    std::string out = std::string(257 * kField, '?'); // one field more than the operation's room

    uint32_t get() { return oruSdkGetMacAclList(&mode, &count, out.data()); }
    [[nodiscard]] std::string field(int number) const
    {
        return out.c_str() + kField * static_cast<size_t>(number - 1);
    }
};

TEST_F(MacAclRead, GivesWhatWasSet)
{
    for (const int entries : {0, 1, 255, 256}) {
        for (const uint32_t wanted : {1u, 2u}) {
            out.assign(out.size(), '?');
            EXPECT_EQ(set(wanted, entries, fields(entries)), 0u);
            EXPECT_EQ(get(), 0u);
            EXPECT_EQ(mode, wanted);
            EXPECT_EQ(count, entries);
            EXPECT_EQ(out.substr(0, kField * static_cast<size_t>(entries)), fields(entries));
            EXPECT_EQ(out[kField * static_cast<size_t>(entries)], '?');
        }
    }
    EXPECT_NOTHING_LOGGED();
}

TEST_F(MacAclRead, AbsentEntryTakesNoField)
{
    EXPECT_EQ(set(1, 4, fields(4)), 0u);
    box.unset(kAa, entryKey(1));
    box.unset(kAa, entryKey(3));
    EXPECT_EQ(get(), 0u);
    EXPECT_EQ(count, 4);
    EXPECT_EQ(field(1), address(2));
    EXPECT_EQ(field(2), address(4));
    EXPECT_EQ(out[2 * kField], '?');
}

TEST_F(MacAclRead, LongStoredEntryIsCutTo17Characters)
{
    EXPECT_EQ(set(1, 2, fields(2)), 0u);
    for (const size_t length : {17, 18, 100}) {
        box.set(kAa, entryKey(1), std::string(length, 'l'));
        EXPECT_EQ(get(), 0u);
        EXPECT_EQ(field(1), std::string(17, 'l'));
        EXPECT_EQ(field(2), address(2));
        EXPECT_EQ(out[2 * kField], '?');
    }
}

TEST_F(MacAclRead, OtherStoredModesAreGivenAlone)
{
    EXPECT_EQ(set(1, 1, fields(1)), 0u);
    for (const char *stored : {"0", "3", "-1"}) {
        box.set(kAa, "localMacAcl", stored);
        EXPECT_EQ(get(), 0u);
        EXPECT_EQ(mode, static_cast<uint32_t>(std::stoi(stored)));
        EXPECT_EQ(count, 77);
        EXPECT_EQ(out[0], '?');
    }
}

TEST_F(MacAclRead, StoredCountAbove256Is89AndKeepsItsHandle)
{
    EXPECT_EQ(set(1, 2, fields(2)), 0u);
    int kept = 0;
    for (const char *stored : {"257", "2147483647"}) {
        box.set(kAa, "localMacAclCount", stored);
        EXPECT_EQ(get(), 89u);
        EXPECT_LOGGED(std::string("Invalid numEntries:") + stored);
        EXPECT_EQ(count, std::stoi(stored));
        EXPECT_EQ(out[0], '?');
        expectOpenDicts(++kept);
    }
}

TEST_F(MacAclRead, StoredCountBelow1GivesNoEntry)
{
    EXPECT_EQ(set(1, 2, fields(2)), 0u);
    for (const char *stored : {"0", "-1", "-2147483648"}) {
        box.set(kAa, "localMacAclCount", stored);
        EXPECT_EQ(get(), 0u);
        EXPECT_EQ(count, std::stoi(stored));
        EXPECT_EQ(out[0], '?');
    }
}

TEST_F(MacAclRead, MissingModeOrCountIs26)
{
    EXPECT_EQ(set(2, 1, fields(1)), 0u);
    box.unset(kAa, "localMacAclCount");
    EXPECT_EQ(get(), 26u);
    EXPECT_LOGGED("Unable to read localMacAclCount from dictionary");
    EXPECT_EQ(mode, 2u);
    EXPECT_EQ(count, 77);
    box.unset(kAa, "localMacAcl");
    mode = 9;
    EXPECT_EQ(get(), 26u);
    EXPECT_LOGGED("Unable to read localMacAcl from dictionary");
    EXPECT_EQ(mode, 9u);
}

TEST_F(MacAclRead, EntryThatCannotBeReadIs91AfterThoseBeforeIt)
{
    EXPECT_EQ(set(1, 3, fields(3)), 0u);
    standIn.failOnly("oruAsfDictGetString");
    standIn.failAt(2);
    EXPECT_EQ(get(), 91u);
    EXPECT_LOGGED("Unable to read localMacAcl.2 from dictionary");
    EXPECT_EQ(count, 3);
    EXPECT_EQ(field(1), address(1));
    EXPECT_EQ(out[kField], '?');
}

TEST_F(MacAclRead, EveryNullPointerIs2)
{
    EXPECT_EQ(oruSdkGetMacAclList(nullptr, &count, out.data()), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkGetMacAclList(&mode, nullptr, out.data()), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_EQ(oruSdkGetMacAclList(&mode, &count, nullptr), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

// ---- Every call that can fail

std::vector<SweepRow> rows()
{
    const Step open{"oruAsfDictCreate /var/1x.conf", 7,
                    "Unable to read AA Defaults file /var/1x.conf"};
    const Step mode{"oruAsfDictSetString localMacAcl", 25,
                    "Unable to write localMacAcl to dictionary"};
    const Step save{"oruAsfDictSave /var/1x.conf", 8,
                    "Unable to write AA Defaults file /var/1x.conf"};
    std::vector<Step> removals;
    for (int number = 1; number <= 256; ++number)
        removals.push_back({"oruAsfDictSetString " + entryKey(number), 0, ""});

    std::vector<Step> off{open, mode, {"oruAsfDictSetString localMacAclCount", 0, ""}};
    off.insert(off.end(), removals.begin(), removals.end());
    off.push_back(save);
    std::vector<Step> on{open,
                         mode,
                         {"oruAsfDictSetString localMacAclCount", 25,
                          "Unable to write localMacAclCount to dictionary"}};
    on.insert(on.end(), removals.begin(), removals.end());
    for (const char *number : {"1", "2"})
        on.push_back({std::string("oruAsfDictSetString localMacAcl.") + number, 25,
                      std::string("Unable to write localMacAcl.") + number + " to dictionary"});
    on.push_back(save);

    const auto prepare = [](AccessPoint &box, StandIn &standIn) {
        clear(box);
        const uint32_t mode = 2;
        const int32_t count = 2;
        oruSdkSetMacAclList(&mode, &count, fields(2).data());
        standIn.reset();
    };
    return {
        {"SetMacAclListOff", prepare,
         [] {
             const uint32_t mode = 0;
             return oruSdkSetMacAclList(&mode, nullptr, nullptr);
         },
         off},
        {"SetMacAclListOn", prepare,
         [] {
             const uint32_t mode = 1;
             const int32_t count = 2;
             return oruSdkSetMacAclList(&mode, &count, fields(2).data());
         },
         on},
        {"GetMacAclList",
         prepare,
         [] {
             uint32_t mode = 0;
             int32_t count = 0;
             char out[2 * kField];
             return oruSdkGetMacAclList(&mode, &count, out);
         },
         {open,
          {"oruAsfDictGetInt localMacAcl", 26, "Unable to read localMacAcl from dictionary"},
          {"oruAsfDictGetInt localMacAclCount", 26,
           "Unable to read localMacAclCount from dictionary"},
          {"oruAsfDictGetString localMacAcl.1", 91, "Unable to read localMacAcl.1 from dictionary"},
          {"oruAsfDictGetString localMacAcl.2", 91,
           "Unable to read localMacAcl.2 from dictionary"}}}};
}
INSTANTIATE_TEST_SUITE_P(MacAcl, FailureSweep, ::testing::ValuesIn(rows()), rowName);
INSTANTIATE_TEST_SUITE_P(MacAcl, StatusSweep, ::testing::ValuesIn(rows()), rowName);

} // namespace
} // namespace oru::test
