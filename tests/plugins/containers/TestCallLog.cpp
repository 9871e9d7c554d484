#include "TestCallLog.h"

#include <QMutex>

namespace {
QMutex s_lock;
QStringList s_calls;
} // namespace

void TestCallLog::Append(const QString& call)
{
    QMutexLocker locker(&s_lock);
    s_calls.append(call);
}

QStringList TestCallLog::Take()
{
    QMutexLocker locker(&s_lock);
    return std::exchange(s_calls, {});
}
