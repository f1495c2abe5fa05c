// Verbs with operands of their own: constant rows, from which the reading of a command line, help
// and completion follow.
#pragma once

#include "catalogue.hpp"
#include "request.hpp"

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace oructl {

/// What stands at one place of a command line.
struct Operand {
    std::string_view label; ///< in usages: "RADIO"
    Field field;            ///< its name is that of a JSON member; its bounds are legal values
    Bounds holds = {INT32_MIN, INT32_MAX}; ///< numbers that the record's field can hold
    bool optional = false;                 ///< with all behind it
};

/// A last word that a number of seconds may follow: "--watch".
struct Repeat {
    std::string_view option = {};
    int64_t seconds = 0; ///< when none are given
    Bounds legal = {0, 0};
};

/// A command line, read.
struct Arguments {
    std::vector<Value> values = {};      ///< one for each operand
    std::optional<int64_t> seconds = {}; ///< of the option; none when it isn't there
};

struct Command {
    std::string_view verb;
    std::string_view words; ///< behind the verb, between blanks: "enroll pbc"
    std::span<const Operand> operands;
    std::string_view summary;
    std::string_view operations; ///< the exported operations that it calls, between blanks
    int (*run)(Request &, const Command &, const Arguments &);
    Repeat repeat = {};
};

inline constexpr Operand kRadioOperand = {
    .label = "RADIO",
    .field = {.name = "radio", .kind = Kind::Number, .bounds = {0, 1}},
    .holds = {0, UINT16_MAX}};
inline constexpr Operand kBssOperand = {
    .label = "BSS",
    .field = {.name = "bss", .kind = Kind::Number, .bounds = {0, 3}},
    .holds = {0, UINT16_MAX}};
inline constexpr Operand kStationOperand = {.label = "STATION-MAC",
                                            .field = {.name = "station", .kind = Kind::Mac}};

/// The families of commands, in the order of help.
std::span<const std::span<const Command>> commandFamilies();

template <class Visit>
void forEachCommand(Visit &&visit)
{
    for (const auto family : commandFamilies())
        for (const Command &command : family) visit(command);
}

/// The command whose words the operands begin with; NULL when there is none.
const Command *findCommand(std::string_view verb, Words operands);

/// Runs the command of the request's verb that its operands name.
int runCommand(Request &request);

/// Reads operands and the option behind them. Returns what is wrong, or an empty text.
std::string parseArguments(std::span<const Operand> operands, const Repeat &repeat, Words words,
                           Arguments &arguments);

/// "RADIO BSS [--watch [SECONDS]]".
std::string argumentsSynopsis(std::span<const Operand> operands, const Repeat &repeat);

/// What is legal where the operands aren't; empty when all are legal.
std::string illegalOperand(std::span<const Operand> operands, const Arguments &arguments);

/// Words and operands as they were read, printable and without secrets.
std::string attemptOf(const Request &request, std::string_view words,
                      std::span<const Operand> operands, const Arguments &arguments);

/// Reports a code that an operation of a command has returned, with a status other than the code's
/// own when one is given.
int reportCommand(Request &request, const Command &command, const Arguments &arguments,
                  uint32_t code, const std::string &detail = "", ExitStatus status = kDone);

/// Reports a failure that no code stands for.
int reportFailure(Request &request, const Command &command, const Arguments &arguments,
                  const std::string &message, const std::string &detail = "",
                  ExitStatus status = kFailed);

/// Reports a station that the access point doesn't have.
int reportNoStation(Request &request, const Command &command, const Arguments &arguments);

/// Ends a command that is done: silent, or its operands as JSON.
int done(Request &request, const Command &command, const Arguments &arguments);

struct CommandLine {
    std::string synopsis; ///< "wps status RADIO BSS [--wait [SECONDS]]"
    std::string_view summary;
};

/// The commands of a verb, or the views of "show".
std::vector<CommandLine> commandLines(const Verb &verb);

/// They as a list for the verb's help; empty for a verb with a single one.
std::string textCommands(const Verb &verb);

/// The six bytes of a MAC address that was read as an operand.
std::array<uint8_t, 6> macOf(const Value &value);

} // namespace oructl
