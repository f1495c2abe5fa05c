#include "command.hpp"

#include "codes.hpp"
#include "commands.hpp"
#include "json_output.hpp"
#include "nearest.hpp"
#include "oruSdk.h"
#include "patience.hpp"
#include "show.hpp"

#include <algorithm>

namespace oructl {
namespace {

/// How many of the operands are a command's words; none when they are not.
std::optional<size_t> matchedWords(const Command &command, Words operands)
{
    size_t count = 0;
    bool same = true;
    forEachWord(command.words, [&](std::string_view word) {
        same = same && count < operands.size() && operands[count] == word;
        ++count;
    });
    return same ? std::optional{count} : std::nullopt;
}

int reportNoCommand(Request &request)
{
    std::vector<std::string_view> names;
    forEachCommand([&](const Command &command) {
        if (command.verb == request.verb->name) names.push_back(command.words);
    });
    if (request.operands.empty()) return reportUsage(request, alternatives(names) + " is missing");
    std::string words = request.operands[0];
    const bool twoWords = std::any_of(names.begin(), names.end(), [&](std::string_view name) {
        return name.starts_with(words + ' ');
    });
    if (twoWords && request.operands.size() > 1) words.append(" ").append(request.operands[1]);
    // A word that resembles no command may be a misplaced PIN: it is not repeated.
    if (nearest(words, names).empty())
        return reportUsage(request, "no such command: it is " + alternatives(names));
    return reportUnknown(request, "command of " + std::string{request.verb->name}, words, names);
}

std::string parseOperand(const Operand &operand, std::string_view text, Value &value)
{
    if (operand.field.kind == Kind::Number) {
        value.given = true;
        switch (parseDecimal(text, value.number)) {
        case Decimal::Good: break;
        case Decimal::TooLarge: return quoted(text) + " does not fit 32 bits";
        case Decimal::NotANumber:
            return quoted(text) + " is no number of a " + std::string{operand.label};
        }
        if (value.number < operand.holds.min || value.number > operand.holds.max)
            return quoted(text) + " does not fit " + std::string{operand.label};
        return "";
    }
    const std::string problem = parseValue(operand.field, text, value);
    if (!problem.empty()) return std::string{operand.label} + ": " + problem;
    if (operand.field.kind == Kind::Mac)
        for (char &digit : value.text)
            if (digit >= 'A' && digit <= 'F') digit = static_cast<char>(digit | 0x20);
    return "";
}

std::string parseRepeat(const Repeat &repeat, Words words, Arguments &arguments)
{
    const std::string_view word = words.front();
    if (repeat.option.empty() || word != repeat.option)
        return quoted(word) + " is one operand too many";
    arguments.seconds = repeat.seconds;
    if (words.size() == 1) return "";
    if (words.size() > 2) return quoted(words[2]) + " is one operand too many";
    int64_t seconds = 0;
    if (parseDecimal(words[1], seconds) != Decimal::Good || seconds < repeat.legal.min ||
        seconds > repeat.legal.max)
        return std::string{repeat.option} + ": " + quoted(words[1]) + " is no number of seconds (" +
               std::to_string(repeat.legal.min) + " to " + std::to_string(repeat.legal.max) + ")";
    arguments.seconds = seconds;
    return "";
}

std::string synopsis(std::string_view verb, std::string_view words,
                     std::span<const Operand> operands, const Repeat &repeat)
{
    std::string line{verb};
    if (!words.empty()) line.append(" ").append(words);
    const std::string rest = argumentsSynopsis(operands, repeat);
    if (!rest.empty()) line.append(" ").append(rest);
    return line;
}

} // namespace

std::string parseArguments(std::span<const Operand> operands, const Repeat &repeat, Words words,
                           Arguments &arguments)
{
    arguments.values.resize(operands.size());
    for (size_t i = 0; i < operands.size(); ++i) {
        const bool missing = words.empty() || (operands[i].optional && !repeat.option.empty() &&
                                               words.front() == repeat.option);
        if (missing && operands[i].optional) break;
        if (missing) return std::string{operands[i].label} + " is missing";
        if (std::string problem = parseOperand(operands[i], words.front(), arguments.values[i]);
            !problem.empty())
            return problem;
        words = words.subspan(1);
    }
    return words.empty() ? "" : parseRepeat(repeat, words, arguments);
}

std::string argumentsSynopsis(std::span<const Operand> operands, const Repeat &repeat)
{
    std::string out;
    for (const Operand &operand : operands) {
        out.append(out.empty() ? "" : " ").append(operand.optional ? "[" : "");
        out.append(operand.label).append(operand.optional ? "]" : "");
    }
    if (!repeat.option.empty())
        out.append(out.empty() ? "[" : " [").append(repeat.option).append(" [SECONDS]]");
    return out;
}

std::string illegalOperand(std::span<const Operand> operands, const Arguments &arguments)
{
    for (size_t i = 0; i < operands.size(); ++i)
        if (arguments.values[i].given && operands[i].field.kind == Kind::Number &&
            !isLegal(operands[i].field, arguments.values[i]))
            return std::string{operands[i].label} + " is " + legalValues(operands[i].field);
    return "";
}

std::string attemptOf(const Request &request, std::string_view words,
                      std::span<const Operand> operands, const Arguments &arguments)
{
    std::string out{request.verb->name};
    if (!words.empty()) out.append(" ").append(words);
    for (size_t i = 0; i < operands.size(); ++i) {
        const Value &value = arguments.values[i];
        if (!value.given || operands[i].field.kind == Kind::Secret) continue;
        out.append(" ").append(operands[i].field.kind == Kind::Number ? std::to_string(value.number)
                                                                      : printable(value.text));
    }
    return out;
}

int reportCommand(Request &request, const Command &command, const Arguments &arguments,
                  uint32_t code, const std::string &detail, ExitStatus status)
{
    const std::string illegal = illegalOperand(command.operands, arguments);
    return report(request,
                  {.kind = illegal.empty() ? "failed" : "refused",
                   .attempt = attemptOf(request, command.words, command.operands, arguments),
                   .code = code,
                   .message = messageLine(code),
                   .detail = illegal.empty() ? detail : illegal,
                   .status = illegal.empty() ? status : kNotFound});
}

int reportFailure(Request &request, const Command &command, const Arguments &arguments,
                  const std::string &message, const std::string &detail, ExitStatus status)
{
    return report(request,
                  {.kind = "failed",
                   .attempt = attemptOf(request, command.words, command.operands, arguments),
                   .message = message,
                   .detail = detail,
                   .status = status});
}

int reportNoStation(Request &request, const Command &command, const Arguments &arguments)
{
    return reportFailure(request, command, arguments, "no such station",
                         "no BSS of either radio has it", kNotFound);
}

int done(Request &request, const Command &command, const Arguments &arguments)
{
    if (!request.json) return kDone;
    std::vector<Field> fields;
    std::vector<Value> values;
    for (size_t i = 0; i < command.operands.size(); ++i) {
        if (command.operands[i].field.kind == Kind::Secret) continue;
        fields.push_back(command.operands[i].field);
        values.push_back(arguments.values[i]);
    }
    request.output = jsonRecord(command.verb, command.words, fields, values);
    return kDone;
}

std::span<const std::span<const Command>> commandFamilies()
{
    static const std::span<const Command> all[] = {controlCommands(), wpsCommands(),
                                                   statisticsCommands()};
    return all;
}

const Command *findCommand(std::string_view verb, Words operands)
{
    const Command *found = nullptr;
    forEachCommand([&](const Command &command) {
        if (found == nullptr && command.verb == verb && matchedWords(command, operands))
            found = &command;
    });
    return found;
}

int runCommand(Request &request)
{
    const Command *const command = findCommand(request.verb->name, request.operands);
    if (command == nullptr) return reportNoCommand(request);
    Arguments arguments;
    const Words words = request.operands.subspan(*matchedWords(*command, request.operands));
    std::string problem = parseArguments(command->operands, command->repeat, words, arguments);
    const bool secret =
        std::any_of(command->operands.begin(), command->operands.end(), [](const Operand &operand) {
            return hasSecret({&operand.field, 1});
        });
    if (secret) problem = withoutQuotation(problem); // a word may be a misplaced secret
    if (problem.empty()) {
        const Patience patience{request,
                                attemptOf(request, command->words, command->operands, arguments)};
        return command->run(request, *command, arguments);
    }
    return reportUsage(request, command->words, problem,
                       synopsis(command->verb, command->words, command->operands, command->repeat));
}

std::vector<CommandLine> commandLines(const Verb &verb)
{
    std::vector<CommandLine> lines;
    forEachCommand([&](const Command &command) {
        if (command.verb == verb.name)
            lines.push_back(
                {synopsis(command.verb, command.words, command.operands, command.repeat),
                 command.summary});
    });
    if (verb.run == runShow)
        forEachView([&](const View &view) {
            lines.push_back({synopsis(verb.name, view.name, view.operands, {}), view.summary});
        });
    return lines;
}

std::string textCommands(const Verb &verb)
{
    const std::vector<CommandLine> lines = commandLines(verb);
    if (lines.size() < 2) return "";
    size_t width = 0;
    for (const auto &[line, summary] : lines) width = std::max(width, line.size());
    std::string out = "\n";
    for (const auto &[line, summary] : lines)
        out.append("  ")
            .append(line)
            .append(width + 2 - line.size(), ' ')
            .append(summary)
            .append("\n");
    return out;
}

std::array<uint8_t, 6> macOf(const Value &value)
{
    const auto nibble = [&](size_t at) {
        const char digit = value.text[at];
        return digit <= '9' ? digit - '0' : digit - 'a' + 10;
    };
    std::array<uint8_t, 6> bytes{};
    for (size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<uint8_t>(nibble(3 * i) << 4 | nibble(3 * i + 1));
    return bytes;
}

} // namespace oructl
