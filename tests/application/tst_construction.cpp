#include "BundleFixture.h"
#include "LogCapture.h"
#include "TestSupport.h"

#include <QDir>
#include <QFileInfo>

// Constructing the application object inside real bundle layouts.
// Constructing the application object inside real bundle layouts.
class ConstructionTest : public QObject
{
    Q_OBJECT

    static QStringList Log(const BundleFixture::Result& run)
    {
        QStringList log;
        for (const QString& line : run.log)
            log << LogCapture::WithoutBuildStamp(line);
        return log;
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
        const QStringList log = Log(run);
        const QString folder = withResources ? bundle.ResourcesPath() : bundle.MacOSPath();
        QCOMPARE(run.Value("resourcePath"), QFileInfo(folder).canonicalFilePath());
        // Once at construction, once by the scenario's own call.
        QCOMPARE(log.count(missing), withResources ? 0 : 2);
        if (!withResources)
            QCOMPARE(log.first(), missing);
    }

    void foldersAndApplicationSettings()
    {
        BundleFixture bundle;
        bundle.SetEnvironment("QT_SCALE_FACTOR", "2");
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
        QCOMPARE(run.Value("highDpiPixmaps"), QString("1"));
        QCOMPARE(run.Value("noIconsInMenus"), QString("1"));
        QCOMPARE(run.Value("pixelRatio"), QString("2"));
    }

    void languageFolders_data()
    {
        QTest::addColumn<QStringList>("folders");
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<QStringList>("languages");
        QTest::newRow("all, in the fixed order")
            << QStringList{"pt.lproj", "fr.lproj", "sv.lproj", "ru.lproj", "de.lproj", "en.lproj"}
            << QStringList() << QStringList{"en", "de", "ru", "sv", "fr", "pt"};
        QTest::newRow("unknown and odd names")
            << QStringList{"es.lproj", "EN.lproj", "de.lproj.old", "fr"} << QStringList()
            << QStringList();
        QTest::newRow("a file is not a folder")
            << QStringList{"sv.lproj", "ru.lproj"} << QStringList{"de.lproj"}
            << QStringList{"ru", "sv"};
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
                expectedLog << LogCapture::Expected("src/private/KVApplication_p",
                                                    QString("No %1 translations.").arg(code));
        }
        QCOMPARE(Log(run), expectedLog);
    }
};

KV_TEST_MAIN(ConstructionTest)
#include "tst_construction.moc"
