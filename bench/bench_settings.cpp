#include "RatioReporter.h"

#include <KVApplication.h>
#include <KVRecentManager.h>

#include <QColor>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include <memory>

namespace {
std::unique_ptr<QTemporaryDir> s_folder;

QString Folder(const QString& name)
{
    const QString path = s_folder->filePath(name);
    QDir().mkpath(path);
    return path;
}

// A user.ini as plug-ins leave it: the library's own keys among others, ten
// to a group.
void WriteUserFile(const QString& file, int keys)
{
    QSettings settings(file, QSettings::IniFormat);
    settings.setValue("Version", "2.4.0");
    settings.setValue("Colors/Background", QColor(40, 40, 40));
    settings.setValue("Save/PathOpen", "/Users/me/Pictures");
    for (int i = 3; i < keys; ++i) {
        const QString key = QStringLiteral("Plugin%1/Key%2").arg(i / 10).arg(i % 10);
        switch (i % 3) {
        case 0:
            settings.setValue(key, QStringLiteral("/Users/me/Pictures/Holiday %1").arg(i));
            break;
        case 1:
            settings.setValue(key, i * 7);
            break;
        default:
            settings.setValue(key, i % 2 == 0);
        }
    }
}

// The library's user.ini (kept parsed by the application object) and a copy
// of it that no QSettings holds, as any program without the library has it.
QString HeldFile(int keys)
{
    return Folder(QStringLiteral("held%1").arg(keys)) + QStringLiteral("/user.ini");
}

QString UnheldFile(int keys)
{
    return Folder(QStringLiteral("unheld%1").arg(keys)) + QStringLiteral("/user.ini");
}

class Settings : public benchmark::Fixture
{
public:
    void SetUp(benchmark::State& state) override
    {
        const int keys = int(state.range(0));
        if (!QFile::exists(HeldFile(keys))) {
            WriteUserFile(HeldFile(keys), keys);
            WriteUserFile(UnheldFile(keys), keys);
        }
        KVApplication::SetUserDataFolder(QFileInfo(HeldFile(keys)).absolutePath());
    }
};

// Two paths of the same length, so that every write changes the file and
// leaves its size alone.
QString PathFor(benchmark::IterationCount i)
{
    return i % 2 ? QStringLiteral("/Users/me/Pictures/A") : QStringLiteral("/Users/me/Pictures/B");
}

// A read right after a write finds the file as Qt leaves it then: parsed
// whole. The editor writes through the library; another program (or a
// plug-in with its own QSettings) changes the file behind its back, which
// the library then checks again before Qt parses it.
enum class Writer
{
    None,
    Library,
    Outside,
};

void WriteOtherKey(benchmark::State& state, const QString& file, Writer writer)
{
    state.PauseTiming();
    if (writer == Writer::Library)
        KVApplication::SetUserValue("Plugin0/Key5", int(state.iterations()));
    else
        QSettings(file, QSettings::IniFormat).setValue("Plugin0/Key5", int(state.iterations()));
    state.ResumeTiming();
}

void TypedRead(benchmark::State& state, Writer writer)
{
    const QString file = HeldFile(int(state.range(0)));
    for (auto _ : state) {
        if (writer != Writer::None)
            WriteOtherKey(state, file, writer);
        benchmark::DoNotOptimize(KVApplication::GetBackground());
    }
}

void BareRead(benchmark::State& state, const QString& file, bool afterWrite)
{
    for (auto _ : state) {
        if (afterWrite)
            WriteOtherKey(state, file, Writer::Outside);
        QSettings settings(file, QSettings::IniFormat);
        benchmark::DoNotOptimize(settings.value("Colors/Background", QColor(Qt::white)));
    }
}

BENCHMARK_DEFINE_F(Settings, TypedRead)(benchmark::State& state)
{
    TypedRead(state, Writer::None);
}
BENCHMARK_REGISTER_F(Settings, TypedRead)->Arg(50)->Arg(1000)->UseRealTime();

BENCHMARK_DEFINE_F(Settings, BareRead)(benchmark::State& state)
{
    BareRead(state, HeldFile(int(state.range(0))), false);
}
BENCHMARK_REGISTER_F(Settings, BareRead)->Arg(50)->Arg(1000)->UseRealTime();

BENCHMARK_DEFINE_F(Settings, BareReadUnheld)(benchmark::State& state)
{
    BareRead(state, UnheldFile(int(state.range(0))), false);
}
BENCHMARK_REGISTER_F(Settings, BareReadUnheld)->Arg(50)->Arg(1000)->UseRealTime();

BENCHMARK_DEFINE_F(Settings, TypedReadAfterWrite)(benchmark::State& state)
{
    TypedRead(state, Writer::Library);
}
BENCHMARK_REGISTER_F(Settings, TypedReadAfterWrite)->Arg(50)->Arg(1000)->UseRealTime();

BENCHMARK_DEFINE_F(Settings, TypedReadAfterOutsideWrite)(benchmark::State& state)
{
    TypedRead(state, Writer::Outside);
}
BENCHMARK_REGISTER_F(Settings, TypedReadAfterOutsideWrite)->Arg(50)->Arg(1000)->UseRealTime();

BENCHMARK_DEFINE_F(Settings, BareReadAfterWrite)(benchmark::State& state)
{
    BareRead(state, HeldFile(int(state.range(0))), true);
}
BENCHMARK_REGISTER_F(Settings, BareReadAfterWrite)->Arg(50)->Arg(1000)->UseRealTime();

BENCHMARK_DEFINE_F(Settings, BareReadUnheldAfterWrite)(benchmark::State& state)
{
    BareRead(state, UnheldFile(int(state.range(0))), true);
}
BENCHMARK_REGISTER_F(Settings, BareReadUnheldAfterWrite)->Arg(50)->Arg(1000)->UseRealTime();

BENCHMARK_DEFINE_F(Settings, TypedWrite)(benchmark::State& state)
{
    for (auto _ : state)
        KVApplication::SetPathOpen(PathFor(state.iterations()));
}
BENCHMARK_REGISTER_F(Settings, TypedWrite)->Arg(50)->Arg(1000)->UseRealTime();

void BareWrite(benchmark::State& state, const QString& file)
{
    for (auto _ : state) {
        QSettings settings(file, QSettings::IniFormat);
        settings.setValue("Save/PathOpen", PathFor(state.iterations()));
    }
}

BENCHMARK_DEFINE_F(Settings, BareWrite)(benchmark::State& state)
{
    BareWrite(state, HeldFile(int(state.range(0))));
}
BENCHMARK_REGISTER_F(Settings, BareWrite)->Arg(50)->Arg(1000)->UseRealTime();

BENCHMARK_DEFINE_F(Settings, BareWriteUnheld)(benchmark::State& state)
{
    BareWrite(state, UnheldFile(int(state.range(0))));
}
BENCHMARK_REGISTER_F(Settings, BareWriteUnheld)->Arg(50)->Arg(1000)->UseRealTime();

// Recent and favourite files: both lists full of files that exist, in a
// user.ini of 50 keys.
const QString kRecentKey = QStringLiteral("RecentFiles");
const QString kFavoriteKey = QStringLiteral("FavoriteFiles");

QByteArray PathsValue(const QStringList& paths)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << qint32(paths.size());
    for (const QString& path : paths)
        stream << path;
    return bytes;
}

QStringList ReadPaths(const QSettings& settings, const QString& key)
{
    const QByteArray bytes = settings.value(key, QByteArray()).toByteArray();
    QDataStream stream(bytes);
    qint32 count = 0;
    stream >> count;
    QStringList paths;
    for (qint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        QString path;
        stream >> path;
        if (QFile::exists(path))
            paths.append(path);
    }
    return paths;
}

QString RecentFile()
{
    return Folder(QStringLiteral("recent")) + QStringLiteral("/user.ini");
}

QStringList ImageFiles(const QString& prefix, int count)
{
    QStringList paths;
    for (int i = 0; i < count; ++i) {
        paths.append(Folder(QStringLiteral("images")) +
                     QStringLiteral("/%1 %2.png").arg(prefix).arg(i));
        QFile(paths.last()).open(QIODevice::WriteOnly);
    }
    return paths;
}

class Recent : public benchmark::Fixture
{
public:
    void SetUp(benchmark::State&) override
    {
        if (!QFile::exists(RecentFile())) {
            WriteUserFile(RecentFile(), 46);
            QSettings settings(RecentFile(), QSettings::IniFormat);
            settings.setValue("RecentLimit", KVRecentManager::GetRecentMaximumNumber());
            settings.setValue("FavoriteLimit", KVRecentManager::GetFavoriteMaximumNumber());
            settings.setValue(
                kRecentKey,
                PathsValue(ImageFiles("recent", KVRecentManager::GetRecentMaximumNumber())));
            settings.setValue(
                kFavoriteKey,
                PathsValue(ImageFiles("favourite", KVRecentManager::GetFavoriteMaximumNumber())));
        }
        KVApplication::SetUserDataFolder(QFileInfo(RecentFile()).absolutePath());
    }
};

BENCHMARK_DEFINE_F(Recent, RestoreAndSave)(benchmark::State& state)
{
    for (auto _ : state) {
        KVRecentManager::InitInstance();
        KVRecentManager::ReleaseInstance();
    }
}
BENCHMARK_REGISTER_F(Recent, RestoreAndSave)->UseRealTime()->Unit(benchmark::kMicrosecond);

// The same reads and writes through bare QSettings, one object per access.
BENCHMARK_DEFINE_F(Recent, BareRestoreAndSave)(benchmark::State& state)
{
    const QString file = RecentFile();
    for (auto _ : state) {
        const int recentLimit = QSettings(file, QSettings::IniFormat).value("RecentLimit").toInt();
        const QStringList recents = ReadPaths(QSettings(file, QSettings::IniFormat), kRecentKey);
        const int favoriteLimit =
            QSettings(file, QSettings::IniFormat).value("FavoriteLimit").toInt();
        const QStringList favorites =
            ReadPaths(QSettings(file, QSettings::IniFormat), kFavoriteKey);
        QSettings(file, QSettings::IniFormat).setValue("RecentLimit", recentLimit);
        QSettings(file, QSettings::IniFormat).setValue("FavoriteLimit", favoriteLimit);
        QSettings(file, QSettings::IniFormat).setValue(kRecentKey, PathsValue(recents));
        QSettings(file, QSettings::IniFormat).setValue(kFavoriteKey, PathsValue(favorites));
    }
}
BENCHMARK_REGISTER_F(Recent, BareRestoreAndSave)->UseRealTime()->Unit(benchmark::kMicrosecond);
} // namespace

// The files live in memory where there is a RAM file system: on a disk every
// write also waits for QSaveFile's flush (about 10 ms here), which is the
// same for all writers and would drown the comparison.
void SetUpSettings()
{
    const QString shm = QStringLiteral("/dev/shm");
    s_folder = QFileInfo(shm).isWritable()
                   ? std::make_unique<QTemporaryDir>(shm + QStringLiteral("/kvbench-XXXXXX"))
                   : std::make_unique<QTemporaryDir>();
}

void TearDownSettings()
{
    s_folder.reset();
}

namespace {
void PrintKeyCount(const RatioReporter& report, int keys)
{
    const auto run = [&](const char* name) {
        return QStringLiteral("Settings/%1/%2/real_time")
            .arg(QLatin1String(name))
            .arg(keys)
            .toStdString();
    };
    if (!report.Value(run("TypedRead")).IsValid())
        return;
    std::printf("\nSettings, user.ini of %d keys\n", keys);
    const auto read = [&](const char* label, const char* typed, const char* bare,
                          const char* unheld) {
        const Spread value = report.Value(run(typed));
        PrintTarget(label, value, "us", value.median <= 10000, "(at most 10 us)", 0.001);
        PrintSpread("  / bare QSettings read of the same file", report.Ratio(run(typed), run(bare)),
                    "x");
        PrintSpread("  / bare QSettings read of a file nobody holds",
                    report.Ratio(run(typed), run(unheld)), "x");
    };
    read("typed read (GetBackground)", "TypedRead", "BareRead", "BareReadUnheld");
    read("typed read right after a write of the file", "TypedReadAfterWrite", "BareReadAfterWrite",
         "BareReadUnheldAfterWrite");
    PrintSpread("typed read after another program's write (the file checked)",
                report.Value(run("TypedReadAfterOutsideWrite")), "us", 0.001);
    // A write is the file rewritten; other processes' load on these 2-core
    // machines moves its wall time by more than the difference sought.
    const Spread write = report.Ratio(run("TypedWrite"), run("BareWrite"), Measure::CpuTime);
    PrintTarget("typed write (SetPathOpen) / bare QSettings write, same file, CPU", write, "x",
                write.median <= 1.05, "(at most 1.05x)");
    PrintSpread("  / bare QSettings write of a file nobody holds, CPU",
                report.Ratio(run("TypedWrite"), run("BareWriteUnheld"), Measure::CpuTime), "x");
    PrintSpread("  the typed write, wall time", report.Value(run("TypedWrite")), "us", 0.001);
}
} // namespace

void PrintSettingsRatios(const RatioReporter& report)
{
    PrintKeyCount(report, 50);
    PrintKeyCount(report, 1000);
    const std::string recent = "Recent/RestoreAndSave/real_time";
    if (!report.Value(recent).IsValid())
        return;
    std::printf("\nRecent and favourite files, full lists\n");
    PrintSpread("restore and save", report.Value(recent), "us", 0.001);
    PrintSpread("  / the same reads and writes through bare QSettings",
                report.Ratio(recent, "Recent/BareRestoreAndSave/real_time"), "x");
}
