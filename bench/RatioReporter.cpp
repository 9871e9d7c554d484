#include "RatioReporter.h"

#include <cstdio>

void RatioReporter::ReportRuns(const std::vector<Run>& runs)
{
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration || run.error_occurred)
            continue;
        const double toNanoseconds = 1e9 / benchmark::GetTimeUnitMultiplier(run.time_unit);
        m_nanoseconds[run.benchmark_name()] = run.GetAdjustedRealTime() * toNanoseconds;
        m_cpuNanoseconds[run.benchmark_name()] = run.GetAdjustedCPUTime() * toNanoseconds;
        const auto items = run.counters.find("items_per_second");
        if (items != run.counters.end())
            m_itemsPerSecond[run.benchmark_name()] = items->second.value;
    }
}

double RatioReporter::Nanoseconds(const std::string& name) const
{
    const auto it = m_nanoseconds.find(name);
    return it == m_nanoseconds.end() ? 0.0 : it->second;
}

double RatioReporter::CpuNanoseconds(const std::string& name) const
{
    const auto it = m_cpuNanoseconds.find(name);
    return it == m_cpuNanoseconds.end() ? 0.0 : it->second;
}

double RatioReporter::ItemsPerSecond(const std::string& name) const
{
    const auto it = m_itemsPerSecond.find(name);
    return it == m_itemsPerSecond.end() ? 0.0 : it->second;
}

void PrintRatio(const char* label, double value, const char* unit, bool met, const char* target)
{
    std::printf("%-66s %10.2f%-3s %-24s %s\n", label, value, unit, target, met ? "PASS" : "MISS");
}
