// A configuration file of any text, and a change of any key to any value.
#include "fuzz.hpp"
#include "oruAsf.h"
#include "support/tempdir.hpp"

#include <cstring>
#include <map>
#include <memory>

namespace {

using Settings = std::map<std::string, std::string>;
using Dict = std::unique_ptr<OruAsfDict, void (*)(OruAsfDict *)>;

constexpr const char *kFile = "/file";

Dict load()
{
    OruAsfDict *dict = nullptr;
    MUST(oruAsfDictCreate(&dict, kFile) == 0);
    return {dict, oruAsfDictFree};
}

/// Every key with its value; a damaged one has a mark that no value begins with.
Settings settings(OruAsfDict *dict)
{
    Settings all;
    const auto visit = [](void *context, const char *key, const char *value) {
        auto &found = *static_cast<Settings *>(context);
        MUST(found.emplace(key, value == nullptr ? "damaged" : std::string{"="} + value).second);
        return 0;
    };
    MUST(oruAsfDictVisit(dict, visit, &all) == 0);
    return all;
}

/// Cuts the bytes up to a NUL off.
std::string take(std::string &bytes)
{
    const size_t end = bytes.find('\0');
    std::string head = bytes.substr(0, end);
    bytes = end == std::string::npos ? "" : bytes.substr(end + 1);
    return head;
}

void change(int32_t (*set)(OruAsfDict *, const char *, const char *), const std::string &key,
            const std::string &value)
{
    const Dict dict = load();
    Settings expected = settings(dict.get());
    const bool done = set(dict.get(), key.c_str(), value.c_str()) == 0;
    if (done) expected[key] = "=" + value;
    MUST(settings(dict.get()) == expected);
    MUST(oruAsfDictSave(dict.get(), kFile) == 0);
    const Dict saved = load();
    MUST(settings(saved.get()) == expected);
    if (!done) return;

    const char *text = nullptr;
    MUST(oruAsfDictGetString(saved.get(), key.c_str(), &text, 0) == 0);
    MUST(text != nullptr && value == text);
    MUST(oruAsfDictGetDelimitedString(saved.get(), key.c_str(), &text, 0) ==
         static_cast<int32_t>(value.size()));
    MUST(oruAsfDictSetString(saved.get(), key.c_str(), nullptr) == 0);
    expected.erase(key);
    MUST(settings(saved.get()) == expected);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const oru::test::TempDir box;
    std::string bytes{reinterpret_cast<const char *>(data), size};
    const std::string text = take(bytes);
    const std::string key = take(bytes);
    const std::string value = take(bytes);
    for (auto *set : {oruAsfDictSetString, oruAsfDictSetDelimitedString}) {
        box.write(kFile, text);
        change(set, key, value);
    }
    return 0;
}
