#pragma once

#include <QString>

#include "kvcore_export.h"

#include <memory>

class KVFileBookmarkPrivate;

/// Holds access to one file, chosen by the user, for as long as it lives: in
/// the macOS App Sandbox, access to the file is started through its
/// security-scoped bookmark when the first holder acquires it and stopped when
/// the last one lets go. Outside the sandbox nothing is started, but a
/// bookmark still counts itself as acquired. Each object is used by one thread
/// at a time.
class KVCORE_EXPORT KVFileBookmark
{
public:
    /// An empty bookmark that holds nothing.
    KVFileBookmark();
    /// Acquires path.
    KVFileBookmark(const QString& path);
    /// Acquires other's path again: each copy holds a reference of its own.
    KVFileBookmark(const KVFileBookmark& other);
    /// Releases the path if it is held.
    ~KVFileBookmark();
    /// Acquires other's path (nothing happens when this already holds exactly that path).
    KVFileBookmark& operator=(const KVFileBookmark& other);

    /// Holds path instead of the current one. Nothing happens when the current
    /// path is held and equals path exactly; an empty path only lets go.
    void Acquire(const QString& path);
    /// Lets go of the path but keeps it.
    void Release();

    /// Stores a security-scoped bookmark for the file (inside the sandbox), so
    /// that a later run can acquire it again. An existing bookmark is kept.
    static void AddBookmark(const QString& path);

private:
    std::unique_ptr<KVFileBookmarkPrivate> d;
};
