#include "KVToolBarManager.h"

#include "private/KVSingleton_p.h"
#include "private/KVToolBarManager_p.h"

KVToolBarManager::KVToolBarManager()
    : d(new Private(this))
{}

KVToolBarManager::~KVToolBarManager() = default;

void KVToolBarManager::InitInstance()
{
    KVSingleton::Init(Private::m_pInstance);
}

KVToolBarManager* KVToolBarManager::GetInstance()
{
    return Private::m_pInstance;
}

void KVToolBarManager::ReleaseInstance()
{
    KVSingleton::Release(Private::m_pInstance);
}

bool KVToolBarManager::Add(QWidget* widget, const QString& uid)
{
    Private* d = Private::Instance();
    return d && d->Add(widget, uid);
}

void KVToolBarManager::Remove(QWidget* widget)
{
    if (Private* d = Private::Instance())
        d->Remove(widget);
}

void KVToolBarManager::Activate(QWidget* widget)
{
    if (Private* d = Private::Instance())
        d->Activate(widget);
}

QWidget* KVToolBarManager::GeneralContent()
{
    const Private* d = Private::Instance();
    return d ? d->m_generalContent : nullptr;
}

bool KVToolBarManager::IsGeneralContentEmpty()
{
    const Private* d = Private::Instance();
    return !d || !d->m_currentContent;
}

QString KVToolBarManager::CurrentUID()
{
    const Private* d = Private::Instance();
    return d ? d->CurrentUID() : QString();
}

void KVToolBarManager::OnContentDestroyed(QObject* object)
{
    d->OnContentDestroyed(object);
}
