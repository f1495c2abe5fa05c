// The lines of a configuration text, one after another and by key.
#pragma once

#include "keytable.hpp"

#include <cstring>
#include <string_view>

namespace oru {

/// The line that starts at a place, without its line feed.
inline std::string_view lineAt(std::string_view text, size_t place)
{
    const char *line = text.data() + place;
    const void *feed = std::memchr(line, '\n', text.size() - place);
    const char *end = feed == nullptr ? text.data() + text.size() : static_cast<const char *>(feed);
    return {line, static_cast<size_t>(end - line)};
}

/// Calls visit(line) for every line until it returns false.
template <class Visit>
void forEachLine(std::string_view text, Visit visit)
{
    for (size_t place = 0; place < text.size();) {
        const std::string_view line = lineAt(text, place);
        if (!visit(line)) return;
        place += line.size() + 1;
    }
}

/// The part of a line before its '=': its key, if the line is a setting; empty without a '='.
inline std::string_view nameOfLine(std::string_view line)
{
    const void *equals = std::memchr(line.data(), '=', line.size());
    if (equals == nullptr) return {};
    return {line.data(), static_cast<size_t>(static_cast<const char *>(equals) - line.data())};
}

/// From each key of a text to its last line. Whoever looks a key up knows that it is one, so lines
/// that are no settings may stand in it too: without them, to read 20 keys of 1000 takes 1.7 times
/// as long.
class LineIndex {
public:
    /// False when there is no memory; the index is then empty.
    bool build(std::string_view text)
    {
        text_ = text;
        uint32_t lines = 1;
        for (const char *at = text.data(), *end = at + text.size(); at < end; ++lines) {
            const void *feed = std::memchr(at, '\n', static_cast<size_t>(end - at));
            if (feed == nullptr) break;
            at = static_cast<const char *>(feed) + 1;
        }
        if (!table_.reserve(lines)) return false;
        forEachLine(text, [this](std::string_view line) {
            if (const std::string_view name = nameOfLine(line); !name.empty())
                slot(name) = static_cast<uint32_t>(line.data() - text_.data());
            return true;
        });
        return true;
    }

    [[nodiscard]] bool built() const { return !table_.empty(); }

    /// A null data() when the text has no such key; key must be one, see isKey().
    std::string_view find(std::string_view key)
    {
        const uint32_t place = slot(key);
        return place == KeyTable::kNone ? std::string_view{} : lineAt(text_, place);
    }

private:
    uint32_t &slot(std::string_view key)
    {
        return table_.at(hashOf(key), [&](uint32_t place) {
            return text_.size() - place > key.size() && text_[place + key.size()] == '=' &&
                   std::memcmp(text_.data() + place, key.data(), key.size()) == 0;
        });
    }

    std::string_view text_;
    KeyTable table_;
};

} // namespace oru
