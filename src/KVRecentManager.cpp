#include "KVRecentManager.h"

#include "private/KVRecentManager_p.h"
#include "private/KVSingleton_p.h"

KVRecentManager::KVRecentManager()
    : d(new Private(this))
{}

KVRecentManager::~KVRecentManager() = default;

void KVRecentManager::InitInstance()
{
    KVSingleton::Init(Private::m_pInstance);
}

KVRecentManager* KVRecentManager::GetInstance()
{
    return Private::m_pInstance;
}

void KVRecentManager::ReleaseInstance()
{
    KVSingleton::Release(Private::m_pInstance);
}

int KVRecentManager::GetFavoriteMaximumNumber()
{
    return 10;
}

int KVRecentManager::GetRecentMaximumNumber()
{
    return 15;
}

void KVRecentManager::PushFavorite(const QString& path)
{
    d->PushFavorite(path);
}

void KVRecentManager::PushRecent(const QString& path)
{
    d->PushRecent(path);
}

void KVRecentManager::Remove(const QString& path)
{
    d->Remove(path);
}

void KVRecentManager::ContentUpdated(const QString& path)
{
    d->ContentUpdated(path);
}

void KVRecentManager::SetItemData(const QString& path, int role, const QVariant& value)
{
    d->SetItemData(path, role, value);
}

QVariant KVRecentManager::GetItemData(const QString& path, int role, const QVariant& fallback) const
{
    return d->GetItemData(path, role, fallback);
}

bool KVRecentManager::IsFavorite(const QString& path) const
{
    return d->m_favorites.contains(path);
}

void KVRecentManager::SetFavoritesNumber(int number)
{
    d->SetFavoritesNumber(number);
}

int KVRecentManager::GetFavoritesNumber() const
{
    return d->m_favoritesLimit;
}

void KVRecentManager::SetRecentsNumber(int number)
{
    d->SetRecentsNumber(number);
}

int KVRecentManager::GetRecentsNumber() const
{
    return d->m_recentsLimit;
}

int KVRecentManager::GetFavoriteCount() const
{
    return d->m_favorites.size();
}

int KVRecentManager::GetRecentCount() const
{
    return d->m_recents.size();
}

QStringList KVRecentManager::GetFavorites() const
{
    return d->m_favorites;
}

QStringList KVRecentManager::GetRecents() const
{
    return d->m_recents;
}
