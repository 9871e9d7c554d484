#include "KVBrushToolManager.h"

#include "private/KVBrushToolManager_p.h"
#include "private/KVLog.h"
#include "private/KVSingleton_p.h"

KVBrushToolManager::KVBrushToolManager()
    : d(new Private)
{
    d->q = this;
}

KVBrushToolManager::~KVBrushToolManager() = default;

void KVBrushToolManager::InitInstance()
{
    KVSingleton::Init(Private::m_pInstance);
}

KVBrushToolManager* KVBrushToolManager::GetInstance()
{
    return Private::m_pInstance;
}

void KVBrushToolManager::ReleaseInstance()
{
    KVSingleton::Release(Private::m_pInstance);
}

bool KVBrushToolManager::Register(KVBrushPlugin* plugin)
{
    Private* d = Private::Instance();
    return d && d->m_registry.Register(
                    plugin, &KVPlugin::GetUID,
                    [](const QString& id) {
                        KV_LOG(QStringLiteral("id:%1 already registered.%2")
                                   .arg(id, QStringLiteral("Tool will not register.")));
                    },
                    [&](const QString& id) { Q_EMIT d->q->Registred(id, plugin); });
}

bool KVBrushToolManager::Unregister(const QString& id)
{
    Private* d = Private::Instance();
    return d && d->m_registry.Unregister(
                    id, [&](KVBrushPlugin* plugin) { Q_EMIT d->q->Unregistred(id, plugin); });
}

QStringList KVBrushToolManager::GetRegistered()
{
    const Private* d = Private::Instance();
    return d ? d->m_registry.Order() : QStringList();
}

KVBrushPlugin* KVBrushToolManager::GetPlugin(const QString& id)
{
    const Private* d = Private::Instance();
    return d ? d->m_registry.Get(id) : nullptr;
}

QString KVBrushToolManager::GetID(KVBrushPlugin* plugin)
{
    const Private* d = Private::Instance();
    return d ? d->m_registry.KeyOf(plugin) : QString();
}

KVBrushPlugin* KVBrushToolManager::GetMainBrushPlugin()
{
    const Private* d = Private::Instance();
    return d ? d->m_pMainBrushPlugin : nullptr;
}

void KVBrushToolManager::SetMainBrushPlugin(KVBrushPlugin* plugin)
{
    Private* d = Private::Instance();
    if (!d || plugin == d->m_pMainBrushPlugin)
        return;
    if (d->m_pMainBrushPlugin) {
        disconnect(d->m_pMainBrushPlugin, SIGNAL(destroyed()), d->q,
                   SLOT(OnMainBrushPluginDestroyed()));
    }
    d->m_pMainBrushPlugin = plugin;
    if (plugin)
        connect(plugin, SIGNAL(destroyed()), d->q, SLOT(OnMainBrushPluginDestroyed()));
}

void KVBrushToolManager::OnMainBrushPluginDestroyed()
{
    d->m_pMainBrushPlugin = nullptr;
}
