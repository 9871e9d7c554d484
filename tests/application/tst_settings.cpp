#include "TestSupport.h"

#include <KVApplication.h>

#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>

using App = KVApplication;

// Settings files, typed accessors and change signals, inside one application
// object whose two settings folders move to a fresh place for every test.
class SettingsTest : public QObject
{
    Q_OBJECT

    QScopedPointer<QTemporaryDir> m_dir;

    QString UserFolder() const { return m_dir->path() + "/user"; }
    QString AppFolder() const { return m_dir->path() + "/app"; }
    QString UserFile() const { return UserFolder() + "/user.ini"; }
    QVariant Stored(const QString& key) const
    {
        return QSettings(UserFile(), QSettings::IniFormat).value(key);
    }

private Q_SLOTS:
    void init()
    {
        m_dir.reset(new QTemporaryDir);
        App::SetUserDataFolder(UserFolder());
        App::SetDataFolder(AppFolder());
    }

    // One accessor per kind of value: its default, then its key and type in user.ini.
    // A setter signals its own real changes only; a colour's alpha counts.
    void typedAccessors()
    {
        QCOMPARE(App::GetUserValue(App::StartupWindowShow, 42).toInt(), 42);
        QSignalSpy background(App::GetInstance(), &App::BackgroundChanged);
        QSignalSpy mask(App::GetInstance(), &App::MaskBackgroundChanged);
        QSignalSpy pattern(App::GetInstance(), &App::TexturePatternChanged);
        App::SetMaskBackground(Qt::black);
        App::SetTexturePatternIndex(0);
        QVERIFY2(!QFile::exists(UserFile()), "neither a read nor an unchanged value writes");
        for (const QColor& colour : {QColor(Qt::red), QColor(Qt::red), QColor(255, 0, 0, 128)})
            App::SetMaskBackground(colour);
        QCOMPARE(mask.count(), 2);
        QCOMPARE(background.count(), 0);
        QCOMPARE(App::GetMaskBackground(), QColor(255, 0, 0, 128));
        for (int index : {3, 3, -2})
            App::SetTexturePatternIndex(index);
        QCOMPARE(pattern.count(), 2);
        QCOMPARE(App::GetTexturePatternIndex(), -2);

        App::SetMaskForeground(QColor(1, 2, 3, 4));
        App::SetColorManagementNotEqualPolicy(App::NotEqualAsk);
        App::SetJPGCompressionVisible(false);
        App::SetWarnAboutLayerInfo(false);
        App::SetBatchPathOutput("/batch/out");
        App::SetUserValue(App::UpdateRemindDate, QDate(2026, 11, 21));

        QCOMPARE(Stored("Colors/Mask/Foreground").value<QColor>(), QColor(1, 2, 3, 4));
        QCOMPARE(Stored("ColorManagement/NotEqualPolicy").toInt(), 3);
        QVERIFY(!Stored("MessagesAndConfirmationsSettings/ShowJPGCompressionSettings").toBool());
        QVERIFY(!Stored("DocumentIO/IncompleteInfoState").toBool());
        QCOMPARE(Stored("Batch/Path/Output").toString(), QString("/batch/out"));
        QCOMPARE(Stored("Update/RemindDate").toDate(), QDate(2026, 11, 21));

        QCOMPARE(App::GetMaskForeground(), QColor(1, 2, 3, 4));
        QCOMPARE(App::GetColorManagementNotEqualPolicy(), App::NotEqualAsk);
        QVERIFY(!App::IsJPGCompressionVisible() && App::IsPNGCompressionVisible());
        QVERIFY(!App::WarnAboutLayerInfo());
        QCOMPARE(App::GetBatchPathOutput(), QString("/batch/out"));
        QCOMPARE(App::GetUserValue(App::UpdateRemindDate).toDate(), QDate(2026, 11, 21));
        QVERIFY(App::GetName(App::UseDataRole(27)).isNull() &&
                App::GetName(App::UseDataRole(-1)).isNull());

        // Only the language code loses what follows its first underscore; a
        // stored value that is no colour reads as an invalid one.
        for (const QString code : {"zh_Hant_TW", "de-AT"}) {
            App::SetUserValue(App::LanguageIndex, code);
            App::SetUserValue("Other/Code", code);
            QCOMPARE(App::GetUserValue("Language/Index").toString(), code.section('_', 0, 0));
            QCOMPARE(App::GetUserValue("Other/Code").toString(), code);
        }
        App::SetUserValue(App::ColorsForeground, "red");
        QCOMPARE(App::GetForeground(), QColor(Qt::red));
        App::SetUserValue(App::ColorsForeground, 2);
        App::SetUserValue(App::EqualPolicy, 2);
        QCOMPARE(App::GetForeground(), QColor());
        QCOMPARE(int(App::GetColorManagementEqualPolicy()), 2);
    }

    // A new user.ini starts with the library's version, an existing one keeps
    // its own; app.ini has none. Moving the user folder to where it is does
    // nothing, not even make it; a new folder is made and starts empty.
    void settingsFiles()
    {
        App::SetPathOpen(QString());
        QFile file(UserFile());
        QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
        const QStringList lines = QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
        const int version = lines.indexOf("Version=2.4.0");
        QVERIFY2(version >= 0 && lines.indexOf("PathOpen=") > version, qPrintable(lines.join('|')));
        QCOMPARE(lines.filter("=").size(), 2);
        QSettings(UserFile(), QSettings::IniFormat).setValue("Version", "1.0.0");
        App::SetPathExport("/exports");
        QCOMPARE(Stored("Version").toString(), QString("1.0.0"));
        QCOMPARE(Stored("Save/PathExport").toString(), QString("/exports"));

        QCOMPARE(App::GetApplicationValue("Window/Width", 5).toInt(), 5);
        App::SetAppicationValue("Window/Width", 800);
        QCOMPARE(QSettings(AppFolder() + "/app.ini", QSettings::IniFormat).allKeys(),
                 QStringList{"Window/Width"});
        QCOMPARE(App::GetApplicationValue("Window/Width", 5).toInt(), 800);

        QVERIFY(QDir(UserFolder()).removeRecursively());
        App::SetUserDataFolder(UserFolder());
        QVERIFY(!QDir(UserFolder()).exists());
        const QString second = m_dir->path() + "/second/nested";
        App::SetUserDataFolder(second);
        QCOMPARE(App::GetUserDataFolder(), second);
        QVERIFY(QDir(second).exists());
        QCOMPARE(App::GetUserValue("Save/PathExport", "missing").toString(), QString("missing"));
    }
};

KV_TEST_APP_MAIN(SettingsTest)
#include "tst_settings.moc"
