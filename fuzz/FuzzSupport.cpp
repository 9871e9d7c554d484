#include "FuzzSupport.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace KVFuzz {
namespace {
int s_argc = 1;
char* s_argv[] = {const_cast<char*>("fuzz"), nullptr};
QTemporaryDir* s_scratch = nullptr;

// Tens of thousands of inputs a minute: the library's debug lines would
// bury the fuzzer's own report.
void DropDebugLines(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type != QtDebugMsg)
        std::fprintf(stderr, "%s\n", qUtf8Printable(text));
}
} // namespace

QString ScratchFolder()
{
    if (!s_scratch) {
        const QString shm = QStringLiteral("/dev/shm");
        s_scratch = QFileInfo(shm).isWritable()
                        ? new QTemporaryDir(shm + QStringLiteral("/kvfuzz-XXXXXX"))
                        : new QTemporaryDir;
        std::atexit([] { delete s_scratch; });
    }
    return s_scratch->path();
}

InputFile::InputFile(const QString& name, const uint8_t* data, size_t size)
    : m_path(ScratchFolder() + QLatin1Char('/') + name)
{
    static qint64 stamp = 0;
    QFile file(m_path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return;
    file.write(reinterpret_cast<const char*>(data), qint64(size));
    file.setFileTime(QDateTime::fromSecsSinceEpoch(++stamp), QFileDevice::FileModificationTime);
}

InputFile::~InputFile()
{
    QFile::remove(m_path);
}

int& ApplicationArgc()
{
    return s_argc;
}

char** ApplicationArgv()
{
    return s_argv;
}

void PrepareApplication()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("HOME", QFile::encodeName(ScratchFolder()));
    qInstallMessageHandler(&DropDebugLines);
}

void Check(bool condition, const char* what)
{
    if (condition)
        return;
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}

} // namespace KVFuzz
