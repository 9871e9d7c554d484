#include "KVPluginLoader_p.h"

#include "KVAdjustmentManager.h"
#include "KVBrushToolManager.h"
#include "KVImageFileManager.h"
#include "KVLog.h"
#include "KVSettingsFile_p.h"
#include "kvcore_version.h"

#include <IBrushFactory.h>
#include <IPluginContainer.h>
#include <KVImageFilePlugin.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QPluginLoader>
#include <QSettings>

#include <algorithm>

// Log readers know the loader's lines by the files that held the loader
// before it had a unit of its own: the folder messages by the application
// object's, the per-file ones by its private part's.
#define KV_LOG_FOLDER(message) KV_LOG_FROM("src/KVApplication", message)
#define KV_LOG_FILE_EVENT(message) KV_LOG_FROM("src/private/KVApplication_p", message)

namespace {
// Plug-in file names: versioned for the expected paths, bare for the scan.
// The version part is the library's major version: a plug-in keeps loading
// into every release of the same major version.
QString Versioned(const QString& base)
{
    return base + QLatin1Char('.') + QString::number(PELKARO_VERSION_MAJOR);
}

const QString kBasicToolsBase = QStringLiteral("libbasictools");
const QString kBasicTools = Versioned(kBasicToolsBase);
const QString kGeneralToolsBase = QStringLiteral("libgeneraltools");
const QString kGeneralTools = Versioned(kGeneralToolsBase);
const QString kAdjustmentsBase = QStringLiteral("libadjustments");
const QString kAdjustments = Versioned(kAdjustmentsBase);
const QString kFiltersBase = QStringLiteral("libfilter");
const QString kFilters = Versioned(kFiltersBase);
const QString kImageIOBase = QStringLiteral("libimageio");
const QString kImageIO = Versioned(kImageIOBase);
const QString kBrushesBase = QStringLiteral("libbrushcontainer"); // the brush folder is taken whole
const QString kBrushes = Versioned(kBrushesBase);
const QString kPlugInSuffix = QStringLiteral("dylib");

const QString kPluginOK = QStringLiteral("Plugin OK.");
const QString kBrushFactoryUID = QStringLiteral("{00000000-0000-0000-0000-000000000002}");

// The general folder's families: the flag that selects each, its base
// names, and its versioned file names in the same order.
struct Family
{
    KVApplication::PluginsLoadType type;
    QStringList baseNames;
    QStringList fileNames;
};

const std::vector<Family>& Families()
{
    static const std::vector<Family> families = {
        {KVApplication::AdjustmentsPlugins, {kAdjustmentsBase}, {kAdjustments}},
        {KVApplication::FiltersPlugins, {kFiltersBase}, {kFilters}},
        {KVApplication::ImageIOPlugins, {kImageIOBase}, {kImageIO}},
        {KVApplication::ToolsPlugins,
         {kBasicToolsBase, kGeneralToolsBase},
         {kBasicTools, kGeneralTools}},
    };
    return families;
}

struct PluginFolders
{
    QString brush;
    QString general;
};

PluginFolders ReadPluginFolders()
{
    // The bundle's own file: read, never repaired in place.
    KVSettingsFile file(KVApplication::GetResourcePath() + QStringLiteral("/plugins.ini"),
                        KVSettingsFile::ReadOnly);
    const QSettings ini(file.ReadPath(), QSettings::IniFormat);
    return {ini.value(QStringLiteral("brush"), QString()).toString(),
            ini.value(QStringLiteral("general"), QString()).toString()};
}

// Why the general folder's scan leaves a file with the plug-in suffix out,
// or an empty string when it takes it. Base names are compared exactly.
QString WhyNotTaken(const QString& baseName, KVApplication::PluginsLoadTypes types)
{
    for (const Family& family : Families()) {
        if (family.baseNames.contains(baseName))
            return types.testFlag(family.type)
                       ? QString()
                       : QStringLiteral("the family \"%1\" was not asked for").arg(baseName);
    }
    for (const Family& family : Families()) {
        for (const QString& name : family.baseNames) {
            if (name.compare(baseName, Qt::CaseInsensitive) == 0)
                return QStringLiteral("the base name \"%1\" differs from \"%2\" in case")
                    .arg(baseName, name);
        }
    }
    return QStringLiteral("no plug-in family is named \"%1\"").arg(baseName);
}

// A folder of plugins.ini and its files, sorted by name; general: the
// family rule applies (unless every file is taken).
void ScanFolder(const QString& folder, bool general, KVApplication::PluginsLoadTypes types,
                bool everyFile, std::vector<KVApplication::PluginScanEntry>& entries)
{
    const QString key = general ? QStringLiteral("general") : QStringLiteral("brush");
    QDir dir(QCoreApplication::applicationDirPath());
    if (!dir.cd(folder)) {
        entries.push_back({folder, true, false, QStringLiteral("missing"), key});
        return;
    }
    entries.push_back({dir.absolutePath(), true, true, QString(), key});
    const QFileInfoList files = dir.entryInfoList(QDir::Files | QDir::NoDotAndDotDot, QDir::Name);
    for (const QFileInfo& file : files) {
        QString why;
        if (file.suffix().compare(kPlugInSuffix, Qt::CaseInsensitive) != 0)
            why =
                QStringLiteral("the suffix \"%1\" is not \"%2\"").arg(file.suffix(), kPlugInSuffix);
        else if (general && !everyFile)
            why = WhyNotTaken(file.baseName(), types);
        entries.push_back({file.absoluteFilePath(), false, why.isEmpty(), why, key});
    }
}

IPluginContainer* ContainerOf(QPluginLoader* loader)
{
    QObject* root = loader ? loader->instance() : nullptr;
    return root ? qobject_cast<IPluginContainer*>(root) : nullptr;
}

// The entries of after that before did not have, in after's order.
QStringList Gained(const QStringList& before, const QStringList& after)
{
    QStringList gained;
    for (const QString& entry : after) {
        if (!before.contains(entry))
            gained.append(entry);
    }
    return gained;
}

QString Seconds(qint32 milliseconds)
{
    return QStringLiteral("%1").arg(milliseconds / 1000.0);
}
} // namespace

KVPluginLoader::KVPluginLoader(KVApplication* application, IBrushFactory*& brushFactory)
    : m_application(application)
    , m_brushFactory(brushFactory)
{}

KVPluginLoader::~KVPluginLoader() = default;

std::vector<KVApplication::PluginScanEntry>
KVPluginLoader::Scan(KVApplication::PluginsLoadTypes types, bool everyGeneralFile)
{
    const PluginFolders folders = ReadPluginFolders();
    std::vector<KVApplication::PluginScanEntry> entries;
    if (types.testFlag(KVApplication::BrushesPlugins))
        ScanFolder(folders.brush, false, types, true, entries);
    const size_t brushEntries = entries.size();
    ScanFolder(folders.general, true, types, everyGeneralFile, entries);
    // The general folder is a precondition of all loading.
    if (!entries.at(brushEntries).taken) {
        for (size_t i = 0; i < brushEntries; ++i) {
            if (!entries[i].isFolder && entries[i].taken) {
                entries[i].taken = false;
                entries[i].reason = QStringLiteral("the general folder is missing");
            }
        }
    }
    return entries;
}

QStringList KVPluginLoader::ExpectedFiles(KVApplication::PluginsLoadType type)
{
    const PluginFolders folders = ReadPluginFolders();
    const auto path = [](const QString& folder, const QString& name) {
        return QFileInfo(QCoreApplication::applicationDirPath() +
                         QStringLiteral("/%1").arg(folder) +
                         QStringLiteral("/%1.%2").arg(name, kPlugInSuffix))
            .canonicalFilePath();
    };
    if (type == KVApplication::BrushesPlugins)
        return {path(folders.brush, kBrushes)};
    for (const Family& family : Families()) {
        if (family.type != type)
            continue;
        QStringList paths;
        for (const QString& name : family.fileNames)
            paths.append(path(folders.general, name));
        return paths;
    }
    return {};
}

bool KVPluginLoader::LoadScanned(KVApplication::PluginsLoadTypes types, bool everyGeneralFile)
{
    const std::vector<KVApplication::PluginScanEntry> entries = Scan(types, everyGeneralFile);
    const auto isFolder = [](const KVApplication::PluginScanEntry& entry) {
        return entry.isFolder;
    };
    if (types.testFlag(KVApplication::BrushesPlugins) && !entries.front().taken)
        KV_LOG_FOLDER(QStringLiteral("Brush folder is missing"));
    if (!std::find_if(entries.rbegin(), entries.rend(), isFolder)->taken) {
        KV_LOG_FOLDER(QStringLiteral("The plugins folder does not exist"));
        return false;
    }
    QStringList files;
    for (const KVApplication::PluginScanEntry& entry : entries) {
        if (!entry.isFolder && entry.taken)
            files.append(entry.path);
    }
    Load(files);
    return true;
}

void KVPluginLoader::Load(const QStringList& files)
{
    for (const QString& path : files) {
        Q_EMIT m_application->PluginLoading(path);
        QCoreApplication::processEvents();

        m_records.push_back(LoadOne(path));
        const PluginStatus& record = m_records.back();
        if (!record.loader) {
            KV_LOG_FILE_EVENT(QStringLiteral("Plugin: \"%1\" loading error. Loading time is %2 "
                                             "sec. Error message is \"%3\".")
                                  .arg(path, Seconds(record.loadingTime), record.errorInfo));
            Q_EMIT m_application->PluginLoadingError(path, record.errorInfo);
        } else {
            KV_LOG_FILE_EVENT(
                QStringLiteral("Plugin: \"%1\" loaded successfully. Loading time is %2 sec.")
                    .arg(path, Seconds(record.loadingTime)));
            Q_EMIT m_application->PluginLoaded(path);
        }
        QCoreApplication::processEvents();
    }
}

KVPluginLoader::PluginStatus KVPluginLoader::LoadOne(const QString& path)
{
    PluginStatus record;
    record.fileName = path;
    record.errorInfo = kPluginOK;
    QElapsedTimer timer;
    timer.start();
    // The container registers its adjustments and brushes itself: what the
    // registries gain while the file loads is its contribution.
    const QStringList adjustments = KVAdjustmentManager::GetRegistered();
    const QStringList brushes = KVBrushToolManager::GetRegistered();
    const auto finish = [&](qint32 status, const QString& errorInfo) {
        record.status = status;
        record.errorInfo = errorInfo;
        record.adjustments = Gained(adjustments, KVAdjustmentManager::GetRegistered());
        record.brushes = Gained(brushes, KVBrushToolManager::GetRegistered());
        record.loadingTime = qint32(timer.elapsed());
        return record;
    };

    if (!QFile::exists(path))
        return finish(PluginStatus::MissingFile, QStringLiteral("Missing file"));

    auto* loader = new QPluginLoader(path);
    // Resolving every symbol at load time turns a plug-in that needs a missing
    // function into a load error, instead of a crash at its first call.
    loader->setLoadHints(loader->loadHints() | QLibrary::ResolveAllSymbolsHint);
    QObject* root = loader->instance();
    if (!root) {
        const QString error = loader->errorString();
        delete loader;
        return finish(PluginStatus::LoadError, error);
    }
    const auto reject = [&](const QString& error) {
        loader->unload();
        loader->deleteLater();
        return finish(PluginStatus::LoadError, error);
    };

    auto* container = qobject_cast<IPluginContainer*>(root);
    if (!container)
        return reject(QStringLiteral("Is not an Pelkaro's plugin."));
    container->Initialize();
    if (container->GetPlugins().isEmpty())
        return reject(QStringLiteral("Empty container."));
    RegisterPlugins(container);
    record.loader = loader;
    return finish(PluginStatus::Loaded, kPluginOK);
}

void KVPluginLoader::RegisterPlugins(IPluginContainer* container)
{
    const bool registry = KVImageFileManager::GetInstance() != nullptr;
    for (KVPlugin* plugin : container->GetPlugins()) {
        if (!plugin)
            continue;
        if (plugin->GetType() == KVPlugin::ImageFileType) {
            if (registry)
                KVImageFileManager::Register(qobject_cast<KVImageFilePlugin*>(plugin));
        } else if (plugin->GetUID() == kBrushFactoryUID) {
            m_brushFactory = dynamic_cast<IBrushFactory*>(plugin);
        }
    }
}

void KVPluginLoader::UnregisterPlugins(IPluginContainer* container)
{
    for (KVPlugin* plugin : container->GetPlugins()) {
        if (!plugin)
            continue;
        if (plugin->GetType() == KVPlugin::ImageFileType)
            KVImageFileManager::Unregister(qobject_cast<KVImageFilePlugin*>(plugin));
        else if (plugin->GetUID() == kBrushFactoryUID)
            m_brushFactory = nullptr;
    }
}

// What both forms of unloading do with a record that holds a loader; only
// the full form takes the container's plug-ins out of the registries itself.
void KVPluginLoader::ReleaseAndUnload(PluginStatus& record, bool unregister)
{
    if (!record.loader)
        return;
    if (IPluginContainer* container = ContainerOf(record.loader)) {
        if (unregister)
            UnregisterPlugins(container);
        container->Release();
    }
    if (record.loader->unload())
        KV_LOG_FILE_EVENT(
            QStringLiteral("Plugin: \"%1\" is unloaded successfully.").arg(record.fileName));
    else
        KV_LOG_FILE_EVENT(QStringLiteral("Plugin: \"%1\" unloading error.").arg(record.fileName));
    delete record.loader;
    // Cleared rather than left dangling: a later UIReady() or unload finds nothing.
    record.loader = nullptr;
}

// In reverse load order; the records stay, with their status and error.
void KVPluginLoader::UnloadAll()
{
    for (auto record = m_records.rbegin(); record != m_records.rend(); ++record)
        ReleaseAndUnload(*record, record->status == PluginStatus::Loaded);
}

// The named files' records go, failed ones too. Removals shrink the list:
// the walk ends at its end.
void KVPluginLoader::Unload(const QStringList& files)
{
    for (std::size_t index = 0; index < m_records.size();) {
        PluginStatus& record = m_records[index];
        if (!files.contains(record.fileName)) {
            ++index;
            continue;
        }
        ReleaseAndUnload(record, false);
        m_records.erase(m_records.begin() + std::ptrdiff_t(index));
    }
}

void KVPluginLoader::UIReady()
{
    for (auto record = m_records.rbegin(); record != m_records.rend(); ++record) {
        if (record->status != PluginStatus::Loaded)
            continue;
        if (IPluginContainer* container = ContainerOf(record->loader))
            container->UIReady();
    }
}

std::vector<QString> KVPluginLoader::ErrorFiles() const
{
    std::vector<QString> files;
    for (const PluginStatus& record : m_records) {
        if (record.status != PluginStatus::Loaded)
            files.push_back(record.fileName);
    }
    return files;
}

std::vector<KVApplication::PluginRecord> KVPluginLoader::PublicRecords() const
{
    std::vector<KVApplication::PluginRecord> records;
    records.reserve(m_records.size());
    for (const PluginStatus& record : m_records) {
        KVApplication::PluginRecord entry;
        entry.fileName = record.fileName;
        entry.status = KVApplication::PluginRecord::Status(record.status);
        entry.errorInfo = record.errorInfo;
        entry.loadingTime = record.loadingTime;
        if (IPluginContainer* container = ContainerOf(record.loader))
            entry.plugins = container->GetPlugins();
        entry.adjustments = record.adjustments;
        entry.brushes = record.brushes;
        records.push_back(entry);
    }
    return records;
}

QString KVPluginLoader::ErrorInfo(const QString& file) const
{
    for (const PluginStatus& record : m_records) {
        if (record.fileName == file)
            return record.errorInfo;
    }
    return QStringLiteral("Errors not found");
}
