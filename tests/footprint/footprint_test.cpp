// What operations cost, in counts that hold on every machine: system calls and memory. How long
// they take is measured by the benchmarks.
#include "footprint/heap.hpp"
#include "footprint/systemcalls.hpp"
#include "oruAsf.h"
#include "oruSdk.h"
#include "support/tempdir.hpp"

#include <gtest/gtest.h>

#include <ctime>
#include <dlfcn.h>

using namespace oru::test;
using std::string;
using std::vector;

namespace {

time_t lateBy = 0; // seconds that the library's clock is ahead

} // namespace

/// The clock that the library reads.
extern "C" int clock_gettime(clockid_t clock, timespec *now) noexcept
{
    static const auto real =
        reinterpret_cast<decltype(&clock_gettime)>(::dlsym(RTLD_NEXT, "clock_gettime"));
    const int status = real(clock, now);
    if (clock == CLOCK_REALTIME_COARSE) now->tv_sec += lateBy;
    return status;
}

namespace {

constexpr const char *kWsm = "/var/wsmDefaults";
constexpr const char *kAa = "/var/1x.conf";

/// Files of some keys; those that the tests work with stand in the middle.
string fileOf(int keys, const string &middle)
{
    string text;
    for (int i = 0; i < keys; ++i) {
        text += "radio" + std::to_string(i % 2) + ".setting" + std::to_string(10000 + i) + "=1\n";
        if (i == keys / 2) text += middle;
    }
    return text;
}

class Footprint : public testing::Test {
protected:
    Footprint()
    {
        std::filesystem::create_directories(box.at("/var"));
        fill(1000);
    }
    void fill(int keys)
    {
        box.write(kWsm, fileOf(keys, "mimoFlag=1\nradio0.txPower=2\n"));
        box.write(kAa, fileOf(keys, "localMacAcl=0\n"));
    }

    /// As if the file had last been changed so long ago.
    static void letFileRest(time_t seconds) { lateBy = seconds; }
    ~Footprint() override { lateBy = 0; }

    TempDir box;
};

void getMimo()
{
    OruSdkFeatureParam param{0, 0, 7};
    if (oruSdkGetMimo(&param) != 0 || param.activationFlag > 1) std::abort();
}

void getTxPower()
{
    OruSdkOptionParam param{0, 0, 0};
    if (oruSdkGetTxPower(&param) != 0 || param.featureOptions != 2) std::abort();
}

void getAclList()
{
    uint32_t mode = 7;
    int32_t count = 0;
    char entries[256 * 18];
    if (oruSdkGetMacAclList(&mode, &count, entries) != 0) std::abort();
}

/// Another value each time.
void setMimo()
{
    OruSdkFeatureParam param{0, 0, 0};
    oruSdkGetMimo(&param);
    param.activationFlag ^= 1;
    if (oruSdkSetMimo(&param) != 0) std::abort();
}

void setMimoToOne()
{
    OruSdkFeatureParam param{0, 0, 1};
    if (oruSdkSetMimo(&param) != 0) std::abort();
}

/// Another list each time, of so many entries.
void setAclList(int32_t count)
{
    static char last = '0';
    last = last == '0' ? '1' : '0';
    vector<char> entries(256 * 18);
    for (size_t i = 0; i < 256; ++i) {
        const string address = "00:11:22:33:44:5" + string(1, last);
        std::copy(address.begin(), address.end(), entries.begin() + static_cast<ptrdiff_t>(i * 18));
    }
    const uint32_t mode = 1;
    if (oruSdkSetMacAclList(&mode, &count, entries.data()) != 0) std::abort();
}

const vector<string> kLoad = {"open", "stat", "read", "close"};

/// What replaces a file durably; each call of a save has its place.
const vector<string> kSave = {
    "stat",                        // the file as it stands: its links, owner and mode
    "access",                      // may it be written
    "open",   "open",   "flock",   // the folder, and the temporary file
    "stat",   "stat",   "geteuid", // which is ours alone
    "write",  "chmod",  "fsync",   // holds the bytes, with the old file's mode
    "stat",   "rename", "fsync",   // and takes its place
    "close",  "close"};

/// What makes a file durable that needs no change but was changed a moment ago.
const vector<string> kSync = {"open", "fsync", "open", "fsync", "close", "close"};

vector<string> operator+(vector<string> first, const vector<string> &second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

} // namespace

TEST_F(Footprint, OfAGetterIsFourSystemCalls)
{
    EXPECT_EQ(systemCallsOf(getMimo), kLoad);
    EXPECT_EQ(systemCallsOf(getTxPower), kLoad);
    EXPECT_EQ(systemCallsOf(getAclList), kLoad);
}

TEST_F(Footprint, OfASetterIsTheSameSystemCallsWhateverItSets)
{
    const vector<string> setter = kLoad + kSave;
    EXPECT_EQ(setter.size(), 20U);
    for (const int keys : {10, 1000}) {
        fill(keys);
        EXPECT_EQ(systemCallsOf(setMimo), kLoad + setter)
            << keys << " keys, with a read of its own";
        EXPECT_EQ(systemCallsOf([] { setAclList(1); }), setter) << keys << " keys";
        EXPECT_EQ(systemCallsOf([] { setAclList(256); }), setter) << keys << " keys";
    }
}

TEST_F(Footprint, OfASetterThatChangesNothingIsALookAtTheFile)
{
    letFileRest(92);
    EXPECT_EQ(systemCallsOf(setMimoToOne), kLoad + vector<string>{"stat"});
}

TEST_F(Footprint, OfASetterThatChangesNothingOfALateChangeIsALookAtTheFileAndItsSync)
{
    letFileRest(2);
    EXPECT_EQ(systemCallsOf(setMimoToOne), kLoad + vector<string>{"stat"} + kSync);
}

TEST_F(Footprint, OfASetterThatChangesNothingRightAfterAChangeIsALookIntoTheFileAndItsSync)
{
    EXPECT_EQ(systemCallsOf([] {
                  setMimo();
                  OruSdkFeatureParam param{0, 0, 0};
                  oruSdkGetMimo(&param);
                  oruSdkSetMimo(&param);
              }),
              kLoad + kLoad + kSave + kLoad + kLoad + vector<string>{"stat"} + kLoad + kSync);
}

TEST_F(Footprint, OfAGetterIsItsFileInMemory)
{
    const size_t fileBytes = box.read(kWsm).size();
    for (const auto getter : {getMimo, getTxPower, getAclList}) {
        const Heap heap = heapOf(getter);
        EXPECT_LE(heap.allocations, 2);
        EXPECT_LE(heap.bytes, 2 * fileBytes);
        EXPECT_GE(heap.bytes, fileBytes) << "the counter counts";
    }
}

TEST_F(Footprint, OfManyReadsIsTheFileAndAnIndex)
{
    const size_t fileBytes = box.read(kWsm).size();
    for (const int reads : {20, 1000}) {
        const Heap heap = heapOf([reads] {
            OruAsfDict *dict = nullptr;
            ASSERT_EQ(oruAsfDictCreate(&dict, kWsm), 0);
            for (int i = 0; i < reads; ++i) {
                int32_t value = 0;
                ASSERT_EQ(oruAsfDictGetInt(dict, "mimoFlag", &value, 0), 0);
            }
            oruAsfDictFree(dict);
        });
        EXPECT_EQ(heap.allocations, 2) << reads;
        EXPECT_LE(heap.bytes, 2 * fileBytes) << reads;
    }
}
