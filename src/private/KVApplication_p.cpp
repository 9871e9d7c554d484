#include "KVApplication_p.h"

#include "KVLog.h"
#include "KVPixelRatioRound.h"

#include <QDir>
#include <QFileInfo>
#include <QRegExp>
#include <QSettings>

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

QVariant ReadValue(const QString& file, const QString& key, const QVariant& defaultValue)
{
    QSettings settings(file, QSettings::IniFormat);
    return settings.value(key, defaultValue);
}

void WriteValue(const QString& file, const QString& key, const QVariant& value)
{
    QSettings settings(file, QSettings::IniFormat);
    settings.setValue(key, value);
}
} // namespace

KVApplication::Private::Private(KVApplication* owner)
    : q(owner)
{
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps, true);
    QCoreApplication::setAttribute(Qt::AA_DontShowIconsInMenus, true);
    KVPixelRatioRound::SetPixelRatio(q->devicePixelRatio());

    // The export preset lists are started here.

    const QString userFolder = UserPreferencesFolder();
    m_appSettingsFile =
        QDir::toNativeSeparators(QStringLiteral("/Library/Application Support/Pelkaro AB/Pelkaro") +
                                 QDir::separator() + QStringLiteral("app.ini"));
    m_userSettingsFile =
        QDir::toNativeSeparators(userFolder + QDir::separator() + QStringLiteral("user.ini"));
    MakeFolderStructure(userFolder);
    m_resourcePath = QDir(KVApplication::GetResourcePath()).absolutePath();
    m_languages = MakeLangList(m_resourcePath);

    // The export preset files are loaded here.
}

KVApplication::Private::~Private()
{
    // The export preset lists are released here.
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
    const QVariant value = ReadValue(m_userSettingsFile, key, defaultValue);
    if (key != kLanguageKey)
        return value;
    // Codes are stored with their region (en_US); the editor knows languages only.
    return value.toString().remove(QRegExp(QStringLiteral("(_.*)$")));
}

void KVApplication::Private::SetUserValue(const QString& key, const QVariant& value)
{
    if (!QFileInfo::exists(m_userSettingsFile)) {
        MakeFolderStructure(FolderOf(m_userSettingsFile));
        WriteValue(m_userSettingsFile, GetName(Version), kSettingsVersion);
    }
    WriteValue(m_userSettingsFile, key, value);
}

QVariant KVApplication::Private::GetApplicationValue(const QString& key,
                                                     const QVariant& defaultValue) const
{
    return ReadValue(m_appSettingsFile, key, defaultValue);
}

void KVApplication::Private::SetApplicationValue(const QString& key, const QVariant& value)
{
    if (!QFileInfo::exists(m_appSettingsFile))
        MakeFolderStructure(FolderOf(m_appSettingsFile));
    WriteValue(m_appSettingsFile, key, value);
}

QString KVApplication::Private::GetDataFolder() const
{
    return FolderOf(m_appSettingsFile);
}

void KVApplication::Private::SetDataFolder(const QString& folder)
{
    MoveSettingsFile(m_appSettingsFile, folder);
}

QString KVApplication::Private::GetUserDataFolder() const
{
    return FolderOf(m_userSettingsFile);
}

void KVApplication::Private::SetUserDataFolder(const QString& folder)
{
    MoveSettingsFile(m_userSettingsFile, folder);
}

void KVApplication::Private::MoveSettingsFile(QString& settingsFile, const QString& folder)
{
    if (folder == FolderOf(settingsFile))
        return;
    settingsFile =
        QDir::toNativeSeparators(folder + QDir::separator() + QFileInfo(settingsFile).fileName());
    MakeFolderStructure(folder);
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
