#include "BenchApplication.h"
#include "RatioReporter.h"

#include <KVApplication.h>

#include <QApplication>
#include <QDir>
#include <QSettings>

namespace {
// Construction needs the process without an application object: the one
// that the other measures run in ends for the run and starts again after it.
class Construction : public benchmark::Fixture
{
public:
    void SetUp(benchmark::State&) override { EndApplication(); }
    void TearDown(benchmark::State&) override { StartApplication(); }
};

// Both export preset files exist: the application object of main() wrote them.
BENCHMARK_DEFINE_F(Construction, KVApplication)(benchmark::State& state)
{
    for (auto _ : state)
        KVApplication app(ApplicationArgc(), ApplicationArgv());
}
BENCHMARK_REGISTER_F(Construction, KVApplication)->UseRealTime()->Unit(benchmark::kMicrosecond);

BENCHMARK_DEFINE_F(Construction, BareQApplication)(benchmark::State& state)
{
    for (auto _ : state)
        QApplication app(ApplicationArgc(), ApplicationArgv());
}
BENCHMARK_REGISTER_F(Construction, BareQApplication)->UseRealTime()->Unit(benchmark::kMicrosecond);

// A preset file read as the lists read theirs: the version check, then the
// group's keys from 0 until one is missing.
void ReadPresetFile(const QString& file, const QString& group)
{
    if (!QSettings(file, QSettings::IniFormat).contains("Version"))
        return;
    QSettings settings(file, QSettings::IniFormat);
    settings.beginGroup(group);
    for (int i = 0; settings.contains(QString::number(i)); ++i)
        benchmark::DoNotOptimize(settings.value(QString::number(i)).toString());
}

BENCHMARK_DEFINE_F(Construction, BareQApplicationAndPresetFiles)(benchmark::State& state)
{
    const QString folder = QDir::homePath() + "/Library/Preferences/Pelkaro AB/Pelkaro";
    for (auto _ : state) {
        QApplication app(ApplicationArgc(), ApplicationArgv());
        ReadPresetFile(folder + "/exportandshareresolution.ini", "Resolutions");
        ReadPresetFile(folder + "/exportandsharesize.ini", "Sizes");
    }
}
BENCHMARK_REGISTER_F(Construction, BareQApplicationAndPresetFiles)
    ->UseRealTime()
    ->Unit(benchmark::kMicrosecond);
} // namespace

void PrintApplicationRatios(const RatioReporter& report)
{
    const std::string library = "Construction/KVApplication/real_time";
    if (!report.Value(library).IsValid())
        return;
    std::printf("\nApplication object, constructed and destroyed (both preset files present)\n");
    PrintSpread("KVApplication", report.Value(library), "us", 0.001);
    PrintSpread("  / bare QApplication",
                report.Ratio(library, "Construction/BareQApplication/real_time"), "x");
    PrintSpread("  / bare QApplication + bare reads of the two preset files",
                report.Ratio(library, "Construction/BareQApplicationAndPresetFiles/real_time"),
                "x");
}
