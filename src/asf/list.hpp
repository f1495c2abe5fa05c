// A growing list of plain records.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <type_traits>

namespace oru {

template <class T>
class List {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    List() = default;
    ~List() { std::free(items_); }
    List(const List &) = delete;
    List &operator=(const List &) = delete;

    [[nodiscard]] uint32_t size() const { return size_; }
    T &operator[](uint32_t i) { return items_[i]; }
    T *begin() { return items_; }
    T *end() { return items_ + size_; }

    /// False when there is no memory; the list is then as it was.
    bool add(const T &item)
    {
        if (size_ == room_) {
            const uint32_t room = room_ == 0 ? 4 : room_ * 2;
            void *items = std::realloc(items_, room * sizeof(T));
            if (items == nullptr) return false;
            items_ = static_cast<T *>(items);
            room_ = room;
        }
        items_[size_++] = item;
        return true;
    }

private:
    T *items_ = nullptr;
    uint32_t size_ = 0;
    uint32_t room_ = 0;
};

} // namespace oru
