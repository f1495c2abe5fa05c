// Saves whose disk loses its power at each of their system calls: what was acknowledged is there
// afterwards, and what is there is whole. ORU_TORTURE=1 visits them all.
#include "asf/child.hpp"
#include "oruAsf.h"
#include "oruSdk.h"
#include "power/disk.hpp"
#include "support/tempdir.hpp"
#include "support/trace.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <sys/mman.h>
#include <vector>

using namespace oru::test;
using std::string;
using std::vector;
using ::testing::AnyOf;
using ::testing::ElementsAre;

namespace {

constexpr const char *kFolder = "/var";
constexpr const char *kFile = "/var/wsmDefaults";
constexpr uid_t kOwner = 1234;
constexpr mode_t kMode = 0640;

bool isTorture()
{
    return std::getenv("ORU_TORTURE") != nullptr;
}

using Text = std::optional<string>; // none: there is no file

/// Saves of one file in a row.
struct Saves {
    Text first;                           // what the file holds before them
    vector<std::function<bool()>> savers; // true: the save is acknowledged
};

struct Tally {
    size_t cuts = 0;
    size_t torn = 0; // neither a text from before nor one from after a save
    size_t lost = 0; // a text from before a save that was acknowledged
    size_t leftOvers = 0;
    size_t fresh = 0; // a text from after a save
    size_t old = 0;   // the one from before all

    [[nodiscard]] size_t caught() const { return torn + lost; }
    Tally &operator+=(const Tally &other)
    {
        cuts += other.cuts;
        torn += other.torn;
        lost += other.lost;
        leftOvers += other.leftOvers;
        fresh += other.fresh;
        old += other.old;
        return *this;
    }
};

bool saveValue(const string &value, const char *from = kFile)
{
    OruAsfDict *dict = nullptr;
    if (oruAsfDictCreate(&dict, from) != 0) return false;
    const std::unique_ptr<OruAsfDict, void (*)(OruAsfDict *)> owner{dict, oruAsfDictFree};
    return oruAsfDictSetString(dict, "key", value.c_str()) == 0 && oruAsfDictSave(dict, kFile) == 0;
}

std::function<bool()> saver(const string &value)
{
    return [value] { return saveValue(value); };
}

bool setMimo(uint8_t value)
{
    OruSdkFeatureParam param{0, 0, value};
    return oruSdkSetMimo(&param) == 0;
}

class PowerCut : public ::testing::Test {
protected:
    PowerCut() : disk_(box_.at(), "ext4 -b 1024") {}

    void SetUp() override
    {
        if (!disk_.trouble().empty())
            GTEST_SKIP() << "this machine mounts no disks for the tests: " << disk_.trouble();
        void *page = ::mmap(nullptr, sizeof(size_t), PROT_READ | PROT_WRITE,
                            MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        ASSERT_NE(page, MAP_FAILED);
        acknowledged_ = static_cast<volatile size_t *>(page);
    }

    void mount(const string &options)
    {
        ASSERT_TRUE(disk_.mount(options)) << disk_.trouble();
        ::mkdir(box_.at(kFolder).c_str(), 0755);
    }

    void again(const string &options)
    {
        ASSERT_TRUE(disk_.unmount()) << ::strerror(errno);
        mount(options);
    }

    /// The file as it stood before the saves, on the disk.
    void place(const Saves &saves) const
    {
        for (const string &name : box_.names(kFolder))
            std::filesystem::remove(box_.at(string{kFolder} + '/' + name));
        if (saves.first) {
            box_.write(kFile, *saves.first);
            ASSERT_EQ(::chmod(box_.at(kFile).c_str(), kMode), 0);
            ASSERT_EQ(::chown(box_.at(kFile).c_str(), kOwner, kOwner), 0);
        }
        box_.write("/other", "*"); // what saves read and don't write
        ASSERT_TRUE(disk_.sync());
    }

    [[nodiscard]] Text text() const
    {
        if (!std::filesystem::exists(box_.at(kFile))) return std::nullopt;
        return box_.read(kFile);
    }

    /// What the file holds before the first save, and after each.
    vector<Text> textsOf(const Saves &saves)
    {
        place(saves);
        vector<Text> texts{text()};
        for (const auto &save : saves.savers) {
            EXPECT_TRUE(save());
            texts.push_back(text());
        }
        return texts;
    }

    /// Cuts the power at a stop of the saves, or after them, and mounts the disk again. False when
    /// it was after them.
    bool cutAt(const Saves &saves, const string &options, Cut how, size_t stop)
    {
        *acknowledged_ = 0;
        const auto cut = [&] { EXPECT_TRUE(disk_.cut(how)); };
        const KilledAt killed = runAndKill(
            [&] {
                for (size_t i = 0; i < saves.savers.size() && saves.savers[i](); ++i)
                    *acknowledged_ = i + 1;
            },
            stop, cut);
        EXPECT_NE(killed, KilledAt::Sleep);
        if (killed == KilledAt::Never) {
            EXPECT_EQ(*acknowledged_, saves.savers.size()) << "a save failed";
            cut();
        }
        again(options);
        return killed == KilledAt::Stop;
    }

    /// Compares what is there with what was promised.
    void judge(const vector<Text> &texts, Tally &tally) const
    {
        const size_t promised = *acknowledged_;
        const auto older = texts.begin() + static_cast<ptrdiff_t>(promised);
        const Text now = text();
        const bool isNext = promised + 1 < texts.size() && now == older[1];
        ++tally.cuts;
        if (isNext || (promised > 0 && now == *older)) ++tally.fresh;
        else if (now == *older) ++tally.old;
        else if (std::find(texts.begin(), older, now) != older) ++tally.lost;
        else ++tally.torn;
        for (const string &name : box_.names(kFolder)) tally.leftOvers += name.front() == '.';
    }

    /// One whole text, at most one temporary file, and a next save for which both is no matter.
    void expectInOrder(const Saves &saves, const Tally &tally, bool checksNext) const
    {
        ASSERT_EQ(tally.torn, 0u) << "torn: " << text().value_or("no file");
        ASSERT_EQ(tally.lost, 0u) << "lost, of " << *acknowledged_ << ": "
                                  << text().value_or("no file");
        const vector<string> names = box_.names(kFolder);
        const vector<string> without(names.begin() + (!names.empty() && names[0][0] == '.'),
                                     names.end());
        ASSERT_THAT(without, AnyOf(ElementsAre(), ElementsAre("wsmDefaults")));
        if (saves.first) {
            struct stat status {};
            ASSERT_EQ(::stat(box_.at(kFile).c_str(), &status), 0);
            ASSERT_EQ(status.st_mode & 07777, kMode);
            ASSERT_EQ(status.st_uid, kOwner);
        }
        if (!checksNext) return;
        ASSERT_TRUE(saveValue("the next", text() ? kFile : "/other"));
        ASSERT_THAT(box_.names(kFolder), ElementsAre("wsmDefaults"));
        ASSERT_NE(text()->find("key=the next\n"), string::npos);
    }

    /// Every so many stops of the saves, and the moment after them.
    Tally cutEverywhere(const Saves &saves, const string &options, Cut how, size_t stride,
                        bool areGood = true)
    {
        Tally all;
        mount(options);
        const vector<Text> texts = textsOf(saves);
        bool running = true;
        for (size_t stop = 1 + static_cast<size_t>(how) % stride; running; stop += stride) {
            place(saves);
            running = cutAt(saves, options, how, stop);
            judge(texts, all);
            if (areGood) expectInOrder(saves, all, true);
            if (areGood && HasFailure()) {
                ADD_FAILURE() << "cut " << static_cast<int>(how) << " at stop " << stop
                              << ", mounted with '" << options << "'";
                break;
            }
        }
        EXPECT_TRUE(disk_.unmount());
        return all;
    }

    /// In each way of a cut and on each kind of mount.
    void expectInOrderAfterCuts(const Saves &saves, size_t usual)
    {
        vector<string> mounts{"noauto_da_alloc"};
        if (isTorture())
            mounts.insert(mounts.end(), {"", "data=writeback,noauto_da_alloc", "data=journal",
                                         "nodelalloc", "nobarrier"});
        Tally all;
        for (const string &options : mounts)
            for (const Cut how : kCuts)
                if (!HasFailure())
                    all += cutEverywhere(saves, options, how, isTorture() ? 1 : usual);
        EXPECT_GT(all.fresh, 0u);
        if (isTorture()) {
            EXPECT_GT(all.leftOvers, 0u);
        }
        std::printf("torture: saves whose power is cut at a system call: %zu cuts, "
                    "%zu left-overs, %zu old texts, %zu new texts, %zu torn, %zu lost\n",
                    all.cuts, all.leftOvers, all.old, all.fresh, all.torn, all.lost);
    }

    TempDir box_;
    Disk disk_;
    volatile size_t *acknowledged_ = nullptr;
};

string textOf(const string &value)
{
    return "# a text\nkey=" + value + "\n";
}

} // namespace

TEST_F(PowerCut, LeavesTheOldTextOrTheNewOneWhole)
{
    expectInOrderAfterCuts({textOf("old"), {saver("new")}}, 19);
}

TEST_F(PowerCut, LeavesALongTextWhole)
{
    expectInOrderAfterCuts({textOf(string(3000, 'o')), {saver(string(9000, 'n'))}}, 19);
}

TEST_F(PowerCut, LeavesANewFileWholeOrNone)
{
    expectInOrderAfterCuts({std::nullopt, {[] { return saveValue("new", "/other"); }}}, 19);
}

TEST_F(PowerCut, LeavesTheLastOfSeveralSavesThatWereAcknowledged)
{
    expectInOrderAfterCuts({textOf("old"), {saver("first"), saver("second"), saver("third")}}, 41);
}

namespace {

/// What a writer does, apart from writing the bytes.
struct Habits {
    const char *name;
    bool inPlace; // otherwise into a temporary file, which is renamed
    bool syncsFile;
    bool syncsFolder;
    const char *mount; // under these options
    bool isNew;        // there is no file before
    vector<Cut> caughtBy;
    bool isSampled = false;
};

bool writeCarelessly(const Habits &habits, const string &folder, const string &text)
{
    const string file = folder + "/wsmDefaults";
    const string into = habits.inPlace ? file : folder + "/.wsmDefaults.new";
    const int to = ::open(into.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kMode);
    bool good = ::write(to, text.data(), text.size()) == static_cast<ssize_t>(text.size()) &&
                (!habits.syncsFile || ::fsync(to) == 0);
    good = ::close(to) == 0 && good;
    if (!habits.inPlace) good = ::rename(into.c_str(), file.c_str()) == 0 && good;
    if (!habits.syncsFolder) return good;
    const int above = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    good = ::fsync(above) == 0 && good;
    return ::close(above) == 0 && good;
}

} // namespace

TEST_F(PowerCut, LeavesWhatAnotherHasWrittenOnceASaveOfTheSameIsAcknowledged)
{
    const string folder = box_.at(kFolder);
    const Habits killed{"", false, true, false, "", false, {}};   // between its rename and its sync
    const Habits unsynced{"", true, false, false, "", false, {}}; // a copy
    for (const Habits &habits : {killed, unsynced}) {
        ASSERT_TRUE(disk_.unmount());
        mount("");
        place({textOf("old"), {}});
        ASSERT_TRUE(writeCarelessly(habits, folder, textOf("new")));
        ASSERT_TRUE(saveValue("new"));
        ASSERT_TRUE(disk_.cut(Cut::Nothing));
        again("");
        EXPECT_EQ(text(), textOf("new"));
    }
}

TEST_F(PowerCut, LeavesWhatAKilledSaveHasWrittenOnceTheNextOneAcknowledgesIt)
{
    size_t cuts = 0;
    bool running = true;
    mount("");
    for (size_t stop = 1; running; stop += isTorture() ? 1 : 9, ++cuts) {
        place({textOf("old"), {}});
        running = runAndKill([] { saveValue("new"); }, stop) == KilledAt::Stop;
        ASSERT_TRUE(saveValue("new"));
        ASSERT_TRUE(disk_.cut(Cut::Nothing));
        again("");
        ASSERT_EQ(text(), textOf("new")) << "the first one was killed at stop " << stop;
    }
    std::printf("torture: saves again of what a killed one has written: %zu cuts\n", cuts);
}

TEST_F(PowerCut, LeavesWhatASetterHasStored)
{
    std::ifstream factory{ORU_SOURCE_DIR "/share/wsmDefaults.orig"};
    const string text{std::istreambuf_iterator<char>{factory}, {}};
    expectInOrderAfterCuts({text, {[] { return setMimo(0); }, [] { return setMimo(1); }}}, 41);
}

TEST_F(PowerCut, GivesCarelessWritersAwayAndCarefulOnesNot)
{
    // By default ext4 itself writes a file that takes another's place in time, which hides a
    // missing sync of it unless the name is new: hence the options.
    const vector<Cut> none{};
    const vector<Cut> nothing{Cut::Nothing};
    const vector<Cut> flushed{Cut::Flushed, Cut::LogFlushed};
    const vector<Cut> unflushed{Cut::LogFlushed, Cut::Nothing};
    const vector<Cut> all{kCuts, kCuts + 3};
    const Habits rows[] = {
        {"careful", false, true, true, "noauto_da_alloc", false, none, true},
        {"careful, new", false, true, true, "noauto_da_alloc", true, none},
        {"in place", true, true, true, "", false, flushed, true},
        {"in place, not synced", true, false, false, "", false, all},
        {"file not synced", false, false, true, "noauto_da_alloc", false, unflushed, true},
        {"file not synced, new", false, false, true, "", true, unflushed},
        {"folder not synced", false, true, false, "", false, nothing, true},
        {"folder not synced, new", false, true, false, "", true, nothing},
        {"nothing synced", false, false, false, "noauto_da_alloc", false, unflushed},
    };
    Tally careless;
    Tally careful;
    for (const Habits &row : rows) {
        if (!isTorture() && !row.isSampled) continue;
        const string folder = box_.at(kFolder);
        const Saves saves{
            row.isNew ? Text{} : textOf("old"),
            {[&] { return writeCarelessly(row, folder, textOf("first")); },
             [&] { return writeCarelessly(row, folder, textOf(string(3000, 'n'))); }}};
        for (const Cut how : kCuts) {
            const bool caught =
                std::find(row.caughtBy.begin(), row.caughtBy.end(), how) != row.caughtBy.end();
            const bool isGood = row.caughtBy.empty();
            if (!isTorture() && how != (isGood ? Cut::Nothing : row.caughtBy.back())) continue;
            const Tally tally = cutEverywhere(saves, row.mount, how, isTorture() ? 1 : 2, false);
            EXPECT_EQ(tally.caught() > 0, caught) << row.name << ", cut " << static_cast<int>(how);
            (isGood ? careful : careless) += tally;
        }
    }
    std::printf("torture: careless writers whose power is cut: %zu cuts, %zu torn, %zu lost\n",
                careless.cuts, careless.torn, careless.lost);
    std::printf("torture: careful writers whose power is cut: %zu cuts, %zu torn, %zu lost\n",
                careful.cuts, careful.torn, careful.lost);
}
