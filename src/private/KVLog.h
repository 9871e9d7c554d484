#pragma once

#include <QString>

// Writes one diagnostic line in the library's format at Qt's debug level:
//   Build date=<date>, time=<time>. Line=<line>, file="<source>". <message>
// The build system defines KV_LOG_FILE for every source as its path from the
// repository root without extension.
#define KV_LOG(message) KV_LOG_AT(__LINE__, message)
// The same with a fixed line number, for messages that log readers know by
// the line they have always carried.
#define KV_LOG_AT(line, message) KVLog::Write(__DATE__, __TIME__, (line), KV_LOG_FILE, (message))
// The same naming another source file, for messages that log readers know by
// the file that held them before.
#define KV_LOG_FROM(file, message) KVLog::Write(__DATE__, __TIME__, __LINE__, (file), (message))

namespace KVLog {
void Write(const char* buildDate, const char* buildTime, int line, const char* file,
           const QString& message);
} // namespace KVLog
