#include "KVFileBookmarkManager.h"

#include "private/KVFileBookmark_p.h"

#include <QFileInfo>

KVFileBookmarkManager KVFileBookmarkManager::m_manager;

KVFileBookmarkManager::KVFileBookmarkManager()
    : d(new Private)
{}

KVFileBookmarkManager::~KVFileBookmarkManager() = default;

bool KVFileBookmarkManager::IsSandbox()
{
    return KVBookmarkStore::IsSandbox();
}

void KVFileBookmarkManager::Acquire(const QString& path)
{
    if (!IsSandbox())
        return;
    const QString absolutePath = QFileInfo(path).absoluteFilePath();
    std::lock_guard<std::mutex> lock(d->m_lock);
    const auto it = d->m_references.find(absolutePath);
    if (it != d->m_references.end()) {
        ++it->second;
        return;
    }
    if (AcquireSecurityBookmark(absolutePath))
        d->m_references.emplace(absolutePath, 1);
}

void KVFileBookmarkManager::Release(const QString& path)
{
    if (!IsSandbox())
        return;
    const QString absolutePath = QFileInfo(path).absoluteFilePath();
    std::lock_guard<std::mutex> lock(d->m_lock);
    const auto it = d->m_references.find(absolutePath);
    if (it == d->m_references.end() || it->second < 1)
        return;
    // An entry whose access cannot be stopped stays at 0: a later Acquire
    // counts it up again without starting access a second time.
    if (--it->second == 0 && ReleaseSecurityBookmark(absolutePath))
        d->m_references.erase(it);
}

void KVFileBookmarkManager::AddSecurityBookmark(const QString& path)
{
    if (!IsSandbox())
        return;
    const QString absolutePath = QFileInfo(path).absoluteFilePath();
    std::lock_guard<std::mutex> lock(d->m_lock);
    KVBookmarkStore::Add(absolutePath);
}

bool KVFileBookmarkManager::AcquireSecurityBookmark(const QString& absolutePath)
{
    return KVBookmarkStore::StartAccess(absolutePath);
}

bool KVFileBookmarkManager::ReleaseSecurityBookmark(const QString& absolutePath)
{
    return KVBookmarkStore::StopAccess(absolutePath);
}
