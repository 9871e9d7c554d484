#include "LogCapture.h"

#include "TestSupport.h"

#include <QRegularExpression>

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
    static const QRegularExpression stamp(QStringLiteral(
        R"(^Build date=[A-Z][a-z]{2} [ \d]\d \d{4}, time=\d\d:\d\d:\d\d\. Line=\d+, )"));
    QString result = line;
    return result.replace(stamp, QStringLiteral("Build date=DATE, time=TIME. Line=LINE, "));
}

QString LogCapture::Expected(const QString& sourceFile, const QString& message)
{
    return QStringLiteral("Build date=DATE, time=TIME. Line=LINE, file=\"%1\". %2")
        .arg(sourceFile, message);
}
