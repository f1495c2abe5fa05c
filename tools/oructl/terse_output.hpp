// Output for scripts: values alone, one line a record, between tabs. Tabs, line feeds, backslashes
// and control characters within them are escaped ("\t", "\n", "\\", "\x1b"), so that a line is
// always a record.
#pragma once

#include "catalogue.hpp"
#include "values.hpp"

#include <span>
#include <string>
#include <vector>

namespace oructl {

/// One record. A word where the number has one; empty for what is absent.
std::string terseLine(std::span<const Field> fields, const std::vector<Value> &values,
                      Secrets secrets);

} // namespace oructl
