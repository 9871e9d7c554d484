#pragma once

#include <QString>

#include "kvcore_export.h"

#include <memory>

/// The process-wide bookkeeping behind KVFileBookmark: how many holders use
/// each file, by absolute path, so that security-scoped access is started once
/// and stopped with the last holder, and the store of bookmarks in the user
/// defaults under "Recent files". Every operation does nothing outside the
/// sandbox. Any thread may call it.
class KVCORE_EXPORT KVFileBookmarkManager
{
public:
    /// Not copyable: there is one manager, m_manager.
    KVFileBookmarkManager(const KVFileBookmarkManager&) = delete;
    /// Not assignable: there is one manager, m_manager.
    KVFileBookmarkManager& operator=(const KVFileBookmarkManager&) = delete;

    /// Whether the process runs in the App Sandbox ("APP_SANDBOX_CONTAINER_ID"
    /// is in its environment).
    static bool IsSandbox();

    /// Counts one more holder of the file, starting access for the first one.
    /// Nothing is counted when access cannot be started.
    void Acquire(const QString& path);
    /// Counts one holder less, stopping access when the last one goes.
    void Release(const QString& path);
    /// Stores a bookmark for the file unless one is stored already.
    void AddSecurityBookmark(const QString& path);

    /// The one manager of the process, alive as long as the library.
    static KVFileBookmarkManager m_manager;

private:
    KVFileBookmarkManager();
    ~KVFileBookmarkManager();

    // Resolve the stored bookmark and start or stop access through it.
    bool AcquireSecurityBookmark(const QString& absolutePath);
    bool ReleaseSecurityBookmark(const QString& absolutePath);

    class Private;
    std::unique_ptr<Private> d;
};
