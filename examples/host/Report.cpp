#include "Report.h"

#include "HostSession.h"
#include "ImageFiles.h"

#include <KVApplication.h>
#include <KVImageFileManager.h>

#include <QTextStream>
#include <QThread>

namespace {
QTextStream& Out()
{
    static QTextStream out(stdout);
    return out;
}

// The library's own scan, explained file by file.
void ExplainScan(KVApplication::PluginsLoadTypes types)
{
    for (const KVApplication::PluginScanEntry& entry : KVApplication::ExplainPluginScan(types)) {
        if (entry.isFolder && entry.taken)
            Out() << "scan " << entry.folderKey << " folder " << entry.path << Qt::endl;
        else if (entry.isFolder)
            Out() << "scan " << entry.folderKey << " folder \"" << entry.path
                  << "\": " << entry.reason << Qt::endl;
        else
            Out() << "scan " << entry.path << ": "
                  << (entry.taken ? QString("taken") : "not taken, " + entry.reason) << Qt::endl;
    }
}

void PrintGroups(const char* side, const QStringList& groups,
                 QStringList (*formats)(const QString&))
{
    for (const QString& group : groups) {
        Out() << side << " group " << group << " \"" << KVImageFileManager::GetGroupName(group)
              << "\": " << formats(group).join(' ') << Qt::endl;
    }
}

// Opens through the manager's open callback; decoding runs on a worker
// thread with a pooled reader, as in the window.
struct OpenResults
{
    bool allOpened = true;
};

bool OpenForReport(const QString& path, bool* ok, void* user)
{
    QImage image;
    QString error;
    QThread* worker = QThread::create([&] { image = DecodeWithPool(path, &error); });
    worker->start();
    worker->wait();
    delete worker;
    if (image.isNull()) {
        Out() << "open " << path << ": failed, " << error << Qt::endl;
        static_cast<OpenResults*>(user)->allOpened = false;
        return false;
    }
    Out() << "open " << path << ": " << image.width() << "x" << image.height() << Qt::endl;
    Q_UNUSED(ok);
    return true;
}
} // namespace

int RunReport(KVApplication& app, const QStringList& images)
{
    HostSession session(app);
    ExplainScan(HostSession::PluginTypes());
    QObject::connect(&session, &HostSession::PluginLoaded,
                     [&](const QString& file, const QString& error, qint64 milliseconds) {
                         Out() << "load " << file << ": " << (error.isEmpty() ? "loaded" : "failed")
                               << ", \"" << app.GetErrorInfo(file) << "\", " << milliseconds
                               << " ms" << Qt::endl;
                     });
    session.LoadPlugins();

    PrintGroups("read", KVImageFileManager::GetSupportedReadGroups(),
                &KVImageFileManager::GetGroupReadFormats);
    PrintGroups("write", KVImageFileManager::GetSupportedWriteGroups(),
                &KVImageFileManager::GetGroupWriteFormats);
    Out() << "open filter: " << KVImageFileManager::GetFilterForRead() << Qt::endl;
    Out() << "save filter: " << KVImageFileManager::GetFilterForWrite() << Qt::endl;

    OpenResults results;
    KVImageFileManager::Register(&OpenForReport, &results);
    KVImageFileManager::Open(images);
    KVImageFileManager::Register(KVImageFileManager::OpenCallback(nullptr), nullptr);
    return results.allOpened ? 0 : 1;
}
