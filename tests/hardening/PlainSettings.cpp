// kv_plainsettings <file> <key in hex>: reads one key of an INI file with
// plain QSettings, as any Qt program would, and prints it as QSettings writes
// it (IniText.h). Built without the library and without sanitizers. The
// process may only take a little more memory than it holds at the start of
// the read, as a program on a smaller machine could: a value that makes Qt
// allocate far beyond what the file holds fails here as a crash. The value
// is also printed to a QDebug, which asks it what Qt's own code asks of a
// value: one that crashes then is no harmless value.

#include "IniText.h"

#include <QDebug>
#include <QGuiApplication>

#include <cstdio>

#ifdef __linux__
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace {
void LimitMemory()
{
#ifdef __linux__
    long pages = 0;
    if (FILE* statm = std::fopen("/proc/self/statm", "r")) {
        if (std::fscanf(statm, "%ld", &pages) != 1)
            pages = 0;
        std::fclose(statm);
    }
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
