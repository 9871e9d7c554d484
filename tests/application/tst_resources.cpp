#include "BundleFixture.h"
#include "LogCapture.h"
#include "TestSupport.h"

#include <KVApplication.h>

#include <QAction>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <memory>

namespace {
QStringList Stamped(const QStringList& lines)
{
    QStringList stamped;
    for (const QString& line : lines)
        stamped.append(LogCapture::WithoutBuildStamp(line));
    return stamped;
}

QString PrivateLine(const QString& message)
{
    return LogCapture::Expected("src/private/KVApplication_p", message);
}
} // namespace

// Languages and themes in real bundles, patterns and the shared slots.
class ResourcesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void languages_data()
    {
        QTest::addColumn<QStringList>("codes");
        QTest::addColumn<QStringList>("expected"); // key=value lines that must be reported
        QTest::addColumn<QStringList>("log");      // messages after the construction lines

        QTest::newRow("nothing loaded")
            << QStringList() << QStringList{"language=", "name:de=", "qt=Cancel"} << QStringList();
        QTest::newRow("German, with Qt's own file and a broken one")
            << QStringList{"de"}
            << QStringList{"load:de=1",        "language=de",     "name:de=Deutsch",
                           "name:en=Englisch", "name:ru=Russian", "qt=Abbrechen"}
            << QStringList{"broken"};
        QTest::newRow("a missing folder changes nothing")
            << QStringList{"de", "fr"} << QStringList{"load:fr=0", "language=de", "name:de=Deutsch"}
            << QStringList{"broken", "fr"};
        QTest::newRow("a folder without translations")
            << QStringList{"en"} << QStringList{"load:en=0", "language=en", "name:de=German"}
            << QStringList();
        QTest::newRow("the language loaded last wins, the first fills gaps")
            << QStringList{"de", "sv"}
            << QStringList{"load:sv=1",     "language=sv",      "name:sv=Svenska",
                           "name:de=Tyska", "name:en=Englisch", "qt=Abbrechen"}
            << QStringList{"broken"};
    }

    void languages()
    {
        QFETCH(QStringList, codes);
        QFETCH(QStringList, expected);
        QFETCH(QStringList, log);

        BundleFixture bundle;
        bundle.MakeFolder("Resources/en.lproj");
        bundle.CopyFile(KV_TEST_QM_DIR "/de.qm", "Resources/de.lproj/de.qm");
        bundle.CopyFile(KV_TEST_BROKEN_QM, "Resources/de.lproj/broken.qm");
        bundle.CopyFile("/usr/share/qt5/translations/qtbase_de.qm",
                        "Resources/de.lproj/qtbase_de.qm");
        bundle.CopyFile(KV_TEST_QM_DIR "/sv.qm", "Resources/sv.lproj/sv.qm");

        const auto run = bundle.RunScenario("languages", codes);
        QCOMPARE(run.exitCode, 0);
        for (const QString& line : expected)
            QVERIFY2(run.output.contains(line), qPrintable(line + " in " + run.output.join(" | ")));

        // Construction reports the three missing languages first.
        QStringList messages;
        for (const QString& entry : log) {
            if (entry == "broken") {
                const QString path =
                    QFileInfo(bundle.ResourcesPath() + "/de.lproj/broken.qm").canonicalFilePath();
                messages << PrivateLine(QString("Load translator \"%1\" error.").arg(path));
            } else {
                messages << PrivateLine(
                    QString("Translations for \"%1\" language not found.").arg(entry));
            }
        }
        QCOMPARE(Stamped(run.log).mid(3), messages);
    }

    void themes_data()
    {
        QTest::addColumn<QStringList>("steps");
        QTest::addColumn<QStringList>("expected");
        QTest::addColumn<bool>("failureLogged");

        const QString dark = "sheet=QWidget { color: #eeeeee; background: #202020; }\\n";
        QTest::newRow("dark by default")
            << QStringList{"load"} << QStringList{"load=1", dark, "theme=1", "stored=1"} << false;
        QTest::newRow("the first search path keeps winning")
            << QStringList{"load", "set:2", "load"}
            << QStringList{"load=1", dark, "theme=1", "load=1", dark, "theme=2", "stored=2"}
            << false;
        QTest::newRow("light")
            << QStringList{"set:2", "load"}
            << QStringList{"load=1", "sheet=QWidget { color: #101010; background: #f0f0f0; }\\n",
                           "theme=2"}
            << false;
        QTest::newRow("another root, read up to its zero byte")
            << QStringList{"store::/Zero", "load"}
            << QStringList{"load=1", "sheet=QWidget { color: red; }", "theme=2", "stored=2"}
            << false;
        QTest::newRow("no theme") << QStringList{"set:7", "load"}
                                  << QStringList{"load=0", "sheet=", "theme=0", "stored=2"} << true;
    }

    void themes()
    {
        QFETCH(QStringList, steps);
        QFETCH(QStringList, expected);
        QFETCH(bool, failureLogged);

        BundleFixture bundle;
        const auto run = bundle.RunScenario("theme", steps);
        QCOMPARE(run.exitCode, 0);
        for (const QString& line : expected)
            QVERIFY2(run.output.contains(line), qPrintable(line + " in " + run.output.join(" | ")));
        const QString error = LogCapture::Expected("src/KVApplication", "Load theme error.");
        QCOMPARE(Stamped(run.log).contains(error), failureLogged);
    }

    void patternsAndSharedSlots()
    {
        QTemporaryDir folder;
        for (const char* name : {"a.png", "b.JPG", "c.gif", "d.bmp"})
            QFile(folder.filePath(name)).open(QIODevice::WriteOnly);
        QDir(folder.path()).mkdir("sub.png");

        int argc = 1;
        char name[] = "pelkaro";
        char* argv[] = {name, nullptr};
        KVApplication app(argc, argv);
        QCOMPARE(KVApplication::GetPatternCount(), 0);
        app.LoadPatterns(folder.path());
        app.LoadPatterns(folder.filePath("missing"));
        QStringList found;
        for (int i = 0; i < KVApplication::GetPatternCount(); ++i)
            found << QFileInfo(KVApplication::GetPatternFile(i)).fileName();
        found.sort();
        QCOMPARE(found, QStringList({"a.png", "b.JPG", "d.bmp", "sub.png"}));
        QVERIFY(QFileInfo(KVApplication::GetPatternFile(0)).isAbsolute());
        app.LoadPatterns(folder.path()); // the same folder twice lists it twice
        QCOMPARE(KVApplication::GetPatternCount(), 8);
        QCOMPARE(KVApplication::GetPatternFile(-1), QString());
        QCOMPARE(KVApplication::GetPatternFile(8), QString());

        qRegisterMetaType<QAction*>();
        QSignalSpy registered(&app, &KVApplication::RefineSelectionRegistered);
        QAction refine("Refine");
        app.RegisterRefineSelectionAction(&refine);
        app.RegisterRefineSelectionAction(&refine);
        app.RegisterRefineSelectionAction(nullptr);
        QCOMPARE(registered.count(), 2);
        QCOMPARE(registered.at(0).at(0).value<QAction*>(), &refine);
        QVERIFY(!app.GetRefineSelection());

        KVApplication::SetGradient(QBrush(Qt::red));
        QCOMPARE(KVApplication::GetGradient(), QBrush(Qt::red));
        QVERIFY(!KVApplication::GetBrushFactory());
    }
};

KV_TEST_MAIN(ResourcesTest)
#include "tst_resources.moc"
