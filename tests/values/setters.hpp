// Every way in for a text, and every way out.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace oru::test {

/// What of a text an operation is to keep.
using Kept = std::function<std::string(const std::string &)>;

/// An operation that takes a text.
struct TextSetter {
    std::string name;     // "operation.parameter"
    std::string settings; // lines that the operation needs in the security file
    std::function<uint32_t(const std::string &)> set;
    std::string keys;   // that it may change, as an expression
    std::string key;    // that holds the text then, without a change of its own; empty: none
    std::string file;   // in which
    std::string logged; // what the log says before a text that is refused; empty: nothing of it
    Kept kept = {};     // none: the text itself
    /// What the getter says. None: no getter gives the text back. Empty: it refuses.
    std::function<std::optional<std::string>()> get = {};
};
const std::vector<TextSetter> &textSetters();

/// An operation that gives a text that stands in a file.
struct TextGetter {
    std::string name; // of the operation
    std::string file;
    std::string key;
    std::string settings; // lines that the operation needs beside it
    /// Calls it with just the room that the header promises, between marks. False when it wrote
    /// beyond, or ended no text.
    std::function<bool(uint32_t &code)> get;
};
const std::vector<TextGetter> &textGetters();

} // namespace oru::test
