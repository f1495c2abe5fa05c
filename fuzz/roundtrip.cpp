// A configuration file of any text, and changes of any keys to any values: set, save, load.
#include "fuzz.hpp"
#include "memory.hpp"
#include "settings.hpp"

#include <vector>

using namespace oru::fuzz;

namespace {

/// The lines of a text that set none of these keys.
std::vector<std::string> otherLines(std::string_view text, const std::vector<std::string> &keys)
{
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        bool other = true;
        for (const std::string &key : keys)
            if (line.starts_with(key) && line.substr(key.size()).starts_with('=')) other = false;
        if (other) lines.emplace_back(line);
    }
    return lines;
}

/// Whether a key can be found again once it is written.
bool canBeKept(const std::string &key)
{
    if (key.empty() || key.front() == '#') return false;
    for (const char byte : key)
        if (static_cast<unsigned char>(byte) <= ' ' || byte == '=' || byte == 0x7f) return false;
    return true;
}

/// One change, in the way that its first byte says: deleted, delimited, or plain.
void change(OruAsfDict *dict, char how, const std::string &key, const std::string &value,
            Settings &expected)
{
    const bool deletes = how == '-';
    auto *set = how == '"' ? oruAsfDictSetDelimitedString : oruAsfDictSetString;
    const int32_t status = set(dict, key.c_str(), deletes ? nullptr : value.c_str());
    MUST(status == (canBeKept(key) ? 0 : -1));
    if (status != 0) return;

    const char *text = nullptr;
    MUST(oruAsfDictGetString(dict, key.c_str(), &text, 0) == 0);
    if (deletes) {
        expected.erase(key);
        MUST(text == nullptr);
    } else {
        expected[key] = "=" + value;
        MUST(text != nullptr && value == text);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const bool ready = (enterMemory(), true);
    MUST(ready);
    std::string bytes{reinterpret_cast<const char *>(data), size};
    const std::string text = take(bytes);
    putText(kWsm, text);

    const Dict dict = load(kWsm);
    Settings expected = settings(dict.get());
    std::vector<std::string> keys;
    while (!bytes.empty()) {
        const char how = bytes.front();
        bytes.erase(0, 1);
        const std::string key = take(bytes);
        const std::string value = take(bytes);
        change(dict.get(), how, key, value, expected);
        keys.push_back(key);
    }
    MUST(settings(dict.get()) == expected);

    MUST(oruAsfDictSave(dict.get(), kWsm) == 0);
    MUST(otherLines(textOf(kWsm), keys) == otherLines(text, keys));
    const uint64_t saved = writes();
    const Dict again = load(kWsm);
    MUST(settings(again.get()) == expected);
    MUST(oruAsfDictSave(again.get(), kWsm) == 0 && writes() == saved);
    expectTidy();
    return 0;
}
