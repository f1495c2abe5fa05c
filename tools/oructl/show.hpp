// Views: live tables of the access point. README.md says how to add one.
#pragma once

#include "command.hpp"
#include "display.hpp"

namespace oructl {

using Row = std::vector<Value>;

/// An item among others in a view, under a heading or as a column.
struct Part {
    std::string_view group; ///< the heading
    std::string_view item;
    std::string_view column = {};                ///< none: under its heading alone
    std::string (*cell)(const Call &) = nullptr; ///< NULL: the fields that were read, between "/"
    const Item *own = nullptr;                   ///< instead of the catalogue's
};

/// What the getter of an item has said.
struct Reading {
    const Item *item = nullptr;
    Call call = {};
    uint32_t code = 0;
};

Reading readItem(const Item &item, int64_t index);

/// What a view shows, or why it can't.
struct Answer {
    std::vector<Value> facts = {};                   ///< one for each fact of the view
    std::vector<Reading> items = {};                 ///< shown as a get does, behind the facts
    std::vector<Row> rows = {};                      ///< one value for each column
    std::vector<std::vector<Reading>> readings = {}; ///< of each index, one for each part
    std::string problem = {};                        ///< a failure that no code stands for
    std::string detail = {};                         ///< about a failure
    ExitStatus status = kFailed;                     ///< of a failure that no code stands for
};

struct View {
    std::string_view name;
    std::span<const Operand> operands;
    std::span<const Field> columns; ///< none: the view has facts or items alone
    std::string_view empty;         ///< shown for a table without rows: "no stations"
    std::string_view summary;
    std::string_view operations; ///< the exported operations that it calls, between blanks
    uint32_t (*fetch)(const Arguments &, Answer &);
    std::span<const Field> facts = {}; ///< values of the whole, shown above the table
    std::string (*text)(const Answer &, Secrets) = nullptr; ///< of a form of its own; else as above
    std::span<const Part> parts = {};                       ///< instead of columns and facts
};

/// The views, family by family.
std::span<const std::span<const View>> viewFamilies();

/// NULL when no view has this name.
const View *findView(std::string_view name);

template <class Visit>
void forEachView(Visit &&visit)
{
    for (const auto family : viewFamilies())
        for (const View &view : family) visit(view);
}

/// The option that every view takes.
inline constexpr Repeat kWatch = {.option = "--watch", .seconds = 2, .legal = {1, 86400}};

/// The verb "show".
int runShow(Request &request);

/// The view as text: facts, a line of column names, and the rows in aligned columns.
std::string textView(const View &view, const Answer &answer, Secrets secrets);

// ---- Parts of the text

using Line = std::vector<std::string>;

inline constexpr std::string_view kAbsent = "-";

/// "session-timeout(seconds)".
std::string headerOf(const Field &field);

std::string cellOf(const Field &field, const Value &value, Charset charset, Secrets secrets);

/// Pads all but the last cell of each line to the width of its column.
std::string aligned(const std::vector<Line> &lines);

/// One line for each value that the getter gave: "channel.mode" and "once". A getter that failed
/// has one line with its code.
std::vector<Line> linesOf(const Reading &reading, Secrets secrets);

// ---- Values of columns and facts

inline Value numberValue(int64_t number)
{
    return {.given = true, .number = number};
}

inline Value textValue(std::string text)
{
    return {.given = true, .text = std::move(text)};
}

} // namespace oructl
