// A configuration file of any text, and a key to look for.
#include "memory.hpp"

#include "fuzz.hpp"
#include "settings.hpp"

#include <cstring>

using namespace oru::fuzz;

namespace {

/// What each getter makes of a key, against what the walk over all keys has found.
void check(const Settings &all, const std::string &key, OruAsfDict *dict)
{
    constexpr int32_t kUntouched = 77;
    const auto found = all.find(key);
    const bool isThere = found != all.end();
    const bool isWhole = isThere && found->second != kDamaged;
    const char *text = nullptr;
    MUST(oruAsfDictGetString(dict, key.c_str(), &text, 0) == (isThere && !isWhole ? -1 : 0));
    MUST(isWhole ? text != nullptr && found->second == std::string{"="} + text : text == nullptr);

    const int32_t size = oruAsfDictGetDelimitedString(dict, key.c_str(), &text, 0);
    MUST(size == (isWhole ? static_cast<int32_t>(found->second.size()) - 1 : -1));

    int32_t number = kUntouched;
    if (oruAsfDictGetInt(dict, key.c_str(), &number, 0) == 0) {
        MUST(isWhole && std::strtoll(found->second.c_str() + 1, nullptr, 10) == number);
    } else {
        MUST(number == kUntouched);
    }
    number = kUntouched;
    if (oruAsfDictGetBool(dict, key.c_str(), &number, 0) == 0) {
        MUST(isWhole && found->second == (number == 1 ? "=true" : "=false"));
    } else {
        MUST(number == kUntouched);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    constexpr int kMostKeys = 4;
    static const bool ready = (enterMemory(), true);
    MUST(ready);
    std::string bytes{reinterpret_cast<const char *>(data), size};
    const std::string text = take(bytes);
    const std::string wanted = take(bytes);
    putText(kWsm, text);
    const uint64_t before = writes();

    const Dict dict = load(kWsm);
    const Settings all = settings(dict.get());
    check(all, wanted, dict.get()); // by a search
    check(all, wanted, dict.get()); // by the index
    int count = 0;
    for (const auto &[key, value] : all) {
        if (++count > kMostKeys) break;
        check(all, key, load(kWsm).get());
        check(all, key, dict.get());
    }
    MUST(oruAsfDictSave(dict.get(), kWsm) == 0);
    MUST(writes() == before && textOf(kWsm) == text);
    expectTidy();

    putText(kWsm, std::string{text}.append(1, '\0'));
    OruAsfDict *none = nullptr;
    MUST(oruAsfDictCreate(&none, kWsm) == -1 && none == nullptr);
    return 0;
}
