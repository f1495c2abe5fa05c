#include "report.hpp"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <nlohmann/json.hpp>

namespace oru::bench {
namespace {

[[gnu::format(printf, 1, 2)]] std::string formatted(const char *format, ...)
{
    char text[256];
    va_list values;
    va_start(values, format);
    std::vsnprintf(text, sizeof text, format, values);
    va_end(values);
    return text;
}

std::string goalText(const Row &row)
{
    return formatted(row.sense == Sense::atMost ? "<= %.4g" : ">= %.4g faster", row.limit);
}

/// How many times as long, or how many times faster.
double figureOf(const Row &row, const Measured &measured)
{
    return row.sense == Sense::atMost ? measured.ratio : 1 / measured.ratio;
}

const char *verdict(bool met)
{
    return met ? "met" : "MISSED";
}

/// What a peer's row would come to if the job cost no more than its floor, the row of the same job
/// that isn't held against a peer; none for other rows.
std::optional<double> floorFigure(const Row &row, const Measured &measured, const Results &results)
{
    if (row.sense == Sense::atMost) return {};
    for (size_t i = 0; i < results.rows.size(); ++i) {
        const Row &other = rows()[i];
        if (other.sense == Sense::atMost && std::strcmp(other.what, row.what) == 0 &&
            results.rows[i])
            return measured.base / results.rows[i]->base;
    }
    return {};
}

std::string rowText(const Row &row, const std::optional<Measured> &measured, const Results &results)
{
    const std::string goal = goalText(row);
    if (!measured) return formatted("%-46s %-26s not measured\n", row.what, row.against);
    const std::optional<double> floor = floorFigure(row, *measured, results);
    return formatted("%-46s %-26s %10.2f %10.2f %8.2f  %-14s %s%s\n", row.what, row.against,
                     measured->job / 1000, measured->base / 1000, figureOf(row, *measured),
                     goal.c_str(), verdict(meets(row, *measured)),
                     floor ? formatted(" (floor: %.1f)", *floor).c_str() : "");
}

std::string growthText(const MeasuredTable &measured)
{
    const GrowthTable &table = *measured.table;
    std::string text = formatted("\n%-20s", table.things);
    for (const int size : table.sizes) text += formatted(" %19d", size);
    text += formatted("  %d/%d\n", table.sizes.back(), table.sizes[table.base]);
    for (const Growth &growth : measured.jobs) {
        text += formatted("%-20s", growth.what);
        for (size_t i = 0; i < growth.ns.size(); ++i)
            text += formatted(" %10.2f %8.2f", growth.ns[i] / 1000, growth.ns[i] / table.sizes[i]);
        text += formatted("  %6.2f  <= %.3g %s\n", growth.perThing, table.limit,
                          verdict(growth.perThing <= table.limit));
    }
    return text;
}

/// Whether oructl stays within its limit and below every peer; the first two rows are the empty
/// program and oructl.
bool meetsPrograms(const std::vector<Program> &all)
{
    if (all.size() < 2 || all[1].instructions < 0 || all[1].instructions > kOructlLimit)
        return false;
    return std::all_of(all.begin() + 2, all.end(), [&](const Program &peer) {
        return peer.instructions < 0 || peer.instructions > all[1].instructions;
    });
}

std::string programsText(const std::vector<Program> &all)
{
    std::string text =
        "\nA whole process that reads one setting of 1000: instructions executed\n\n";
    for (const Program &program : all) {
        text += formatted("%-18s", program.what.c_str());
        text += program.instructions < 0
                    ? std::string("  not counted\n")
                    : formatted(" %12lld\n", static_cast<long long>(program.instructions));
    }
    return text + formatted("oructl: at most %lld, and less than each peer: %s\n",
                            static_cast<long long>(kOructlLimit), verdict(meetsPrograms(all)));
}

} // namespace

bool meets(const Row &row, const Measured &measured)
{
    const double figure = figureOf(row, measured);
    return row.sense == Sense::atMost ? figure <= row.limit : figure >= row.limit;
}

std::string asText(const Results &results)
{
    std::string text = results.date + "\n" + results.machine + "\n";
    text += formatted("medians of %d rounds; ratios are medians of the rounds' own\n\n",
                      results.rounds);
    text += formatted("%-46s %-26s %10s %10s %8s  %s\n", "what", "against", "here, us", "that, us",
                      "ratio", "goal");
    for (size_t i = 0; i < results.rows.size(); ++i)
        text += rowText(rows()[i], results.rows[i], results);
    text += "\nGrowth: microseconds a call, and nanoseconds for each key of the file, entry of the "
            "list\n";
    for (const MeasuredTable &table : results.growth) text += growthText(table);
    text += programsText(results.programs);
    for (const auto &[name, why] : results.problems) text += "\n" + name + ": " + why;
    return text;
}

std::string asJson(const Results &results)
{
    nlohmann::ordered_json json = {
        {"date", results.date}, {"machine", results.machine}, {"rounds", results.rounds}};
    for (size_t i = 0; i < results.rows.size(); ++i) {
        const Row &row = rows()[i];
        nlohmann::ordered_json one = {
            {"what", row.what}, {"against", row.against}, {"goal", goalText(row)}};
        if (const auto &measured = results.rows[i]; measured) {
            one["hereNs"] = measured->job;
            one["againstNs"] = measured->base;
            one["figure"] = figureOf(row, *measured);
            one["met"] = meets(row, *measured);
            if (const auto floor = floorFigure(row, *measured, results))
                one["floorFigure"] = *floor;
        }
        json["rows"].push_back(one);
    }
    for (const auto &[table, jobs] : results.growth) {
        for (const Growth &growth : jobs) {
            nlohmann::ordered_json one = {{"what", growth.what}, {"of", table->things}};
            for (size_t i = 0; i < growth.ns.size(); ++i)
                one["ns"][std::to_string(table->sizes[i])] = growth.ns[i];
            one["ratioOfEach"] = growth.perThing;
            json["growth"].push_back(one);
        }
    }
    for (const Program &program : results.programs)
        if (program.instructions >= 0) json["instructions"][program.what] = program.instructions;
    return json.dump(2) + "\n";
}

std::string asPlotData(const Results &results)
{
    const auto &[table, jobs] = results.growth.front();
    std::string text = "keys";
    for (const Growth &growth : jobs) text += formatted("\t\"%s\"", growth.what);
    for (size_t i = 0; i < table->sizes.size(); ++i) {
        text += formatted("\n%d", table->sizes[i]);
        for (const Growth &growth : jobs)
            text += formatted("\t%.4f", growth.ns[i] / table->sizes[i]);
    }
    return text + "\n";
}

} // namespace oru::bench
