#include "Report.h"

#include "HostSession.h"
#include "ImageFiles.h"
#include "Options.h"
#include "PluginDoctor.h"

#include <KVApplication.h>
#include <KVImageFileManager.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>
#include <QThread>

namespace {
QTextStream& Out()
{
    static QTextStream out(stdout);
    return out;
}

void Print(const QStringList& lines)
{
    for (const QString& line : lines)
        Out() << line << Qt::endl;
}

QJsonArray Groups(const QStringList& groups, QStringList (*formats)(const QString&))
{
    QJsonArray array;
    for (const QString& group : groups) {
        array.append(QJsonObject{{"uid", group},
                                 {"name", KVImageFileManager::GetGroupName(group)},
                                 {"formats", QJsonArray::fromStringList(formats(group))}});
    }
    return array;
}

QStringList GroupLines(const char* side, const QJsonArray& groups)
{
    QStringList lines;
    for (const QJsonValue& group : groups) {
        QStringList formats;
        for (const QJsonValue& format : group["formats"].toArray())
            formats << format.toString();
        lines << QString("%1 group %2 \"%3\": %4")
                     .arg(side, group["uid"].toString(), group["name"].toString(),
                          formats.join(' '));
    }
    return lines;
}

// Opens through the manager's open callback; decoding runs on a worker
// thread with a pooled reader, as in the window.
struct OpenResults
{
    QJsonArray images;
    bool allOpened = true;
};

bool OpenForReport(const QString& path, bool* ok, void* user)
{
    Q_UNUSED(ok);
    QImage image;
    QString error;
    QThread* worker = QThread::create([&] { image = DecodeWithPool(path, &error); });
    worker->start();
    worker->wait();
    delete worker;
    auto* results = static_cast<OpenResults*>(user);
    if (image.isNull()) {
        results->images.append(QJsonObject{{"path", path}, {"error", error}});
        results->allOpened = false;
        return false;
    }
    results->images.append(
        QJsonObject{{"path", path}, {"width", image.width()}, {"height", image.height()}});
    return true;
}
} // namespace

int RunReport(KVApplication& app, HostSession& session, const HostOptions& options)
{
    // Printed before loading, so that a plug-in that crashes the report
    // leaves the scan behind.
    if (!options.json)
        Print(
            PluginDoctor::ScanLines(KVApplication::ExplainPluginScan(HostSession::PluginTypes())));
    session.LoadPlugins(options.safeMode);
    const PluginDoctor::Account account = PluginDoctor::Collect(app, session);

    const QJsonArray readGroups = Groups(KVImageFileManager::GetSupportedReadGroups(),
                                         &KVImageFileManager::GetGroupReadFormats);
    const QJsonArray writeGroups = Groups(KVImageFileManager::GetSupportedWriteGroups(),
                                          &KVImageFileManager::GetGroupWriteFormats);
    OpenResults results;
    KVImageFileManager::Register(&OpenForReport, &results);
    KVImageFileManager::Open(options.images);
    KVImageFileManager::Register(KVImageFileManager::OpenCallback(nullptr), nullptr);

    if (options.json) {
        QJsonObject document = PluginDoctor::ToJson(account);
        document.insert("readGroups", readGroups);
        document.insert("writeGroups", writeGroups);
        document.insert("openFilter", KVImageFileManager::GetFilterForRead());
        document.insert("saveFilter", KVImageFileManager::GetFilterForWrite());
        document.insert("images", results.images);
        Out() << QJsonDocument(document).toJson(QJsonDocument::Indented) << Qt::flush;
    } else {
        Print(PluginDoctor::LoadLines(account));
        Print(GroupLines("read", readGroups));
        Print(GroupLines("write", writeGroups));
        Out() << "open filter: " << KVImageFileManager::GetFilterForRead() << Qt::endl;
        Out() << "save filter: " << KVImageFileManager::GetFilterForWrite() << Qt::endl;
        for (const QJsonValue& image : results.images) {
            const QString path = image["path"].toString();
            if (image["error"].isString())
                Out() << "open " << path << ": failed, " << image["error"].toString() << Qt::endl;
            else
                Out() << "open " << path << ": " << image["width"].toInt() << "x"
                      << image["height"].toInt() << Qt::endl;
        }
    }
    return results.allOpened ? 0 : 1;
}
