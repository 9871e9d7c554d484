#pragma once

#include "KVApplication.h"

#include <QString>
#include <QStringList>

#include <vector>

class IBrushFactory;
class IPluginContainer;
class QPluginLoader;

// Everything the application object does with plug-in files: the family
// table and the folder scan, loading with its records, unloading, and the
// notifications the containers receive. KVApplication forwards to it.
class KVPluginLoader
{
public:
    // One plug-in load attempt.
    struct PluginStatus
    {
        enum Status
        {
            NotLoaded = 1,
            LoadError = 2,
            Loaded = 3,
            MissingFile = 7,
        };

        qint32 status = NotLoaded;
        QString fileName;                // as asked for
        QString errorInfo;               // "Plugin OK." or why it failed
        qint32 loadingTime = 0;          // milliseconds
        QPluginLoader* loader = nullptr; // owned; set only while loaded
        QStringList adjustments;         // registered while the file loaded
        QStringList brushes;             // the same for brush plug-ins
    };

    // brushFactory: where the brush factory of loaded plug-ins is kept.
    KVPluginLoader(KVApplication* application, IBrushFactory*& brushFactory);
    ~KVPluginLoader();
    KVPluginLoader(const KVPluginLoader&) = delete;
    KVPluginLoader& operator=(const KVPluginLoader&) = delete;

    // The folders of plugins.ini, file by file, as LoadPlugins() (every
    // file of the general folder) or LoadPlugins(types) takes them.
    static std::vector<KVApplication::PluginScanEntry> Scan(KVApplication::PluginsLoadTypes types,
                                                            bool everyGeneralFile);
    static QStringList ExpectedFiles(KVApplication::PluginsLoadType type);

    // Scans and loads; false, with nothing loaded, when the general folder
    // is missing.
    bool LoadScanned(KVApplication::PluginsLoadTypes types, bool everyGeneralFile);
    void Load(const QStringList& files);
    void UnloadAll();
    void Unload(const QStringList& files);
    void UIReady();

    std::vector<QString> ErrorFiles() const;
    QString ErrorInfo(const QString& file) const;
    const std::vector<PluginStatus>& Records() const { return m_records; }
    // The records as KVApplication::GetPluginRecords() answers them.
    std::vector<KVApplication::PluginRecord> PublicRecords() const;

private:
    PluginStatus LoadOne(const QString& path);
    void RegisterPlugins(IPluginContainer* container);
    void UnregisterPlugins(IPluginContainer* container);
    void ReleaseAndUnload(PluginStatus& record, bool unregister);

    KVApplication* const m_application;
    IBrushFactory*& m_brushFactory;
    std::vector<PluginStatus> m_records;
};
