// Dictionaries. A loaded text is never changed: reads look into it, changes are noted beside it,
// and a save puts both together.
#include "arena.hpp"
#include "changes.hpp"
#include "file.hpp"
#include "lines.hpp"
#include "oruAsf.h"
#include "root.hpp"
#include "text.hpp"

#include <cstdlib>
#include <cstring>
#include <new>
#include <string_view>

using namespace oru;
using std::string_view;

struct OruAsfDict {
    /// The record, kFrontRoom bytes that end in a line feed, and the text stand in one block.
    static OruAsfDict *load(const char *path)
    {
        constexpr size_t kFront = sizeof(OruAsfDict) + kFrontRoom;
        const RootedPath rooted{path};
        if (rooted.empty()) return nullptr;
        const ReadFile file = readFile(rooted.text(), kFront);
        if (file.block == nullptr) return nullptr;

        char *text = file.block + kFront;
        if (std::memchr(text, '\0', file.size) != nullptr) {
            std::free(file.block);
            return nullptr;
        }
        std::memset(text - kFrontRoom, '\n', kFrontRoom);
        return new (file.block) OruAsfDict({text, file.size}, file.state);
    }

    static void destroy(OruAsfDict *dict)
    {
        if (dict == nullptr) return;
        dict->~OruAsfDict();
        std::free(dict);
    }

    /// How key's value is written; a null data() when the key is absent.
    string_view find(string_view key)
    {
        string_view line;
        if (const Change *change = changes_.find(key); change != nullptr) line = change->text();
        else line = findLoaded(key);
        if (line.empty()) return {};
        return {line.data() + key.size() + 1, line.size() - key.size() - 1};
    }

    /// A copy of a value as it reads, NUL-terminated. Its length, or -1.
    int32_t read(string_view written, const char **value)
    {
        return readInto(arena_, written, value);
    }
    static int32_t readInto(Arena &arena, string_view written, const char **value)
    {
        const ptrdiff_t size = readSize(written);
        if (size < 0) return -1;
        char *copy = arena.take(static_cast<size_t>(size) + 1);
        if (copy == nullptr) return -1;
        *readValue(copy, written) = '\0';
        *value = copy;
        return static_cast<int32_t>(size);
    }

    bool set(string_view key, string_view value, Form form)
    {
        if (key.size() > kMaxText || value.size() > kMaxText) return false;
        const size_t size = key.size() + 1 + writtenSize(value, form);
        char *line = copyOf(key, size);
        if (line == nullptr) return false;
        line[key.size()] = '=';
        writeValue(line + key.size() + 1, value, form);
        return changes_.note(line, static_cast<uint32_t>(key.size()), static_cast<uint32_t>(size));
    }

    bool remove(string_view key)
    {
        if (key.size() > kMaxText) return false;
        const char *line = copyOf(key, key.size());
        return line != nullptr && changes_.note(line, static_cast<uint32_t>(key.size()), 0);
    }

    int32_t save(const char *path)
    {
        const RootedPath rooted{path};
        Composed bytes{text_};
        if (rooted.empty() || !changes_.compose(text_, bytes)) return -1;
        return replaceFile(rooted.text(), bytes.text(), state_, !bytes.differs());
    }

    template <class Visit>
    int32_t forEach(Visit visit)
    {
        Composed bytes{text_};
        LineIndex index;
        if (!changes_.compose(text_, bytes) || !index.build(bytes.text())) return -1;
        int32_t result = 0;
        forEachLine(bytes.text(), [&](string_view line) {
            const string_view key = keyOfLine(line);
            if (key.empty() || index.find(key).data() != line.data()) return true;
            Arena copies; // of this line: a walk over many must not fill the memory
            char *name = copyInto(copies, key, key.size() + 1);
            if (name == nullptr) return result = -1, false;
            name[key.size()] = '\0';
            const char *value = nullptr;
            const string_view written{key.data() + key.size() + 1, line.size() - key.size() - 1};
            const bool damaged = readSize(written) < 0;
            if (readInto(copies, written, &value) < 0 && !damaged) return result = -1, false;
            return (result = visit(name, value)) == 0;
        });
        return result;
    }

private:
    /// Look-ups that search the text. The next one builds an index: most operations ask once or
    /// twice, where an index costs more than it saves, and a few ask for dozens of keys.
    static constexpr uint32_t kSearches = 2;

    OruAsfDict(string_view text, const FileState &state) : text_(text), state_(state) {}
    ~OruAsfDict() = default;

    string_view findLoaded(string_view key)
    {
        if (!isKey(key)) return {};
        if (!index_.built() && (++lookUps_ <= kSearches || !index_.build(text_)))
            return findLastLine(text_, key);
        return index_.find(key);
    }

    char *copyOf(string_view key, size_t room) { return copyInto(arena_, key, room); }
    static char *copyInto(Arena &arena, string_view key, size_t room)
    {
        char *copy = arena.take(room);
        if (copy != nullptr) std::memcpy(copy, key.data(), key.size());
        return copy;
    }

    const string_view text_;
    const FileState state_;
    uint32_t lookUps_ = 0;
    LineIndex index_;
    Changes changes_;
    Arena arena_;
};

namespace {

/// A whole decimal number of 32 bits, signed.
bool parseInt(string_view text, int32_t &number)
{
    const bool negative = !text.empty() && text.front() == '-';
    const char *at = text.data() + (negative ? 1 : 0);
    const char *end = text.data() + text.size();
    if (at == end) return false;

    int64_t value = 0;
    for (; at < end; ++at) {
        if (*at < '0' || *at > '9') return false;
        value = value * 10 + (*at - '0');
        if (value > int64_t{INT32_MAX} + 1) return false;
    }
    if (negative) value = -value;
    if (value > INT32_MAX) return false;
    number = static_cast<int32_t>(value);
    return true;
}

} // namespace

extern "C" {

int32_t oruAsfDictCreate(OruAsfDict **dict, const char *path)
{
    if (dict == nullptr || path == nullptr) return -1;
    OruAsfDict *loaded = OruAsfDict::load(path);
    if (loaded == nullptr) return -1;
    *dict = loaded;
    return 0;
}

int32_t oruAsfDictGetInt(OruAsfDict *dict, const char *key, int32_t *value, int32_t /*flag*/)
{
    if (dict == nullptr || key == nullptr || value == nullptr) return -1;
    return parseInt(dict->find(key), *value) ? 0 : -1;
}

int32_t oruAsfDictGetBool(OruAsfDict *dict, const char *key, int32_t *value, int32_t /*flag*/)
{
    if (dict == nullptr || key == nullptr || value == nullptr) return -1;
    const string_view written = dict->find(key);
    const bool yes = written == "true";
    if (!yes && written != "false") return -1;
    *value = yes ? 1 : 0;
    return 0;
}

int32_t oruAsfDictGetString(OruAsfDict *dict, const char *key, const char **value, int32_t /*flag*/)
{
    if (dict == nullptr || key == nullptr || value == nullptr) return -1;
    const string_view written = dict->find(key);
    if (written.data() == nullptr) return 0;
    return dict->read(written, value) < 0 ? -1 : 0;
}

int32_t oruAsfDictGetDelimitedString(OruAsfDict *dict, const char *key, const char **value,
                                     int32_t /*flag*/)
{
    if (dict == nullptr || key == nullptr || value == nullptr) return -1;
    const string_view written = dict->find(key);
    return written.data() == nullptr ? -1 : dict->read(written, value);
}

int32_t oruAsfDictSetString(OruAsfDict *dict, const char *key, const char *value)
{
    if (dict == nullptr || key == nullptr || !isKey(key)) return -1;
    if (value == nullptr) return dict->remove(key) ? 0 : -1;
    return dict->set(key, value, plainForm(value)) ? 0 : -1;
}

int32_t oruAsfDictSetDelimitedString(OruAsfDict *dict, const char *key, const char *value)
{
    if (dict == nullptr || key == nullptr || !isKey(key)) return -1;
    if (value == nullptr) return dict->remove(key) ? 0 : -1;
    return dict->set(key, value, Form::delimited) ? 0 : -1;
}

int32_t oruAsfDictSave(OruAsfDict *dict, const char *path)
{
    return dict == nullptr || path == nullptr ? -1 : dict->save(path);
}

void oruAsfDictFree(OruAsfDict *dict)
{
    OruAsfDict::destroy(dict);
}

int32_t oruAsfDictVisit(OruAsfDict *dict,
                        int32_t (*visit)(void *context, const char *key, const char *value),
                        void *context)
{
    if (dict == nullptr || visit == nullptr) return -1;
    return dict->forEach(
        [&](const char *key, const char *value) { return visit(context, key, value); });
}

} // extern "C"
