#include "RatioReporter.h"

#include <algorithm>
#include <cstdio>

namespace {
Spread SpreadOf(std::vector<double> values)
{
    values.erase(std::remove_if(values.begin(), values.end(), [](double v) { return !(v > 0); }),
                 values.end());
    if (values.empty())
        return {};
    std::sort(values.begin(), values.end());
    const size_t n = values.size();
    const double median = n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
    return {median, values.front(), values.back()};
}
} // namespace

void RatioReporter::ReportRuns(const std::vector<Run>& runs)
{
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration || run.error_occurred)
            continue;
        const double toNanoseconds = 1e9 / benchmark::GetTimeUnitMultiplier(run.time_unit);
        auto& values = m_values[run.benchmark_name()];
        const auto record = [&](Measure measure, double value) {
            auto& list = values[measure];
            list.resize(std::max<size_t>(list.size(), size_t(m_round) + 1));
            list[size_t(m_round)] = value;
        };
        record(Measure::RealTime, run.GetAdjustedRealTime() * toNanoseconds);
        record(Measure::CpuTime, run.GetAdjustedCPUTime() * toNanoseconds);
        const auto items = run.counters.find("items_per_second");
        if (items != run.counters.end())
            record(Measure::ItemsPerSecond, items->second.value);
    }
}

Spread RatioReporter::Value(const std::string& name, Measure measure) const
{
    const auto run = m_values.find(name);
    if (run == m_values.end() || !run->second.count(measure))
        return {};
    return SpreadOf(run->second.at(measure));
}

Spread RatioReporter::Ratio(const std::string& numerator, const std::string& denominator,
                            Measure measure) const
{
    const auto top = m_values.find(numerator);
    const auto bottom = m_values.find(denominator);
    if (top == m_values.end() || bottom == m_values.end() || !top->second.count(measure) ||
        !bottom->second.count(measure))
        return {};
    const std::vector<double>& a = top->second.at(measure);
    const std::vector<double>& b = bottom->second.at(measure);
    std::vector<double> ratios;
    for (size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
        if (a[i] > 0 && b[i] > 0)
            ratios.push_back(a[i] / b[i]);
    }
    return SpreadOf(ratios);
}

void PrintSpread(const char* label, const Spread& value, const char* unit, double scale)
{
    std::printf("%-62s %9.2f%-3s (%.2f-%.2f)\n", label, value.median * scale, unit,
                value.low * scale, value.high * scale);
}

void PrintTarget(const char* label, const Spread& value, const char* unit, bool met,
                 const char* target, double scale)
{
    char range[64];
    std::snprintf(range, sizeof range, "(%.2f-%.2f)", value.low * scale, value.high * scale);
    std::printf("%-62s %9.2f%-3s %-15s %-20s %s\n", label, value.median * scale, unit, range,
                target, met ? "PASS" : "MISS");
}
