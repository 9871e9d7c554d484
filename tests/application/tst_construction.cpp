#include "BundleFixture.h"
#include "LogCapture.h"
#include "TestSupport.h"

#include <QDir>
#include <QFileInfo>

// Constructing the application object inside real bundle layouts.
class ConstructionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void construction_data()
    {
        QTest::addColumn<bool>("withResources");
        QTest::addColumn<QStringList>("folders");
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<QStringList>("languages");
        QTest::newRow("no Resources folder")
            << false << QStringList() << QStringList() << QStringList();
        QTest::newRow("all languages, in the fixed order")
            << true
            << QStringList{"pt.lproj", "fr.lproj", "sv.lproj", "ru.lproj", "de.lproj", "en.lproj"}
            << QStringList() << QStringList{"en", "de", "ru", "sv", "fr", "pt"};
        QTest::newRow("unknown and odd names")
            << true << QStringList{"es.lproj", "EN.lproj", "de.lproj.old", "fr"} << QStringList()
            << QStringList();
        QTest::newRow("a file is not a folder")
            << true << QStringList{"sv.lproj", "ru.lproj"} << QStringList{"de.lproj"}
            << QStringList{"ru", "sv"};
    }
    void construction()
    {
        QFETCH(bool, withResources);
        QFETCH(QStringList, folders);
        QFETCH(QStringList, files);
        QFETCH(QStringList, languages);
        BundleFixture bundle(withResources);
        QVERIFY(bundle.IsValid());
        for (const QString& folder : folders)
            bundle.MakeFolder("Resources/" + folder);
        for (const QString& file : files)
            bundle.WriteFile("Resources/" + file, "not a folder");
        bundle.SetEnvironment("QT_SCALE_FACTOR", "2");
        const auto run = bundle.RunScenario("construction");
        QCOMPARE(run.exitCode, 0);

        const QString folder = withResources ? bundle.ResourcesPath() : bundle.MacOSPath();
        QCOMPARE(run.Value("resourcePath"), QFileInfo(folder).canonicalFilePath());
        QCOMPARE(run.Values("language"), languages);
        QStringList expectedLog;
        for (const char* code : {"en", "de", "ru", "sv", "fr", "pt"}) {
            if (!languages.contains(code))
                expectedLog << LogCapture::Expected("src/private/KVApplication_p",
                                                    QString("No %1 translations.").arg(code));
        }
        if (!withResources) {
            // Once at construction, once by the scenario's own call.
            const QString missing =
                LogCapture::Expected("src/KVApplication", "The Resouces folder does not exist");
            expectedLog = QStringList{missing} + expectedLog + QStringList{missing};
        }
        QStringList log;
        for (const QString& line : run.log)
            log << LogCapture::WithoutBuildStamp(line);
        QCOMPARE(log, expectedLog);

        QCOMPARE(run.Value("dataFolder"),
                 QString("/Library/Application Support/Pelkaro AB/Pelkaro"));
        QCOMPARE(run.Value("userDataFolder"),
                 bundle.HomePath() + "/Library/Preferences/Pelkaro AB/Pelkaro");
        QCOMPARE(run.Value("userDataFolderExists"), QString("1"));
        QCOMPARE(run.Value("userFileExists"), QString("0"));
        QVERIFY2(!QDir("/Library/Application Support/Pelkaro AB").exists(),
                 "construction must not make the application folder");
        QCOMPARE(run.Value("highDpiPixmaps") + run.Value("noIconsInMenus"), QString("11"));
        QCOMPARE(run.Value("pixelRatio"), QString("2"));
    }
};

KV_TEST_MAIN(ConstructionTest)
#include "tst_construction.moc"
