#include "Report.h"

#include "HostSession.h"
#include "ImageFiles.h"

#include <KVApplication.h>
#include <KVImageFileManager.h>

#include <QDir>
#include <QSettings>
#include <QTextStream>
#include <QThread>

namespace {
const QStringList kFamilies = {"libadjustments", "libfilter", "libimageio", "libbasictools",
                               "libgeneraltools"};

QTextStream& Out()
{
    static QTextStream out(stdout);
    return out;
}

// Why the scan leaves a file of a plug-in folder out, or an empty string
// when it takes it. The brush folder is taken whole.
QString WhyNotTaken(const QFileInfo& file, bool brushFolder)
{
    if (file.suffix().compare("dylib", Qt::CaseInsensitive) != 0)
        return QString("the suffix \"%1\" is not \"dylib\"").arg(file.suffix());
    if (brushFolder || kFamilies.contains(file.baseName()))
        return QString();
    for (const QString& family : kFamilies) {
        if (family.compare(file.baseName(), Qt::CaseInsensitive) == 0)
            return QString("the base name \"%1\" differs from \"%2\" in case")
                .arg(file.baseName(), family);
    }
    return QString("no plug-in family is named \"%1\"").arg(file.baseName());
}

void ExplainFolder(const QString& key, const QString& value, bool brushFolder)
{
    QDir folder(QCoreApplication::applicationDirPath());
    if (!folder.cd(value)) {
        Out() << "scan " << key << " folder \"" << value << "\": missing"
              << (brushFolder ? ", no brush plug-in is loaded" : ", no plug-in at all is loaded")
              << Qt::endl;
        return;
    }
    Out() << "scan " << key << " folder " << folder.absolutePath() << Qt::endl;
    for (const QFileInfo& file : folder.entryInfoList(QDir::Files, QDir::Name)) {
        const QString why = WhyNotTaken(file, brushFolder);
        Out() << "scan " << file.absoluteFilePath() << ": "
              << (why.isEmpty() ? QString("taken") : "not taken, " + why) << Qt::endl;
    }
}

void ExplainScan()
{
    const QSettings ini(KVApplication::GetResourcePath() + "/plugins.ini", QSettings::IniFormat);
    ExplainFolder("brush", ini.value("brush").toString(), true);
    ExplainFolder("general", ini.value("general").toString(), false);
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
    ExplainScan();
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
