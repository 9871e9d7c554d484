#pragma once

#include "KVFileBookmarkManager.h"

#include <QString>

#include <map>
#include <mutex>

class KVFileBookmarkPrivate
{
public:
    // As the caller gave it, not made absolute.
    QString m_path;
    // Whether this bookmark holds one reference on m_path in the manager.
    bool m_acquired = false;
};

class KVFileBookmarkManager::Private
{
public:
    std::mutex m_lock;
    // Absolute path -> holders for which access was started.
    std::map<QString, int> m_references;
};

// The platform's store of security-scoped bookmarks and its access calls:
// Foundation's user defaults and NSURL on Apple platforms, a QSettings store
// elsewhere. The manager serialises every call but IsSandbox().
namespace KVBookmarkStore {

bool IsSandbox();
// Resolve the file's stored bookmark and start or stop access through it.
// False when there is no bookmark or it does not resolve; StartAccess also
// when access is refused.
bool StartAccess(const QString& absolutePath);
bool StopAccess(const QString& absolutePath);
// Stores a new bookmark for the file; an existing one is never replaced.
void Add(const QString& absolutePath);

#if !defined(Q_OS_DARWIN)
// How many times access to the file was started and not yet stopped; lets
// tests see the balance that Foundation keeps to itself (they link the
// library's objects: the shared library does not export it).
int ActiveAccessCount(const QString& absolutePath);
#endif

} // namespace KVBookmarkStore
