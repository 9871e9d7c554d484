#include "TestSupport.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace {
// Tests run as root here: a slip would write this real folder.
const char* const kRealApplicationFolder = "/Library/Application Support/Pelkaro AB";
bool s_realFolderExisted = false;
QTemporaryDir* s_home = nullptr;

void CheckRealFolderUntouched()
{
    if (!s_realFolderExisted && QDir(QString::fromLatin1(kRealApplicationFolder)).exists()) {
        std::fprintf(stderr, "FAIL: a test wrote %s\n", kRealApplicationFolder);
        std::_Exit(3);
    }
}
} // namespace

namespace KVTest {

void PrepareProcess()
{
    s_realFolderExisted = QDir(QString::fromLatin1(kRealApplicationFolder)).exists();
    s_home = new QTemporaryDir(QDir::tempPath() + QStringLiteral("/kvtest-home-XXXXXX"));
    qputenv("HOME", QFile::encodeName(s_home->path()));
    const QString runtime = s_home->path() + QStringLiteral("/.runtime");
    QDir().mkpath(runtime);
    QFile::setPermissions(runtime,
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime));
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    std::atexit([] {
        CheckRealFolderUntouched();
        delete s_home;
    });
}

QString SourcePath(const QString& relative)
{
    return QStringLiteral(PELKARO_SOURCE_DIR "/") + relative;
}

QString HomePath()
{
    return s_home ? s_home->path() : QDir::homePath();
}

bool IsChildProcess()
{
    return qEnvironmentVariableIsSet("KV_TEST_CHILD");
}

QString RunInChildProcess(int timeoutMs)
{
    QString function = QString::fromLatin1(QTest::currentTestFunction());
    if (const char* tag = QTest::currentDataTag())
        function += QLatin1Char(':') + QString::fromLatin1(tag);
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("KV_TEST_CHILD"), QStringLiteral("1"));
    child.setProcessEnvironment(environment);
    child.setProcessChannelMode(QProcess::MergedChannels);
    child.start(QCoreApplication::applicationFilePath(), {function});
    if (!child.waitForFinished(timeoutMs)) {
        child.kill();
        child.waitForFinished();
        return QStringLiteral("%1 did not finish within %2 ms:\n%3")
            .arg(function)
            .arg(timeoutMs)
            .arg(QString::fromLocal8Bit(child.readAll()));
    }
    if (child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0)
        return QString();
    return QStringLiteral("%1 failed in its child process:\n%2")
        .arg(function, QString::fromLocal8Bit(child.readAll()));
}

} // namespace KVTest
