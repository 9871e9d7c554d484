// The library's benchmarks. Each measure that has a target is printed at the
// end as a ratio against a floor measured in the same run.

#include "RatioReporter.h"

#include <QCoreApplication>

void SetUpImageFiles();
void TearDownImageFiles();
void PrintImageFileRatios(const RatioReporter& report);

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;

    SetUpImageFiles();
    RatioReporter report;
    benchmark::RunSpecifiedBenchmarks(&report);
    PrintImageFileRatios(report);
    TearDownImageFiles();
    benchmark::Shutdown();
    return 0;
}
