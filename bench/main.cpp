// The library's benchmarks. Each measure that has a target is printed at the
// end as a ratio against a floor measured in the same run.

#include "RatioReporter.h"

#include <KVApplication.h>

#include <QTemporaryDir>

void PrintImageFileRatios(const RatioReporter& report);
void SetUpPlugins();
void TearDownPlugins();
void PrintPluginRatios(const RatioReporter& report);

namespace {
// The library's debug lines would measure the terminal, not the library.
void DropDebugLines(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type != QtDebugMsg)
        std::fprintf(stderr, "%s\n", qUtf8Printable(text));
}
} // namespace

int main(int argc, char** argv)
{
    // The application object makes its preferences folder under HOME.
    QTemporaryDir home;
    qputenv("HOME", QFile::encodeName(home.path()));
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(&DropDebugLines);
    int appArgc = 1;
    KVApplication app(appArgc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;

    SetUpPlugins();
    RatioReporter report;
    benchmark::RunSpecifiedBenchmarks(&report);
    PrintImageFileRatios(report);
    PrintPluginRatios(report);
    TearDownPlugins();
    benchmark::Shutdown();
    return 0;
}
