#include "KVApplication.h"

#include "private/KVApplication_p.h"
#include "private/KVLog.h"

#include <QDir>
#include <QFile>

namespace {
const char* const kRoleKeys[] = {
    "Version",
    "Language/Index",
    "Theme/Path",
    "ColorManagement/WorkingProfileID",
    "ColorManagement/MissingPolicy",
    "ColorManagement/EqualPolicy",
    "ColorManagement/NotEqualPolicy",
    "ColorManagement/ColorSpaceMismatchPolicy",
    "MessagesAndConfirmationsSettings/ShowPNGCompressionSettings",
    "MessagesAndConfirmationsSettings/ShowJPGCompressionSettings",
    "MessagesAndConfirmationsSettings/ShowTIFFCompressionSettings",
    "Save/PathOpen",
    "Save/PathExport",
    "SaveAs/Suffix",
    "Batch/Path/Open",
    "Batch/Path/Input",
    "Batch/Path/Output",
    "Colors/Background",
    "Colors/Foreground",
    "Colors/Mask/Background",
    "Colors/Mask/Foreground",
    "StartupWindow/Show",
    "Miscellaneous/CheckForUpdate",
    "Update/Remind",
    "Update/RemindDate",
    "TexturePatternIndex",
    "ApplicationTemporaryPath",
};
constexpr int kRoleCount = int(sizeof(kRoleKeys) / sizeof(kRoleKeys[0]));
static_assert(kRoleCount == KVApplication::ApplicationTemporaryPath + 1,
              "every UseDataRole needs its key");

const QString kIncompleteInfoStateKey = QStringLiteral("DocumentIO/IncompleteInfoState");

template <typename Policy> Policy ReadPolicy(KVApplication::UseDataRole role, Policy defaultPolicy)
{
    return Policy(KVApplication::GetUserValue(role, int(defaultPolicy)).toInt());
}

bool ReadFlag(KVApplication::UseDataRole role)
{
    return KVApplication::GetUserValue(role, true).toBool();
}

QString ReadPath(KVApplication::UseDataRole role)
{
    return KVApplication::GetUserValue(role, QString()).toString();
}
} // namespace

KVApplication::KVApplication(int& argc, char** argv)
    : QApplication(argc, argv, ApplicationFlags)
{
    d = std::make_unique<Private>(this);
}

KVApplication::~KVApplication() = default;

KVApplication* KVApplication::GetInstance()
{
    return qobject_cast<KVApplication*>(QCoreApplication::instance());
}

QVariant KVApplication::GetUserValue(const QString& key, const QVariant& defaultValue)
{
    const Private* d = Private::Instance();
    return d ? d->GetUserValue(key, defaultValue) : defaultValue;
}

QVariant KVApplication::GetUserValue(UseDataRole role, const QVariant& defaultValue)
{
    return GetUserValue(GetName(role), defaultValue);
}

void KVApplication::SetUserValue(const QString& key, const QVariant& value)
{
    if (Private* d = Private::Instance())
        d->SetUserValue(key, value);
}

void KVApplication::SetUserValue(UseDataRole role, const QVariant& value)
{
    SetUserValue(GetName(role), value);
}

QVariant KVApplication::GetApplicationValue(const QString& key, const QVariant& defaultValue)
{
    const Private* d = Private::Instance();
    return d ? d->GetApplicationValue(key, defaultValue) : defaultValue;
}

void KVApplication::SetAppicationValue(const QString& key, const QVariant& value)
{
    if (Private* d = Private::Instance())
        d->SetApplicationValue(key, value);
}

QString KVApplication::GetName(UseDataRole role)
{
    if (role < 0 || role >= kRoleCount)
        return QString();
    return QString::fromLatin1(kRoleKeys[role]);
}

QString KVApplication::GetDataFolder()
{
    const Private* d = Private::Instance();
    return d ? d->GetDataFolder() : QString();
}

void KVApplication::SetDataFolder(const QString& folder)
{
    if (Private* d = Private::Instance())
        d->SetDataFolder(folder);
}

QString KVApplication::GetUserDataFolder()
{
    const Private* d = Private::Instance();
    return d ? d->GetUserDataFolder() : QString();
}

void KVApplication::SetUserDataFolder(const QString& folder)
{
    if (Private* d = Private::Instance())
        d->SetUserDataFolder(folder);
}

QString KVApplication::GetResourcePath()
{
    QDir folder(QCoreApplication::applicationDirPath());
    if (!folder.cd(QStringLiteral("../Resources")))
        KV_LOG(QStringLiteral("The Resouces folder does not exist"));
    return folder.absolutePath();
}

void KVApplication::FlushData()
{
    if (Private* d = Private::Instance())
        Q_EMIT d->q->FlushPluginData();
}

void KVApplication::LoadPlugins()
{
    if (d->m_plugins.LoadScanned(BrushesPlugins, true))
        Q_EMIT PluginsLoadingFinished();
}

void KVApplication::LoadPlugins(QFlags<PluginsLoadType> types)
{
    if (d->m_plugins.LoadScanned(types, false))
        Q_EMIT PluginsLoadingFinished();
}

void KVApplication::LoadPlugins(const QStringList& files)
{
    d->m_plugins.Load(files);
}

void KVApplication::LoadPlugin(const QString& file)
{
    d->m_plugins.Load(QStringList{file});
}

std::vector<KVApplication::PluginScanEntry> KVApplication::ExplainPluginScan()
{
    return KVPluginLoader::Scan(BrushesPlugins, true);
}

std::vector<KVApplication::PluginScanEntry> KVApplication::ExplainPluginScan(PluginsLoadTypes types)
{
    return KVPluginLoader::Scan(types, false);
}

QStringList KVApplication::PluginFileName(PluginsLoadType type)
{
    return KVPluginLoader::ExpectedFiles(type);
}

IBrushFactory* KVApplication::GetBrushFactory()
{
    return Private::m_pBrushFactory;
}

void KVApplication::UnloadPlugins()
{
    d->m_plugins.UnloadAll();
}

void KVApplication::UnloadPlugins(const QStringList& files)
{
    d->m_plugins.Unload(files);
}

void KVApplication::UnloadPlugin(const QString& file)
{
    d->m_plugins.Unload(QStringList{file});
}

std::vector<QString> KVApplication::GetErrorPlugins()
{
    return d->m_plugins.ErrorFiles();
}

QString KVApplication::GetErrorInfo(const QString& file)
{
    return d->m_plugins.ErrorInfo(file);
}

std::vector<KVApplication::PluginRecord> KVApplication::GetPluginRecords() const
{
    return d->m_plugins.PublicRecords();
}

void KVApplication::UIReady()
{
    d->m_plugins.UIReady();
}

QStringList KVApplication::GetLanguages()
{
    return d->m_languages;
}

QString KVApplication::GetLanguage() const
{
    return d->m_language;
}

bool KVApplication::LoadLanguage(const QString& code)
{
    return d->LoadTranslations(code);
}

QString KVApplication::GetLanguageName(const QString& code)
{
    const Private* d = Private::Instance();
    return d ? d->m_languageNames.value(code) : QString();
}

QString KVApplication::GetDefaultLanguage()
{
    return Private::m_en;
}

bool KVApplication::LoadTheme()
{
    const QString path = GetUserValue(ThemePath, GetName(Dark)).toString();
    // Search paths add up: the first one registered that holds the style sheet wins.
    QDir::addSearchPath(QStringLiteral("theme"), path);
    QFile styleSheet(QStringLiteral("theme:pixel.qss"));
    if (!styleSheet.open(QIODevice::ReadOnly)) {
        KV_LOG(QStringLiteral("Load theme error."));
        return false;
    }
    const QByteArray bytes = styleSheet.readAll();
    const int end = bytes.indexOf('\0');
    setStyleSheet(QString::fromLatin1(end < 0 ? bytes : bytes.left(end)));
    d->m_theme = path == GetName(Dark) ? Dark : Light;
    return true;
}

KVApplication::ThemeType KVApplication::GetTheme() const
{
    return ThemeType(d->m_theme);
}

KVApplication::ThemeType KVApplication::GetApplicationTheme()
{
    return GetUserValue(ThemePath, GetName(Dark)).toString() == GetName(Dark) ? Dark : Light;
}

void KVApplication::SetApplicationTheme(ThemeType type)
{
    SetUserValue(ThemePath, GetName(type));
}

QString KVApplication::GetName(ThemeType type)
{
    switch (type) {
    case Dark:
        return QStringLiteral(":/Dark");
    case Light:
        return QStringLiteral(":/Light");
    }
    return QString();
}

void KVApplication::LoadPatterns(const QString& folder)
{
    d->LoadPatterns(folder);
}

QString KVApplication::GetPatternFile(int index)
{
    const Private* d = Private::Instance();
    return d ? d->m_patterns.value(index) : QString();
}

int KVApplication::GetPatternCount()
{
    const Private* d = Private::Instance();
    return d ? d->m_patterns.size() : 0;
}

void KVApplication::SetGradient(const QBrush& gradient)
{
    Private::m_gradient = gradient;
}

QBrush KVApplication::GetGradient()
{
    return Private::m_gradient;
}

void KVApplication::RegisterRefineSelectionAction(QAction* action)
{
    if (action == d->m_pRefineSelection)
        return;
    d->m_pRefineSelection = action;
    Q_EMIT RefineSelectionRegistered(action);
}

QAction* KVApplication::GetRefineSelection() const
{
    return d->m_pRefineSelection;
}

KVApplication::ColorManagementMissingPolicy KVApplication::GetColorManagementMissingPolicy()
{
    return ReadPolicy(MissingPolicy, MissingLeaveAsIs);
}

void KVApplication::SetColorManagementMissingPolicy(ColorManagementMissingPolicy policy)
{
    SetUserValue(MissingPolicy, int(policy));
}

KVApplication::ColorManagementEqualPolicy KVApplication::GetColorManagementEqualPolicy()
{
    return ReadPolicy(EqualPolicy, EqualKeepEmbedded);
}

void KVApplication::SetColorManagementEqualPolicy(ColorManagementEqualPolicy policy)
{
    SetUserValue(EqualPolicy, int(policy));
}

KVApplication::ColorManagementNotEqualPolicy KVApplication::GetColorManagementNotEqualPolicy()
{
    return ReadPolicy(NotEqualPolicy, NotEqualKeepEmbedded);
}

void KVApplication::SetColorManagementNotEqualPolicy(ColorManagementNotEqualPolicy policy)
{
    SetUserValue(NotEqualPolicy, int(policy));
}

KVApplication::ColorManagementColorSpaceMismatchPolicy
KVApplication::GetColorManagementColorSpaceMismatchPolicy()
{
    return ReadPolicy(ColorSpaceMismatchPolicy, MismatchKeepEmbedded);
}

void KVApplication::SetColorManagementColorSpaceMismatchPolicy(
    ColorManagementColorSpaceMismatchPolicy policy)
{
    SetUserValue(ColorSpaceMismatchPolicy, int(policy));
}

bool KVApplication::IsPNGCompressionVisible()
{
    return ReadFlag(ShowPNGCompressionSettings);
}

void KVApplication::SetPNGCompressionVisible(bool visible)
{
    SetUserValue(ShowPNGCompressionSettings, visible);
}

bool KVApplication::IsJPGCompressionVisible()
{
    return ReadFlag(ShowJPGCompressionSettings);
}

void KVApplication::SetJPGCompressionVisible(bool visible)
{
    SetUserValue(ShowJPGCompressionSettings, visible);
}

bool KVApplication::IsTIFCompressionVisible()
{
    return ReadFlag(ShowTIFFCompressionSettings);
}

void KVApplication::SetTIFCompressionVisible(bool visible)
{
    SetUserValue(ShowTIFFCompressionSettings, visible);
}

bool KVApplication::WarnAboutLayerInfo()
{
    return GetUserValue(kIncompleteInfoStateKey, true).toBool();
}

void KVApplication::SetWarnAboutLayerInfo(bool warn)
{
    SetUserValue(kIncompleteInfoStateKey, warn);
}

QString KVApplication::GetPathOpen()
{
    return ReadPath(PathOpen);
}

void KVApplication::SetPathOpen(const QString& path)
{
    SetUserValue(PathOpen, path);
}

QString KVApplication::GetPathExport()
{
    return ReadPath(PathExport);
}

void KVApplication::SetPathExport(const QString& path)
{
    SetUserValue(PathExport, path);
}

QString KVApplication::GetBatchPathOpen()
{
    return ReadPath(BatchPathOpen);
}

void KVApplication::SetBatchPathOpen(const QString& path)
{
    SetUserValue(BatchPathOpen, path);
}

QString KVApplication::GetBatchPathInput()
{
    return ReadPath(BatchPathInput);
}

void KVApplication::SetBatchPathInput(const QString& path)
{
    SetUserValue(BatchPathInput, path);
}

QString KVApplication::GetBatchPathOutput()
{
    return ReadPath(BatchPathOutput);
}

void KVApplication::SetBatchPathOutput(const QString& path)
{
    SetUserValue(BatchPathOutput, path);
}

QColor KVApplication::GetBackground()
{
    return Private::GetColor(ColorsBackground, Qt::white);
}

void KVApplication::SetBackground(const QColor& color)
{
    Private::SetColor(ColorsBackground, Qt::white, color, &KVApplication::BackgroundChanged);
}

QColor KVApplication::GetForeground()
{
    return Private::GetColor(ColorsForeground, Qt::black);
}

void KVApplication::SetForeground(const QColor& color)
{
    Private::SetColor(ColorsForeground, Qt::black, color, &KVApplication::ForegroundChanged);
}

QColor KVApplication::GetMaskBackground()
{
    return Private::GetColor(ColorsMaskBackground, Qt::black);
}

void KVApplication::SetMaskBackground(const QColor& color)
{
    Private::SetColor(ColorsMaskBackground, Qt::black, color,
                      &KVApplication::MaskBackgroundChanged);
}

QColor KVApplication::GetMaskForeground()
{
    return Private::GetColor(ColorsMaskForeground, Qt::white);
}

void KVApplication::SetMaskForeground(const QColor& color)
{
    Private::SetColor(ColorsMaskForeground, Qt::white, color,
                      &KVApplication::MaskForegroundChanged);
}

int KVApplication::GetTexturePatternIndex()
{
    return GetUserValue(TexturePatternIndex, 0).toInt();
}

void KVApplication::SetTexturePatternIndex(int index)
{
    Private* d = Private::Instance();
    if (!d || GetTexturePatternIndex() == index)
        return;
    d->SetUserValue(GetName(TexturePatternIndex), index);
    Q_EMIT d->q->TexturePatternChanged(index);
}

int KVApplication::GetProgressTimeout()
{
    return 2000;
}
