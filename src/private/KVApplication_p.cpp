#include "KVApplication_p.h"

#include "KVImageFileManager.h"
#include "KVLog.h"
#include "MZExportResolutions_p.h"
#include "MZExportSizes_p.h"

#include <IBrushFactory.h>
#include <IPluginContainer.h>
#include <KVImageFilePlugin.h>
#include <KVPixelRatioRound.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QPluginLoader>
#include <QRegExp>
#include <QSettings>
#include <QTranslator>

#include <new>

IBrushFactory* KVApplication::Private::m_pBrushFactory = nullptr;
QBrush KVApplication::Private::m_gradient;
const QString KVApplication::Private::m_ru = QStringLiteral("ru");
const QString KVApplication::Private::m_en = QStringLiteral("en");
const QString KVApplication::Private::m_de = QStringLiteral("de");
const QString KVApplication::Private::m_sv = QStringLiteral("sv");
const QString KVApplication::Private::m_fr = QStringLiteral("fr");
const QString KVApplication::Private::m_pt = QStringLiteral("pt");

namespace {
const QString kSettingsVersion = QStringLiteral("2.4.0");
const QString kLanguageKey = QStringLiteral("Language/Index");

QString UserPreferencesFolder()
{
    return QDir::homePath() + QDir::toNativeSeparators("/Library/Preferences/Pelkaro AB/Pelkaro");
}

QString FolderOf(const QString& file)
{
    return QFileInfo(file).absolutePath();
}

// Past the check, Qt may still fail an allocation that a value asks for
// (an image, say) and throw std::bad_alloc out of value() or sync(): the
// read then answers the default and the write leaves the file as it is.
void LogUnreadable(const QString& file)
{
    KV_LOG(QStringLiteral("The settings file \"%1\" cannot be read.").arg(file));
}

QVariant ReadValue(KVSettingsFile& file, const QString& key, const QVariant& defaultValue)
{
    try {
        QSettings settings(file.ReadPath(), QSettings::IniFormat);
        return settings.value(key, defaultValue);
    } catch (const std::bad_alloc&) {
        LogUnreadable(file.Path());
        return defaultValue;
    }
}

void WriteValue(KVSettingsFile& file, const QString& key, const QVariant& value)
{
    const QString path = file.WritePath();
    if (path.isEmpty())
        return;
    try {
        QSettings settings(path, QSettings::IniFormat);
        settings.setValue(key, value);
        // Here rather than in the destructor, which swallows a failure.
        settings.sync();
        if (settings.status() == QSettings::NoError)
            file.Written();
    } catch (const std::bad_alloc&) {
        LogUnreadable(path);
    }
}
} // namespace

KVApplication::Private::Private(KVApplication* owner)
    : q(owner)
{
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps, true);
    QCoreApplication::setAttribute(Qt::AA_DontShowIconsInMenus, true);
    KVPixelRatioRound::SetPixelRatio(q->devicePixelRatio());

    MZExportResolutions::Private::InitInstance();
    MZExportSizes::Private::InitInstance();

    const QString userFolder = UserPreferencesFolder();
    m_appSettingsFile =
        QDir::toNativeSeparators(QStringLiteral("/Library/Application Support/Pelkaro AB/Pelkaro") +
                                 QDir::separator() + QStringLiteral("app.ini"));
    m_userSettingsFile =
        QDir::toNativeSeparators(userFolder + QDir::separator() + QStringLiteral("user.ini"));
    MakeFolderStructure(userFolder);
    m_appSettings.SetPath(m_appSettingsFile);
    m_userSettings.SetPath(m_userSettingsFile);
    m_resourcePath = QDir(KVApplication::GetResourcePath()).absolutePath();
    m_languages = MakeLangList(m_resourcePath);

    MZExportResolutions::Private::Load(userFolder +
                                       QStringLiteral("/exportandshareresolution.ini"));
    MZExportSizes::Private::Load(userFolder + QStringLiteral("/exportandsharesize.ini"));
}

KVApplication::Private::~Private()
{
    MZExportResolutions::Private::ReleaseInstance();
    MZExportSizes::Private::ReleaseInstance();
}

KVApplication::Private* KVApplication::Private::Instance()
{
    KVApplication* app = KVApplication::GetInstance();
    return app ? app->d : nullptr;
}

void KVApplication::Private::MakeFolderStructure(const QString& path)
{
    QDir dir(path);
    if (!dir.exists())
        dir.mkpath(QStringLiteral("./"));
}

QVariant KVApplication::Private::GetUserValue(const QString& key,
                                              const QVariant& defaultValue) const
{
    const QVariant value = ReadValue(m_userSettings, key, defaultValue);
    if (key != kLanguageKey)
        return value;
    // Codes are stored with their region (en_US); the editor knows languages only.
    return value.toString().remove(QRegExp(QStringLiteral("(_.*)$")));
}

void KVApplication::Private::SetUserValue(const QString& key, const QVariant& value)
{
    if (!QFileInfo::exists(m_userSettingsFile)) {
        MakeFolderStructure(FolderOf(m_userSettingsFile));
        WriteValue(m_userSettings, GetName(Version), kSettingsVersion);
    }
    WriteValue(m_userSettings, key, value);
}

QVariant KVApplication::Private::GetApplicationValue(const QString& key,
                                                     const QVariant& defaultValue) const
{
    return ReadValue(m_appSettings, key, defaultValue);
}

void KVApplication::Private::SetApplicationValue(const QString& key, const QVariant& value)
{
    if (!QFileInfo::exists(m_appSettingsFile))
        MakeFolderStructure(FolderOf(m_appSettingsFile));
    WriteValue(m_appSettings, key, value);
}

QString KVApplication::Private::GetDataFolder() const
{
    return FolderOf(m_appSettingsFile);
}

void KVApplication::Private::SetDataFolder(const QString& folder)
{
    MoveSettingsFile(m_appSettingsFile, m_appSettings, folder);
}

QString KVApplication::Private::GetUserDataFolder() const
{
    return FolderOf(m_userSettingsFile);
}

void KVApplication::Private::SetUserDataFolder(const QString& folder)
{
    MoveSettingsFile(m_userSettingsFile, m_userSettings, folder);
}

void KVApplication::Private::MoveSettingsFile(QString& settingsFile, KVSettingsFile& file,
                                              const QString& folder)
{
    if (folder == FolderOf(settingsFile))
        return;
    settingsFile =
        QDir::toNativeSeparators(folder + QDir::separator() + QFileInfo(settingsFile).fileName());
    MakeFolderStructure(folder);
    file.SetPath(settingsFile);
}

QStringList KVApplication::Private::MakeLangList(const QString& path)
{
    QStringList languages;
    const QDir resources(path);
    for (const QString& code : {m_en, m_de, m_ru, m_sv, m_fr, m_pt}) {
        if (QDir(resources.filePath(code + QStringLiteral(".lproj"))).exists())
            languages.append(code);
        else
            KV_LOG(QStringLiteral("No %1 translations.").arg(code));
    }
    return languages;
}

void KVApplication::Private::MakeLanguageNames()
{
    m_languageNames.clear();
    m_languageNames.insert(m_en, KVApplication::tr("English"));
    m_languageNames.insert(m_ru, KVApplication::tr("Russian"));
    m_languageNames.insert(m_de, KVApplication::tr("German"));
    m_languageNames.insert(m_sv, KVApplication::tr("Swedish"));
    m_languageNames.insert(m_fr, KVApplication::tr("French"));
    m_languageNames.insert(m_pt, KVApplication::tr("Portuguese"));
}

bool KVApplication::Private::LoadTranslations(const QString& code)
{
    QDir folder(m_resourcePath);
    if (!folder.cd(code + QStringLiteral(".lproj"))) {
        KV_LOG(QStringLiteral("Translations for \"%1\" language not found.").arg(code));
        return false;
    }
    // Translators stay installed for the rest of the process; this list, never
    // destroyed, keeps them reachable.
    static auto* const installed = new QList<QTranslator*>;
    const QString prefix = QDir::toNativeSeparators(folder.absolutePath() + QLatin1Char('/'));
    bool loaded = false;
    const QStringList files =
        folder.entryList(QStringList{QStringLiteral("*.qm")}, QDir::Files, QDir::NoSort);
    for (const QString& file : files) {
        auto* translator = new QTranslator;
        if (translator->load(prefix + file)) {
            QCoreApplication::installTranslator(translator);
            installed->append(translator);
            loaded = true;
        } else {
            KV_LOG(QStringLiteral("Load translator \"%1\" error.").arg(prefix + file));
            delete translator;
        }
    }
    MakeLanguageNames();
    m_language = code;
    return loaded;
}

void KVApplication::Private::LoadPatterns(const QString& folder)
{
    const QDir dir(folder);
    if (!dir.exists())
        return;
    const QStringList filters = {QStringLiteral("*.jpg"), QStringLiteral("*.png"),
                                 QStringLiteral("*.bmp")};
    for (const QFileInfo& entry : dir.entryInfoList(filters, QDir::NoFilter, QDir::NoSort))
        m_patterns.append(entry.absoluteFilePath());
}

QColor KVApplication::Private::GetColor(UseDataRole role, const QColor& defaultColor)
{
    const QVariant value = KVApplication::GetUserValue(role, defaultColor);
    if (value.userType() == QMetaType::QColor)
        return value.value<QColor>();
    QVariant converted = value;
    if (!converted.convert(QMetaType::QColor))
        return QColor();
    return converted.value<QColor>();
}

void KVApplication::Private::SetColor(UseDataRole role, const QColor& defaultColor,
                                      const QColor& color, void (KVApplication::*changed)())
{
    Private* d = Instance();
    if (!d || !(GetColor(role, defaultColor) != color))
        return;
    d->SetUserValue(GetName(role), color);
    Q_EMIT(d->q->*changed)();
}

// Plug-ins

namespace {
const QString kPluginOK = QStringLiteral("Plugin OK.");
const QString kBrushFactoryUID = QStringLiteral("{00000000-0000-0000-0000-000000000002}");

IPluginContainer* ContainerOf(QPluginLoader* loader)
{
    QObject* root = loader ? loader->instance() : nullptr;
    return root ? qobject_cast<IPluginContainer*>(root) : nullptr;
}

QString Seconds(qint32 milliseconds)
{
    return QStringLiteral("%1").arg(milliseconds / 1000.0);
}
} // namespace

void KVApplication::Private::LoadPlugins(const QStringList& files)
{
    for (const QString& path : files) {
        Q_EMIT q->PluginLoading(path);
        QCoreApplication::processEvents();

        m_pluginStatus.push_back(LoadPlugin(path));
        const PluginStatus& record = m_pluginStatus.back();
        if (!record.loader) {
            KV_LOG(QStringLiteral("Plugin: \"%1\" loading error. Loading time is %2 sec. Error "
                                  "message is \"%3\".")
                       .arg(path, Seconds(record.loadingTime), record.errorInfo));
            Q_EMIT q->PluginLoadingError(path, record.errorInfo);
        } else {
            KV_LOG(QStringLiteral("Plugin: \"%1\" loaded successfully. Loading time is %2 sec.")
                       .arg(path, Seconds(record.loadingTime)));
            Q_EMIT q->PluginLoaded(path);
        }
        QCoreApplication::processEvents();
    }
}

KVApplication::Private::PluginStatus KVApplication::Private::LoadPlugin(const QString& path)
{
    PluginStatus record;
    record.fileName = path;
    record.errorInfo = kPluginOK;
    QElapsedTimer timer;
    timer.start();
    const auto finish = [&](qint32 status, const QString& errorInfo) {
        record.status = status;
        record.errorInfo = errorInfo;
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
    const QList<KVPlugin*> plugins = container->GetPlugins();
    if (plugins.isEmpty())
        return reject(QStringLiteral("Empty container."));

    const bool registry = KVImageFileManager::GetInstance() != nullptr;
    for (KVPlugin* plugin : plugins) {
        if (!plugin)
            continue;
        if (plugin->GetType() == KVPlugin::ImageFileType) {
            if (registry)
                KVImageFileManager::Register(qobject_cast<KVImageFilePlugin*>(plugin));
        } else if (plugin->GetUID() == kBrushFactoryUID) {
            m_pBrushFactory = dynamic_cast<IBrushFactory*>(plugin);
        }
    }
    record.loader = loader;
    return finish(PluginStatus::Loaded, kPluginOK);
}

void KVApplication::Private::LogUnload(const PluginStatus& record)
{
    if (record.loader->unload())
        KV_LOG(QStringLiteral("Plugin: \"%1\" is unloaded successfully.").arg(record.fileName));
    else
        KV_LOG(QStringLiteral("Plugin: \"%1\" unloading error.").arg(record.fileName));
}

void KVApplication::Private::UnloadPlugins()
{
    for (auto record = m_pluginStatus.rbegin(); record != m_pluginStatus.rend(); ++record) {
        if (record->status == PluginStatus::Loaded) {
            if (IPluginContainer* container = ContainerOf(record->loader)) {
                for (KVPlugin* plugin : container->GetPlugins()) {
                    if (!plugin)
                        continue;
                    if (plugin->GetType() == KVPlugin::ImageFileType)
                        KVImageFileManager::Unregister(qobject_cast<KVImageFilePlugin*>(plugin));
                    else if (plugin->GetUID() == kBrushFactoryUID)
                        m_pBrushFactory = nullptr;
                }
                container->Release();
            }
            if (record->loader)
                LogUnload(*record);
        }
        // Cleared rather than left dangling: a later UIReady() or unload finds nothing.
        delete record->loader;
        record->loader = nullptr;
    }
}

void KVApplication::Private::UnloadPlugins(const QStringList& files)
{
    // Removals shrink the list: the walk ends at its end.
    for (std::size_t index = 0; index < m_pluginStatus.size();) {
        PluginStatus& record = m_pluginStatus[index];
        if (!files.contains(record.fileName)) {
            ++index;
            continue;
        }
        if (record.loader) {
            if (IPluginContainer* container = ContainerOf(record.loader))
                container->Release();
            LogUnload(record);
            delete record.loader;
        }
        m_pluginStatus.erase(m_pluginStatus.begin() + std::ptrdiff_t(index));
    }
}

void KVApplication::Private::UIReady()
{
    for (auto record = m_pluginStatus.rbegin(); record != m_pluginStatus.rend(); ++record) {
        if (record->status != PluginStatus::Loaded)
            continue;
        if (IPluginContainer* container = ContainerOf(record->loader))
            container->UIReady();
    }
}
