// The option --fields: which of the fields of a value, or columns of a table, are shown, and in
// which order.
#pragma once

#include "catalogue.hpp"
#include "request.hpp"
#include "show.hpp"

#include <string>
#include <vector>

namespace oructl {

/// What was chosen of some fields; all of them without --fields.
struct Selection {
    std::vector<Field> fields = {};
    std::vector<size_t> places = {}; ///< where each stood
    std::string problem = {};        ///< what is wrong with the choice, or empty

    /// The values of the chosen fields, in their order.
    [[nodiscard]] std::vector<Value> of(const std::vector<Value> &values) const;
};

/// Chooses among the fields that a get shows. The only field of a plain item is called "value".
Selection select(const Request &request, std::span<const Field> fields);

} // namespace oructl
