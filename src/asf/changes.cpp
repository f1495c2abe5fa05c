#include "changes.hpp"

#include "lines.hpp"
#include "text.hpp"

#include <cstdlib>
#include <cstring>

using std::string_view;

namespace oru {
namespace {

constexpr uint32_t kNowhere = UINT32_MAX;

char *append(char *at, string_view text)
{
    if (!text.empty()) std::memcpy(at, text.data(), text.size());
    return at + text.size();
}

/// The part of a text before a line of it.
string_view before(string_view text, string_view line)
{
    return {text.data(), static_cast<size_t>(line.data() - text.data())};
}

} // namespace

Change *Changes::find(string_view key, uint32_t hash)
{
    if (indexed()) {
        const uint32_t number =
            index_.at(hash, [&](uint32_t i) { return changes_[i].key() == key; });
        return number == KeyTable::kNone ? nullptr : &changes_[number];
    }
    for (Change &change : changes_)
        if (change.hash == hash && change.key() == key) return &change;
    return nullptr;
}

bool Changes::note(const char *line, uint32_t keySize, uint32_t lineSize)
{
    const uint32_t hash = hashOf({line, keySize});
    if (Change *known = find({line, keySize}, hash); known != nullptr) {
        known->line = line;
        known->lineSize = lineSize;
        return true;
    }
    if (!changes_.add({line, keySize, lineSize, hash, kNowhere})) return false;
    growIndex();
    return true;
}

uint32_t &Changes::slot(const Change &change)
{
    return index_.at(change.hash, [&](uint32_t i) { return changes_[i].key() == change.key(); });
}

/// Takes the newest change into the index. Without memory for one, the changes are gone through.
void Changes::growIndex()
{
    const uint32_t count = changes_.size();
    if (count <= kFew) return;
    if (!index_.empty() && count <= indexRoom_) {
        slot(changes_[count - 1]) = count - 1;
        return;
    }
    indexRoom_ = count * 2;
    if (!index_.reserve(indexRoom_)) return;
    for (uint32_t i = 0; i < count; ++i) slot(changes_[i]) = i;
}

/// A line's place in the text; one that goes takes its line feed with it.
Changes::Splice Changes::spliceFor(string_view text, string_view line, const Change *change)
{
    const size_t begin = before(text, line).size();
    const size_t end = begin + line.size();
    const bool goes = change == nullptr || change->deleted();
    const size_t feed = goes && end < text.size() ? 1 : 0;
    return {static_cast<uint32_t>(begin), static_cast<uint32_t>(end + feed),
            goes ? string_view{} : change->text()};
}

/// For a few changes: looks each one's lines up, from the last one backwards.
bool Changes::collectBySearching(string_view text, List<Splice> &splices)
{
    for (Change &change : changes_) {
        string_view line = findLastLine(text, change.key());
        while (line.data() != nullptr) {
            const bool last = change.splice == kNowhere;
            change.splice = 0;
            if (!splices.add(spliceFor(text, line, last ? &change : nullptr))) return false;
            line = findLastLine(before(text, line), change.key());
        }
    }
    if (splices.size() > 1)
        std::qsort(splices.begin(), splices.size(), sizeof(Splice),
                   [](const void *a, const void *b) {
                       const auto *one = static_cast<const Splice *>(a);
                       return one->begin < static_cast<const Splice *>(b)->begin ? -1 : 1;
                   });
    return true;
}

/// For many changes: goes through the lines once.
bool Changes::collectByWalking(string_view text, List<Splice> &splices)
{
    bool enough = true;
    forEachLine(text, [&](string_view line) {
        const string_view key = keyOfLine(line);
        Change *change = key.empty() ? nullptr : find(key, hashOf(key));
        if (change == nullptr) return true;
        if (change->splice != kNowhere) { // an earlier line of the same key: it goes
            Splice &earlier = splices[change->splice];
            earlier = spliceFor(text, lineAt(text, earlier.begin), nullptr);
        }
        change->splice = splices.size();
        return enough = splices.add(spliceFor(text, line, change));
    });
    return enough;
}

bool Changes::collect(string_view text, List<Splice> &splices)
{
    for (Change &change : changes_) change.splice = kNowhere;
    return changes_.size() <= kFew ? collectBySearching(text, splices)
                                   : collectByWalking(text, splices);
}

bool Changes::compose(string_view text, Composed &bytes)
{
    List<Splice> splices;
    if (changes_.size() == 0) return true;
    if (!collect(text, splices)) return false;

    size_t room = text.size() + 1;
    bool differs = false;
    for (const Splice &splice : splices) {
        room += splice.line.size();
        differs |=
            string_view{text.data() + splice.begin, splice.end - splice.begin} != splice.line;
    }
    for (const Change &change : changes_) {
        if (change.deleted() || change.splice != kNowhere) continue;
        room += change.text().size() + 1;
        differs = true;
    }
    if (!differs) return true;

    bytes.block_ = static_cast<char *>(std::malloc(room));
    if (bytes.block_ == nullptr) return false;
    char *at = bytes.block_;
    uint32_t from = 0;
    for (const Splice &splice : splices) {
        at = append(at, {text.data() + from, splice.begin - from});
        at = append(at, splice.line);
        from = splice.end;
    }
    at = append(at, {text.data() + from, text.size() - from});
    for (const Change &change : changes_) {
        if (change.deleted() || change.splice != kNowhere) continue;
        if (at != bytes.block_ && at[-1] != '\n') *at++ = '\n';
        at = append(at, change.text());
        *at++ = '\n';
    }
    bytes.text_ = {bytes.block_, static_cast<size_t>(at - bytes.block_)};
    return true;
}

} // namespace oru
