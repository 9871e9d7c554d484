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

void WriteLine(const QString& line)
{
    std::fputs(qUtf8Printable(line + QLatin1Char('\n')), stdout);
    std::fflush(stdout);
}

void ReportLog(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtDebugMsg)
        WriteLine(QStringLiteral("log=") + text);
    else
        std::fprintf(stderr, "%s\n", qUtf8Printable(text));
}
} // namespace

ScenarioRegistration::ScenarioRegistration(const char* name, ScenarioFunction function)
{
    Scenarios().insert(QString::fromLatin1(name), function);
}

void Report(const QString& key, const QString& value)
{
    WriteLine(key + QLatin1Char('=') + value);
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
