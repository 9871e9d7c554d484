#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>

// The console report, keeping every run's time per iteration and its
// throughput so that main() can print ratios between runs of the same process.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override;

    // Nanoseconds of real time per iteration of a run, by its full name.
    double Nanoseconds(const std::string& name) const;
    // Nanoseconds of the benchmark thread's CPU time per iteration, system
    // calls included: the steadier measure where other processes compete.
    double CpuNanoseconds(const std::string& name) const;
    // Items per second of a run (all threads together).
    double ItemsPerSecond(const std::string& name) const;
    bool Has(const std::string& name) const { return m_nanoseconds.count(name) != 0; }

private:
    std::map<std::string, double> m_nanoseconds;
    std::map<std::string, double> m_cpuNanoseconds;
    std::map<std::string, double> m_itemsPerSecond;
};

// Prints "label: value (target)" with PASS or MISS.
void PrintRatio(const char* label, double value, const char* unit, bool met, const char* target);
