#pragma once

#include <string>
#include <vector>

/// What the figures of a benchmark program are held against, printed below them: each line compares the
/// medians of two benchmarks of the same run, or one median with a limit. Below it stand the least, the
/// median and the greatest time of each. Two benchmarks that only compute are compared by the processor's
/// time, which other programs disturb less than the clock's.
class Comparisons
{
public:
    /// The time of `figure` must not be more than `target` times that of `baseline`; a target of 0 is none.
    Comparisons &ratio(std::string title, std::string figure, std::string baseline, double target = 0);
    /// The time of `figure` must stay below a number of milliseconds.
    Comparisons &limit(std::string title, std::string figure, double milliseconds);
    /// What part of the time of `whole` the step `figure` takes.
    Comparisons &share(std::string title, std::string figure, std::string whole);
    /// The time of `figure` for each one of the things it is done to.
    Comparisons &each(std::string title, std::string figure, int count);
    /// A number that `measure` finds out when the benchmarks are through, which must not exceed `target`.
    Comparisons &number(std::string title, double (*measure)(), double target);

    /// Runs the benchmarks and prints figures and comparisons. The result is that of main(): 0, whether the
    /// targets are met or missed, since a machine under load is no defect.
    int run(int argc, char **argv) const;

private:
    enum class Kind
    {
        Ratio,
        Limit,
        Share,
        Each,
        Number
    };
    struct Line
    {
        Kind kind;
        std::string title;
        std::string figure;
        std::string baseline;
        double target = 0;
        int count = 1;
        double (*measure)() = nullptr;
    };
    class Reporter;

    std::vector<Line> m_lines;
};
