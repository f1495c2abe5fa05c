// Texts that live as long as their dictionary.
#pragma once

#include <cstddef>
#include <cstdlib>

namespace oru {

class Arena {
public:
    Arena() = default;
    ~Arena()
    {
        while (blocks_ != nullptr) {
            Block *next = blocks_->next;
            std::free(blocks_);
            blocks_ = next;
        }
    }
    Arena(const Arena &) = delete;
    Arena &operator=(const Arena &) = delete;

    /// Room for size characters, null when there is no memory.
    char *take(size_t size)
    {
        if (size <= left_) {
            left_ -= size;
            return blocks_->text() + (blocks_->size - left_ - size);
        }
        // The first texts get blocks of their own size; a dictionary with many shares larger ones.
        const size_t room = ++taken_ > kSmallBlocks && size < kSharedBlock ? kSharedBlock : size;
        auto *block = static_cast<Block *>(std::malloc(sizeof(Block) + room));
        if (block == nullptr) return nullptr;
        block->next = blocks_;
        block->size = room;
        blocks_ = block;
        left_ = room - size;
        return block->text();
    }

private:
    static constexpr size_t kSmallBlocks = 4;
    static constexpr size_t kSharedBlock = 4096;

    struct Block {
        Block *next;
        size_t size;

        char *text() { return reinterpret_cast<char *>(this + 1); }
    };

    Block *blocks_ = nullptr;
    size_t left_ = 0;
    size_t taken_ = 0;
};

} // namespace oru
