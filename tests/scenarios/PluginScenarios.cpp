#include "Scenario.h"

#include <KVApplication.h>
#include <KVImageFileManager.h>

#include <QFileInfo>

namespace {
// Reports the loading signals by file name, in the order they come.
void ReportLoading(KVApplication& app)
{
    const auto name = [](const QString& path) { return QFileInfo(path).fileName(); };
    QObject::connect(&app, &KVApplication::PluginLoading,
                     [=](const QString& file) { Report("event", "loading:" + name(file)); });
    QObject::connect(&app, &KVApplication::PluginLoaded,
                     [=](const QString& file) { Report("event", "loaded:" + name(file)); });
    QObject::connect(
        &app, &KVApplication::PluginLoadingError,
        [=](const QString& file, const QString&) { Report("event", "error:" + name(file)); });
    QObject::connect(&app, &KVApplication::PluginsLoadingFinished,
                     [] { Report("event", "finished"); });
}
} // namespace

// Loads plug-ins as the bundle's plugins.ini says: with no argument all of
// them, otherwise the families given as a number.
KV_SCENARIO(loadPlugins)
{
    KVImageFileManager::InitInstance();
    const auto types = KVApplication::PluginsLoadTypes(arguments.value(0).toInt());
    for (const KVApplication::PluginScanEntry& entry :
         arguments.isEmpty() ? app.ExplainPluginScan() : app.ExplainPluginScan(types)) {
        const QString name = entry.isFolder ? entry.folderKey : QFileInfo(entry.path).fileName();
        Report("scan", name + ": " + (entry.taken ? QString("taken") : entry.reason));
    }
    ReportLoading(app);
    if (arguments.isEmpty())
        app.LoadPlugins();
    else
        app.LoadPlugins(types);
    app.UnloadPlugins();
    KVImageFileManager::ReleaseInstance();
    return 0;
}

// The expected paths of the families given as numbers.
KV_SCENARIO(pluginFileName)
{
    for (const QString& type : arguments) {
        const QStringList paths = app.PluginFileName(KVApplication::PluginsLoadType(type.toInt()));
        Report("type" + type, QString::number(paths.size()));
        Report("path" + type, paths);
    }
    return 0;
}
