#include "KVFileBookmark.h"

#include "private/KVFileBookmark_p.h"

KVFileBookmark::KVFileBookmark()
    : d(new KVFileBookmarkPrivate)
{}

KVFileBookmark::KVFileBookmark(const QString& path)
    : KVFileBookmark()
{
    Acquire(path);
}

KVFileBookmark::KVFileBookmark(const KVFileBookmark& other)
    : KVFileBookmark()
{
    Acquire(other.d->m_path);
}

KVFileBookmark::~KVFileBookmark()
{
    Release();
}

KVFileBookmark& KVFileBookmark::operator=(const KVFileBookmark& other)
{
    if (this != &other)
        Acquire(other.d->m_path);
    return *this;
}

void KVFileBookmark::Acquire(const QString& path)
{
    // Exact comparison: another spelling of the same file is released and
    // acquired again, which the manager counts as one file.
    if (d->m_acquired && d->m_path == path)
        return;
    Release();
    if (!path.isEmpty()) {
        KVFileBookmarkManager::m_manager.Acquire(path);
        d->m_acquired = true;
    }
    d->m_path = path;
}

void KVFileBookmark::Release()
{
    if (!d->m_acquired)
        return;
    KVFileBookmarkManager::m_manager.Release(d->m_path);
    d->m_acquired = false;
}

void KVFileBookmark::AddBookmark(const QString& path)
{
    KVFileBookmarkManager::m_manager.AddSecurityBookmark(path);
}
