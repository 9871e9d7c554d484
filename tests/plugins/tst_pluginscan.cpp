#include "BundleFixture.h"
#include "LogCapture.h"
#include "TestSupport.h"

#include <QFileInfo>

namespace {
QString PluginFile(const QString& name)
{
    return QStringLiteral(KV_TEST_PLUGIN_DIR "/lib%1.dylib").arg(name);
}

QByteArray PluginsIni(const QString& brush, const QString& general)
{
    return QString("brush=%1\ngeneral=%2\n").arg(brush, general).toUtf8();
}

QStringList Loaded(const QStringList& names)
{
    QStringList events;
    for (const QString& name : names)
        events << "loading:" + name << "loaded:" + name;
    return events;
}
} // namespace

// Finding plug-in files through plugins.ini inside a real bundle layout.
class PluginScanTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void scan_data()
    {
        QTest::addColumn<QString>("brush");
        QTest::addColumn<QString>("general");
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QStringList>("events");
        QTest::addColumn<QString>("logged");
        QTest::addColumn<QByteArray>("iniTail");
        QTest::addColumn<QStringList>("scan"); // why files are left out; unchecked when empty

        const QString brushes = "../PlugIns/Brushes", general = "../PlugIns/General";
        const QString missing = "../PlugIns/Missing";
        const QStringList finished = {"finished"};
        const QStringList imageIO = Loaded({"libimageio.2.dylib", "libimageio.DYLIB"}) + finished;
        const auto row = [&](const char* name, const QString& brush, const QString& general,
                             const QStringList& arguments, const QStringList& events,
                             const QString& logged = QString(), const QByteArray& iniTail = {},
                             const QStringList& scan = {}) {
            QTest::newRow(name) << brush << general << arguments << events << logged << iniTail
                                << scan;
        };
        row("everything, brushes first", brushes, general, {},
            Loaded({"libabrush.dylib", "libzbrush.DYLIB", "LIBIMAGEIO.DYLIB",
                    "libadjustments.dylib", "libimageio.2.dylib", "libimageio.DYLIB",
                    "libzother.dylib"}) +
                finished);
        row("image I/O only: base name by case, suffix in any case", brushes, general, {"4"},
            imageIO, {}, {},
            {"general: taken",
             "LIBIMAGEIO.DYLIB: the base name \"LIBIMAGEIO\" differs from \"libimageio\" in case",
             "libadjustments.dylib: the family \"libadjustments\" was not asked for",
             "libimageio.2.dylib: taken", "libimageio.DYLIB: taken",
             "libimageio.txt: the suffix \"txt\" is not \"dylib\"",
             "libzother.dylib: no plug-in family is named \"libzother\""});
        row("no general folder: nothing at all", brushes, missing, {}, {},
            "The plugins folder does not exist", {},
            {"brush: taken", "libabrush.dylib: the general folder is missing",
             "libzbrush.DYLIB: the general folder is missing",
             "readme.txt: the suffix \"txt\" is not \"dylib\"", "general: missing"});
        row("no brush folder, brushes asked for", missing, general, {"8"}, finished,
            "Brush folder is missing");
        // plugins.ini is the bundle's: an odd value is read as Qt reads it, a damaged one
        // through a repaired copy; the file is left as it is.
        row("plugins.ini with an odd value", brushes, general, {"4"}, imageIO, {},
            "Odd=@Variant(\\0\\0\\0\\v\\0\\0\\0\\x10)\n");
        row("plugins.ini with a damaged value", brushes, general, {"4"}, imageIO, {},
            "Key=@Variant(\\0\\0\\0G\\x7f\\xff\\xff\\xff)\n");
    }

    void scan()
    {
        QFETCH(QString, brush);
        QFETCH(QString, general);
        QFETCH(QStringList, arguments);
        QFETCH(QStringList, events);
        QFETCH(QString, logged);
        QFETCH(QByteArray, iniTail);
        QFETCH(QStringList, scan);

        BundleFixture bundle;
        bundle.WriteFile("Resources/plugins.ini", PluginsIni(brush, general) + iniTail);
        for (const QString file :
             {"brush:Brushes/libzbrush.DYLIB", "brush:Brushes/libabrush.dylib",
              "image_a:General/libimageio.2.dylib", "image_b:General/libimageio.DYLIB",
              "image_b:General/LIBIMAGEIO.DYLIB", "adjustments:General/libadjustments.dylib",
              "empty:General/libzother.dylib", "empty:Brushes/readme.txt",
              "empty:General/libimageio.txt"})
            bundle.CopyFile(PluginFile("tc_" + file.section(':', 0, 0)),
                            "PlugIns/" + file.section(':', 1));

        const auto run = bundle.RunScenario("loadPlugins", arguments);
        QCOMPARE(run.exitCode, 0);
        // The container without plug-ins fails; everything else loads.
        QStringList expected = events;
        expected.replaceInStrings("loaded:libzother.dylib", "error:libzother.dylib");
        QCOMPARE(run.Values("event"), expected);
        QFile ini(bundle.ResourcesPath() + "/plugins.ini");
        QVERIFY(ini.open(QIODevice::ReadOnly));
        QCOMPARE(ini.readAll(), PluginsIni(brush, general) + iniTail);
        QVERIFY(!QFile::exists(ini.fileName() + ".damaged"));
        QStringList log;
        for (const QString& line : run.log)
            log << LogCapture::WithoutBuildStamp(line);
        if (!scan.isEmpty())
            QCOMPARE(run.Values("scan"), scan);
        QVERIFY(logged.isEmpty() ||
                log.contains(LogCapture::Expected("src/KVApplication", logged)));
    }

    // The expected paths of each family.
    void expectedFileNames()
    {
        BundleFixture bundle;
        bundle.WriteFile("Resources/plugins.ini", PluginsIni("../PlugIns/Brushes", "../General"));
        bundle.CopyFile(PluginFile("tc_empty"), "General/libimageio.2.dylib");
        bundle.CopyFile(PluginFile("tc_brush"), "PlugIns/Brushes/libbrushcontainer.2.dylib");
        bundle.CopyFile(PluginFile("tc_brush"), "General/libgeneraltools.2.dylib");
        const auto run = bundle.RunScenario("pluginFileName", {"3", "4", "8", "16"});
        const QString contents = QFileInfo(bundle.ContentsPath()).canonicalFilePath();
        QCOMPARE(run.Value("type3"), QString("0"));
        QCOMPARE(run.Values("path4"), QStringList({contents + "/General/libimageio.2.dylib"}));
        QCOMPARE(run.Values("path8"),
                 QStringList({contents + "/PlugIns/Brushes/libbrushcontainer.2.dylib"}));
        QCOMPARE(run.Values("path16"),
                 QStringList({"", contents + "/General/libgeneraltools.2.dylib"}));
    }
};

KV_TEST_MAIN(PluginScanTest)
#include "tst_pluginscan.moc"
