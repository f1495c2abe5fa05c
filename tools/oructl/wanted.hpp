// Values that an item is to have: as a get gives them, with gaps.
#pragma once

#include "capture.hpp"
#include "catalogue.hpp"

#include <string>
#include <vector>

namespace oructl {

/// The number of a rate that was given by its word alone.
inline constexpr int64_t kUnknownCode = INT64_MIN;

/// An item's values as a file gives them: those of the fields that a get shows. Fields that it
/// leaves out are not given.
struct Wanted {
    const Item *item = nullptr;
    int64_t index = 0;
    std::vector<Value> values = {};
    std::string place = {};  ///< "line 3"
    bool unreadable = false; ///< an export that says why the item could not be read
};

/// Whether any secret is masked.
bool isMasked(std::span<const Field> fields, const std::vector<Value> &values);

/// The wanted values with those stored in the place of masked secrets, as far as there are any.
std::vector<Value> unmasked(std::span<const Field> fields, std::vector<Value> wanted,
                            const std::vector<Value> &stored);

/// The wanted values with those stored in the place of all that the wanted ones leave open: the
/// same as the stored ones when there is nothing to change.
std::vector<Value> completed(std::span<const Field> fields, const std::vector<Value> &wanted,
                             const std::vector<Value> &stored);

/// Whether an item that can be read has the wanted values.
bool isStored(const Wanted &wanted, const Captured &stored);

/// Whether values are for an item's restore; a set takes them else.
bool isRestored(const Item &item, const std::vector<Value> &values);

/// What a restore or set takes for wanted values. Returns what it misses, or an empty text.
std::string callFor(const Item &item, std::vector<Value> wanted, Call &call);

} // namespace oructl
