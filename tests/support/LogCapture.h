#pragma once

#include <QMutex>
#include <QStringList>
#include <QtMessageHandler>

// Collects the debug lines written while it exists (from any thread).
class LogCapture
{
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    QStringList Lines() const;
    // The message category of each captured line, in order.
    QStringList Categories() const;
    // The captured lines with their build date, time and source line replaced
    // by DATE, TIME and LINE.
    QStringList StampedLines() const;
    void Clear();

    // A log line of sourceFile (a path from the repository root without
    // extension) with DATE, TIME and LINE for its build stamp and source line.
    static QString Expected(const QString& sourceFile, const QString& message);
    // A log line with its build date, time and source line replaced by DATE,
    // TIME and LINE; unchanged when the stamp is not in the compiler's form.
    static QString WithoutBuildStamp(const QString& line);

private:
    static void Handler(QtMsgType type, const QMessageLogContext& context, const QString& text);

    mutable QMutex m_lock;
    QStringList m_lines;
    QStringList m_categories;
    QtMessageHandler m_previous = nullptr;
};
