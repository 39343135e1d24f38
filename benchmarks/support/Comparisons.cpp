#include "benchmarks/support/Comparisons.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>

/// Keeps the times of each benchmark's repetitions while the usual table of aggregates is printed.
class Comparisons::Reporter : public benchmark::ConsoleReporter
{
public:
    Reporter() : ConsoleReporter(OO_None) {}

    void ReportRuns(const std::vector<Run> &runs) override
    {
        bool print = false;
        for (const Run &run : runs) {
            // A single run has no aggregates.
            print = print || run.run_type == Run::RT_Aggregate || run.error_occurred || run.repetitions <= 1;
            if (run.run_type == Run::RT_Iteration && !run.error_occurred)
                m_benchmarks[run.run_name.function_name].add(run);
        }
        if (print)
            ConsoleReporter::ReportRuns(runs);
    }

    void print(const Line &line) const
    {
        if (line.kind == Kind::Number) {
            printNumber(line.title, line.measure(), "", line.target);
            return;
        }
        const bool compared = line.kind == Kind::Ratio || line.kind == Kind::Share;
        const auto of = m_benchmarks.find(line.figure);
        const auto to = m_benchmarks.find(line.baseline);
        // A filter may have left them out.
        if (of == m_benchmarks.end() || (compared && to == m_benchmarks.end()))
            return;
        const bool byProcessor = compared && of->second.onlyComputes && to->second.onlyComputes;
        const Times &figure = byProcessor ? of->second.onProcessor : of->second.onClock;
        const Times &baseline = !compared     ? figure
                                : byProcessor ? to->second.onProcessor
                                              : to->second.onClock;
        if (line.kind == Kind::Ratio)
            printNumber(line.title, figure.median() / baseline.median(), "", line.target);
        else if (line.kind == Kind::Share)
            std::printf("%s: %.1f %%\n", line.title.c_str(), 100 * figure.median() / baseline.median());
        else if (line.kind == Kind::Each)
            printNumber(line.title, 1e6 * figure.median() / line.count, " us", line.target);
        else
            printNumber(line.title, 1e3 * figure.median(), " ms", line.target);
        figure.print("    ");
        if (compared)
            baseline.print(" / ");
        std::printf("\n");
    }

private:
    /// The seconds that the repetitions of one benchmark took.
    class Times
    {
    public:
        void add(double seconds)
        {
            m_seconds.insert(std::upper_bound(m_seconds.begin(), m_seconds.end(), seconds), seconds);
        }
        double median() const
        {
            const size_t half = m_seconds.size() / 2;
            return m_seconds.size() % 2 ? m_seconds[half] : (m_seconds[half - 1] + m_seconds[half]) / 2;
        }
        void print(const char *before) const
        {
            std::printf("%s%.3g %.3g %.3g ms", before, 1e3 * m_seconds.front(), 1e3 * median(),
                        1e3 * m_seconds.back());
        }

    private:
        std::vector<double> m_seconds;
    };

    struct Benchmark
    {
        void add(const Run &run)
        {
            const double unit = benchmark::GetTimeUnitMultiplier(run.time_unit);
            onClock.add(run.GetAdjustedRealTime() / unit);
            onProcessor.add(run.GetAdjustedCPUTime() / unit);
            onlyComputes = run.run_name.time_type.empty();
        }

        Times onClock;
        Times onProcessor;
        /// False for what waits for a disk, another process or a clock.
        bool onlyComputes = true;
    };

    static void printNumber(const std::string &title, double value, const char *unit, double target)
    {
        std::printf("%s: %.2f%s", title.c_str(), value, unit);
        if (target > 0)
            std::printf(" (target %g%s%s)", target, unit, value > target ? ", missed" : "");
        std::printf("\n");
    }

    std::map<std::string, Benchmark> m_benchmarks;
};

Comparisons &Comparisons::ratio(std::string title, std::string figure, std::string baseline, double target)
{
    m_lines.push_back({Kind::Ratio, std::move(title), std::move(figure), std::move(baseline), target});
    return *this;
}

Comparisons &Comparisons::limit(std::string title, std::string figure, double milliseconds)
{
    m_lines.push_back({Kind::Limit, std::move(title), std::move(figure), {}, milliseconds});
    return *this;
}

Comparisons &Comparisons::share(std::string title, std::string figure, std::string whole)
{
    m_lines.push_back({Kind::Share, std::move(title), std::move(figure), std::move(whole)});
    return *this;
}

Comparisons &Comparisons::each(std::string title, std::string figure, int count)
{
    m_lines.push_back({Kind::Each, std::move(title), std::move(figure), {}, 0, count});
    return *this;
}

Comparisons &Comparisons::number(std::string title, double (*measure)(), double target)
{
    m_lines.push_back({Kind::Number, std::move(title), {}, {}, target, 1, measure});
    return *this;
}

int Comparisons::run(int argc, char **argv) const
{
    // Repetitions of all benchmarks in a mixed order: what disturbs the machine for a while then meets a
    // figure and its baseline alike. The caller's own flags come later and win.
    std::vector<std::string> flags = {
        argv[0],
        "--benchmark_repetitions=11",
        "--benchmark_min_time=0.05",
        "--benchmark_enable_random_interleaving=true",
    };
    flags.insert(flags.end(), argv + 1, argv + argc);
    std::vector<char *> arguments;
    for (std::string &flag : flags)
        arguments.push_back(flag.data());
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 1;

    Reporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("\nBelow each comparison: the least, the median and the greatest time.\n\n");
    for (const Line &line : m_lines)
        reporter.print(line);
    benchmark::Shutdown();
    return 0;
}
