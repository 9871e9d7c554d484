#include "KVAdjustmentManager.h"

#include "private/KVAdjustmentManager_p.h"
#include "private/KVLog.h"
#include "private/KVSingleton_p.h"

KVAdjustmentManager::KVAdjustmentManager()
    : d(new Private(this))
{}

KVAdjustmentManager::~KVAdjustmentManager() = default;

void KVAdjustmentManager::InitInstance()
{
    KVSingleton::Init(Private::m_pInstance);
}

KVAdjustmentManager* KVAdjustmentManager::GetInstance()
{
    return Private::m_pInstance;
}

void KVAdjustmentManager::ReleaseInstance()
{
    KVSingleton::Release(Private::m_pInstance);
}

bool KVAdjustmentManager::Register(KVAdjustment* adjustment)
{
    Private* d = Private::Instance();
    return d && d->m_registry.Register(
                    adjustment, &KVAdjustment::GetAdjustmentID,
                    [](const QString& id) {
                        KV_LOG(QStringLiteral("id:%1 already registered.%2")
                                   .arg(id, QStringLiteral("Tool is not registered.")));
                    },
                    [&](const QString& id) { Q_EMIT d->q->Registred(id, adjustment); });
}

bool KVAdjustmentManager::Unregister(const QString& id)
{
    Private* d = Private::Instance();
    return d && d->m_registry.Unregister(id, [&](KVAdjustment* adjustment) {
        Q_EMIT d->q->Unregistred(id, adjustment);
    });
}

QStringList KVAdjustmentManager::GetRegistered()
{
    const Private* d = Private::Instance();
    return d ? d->m_registry.Order() : QStringList();
}

KVAdjustment* KVAdjustmentManager::GetAdjustment(const QString& id)
{
    const Private* d = Private::Instance();
    return d ? d->m_registry.Get(id) : nullptr;
}

QString KVAdjustmentManager::GetID(KVAdjustment* adjustment)
{
    const Private* d = Private::Instance();
    return d ? d->m_registry.KeyOf(adjustment) : QString();
}
