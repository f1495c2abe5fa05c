#include "report.hpp"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
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

std::string rowText(const Row &row, const std::optional<Measured> &measured)
{
    const std::string goal = goalText(row);
    if (!measured) return formatted("%-46s %-26s not measured\n", row.what, row.against);
    return formatted("%-46s %-26s %10.2f %10.2f %8.2f  %-14s %s\n", row.what, row.against,
                     measured->job / 1000, measured->base / 1000, figureOf(row, *measured),
                     goal.c_str(), verdict(meets(row, *measured)));
}

std::string growthText(const std::vector<Growth> &all)
{
    std::string text =
        "\nGrowth: microseconds a call, and nanoseconds for each key of the file\n\n";
    text += formatted("%-18s", "keys");
    for (const int keys : kGrowth) text += formatted(" %19d", keys);
    text += "  100000/1000\n";
    for (const Growth &growth : all) {
        text += formatted("%-18s", growth.job->what);
        for (size_t i = 0; i < growth.ns.size(); ++i)
            text += formatted(" %10.2f %8.2f", growth.ns[i] / 1000, growth.ns[i] / kGrowth[i]);
        const double ratio = growth.perKey;
        text +=
            formatted("  %6.2f  <= %.4g %s\n", ratio, kGrowthLimit, verdict(ratio <= kGrowthLimit));
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
    for (size_t i = 0; i < results.rows.size(); ++i) text += rowText(rows()[i], results.rows[i]);
    text += growthText(results.growth) + programsText(results.programs);
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
        }
        json["rows"].push_back(one);
    }
    for (const Growth &growth : results.growth) {
        nlohmann::ordered_json one = {{"what", growth.job->what}};
        for (size_t i = 0; i < growth.ns.size(); ++i)
            one["ns"][std::to_string(kGrowth[i])] = growth.ns[i];
        one["perKeyRatio"] = growth.perKey;
        json["growth"].push_back(one);
    }
    for (const Program &program : results.programs)
        if (program.instructions >= 0) json["instructions"][program.what] = program.instructions;
    return json.dump(2) + "\n";
}

std::string asPlotData(const Results &results)
{
    std::string text = "keys";
    for (const Growth &growth : results.growth) text += formatted("\t\"%s\"", growth.job->what);
    for (size_t i = 0; i < std::size(kGrowth); ++i) {
        text += formatted("\n%d", kGrowth[i]);
        for (const Growth &growth : results.growth)
            text += formatted("\t%.4f", growth.ns[i] / kGrowth[i]);
    }
    return text + "\n";
}

} // namespace oru::bench
