// Dictionaries and saves without memory.
#include "asf/saving.hpp"
#include "support/faults.hpp"

#include <algorithm>
#include <cstring>
#include <string>

using namespace oru::test;
using std::string;
using ::testing::ElementsAre;

#if !defined(__SANITIZE_ADDRESS__) // which brings allocations of its own

namespace {

/// What a setter does, and more; nothing in here allocates but the library. 0 when all went well,
/// 1 when something failed as it may, 2 when a result was wrong.
int useDictionary()
{
    OruAsfDict *dict = nullptr;
    if (oruAsfDictCreate(&dict, kFile) != 0) return dict == nullptr ? 1 : 2;
    int result = 0;
    const auto check = [&](int32_t status) {
        if (status < 0) result = std::max(result, 1);
    };
    for (int i = 0; i < 4; ++i) { // the third one builds an index
        const char *text = nullptr;
        const int32_t status = oruAsfDictGetString(dict, "key", &text, 0);
        check(status);
        if (status == 0 && (text == nullptr || std::strcmp(text, "old") != 0)) result = 2;
        if (status != 0 && text != nullptr) result = 2;
    }
    char key[] = "key0";
    for (int i = 0; i < 9; ++i, ++key[3]) {
        const int32_t status = oruAsfDictSetDelimitedString(dict, key, "value");
        check(status);
        const char *text = nullptr;
        if (oruAsfDictGetString(dict, key, &text, 0) < 0) result = std::max(result, 1);
        else if ((text != nullptr) != (status == 0)) result = 2;
    }
    const int32_t visited = oruAsfDictVisit(
        dict, [](void *, const char *, const char *value) { return value == nullptr ? 7 : 0; },
        nullptr);
    check(visited);
    if (visited == 7) result = 2; // no value is damaged
    check(oruAsfDictSave(dict, kFile));
    oruAsfDictFree(dict);
    return result;
}

} // namespace

TEST_F(SaveMemory, ThatIsDeniedFailsOrDoesNoHarmAndNothingLeaks)
{
    int n = 1;
    for (;; ++n) {
        box.write(kFile, kOld);
        Faults::denyMemory(n);
        const int result = useDictionary();
        const bool denied = Faults::allowMemory();
        ASSERT_EQ(Faults::blocksLeft(), 0) << n;
        ASSERT_NE(result, 2) << n;
        if (!denied) {
            EXPECT_EQ(result, 0);
            break;
        }
        const string saved = box.read(kFile);
        EXPECT_TRUE(saved == kOld || saved.compare(0, kOld.size(), kOld) == 0) << n;
        EXPECT_THAT(box.names(), ElementsAre("config")) << n;
    }
    EXPECT_GT(n, 10);
}

TEST_F(SaveMemory, ThatIsDeniedToADeletionLeavesTheKey)
{
    OruAsfDict *dict = nullptr;
    ASSERT_EQ(oruAsfDictCreate(&dict, kFile), 0);
    int n = 1;
    for (;; ++n) {
        Faults::denyMemory(n);
        const int32_t status = n % 2 == 0 ? oruAsfDictSetString(dict, "key", nullptr)
                                          : oruAsfDictSetDelimitedString(dict, "key", nullptr);
        if (!Faults::allowMemory()) {
            EXPECT_EQ(status, 0);
            break;
        }
        EXPECT_EQ(status, -1) << n;
        const char *value = nullptr;
        EXPECT_EQ(oruAsfDictGetString(dict, "key", &value, 0), 0);
        EXPECT_STREQ(value, "old") << n;
    }
    EXPECT_GT(n, 2);
    const char *value = nullptr;
    EXPECT_EQ(oruAsfDictGetString(dict, "key", &value, 0), 0);
    EXPECT_EQ(value, nullptr);
    oruAsfDictFree(dict);
}

TEST_F(SaveMemory, ThatIsDeniedToAVisitIsNotTakenForADamagedValue)
{
    box.write(kFile, "key=\"" + string(10000, 'x') + "\"\n");
    OruAsfDict *dict = nullptr;
    ASSERT_EQ(oruAsfDictCreate(&dict, kFile), 0);
    const auto isDamaged = [](void *, const char *, const char *value) {
        return value == nullptr ? 1 : 0;
    };
    int n = 1;
    for (;; ++n) {
        Faults::denyMemory(n);
        const int32_t result = oruAsfDictVisit(dict, isDamaged, nullptr);
        if (!Faults::allowMemory()) {
            EXPECT_EQ(result, 0);
            break;
        }
        EXPECT_EQ(result, -1) << n;
    }
    EXPECT_GT(n, 1);
    oruAsfDictFree(dict);
}

TEST_F(SaveMemory, ThatIsDeniedToASaveLeavesTheOldFile)
{
    OruAsfDict *dict = nullptr;
    ASSERT_EQ(oruAsfDictCreate(&dict, kFile), 0);
    ASSERT_EQ(oruAsfDictSetString(dict, "key", "new value"), 0);
    int n = 1;
    for (;; ++n) {
        Faults::denyMemory(n);
        const int32_t status = oruAsfDictSave(dict, kFile);
        if (!Faults::allowMemory()) {
            EXPECT_EQ(status, 0);
            break;
        }
        EXPECT_EQ(status, -1) << n;
        expectUntouched();
    }
    EXPECT_GT(n, 1);
    EXPECT_EQ(box.read(kFile), kNew);
    oruAsfDictFree(dict);
}

#endif
