#include "KVLog.h"

#include <QMessageLogger>

namespace KVLog {

void Write(const char* buildDate, const char* buildTime, int line, const char* file,
           const QString& message)
{
    // One multi-argument arg() so that a '%' in the message is never substituted.
    const QString text = QStringLiteral("Build date=%1, time=%2. Line=%3, file=\"%4\". %5")
                             .arg(QString::fromLatin1(buildDate), QString::fromLatin1(buildTime),
                                  QString::number(line), QString::fromUtf8(file), message);
    // The message category names the library's lines for message handlers.
    QMessageLogger(nullptr, 0, nullptr, "default").debug("%s", qUtf8Printable(text));
}

} // namespace KVLog
