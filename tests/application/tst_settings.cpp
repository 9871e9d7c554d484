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

    void freshUserFileGivesDefaults()
    {
        QCOMPARE(App::GetBackground(), QColor(Qt::white));
        QCOMPARE(App::GetForeground(), QColor(Qt::black));
        QCOMPARE(App::GetMaskBackground(), QColor(Qt::black));
        QCOMPARE(App::GetMaskForeground(), QColor(Qt::white));
        QCOMPARE(App::GetColorManagementMissingPolicy(), App::ColorManagementMissingPolicy(0));
        QCOMPARE(App::GetColorManagementEqualPolicy(), App::ColorManagementEqualPolicy(1));
        QCOMPARE(App::GetColorManagementNotEqualPolicy(), App::ColorManagementNotEqualPolicy(0));
        QCOMPARE(App::GetColorManagementColorSpaceMismatchPolicy(),
                 App::ColorManagementColorSpaceMismatchPolicy(0));
        QVERIFY(App::IsPNGCompressionVisible() && App::IsJPGCompressionVisible() &&
                App::IsTIFCompressionVisible() && App::WarnAboutLayerInfo());
        for (const auto path : {&App::GetPathOpen, &App::GetPathExport, &App::GetBatchPathOpen,
                                &App::GetBatchPathInput, &App::GetBatchPathOutput})
            QCOMPARE(path(), QString());
        QCOMPARE(App::GetTexturePatternIndex(), 0);
        QCOMPARE(App::GetProgressTimeout(), 2000);
        QVERIFY2(!QFile::exists(UserFile()), "a read must not create user.ini");
    }

    void roleNames_data()
    {
        QTest::addColumn<int>("role");
        QTest::addColumn<QString>("key");
        QTest::newRow("first") << int(App::Version) << "Version";
        QTest::newRow("by role only") << int(App::UpdateRemindDate) << "Update/RemindDate";
        QTest::newRow("last") << int(App::ApplicationTemporaryPath) << "ApplicationTemporaryPath";
        QTest::newRow("past the last") << 27 << QString();
        QTest::newRow("negative") << -1 << QString();
    }
    void roleNames()
    {
        QFETCH(int, role);
        QFETCH(QString, key);
        QCOMPARE(App::GetName(App::UseDataRole(role)), key);
    }

    // The typed setters and the by-role access write through their role's key.
    void typedAccessorsRoundTrip()
    {
        App::SetColorManagementNotEqualPolicy(App::NotEqualAsk);
        App::SetJPGCompressionVisible(false);
        App::SetWarnAboutLayerInfo(false);
        App::SetBatchPathOutput("/batch/out");
        App::SetMaskForeground(QColor(1, 2, 3, 4));
        App::SetUserValue(App::UpdateRemindDate, QDate(2026, 11, 21));

        QCOMPARE(Stored("ColorManagement/NotEqualPolicy").toInt(), 3);
        QVERIFY(!Stored("MessagesAndConfirmationsSettings/ShowJPGCompressionSettings").toBool());
        QVERIFY(!Stored("DocumentIO/IncompleteInfoState").toBool());
        QCOMPARE(Stored("Batch/Path/Output").toString(), QString("/batch/out"));
        QCOMPARE(Stored("Colors/Mask/Foreground").value<QColor>(), QColor(1, 2, 3, 4));
        QCOMPARE(Stored("Update/RemindDate").toDate(), QDate(2026, 11, 21));

        QCOMPARE(App::GetColorManagementNotEqualPolicy(), App::NotEqualAsk);
        QVERIFY(!App::IsJPGCompressionVisible() && App::IsPNGCompressionVisible());
        QVERIFY(!App::WarnAboutLayerInfo());
        QCOMPARE(App::GetBatchPathOutput(), QString("/batch/out"));
        QCOMPARE(App::GetMaskForeground(), QColor(1, 2, 3, 4));
        QCOMPARE(App::GetUserValue(App::UpdateRemindDate).toDate(), QDate(2026, 11, 21));
        QCOMPARE(App::GetUserValue(App::StartupWindowShow, 42).toInt(), 42);
    }

    // A new user.ini starts with the library's version; an existing one keeps its own.
    void userFileVersion()
    {
        QVERIFY(QDir(UserFolder()).removeRecursively());
        App::SetPathOpen(QString());
        QFile file(UserFile());
        QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
        const QStringList lines = QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
        const int version = lines.indexOf("Version=2.4.0");
        QVERIFY2(version >= 0 && lines.indexOf("PathOpen=") > version, qPrintable(lines.join('|')));
        QCOMPARE(lines.filter("=").size(), 2);
        QVERIFY(Stored("Save/PathOpen").isValid());

        QSettings(UserFile(), QSettings::IniFormat).setValue("Version", "1.0.0");
        App::SetPathExport("/exports");
        QCOMPARE(Stored("Version").toString(), QString("1.0.0"));
        QCOMPARE(Stored("Save/PathExport").toString(), QString("/exports"));
    }

    void applicationFileHasNoVersion()
    {
        QVERIFY(QDir(AppFolder()).removeRecursively());
        QCOMPARE(App::GetApplicationValue("Window/Width", 5).toInt(), 5);
        QVERIFY(!QFile::exists(AppFolder() + "/app.ini"));
        App::SetAppicationValue("Window/Width", 800);
        QCOMPARE(QSettings(AppFolder() + "/app.ini", QSettings::IniFormat).allKeys(),
                 QStringList{"Window/Width"});
        QCOMPARE(App::GetApplicationValue("Window/Width", 5).toInt(), 800);
        QVERIFY(!QFile::exists(UserFile()));
    }

    void languageIndexDropsTheRegion_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("read");
        const char* const rows[][3] = {{"region", "pt_BR", "pt"},
                                       {"plain", "en", "en"},
                                       {"script and region", "zh_Hant_TW", "zh"},
                                       {"only a suffix", "_US", ""},
                                       {"hyphen stays", "de-AT", "de-AT"}};
        for (const auto& row : rows)
            QTest::newRow(row[0]) << QString(row[1]) << QString(row[2]);
    }
    void languageIndexDropsTheRegion()
    {
        QFETCH(QString, stored);
        QFETCH(QString, read);
        App::SetUserValue(App::LanguageIndex, stored);
        App::SetUserValue("Other/Code", stored);
        QCOMPARE(App::GetUserValue("Language/Index").toString(), read);
        QCOMPARE(App::GetUserValue(App::LanguageIndex, "fr").toString(), read);
        QCOMPARE(App::GetUserValue("Other/Code").toString(), stored);
    }

    void settingsFoldersMove_data()
    {
        QTest::addColumn<bool>("userFile");
        QTest::newRow("app.ini") << false;
        QTest::newRow("user.ini") << true;
    }
    void settingsFoldersMove()
    {
        QFETCH(bool, userFile);
        const auto folder = userFile ? &App::GetUserDataFolder : &App::GetDataFolder;
        const auto move = userFile ? &App::SetUserDataFolder : &App::SetDataFolder;
        const auto write = [userFile](const QVariant& value) {
            userFile ? App::SetUserValue("Moved/Key", value)
                     : App::SetAppicationValue("Moved/Key", value);
        };
        const auto read = [userFile] {
            return (userFile ? App::GetUserValue("Moved/Key", "missing")
                             : App::GetApplicationValue("Moved/Key", "missing"))
                .toString();
        };
        const QString first = folder();
        write("old");

        // Moving to the current folder does nothing, not even make the folder.
        QVERIFY(QDir(first).removeRecursively());
        move(first);
        QCOMPARE(folder(), first);
        QVERIFY(!QDir(first).exists());

        const QString second = m_dir->path() + "/second/nested";
        move(second);
        QCOMPARE(folder(), second);
        QVERIFY(QDir(second).exists());
        QCOMPARE(read(), QString("missing"));
        write("new");
        QCOMPARE(read(), QString("new"));
    }

    // Each setter signals its own real changes only; a colour's alpha counts.
    void settersSignalRealChanges()
    {
        struct Colour
        {
            void (*set)(const QColor&);
            QColor (*get)();
            void (App::*changed)();
            QColor initial;
        };
        const Colour colours[] = {
            {&App::SetBackground, &App::GetBackground, &App::BackgroundChanged, Qt::white},
            {&App::SetForeground, &App::GetForeground, &App::ForegroundChanged, Qt::black},
            {&App::SetMaskBackground, &App::GetMaskBackground, &App::MaskBackgroundChanged,
             Qt::black},
            {&App::SetMaskForeground, &App::GetMaskForeground, &App::MaskForegroundChanged,
             Qt::white}};
        QSignalSpy pattern(App::GetInstance(), &App::TexturePatternChanged);
        QList<QSharedPointer<QSignalSpy>> spies;
        for (const Colour& colour : colours) {
            spies << QSharedPointer<QSignalSpy>::create(App::GetInstance(), colour.changed);
            colour.set(colour.initial);
        }
        App::SetTexturePatternIndex(0);
        const auto counts = [&] {
            QList<int> result{pattern.count()};
            for (const auto& spy : spies)
                result << spy->count();
            return result;
        };
        QList<int> expected{0, 0, 0, 0, 0};
        QCOMPARE(counts(), expected);
        QVERIFY2(!QFile::exists(UserFile()), "an unchanged value must not be written");
        for (int i = 0; i < 4; ++i) {
            for (const QColor& colour : {QColor(Qt::red), QColor(Qt::red), QColor(255, 0, 0, 128)})
                colours[i].set(colour);
            expected[i + 1] = 2;
            QCOMPARE(counts(), expected);
            QCOMPARE(colours[i].get(), QColor(255, 0, 0, 128));
        }
        for (int index : {3, 3, -2})
            App::SetTexturePatternIndex(index);
        QCOMPARE(pattern.count(), 2);
        QCOMPARE(pattern.at(0).at(0).toInt(), 3);
        QCOMPARE(pattern.at(1).at(0).toInt(), -2);
        QCOMPARE(App::GetTexturePatternIndex(), -2);
    }

    void storedValuesConvertAsVariantsDo_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<QColor>("colour");
        QTest::addColumn<int>("policy");
        QTest::newRow("colour name") << QVariant("red") << QColor(Qt::red) << 0;
        QTest::newRow("hex colour") << QVariant("#00ff00") << QColor(Qt::green) << 0;
        QTest::newRow("garbage") << QVariant("no colour") << QColor() << 0;
        QTest::newRow("number") << QVariant(2) << QColor() << 2;
    }
    void storedValuesConvertAsVariantsDo()
    {
        QFETCH(QVariant, stored);
        QFETCH(QColor, colour);
        QFETCH(int, policy);
        App::SetUserValue(App::ColorsForeground, stored);
        App::SetUserValue(App::EqualPolicy, stored);
        QCOMPARE(App::GetForeground(), colour);
        QCOMPARE(int(App::GetColorManagementEqualPolicy()), policy);
    }

    void flushDataAsksThePlugins()
    {
        QSignalSpy flush(App::GetInstance(), &App::FlushPluginData);
        App::FlushData();
        QCOMPARE(flush.count(), 1);
    }
};

KV_TEST_APP_MAIN(SettingsTest)
#include "tst_settings.moc"
