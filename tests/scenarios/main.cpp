#include "Scenario.h"

#include <KVApplication.h>

#include <QMap>

#include <cstdio>

namespace {
QMap<QString, ScenarioFunction>& Scenarios()
{
    static QMap<QString, ScenarioFunction> scenarios;
    return scenarios;
}

// Debug lines go to standard output as log=<text>, the rest to standard error.
void ReportLog(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    std::fprintf(type == QtDebugMsg ? stdout : stderr, "%s%s\n", type == QtDebugMsg ? "log=" : "",
                 qUtf8Printable(text));
    std::fflush(stdout);
}
} // namespace

ScenarioRegistration::ScenarioRegistration(const char* name, ScenarioFunction function)
{
    Scenarios().insert(QString::fromLatin1(name), function);
}

void Report(const QString& key, const QString& value)
{
    std::printf("%s\n", qUtf8Printable(key + QLatin1Char('=') + value));
    std::fflush(stdout);
}

void Report(const QString& key, const QStringList& values)
{
    for (const QString& value : values)
        Report(key, value);
}

int main(int argc, char** argv)
{
    qInstallMessageHandler(&ReportLog);
    const QString name = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    const ScenarioFunction scenario = Scenarios().value(name);
    if (!scenario) {
        std::fprintf(stderr, "unknown scenario \"%s\"\n", qUtf8Printable(name));
        return 2;
    }
    KVApplication app(argc, argv);
    return scenario(app, app.arguments().mid(2));
}
