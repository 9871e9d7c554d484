#include "KVCMSManager.h"

#include "private/KVCMSManager_p.h"
#include "private/KVSingleton_p.h"

KVCMSManager::KVCMSManager()
    : d(new Private(this))
{}

KVCMSManager::~KVCMSManager() = default;

void KVCMSManager::InitInstance(const QString& folder)
{
    // Stored before loading: the list is filled under the lock, so callers
    // that find the instance early wait for it.
    if (KVSingleton::Init(Private::m_pInstance))
        Private::m_pInstance->d->Load(folder);
}

KVCMSManager* KVCMSManager::GetInstance()
{
    return Private::m_pInstance;
}

// Unlike the other managers, which clear the pointer before deleting
// (KVSingleton::Release), this one deliberately leaves it as it is: the
// manager is released once, at shutdown, and neither GetInstance() nor
// InitInstance() may be called afterwards, nor from a slot on its destroyed().
void KVCMSManager::ReleaseInstance()
{
    delete Private::m_pInstance;
}

int KVCMSManager::GetRGBProfileCount() const
{
    std::lock_guard<std::mutex> lock(d->m_lock);
    return d->m_rgbProfiles.size();
}

KVCMSProfile KVCMSManager::GetRGBProfile(int index) const
{
    if (index < 0 || index >= GetRGBProfileCount())
        return KVCMSProfile();
    // The list never changes after loading, so the index stays valid.
    std::lock_guard<std::mutex> lock(d->m_lock);
    return d->m_rgbProfiles.at(index);
}

int KVCMSManager::GetWorkingRGBIndex() const
{
    std::lock_guard<std::mutex> lock(d->m_lock);
    return d->m_workingRGBIndex;
}

void KVCMSManager::SetWorkingRGBIndex(int index)
{
    d->SetWorkingRGBIndex(index);
}
