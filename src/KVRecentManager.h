#pragma once

#include <QObject>
#include <QStringList>
#include <QVariant>

#include "kvcore_export.h"

// The user's favourite and recent files: two lists of paths, most recent
// first, each bounded by its own limit, plus item data (role -> value) that
// views attach to the paths pushed while the application runs. The lists and
// limits are restored from user.ini when the manager is created and saved
// there when it is released; item data is never saved. Every change is
// announced with the path concerned. Paths are compared as exact strings.
// Main thread only.
//
// A singleton: InitInstance() creates it once the application object exists,
// ReleaseInstance() saves and deletes it and must come while the application
// object still exists. Unlike the other managers, the operations are members
// of the instance.
class KVCORE_EXPORT KVRecentManager : public QObject
{
    Q_OBJECT
public:
    static void InitInstance();
    static KVRecentManager* GetInstance();
    static void ReleaseInstance();

    // The highest limits accepted from user.ini.
    static int GetFavoriteMaximumNumber();
    static int GetRecentMaximumNumber();

    // Puts the path at the front of the favourites, taking it out of the
    // recents. A full favourites list refuses new paths and evicts nothing.
    void PushFavorite(const QString& path);
    // Puts the path at the front of the recents, evicting the oldest when the
    // list is full. A favourite stays where it is and is reported as updated.
    void PushRecent(const QString& path);
    // Moves a favourite back to the front of the recents; forgets a recent
    // together with its item data.
    void Remove(const QString& path);
    // Reports that the file's content changed, through the list that holds it.
    void ContentUpdated(const QString& path);

    // Stores the value under the role for a path pushed since start-up; any
    // other path is ignored.
    void SetItemData(const QString& path, int role, const QVariant& value);
    // The value stored under the role, or the fallback.
    QVariant GetItemData(const QString& path, int role, const QVariant& fallback) const;

    bool IsFavorite(const QString& path) const;

    // The limits, stored as given. A limit of 1 or more trims the list from
    // its oldest end at once, trimmed favourites moving to the recents. A
    // favourites limit of 0 or less refuses every new favourite; a recents
    // limit of 0 or less lets the recents grow without bound.
    void SetFavoritesNumber(int number);
    int GetFavoritesNumber() const;
    void SetRecentsNumber(int number);
    int GetRecentsNumber() const;

    // The number of paths held.
    int GetFavoriteCount() const;
    int GetRecentCount() const;
    // Copies of the lists, most recent first.
    QStringList GetFavorites() const;
    QStringList GetRecents() const;

Q_SIGNALS:
    // The path was put at the front of the list.
    void FavoriteInserted(const QString& path);
    void RecentInserted(const QString& path);
    // The path left the list.
    void FavoriteRemoved(const QString& path);
    void RecentRemoved(const QString& path);
    // The file changed or a favourite was opened again; the lists are unchanged.
    void FavoriteUpdated(const QString& path);
    void RecentUpdated(const QString& path);
    // Item data of the path was set under the role.
    void FavoriteDataChanged(const QString& path, int role);
    void RecentDataChanged(const QString& path, int role);

private:
    KVRecentManager();
    ~KVRecentManager() override;

    class Private;
    Private* d;
};
