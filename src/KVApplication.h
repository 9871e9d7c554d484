#pragma once

#include <QApplication>
#include <QBrush>
#include <QColor>
#include <QStringList>
#include <QVariant>

#include "kvcore_export.h"

#include <vector>

class IBrushFactory;
class QAction;

// The editor's application object: construct it once, in place of a plain
// QApplication, before anything else of the library is used. It knows the
// editor's folders and its two settings files, app.ini (application-wide) and
// user.ini (per user), and gives every part of the editor static, typed access
// to them. Every settings access opens and closes its file.
class KVCORE_EXPORT KVApplication : public QApplication
{
    Q_OBJECT
public:
    // The per-user settings; GetName() gives each one's key in user.ini.
    enum UseDataRole
    {
        Version = 0,
        LanguageIndex,
        ThemePath,
        WorkingProfileID,
        MissingPolicy,
        EqualPolicy,
        NotEqualPolicy,
        ColorSpaceMismatchPolicy,
        ShowPNGCompressionSettings,
        ShowJPGCompressionSettings,
        ShowTIFFCompressionSettings,
        PathOpen,
        PathExport,
        SaveAsSuffix,
        BatchPathOpen,
        BatchPathInput,
        BatchPathOutput,
        ColorsBackground,
        ColorsForeground,
        ColorsMaskBackground,
        ColorsMaskForeground,
        StartupWindowShow,
        CheckForUpdate,
        UpdateRemind,
        UpdateRemindDate,
        TexturePatternIndex,
        ApplicationTemporaryPath,
    };

    // What to do with an opened image that carries no colour profile.
    enum ColorManagementMissingPolicy
    {
        MissingLeaveAsIs = 0,
        MissingAssignWorking = 1,
        MissingAsk = 2,
    };
    // What to do when the embedded profile equals the working profile.
    enum ColorManagementEqualPolicy
    {
        EqualDiscardEmbedded = 0,
        EqualKeepEmbedded = 1,
    };
    // What to do when the embedded profile differs from the working profile.
    enum ColorManagementNotEqualPolicy
    {
        NotEqualKeepEmbedded = 0,
        NotEqualConvertToWorking = 1,
        NotEqualDiscardEmbedded = 2,
        NotEqualAsk = 3,
    };
    // What to do when the embedded profile is for another colour space.
    enum ColorManagementColorSpaceMismatchPolicy
    {
        MismatchKeepEmbedded = 0,
        MismatchDiscardEmbedded = 1,
        MismatchAsk = 2,
    };

    // Plug-in families, by the base names of their files.
    enum PluginsLoadType
    {
        AdjustmentsPlugins = 0x01, // libadjustments
        FiltersPlugins = 0x02,     // libfilter
        ImageIOPlugins = 0x04,     // libimageio
        BrushesPlugins = 0x08,     // every plug-in of the brush folder
        ToolsPlugins = 0x10,       // libbasictools and libgeneraltools
    };
    Q_DECLARE_FLAGS(PluginsLoadTypes, PluginsLoadType)

    // The visual themes; 0 before any theme was loaded.
    enum ThemeType
    {
        Dark = 1,
        Light = 2,
    };

    KVApplication(int& argc, char** argv);
    ~KVApplication() override;

    // The running application object, or null when there is none or it is
    // not a KVApplication.
    static KVApplication* GetInstance();

    // Any key of user.ini, or defaultValue when it is missing. "Language/Index"
    // reads back without its region part (pt_BR reads as pt).
    static QVariant GetUserValue(const QString& key, const QVariant& defaultValue = QVariant());
    static QVariant GetUserValue(UseDataRole role, const QVariant& defaultValue = QVariant());
    // Writes a key of user.ini. A user.ini made by this call starts with
    // "Version" = "2.4.0".
    static void SetUserValue(const QString& key, const QVariant& value);
    static void SetUserValue(UseDataRole role, const QVariant& value);
    // Any key of app.ini, or defaultValue when it is missing.
    static QVariant GetApplicationValue(const QString& key,
                                        const QVariant& defaultValue = QVariant());
    // Writes a key of app.ini, making its folder when needed.
    static void SetAppicationValue(const QString& key, const QVariant& value);

    // The key of a role in user.ini; empty for a value that is no role.
    static QString GetName(UseDataRole role);

    // The folder of app.ini. SetDataFolder() moves app.ini into another folder
    // (making it); values written before stay in the old file.
    static QString GetDataFolder();
    static void SetDataFolder(const QString& folder);
    // The folder of user.ini, and moving it, as for app.ini.
    static QString GetUserDataFolder();
    static void SetUserDataFolder(const QString& folder);
    // The bundle's resource folder (../Resources from the executable's folder),
    // or the executable's folder when there is none.
    static QString GetResourcePath();
    // Asks the plug-ins to save what they hold: emits FlushPluginData().
    static void FlushData();

    // Languages: one "<code>.lproj" folder of ".qm" files per language in the
    // resource folder, for the codes en, de, ru, sv, fr and pt.

    // Language codes whose translation folder exists, in the order en, de, ru, sv, fr, pt.
    QStringList GetLanguages();
    // The language loaded last; empty before the first.
    QString GetLanguage() const;
    // Installs every loadable ".qm" of the language's folder on top of the
    // translations installed before (none is ever removed). False when the
    // folder is missing or holds nothing loadable.
    bool LoadLanguage(const QString& code);
    // The display name of a known language, in the language loaded at that
    // time; empty before any language was loaded.
    static QString GetLanguageName(const QString& code);
    // "en".
    static QString GetDefaultLanguage();

    // Themes: a resource root (":/Dark", ":/Light") holding "pixel.qss".

    // Applies the stored theme's style sheet to the application. Within one
    // process the theme found first keeps its style sheet; a changed choice
    // takes full effect at the next start.
    bool LoadTheme();
    // The theme loaded last, 0 before the first.
    ThemeType GetTheme() const;
    // The stored choice: Dark for ":/Dark", Light for anything else.
    static ThemeType GetApplicationTheme();
    // Stores the choice without applying it; call LoadTheme() for that.
    static void SetApplicationTheme(ThemeType type);
    // The resource root of a theme; empty for a value that is no theme.
    static QString GetName(ThemeType type);

    // Texture patterns: image files ("*.jpg", "*.png", "*.bmp", any case)
    // gathered from folders; each call appends what the folder holds.
    void LoadPatterns(const QString& folder);
    // The pattern's absolute path; empty outside the list.
    static QString GetPatternFile(int index);
    static int GetPatternCount();

    // The current gradient that gradient tools share; not saved.
    static void SetGradient(const QBrush& gradient);
    static QBrush GetGradient();
    // The action that opens the refine-selection tool; registering another
    // one emits RefineSelectionRegistered().
    void RegisterRefineSelectionAction(QAction* action);
    QAction* GetRefineSelection() const;

    // Typed per-user settings with their defaults.
    static ColorManagementMissingPolicy GetColorManagementMissingPolicy();
    static void SetColorManagementMissingPolicy(ColorManagementMissingPolicy policy);
    static ColorManagementEqualPolicy GetColorManagementEqualPolicy();
    static void SetColorManagementEqualPolicy(ColorManagementEqualPolicy policy);
    static ColorManagementNotEqualPolicy GetColorManagementNotEqualPolicy();
    static void SetColorManagementNotEqualPolicy(ColorManagementNotEqualPolicy policy);
    static ColorManagementColorSpaceMismatchPolicy GetColorManagementColorSpaceMismatchPolicy();
    static void
    SetColorManagementColorSpaceMismatchPolicy(ColorManagementColorSpaceMismatchPolicy policy);

    static bool IsPNGCompressionVisible();
    static void SetPNGCompressionVisible(bool visible);
    static bool IsJPGCompressionVisible();
    static void SetJPGCompressionVisible(bool visible);
    static bool IsTIFCompressionVisible();
    static void SetTIFCompressionVisible(bool visible);

    // Whether to warn that a document's layer information will be incomplete.
    static bool WarnAboutLayerInfo();
    static void SetWarnAboutLayerInfo(bool warn);

    static QString GetPathOpen();
    static void SetPathOpen(const QString& path);
    static QString GetPathExport();
    static void SetPathExport(const QString& path);
    static QString GetBatchPathOpen();
    static void SetBatchPathOpen(const QString& path);
    static QString GetBatchPathInput();
    static void SetBatchPathInput(const QString& path);
    static QString GetBatchPathOutput();
    static void SetBatchPathOutput(const QString& path);

    // Colours; each setter emits its signal when the colour really changes.
    static QColor GetBackground();
    static void SetBackground(const QColor& color);
    static QColor GetForeground();
    static void SetForeground(const QColor& color);
    static QColor GetMaskBackground();
    static void SetMaskBackground(const QColor& color);
    static QColor GetMaskForeground();
    static void SetMaskForeground(const QColor& color);

    // The chosen texture pattern; the setter emits TexturePatternChanged() on a change.
    static int GetTexturePatternIndex();
    static void SetTexturePatternIndex(int index);

    // The delay before a progress display appears, in milliseconds.
    static int GetProgressTimeout();

    // Plug-ins: the folders named by "brush" and "general" in the resource
    // folder's plugins.ini (relative to the executable's folder) hold plug-in
    // files with the suffix "dylib". Every load attempt leaves a record; the
    // loading signals report each file, with events processed around it.

    // Loads the brush folder, then every plug-in of the general folder, and
    // emits PluginsLoadingFinished(). Nothing loads without a general folder.
    void LoadPlugins();
    // The same for the chosen families only.
    void LoadPlugins(QFlags<PluginsLoadType> types);
    // Loads the given files in order (no PluginsLoadingFinished()).
    void LoadPlugins(const QStringList& files);
    void LoadPlugin(const QString& file);
    // The canonical paths where a family's versioned files are expected
    // (libimageio.2.dylib); an empty string for a file that does not exist,
    // an empty list for a combination of families.
    QStringList PluginFileName(PluginsLoadType type);
    // The brush factory of the plug-in with the UID
    // {00000000-0000-0000-0000-000000000002}, or null.
    static IBrushFactory* GetBrushFactory();

    // Releases and unloads every loaded container in reverse load order,
    // unregistering its image-file plug-ins first. The last plug-in call of a run.
    void UnloadPlugins();
    // Releases and unloads the containers loaded from these paths and drops
    // their records (failed ones too).
    void UnloadPlugins(const QStringList& files);
    void UnloadPlugin(const QString& file);
    // The files whose load failed, in the order they were tried.
    std::vector<QString> GetErrorPlugins();
    // "Plugin OK.", the error of the file's first record, or "Errors not found".
    QString GetErrorInfo(const QString& file);
    // Tells every loaded container that the main window stands.
    void UIReady();

Q_SIGNALS:
    void BackgroundChanged();
    void ForegroundChanged();
    void MaskBackgroundChanged();
    void MaskForegroundChanged();
    void TexturePatternChanged(int index);
    void PluginLoading(const QString& fileName);
    void PluginLoaded(const QString& fileName);
    void PluginLoadingError(const QString& fileName, const QString& error);
    void PluginsLoadingFinished();
    void RefineSelectionRegistered(QAction* pAction);
    void FlushPluginData();

private:
    class Private;
    Private* d = nullptr;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(KVApplication::PluginsLoadTypes)
