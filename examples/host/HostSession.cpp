#include "HostSession.h"

#include <KVAdjustmentManager.h>
#include <KVApplication.h>
#include <KVBrushToolManager.h>
#include <KVCMSManager.h>
#include <KVImageFileManager.h>
#include <KVMenuManager.h>
#include <KVRecentManager.h>
#include <KVToolBarManager.h>
#include <KVToolGroupManager.h>
#include <KVToolWidgetManager.h>

#include <QElapsedTimer>

HostSession::HostSession(KVApplication& app)
    : m_app(app)
{
    const QString stored =
        KVApplication::GetUserValue(KVApplication::LanguageIndex, QString()).toString();
    m_app.LoadLanguage(stored.isEmpty() ? KVApplication::GetDefaultLanguage() : stored);
    m_app.LoadTheme();
    m_app.LoadPatterns(PatternFolder());

    // The registries exist before any plug-in loads.
    KVImageFileManager::InitInstance();
    KVAdjustmentManager::InitInstance();
    KVBrushToolManager::InitInstance();
    KVCMSManager::InitInstance(ProfileFolder());
    KVRecentManager::InitInstance();
    KVMenuManager::InitInstance();
    KVToolGroupManager::InitInstance();
    KVToolBarManager::InitInstance();
    KVToolWidgetManager::InitInstance();
}

HostSession::~HostSession()
{
    KVApplication::FlushData();
    // Pooled readers go back to their plug-ins before the plug-ins go.
    KVImageFileManager::ReleaseReadersPool();
    m_app.UnloadPlugins();
    KVToolWidgetManager::ReleaseInstance();
    KVToolBarManager::ReleaseInstance();
    KVToolGroupManager::ReleaseInstance();
    KVMenuManager::ReleaseInstance();
    KVRecentManager::ReleaseInstance(); // saves the lists into user.ini
    KVCMSManager::ReleaseInstance();
    KVBrushToolManager::ReleaseInstance();
    KVAdjustmentManager::ReleaseInstance();
    KVImageFileManager::ReleaseInstance();
}

QString HostSession::PatternFolder() const
{
    return KVApplication::GetResourcePath() + QStringLiteral("/Patterns");
}

QString HostSession::ProfileFolder() const
{
    return KVApplication::GetResourcePath() + QStringLiteral("/Profiles");
}

KVApplication::PluginsLoadTypes HostSession::PluginTypes()
{
    return KVApplication::AdjustmentsPlugins | KVApplication::FiltersPlugins |
           KVApplication::ImageIOPlugins | KVApplication::BrushesPlugins |
           KVApplication::ToolsPlugins;
}

void HostSession::LoadPlugins()
{
    QElapsedTimer timer;
    const auto finish = [&](const QString& file, const QString& error) {
        Q_EMIT PluginLoaded(file, error, timer.elapsed());
    };
    const QMetaObject::Connection connections[] = {
        connect(&m_app, &KVApplication::PluginLoading, this,
                [&](const QString& file) {
                    timer.start();
                    Q_EMIT PluginLoading(file);
                }),
        connect(&m_app, &KVApplication::PluginLoaded, this,
                [&](const QString& file) { finish(file, QString()); }),
        connect(&m_app, &KVApplication::PluginLoadingError, this, finish),
    };
    m_app.LoadPlugins(PluginTypes());
    for (const QMetaObject::Connection& connection : connections)
        disconnect(connection);
    KVImageFileManager::InitReadersPool();
    Q_EMIT PluginsLoaded();
}
