// Runs every benchmark in turn, many rounds, and prints each job's median against its floor's.
#include "rows.hpp"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace {

using oru::bench::kRowCount;
using oru::bench::kRows;

/// Keeps the medians instead of printing every round.
class Medians : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context &) override { return true; }
    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            if (run.error_occurred) failed_[run.run_name.function_name] = run.error_message;
            if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median")
                ns_[run.run_name.function_name] = run.GetAdjustedRealTime();
        }
    }
    void print() const
    {
        std::printf("%-58s %10s %10s %7s\n", "what", "here, us", "floor, us", "ratio");
        for (int i = 0; i < kRowCount; ++i) {
            const auto job = ns_.find(kRows[i].job);
            const auto floor = ns_.find(kRows[i].floor);
            if (job == ns_.end() || floor == ns_.end())
                std::printf("%-58s %s\n", kRows[i].what, "not measured");
            else
                std::printf("%-58s %10.2f %10.2f %6.2fx\n", kRows[i].what, job->second / 1000,
                            floor->second / 1000, job->second / floor->second);
        }
        for (const auto &[name, why] : failed_) std::printf("%s: %s\n", name.c_str(), why.c_str());
    }

private:
    std::map<std::string, double> ns_;
    std::map<std::string, std::string> failed_;
};

} // namespace

int main(int argc, char **argv)
{
    std::vector<char *> arguments(argv, argv + argc);
    std::string defaults[] = {"--benchmark_repetitions=21", "--benchmark_min_time=0.02",
                              "--benchmark_enable_random_interleaving=true",
                              "--benchmark_report_aggregates_only=true"};
    for (std::string &option : defaults) arguments.insert(arguments.begin() + 1, option.data());
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;

    Medians medians;
    benchmark::RunSpecifiedBenchmarks(&medians);
    medians.print();
    return 0;
}
