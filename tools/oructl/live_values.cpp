#include "live_values.hpp"

#include "oruSdk.h"
#include "show.hpp"

#include <optional>

namespace oructl {
namespace {

/// The rows of a view; none when the question has failed.
std::optional<std::vector<Row>> ask(std::string_view name, std::initializer_list<int64_t> operands)
{
    const View *const view = findView(name);
    Arguments arguments;
    for (const int64_t number : operands) arguments.values.push_back(numberValue(number));
    arguments.values.resize(view->operands.size());
    Answer answer;
    if (view->fetch(arguments, answer) != ORUSDK_RC_OK || !answer.problem.empty()) return {};
    return std::move(answer.rows);
}

/// The value of a row below the name of its column.
const Value &cell(std::string_view view, const Row &row, std::string_view column)
{
    const auto columns = findView(view)->columns;
    size_t at = 0;
    while (columns[at].name != column) ++at;
    return row[at];
}

} // namespace

std::vector<std::string> allowedChannels(int64_t radio)
{
    std::vector<std::string> channels;
    for (const Row &row : ask("channels", {radio}).value_or(std::vector<Row>{}))
        if (cell("channels", row, "allowed").number == 1)
            channels.push_back(std::to_string(cell("channels", row, "channel").number));
    return channels;
}

std::vector<std::string> stationAddresses()
{
    const Bounds radios = legalIndex(Scope::Radio);
    const Bounds bsses = legalIndex(Scope::Bss);
    std::vector<std::string> addresses;
    for (int64_t radio = radios.min; radio <= radios.max; ++radio)
        for (int64_t bss = bsses.min; bss <= bsses.max; ++bss) {
            const auto rows = ask("stations", {radio, bss});
            if (!rows) return addresses; // the next question would fail too
            for (const Row &row : *rows) addresses.push_back(cell("stations", row, "mac").text);
        }
    return addresses;
}

std::vector<std::string> counterNames()
{
    std::vector<std::string> names;
    for (const Row &row : ask("stats", {0}).value_or(std::vector<Row>{}))
        names.push_back(cell("stats", row, "counter").text);
    return names;
}

} // namespace oructl
