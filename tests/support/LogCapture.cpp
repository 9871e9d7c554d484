#include "LogCapture.h"

#include "TestSupport.h"

#include <QFile>
#include <QRegularExpression>
#include <QTextStream>

namespace {
LogCapture* s_active = nullptr;
}

LogCapture::LogCapture()
{
    s_active = this;
    m_previous = qInstallMessageHandler(&LogCapture::Handler);
}

LogCapture::~LogCapture()
{
    qInstallMessageHandler(m_previous);
    s_active = nullptr;
}

void LogCapture::Handler(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    LogCapture* capture = s_active;
    if (!capture)
        return;
    if (type != QtDebugMsg) {
        if (capture->m_previous)
            capture->m_previous(type, context, text);
        return;
    }
    QMutexLocker locker(&capture->m_lock);
    capture->m_lines.append(text);
    capture->m_categories.append(QString::fromLatin1(context.category));
}

QStringList LogCapture::Lines() const
{
    QMutexLocker locker(&m_lock);
    return m_lines;
}

QStringList LogCapture::StampedLines() const
{
    QStringList lines = Lines();
    for (QString& line : lines)
        line = WithoutBuildStamp(line);
    return lines;
}

QStringList LogCapture::Categories() const
{
    QMutexLocker locker(&m_lock);
    return m_categories;
}

void LogCapture::Clear()
{
    QMutexLocker locker(&m_lock);
    m_lines.clear();
    m_categories.clear();
}

QString LogCapture::WithoutBuildStamp(const QString& line)
{
    static const QRegularExpression stamp(
        QStringLiteral(R"(^Build date=[A-Z][a-z]{2} [ \d]\d \d{4}, time=\d\d:\d\d:\d\d\. )"));
    QString result = line;
    return result.replace(stamp, QStringLiteral("Build date=DATE, time=TIME. "));
}

int LogCapture::SourceLine(const QString& sourceFile, const QString& needle)
{
    QFile file(KVTest::SourcePath(sourceFile + QStringLiteral(".cpp")));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return -1;
    // A log statement may span lines: its line is that of the KV_LOG before the needle.
    QTextStream stream(&file);
    int logLine = -1;
    for (int number = 1; !stream.atEnd(); ++number) {
        const QString line = stream.readLine();
        if (line.contains(QLatin1String("KV_LOG")))
            logLine = number;
        if (line.contains(needle))
            return logLine;
    }
    return -1;
}

QString LogCapture::Expected(const QString& sourceFile, const QString& needle,
                             const QString& message)
{
    return QStringLiteral("Build date=DATE, time=TIME. Line=%1, file=\"%2\". %3")
        .arg(QString::number(SourceLine(sourceFile, needle)), sourceFile, message);
}
