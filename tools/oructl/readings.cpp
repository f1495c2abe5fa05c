#include "readings.hpp"

#include "codes.hpp"
#include "display.hpp"
#include "oruSdk.h"
#include "terse_output.hpp"

#include <algorithm>

namespace oructl {
namespace {

Reading read(const Part &part, int64_t index)
{
    return readItem(part.own != nullptr ? *part.own : *findItem(part.item), index);
}

std::string problemOf(const Reading &reading)
{
    return messageLine(reading.code) + " (code " + std::to_string(reading.code) + ')';
}

/// Calls visit with each field that was read, and its value.
template <class Visit>
void forEachShown(const Reading &reading, Visit &&visit)
{
    const std::span<const Field> fields = reading.item->fields;
    for (size_t i = 0; i < fields.size(); ++i)
        if (fields[i].belongsTo(Use::Get) && reading.call.values[i].given)
            visit(fields[i], reading.call.values[i]);
}

std::string cellOf(const Part &part, const Reading &reading, Charset charset, Secrets secrets)
{
    if (reading.code != ORUSDK_RC_OK) return std::string{kAbsent};
    if (part.cell != nullptr) return part.cell(reading.call);
    std::string out;
    forEachShown(reading, [&](const Field &field, const Value &value) {
        out.append(out.empty() ? "" : "/").append(cellOf(field, value, charset, secrets));
    });
    return out;
}

Line rowOf(const View &view, const std::vector<Reading> &readings, Charset charset, Secrets secrets)
{
    Line row = {std::to_string(readings.front().call.index)};
    for (size_t i = 0; i < readings.size(); ++i)
        if (!view.parts[i].column.empty())
            row.push_back(cellOf(view.parts[i], readings[i], charset, secrets));
    return row;
}

/// One line for each "-" in a row.
std::string problemsOf(const View &view, const std::vector<Reading> &readings)
{
    std::string out;
    for (size_t i = 0; i < readings.size(); ++i)
        if (readings[i].code != ORUSDK_RC_OK && !view.parts[i].column.empty())
            out.append(view.name)
                .append(" ")
                .append(std::to_string(readings[i].call.index))
                .append(": ")
                .append(view.parts[i].column)
                .append(": ")
                .append(problemOf(readings[i]))
                .append("\n");
    return out;
}

std::string textTable(const View &view, const Answer &answer, Charset charset, Secrets secrets)
{
    std::vector<Line> table = {{std::string{view.name}}};
    for (const Part &part : view.parts)
        if (!part.column.empty()) table[0].emplace_back(part.column);
    std::string problems;
    for (const auto &readings : answer.readings) {
        table.push_back(rowOf(view, readings, charset, secrets));
        problems += problemsOf(view, readings);
    }
    return aligned(table) + (problems.empty() ? "" : '\n' + problems);
}

std::string textDetails(const View &view, const std::vector<Reading> &readings, Secrets secrets)
{
    std::vector<Line> lines;
    std::string_view group;
    for (size_t i = 0; i < readings.size(); ++i) {
        const Reading &reading = readings[i];
        if (group != view.parts[i].group) lines.push_back({std::string{view.parts[i].group}});
        group = view.parts[i].group;
        const std::string name = "  " + std::string{reading.item->name};
        if (reading.code != ORUSDK_RC_OK)
            lines.push_back({name, std::string{kAbsent} + "  " + problemOf(reading)});
        else
            for (Line &line : linesOf(reading, secrets))
                lines.push_back({"  " + line[0], std::move(line[1])});
    }
    return aligned(lines);
}

} // namespace

uint32_t readParts(std::span<const Part> parts, Bounds indexes, Answer &answer)
{
    uint32_t first = ORUSDK_RC_OK;
    bool any = false;
    for (int64_t index = indexes.min; index <= indexes.max; ++index) {
        auto &readings = answer.readings.emplace_back();
        for (const Part &part : parts) readings.push_back(read(part, index));
        const auto failed = [](const Reading &reading) { return reading.code != ORUSDK_RC_OK; };
        any = any || !std::all_of(readings.begin(), readings.end(), failed);
        if (first == ORUSDK_RC_OK) first = readings.front().code;
    }
    return any ? uint32_t{ORUSDK_RC_OK} : first;
}

std::string textReadings(const View &view, const Answer &answer, Secrets secrets)
{
    const Charset charset = charsetOfEnvironment();
    return answer.readings.size() == 1 ? textDetails(view, answer.readings[0], secrets)
                                       : textTable(view, answer, charset, secrets);
}

std::string terseReadings(const Answer &answer, Secrets secrets)
{
    std::string out;
    for (const auto &readings : answer.readings) {
        std::vector<Field> fields;
        std::vector<Value> values;
        for (const auto &[item, call, code] : readings) {
            fields.insert(fields.end(), item->fields.begin(), item->fields.end());
            values.insert(values.end(), call.values.begin(), call.values.end());
            if (code != ORUSDK_RC_OK)
                std::fill(values.end() - static_cast<ptrdiff_t>(call.values.size()), values.end(),
                          Value{});
        }
        out += terseLine(fields, values, secrets);
    }
    return out;
}

std::vector<Field> itemNames(std::span<const Part> parts)
{
    std::vector<Field> fields;
    for (const Part &part : parts) fields.push_back({.name = part.item, .kind = Kind::Text});
    return fields;
}

std::vector<Part> chooseParts(std::span<const Part> parts, const std::vector<size_t> &places,
                              Answer &answer)
{
    std::vector<Part> chosen;
    for (const size_t place : places) {
        chosen.push_back(parts[place]);
        if (chosen.back().column.empty()) chosen.back().column = chosen.back().item;
    }
    for (auto &readings : answer.readings) {
        std::vector<Reading> kept;
        for (const size_t place : places) kept.push_back(readings[place]);
        readings = std::move(kept);
    }
    return chosen;
}

} // namespace oructl
