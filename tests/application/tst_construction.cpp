#include "BundleFixture.h"
#include "LogCapture.h"
#include "TestSupport.h"

#include <QDir>
#include <QFileInfo>

// Constructing the application object inside real bundle layouts.
class ConstructionTest : public QObject
{
    Q_OBJECT

private:
    static QString Canonical(const QString& path) { return QFileInfo(path).canonicalFilePath(); }

    static QString LanguageLine(const QString& code)
    {
        return LogCapture::Expected("src/private/KVApplication_p",
                                    QString("No %1 translations.").arg(code));
    }

private Q_SLOTS:
    void resourceFolder_data()
    {
        QTest::addColumn<bool>("withResources");
        QTest::newRow("bundle") << true;
        QTest::newRow("no Resources folder") << false;
    }

    void resourceFolder()
    {
        QFETCH(bool, withResources);
        BundleFixture bundle(withResources);
        QVERIFY(bundle.IsValid());

        const auto run = bundle.RunScenario("construction");
        QCOMPARE(run.exitCode, 0);

        const QString missing =
            LogCapture::Expected("src/KVApplication", "The Resouces folder does not exist");
        QStringList log;
        for (const QString& line : run.log)
            log.append(LogCapture::WithoutBuildStamp(line));
        if (withResources) {
            QCOMPARE(run.Value("resourcePath"), Canonical(bundle.ResourcesPath()));
            QVERIFY(!log.contains(missing));
        } else {
            QCOMPARE(run.Value("resourcePath"), Canonical(bundle.MacOSPath()));
            QCOMPARE(log.count(missing), 2); // once at construction, once by the scenario
            QCOMPARE(log.first(), missing);
        }
    }

    void userAndApplicationFolders()
    {
        BundleFixture bundle;
        const auto run = bundle.RunScenario("construction");
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.Value("dataFolder"),
                 QString("/Library/Application Support/Pelkaro AB/Pelkaro"));
        QCOMPARE(run.Value("userDataFolder"),
                 bundle.HomePath() + "/Library/Preferences/Pelkaro AB/Pelkaro");
        QCOMPARE(run.Value("userDataFolderExists"), QString("1"));
        QCOMPARE(run.Value("userFileExists"), QString("0"));
        QVERIFY2(!QDir("/Library/Application Support/Pelkaro AB").exists(),
                 "construction must not make the application folder");
    }

    void languageFolders_data()
    {
        QTest::addColumn<QStringList>("folders");
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<QStringList>("languages");

        QTest::newRow("en and sv")
            << QStringList{"sv.lproj", "en.lproj"} << QStringList() << QStringList{"en", "sv"};
        QTest::newRow("all, in the fixed order")
            << QStringList{"pt.lproj", "fr.lproj", "sv.lproj", "ru.lproj", "de.lproj", "en.lproj"}
            << QStringList() << QStringList{"en", "de", "ru", "sv", "fr", "pt"};
        QTest::newRow("unknown and odd names")
            << QStringList{"es.lproj", "EN.lproj", "de.lproj.old", "fr"} << QStringList()
            << QStringList();
        QTest::newRow("a file is not a folder")
            << QStringList{"ru.lproj"} << QStringList{"de.lproj"} << QStringList{"ru"};
    }

    void languageFolders()
    {
        QFETCH(QStringList, folders);
        QFETCH(QStringList, files);
        QFETCH(QStringList, languages);
        BundleFixture bundle;
        for (const QString& folder : folders)
            bundle.MakeFolder("Resources/" + folder);
        for (const QString& file : files)
            bundle.WriteFile("Resources/" + file, "not a folder");

        const auto run = bundle.RunScenario("construction");
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.Values("language"), languages);

        QStringList expectedLog;
        for (const char* code : {"en", "de", "ru", "sv", "fr", "pt"}) {
            if (!languages.contains(code))
                expectedLog.append(LanguageLine(code));
        }
        QStringList log;
        for (const QString& line : run.log)
            log.append(LogCapture::WithoutBuildStamp(line));
        QCOMPARE(log, expectedLog);
    }

    void applicationSettingsOfTheBuild()
    {
        BundleFixture bundle;
        bundle.SetEnvironment("QT_SCALE_FACTOR", "2");
        const auto run = bundle.RunScenario("construction");
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.Value("highDpiPixmaps"), QString("1"));
        QCOMPARE(run.Value("noIconsInMenus"), QString("1"));
        QCOMPARE(run.Value("pixelRatio"), QString("2"));
    }
};

KV_TEST_MAIN(ConstructionTest)
#include "tst_construction.moc"
