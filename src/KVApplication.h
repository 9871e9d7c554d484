#pragma once

#include <QApplication>
#include <QBrush>
#include <QColor>
#include <QStringList>
#include <QVariant>

#include "kvcore_export.h"

#include <memory>
#include <vector>

class IBrushFactory;
class KVPlugin;
class QAction;

/// The editor's application object: construct it once, in place of a plain
/// QApplication, before anything else of the library is used. It knows the
/// editor's folders and its two settings files, app.ini (application-wide) and
/// user.ini (per user), and gives every part of the editor static, typed access
/// to them. Every settings access opens and closes its file.
///
/// Static operations work on the running application object and answer their
/// default (or an empty string, or do nothing) while there is none. Everything
/// here belongs to the main thread.
class KVCORE_EXPORT KVApplication : public QApplication
{
    Q_OBJECT
public:
    /// The per-user settings; GetName() gives each one's key in user.ini.
    enum UseDataRole
    {
        /// "Version": the settings format, "2.4.0" in a new file.
        Version = 0,
        /// "Language/Index": the chosen language code.
        LanguageIndex,
        /// "Theme/Path": the chosen theme's resource root.
        ThemePath,
        /// "ColorManagement/WorkingProfileID".
        WorkingProfileID,
        /// "ColorManagement/MissingPolicy".
        MissingPolicy,
        /// "ColorManagement/EqualPolicy".
        EqualPolicy,
        /// "ColorManagement/NotEqualPolicy".
        NotEqualPolicy,
        /// "ColorManagement/ColorSpaceMismatchPolicy".
        ColorSpaceMismatchPolicy,
        /// "MessagesAndConfirmationsSettings/ShowPNGCompressionSettings".
        ShowPNGCompressionSettings,
        /// "MessagesAndConfirmationsSettings/ShowJPGCompressionSettings".
        ShowJPGCompressionSettings,
        /// "MessagesAndConfirmationsSettings/ShowTIFFCompressionSettings".
        ShowTIFFCompressionSettings,
        /// "Save/PathOpen": the folder of the open dialog.
        PathOpen,
        /// "Save/PathExport": the folder of the export dialog.
        PathExport,
        /// "SaveAs/Suffix"; the host's, by role only.
        SaveAsSuffix,
        /// "Batch/Path/Open".
        BatchPathOpen,
        /// "Batch/Path/Input".
        BatchPathInput,
        /// "Batch/Path/Output".
        BatchPathOutput,
        /// "Colors/Background".
        ColorsBackground,
        /// "Colors/Foreground".
        ColorsForeground,
        /// "Colors/Mask/Background".
        ColorsMaskBackground,
        /// "Colors/Mask/Foreground".
        ColorsMaskForeground,
        /// "StartupWindow/Show"; the host's, by role only.
        StartupWindowShow,
        /// "Miscellaneous/CheckForUpdate"; the host's, by role only.
        CheckForUpdate,
        /// "Update/Remind"; the host's, by role only.
        UpdateRemind,
        /// "Update/RemindDate"; the host's, by role only.
        UpdateRemindDate,
        /// "TexturePatternIndex": the chosen pattern.
        TexturePatternIndex,
        /// "ApplicationTemporaryPath"; the host's, by role only.
        ApplicationTemporaryPath,
    };

    /// What to do with an opened image that carries no colour profile.
    enum ColorManagementMissingPolicy
    {
        MissingLeaveAsIs = 0,     ///< Leave the image without a profile (the default).
        MissingAssignWorking = 1, ///< Assign the working profile.
        MissingAsk = 2,           ///< Ask the user.
    };
    /// What to do when the embedded profile equals the working profile.
    enum ColorManagementEqualPolicy
    {
        EqualDiscardEmbedded = 0, ///< Drop the embedded profile.
        EqualKeepEmbedded = 1,    ///< Keep the embedded profile (the default).
    };
    /// What to do when the embedded profile differs from the working profile.
    enum ColorManagementNotEqualPolicy
    {
        NotEqualKeepEmbedded = 0,     ///< Keep the embedded profile (the default).
        NotEqualConvertToWorking = 1, ///< Convert the image to the working profile.
        NotEqualDiscardEmbedded = 2,  ///< Drop the embedded profile.
        NotEqualAsk = 3,              ///< Ask the user.
    };
    /// What to do when the embedded profile is for another colour space.
    enum ColorManagementColorSpaceMismatchPolicy
    {
        MismatchKeepEmbedded = 0,    ///< Keep the embedded profile (the default).
        MismatchDiscardEmbedded = 1, ///< Drop the embedded profile.
        MismatchAsk = 2,             ///< Ask the user.
    };

    /// Plug-in families, by the base names of their files.
    enum PluginsLoadType
    {
        AdjustmentsPlugins = 0x01, ///< libadjustments
        FiltersPlugins = 0x02,     ///< libfilter
        ImageIOPlugins = 0x04,     ///< libimageio
        BrushesPlugins = 0x08,     ///< every plug-in of the brush folder
        ToolsPlugins = 0x10,       ///< libbasictools and libgeneraltools
    };
    /// A combination of plug-in families, for LoadPlugins().
    Q_DECLARE_FLAGS(PluginsLoadTypes, PluginsLoadType)

    /// A plug-in folder, or a file in one, as a scan of LoadPlugins() sees it.
    struct PluginScanEntry
    {
        /// The absolute path; a missing folder as plugins.ini names it.
        QString path;
        /// Whether this is a folder (each scanned folder comes before its files).
        bool isFolder = false;
        /// A file: the scan loads it. A folder: it exists.
        bool taken = false;
        /// Why a file is not taken, or that a folder is missing; empty otherwise.
        QString reason;
        /// The plugins.ini key of the folder: "brush" or "general".
        QString folderKey;
    };

    /// One attempt to load a plug-in file, and what the file contributed; see
    /// GetPluginRecords().
    struct PluginRecord
    {
        /// How the attempt ended.
        enum Status
        {
            NotLoaded = 1,   ///< The attempt did not come to an end.
            LoadError = 2,   ///< The library did not load, or its container was refused.
            Loaded = 3,      ///< The container was loaded (and stays so until unloaded).
            MissingFile = 7, ///< The path did not exist.
        };

        /// The path as it was asked for.
        QString fileName;
        /// How the attempt ended.
        Status status = NotLoaded;
        /// "Plugin OK." or why the file did not load, as GetErrorInfo() answers.
        QString errorInfo;
        /// The milliseconds the attempt took.
        qint32 loadingTime = 0;
        /// The container's plug-in objects (IPluginContainer::GetPlugins()) while
        /// it is loaded; empty before, after unloading and for a failed attempt.
        QList<KVPlugin*> plugins;
        /// The identifiers that KVAdjustmentManager gained while the file loaded:
        /// the adjustments its container registered itself, in registration order.
        QStringList adjustments;
        /// The UIDs that KVBrushToolManager gained while the file loaded.
        QStringList brushes;
    };

    /// The visual themes; 0 before any theme was loaded.
    enum ThemeType
    {
        Dark = 1,  ///< The resource root ":/Dark" (the default).
        Light = 2, ///< The resource root ":/Light".
    };

    /// Sets the application up: the export preset lists, the paths of app.ini
    /// and user.ini (making the user folder), the resource folder and the
    /// languages found there. Loads no language, theme, pattern or plug-in.
    KVApplication(int& argc, char** argv);
    /// Releases the export preset lists; writes no setting and unloads no plug-in.
    ~KVApplication() override;

    /// The running application object, or null when there is none or it is
    /// not a KVApplication.
    static KVApplication* GetInstance();

    /// \name Settings files
    ///@{

    /// Any key of user.ini, or defaultValue when it is missing. "Language/Index"
    /// reads back without its region part (pt_BR reads as pt).
    static QVariant GetUserValue(const QString& key, const QVariant& defaultValue = QVariant());
    /// The key of a role in user.ini, or defaultValue when it is missing.
    static QVariant GetUserValue(UseDataRole role, const QVariant& defaultValue = QVariant());
    /// Writes a key of user.ini. A user.ini made by this call starts with
    /// "Version" = "2.4.0".
    static void SetUserValue(const QString& key, const QVariant& value);
    /// Writes the key of a role in user.ini.
    static void SetUserValue(UseDataRole role, const QVariant& value);
    /// Any key of app.ini, or defaultValue when it is missing.
    static QVariant GetApplicationValue(const QString& key,
                                        const QVariant& defaultValue = QVariant());
    /// Writes a key of app.ini, making its folder when needed.
    static void SetAppicationValue(const QString& key, const QVariant& value);

    /// The key of a role in user.ini; empty for a value that is no role.
    static QString GetName(UseDataRole role);

    /// The folder of app.ini.
    static QString GetDataFolder();
    /// Moves app.ini into another folder (making it); values written before
    /// stay in the old file. The current folder again does nothing.
    static void SetDataFolder(const QString& folder);
    /// The folder of user.ini.
    static QString GetUserDataFolder();
    /// Moves user.ini into another folder, as SetDataFolder() moves app.ini.
    static void SetUserDataFolder(const QString& folder);
    /// The bundle's resource folder (../Resources from the executable's folder),
    /// or the executable's folder when there is none.
    static QString GetResourcePath();
    /// Asks the plug-ins to save what they hold: emits FlushPluginData().
    static void FlushData();

    ///@}

    /// \name Languages
    /// One folder of ".qm" files per language in the resource folder, named
    /// after its code and ".lproj" ("de.lproj"), for the codes en, de, ru, sv,
    /// fr and pt.
    ///@{

    /// Language codes whose translation folder exists, in the order en, de, ru, sv, fr, pt.
    QStringList GetLanguages();
    /// The language loaded last; empty before the first.
    QString GetLanguage() const;
    /// Installs every loadable ".qm" of the language's folder on top of the
    /// translations installed before (none is ever removed). False when the
    /// folder is missing or holds nothing loadable.
    bool LoadLanguage(const QString& code);
    /// The display name of a known language, in the language loaded at that
    /// time; empty before any language was loaded.
    static QString GetLanguageName(const QString& code);
    /// "en".
    static QString GetDefaultLanguage();

    ///@}

    /// \name Themes
    /// A theme is a resource root (":/Dark", ":/Light") holding "pixel.qss".
    ///@{

    /// Applies the stored theme's style sheet to the application. Within one
    /// process the theme found first keeps its style sheet; a changed choice
    /// takes full effect at the next start.
    bool LoadTheme();
    /// The theme loaded last, 0 before the first.
    ThemeType GetTheme() const;
    /// The stored choice: Dark for ":/Dark", Light for anything else.
    static ThemeType GetApplicationTheme();
    /// Stores the choice without applying it; call LoadTheme() for that.
    static void SetApplicationTheme(ThemeType type);
    /// The resource root of a theme; empty for a value that is no theme.
    static QString GetName(ThemeType type);

    ///@}

    /// \name Patterns and shared slots
    ///@{

    /// Texture patterns: image files ("*.jpg", "*.png", "*.bmp", any case)
    /// gathered from folders; each call appends what the folder holds.
    void LoadPatterns(const QString& folder);
    /// The pattern's absolute path; empty outside the list.
    static QString GetPatternFile(int index);
    /// The number of patterns gathered; 0 without the application object.
    static int GetPatternCount();

    /// Sets the current gradient that gradient tools share; not saved, no signal.
    static void SetGradient(const QBrush& gradient);
    /// The current gradient; a default brush until one is set.
    static QBrush GetGradient();
    /// The action that opens the refine-selection tool; registering another
    /// one emits RefineSelectionRegistered().
    void RegisterRefineSelectionAction(QAction* action);
    /// The action registered last, or null.
    QAction* GetRefineSelection() const;

    ///@}

    /// \name Typed settings
    /// Per-user settings with their defaults, each read from or written to
    /// user.ini at the call. Setters without a signal write unconditionally.
    ///@{

    /// Default MissingLeaveAsIs.
    static ColorManagementMissingPolicy GetColorManagementMissingPolicy();
    /// Stores the policy as its int value.
    static void SetColorManagementMissingPolicy(ColorManagementMissingPolicy policy);
    /// Default EqualKeepEmbedded.
    static ColorManagementEqualPolicy GetColorManagementEqualPolicy();
    /// Stores the policy as its int value.
    static void SetColorManagementEqualPolicy(ColorManagementEqualPolicy policy);
    /// Default NotEqualKeepEmbedded.
    static ColorManagementNotEqualPolicy GetColorManagementNotEqualPolicy();
    /// Stores the policy as its int value.
    static void SetColorManagementNotEqualPolicy(ColorManagementNotEqualPolicy policy);
    /// Default MismatchKeepEmbedded.
    static ColorManagementColorSpaceMismatchPolicy GetColorManagementColorSpaceMismatchPolicy();
    /// Stores the policy as its int value.
    static void
    SetColorManagementColorSpaceMismatchPolicy(ColorManagementColorSpaceMismatchPolicy policy);

    /// Whether the PNG compression settings are shown before saving; default true.
    static bool IsPNGCompressionVisible();
    /// Stores whether the PNG compression settings are shown.
    static void SetPNGCompressionVisible(bool visible);
    /// Whether the JPEG compression settings are shown before saving; default true.
    static bool IsJPGCompressionVisible();
    /// Stores whether the JPEG compression settings are shown.
    static void SetJPGCompressionVisible(bool visible);
    /// Whether the TIFF compression settings are shown before saving; default true.
    static bool IsTIFCompressionVisible();
    /// Stores whether the TIFF compression settings are shown.
    static void SetTIFCompressionVisible(bool visible);

    /// Whether to warn that a document's layer information will be incomplete
    /// ("DocumentIO/IncompleteInfoState", default true).
    static bool WarnAboutLayerInfo();
    /// Stores whether to warn about incomplete layer information.
    static void SetWarnAboutLayerInfo(bool warn);

    /// The folder the open dialog starts in; empty by default.
    static QString GetPathOpen();
    /// Stores the open dialog's folder as given, without checking it.
    static void SetPathOpen(const QString& path);
    /// The folder the export dialog starts in; empty by default.
    static QString GetPathExport();
    /// Stores the export dialog's folder as given, without checking it.
    static void SetPathExport(const QString& path);
    /// The folder a batch's open dialog starts in; empty by default.
    static QString GetBatchPathOpen();
    /// Stores the batch's open folder as given, without checking it.
    static void SetBatchPathOpen(const QString& path);
    /// The folder a batch reads its images from; empty by default.
    static QString GetBatchPathInput();
    /// Stores the batch's input folder as given, without checking it.
    static void SetBatchPathInput(const QString& path);
    /// The folder a batch writes its results into; empty by default.
    static QString GetBatchPathOutput();
    /// Stores the batch's output folder as given, without checking it.
    static void SetBatchPathOutput(const QString& path);

    /// The background colour; white by default, an invalid colour when the
    /// stored value is no colour.
    static QColor GetBackground();
    /// Stores the background colour; emits BackgroundChanged() when it really changes.
    static void SetBackground(const QColor& color);
    /// The foreground colour; black by default.
    static QColor GetForeground();
    /// Stores the foreground colour; emits ForegroundChanged() when it really changes.
    static void SetForeground(const QColor& color);
    /// The mask background colour; black by default.
    static QColor GetMaskBackground();
    /// Stores the mask background colour; emits MaskBackgroundChanged() on a change.
    static void SetMaskBackground(const QColor& color);
    /// The mask foreground colour; white by default.
    static QColor GetMaskForeground();
    /// Stores the mask foreground colour; emits MaskForegroundChanged() on a change.
    static void SetMaskForeground(const QColor& color);

    /// The index of the chosen texture pattern; 0 by default.
    static int GetTexturePatternIndex();
    /// Stores the chosen pattern; emits TexturePatternChanged() on a change.
    static void SetTexturePatternIndex(int index);

    /// The delay before a progress display appears, in milliseconds.
    static int GetProgressTimeout();

    ///@}

    /// \name Plug-ins
    /// The folders named by "brush" and "general" in the resource folder's
    /// plugins.ini (relative to the executable's folder) hold plug-in files
    /// with the suffix "dylib". Every load attempt leaves a record; the loading
    /// signals report each file, with events processed around it.
    ///@{

    /// Loads the brush folder, then every plug-in of the general folder, and
    /// emits PluginsLoadingFinished(). Nothing loads without a general folder.
    void LoadPlugins();
    /// The same for the chosen families only.
    void LoadPlugins(QFlags<PluginsLoadType> types);
    /// Loads the given files in order (no PluginsLoadingFinished()).
    void LoadPlugins(const QStringList& files);
    /// Loads one file, as LoadPlugins(const QStringList&) does; a file loaded
    /// before gets a second record.
    void LoadPlugin(const QString& file);
    /// How LoadPlugins() would treat each file of the plug-in folders, and
    /// why it leaves a file out; nothing is loaded. The brush folder first.
    static std::vector<PluginScanEntry> ExplainPluginScan();
    /// The same for LoadPlugins(types).
    static std::vector<PluginScanEntry> ExplainPluginScan(PluginsLoadTypes types);
    /// The canonical paths where a family's versioned files are expected
    /// (libimageio.2.dylib); an empty string for a file that does not exist,
    /// an empty list for a combination of families.
    QStringList PluginFileName(PluginsLoadType type);
    /// The brush factory of the plug-in with the UID
    /// {00000000-0000-0000-0000-000000000002}, or null.
    static IBrushFactory* GetBrushFactory();

    /// Releases and unloads every loaded container in reverse load order,
    /// unregistering its image-file plug-ins first. The last plug-in call of a run.
    void UnloadPlugins();
    /// Releases and unloads the containers loaded from these paths and drops
    /// their records (failed ones too).
    void UnloadPlugins(const QStringList& files);
    /// Unloads one file, as UnloadPlugins(const QStringList&) does.
    void UnloadPlugin(const QString& file);
    /// The files whose load failed, in the order they were tried.
    std::vector<QString> GetErrorPlugins();
    /// "Plugin OK.", the error of the file's first record, or "Errors not found".
    QString GetErrorInfo(const QString& file);
    /// Every load attempt still recorded, in order (UnloadPlugins(files) drops
    /// records, UnloadPlugins() keeps them): the records that GetErrorPlugins()
    /// and GetErrorInfo() read, with what each loaded file contributed.
    std::vector<PluginRecord> GetPluginRecords() const;
    /// Tells every loaded container that the main window stands.
    void UIReady();

    ///@}

Q_SIGNALS:
    /// SetBackground() changed the background colour.
    void BackgroundChanged();
    /// SetForeground() changed the foreground colour.
    void ForegroundChanged();
    /// SetMaskBackground() changed the mask background colour.
    void MaskBackgroundChanged();
    /// SetMaskForeground() changed the mask foreground colour.
    void MaskForegroundChanged();
    /// SetTexturePatternIndex() chose another pattern, at index.
    void TexturePatternChanged(int index);
    /// The loader is about to load the file; events are processed next.
    void PluginLoading(const QString& fileName);
    /// The file loaded; its record says "Plugin OK.".
    void PluginLoaded(const QString& fileName);
    /// The file did not load; error is its record's text.
    void PluginLoadingError(const QString& fileName, const QString& error);
    /// LoadPlugins() or LoadPlugins(types) tried every file it found; not
    /// emitted when the general folder is missing.
    void PluginsLoadingFinished();
    /// RegisterRefineSelectionAction() stored another action (or null).
    void RefineSelectionRegistered(QAction* pAction);
    /// FlushData() was called: plug-ins save what they hold.
    void FlushPluginData();

private:
    class Private;
    std::unique_ptr<Private> d;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(KVApplication::PluginsLoadTypes)
