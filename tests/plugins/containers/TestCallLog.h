#pragma once

#include <QStringList>

#if defined(KV_TESTCALLLOG_BUILD)
#define KV_TESTCALLLOG_EXPORT Q_DECL_EXPORT
#else
#define KV_TESTCALLLOG_EXPORT Q_DECL_IMPORT
#endif

// The calls that test plug-in containers receive, as "<container>:<call>",
// shared by the containers and the test that loads them.
namespace TestCallLog {
KV_TESTCALLLOG_EXPORT void Append(const QString& call);
// The calls logged so far, and a fresh log.
KV_TESTCALLLOG_EXPORT QStringList Take();
} // namespace TestCallLog
