// Statistics: the text of WSM, its counters, and one of them by name.
#include "air.hpp"
#include "commands.hpp"
#include "json_output.hpp"
#include "nearest.hpp"
#include "oruSdk.h"
#include "wsm.hpp"

#include <charconv>

namespace oructl {
namespace {

/// The first selector is the radio.
template <class Record>
uint32_t ask(uint32_t (*operation)(Record *), Wsm<Record> &record, const Value &radio,
             std::string &text, Answer &answer)
{
    record->selector1 = static_cast<uint8_t>(radio.number);
    record->selector2 = 0;
    const uint32_t code = record.ask(operation);
    const Value answered = wsmText(record->statsStr);
    if (code == ORUSDK_RC_OK && !answered.given) return nobodyAnswered(answer);
    if (code == ORUSDK_RC_ERROR && !answered.text.empty())
        answer.detail = "WSM says " + quoted(answered.text);
    text = answered.text;
    return code;
}

std::string_view nextWord(std::string_view &text)
{
    constexpr std::string_view kBlanks = " \t\n\v\f\r";
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
    text.remove_prefix(word.size());
    return word;
}

Value counterValue(std::string_view word)
{
    if (word.empty()) return {};
    int64_t number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error == std::errc{} && end == word.data() + word.size()) return numberValue(number);
    return textValue(std::string{word});
}

constexpr Field kName = {.name = "counter", .kind = Kind::Text};

/// A radio that fits the selector.
constexpr Operand kSelected = {
    .label = kRadioOperand.label, .field = kRadioOperand.field, .holds = {0, UINT8_MAX}};

constexpr Operand kGetOperands[] = {
    {.label = "NAME", .field = kName},
    kSelected,
    {.label = "STATION-MAC", .field = kStationOperand.field, .optional = true}};

/// The counter of exactly this name. Otherwise what the library finds, which takes the end of a
/// longer name too, and is -1 for none.
std::optional<Value> findCounter(const std::string &name, const std::string &text,
                                 const std::vector<Counter> &counters)
{
    for (const Counter &counter : counters)
        if (counter.name == name && counter.value.given) return counter.value;
    const int32_t number = oruSdkGetStatsValue(name.c_str(), text.c_str());
    return number == -1 ? std::nullopt : std::optional{numberValue(number)};
}

int reportNoCounter(Request &request, const Command &command, const Arguments &arguments,
                    const std::vector<Counter> &counters)
{
    const std::string &name = arguments.values[0].text;
    std::vector<std::string_view> names;
    for (const Counter &counter : counters) names.push_back(counter.name);
    std::vector<std::string> printed;
    for (const std::string_view near : nearest(name, names)) printed.push_back(quoted(near));
    const std::vector<std::string_view> shown(printed.begin(), printed.end());
    return reportFailure(request, command, arguments, "no counter is called " + quoted(name),
                         shown.empty() ? "" : "did you mean " + alternatives(shown) + "?",
                         kNotFound);
}

int runGet(Request &request, const Command &command, const Arguments &arguments)
{
    std::string text;
    Answer answer;
    const uint32_t code = askStatistics(arguments.values[1], arguments.values[2], text, answer);
    const Value &station = arguments.values[2];
    if (code == ORUSDK_RC_ERROR && station.given && isNoStation(station.text))
        return reportNoStation(request, command, arguments);
    if (code != ORUSDK_RC_OK)
        return reportCommand(request, command, arguments, code, answer.detail);
    if (!answer.problem.empty())
        return reportFailure(request, command, arguments, answer.problem, "", answer.status);

    const std::vector<Counter> counters = countersOf(text);
    const std::optional<Value> found = findCounter(arguments.values[0].text, text, counters);
    if (!found) return reportNoCounter(request, command, arguments, counters);
    const Field fields[] = {
        kName, kRadioOperand.field, kStationOperand.field, {.name = "value", .kind = Kind::Number}};
    std::vector<Value> values = arguments.values;
    values.push_back(*found);
    if (request.json) request.output = jsonRecord("stats", "get", fields, values);
    else
        request.output =
            (found->text.empty() ? std::to_string(found->number) : printable(found->text)) + '\n';
    return kDone;
}

constexpr Command kCommands[] = {
    {"stats", "get", kGetOperands, "shows a counter of a radio or of a station",
     "oruSdkGetStatsValue oruSdkGetRadioStats oruSdkGetStaStats", runGet},
};

} // namespace

constexpr Operand kStatisticsOperands[2] = {
    kSelected, {.label = "STATION-MAC", .field = kStationOperand.field, .optional = true}};

uint32_t askStatistics(const Value &radio, const Value &station, std::string &text, Answer &answer)
{
    if (!station.given) {
        Wsm<OruSdkRadioStatsParam> record;
        return ask(oruSdkGetRadioStats, record, radio, text, answer);
    }
    Wsm<OruSdkStaStatsParam> record;
    std::memcpy(record->macAddr, macOf(station).data(), sizeof record->macAddr);
    return ask(oruSdkGetStaStats, record, radio, text, answer);
}

std::vector<Counter> countersOf(std::string_view text)
{
    std::vector<Counter> counters;
    for (std::string_view name = nextWord(text); !name.empty(); name = nextWord(text))
        counters.push_back({std::string{name}, counterValue(nextWord(text))});
    return counters;
}

std::span<const Command> statisticsCommands()
{
    return kCommands;
}

} // namespace oructl
