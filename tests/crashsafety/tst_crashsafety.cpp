#include "BundleFixture.h"
#include "TestSupport.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QSettings>
#include <QTemporaryDir>
#include <QThread>

namespace {
// The files by the names the writer reports them under.
const QMap<QString, QString> kFiles = {{"user", "user.ini"},
                                       {"resolutions", "exportandshareresolution.ini"},
                                       {"sizes", "exportandsharesize.ini"}};

// Per file, the state a killed writer last finished (or loaded), and the one
// it announced after that, which may or may not have reached the disk.
struct Expected
{
    explicit Expected(const QStringList& lines)
    {
        for (const QString& line : lines) {
            const QString kind = line.section(':', 0, 0);
            const QString file = line.section(':', 1).section('=', 0, 0);
            if (kind == "start" || kind == "done")
                done[file] = line.section('=', 1), pending.remove(file);
            else if (kind == "next")
                pending[file] = line.section('=', 1);
        }
    }
    QMap<QString, QString> done, pending;
};

// Reads a settings file through a copy of its own, so that Qt's cache of
// parsed files can never answer for an earlier version of it.
QString ReadState(const QString& path, const QString& file, int check)
{
    if (!QFile::exists(path))
        return file == "user" ? QString() : QStringLiteral("<missing>");
    const QString copy = QStringLiteral("%1.check%2").arg(path).arg(check);
    if (!QFile::copy(path, copy))
        return QStringLiteral("<unreadable>");
    QSettings settings(copy, QSettings::IniFormat);
    QString state = settings.value("Save/PathOpen").toString();
    if (file != "user" && !settings.contains("Version"))
        state = QStringLiteral("<no version>");
    else if (file != "user") {
        QStringList entries;
        settings.beginGroup(file == "sizes" ? "Sizes" : "Resolutions");
        for (int i = 0; settings.contains(QString::number(i)); ++i)
            entries.append(settings.value(QString::number(i)).toString());
        state = entries.join(',');
    }
    QFile::remove(copy);
    return settings.status() == QSettings::NoError ? state : QStringLiteral("<unparsable>");
}
} // namespace

// A process that keeps changing user.ini and both preset lists is killed at
// random moments, again and again; after every kill each file must still
// parse and hold every change that the process had finished.
class CrashSafetyTest : public QObject
{
    Q_OBJECT

private:
    BundleFixture m_bundle;
    // In memory where possible, so that a kill nearly always finds a change half done.
    QTemporaryDir m_home{QFileInfo("/dev/shm").isWritable() ? "/dev/shm/kvcrash-XXXXXX"
                                                            : QDir::tempPath() + "/kvcrash-XXXXXX"};

    // Kills the writer a moment after it loaded the files; answers what it said.
    QStringList RunAndKill(int run, int afterMs)
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("HOME", m_home.path());
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(m_bundle.MacOSPath() + "/Pelkaro", {"keepWriting", QString::number(run)});
        QByteArray output;
        while (!output.contains("start:sizes=") && process.waitForReadyRead(30000))
            output += process.readAllStandardOutput();
        QThread::usleep(ulong(afterMs) * 1000);
        process.kill();
        process.waitForFinished();
        output += process.readAllStandardOutput();
        return QString::fromUtf8(output).split('\n', Qt::SkipEmptyParts);
    }

private Q_SLOTS:
    void killedWriterLeavesEveryFinishedChange()
    {
        QVERIFY(m_bundle.IsValid() && m_home.isValid());
        QMap<QString, QString> onDisk;
        QElapsedTimer timer;
        timer.start();
        int kills = 0;
        // About 300 kills, within half a minute: sanitizer builds start slower.
        for (; kills < 300 && timer.elapsed() < 30000; ++kills) {
            const QStringList lines = RunAndKill(kills, QRandomGenerator::global()->bounded(25));
            const Expected expected(lines);
            QCOMPARE(expected.done.size(), kFiles.size()); // the writer reports what it loaded
            for (const QString& file : kFiles.keys()) {
                if (onDisk.contains(file)) // the writer loaded what the previous kill left
                    QVERIFY(lines.contains("start:" + file + "=" + onDisk.value(file)));
                const QString state = ReadState(
                    m_home.path() + "/Library/Preferences/Pelkaro AB/Pelkaro/" + kFiles[file], file,
                    kills);
                const bool held =
                    state == expected.done.value(file) ||
                    (expected.pending.contains(file) && state == expected.pending.value(file));
                QVERIFY2(
                    held,
                    qPrintable(QString("kill %1: %2 holds \"%3\"").arg(kills).arg(file, state)));
                onDisk[file] = state;
            }
        }
        QVERIFY(kills >= 50);
    }
};

KV_TEST_MAIN(CrashSafetyTest)
#include "tst_crashsafety.moc"
