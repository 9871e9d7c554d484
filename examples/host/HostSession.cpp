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
#include <QFile>
#include <QFileInfo>

namespace {
// The host's own group of user.ini.
const QString kSkippedKey = QStringLiteral("Host/SkippedPlugins");

// The sample plug-ins of the bundle, as "<folder key>/<file name>"; the
// bundle's CMakeLists.txt names them.
const QStringList& ShippedPlugins()
{
    static const QStringList shipped =
        QStringLiteral(PELKARO_SHIPPED_PLUGINS).split(QLatin1Char(','), Qt::SkipEmptyParts);
    return shipped;
}
} // namespace

HostSession::HostSession(KVApplication& app)
    : m_app(app)
{
    QFile loading(LoadingFile());
    if (loading.open(QIODevice::ReadOnly))
        m_crashedFile = QString::fromUtf8(loading.readAll()).trimmed();

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

QString HostSession::LoadingFile()
{
    return KVApplication::GetUserDataFolder() + QStringLiteral("/loading-plugin.txt");
}

QStringList HostSession::SkippedFiles()
{
    return KVApplication::GetUserValue(kSkippedKey).toStringList();
}

void HostSession::Skip(const QString& file)
{
    QStringList skipped = SkippedFiles();
    if (!skipped.contains(file))
        KVApplication::SetUserValue(kSkippedKey, skipped << file);
}

void HostSession::TakeBack(const QString& file)
{
    QStringList skipped = SkippedFiles();
    if (skipped.removeAll(file) > 0)
        KVApplication::SetUserValue(kSkippedKey, skipped);
}

void HostSession::TakeBackAll()
{
    if (!SkippedFiles().isEmpty())
        KVApplication::SetUserValue(kSkippedKey, QStringList());
}

bool HostSession::ShipsWithHost(const KVApplication::PluginScanEntry& entry)
{
    return ShippedPlugins().contains(entry.folderKey + QLatin1Char('/') +
                                     QFileInfo(entry.path).fileName());
}

void HostSession::LoadPlugins(bool safeMode)
{
    m_safeMode = safeMode;
    m_leftOut.clear();
    // The library's scan rules decide what is a plug-in file; the host only
    // takes files away.
    const QStringList skipped = SkippedFiles();
    QStringList files;
    for (const KVApplication::PluginScanEntry& entry :
         KVApplication::ExplainPluginScan(PluginTypes())) {
        if (entry.isFolder || !entry.taken)
            continue;
        if (skipped.contains(entry.path))
            m_leftOut.append({entry.path, LeftOut::Skipped});
        else if (safeMode && !ShipsWithHost(entry))
            m_leftOut.append({entry.path, LeftOut::SafeMode});
        else
            files.append(entry.path);
    }

    QElapsedTimer timer;
    const auto finish = [&](const QString& file, const QString& error) {
        Q_EMIT PluginLoaded(file, error, timer.elapsed());
    };
    QFile loading(LoadingFile());
    const QMetaObject::Connection connections[] = {
        connect(&m_app, &KVApplication::PluginLoading, this,
                [&](const QString& file) {
                    // Written before the file loads: if it crashes the
                    // editor, the next start finds its name here.
                    if (loading.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
                        loading.write(file.toUtf8());
                        loading.close();
                    }
                    timer.start();
                    Q_EMIT PluginLoading(file);
                }),
        connect(&m_app, &KVApplication::PluginLoaded, this,
                [&](const QString& file) { finish(file, QString()); }),
        connect(&m_app, &KVApplication::PluginLoadingError, this, finish),
    };
    m_app.LoadPlugins(files);
    for (const QMetaObject::Connection& connection : connections)
        disconnect(connection);
    loading.remove();
    KVImageFileManager::InitReadersPool();
    Q_EMIT PluginsLoaded();
}
