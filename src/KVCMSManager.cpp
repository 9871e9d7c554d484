#include "KVCMSManager.h"

#include "private/KVCMSManager_p.h"

KVCMSManager::KVCMSManager()
    : d(new Private(this))
{}

KVCMSManager::~KVCMSManager()
{
    delete d;
}

void KVCMSManager::InitInstance(const QString& folder)
{
    if (Private::m_pInstance)
        return;
    // Stored before loading: the list is filled under the lock, so callers
    // that find the instance early wait for it.
    Private::m_pInstance = new KVCMSManager;
    Private::m_pInstance->d->Load(folder);
}

KVCMSManager* KVCMSManager::GetInstance()
{
    return Private::m_pInstance;
}

void KVCMSManager::ReleaseInstance()
{
    // The pointer is deliberately left as it is: this runs once at shutdown
    // and nothing may reach the manager afterwards.
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
