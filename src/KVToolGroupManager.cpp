#include "KVToolGroupManager.h"

#include "KVActivateAction.h"
#include "private/KVSingleton_p.h"
#include "private/KVToolGroupManager_p.h"

KVToolGroupManager::KVToolGroupManager()
    : d(new Private(this))
{}

KVToolGroupManager::~KVToolGroupManager() = default;

void KVToolGroupManager::InitInstance()
{
    KVSingleton::Init(Private::m_pInstance);
}

KVToolGroupManager* KVToolGroupManager::GetInstance()
{
    return Private::m_pInstance;
}

void KVToolGroupManager::ReleaseInstance()
{
    KVSingleton::Release(Private::m_pInstance);
}

void KVToolGroupManager::Add(KVActivateAction* action)
{
    if (Private* d = Private::Instance())
        d->Add(action);
}

void KVToolGroupManager::Remove(KVActivateAction* action)
{
    if (Private* d = Private::Instance())
        d->Remove(action);
}

bool KVToolGroupManager::Activate(KVActivateAction* action)
{
    Private* d = Private::Instance();
    return d && d->Activate(action);
}

KVActivateAction* KVToolGroupManager::GetExplicitAction()
{
    const Private* d = Private::Instance();
    return d ? qobject_cast<KVActivateAction*>(d->m_explicit) : nullptr;
}

KVActivateAction* KVToolGroupManager::GetImplicitAction()
{
    const Private* d = Private::Instance();
    return d ? qobject_cast<KVActivateAction*>(d->m_implicit) : nullptr;
}

void KVToolGroupManager::OnToggled(bool checked)
{
    if (QObject* member = sender())
        d->OnToggled(member, checked);
}

void KVToolGroupManager::OnImplicitToggled(bool checked)
{
    if (QObject* member = sender())
        d->OnImplicitToggled(member, checked);
}

void KVToolGroupManager::OnDestroyed(QObject* object)
{
    d->Drop(object);
}
