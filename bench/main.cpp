// Measures every row in turn, round by round: a job and what it is held against run right after one
// another, so that a busy machine disturbs both alike. Usage: oruBench [--rounds=N] [--into=FOLDER]
#include "folder.hpp"
#include "machine.hpp"
#include "report.hpp"
#include "rows.hpp"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>

namespace {

using namespace oru::bench;

constexpr int kRounds = 31;

/// Takes the time of one run.
class Taker : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context &) override { return true; }
    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            if (run.error_occurred) problem = run.error_message;
            else ns = run.GetAdjustedRealTime();
        }
    }

    double ns = NAN;
    std::string problem;
};

/// Nanoseconds of one call; NaN when the benchmark isn't built in, or gives up.
double timeOf(const std::string &job, Results &results)
{
    Taker taker;
    benchmark::RunSpecifiedBenchmarks(&taker, "^" + job + "(/iterations.*)?$");
    if (!taker.problem.empty()) results.problems[job] = taker.problem;
    return taker.ns;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// The rounds of one row.
struct Rounds {
    std::vector<double> job;
    std::vector<double> base;
    std::vector<double> ratio;

    void add(const Row &row, bool jobFirst, Results &results)
    {
        double first = timeOf(jobFirst ? row.job : row.base, results);
        double second = timeOf(jobFirst ? row.base : row.job, results);
        if (std::isnan(first) || std::isnan(second)) return;
        if (!jobFirst) std::swap(first, second);
        job.push_back(first);
        base.push_back(second);
        ratio.push_back(first / second);
    }

    [[nodiscard]] std::optional<Measured> medians() const
    {
        if (ratio.empty()) return {};
        return Measured{median(job), median(base), median(ratio)};
    }
};

void measureRows(Results &results)
{
    std::vector<Rounds> all(rows().size());
    for (int round = 0; round < results.rounds; ++round) {
        std::fprintf(stderr, "\rround %d of %d", round + 1, results.rounds);
        for (size_t i = 0; i < all.size(); ++i) all[i].add(rows()[i], round % 2 == 0, results);
    }
    std::fprintf(stderr, "\n");
    for (const Rounds &rounds : all) results.rows.push_back(rounds.medians());
}

/// The sizes of one job in turn, round by round.
Growth measureGrowth(const GrowthTable &table, const Growing &job, int rounds, Results &results)
{
    const size_t last = table.sizes.size() - 1;
    std::vector<std::vector<double>> times(table.sizes.size());
    std::vector<double> ratios;
    for (int round = 0; round < rounds; ++round) {
        for (size_t i = 0; i <= last; ++i)
            times[i].push_back(timeOf(job.job + ("/" + std::to_string(table.sizes[i])), results));
        const double largest = times[last].back() / table.sizes[last];
        ratios.push_back(largest / (times[table.base].back() / table.sizes[table.base]));
    }
    Growth growth{job.what, {}, median(ratios)};
    for (const std::vector<double> &all : times) growth.ns.push_back(median(all));
    return growth;
}

MeasuredTable measureTable(const GrowthTable &table, Results &results)
{
    MeasuredTable measured{&table, {}};
    for (const Growing &job : table.jobs)
        measured.jobs.push_back(measureGrowth(table, job, (results.rounds + 2) / 3, results));
    return measured;
}

std::string describeMachine(int processor)
{
    return processorName() + " (processor " + std::to_string(processor) + "), " + kernelName() +
           ", memory on " + fileSystemOf("/dev/shm") + ", disk on " + fileSystemOf(diskFolder());
}

void write(const std::string &path, const std::string &text)
{
    std::ofstream(path) << text;
}

/// Takes an option of ours, "--name=value", out of the arguments.
std::string takeOption(int &count, char **arguments, const char *name)
{
    const size_t length = std::strlen(name);
    for (int i = 1; i < count; ++i) {
        if (std::strncmp(arguments[i], name, length) != 0) continue;
        std::string value = arguments[i] + length;
        std::move(arguments + i + 1, arguments + count, arguments + i);
        --count;
        return value;
    }
    return {};
}

} // namespace

int main(int argc, char **argv)
{
    const std::string folder = takeOption(argc, argv, "--into=");
    const std::string wanted = takeOption(argc, argv, "--rounds=");
    std::vector<char *> arguments(argv, argv + argc);
    std::string minTime = "--benchmark_min_time=0.01";
    arguments.insert(arguments.begin() + 1, minTime.data());
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;

    const int processor = pinToOneProcessor();
    Results results{};
    results.rounds = wanted.empty() ? kRounds : std::max(1, std::atoi(wanted.c_str()));
    results.date = now();
    results.machine = describeMachine(processor);
    const Folder &resting = memory();
    std::fprintf(stderr,
                 "growth, whole programs, and 90 seconds in which the files come to rest\n");
    results.growth = {measureTable(fileGrowth(), results), measureTable(listGrowth(), results)};
    results.programs = countPrograms();
    resting.settle();
    measureRows(results);

    const std::string text = asText(results);
    std::fputs(text.c_str(), stdout);
    if (folder.empty()) return 0;
    write(folder + "/results.txt", text);
    write(folder + "/results.json", asJson(results));
    write(folder + "/growth.dat", asPlotData(results));
    return 0;
}
