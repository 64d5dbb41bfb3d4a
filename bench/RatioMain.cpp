#include "RatioMain.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace {

const std::string FLOOR_SUFFIX = "/floor";

using Goals = std::map<std::string, double>;

Goals& RatioGoals()
{
    static Goals goals;
    return goals;
}

Goals& TimeGoals()
{
    static Goals goals;
    return goals;
}

/// "print/floor/iterations:1/real_time" -> "print/floor".
std::string PlainName(const benchmark::BenchmarkReporter::Run& run)
{
    return run.run_name.function_name;
}

/// Keeps the median of each benchmark and prints the ratios at the end.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    RatioReporter()
        : ConsoleReporter(OO_Tabular)
    { }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Iteration && !run.error_occurred)
                m_times[PlainName(run)].push_back(run.GetAdjustedRealTime());
        }
    }

    void Finalize() override
    {
        ConsoleReporter::Finalize();
        std::printf("\n%-32s %10s %10s\n", "against the floor of this run", "ratio", "goal");
        for (const auto& [name, goal] : RatioGoals())
            PrintLine(name, Median(m_times[name]) / Median(m_times[name + FLOOR_SUFFIX]), goal);
        std::printf("\n%-32s %10s %10s\n", "by itself", "ms", "goal");
        for (const auto& [name, goal] : TimeGoals())
            PrintLine(name, Median(m_times[name]), goal);
    }

private:
    static void PrintLine(const std::string& name, double value, double goal)
    {
        std::printf(
            "%-32s %10.3f %10.3f%s\n", name.c_str(), value, goal, value > goal ? "   over" : "");
    }

    static double Median(std::vector<double> values)
    {
        if (values.empty())
            return std::nan("");
        std::nth_element(values.begin(), values.begin() + values.size() / 2, values.end());
        return values[values.size() / 2];
    }

    std::map<std::string, std::vector<double>> m_times;
};

} // namespace

void RatioGoal(const char* name, double ratio)
{
    RatioGoals()[name] = ratio;
}

void TimeGoal(const char* name, double milliseconds)
{
    TimeGoals()[name] = milliseconds;
}

int RunBenchmarks(int argc, char** argv)
{
    // In turn rather than one after the other, so that a slow minute of the machine hits both.
    std::vector<char*> arguments(argv, argv + argc);
    static char repetitions[] = "--benchmark_repetitions=5";
    static char interleaved[] = "--benchmark_enable_random_interleaving=true";
    arguments.insert(arguments.begin() + 1, {repetitions, interleaved});
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 2;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
