#include "KVToolWidgetManager.h"

#include "private/KVSingleton_p.h"
#include "private/KVToolWidgetManager_p.h"

KVToolWidgetManager::KVToolWidgetManager()
    : d(new Private(this))
{}

KVToolWidgetManager::~KVToolWidgetManager() = default;

void KVToolWidgetManager::InitInstance()
{
    KVSingleton::Init(Private::m_pInstance);
}

KVToolWidgetManager* KVToolWidgetManager::GetInstance()
{
    return Private::m_pInstance;
}

void KVToolWidgetManager::ReleaseInstance()
{
    KVSingleton::Release(Private::m_pInstance);
}

bool KVToolWidgetManager::Add(QWidget* widget, const QString& uid)
{
    Private* d = Private::Instance();
    return d && d->Add(widget, uid);
}

void KVToolWidgetManager::Remove(QWidget* widget)
{
    if (Private* d = Private::Instance())
        d->Remove(widget);
}

void KVToolWidgetManager::Activate(QWidget* widget)
{
    if (Private* d = Private::Instance())
        d->Activate(widget);
}

QWidget* KVToolWidgetManager::GeneralContent()
{
    const Private* d = Private::Instance();
    return d ? d->m_generalContent : nullptr;
}

bool KVToolWidgetManager::IsGeneralContentEmpty()
{
    const Private* d = Private::Instance();
    return !d || !d->m_currentContent;
}

QString KVToolWidgetManager::CurrentUID()
{
    const Private* d = Private::Instance();
    return d ? d->CurrentUID() : QString();
}

void KVToolWidgetManager::OnContentDestroyed(QObject* object)
{
    d->OnContentDestroyed(object);
}
