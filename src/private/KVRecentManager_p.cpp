#include "KVRecentManager_p.h"

#include "KVApplication.h"

#include <QByteArray>
#include <QDataStream>
#include <QFile>

KVRecentManager* KVRecentManager::Private::m_pInstance = nullptr;
const QString KVRecentManager::Private::m_favoritesLimitName = QStringLiteral("FavoriteLimit");
const QString KVRecentManager::Private::m_recentLimitName = QStringLiteral("RecentLimit");
const QString KVRecentManager::Private::m_favoriteFileName = QStringLiteral("FavoriteFiles");
const QString KVRecentManager::Private::m_recentFileName = QStringLiteral("RecentFiles");

namespace {
const int kDefaultFavoritesLimit = 5;
const int kDefaultRecentsLimit = 10;

// Converted to int as QVariant converts: text that is no number, and a number
// beyond int's range, read as 0.
int ReadLimit(const QString& key, int fallback, int maximum)
{
    return qBound(0, KVApplication::GetUserValue(key, fallback).toInt(), maximum);
}

// The value comes from a file that the user can edit: the stored count is
// only trusted up to the limit, and the first failed read ends the list, so
// a corrupt value gives a short list and never a large allocation. Files
// that no longer exist are dropped but still use up the count.
QStringList ReadPaths(const QString& key, int limit)
{
    const QByteArray bytes = KVApplication::GetUserValue(key, QByteArray()).toByteArray();
    QDataStream stream(bytes);
    qint32 count = 0;
    stream >> count;
    if (stream.status() != QDataStream::Ok)
        return QStringList();

    QStringList paths;
    for (qint32 i = 0, n = qBound(0, count, limit); i < n; ++i) {
        QString path;
        stream >> path;
        if (stream.status() != QDataStream::Ok)
            break;
        if (QFile::exists(path))
            paths.append(path);
    }
    return paths;
}

QVariant PathsValue(const QStringList& paths)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << qint32(paths.size());
    for (const QString& path : paths)
        stream << path;
    return QVariant(bytes);
}
} // namespace

KVRecentManager::Private::Private(KVRecentManager* owner)
    : q(owner)
{
    Restore();
}

KVRecentManager::Private::~Private()
{
    Save();
}

void KVRecentManager::Private::Restore()
{
    m_recentsLimit = ReadLimit(m_recentLimitName, kDefaultRecentsLimit, GetRecentMaximumNumber());
    m_recents = ReadPaths(m_recentFileName, m_recentsLimit);
    m_favoritesLimit =
        ReadLimit(m_favoritesLimitName, kDefaultFavoritesLimit, GetFavoriteMaximumNumber());
    m_favorites = ReadPaths(m_favoriteFileName, m_favoritesLimit);
}

// Limits set at run time are saved unclamped; the next restore clamps them.
void KVRecentManager::Private::Save() const
{
    KVApplication::SetUserValue(m_recentLimitName, m_recentsLimit);
    KVApplication::SetUserValue(m_favoritesLimitName, m_favoritesLimit);
    KVApplication::SetUserValue(m_recentFileName, PathsValue(m_recents));
    KVApplication::SetUserValue(m_favoriteFileName, PathsValue(m_favorites));
}

void KVRecentManager::Private::PushFavorite(const QString& path)
{
    if (m_favorites.removeOne(path)) {
        Q_EMIT q->FavoriteRemoved(path);
        m_favorites.prepend(path);
        Q_EMIT q->FavoriteInserted(path);
        return;
    }
    if (m_favorites.size() >= m_favoritesLimit)
        return;

    // A promoted recent keeps whatever item data it has.
    if (m_recents.removeOne(path))
        Q_EMIT q->RecentRemoved(path);
    else if (!m_itemData.contains(path))
        m_itemData.insert(path, {});
    m_favorites.prepend(path);
    Q_EMIT q->FavoriteInserted(path);
}

void KVRecentManager::Private::PushRecent(const QString& path)
{
    // Without room for recents a favourite is listed there as well, rather
    // than not at all.
    if (m_recentsLimit >= 1 && m_favorites.contains(path)) {
        Q_EMIT q->FavoriteUpdated(path);
        return;
    }
    if (m_recents.removeOne(path)) {
        Q_EMIT q->RecentRemoved(path);
        m_recents.prepend(path);
        Q_EMIT q->RecentInserted(path);
        return;
    }

    MakeRoomInRecents();
    if (!m_itemData.contains(path))
        m_itemData.insert(path, {});
    m_recents.prepend(path);
    Q_EMIT q->RecentInserted(path);
}

void KVRecentManager::Private::MakeRoomInRecents()
{
    while (m_recentsLimit >= 1 && m_recents.size() >= m_recentsLimit) {
        const QString oldest = m_recents.takeLast();
        m_itemData.remove(oldest);
        Q_EMIT q->RecentRemoved(oldest);
    }
}

// A removed favourite is demoted, not forgotten, and keeps its item data.
void KVRecentManager::Private::Remove(const QString& path)
{
    if (m_favorites.removeOne(path)) {
        Q_EMIT q->FavoriteRemoved(path);
        MakeRoomInRecents();
        m_recents.prepend(path);
        Q_EMIT q->RecentInserted(path);
    } else if (m_recents.removeOne(path)) {
        m_itemData.remove(path);
        Q_EMIT q->RecentRemoved(path);
    }
}

void KVRecentManager::Private::ContentUpdated(const QString& path)
{
    if (m_favorites.contains(path))
        Q_EMIT q->FavoriteUpdated(path);
    else if (m_recents.contains(path))
        Q_EMIT q->RecentUpdated(path);
}

void KVRecentManager::Private::SetItemData(const QString& path, int role, const QVariant& value)
{
    const auto entry = m_itemData.find(path);
    if (entry == m_itemData.end())
        return;
    entry->insert(role, value);
    if (m_recents.contains(path))
        Q_EMIT q->RecentDataChanged(path, role);
    else if (m_favorites.contains(path))
        Q_EMIT q->FavoriteDataChanged(path, role);
}

QVariant KVRecentManager::Private::GetItemData(const QString& path, int role,
                                               const QVariant& fallback) const
{
    const auto entry = m_itemData.constFind(path);
    return entry == m_itemData.cend() ? fallback : entry->value(role, fallback);
}

// The path is copied out of the list because Remove() takes it out of there.
void KVRecentManager::Private::SetFavoritesNumber(int number)
{
    m_favoritesLimit = number;
    while (number >= 1 && m_favorites.size() > number) {
        const QString oldest = m_favorites.last();
        Remove(oldest);
    }
}

void KVRecentManager::Private::SetRecentsNumber(int number)
{
    m_recentsLimit = number;
    while (number >= 1 && m_recents.size() > number) {
        const QString oldest = m_recents.last();
        Remove(oldest);
    }
}
