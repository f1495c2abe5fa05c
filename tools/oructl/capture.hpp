// What a configuration says, item by item, and what differs between two of them.
#pragma once

#include "catalogue.hpp"
#include "state.hpp"
#include "transaction.hpp"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace oructl {

/// The texts of the configuration files, in the order of kConfigurationFiles; none for a file that
/// is not there.
using Texts = std::array<std::optional<std::string>, kConfigurationFiles.size()>;

/// What is stored below a root folder.
Texts storedTexts(const std::string &root);

/// The factory's files below a root folder.
Texts factoryTexts(const std::string &root);

/// What was committed last below the root folder; what is stored, where nothing is known of that.
Texts committedTexts();

/// An item at an index, read: its values, or the code for which it can't be.
struct Captured {
    const Item *item;
    int64_t index;
    uint32_t code;
    std::vector<Value> values;
};

/// Reads an item where the access point now is. A value that is known although the rest of the
/// item can't be read counts.
Captured capturedNow(const Item &item, int64_t index);

struct Capture {
    Texts texts;
    std::vector<Captured> items;
};

/// Reads every item that has a get and a set, at every index: in the order of the catalogue, with
/// the Ethernet ports that the files name. No service is asked. None when there is no room for a
/// copy of the files, with the reason in errno.
std::optional<Capture> capture(const Texts &texts);

/// "mimo[0]".
std::string nameOf(const Item &item, int64_t index);

/// Whether two values of a field are the same. Not given is a value of its own.
bool sameValue(const Field &field, const Value &one, const Value &other);

/// An item that differs; one side is missing for a port that it doesn't know.
struct Difference {
    const Item *item;
    int64_t index;
    const Captured *from; ///< NULL: can't be read there
    const Captured *to;   ///< NULL: can't be read there
};

struct Differences {
    std::vector<Difference> items;
    std::vector<KeyChange> keys; ///< those that no item of the list accounts for

    [[nodiscard]] bool any() const { return !items.empty() || !keys.empty(); }
};

/// Both captures have to outlive what is returned.
Differences differences(const Capture &from, const Capture &to);

} // namespace oructl
