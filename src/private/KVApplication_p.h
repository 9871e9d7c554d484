#pragma once

#include "KVApplication.h"
#include "KVPluginLoader_p.h"
#include "KVSettingsFile_p.h"

#include <QBrush>
#include <QMap>
#include <QString>
#include <QStringList>

#include <vector>

class IBrushFactory;

class KVApplication::Private
{
public:
    // Load attempts are recorded as the loader's PluginStatus.
    using PluginStatus = KVPluginLoader::PluginStatus;

    explicit Private(KVApplication* owner);
    ~Private();

    // The Private of the running KVApplication, or null.
    static Private* Instance();

    static void MakeFolderStructure(const QString& path);

    QVariant GetUserValue(const QString& key, const QVariant& defaultValue) const;
    void SetUserValue(const QString& key, const QVariant& value);
    QVariant GetApplicationValue(const QString& key, const QVariant& defaultValue) const;
    void SetApplicationValue(const QString& key, const QVariant& value);

    QString GetDataFolder() const;
    void SetDataFolder(const QString& folder);
    QString GetUserDataFolder() const;
    void SetUserDataFolder(const QString& folder);

    QStringList MakeLangList(const QString& path);
    void MakeLanguageNames();
    bool LoadTranslations(const QString& code);
    void LoadPatterns(const QString& folder);

    // Typed access shared by the public accessors.
    static QColor GetColor(UseDataRole role, const QColor& defaultColor);
    static void SetColor(UseDataRole role, const QColor& defaultColor, const QColor& color,
                         void (KVApplication::*changed)());

    KVApplication* q = nullptr;
    QString m_appSettingsFile;
    QString m_userSettingsFile;
    QString m_resourcePath;
    QStringList m_languages;
    QString m_language;
    QMap<QString, QString> m_languageNames;
    int m_theme = 0;
    KVPluginLoader m_plugins{q, m_pBrushFactory}; // owns the records and their loaders
    QStringList m_patterns;
    QAction* m_pRefineSelection = nullptr;
    // Each settings file checked before QSettings parses it, and kept parsed
    // between accesses; the checks remember their verdicts, even in reads.
    mutable KVSettingsFile m_appSettings;
    mutable KVSettingsFile m_userSettings;

    static IBrushFactory* m_pBrushFactory;
    static QBrush m_gradient;
    static const QString m_ru;
    static const QString m_en;
    static const QString m_de;
    static const QString m_sv;
    static const QString m_fr;
    static const QString m_pt;

private:
    static void MoveSettingsFile(QString& settingsFile, KVSettingsFile& file,
                                 const QString& folder);
};
