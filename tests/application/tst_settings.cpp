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
    void typedAccessors()
    {
        QCOMPARE(App::GetMaskForeground(), QColor(Qt::white));
        QCOMPARE(App::GetColorManagementEqualPolicy(), App::EqualKeepEmbedded);
        QVERIFY(App::IsJPGCompressionVisible() && App::WarnAboutLayerInfo());
        QCOMPARE(App::GetBatchPathOutput(), QString());
        QCOMPARE(App::GetUserValue(App::StartupWindowShow, 42).toInt(), 42);
        QVERIFY2(!QFile::exists(UserFile()), "a read must not create user.ini");

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

        QCOMPARE(App::GetName(App::ApplicationTemporaryPath), QString("ApplicationTemporaryPath"));
        QCOMPARE(App::GetName(App::UseDataRole(27)), QString());
        QCOMPARE(App::GetName(App::UseDataRole(-1)), QString());
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
        QTest::newRow("plain") << "en"
                               << "en";
        QTest::newRow("script and region") << "zh_Hant_TW"
                                           << "zh";
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

    void userFolderMoves()
    {
        App::SetUserValue("Moved/Key", "old");
        // Moving to the current folder does nothing, not even make the folder.
        QVERIFY(QDir(UserFolder()).removeRecursively());
        App::SetUserDataFolder(UserFolder());
        QCOMPARE(App::GetUserDataFolder(), UserFolder());
        QVERIFY(!QDir(UserFolder()).exists());

        const QString second = m_dir->path() + "/second/nested";
        App::SetUserDataFolder(second);
        QCOMPARE(App::GetUserDataFolder(), second);
        QVERIFY(QDir(second).exists());
        QCOMPARE(App::GetUserValue("Moved/Key", "missing").toString(), QString("missing"));
    }

    // Each setter signals its own real changes only; a colour's alpha counts.
    void settersSignalRealChanges()
    {
        const QList<QPair<void (*)(const QColor&), void (App::*)()>> colours = {
            {&App::SetBackground, &App::BackgroundChanged},
            {&App::SetForeground, &App::ForegroundChanged},
            {&App::SetMaskBackground, &App::MaskBackgroundChanged},
            {&App::SetMaskForeground, &App::MaskForegroundChanged}};
        QSignalSpy pattern(App::GetInstance(), &App::TexturePatternChanged);
        QList<QSharedPointer<QSignalSpy>> spies;
        for (const auto& colour : colours)
            spies << QSharedPointer<QSignalSpy>::create(App::GetInstance(), colour.second);
        App::SetBackground(Qt::white);
        App::SetTexturePatternIndex(0);
        QVERIFY2(!QFile::exists(UserFile()), "an unchanged value must not be written");
        QList<int> expected{0, 0, 0, 0};
        for (int i = 0; i < colours.size(); ++i) {
            for (const QColor& colour : {QColor(Qt::red), QColor(Qt::red), QColor(255, 0, 0, 128)})
                colours[i].first(colour);
            expected[i] = 2;
            QList<int> counts;
            for (const auto& spy : spies)
                counts << spy->count();
            QCOMPARE(counts, expected);
        }
        QCOMPARE(App::GetMaskBackground(), QColor(255, 0, 0, 128));
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
};

KV_TEST_APP_MAIN(SettingsTest)
#include "tst_settings.moc"
