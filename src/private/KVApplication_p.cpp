#include "KVApplication_p.h"

#include "KVLog.h"
#include "MZExportResolutions_p.h"
#include "MZExportSizes_p.h"
#include "kvcore_version.h"

#include <KVPixelRatioRound.h>

#include <QDir>
#include <QFileInfo>
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
// The settings files' Version key: the library's version.
const QString kSettingsVersion = QStringLiteral(PELKARO_VERSION_STRING);
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
    return app ? app->d.get() : nullptr;
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
    QVariant value = ReadValue(m_userSettings, key, defaultValue);
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
