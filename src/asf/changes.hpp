// What was set and deleted in a dictionary since it was loaded.
#pragma once

#include "keytable.hpp"
#include "list.hpp"

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace oru {

/// A key that was set or deleted.
struct Change {
    const char *line; // key=value, without a line feed; the key alone when it is deleted
    uint32_t keySize;
    uint32_t lineSize; // 0: deleted
    uint32_t hash;
    uint32_t splice; // where it goes in the text that is being composed

    [[nodiscard]] std::string_view key() const { return {line, keySize}; }
    [[nodiscard]] bool deleted() const { return lineSize == 0; }
    [[nodiscard]] std::string_view text() const { return {line, lineSize}; }
};

/// The bytes of a save: the loaded text itself, or a block of its own.
class Composed {
public:
    explicit Composed(std::string_view text) : text_(text) {}
    ~Composed() { std::free(block_); }
    Composed(const Composed &) = delete;
    Composed &operator=(const Composed &) = delete;

    [[nodiscard]] std::string_view text() const { return text_; }
    [[nodiscard]] bool differs() const { return block_ != nullptr; }

private:
    friend class Changes;
    std::string_view text_;
    char *block_ = nullptr;
};

class Changes {
public:
    /// The change of a key, null when there is none.
    const Change *find(std::string_view key) { return find(key, hashOf(key)); }

    /// Notes that key is now set by line, or deleted (lineSize 0). The line's characters, which
    /// begin with the key, stay the caller's. False when there is no memory.
    bool note(const char *line, uint32_t keySize, uint32_t lineSize);

    /// Puts a text and the changes together; leaves `bytes` as it is when nothing differs. Of a
    /// changed key that stands twice one line is left. False when there is no memory.
    bool compose(std::string_view text, Composed &bytes);

private:
    /// A stretch of the text that gives way to a line, or to nothing.
    struct Splice {
        uint32_t begin;
        uint32_t end;
        std::string_view line;
    };

    static constexpr uint32_t kFew = 4; // changes that are gone through one by one

    Change *find(std::string_view key, uint32_t hash);
    uint32_t &slot(const Change &change);
    bool indexed() const { return changes_.size() > kFew && !index_.empty(); }
    void growIndex();
    bool collect(std::string_view text, List<Splice> &splices);
    bool collectBySearching(std::string_view text, List<Splice> &splices);
    bool collectByWalking(std::string_view text, List<Splice> &splices);
    static Splice spliceFor(std::string_view text, std::string_view line, const Change *change);

    List<Change> changes_;
    KeyTable index_; // numbers of changes_, once there are more than a few
    uint32_t indexRoom_ = 0;
};

} // namespace oru
