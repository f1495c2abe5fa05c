// The catalogue: every item that oructl reads or changes, as constant rows. Parsing, help, list,
// completion, both output forms and the tests follow from it, so that a new item is a new row.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace oructl {

enum class Kind : uint8_t {
    Number, ///< 32 bits, signed
    Switch, ///< on or off
    Choice, ///< a word with a number
    Text,   ///< any bytes
    Bytes,  ///< any bytes, that a set takes as "--hex HEX" too and JSON gives in both forms
    Secret, ///< text that a get masks and a set reads apart from the command line
    Mac,    ///< six two-digit hexadecimal groups joined by colons
    List    ///< entries of one shape; on the command line it takes the remaining operands
};

/// Which verbs a field belongs to.
enum class Use : uint8_t { Both, Get, Set };

struct Word {
    std::string_view word;
    int64_t number;
};

struct Bounds {
    int64_t min;
    int64_t max;
};

/// Shows a number that a get gives in another form than a set takes.
struct Coded {
    std::string (*meaning)(int64_t code); ///< "54 Mbps"
    std::string (*word)(int64_t code);    ///< what a set takes for it; empty when nothing
};

/// A named part of an item's value.
struct Field {
    std::string_view name; ///< empty for the only field of a plain item
    Kind kind;
    Use use = Use::Both;
    Bounds bounds = {0, 0};            ///< legal values; bytes of a text; entries of a list
    std::string_view unit = {};        ///< of a number
    std::span<const Word> words = {};  ///< of a choice or switch; also a number's named values
    std::span<const Field> entry = {}; ///< of a list: what each entry holds
    std::string_view option = {}; ///< set by "--option VALUE" behind the operands; may be absent
    std::string_view meaning = {};
    bool flag = false;             ///< the option stands alone and means 1
    const Coded *coded = nullptr;  ///< NULL for a number that a set takes as a get gives it
    std::string_view operand = {}; ///< how a synopsis calls its value; else as its words or name
    bool optional = false;         ///< of a positional one: may be absent
    char separator = ',';          ///< before it within an entry; of colons, the last one counts

    [[nodiscard]] bool belongsTo(Use verb) const { return use == Use::Both || use == verb; }
};

/// A field's value: of a command line, or of a record that a getter filled.
struct Value {
    bool given = false;
    int64_t number = 0;
    std::string text = {};
    std::vector<std::vector<Value>> entries = {}; ///< of a list: the fields of each entry
};

/// One call of an item's operation.
struct Call {
    int64_t index = 0;              ///< within the item's index bounds; 0 without a scope
    std::vector<Value> values = {}; ///< one for each of the item's fields
    mutable std::vector<std::string> steps = {}; ///< what a set of several steps has done so far
};

enum class Scope : uint8_t { None, Radio, Bss, Port };

struct Item {
    std::string_view name;
    Scope scope;
    Bounds index; ///< numbers that the record's index can hold; the library checks what is legal
    std::span<const Field> fields;
    uint32_t (*get)(Call &);       ///< NULL: can't be read
    uint32_t (*set)(const Call &); ///< NULL: can't be set
    std::string_view operations;   ///< the exported operations that it covers, between blanks
    std::string_view keys;         ///< key patterns, between blanks; "%d" is the index
    std::string_view files;        ///< the files of these keys, between blanks
    std::string_view summary;

    /// Says in a sentence why a call was refused; empty when it knows no more than the message.
    std::string (*reason)(uint32_t code, const Call &call) = nullptr;

    /// Says which values of a set don't go together on a command line; empty when they do.
    std::string (*conflict)(const Call &call) = nullptr;

    std::string_view reads = {}; ///< keys that only the checks of a set read, between blanks
    bool atOnce = false;         ///< a set reaches a driver or a service before the next commit

    /// Stores the values that a get gives, of an item whose set takes others; NULL for the rest.
    uint32_t (*restore)(const Call &call) = nullptr;
};

/// Items of one subject; neighbours of one name are one family to a reader.
struct Family {
    std::string_view name; ///< "DFS"
    std::span<const Item> items;
};

/// The families of items, in the order of help and list.
std::span<const Family> families();

/// NULL when no item has this name.
const Item *findItem(std::string_view name);

/// What the index of a scope is called, and its legal values.
std::string_view indexName(Scope scope);
Bounds legalIndex(Scope scope);

template <class Visit>
void forEachItem(Visit &&visit)
{
    for (const Family &family : families())
        for (const Item &item : family.items) visit(item);
}

/// Calls visit for each of the words that blanks separate.
template <class Visit>
void forEachWord(std::string_view words, Visit &&visit)
{
    while (!words.empty()) {
        const size_t end = words.find(' ');
        if (end != 0) visit(words.substr(0, end));
        words.remove_prefix(end == words.npos ? words.size() : end + 1);
    }
}

} // namespace oructl
