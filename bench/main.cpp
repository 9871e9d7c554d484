// The library's benchmarks. Each measure that has a target is printed at the
// end as a ratio against a floor measured in the same run.

#include "BenchApplication.h"
#include "RatioReporter.h"

#include <KVApplication.h>

#include <QTemporaryDir>

#include <memory>

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
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;

    SetUpPlugins();
    SetUpSettings();
    RatioReporter report;
    benchmark::RunSpecifiedBenchmarks(&report);
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
