#pragma once

#include <QObject>
#include <QStringList>
#include <QVariant>

#include "kvcore_export.h"

#include <memory>

/// The user's favourite and recent files: two lists of paths, most recent
/// first, each bounded by its own limit, plus item data (role -> value) that
/// views attach to the paths pushed while the application runs. The lists and
/// limits are restored from user.ini when the manager is created and saved
/// there when it is released; item data is never saved. Every change is
/// announced with the path concerned. Paths are compared as exact strings.
/// Main thread only.
///
/// A singleton: InitInstance() creates it once the application object exists,
/// ReleaseInstance() saves and deletes it and must come while the application
/// object still exists. Unlike the other managers, the operations are members
/// of the instance.
class KVCORE_EXPORT KVRecentManager : public QObject
{
    Q_OBJECT
public:
    /// Creates the manager, restoring the lists and limits from user.ini,
    /// unless it exists. Needs the application object.
    static void InitInstance();
    /// The manager, on which every other operation is called; null while
    /// there is none.
    static KVRecentManager* GetInstance();
    /// Saves the lists and limits to user.ini and deletes the manager; call it
    /// while the application object exists.
    static void ReleaseInstance();

    /// The highest favourites limit accepted from user.ini (10).
    static int GetFavoriteMaximumNumber();
    /// The highest recents limit accepted from user.ini (15).
    static int GetRecentMaximumNumber();

    /// Puts the path at the front of the favourites, taking it out of the
    /// recents. A full favourites list refuses new paths and evicts nothing.
    void PushFavorite(const QString& path);
    /// Puts the path at the front of the recents, evicting the oldest when the
    /// list is full. A favourite stays where it is and is reported as updated.
    void PushRecent(const QString& path);
    /// Moves a favourite back to the front of the recents; forgets a recent
    /// together with its item data.
    void Remove(const QString& path);
    /// Reports that the file's content changed, through the list that holds it.
    void ContentUpdated(const QString& path);

    /// Stores the value under the role for a path pushed since start-up; any
    /// other path is ignored.
    void SetItemData(const QString& path, int role, const QVariant& value);
    /// The value stored under the role, or the fallback.
    QVariant GetItemData(const QString& path, int role, const QVariant& fallback) const;

    /// Whether the path is in the favourites.
    bool IsFavorite(const QString& path) const;

    /// The favourites limit, stored as given. A limit of 1 or more trims the
    /// list from its oldest end at once, trimmed favourites moving to the
    /// recents; a limit of 0 or less refuses every new favourite.
    void SetFavoritesNumber(int number);
    /// The favourites limit.
    int GetFavoritesNumber() const;
    /// The recents limit, stored as given. A limit of 1 or more trims the list
    /// from its oldest end at once; a limit of 0 or less lets the recents grow
    /// without bound.
    void SetRecentsNumber(int number);
    /// The recents limit.
    int GetRecentsNumber() const;

    /// The number of favourites held.
    int GetFavoriteCount() const;
    /// The number of recents held.
    int GetRecentCount() const;
    /// A copy of the favourites, most recent first.
    QStringList GetFavorites() const;
    /// A copy of the recents, most recent first.
    QStringList GetRecents() const;

Q_SIGNALS:
    /// The path was put at the front of the favourites.
    void FavoriteInserted(const QString& path);
    /// The path was put at the front of the recents.
    void RecentInserted(const QString& path);
    /// The path left the favourites.
    void FavoriteRemoved(const QString& path);
    /// The path left the recents.
    void RecentRemoved(const QString& path);
    /// The favourite's file changed or it was opened again; the lists are unchanged.
    void FavoriteUpdated(const QString& path);
    /// The recent's file changed; the lists are unchanged.
    void RecentUpdated(const QString& path);
    /// Item data of the favourite was set under the role.
    void FavoriteDataChanged(const QString& path, int role);
    /// Item data of the recent was set under the role.
    void RecentDataChanged(const QString& path, int role);

private:
    KVRecentManager();
    ~KVRecentManager() override;

    friend class KVSingleton; // makes and deletes the instance
    class Private;
    std::unique_ptr<Private> d;
};
