#include "PluginDoctor.h"

#include <IBrushFactory.h>
#include <KVAdjustment.h>
#include <KVAdjustmentManager.h>
#include <KVBrushPlugin.h>
#include <KVBrushToolManager.h>
#include <KVImageFilePlugin.h>
#include <KVToolPlugin.h>

#include <QAction>
#include <QJsonArray>
#include <QRegularExpression>

#include <cxxabi.h>

#include <cstdlib>

namespace PluginDoctor {

namespace {
QString Quoted(const QString& text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QStringList Enabled(const KVImageFilePlugin* plugin, const QStringList& formats)
{
    QStringList enabled;
    for (const QString& format : formats) {
        if (plugin->IsFormatEnabled(format))
            enabled.append(format);
    }
    return enabled;
}

ImageFormats DescribeImageFormats(const KVImageFilePlugin* plugin)
{
    ImageFormats formats{plugin->GetUID(), Enabled(plugin, plugin->GetFormats()), {}};
    for (const QString& group : plugin->GetGroups()) {
        formats.groups.append(
            {group, plugin->GetGroupName(group), Enabled(plugin, plugin->GetGroupFormats(group))});
    }
    return formats;
}

// The identifiers first registered while the file loaded, then those of
// its objects registered some other way; objects under no identifier
// (refused as duplicates) last, unflagged.
QList<Named> DescribeAdjustments(const KVApplication::PluginRecord& record)
{
    QList<Named> adjustments;
    QStringList ids = record.adjustments;
    for (KVPlugin* plugin : record.plugins) {
        auto* adjustment = qobject_cast<KVAdjustment*>(plugin);
        const QString id = adjustment ? KVAdjustmentManager::GetID(adjustment) : QString();
        if (!id.isNull() && !ids.contains(id))
            ids.append(id);
        else if (adjustment && id.isNull())
            adjustments.append({adjustment->GetAdjustmentID(), adjustment->GetName(), false});
    }
    QList<Named> registered;
    for (const QString& id : ids) {
        KVAdjustment* adjustment = KVAdjustmentManager::GetAdjustment(id);
        registered.append(
            {id, adjustment ? adjustment->GetName() : QString(), adjustment != nullptr});
    }
    return registered + adjustments;
}

QString BrushName(const QString& uid, KVBrushPlugin* brush)
{
    IBrushFactory* factory = KVApplication::GetBrushFactory();
    const QString name = factory ? factory->GetBrushName(uid) : QString();
    return name.isEmpty() && brush ? brush->objectName() : name;
}

QList<Named> DescribeBrushes(const KVApplication::PluginRecord& record)
{
    QStringList uids = record.brushes;
    for (KVPlugin* plugin : record.plugins) {
        auto* brush = qobject_cast<KVBrushPlugin*>(plugin);
        const QString uid = brush ? KVBrushToolManager::GetID(brush) : QString();
        if (!uid.isNull() && !uids.contains(uid))
            uids.append(uid);
    }
    QList<Named> brushes;
    for (const QString& uid : uids) {
        KVBrushPlugin* brush = KVBrushToolManager::GetPlugin(uid);
        brushes.append({uid, BrushName(uid, brush),
                        brush && brush == KVBrushToolManager::GetMainBrushPlugin()});
    }
    return brushes;
}

QString ActionTexts(const KVToolPlugin* tool)
{
    QStringList texts;
    for (const QAction* action : tool->GetActions()) {
        if (action)
            texts.append(action->text().remove(QLatin1Char('&')));
    }
    return texts.join(QStringLiteral(", "));
}

QString Status(KVApplication::PluginRecord::Status status)
{
    switch (status) {
    case KVApplication::PluginRecord::Loaded:
        return QStringLiteral("loaded");
    case KVApplication::PluginRecord::LoadError:
        return QStringLiteral("failed");
    case KVApplication::PluginRecord::MissingFile:
        return QStringLiteral("missing");
    case KVApplication::PluginRecord::NotLoaded:
        break;
    }
    return QStringLiteral("not loaded");
}

File Describe(const KVApplication::PluginRecord& record)
{
    File file;
    file.path = record.fileName;
    file.status = Status(record.status);
    file.error = record.errorInfo;
    file.milliseconds = record.loadingTime;
    file.undefinedSymbol = UndefinedSymbol(record.errorInfo);
    if (!file.undefinedSymbol.isEmpty())
        file.demangledSymbol = Demangle(file.undefinedSymbol);
    file.adjustments = DescribeAdjustments(record);
    file.brushes = DescribeBrushes(record);
    for (KVPlugin* plugin : record.plugins) {
        if (auto* formats = qobject_cast<KVImageFilePlugin*>(plugin))
            file.imageFormats.append(DescribeImageFormats(formats));
        if (auto* tool = qobject_cast<KVToolPlugin*>(plugin))
            file.tools.append({tool->GetUID(), ActionTexts(tool)});
        auto* factory = dynamic_cast<IBrushFactory*>(plugin);
        if (factory && factory == KVApplication::GetBrushFactory()) {
            file.brushFactory = true;
            for (const QString& id : factory->GetBrushIDs())
                file.factoryBrushes.append({id, factory->GetBrushName(id)});
        }
    }
    return file;
}

QJsonArray Strings(const QStringList& strings)
{
    return QJsonArray::fromStringList(strings);
}

QJsonArray NamedArray(const QList<Named>& items, const QString& idKey, const QString& flagKey)
{
    QJsonArray array;
    for (const Named& item : items) {
        QJsonObject object{{idKey, item.id}, {QStringLiteral("name"), item.name}};
        if (!flagKey.isEmpty())
            object.insert(flagKey, item.flag);
        array.append(object);
    }
    return array;
}

QJsonObject FileJson(const File& file)
{
    QJsonObject object{
        {QStringLiteral("path"), file.path},
        {QStringLiteral("status"), file.status},
        {QStringLiteral("error"), file.error},
        {QStringLiteral("milliseconds"), file.milliseconds},
        {QStringLiteral("brushFactory"), file.brushFactory},
    };
    if (!file.undefinedSymbol.isEmpty()) {
        object.insert(QStringLiteral("undefinedSymbol"), file.undefinedSymbol);
        object.insert(QStringLiteral("demangledSymbol"), file.demangledSymbol);
    }
    QJsonArray formats;
    for (const ImageFormats& plugin : file.imageFormats) {
        QJsonArray groups;
        for (const ImageGroup& group : plugin.groups) {
            groups.append(QJsonObject{{QStringLiteral("uid"), group.uid},
                                      {QStringLiteral("name"), group.name},
                                      {QStringLiteral("formats"), Strings(group.formats)}});
        }
        formats.append(QJsonObject{{QStringLiteral("uid"), plugin.uid},
                                   {QStringLiteral("formats"), Strings(plugin.formats)},
                                   {QStringLiteral("groups"), groups}});
    }
    object.insert(QStringLiteral("imageFormats"), formats);
    object.insert(QStringLiteral("adjustments"),
                  NamedArray(file.adjustments, QStringLiteral("id"), QStringLiteral("registered")));
    object.insert(QStringLiteral("brushes"),
                  NamedArray(file.brushes, QStringLiteral("uid"), QStringLiteral("main")));
    QJsonArray tools;
    for (const Named& tool : file.tools) {
        tools.append(
            QJsonObject{{QStringLiteral("uid"), tool.id},
                        {QStringLiteral("actions"),
                         Strings(tool.name.split(QStringLiteral(", "), Qt::SkipEmptyParts))}});
    }
    object.insert(QStringLiteral("tools"), tools);
    if (file.brushFactory) {
        object.insert(QStringLiteral("factoryBrushes"),
                      NamedArray(file.factoryBrushes, QStringLiteral("id"), QString()));
    }
    return object;
}

QString LeftOutReason(HostSession::LeftOut::Reason reason)
{
    return reason == HostSession::LeftOut::Skipped ? QStringLiteral("skipped")
                                                   : QStringLiteral("safe mode");
}
} // namespace

Account Collect(const KVApplication& app, const HostSession& session)
{
    Account account;
    account.scan = KVApplication::ExplainPluginScan(HostSession::PluginTypes());
    for (const KVApplication::PluginRecord& record : app.GetPluginRecords())
        account.files.append(Describe(record));
    account.leftOut = session.LeftOutFiles();
    account.skipped = HostSession::SkippedFiles();
    account.crashedLastStart = session.CrashedFile();
    account.safeMode = session.IsSafeMode();
    return account;
}

QString UndefinedSymbol(const QString& error)
{
    // dlerror()'s "undefined symbol: NAME", perhaps followed by ", version V".
    static const QRegularExpression pattern(QStringLiteral("undefined symbol: ([^\\s,()]+)"));
    return pattern.match(error).captured(1);
}

QString Demangle(const QString& symbol)
{
    int status = 0;
    char* name = abi::__cxa_demangle(symbol.toUtf8().constData(), nullptr, nullptr, &status);
    const QString readable = status == 0 && name ? QString::fromUtf8(name) : symbol;
    std::free(name);
    return readable;
}

QList<Contribution> Contributions(const File& file)
{
    QList<Contribution> lines;
    if (!file.undefinedSymbol.isEmpty()) {
        lines.append({Contribution::UndefinedSymbol,
                      file.undefinedSymbol + QStringLiteral(": ") + file.demangledSymbol});
    }
    for (const ImageFormats& plugin : file.imageFormats) {
        lines.append({Contribution::ImageFormats,
                      plugin.uid + QStringLiteral(": ") + plugin.formats.join(QLatin1Char(' '))});
        for (const ImageGroup& group : plugin.groups) {
            lines.append({Contribution::ImageGroup, group.uid + QLatin1Char(' ') +
                                                        Quoted(group.name) + QStringLiteral(": ") +
                                                        group.formats.join(QLatin1Char(' '))});
        }
    }
    for (const Named& adjustment : file.adjustments) {
        lines.append({Contribution::Adjustment,
                      adjustment.id + QLatin1Char(' ') + Quoted(adjustment.name) +
                          (adjustment.flag ? QString() : QStringLiteral(", not registered"))});
    }
    for (const Named& brush : file.brushes) {
        lines.append(
            {Contribution::Brush, brush.id + QLatin1Char(' ') + Quoted(brush.name) +
                                      (brush.flag ? QStringLiteral(", main brush") : QString())});
    }
    if (file.brushFactory) {
        QStringList brushes;
        for (const Named& brush : file.factoryBrushes)
            brushes.append(Quoted(brush.name));
        lines.append({Contribution::BrushFactory, QStringLiteral("of %1 brushes: %2")
                                                      .arg(file.factoryBrushes.size())
                                                      .arg(brushes.join(QStringLiteral(", ")))});
    }
    for (const Named& tool : file.tools)
        lines.append({Contribution::Tool, tool.id + QLatin1Char(' ') + Quoted(tool.name)});
    return lines;
}

QString LeftOutText(const HostSession::LeftOut& leftOut)
{
    if (leftOut.reason == HostSession::LeftOut::Skipped)
        return QStringLiteral("skipped since it crashed the editor while loading "
                              "(--retry-plugins loads it again)");
    return QStringLiteral("safe mode loads the plug-ins that ship with the host only");
}

QString CrashLine(const QString& file, bool skipped)
{
    return QStringLiteral("crashed %1: the last start ended while it loaded; %2")
        .arg(file, skipped ? QStringLiteral("starting without it (--retry-plugins loads it again)")
                           : QStringLiteral("trying it again"));
}

QStringList ScanLines(const std::vector<KVApplication::PluginScanEntry>& scan)
{
    QStringList lines;
    for (const KVApplication::PluginScanEntry& entry : scan) {
        if (entry.isFolder && entry.taken)
            lines << QStringLiteral("scan %1 folder %2").arg(entry.folderKey, entry.path);
        else if (entry.isFolder)
            lines << QStringLiteral("scan %1 folder \"%2\": %3")
                         .arg(entry.folderKey, entry.path, entry.reason);
        else
            lines << QStringLiteral("scan %1: %2")
                         .arg(entry.path, entry.taken
                                              ? QStringLiteral("taken")
                                              : QStringLiteral("not taken, ") + entry.reason);
    }
    return lines;
}

QStringList LoadLines(const Account& account)
{
    static const char* const labels[] = {"image formats", "image group", "adjustment",      "brush",
                                         "brush factory", "tool",        "undefined symbol"};
    QStringList lines;
    for (const HostSession::LeftOut& leftOut : account.leftOut)
        lines << QStringLiteral("left out %1: %2").arg(leftOut.path, LeftOutText(leftOut));
    for (const File& file : account.files) {
        lines << QStringLiteral("load %1: %2, \"%3\", %4 ms")
                     .arg(file.path, file.status == QLatin1String("loaded")
                                         ? QStringLiteral("loaded")
                                         : QStringLiteral("failed"))
                     .arg(file.error)
                     .arg(file.milliseconds);
        for (const Contribution& contribution : Contributions(file))
            lines << QStringLiteral("  %1 %2").arg(QLatin1String(labels[contribution.kind]),
                                                   contribution.text);
    }
    for (const QString& skipped : account.skipped)
        lines << QStringLiteral("skipped %1 (--retry-plugins takes it back)").arg(skipped);
    return lines;
}

QJsonObject ToJson(const Account& account)
{
    QJsonArray scan;
    for (const KVApplication::PluginScanEntry& entry : account.scan) {
        scan.append(QJsonObject{{QStringLiteral("path"), entry.path},
                                {QStringLiteral("folder"), entry.folderKey},
                                {QStringLiteral("isFolder"), entry.isFolder},
                                {QStringLiteral("taken"), entry.taken},
                                {QStringLiteral("reason"), entry.reason}});
    }
    QJsonArray leftOut;
    for (const HostSession::LeftOut& file : account.leftOut) {
        leftOut.append(QJsonObject{{QStringLiteral("path"), file.path},
                                   {QStringLiteral("reason"), LeftOutReason(file.reason)}});
    }
    QJsonArray files;
    for (const File& file : account.files)
        files.append(FileJson(file));
    return QJsonObject{
        {QStringLiteral("safeMode"), account.safeMode},
        {QStringLiteral("crashedLastStart"), account.crashedLastStart},
        {QStringLiteral("scan"), scan},
        {QStringLiteral("leftOut"), leftOut},
        {QStringLiteral("files"), files},
        {QStringLiteral("skipped"), Strings(account.skipped)},
    };
}

} // namespace PluginDoctor
