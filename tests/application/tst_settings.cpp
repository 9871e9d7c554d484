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

private:
    QScopedPointer<QTemporaryDir> m_dir;

    QString UserFolder() const { return m_dir->path() + "/user"; }
    QString AppFolder() const { return m_dir->path() + "/app"; }
    QString UserFile() const { return UserFolder() + "/user.ini"; }
    QString AppFile() const { return AppFolder() + "/app.ini"; }

    QStringList FileLines(const QString& path) const
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
            return {};
        return QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
    }

    QVariant StoredUserValue(const QString& key) const
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
        QVERIFY(App::IsPNGCompressionVisible());
        QVERIFY(App::IsJPGCompressionVisible());
        QVERIFY(App::IsTIFCompressionVisible());
        QVERIFY(App::WarnAboutLayerInfo());
        QCOMPARE(App::GetPathOpen(), QString());
        QCOMPARE(App::GetPathExport(), QString());
        QCOMPARE(App::GetBatchPathOpen(), QString());
        QCOMPARE(App::GetBatchPathInput(), QString());
        QCOMPARE(App::GetBatchPathOutput(), QString());
        QCOMPARE(App::GetTexturePatternIndex(), 0);
        QCOMPARE(App::GetProgressTimeout(), 2000);
        QVERIFY2(!QFile::exists(UserFile()), "a read must not create user.ini");
    }

    // Role keys at both ends of the table, and values that are no role.
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

    // The typed setters write through their role's key (one of each kind).
    void typedAccessorsRoundTrip()
    {
        App::SetColorManagementNotEqualPolicy(App::NotEqualAsk);
        App::SetJPGCompressionVisible(false);
        App::SetWarnAboutLayerInfo(false);
        App::SetBatchPathOutput("/batch/out");
        App::SetMaskForeground(QColor(1, 2, 3, 4));

        QCOMPARE(StoredUserValue("ColorManagement/NotEqualPolicy").toInt(), 3);
        QVERIFY(!StoredUserValue("MessagesAndConfirmationsSettings/ShowJPGCompressionSettings")
                     .toBool());
        QVERIFY(!StoredUserValue("DocumentIO/IncompleteInfoState").toBool());
        QCOMPARE(StoredUserValue("Batch/Path/Output").toString(), QString("/batch/out"));
        QCOMPARE(StoredUserValue("Colors/Mask/Foreground").value<QColor>(), QColor(1, 2, 3, 4));

        QCOMPARE(App::GetColorManagementNotEqualPolicy(), App::NotEqualAsk);
        QVERIFY(!App::IsJPGCompressionVisible());
        QVERIFY(App::IsPNGCompressionVisible());
        QVERIFY(!App::WarnAboutLayerInfo());
        QCOMPARE(App::GetBatchPathOutput(), QString("/batch/out"));
        QCOMPARE(App::GetMaskForeground(), QColor(1, 2, 3, 4));
    }

    void byRoleAccessIsByKey()
    {
        App::SetUserValue(App::UpdateRemindDate, QDate(2026, 11, 21));
        QCOMPARE(StoredUserValue("Update/RemindDate").toDate(), QDate(2026, 11, 21));
        QCOMPARE(App::GetUserValue(App::UpdateRemindDate).toDate(), QDate(2026, 11, 21));
        QCOMPARE(App::GetUserValue(App::StartupWindowShow, 42).toInt(), 42);
    }

    void newUserFileStartsWithVersion()
    {
        QVERIFY(QDir(UserFolder()).removeRecursively());

        App::SetPathOpen(QString());

        const QStringList lines = FileLines(UserFile());
        const int version = lines.indexOf("Version=2.4.0");
        const int written = lines.indexOf("PathOpen=");
        QVERIFY2(version >= 0 && written > version, qPrintable(lines.join(" | ")));
        QCOMPARE(lines.filter("=").size(), 2);
        QVERIFY(StoredUserValue("Save/PathOpen").isValid());
        QCOMPARE(StoredUserValue("Save/PathOpen").toString(), QString());
    }

    void existingUserFileKeepsItsVersion()
    {
        QSettings(UserFile(), QSettings::IniFormat).setValue("Version", "1.0.0");

        App::SetPathExport("/exports");

        QCOMPARE(StoredUserValue("Version").toString(), QString("1.0.0"));
        QCOMPARE(StoredUserValue("Save/PathExport").toString(), QString("/exports"));
    }

    void applicationFileHasNoVersion()
    {
        QVERIFY(QDir(AppFolder()).removeRecursively());
        QCOMPARE(App::GetApplicationValue("Window/Width", 5).toInt(), 5);
        QVERIFY(!QFile::exists(AppFile()));

        App::SetAppicationValue("Window/Width", 800);

        QCOMPARE(QSettings(AppFile(), QSettings::IniFormat).allKeys(), QStringList{"Window/Width"});
        QCOMPARE(App::GetApplicationValue("Window/Width", 5).toInt(), 800);
        QVERIFY(!QFile::exists(UserFile()));
    }

    void languageIndexDropsTheRegion_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("read");
        QTest::newRow("region") << "pt_BR"
                                << "pt";
        QTest::newRow("plain") << "en"
                               << "en";
        QTest::newRow("script and region") << "zh_Hant_TW"
                                           << "zh";
        QTest::newRow("only a suffix") << "_US"
                                       << "";
        QTest::newRow("hyphen stays") << "de-AT"
                                      << "de-AT";
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
        const auto write = [userFile](const QString& key, const QVariant& value) {
            userFile ? App::SetUserValue(key, value) : App::SetAppicationValue(key, value);
        };
        const auto read = [userFile](const QString& key) {
            return userFile ? App::GetUserValue(key, "missing")
                            : App::GetApplicationValue(key, "missing");
        };

        const QString first = folder();
        write("Moved/Key", "old");

        // Moving to the current folder does nothing, not even make the folder.
        QVERIFY(QDir(first).removeRecursively());
        move(first);
        QCOMPARE(folder(), first);
        QVERIFY(!QDir(first).exists());

        const QString second = m_dir->path() + "/second/nested";
        move(second);
        QCOMPARE(folder(), second);
        QVERIFY(QDir(second).exists());
        QCOMPARE(read("Moved/Key").toString(), QString("missing"));
        write("Moved/Key", "new");
        QCOMPARE(read("Moved/Key").toString(), QString("new"));
    }

    void colourSettersSignalRealChanges_data()
    {
        QTest::addColumn<int>("which");
        QTest::newRow("background") << 0;
        QTest::newRow("foreground") << 1;
        QTest::newRow("mask background") << 2;
        QTest::newRow("mask foreground") << 3;
    }

    void colourSettersSignalRealChanges()
    {
        QFETCH(int, which);
        struct Colour
        {
            void (*set)(const QColor&);
            QColor (*get)();
            QColor initial;
        };
        const Colour colours[] = {
            {&App::SetBackground, &App::GetBackground, Qt::white},
            {&App::SetForeground, &App::GetForeground, Qt::black},
            {&App::SetMaskBackground, &App::GetMaskBackground, Qt::black},
            {&App::SetMaskForeground, &App::GetMaskForeground, Qt::white},
        };
        App* app = App::GetInstance();
        QSignalSpy background(app, &App::BackgroundChanged);
        QSignalSpy foreground(app, &App::ForegroundChanged);
        QSignalSpy maskBackground(app, &App::MaskBackgroundChanged);
        QSignalSpy maskForeground(app, &App::MaskForegroundChanged);
        QSignalSpy* spies[] = {&background, &foreground, &maskBackground, &maskForeground};
        const auto counts = [&] {
            QList<int> result;
            for (QSignalSpy* spy : spies)
                result.append(spy->count());
            return result;
        };
        QList<int> expected{0, 0, 0, 0};
        const Colour& colour = colours[which];

        colour.set(colour.initial);
        QCOMPARE(counts(), expected);
        QVERIFY2(!QFile::exists(UserFile()), "an unchanged colour must not be written");

        colour.set(QColor(Qt::red));
        expected[which] = 1;
        QCOMPARE(counts(), expected);
        QCOMPARE(colour.get(), QColor(Qt::red));

        colour.set(QColor(Qt::red));
        QCOMPARE(counts(), expected);

        // A colour that differs only in alpha is a change.
        colour.set(QColor(255, 0, 0, 128));
        expected[which] = 2;
        QCOMPARE(counts(), expected);
    }

    void texturePatternIndexSignalsRealChanges()
    {
        QSignalSpy changed(App::GetInstance(), &App::TexturePatternChanged);
        App::SetTexturePatternIndex(0);
        QCOMPARE(changed.count(), 0);
        QVERIFY(!QFile::exists(UserFile()));

        App::SetTexturePatternIndex(3);
        App::SetTexturePatternIndex(3);
        App::SetTexturePatternIndex(-2);
        QCOMPARE(changed.count(), 2);
        QCOMPARE(changed.at(0).at(0).toInt(), 3);
        QCOMPARE(changed.at(1).at(0).toInt(), -2);
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
