// The library's benchmarks. Each measure that has a target is printed at the
// end as a ratio against a floor measured in the same run: the median of the
// ratios of several rounds, in each of which every measure runs once, with
// their range.

#include "BenchApplication.h"
#include "RatioReporter.h"

#include <KVApplication.h>

#include <QTemporaryDir>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

void PrintImageFileRatios(const RatioReporter& report);
void PrintRegistrationRatios(const RatioReporter& report);
void SetUpPlugins();
void TearDownPlugins();
void PrintPluginRatios(const RatioReporter& report);
void SetUpSettings();
void TearDownSettings();
void PrintSettingsRatios(const RatioReporter& report);
void PrintApplicationRatios(const RatioReporter& report);

namespace {
int s_argc = 1;
char* s_argv[] = {const_cast<char*>("kv_bench"), nullptr};
std::unique_ptr<KVApplication> s_app;

// The library's debug lines would measure the terminal, not the library.
void DropDebugLines(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type != QtDebugMsg)
        std::fprintf(stderr, "%s\n", qUtf8Printable(text));
}
} // namespace

int& ApplicationArgc()
{
    return s_argc;
}

char** ApplicationArgv()
{
    return s_argv;
}

void StartApplication()
{
    s_app = std::make_unique<KVApplication>(s_argc, s_argv);
}

void EndApplication()
{
    s_app.reset();
}

int main(int argc, char** argv)
{
    // The application object makes its preferences folder under HOME.
    QTemporaryDir home;
    qputenv("HOME", QFile::encodeName(home.path()));
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(&DropDebugLines);
    StartApplication();
    // Unless the command line says otherwise: a tenth of a second a measure
    // and seven rounds (--rounds=N).
    std::vector<char*> arguments;
    int rounds = 7;
    for (int i = 0; i < argc; ++i) {
        if (std::strncmp(argv[i], "--rounds=", 9) == 0)
            rounds = std::max(1, std::atoi(argv[i] + 9));
        else
            arguments.push_back(argv[i]);
    }
    static char minTime[] = "--benchmark_min_time=0.1";
    if (std::none_of(arguments.begin(), arguments.end(), [](const char* argument) {
            return std::strstr(argument, "--benchmark_min_time");
        }))
        arguments.push_back(minTime);
    argc = int(arguments.size());
    argv = arguments.data();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;

    SetUpPlugins();
    SetUpSettings();
    RatioReporter report;
    for (int round = 0; round < rounds; ++round) {
        std::printf("\nRound %d of %d\n", round + 1, rounds);
        report.SetRound(round);
        benchmark::RunSpecifiedBenchmarks(&report);
    }
    PrintImageFileRatios(report);
    PrintRegistrationRatios(report);
    PrintPluginRatios(report);
    PrintSettingsRatios(report);
    PrintApplicationRatios(report);
    TearDownSettings();
    TearDownPlugins();
    benchmark::Shutdown();
    EndApplication();
    return 0;
}
