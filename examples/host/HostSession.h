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
//
// A plug-in that crashes the editor while it loads must not lock the user
// out: while plug-ins load, the file being loaded is written into
// "loading-plugin.txt" beside user.ini, and removed once loading ends. A file
// still named there at the next start crashed the last one (CrashedFile());
// the host may skip it. Skipped files are remembered in user.ini until the
// user takes them back.
class HostSession : public QObject
{
    Q_OBJECT
public:
    // A file of the scan that this start does not load, and why.
    struct LeftOut
    {
        enum Reason
        {
            Skipped,  // the user chose to start without it
            SafeMode, // it does not ship with the host
        };
        QString path;
        Reason reason;
    };

    explicit HostSession(KVApplication& app);
    ~HostSession() override;

    // Loads the files that the library's scan of the bundle's plug-in
    // folders takes for PluginTypes(), less the skipped files (and in safe
    // mode, less every file that does not ship with the host), reporting
    // each file through the signals below; then makes the reader pool.
    void LoadPlugins(bool safeMode = false);

    // The plug-in families the host loads: all of them.
    static KVApplication::PluginsLoadTypes PluginTypes();

    // The file that crashed the last start while it loaded, as found when
    // this session began; empty when the last start ended its loading.
    QString CrashedFile() const { return m_crashedFile; }
    // Files left out of loading until taken back, in the order skipped.
    static QStringList SkippedFiles();
    static void Skip(const QString& file);
    static void TakeBack(const QString& file);
    static void TakeBackAll();
    // The files of the scan that the last LoadPlugins() left out.
    const QList<LeftOut>& LeftOutFiles() const { return m_leftOut; }
    bool IsSafeMode() const { return m_safeMode; }

    // The folders the bundle keeps its patterns and colour profiles in.
    QString PatternFolder() const;
    QString ProfileFolder() const;

Q_SIGNALS:
    void PluginLoading(const QString& file);
    // error is empty for a file that loaded; milliseconds from PluginLoading.
    void PluginLoaded(const QString& file, const QString& error, qint64 milliseconds);
    void PluginsLoaded();

private:
    static QString LoadingFile();
    static bool ShipsWithHost(const KVApplication::PluginScanEntry& entry);

    KVApplication& m_app;
    QString m_crashedFile;
    QList<LeftOut> m_leftOut;
    bool m_safeMode = false;
};
