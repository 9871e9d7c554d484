#include "KVToolGroupManager.h"

#include "KVActivateAction.h"
#include "private/KVToolGroupManager_p.h"

KVToolGroupManager::KVToolGroupManager()
    : d(new Private(this))
{}

KVToolGroupManager::~KVToolGroupManager()
{
    delete d;
}

void KVToolGroupManager::InitInstance()
{
    if (!Private::m_pInstance)
        Private::m_pInstance = new KVToolGroupManager;
}

KVToolGroupManager* KVToolGroupManager::GetInstance()
{
    return Private::m_pInstance;
}

// Cleared before the deletion so that code run by signals meanwhile finds no
// half-destroyed instance.
void KVToolGroupManager::ReleaseInstance()
{
    KVToolGroupManager* instance = Private::m_pInstance;
    Private::m_pInstance = nullptr;
    delete instance;
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
