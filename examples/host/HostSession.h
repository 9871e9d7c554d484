#pragma once

#include <KVApplication.h>

#include <QObject>
#include <QStringList>

// The editor's start and stop around its window (or its report): what the
// library expects a host to do, in the order it expects it.
//
// Start: the stored language (or the default), the theme, the patterns, the
// managers, then the plug-ins. Stop (the destructor): FlushData(), the reader
// pool, UnloadPlugins(), the managers (the recent list while the application
// object still exists).
class HostSession : public QObject
{
    Q_OBJECT
public:
    explicit HostSession(KVApplication& app);
    ~HostSession() override;

    // Loads every plug-in family of the bundle's plugins.ini, reporting each
    // file through the signals below; then makes the reader pool.
    void LoadPlugins();

    // The plug-in families the host loads: all of them.
    static KVApplication::PluginsLoadTypes PluginTypes();

    // The folders the bundle keeps its patterns and colour profiles in.
    QString PatternFolder() const;
    QString ProfileFolder() const;

Q_SIGNALS:
    void PluginLoading(const QString& file);
    // error is empty for a file that loaded; milliseconds from PluginLoading.
    void PluginLoaded(const QString& file, const QString& error, qint64 milliseconds);
    void PluginsLoaded();

private:
    KVApplication& m_app;
};
