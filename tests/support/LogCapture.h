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
    // The captured lines with their build date and time replaced by DATE and TIME.
    QStringList StampedLines() const;
    void Clear();

    // A log line with DATE and TIME for its build stamp, at the line of sourceFile
    // (a path from the repository root without extension) that holds needle.
    static QString Expected(const QString& sourceFile, const QString& needle,
                            const QString& message);
    // A log line with its build date and time replaced by DATE and TIME; unchanged
    // when the stamp is not in the compiler's form.
    static QString WithoutBuildStamp(const QString& line);
    // The 1-based line of the log statement in sourceFile.cpp that holds needle, or -1.
    static int SourceLine(const QString& sourceFile, const QString& needle);

private:
    static void Handler(QtMsgType type, const QMessageLogContext& context, const QString& text);

    mutable QMutex m_lock;
    QStringList m_lines;
    QStringList m_categories;
    QtMessageHandler m_previous = nullptr;
};
