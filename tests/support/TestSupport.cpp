#include "TestSupport.h"

#include <QDir>
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

} // namespace KVTest
