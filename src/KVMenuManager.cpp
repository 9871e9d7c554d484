#include "KVMenuManager.h"

#include "private/KVMenuManager_p.h"
#include "private/KVSingleton_p.h"

KVMenuManager::KVMenuManager()
    : d(new Private(this))
{}

KVMenuManager::~KVMenuManager() = default;

void KVMenuManager::InitInstance()
{
    KVSingleton::Init(Private::m_pInstance);
}

KVMenuManager* KVMenuManager::GetInstance()
{
    return Private::m_pInstance;
}

void KVMenuManager::ReleaseInstance()
{
    KVSingleton::Release(Private::m_pInstance);
}

QMenu* KVMenuManager::CreateMenu(MenuRole role, const QString& title)
{
    Private* d = Private::Instance();
    return d ? d->InsertMenu(role, title) : nullptr;
}

void KVMenuManager::CreateMenu(MenuRole role, QMenu* menu)
{
    if (Private* d = Private::Instance())
        d->InsertMenu(role, menu);
}

QAction* KVMenuManager::CreateAction(MenuRole role, int position)
{
    Private* d = Private::Instance();
    return d ? d->InsertAction(role, position) : nullptr;
}

void KVMenuManager::CreateAction(MenuRole role, int position, QAction* action)
{
    if (Private* d = Private::Instance())
        d->InsertAction(role, position, action);
}

QMenu* KVMenuManager::CreateMenu(MenuRole role, int position)
{
    Private* d = Private::Instance();
    return d ? d->InsertMenu(role, position) : nullptr;
}

void KVMenuManager::CreateMenu(MenuRole role, int position, QMenu* menu)
{
    if (Private* d = Private::Instance())
        d->InsertMenu(role, position, menu);
}

void KVMenuManager::Take(MenuRole role, int position)
{
    if (Private* d = Private::Instance())
        d->Remove(role, position);
}

void KVMenuManager::Setup(QMenuBar* bar)
{
    if (const Private* d = Private::Instance())
        d->Setup(bar);
}

void KVMenuManager::OnObjectDestroyed(QObject* object)
{
    d->Forget(object);
}
