#include "TestSupport.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace {
struct Run
{
    int exitCode = -1;
    QStringList lines;
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
    run.lines = QString::fromUtf8(process.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
    return run;
}

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

    // A copy of the bundle with files the scan leaves out, and why.
    void reportSaysWhyFilesAreLeftOut()
    {
        const QString bundle = m_dir.filePath("Copy.app/Contents");
        QVERIFY(QDir().mkpath(m_dir.filePath("Copy.app")));
        QVERIFY(QProcess::execute("cp", {"-r", PELKARO_BUNDLE, bundle}) == 0);
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

    void windowOpensAdjustsExportsAndQuits()
    {
        if (QStandardPaths::findExecutable("xvfb-run").isEmpty())
            QSKIP("xvfb-run is not installed");
        const QString exports = Home("exports");
        const Run run =
            RunHost(PELKARO_HOST, {"--self-test", exports, m_png, m_jpeg}, Home("window"), true);
        const QString text = run.lines.join('\n');
        QVERIFY2(run.exitCode == 0, qPrintable(text));
        QCOMPARE(Line(run, "menus: "), QString("menus: &File|&Adjustments|&View"));
        QCOMPARE(Line(run, "tool areas: "), QString("tool areas: bar, panel"));
        QCOMPARE(Line(run, "tools: ").count('|'), 2);
        QVERIFY(!Line(run, "adjusted: ").isEmpty());
        QVERIFY(text.contains("opened " + m_png + ": 64x48"));
        QVERIFY(text.contains("opened " + m_jpeg + ": 40x30"));
        QVERIFY(text.contains("exported " + exports + "/exported.png: yes"));
        QVERIFY(!QImage(exports + "/exported.png").isNull());
    }
};

KV_TEST_MAIN(HostTest)
#include "tst_host.moc"
