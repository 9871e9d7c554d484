#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

// What a benchmark measures in one run.
enum class Measure
{
    RealTime,       // nanoseconds of wall time per iteration
    CpuTime,        // nanoseconds of the benchmark thread's CPU time, system calls included:
                    // the steadier measure where other processes compete
    ItemsPerSecond, // items of all threads together
};

// A measure over the repetitions of a run: the median and the range.
struct Spread
{
    double median = 0;
    double low = 0;
    double high = 0;
    bool IsValid() const { return median > 0; }
};

// The console report, keeping each round's measures so that main() can
// print ratios between runs of the same process. main() runs every
// benchmark once a round, for several rounds, and the two sides of a ratio
// are registered next to each other: a quiet or busy spell of the machine
// falls on both alike. A ratio is taken round by round and printed as its
// median with its range.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override;
    void SetRound(int round) { m_round = round; }

    // The measure of a run (by its full name) over the repetitions.
    Spread Value(const std::string& name, Measure measure = Measure::RealTime) const;
    // numerator / denominator, repetition by repetition.
    Spread Ratio(const std::string& numerator, const std::string& denominator,
                 Measure measure = Measure::RealTime) const;

private:
    int m_round = 0;
    std::map<std::string, std::map<Measure, std::vector<double>>> m_values;
};

// Prints "label: median (low-high) unit" and, with a target, PASS or MISS
// for the median.
void PrintSpread(const char* label, const Spread& value, const char* unit, double scale = 1.0);
void PrintTarget(const char* label, const Spread& value, const char* unit, bool met,
                 const char* target, double scale = 1.0);
