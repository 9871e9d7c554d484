#include "TestSupport.h"

#include <QDir>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {
struct Run
{
    int exitCode = -1; // -1 as well for a crash
    QByteArray output;
    QStringList lines;

    QString Line(const QString& start) const
    {
        return lines.filter(QRegularExpression("^" + QRegularExpression::escape(start))).value(0);
    }
    QJsonObject Json() const { return QJsonDocument::fromJson(output).object(); }
};

// Runs the bundle's host with its own HOME.
Run RunHost(const QString& host, const QStringList& arguments, const QString& home)
{
    QDir().mkpath(home);
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", home);
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    environment.insert("QT_XCB_GL_INTEGRATION", "none"); // no Mesa, whose leaks outlive it
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(host, arguments);
    Run run;
    if (!process.waitForFinished(120000))
        return run;
    run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    run.output = process.readAllStandardOutput();
    run.lines = QString::fromUtf8(run.output).split('\n', Qt::SkipEmptyParts);
    return run;
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
} // namespace

// The sample host run from its bundle, as a new user would start it.
class HostTest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString m_png;

private Q_SLOTS:
    void initTestCase()
    {
        QImage image(64, 48, QImage::Format_RGB32);
        image.fill(QColor(200, 40, 40));
        m_png = m_dir.filePath("red.png");
        QVERIFY(image.save(m_png));
    }

    // The text report, its exit code, and in JSON what each sample plug-in contributed.
    void reportExplainsPluginsAndOpensImages()
    {
        const Run run = RunHost(PELKARO_HOST, {"--report", m_png}, m_dir.filePath("report"));
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.Line("open " + m_png), "open " + m_png + ": 64x48");
        QCOMPARE(RunHost(PELKARO_HOST, {"--report", m_dir.filePath("gone.png")},
                         m_dir.filePath("report"))
                     .exitCode,
                 1);

        const Run json =
            RunHost(PELKARO_HOST, {"--report", "--json", m_png}, m_dir.filePath("json"));
        const QJsonObject report = json.Json();
        QVERIFY2(json.exitCode == 0 && !report.isEmpty(), json.output.constData());
        // file, its one non-empty contribution, how many, the first one's name
        for (const QStringList& row :
             {QStringList{"General/libadjustments.2.dylib", "adjustments", "6", "Invert"},
              QStringList{"Brushes/libbrushcontainer.2.dylib", "brushes", "3", "Round"}}) {
            const QJsonObject entry = FileEntry(report, row[0]);
            QCOMPARE(entry["status"].toString(), QString("loaded"));
            QCOMPARE(entry["error"].toString(), QString("Plugin OK."));
            QCOMPARE(entry["brushFactory"].toBool(), row[1] == "brushes");
            for (const char* key : {"imageFormats", "adjustments", "brushes", "tools"})
                QCOMPARE(entry[key].toArray().size(), row[1] == key ? row[2].toInt() : 0);
            QCOMPARE(entry[row[1]][0]["name"].toString(), row[3]);
        }
    }

    // A plug-in that aborts the editor while it loads: the start after it
    // names the file, starts without it, and keeps it out until taken back.
    // Another that misses a function fails to load, its function named readably.
    void crashedPluginIsSkippedNextStart()
    {
        const QString bundle = m_dir.filePath("Crash.app/Contents");
        const QString general = bundle + "/PlugIns/General/lib";
        QVERIFY(QDir().mkpath(m_dir.filePath("Crash.app")));
        QCOMPARE(QProcess::execute("cp", {"-r", PELKARO_BUNDLE, bundle}), 0);
        QVERIFY(QFile::copy(KV_TEST_PLUGIN_DIR "/libtc_abort.dylib", general + "filter.2.dylib"));
        QVERIFY(QFile::copy(KV_TEST_PLUGIN_DIR "/libtc_missingsymbol.dylib",
                            general + "generaltools.2.dylib"));
        const QString host = bundle + "/MacOS/Pelkaro";
        const QString crashing = general + "filter.2.dylib";
        const QString home = m_dir.filePath("crash");

        QCOMPARE(RunHost(host, {"--report"}, home).exitCode, -1);

        const Run second = RunHost(host, {"--report"}, home);
        QVERIFY2(second.exitCode == 0, second.output.constData());
        QCOMPARE(second.Line("crashed "),
                 "crashed " + crashing +
                     ": the last start ended while it loaded; starting without it "
                     "(--retry-plugins loads it again)");
        QCOMPARE(second.lines.filter(QRegularExpression("^load .*: loaded, ")).size(), 4);
        QVERIFY(!second.Line("left out " + crashing + ": skipped").isEmpty());
        QVERIFY(second.Line("load " + crashing).isEmpty());
        QVERIFY(second.lines.contains("  undefined symbol _Z13MissingHelperv: MissingHelper()"));

        const QJsonObject third = RunHost(host, {"--report", "--json"}, home).Json();
        QCOMPARE(third["crashedLastStart"].toString(), QString());
        QCOMPARE(third["skipped"].toArray(), QJsonArray{crashing});
        QCOMPARE(FileEntry(third, "/libgeneraltools.2.dylib")["demangledSymbol"].toString(),
                 QString("MissingHelper()"));

        // Taken back, it loads, and crashes, again.
        QCOMPARE(RunHost(host, {"--report", "--retry-plugins"}, home).exitCode, -1);
    }
};

KV_TEST_MAIN(HostTest)
#include "tst_host.moc"
