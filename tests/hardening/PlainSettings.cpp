// kv_plainsettings <file> <key in hex>: one key of an INI file as plain
// QSettings reads it (without the library and sanitizers), printed as
// IniText.h does. A value that makes Qt allocate far beyond what the file
// holds fails here as a crash; printing it to a QDebug asks of it what Qt's
// own code asks of a value.

#include "IniText.h"

#include <QDebug>
#include <QGuiApplication>

#include <cstdio>
#ifdef __linux__
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace {
// Room for 80 MiB beyond what the process holds now.
void LimitMemory()
{
#ifdef __linux__
    QFile statm(QStringLiteral("/proc/self/statm"));
    const long pages =
        statm.open(QIODevice::ReadOnly) ? statm.readAll().split(' ').value(0).toLong() : 0;
    if (pages <= 0)
        return;
    const rlim_t limit = rlim_t(pages) * rlim_t(sysconf(_SC_PAGESIZE)) + (80u << 20);
    const rlimit memory{limit, limit};
    setrlimit(RLIMIT_AS, &memory);
#endif
}
} // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int appArgc = 1;
    QGuiApplication app(appArgc, argv);
    const QString file = QString::fromLocal8Bit(argv[1]);
    const QByteArray keyBytes = QByteArray::fromHex(argv[2]);
    const QString key = QString::fromUtf8(keyBytes.constData(), keyBytes.size()); // NULs too
    const QByteArray text = [&] {
        LimitMemory();
        QSettings settings(file, QSettings::IniFormat);
        const QVariant value = settings.value(key);
        QString printed;
        QDebug(&printed) << value;
        return IniText(value);
    }();
    std::fwrite(text.constData(), 1, size_t(text.size()), stdout);
    return 0;
}
