#pragma once

#include "KVRecentManager.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

class KVRecentManager::Private
{
public:
    // Restores the limits and lists from user.ini, silently.
    explicit Private(KVRecentManager* owner);
    // Saves the limits and lists to user.ini.
    ~Private();

    void PushFavorite(const QString& path);
    void PushRecent(const QString& path);
    void Remove(const QString& path);
    void ContentUpdated(const QString& path);
    void SetItemData(const QString& path, int role, const QVariant& value);
    QVariant GetItemData(const QString& path, int role, const QVariant& fallback) const;
    void SetFavoritesNumber(int number);
    void SetRecentsNumber(int number);

    KVRecentManager* q;
    // Only paths pushed since start-up have an entry; restored ones do not.
    QMap<QString, QMap<int, QVariant>> m_itemData;
    int m_favoritesLimit = 0;
    int m_recentsLimit = 0;
    QStringList m_favorites; // most recent first
    QStringList m_recents;   // most recent first

    static KVRecentManager* m_pInstance;
    static const QString m_favoritesLimitName;
    static const QString m_recentLimitName;
    static const QString m_favoriteFileName;
    static const QString m_recentFileName;

private:
    void Restore();
    void Save() const;
    // Evicts the oldest recents, with their item data, until one more fits.
    void MakeRoomInRecents();
};
