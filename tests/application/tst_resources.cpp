#include "BundleFixture.h"
#include "LogCapture.h"
#include "TestSupport.h"

#include <KVApplication.h>

#include <QTemporaryDir>

static QStringList Stamped(QStringList lines)
{
    for (QString& line : lines)
        line = LogCapture::WithoutBuildStamp(line);
    return lines;
}

// Construction, languages and themes in real bundles; patterns.
class ResourcesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Each row: folders in Resources (none: no Resources folder) | files there | languages found.
    void construction_data()
    {
        QTest::addColumn<QString>("row");
        for (const char* row :
             {" | | ", "pt.lproj fr.lproj sv.lproj ru.lproj en.lproj EN.lproj es.lproj "
                       "de.lproj.old | de.lproj | en ru sv fr pt"})
            QTest::newRow(row) << QString(row);
    }
    void construction()
    {
        QFETCH(QString, row);
        QList<QStringList> parts;
        for (const QString& part : row.split('|'))
            parts << part.split(' ', Qt::SkipEmptyParts);
        const bool withResources = !parts[0].isEmpty();
        const QStringList languages = parts[2];
        BundleFixture bundle(withResources);
        for (const QString& folder : parts[0])
            bundle.MakeFolder("Resources/" + folder);
        for (const QString& file : parts[1])
            bundle.WriteFile("Resources/" + file, "not a folder");
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
        QCOMPARE(Stamped(run.log), expectedLog);

        QCOMPARE(run.Value("userDataFolder"),
                 bundle.HomePath() + "/Library/Preferences/Pelkaro AB/Pelkaro");
        QCOMPARE(run.Value("userDataFolderExists") + run.Value("userFileExists"), QString("10"));
    }

    // codes: loaded in order; expected: key=value lines that must be reported;
    // log: messages after construction's three, "broken" for the broken file's.
    void languages_data()
    {
        QTest::addColumn<QString>("codes");
        QTest::addColumn<QString>("expected");
        QTest::addColumn<QString>("log");
        const char* const rows[][4] = {
            {"German, with Qt's own file and a broken one", "de",
             "load:de=1 language=de name:de=Deutsch name:en=Englisch name:ru=Russian qt=Abbrechen",
             "broken"},
            {"a missing folder changes nothing", "de fr", "load:fr=0 language=de name:de=Deutsch",
             "broken fr"},
            {"a folder without translations", "en", "load:en=0 language=en name:de=German", ""},
            {"the language loaded last wins, the first fills gaps", "de sv",
             "load:sv=1 language=sv name:sv=Svenska name:de=Tyska name:en=Englisch qt=Abbrechen",
             "broken"}};
        for (const auto& row : rows)
            QTest::newRow(row[0]) << QString(row[1]) << QString(row[2]) << QString(row[3]);
    }
    void languages()
    {
        QFETCH(QString, codes);
        QFETCH(QString, expected);
        QFETCH(QString, log);
        BundleFixture bundle;
        bundle.MakeFolder("Resources/en.lproj");
        bundle.CopyFile(KV_TEST_QM_DIR "/de.qm", "Resources/de.lproj/de.qm");
        bundle.CopyFile(KV_TEST_BROKEN_QM, "Resources/de.lproj/broken.qm");
        bundle.CopyFile("/usr/share/qt5/translations/qtbase_de.qm",
                        "Resources/de.lproj/qtbase_de.qm");
        bundle.CopyFile(KV_TEST_QM_DIR "/sv.qm", "Resources/sv.lproj/sv.qm");

        const auto run = bundle.RunScenario("languages", codes.split(' ', Qt::SkipEmptyParts));
        QCOMPARE(run.exitCode, 0);
        for (const QString& line : expected.split(' '))
            QVERIFY2(run.output.contains(line), qPrintable(line + " in " + run.output.join(" | ")));
        const QString broken =
            QFileInfo(bundle.ResourcesPath() + "/de.lproj/broken.qm").canonicalFilePath();
        QStringList messages;
        for (const QString& entry : log.split(' ', Qt::SkipEmptyParts))
            messages << LogCapture::Expected(
                "src/private/KVApplication_p",
                entry == "broken"
                    ? QString("Load translator \"%1\" error.").arg(broken)
                    : QString("Translations for \"%1\" language not found.").arg(entry));
        QCOMPARE(Stamped(run.log).mid(3), messages);
    }

    // Each "load" step reports load|sheet|theme|stored; a failed load is logged.
    void themes_data()
    {
        QTest::addColumn<QString>("steps");
        QTest::addColumn<QString>("output");
        const QString dark = "sheet=QWidget { color: #eeeeee; background: #202020; }\\n";
        // Dark by default, the first search path wins; another root is read to its zero byte.
        QTest::newRow("load set:2 load")
            << "load set:2 load"
            << QString("load=1|%1|theme=1|stored=1|load=1|%1|theme=2|stored=2").arg(dark);
        QTest::newRow("store") << "store::/Zero load"
                               << "load=1|sheet=QWidget { color: red; }|theme=2|stored=2";
        QTest::newRow("none") << "set:7 load"
                              << "load=0|sheet=|theme=0|stored=2";
    }
    void themes()
    {
        QFETCH(QString, steps);
        QFETCH(QString, output);
        BundleFixture bundle;
        const auto run = bundle.RunScenario("theme", steps.split(' '));
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.output.join('|'), output);
        const QString error = LogCapture::Expected("src/KVApplication", "Load theme error.");
        QCOMPARE(Stamped(run.log).contains(error), output.startsWith("load=0"));
    }

    void patterns()
    {
        QTemporaryDir folder;
        for (const char* name : {"a.png", "b.JPG", "c.gif", "d.bmp"})
            QFile(folder.filePath(name)).open(QIODevice::WriteOnly);
        QDir(folder.path()).mkdir("sub.png");

        int argc = 1;
        char* argv[] = {const_cast<char*>("pelkaro"), nullptr};
        KVApplication app(argc, argv);
        app.LoadPatterns(folder.path());
        app.LoadPatterns(folder.filePath("missing"));
        QStringList found;
        for (int i = 0; i < KVApplication::GetPatternCount(); ++i)
            found << QFileInfo(KVApplication::GetPatternFile(i)).fileName();
        found.sort();
        QCOMPARE(found, QStringList({"a.png", "b.JPG", "d.bmp", "sub.png"}));
        QVERIFY(QFileInfo(KVApplication::GetPatternFile(0)).isAbsolute());
        QCOMPARE(KVApplication::GetPatternFile(4), QString());
    }
};

KV_TEST_MAIN(ResourcesTest)
#include "tst_resources.moc"
