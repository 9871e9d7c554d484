#include "TestSupport.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace {
struct Run
{
    int exitCode = -1; // -1 as well for a crash
    QStringList lines;
    QByteArray output;
};

// Runs the bundle's host (under Xvfb when asked) with its own HOME.
Run RunHost(const QString& host, const QStringList& arguments, const QString& home,
            bool window = false)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", home);
    environment.insert("QT_QPA_PLATFORM", window ? "xcb" : "offscreen");
    // The window needs no OpenGL: without the GLX integration Mesa's software
    // renderer is not loaded, and its allocations, kept past its unloading,
    // are not reported as leaks of the host.
    environment.insert("QT_XCB_GL_INTEGRATION", "none");
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    if (window)
        process.start("xvfb-run", QStringList{"-a", host} + arguments);
    else
        process.start(host, arguments);
    Run run;
    if (!process.waitForFinished(120000))
        return run;
    run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    run.output = process.readAllStandardOutput();
    run.lines = QString::fromUtf8(run.output).split('\n', Qt::SkipEmptyParts);
    return run;
}

QJsonObject Json(const Run& run)
{
    return QJsonDocument::fromJson(run.output).object();
}

// The JSON report's entry for the load record of a file, by the end of its path.
QJsonObject FileEntry(const QJsonObject& report, const QString& pathEnd)
{
    for (const QJsonValue& file : report["files"].toArray()) {
        if (file["path"].toString().endsWith(pathEnd))
            return file.toObject();
    }
    return QJsonObject();
}

QStringList LoadedFiles(const QJsonObject& report)
{
    QStringList loaded;
    for (const QJsonValue& file : report["files"].toArray()) {
        if (file["status"] == "loaded")
            loaded << QFileInfo(file["path"].toString()).fileName();
    }
    return loaded;
}

const QStringList kContributions = {"imageFormats", "adjustments", "brushes", "tools"};

QString Line(const Run& run, const QString& start)
{
    for (const QString& line : run.lines) {
        if (line.startsWith(start))
            return line;
    }
    return QString();
}
} // namespace

// The sample host run from its bundle, as a new user would start it.
class HostTest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString m_png;
    QString m_jpeg;
    QJsonObject m_report; // the JSON report of the bundle as built

    QString Home(const QString& name) const
    {
        QDir().mkpath(m_dir.filePath(name));
        return m_dir.filePath(name);
    }

private Q_SLOTS:
    void initTestCase()
    {
        QImage image(64, 48, QImage::Format_RGB32);
        image.fill(QColor(200, 40, 40));
        m_png = m_dir.filePath("red.png");
        m_jpeg = m_dir.filePath("red.jpg");
        QVERIFY(image.save(m_png) && image.scaled(40, 30).save(m_jpeg));
    }

    void reportExplainsPluginsAndOpensImages()
    {
        const Run run = RunHost(PELKARO_HOST, {"--report", m_png, m_jpeg}, Home("report"));
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(Line(run, "scan general folder ").endsWith("/PlugIns/General"),
                 qPrintable(run.lines.join('\n')));
        const QString text = run.lines.join('\n');
        for (const char* plugin :
             {"Brushes/libbrushcontainer.2.dylib", "General/libadjustments.2.dylib",
              "General/libbasictools.2.dylib", "General/libimageio.2.dylib"}) {
            QVERIFY2(text.contains(QString("%1: loaded, \"Plugin OK.\"").arg(plugin)),
                     qPrintable(text));
        }
        QVERIFY(Line(run, "read group").contains("\"All\""));
        QVERIFY(Line(run, "open filter: ").contains("PNG image (*.png)"));
        QCOMPARE(Line(run, "open " + m_png), "open " + m_png + ": 64x48");
        QCOMPARE(Line(run, "open " + m_jpeg), "open " + m_jpeg + ": 40x30");

        const Run missing =
            RunHost(PELKARO_HOST, {"--report", m_dir.filePath("gone.png")}, Home("report"));
        QCOMPARE(missing.exitCode, 1);
    }

    // A copy of the bundle's Contents folder, whose host runs from there.
    QString CopyBundle(const QString& name) const
    {
        const QString bundle = m_dir.filePath(name + ".app/Contents");
        if (!QDir().mkpath(m_dir.filePath(name + ".app")) ||
            QProcess::execute("cp", {"-r", PELKARO_BUNDLE, bundle}) != 0)
            return QString();
        return bundle;
    }

    // A test plug-in put into a bundle's general folder under a family's name.
    static bool AddTestPlugin(const QString& bundle, const QString& kind, const QString& as)
    {
        return QFile::copy(QString(KV_TEST_PLUGIN_DIR "/lib%1.dylib").arg(kind),
                           bundle + "/PlugIns/General/" + as);
    }

    // A copy of the bundle with files the scan leaves out, and why.
    void reportSaysWhyFilesAreLeftOut()
    {
        const QString bundle = CopyBundle("Copy");
        QVERIFY(!bundle.isEmpty());
        const QString general = bundle + "/PlugIns/General";
        QVERIFY(QFile::copy(general + "/libimageio.2.dylib", general + "/LIBIMAGEIO.dylib"));
        QFile(general + "/notes.txt").open(QIODevice::WriteOnly);
        QDir(bundle + "/PlugIns/Brushes").removeRecursively();

        const Run run = RunHost(bundle + "/MacOS/Pelkaro", {"--report"}, Home("copy"));
        QCOMPARE(run.exitCode, 0);
        const QString text = run.lines.join('\n');
        QVERIFY2(text.contains("LIBIMAGEIO.dylib: not taken, the base name \"LIBIMAGEIO\" differs "
                               "from \"libimageio\" in case"),
                 qPrintable(text));
        QVERIFY(text.contains("notes.txt: not taken, the suffix \"txt\" is not \"dylib\""));
        QVERIFY(text.contains("scan brush folder \"../PlugIns/Brushes\": missing"));
    }

    // What each sample plug-in contributed, and nothing else.
    void jsonReportListsContributions_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("key"); // its one non-empty contribution
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("firstName");
        QTest::addColumn<bool>("brushFactory");

        QTest::newRow("image formats") << "General/libimageio.2.dylib"
                                       << "imageFormats" << 1 << "PNG image" << false;
        QTest::newRow("adjustments") << "General/libadjustments.2.dylib"
                                     << "adjustments" << 6 << "Invert" << false;
        QTest::newRow("brushes") << "Brushes/libbrushcontainer.2.dylib"
                                 << "brushes" << 3 << "Round" << true;
        QTest::newRow("tools") << "General/libbasictools.2.dylib"
                               << "tools" << 3 << "Move" << false;
    }

    void jsonReportListsContributions()
    {
        QFETCH(QString, file);
        QFETCH(QString, key);
        QFETCH(int, count);
        QFETCH(QString, firstName);
        QFETCH(bool, brushFactory);

        if (m_report.isEmpty()) {
            const Run run = RunHost(PELKARO_HOST, {"--report", "--json", m_png}, Home("json"));
            QCOMPARE(run.exitCode, 0);
            m_report = Json(run);
            QVERIFY2(!m_report.isEmpty(), run.output.constData());
        }
        QCOMPARE(m_report["images"].toArray().first()["width"].toInt(), 64);
        QVERIFY(m_report["skipped"].toArray().isEmpty());
        const QJsonObject entry = FileEntry(m_report, file);
        QCOMPARE(entry["status"].toString(), QString("loaded"));
        QCOMPARE(entry["error"].toString(), QString("Plugin OK."));
        QCOMPARE(entry["brushFactory"].toBool(), brushFactory);
        for (const QString& contribution : kContributions) {
            QCOMPARE(entry[contribution].toArray().size(), contribution == key ? count : 0);
        }
        const QJsonObject first = entry[key].toArray().first().toObject();
        const QString name = key == "imageFormats" ? first["groups"][0]["name"].toString()
                             : key == "tools"      ? first["actions"][0].toString()
                                                   : first["name"].toString();
        QCOMPARE(name, firstName);
        if (key == "adjustments")
            QVERIFY(first["registered"].toBool());
        if (key == "brushes")
            QVERIFY(first["main"].toBool());
        if (brushFactory)
            QCOMPARE(entry["factoryBrushes"].toArray().size(), 3);
    }

    // A plug-in that misses a function: the doctor names it readably; safe
    // mode leaves the file out.
    void brokenPluginNamesItsSymbol()
    {
        const QString bundle = CopyBundle("Broken");
        QVERIFY(!bundle.isEmpty());
        QVERIFY(AddTestPlugin(bundle, "tc_missingsymbol", "libfilter.2.dylib"));
        const QString host = bundle + "/MacOS/Pelkaro";

        const Run text = RunHost(host, {"--report"}, Home("broken"));
        QCOMPARE(text.exitCode, 0);
        QVERIFY2(text.lines.contains("  undefined symbol _Z13MissingHelperv: MissingHelper()"),
                 text.output.constData());

        const QJsonObject report = Json(RunHost(host, {"--report", "--json"}, Home("broken")));
        const QJsonObject broken = FileEntry(report, "/libfilter.2.dylib");
        QCOMPARE(broken["status"].toString(), QString("failed"));
        QVERIFY(broken["error"].toString().contains("undefined symbol: _Z13MissingHelperv"));
        QCOMPARE(broken["undefinedSymbol"].toString(), QString("_Z13MissingHelperv"));
        QCOMPARE(broken["demangledSymbol"].toString(), QString("MissingHelper()"));
        QCOMPARE(LoadedFiles(report).size(), 4);

        const QJsonObject safe =
            Json(RunHost(host, {"--report", "--json", "--safe-mode"}, Home("broken")));
        QVERIFY(safe["safeMode"].toBool());
        QCOMPARE(LoadedFiles(safe),
                 QStringList({"libbrushcontainer.2.dylib", "libadjustments.2.dylib",
                              "libbasictools.2.dylib", "libimageio.2.dylib"}));
        QCOMPARE(safe["files"].toArray().size(), 4);
        QCOMPARE(safe["leftOut"][0]["path"].toString(),
                 bundle + "/PlugIns/General/libfilter.2.dylib");
        QCOMPARE(safe["leftOut"][0]["reason"].toString(), QString("safe mode"));
    }

    // A plug-in that aborts the editor while it loads: the start after it
    // names the file, starts without it, and keeps it out until taken back.
    void crashedPluginIsSkippedNextStart()
    {
        const QString bundle = CopyBundle("Crash");
        QVERIFY(!bundle.isEmpty());
        QVERIFY(AddTestPlugin(bundle, "tc_abort", "libfilter.2.dylib"));
        const QString host = bundle + "/MacOS/Pelkaro";
        const QString crashing = bundle + "/PlugIns/General/libfilter.2.dylib";
        const QString home = Home("crash");

        QCOMPARE(RunHost(host, {"--report"}, home).exitCode, -1);

        const Run second = RunHost(host, {"--report"}, home);
        QVERIFY2(second.exitCode == 0, second.output.constData());
        QCOMPARE(Line(second, "crashed "),
                 "crashed " + crashing +
                     ": the last start ended while it loaded; starting without it "
                     "(--retry-plugins loads it again)");
        QCOMPARE(second.lines.filter(QRegularExpression("^load .*: loaded, ")).size(), 4);
        QVERIFY(!Line(second, "left out " + crashing + ": skipped").isEmpty());
        QVERIFY(Line(second, "load " + crashing).isEmpty());

        const QJsonObject third = Json(RunHost(host, {"--report", "--json"}, home));
        QCOMPARE(third["crashedLastStart"].toString(), QString());
        QCOMPARE(third["skipped"].toArray(), QJsonArray{crashing});
        QCOMPARE(LoadedFiles(third).size(), 4);

        // Taken back, it loads, and crashes, again.
        QCOMPARE(RunHost(host, {"--report", "--retry-plugins"}, home).exitCode, -1);
    }

    void windowOpensAdjustsExportsAndQuits()
    {
        if (QStandardPaths::findExecutable("xvfb-run").isEmpty())
            QSKIP("xvfb-run is not installed");
        const QString exports = Home("exports");
        const Run run =
            RunHost(PELKARO_HOST, {"--self-test", exports, m_png, m_jpeg}, Home("window"), true);
        const QString text = run.lines.join('\n');
        QVERIFY2(run.exitCode == 0, qPrintable(text));
        QCOMPARE(Line(run, "menus: "), QString("menus: &File|&Adjustments|&View|&Help"));
        QCOMPARE(Line(run, "tool areas: "), QString("tool areas: bar, panel"));
        QCOMPARE(Line(run, "tools: ").count('|'), 2);
        QVERIFY(!Line(run, "adjusted: ").isEmpty());
        QVERIFY(text.contains("opened " + m_png + ": 64x48"));
        QVERIFY(text.contains("opened " + m_jpeg + ": 40x30"));
        QVERIFY(text.contains("exported " + exports + "/exported.png: yes"));
        QVERIFY(!QImage(exports + "/exported.png").isNull());
        QCOMPARE(Line(run, "plug-ins dialog: "), QString("plug-ins dialog: 4 files"));
    }
};

KV_TEST_MAIN(HostTest)
#include "tst_host.moc"
