#include "RatioReporter.h"
#include "TestImagePlugin.h"

#include <KVImageFileManager.h>

#include <QMutex>
#include <QSemaphore>
#include <QThread>
#include <QVector>

#include <memory>
#include <string>
#include <vector>

namespace {
using Manager = KVImageFileManager;

TestImagePlugin* s_pngPlugin = nullptr;
TestImagePlugin* s_filterPlugin = nullptr;

// The pool written the plain way: a QSemaphore counting free readers and a
// QMutex guarding a QVector used as a stack.
class BarePool
{
public:
    explicit BarePool(int size)
        : m_available(size)
    {
        for (int i = 0; i < size; ++i)
            m_free.append(&m_items[i]);
    }
    int* Acquire()
    {
        m_available.acquire();
        QMutexLocker locker(&m_lock);
        return m_free.takeLast();
    }
    void Release(int* item)
    {
        {
            QMutexLocker locker(&m_lock);
            m_free.append(item);
        }
        m_available.release();
    }

private:
    int m_items[64] = {};
    QSemaphore m_available;
    QMutex m_lock;
    QVector<int*> m_free;
};

std::unique_ptr<TestImagePlugin> MakeFilterPlugin()
{
    TestImagePluginConfig config;
    config.uid = QStringLiteral("{f17e0000-0000-4000-8000-000000000000}");
    for (int i = 0; i < 100; ++i)
        config.formats.append(QStringLiteral("f%1").arg(i, 3, 10, QLatin1Char('0')));
    for (int g = 0; g < 30; ++g) {
        TestGroup group{
            QStringLiteral("{f17e%1-0000-4000-8000-000000000000}").arg(g, 4, 10, QLatin1Char('0')),
            QStringLiteral("Group %1 image").arg(g),
            {}};
        for (int i = 0; i < 10; ++i)
            group.formats.append(config.formats.at((g * 3 + i) % 100));
        config.groups.append(group);
    }
    return std::make_unique<TestImagePlugin>(config);
}
// The registry for these measures: the reader pool's plug-in, and a second one
// whose 100 formats in 30 groups feed the dialog filter (its formats have no
// pools: the pool exists first). Made by the first thread of each run.
class ImageFiles : public benchmark::Fixture
{
public:
    void SetUp(benchmark::State& state) override
    {
        if (state.thread_index() != 0)
            return;
        Manager::InitInstance();
        TestImagePluginConfig png;
        png.formats = QStringList{QStringLiteral("png")};
        png.readerUIDs = QStringList{QStringLiteral("{be9c0000-0000-4000-8000-000000000001}")};
        s_pngPlugin = new TestImagePlugin(png);
        Manager::Register(s_pngPlugin);
        Manager::InitReadersPool();
        s_filterPlugin = MakeFilterPlugin().release();
        Manager::Register(s_filterPlugin);
    }

    void TearDown(benchmark::State& state) override
    {
        if (state.thread_index() != 0)
            return;
        Manager::ReleaseReadersPool();
        Manager::ReleaseInstance();
        delete s_filterPlugin;
        delete s_pngPlugin;
    }
};

BENCHMARK_DEFINE_F(ImageFiles, PoolRoundTrip)(benchmark::State& state)
{
    for (auto _ : state) {
        KVImageFileReader* reader = Manager::AcquireReader(QStringLiteral("png"));
        benchmark::DoNotOptimize(reader);
        Manager::ReleaseAcquiredReader(reader);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK_REGISTER_F(ImageFiles, PoolRoundTrip)->Threads(1)->Threads(2)->UseRealTime();

// A decoding thread does real work between borrows; about a third of a microsecond
// of it shows how the pool shares out under a load closer to the editor's.
void DecodeWork()
{
    quint64 work = 0;
    for (int i = 0; i < 400; ++i)
        benchmark::DoNotOptimize(work += i * work + 1);
}

BENCHMARK_DEFINE_F(ImageFiles, PoolRoundTripWithWork)(benchmark::State& state)
{
    for (auto _ : state) {
        KVImageFileReader* reader = Manager::AcquireReader(QStringLiteral("png"));
        benchmark::DoNotOptimize(reader);
        DecodeWork();
        Manager::ReleaseAcquiredReader(reader);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK_REGISTER_F(ImageFiles, PoolRoundTripWithWork)->Threads(1)->Threads(2)->UseRealTime();

// The same work without borrowing: how far two threads can scale at all here.
void WorkAlone(benchmark::State& state)
{
    for (auto _ : state)
        DecodeWork();
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(WorkAlone)->Threads(1)->Threads(2)->UseRealTime();

void BareRoundTrip(benchmark::State& state)
{
    static BarePool pool(QThread::idealThreadCount());
    for (auto _ : state) {
        int* item = pool.Acquire();
        benchmark::DoNotOptimize(item);
        pool.Release(item);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BareRoundTrip)->Threads(1)->Threads(2)->UseRealTime();

BENCHMARK_DEFINE_F(ImageFiles, CreateReaderPerRequest)(benchmark::State& state)
{
    for (auto _ : state) {
        KVImageFileReader* reader = Manager::CreateReader(QStringLiteral("png"));
        benchmark::DoNotOptimize(reader);
        Manager::ReleaseReader(reader);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK_REGISTER_F(ImageFiles, CreateReaderPerRequest)->UseRealTime();

BENCHMARK_DEFINE_F(ImageFiles, FilterForRead30Groups100Formats)(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(Manager::GetFilterForRead());
}
BENCHMARK_REGISTER_F(ImageFiles, FilterForRead30Groups100Formats)->UseRealTime();

// Image-file plug-ins of ten formats each, one group of their own and one
// reader and writer, as a plug-in library registers them.
std::vector<std::unique_ptr<TestImagePlugin>> MakeFormatPlugins(int count)
{
    std::vector<std::unique_ptr<TestImagePlugin>> plugins;
    for (int p = 0; p < count; ++p) {
        const auto uid = [p](int kind) {
            return QStringLiteral("{%1%2-0000-4000-8000-000000000000}")
                .arg(kind, 4, 10, QLatin1Char('0'))
                .arg(p, 4, 10, QLatin1Char('0'));
        };
        TestImagePluginConfig config;
        config.uid = uid(1);
        for (int f = 0; f < 10; ++f)
            config.formats.append(QStringLiteral("p%1f%2").arg(p).arg(f));
        config.groups.append(TestGroup{uid(2), QStringLiteral("Group %1").arg(p), config.formats});
        config.readerUIDs = QStringList{uid(3)};
        config.writerUIDs = QStringList{uid(4)};
        plugins.push_back(std::make_unique<TestImagePlugin>(config));
    }
    return plugins;
}

class Registration : public benchmark::Fixture
{
public:
    void SetUp(benchmark::State&) override { Manager::InitInstance(); }
    void TearDown(benchmark::State&) override { Manager::ReleaseInstance(); }
};

BENCHMARK_DEFINE_F(Registration, RegisterAndUnregister)(benchmark::State& state)
{
    const auto plugins = MakeFormatPlugins(int(state.range(0)));
    for (auto _ : state) {
        for (const auto& plugin : plugins)
            Manager::Register(plugin.get());
        for (const auto& plugin : plugins)
            Manager::Unregister(plugin.get());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK_REGISTER_F(Registration, RegisterAndUnregister)
    ->Arg(10)
    ->Arg(25)
    ->Arg(50)
    ->UseRealTime()
    ->Unit(benchmark::kMicrosecond);
} // namespace

void PrintImageFileRatios(const RatioReporter& report)
{
    const double pool = report.Nanoseconds("ImageFiles/PoolRoundTrip/real_time/threads:1");
    const double bare = report.Nanoseconds("BareRoundTrip/real_time/threads:1");
    const double create = report.Nanoseconds("ImageFiles/CreateReaderPerRequest/real_time");
    const double one = report.ItemsPerSecond("ImageFiles/PoolRoundTrip/real_time/threads:1");
    const double two = report.ItemsPerSecond("ImageFiles/PoolRoundTrip/real_time/threads:2");
    if (pool <= 0 || bare <= 0 || create <= 0 || one <= 0 || two <= 0)
        return;
    std::printf("\nReader pool\n");
    PrintRatio("pool round trip, one thread", pool, "ns", pool <= 100, "(at most 100 ns)");
    PrintRatio("pool / bare QSemaphore+QMutex round trip", pool / bare, "x", pool / bare <= 0.4,
               "(at most 0.4x)");
    PrintRatio("reader created per request / pool round trip", create / pool, "x",
               create / pool >= 10, "(at least 10x)");
    PrintRatio("pool throughput, two threads / one thread", two / one, "x", two / one >= 1.0,
               "(at least 1.0x)");
    const double workOne =
        report.ItemsPerSecond("ImageFiles/PoolRoundTripWithWork/real_time/threads:1");
    const double workTwo =
        report.ItemsPerSecond("ImageFiles/PoolRoundTripWithWork/real_time/threads:2");
    const double aloneOne = report.ItemsPerSecond("WorkAlone/real_time/threads:1");
    const double aloneTwo = report.ItemsPerSecond("WorkAlone/real_time/threads:2");
    if (workOne > 0 && workTwo > 0 && aloneOne > 0 && aloneTwo > 0) {
        PrintRatio("  the same with 0.3 us of work per borrow", workTwo / workOne, "x",
                   workTwo / workOne >= 1.0, "(at least 1.0x)");
        std::printf("%-66s %10.2f%-3s\n", "  the work alone, two threads / one thread",
                    aloneTwo / aloneOne, "x");
    }
    std::printf("%-66s %10.2f%-3s\n", "dialog filter, 30 groups over 100 formats",
                report.Nanoseconds("ImageFiles/FilterForRead30Groups100Formats/real_time") / 1000.0,
                "us");
}

void PrintRegistrationRatios(const RatioReporter& report)
{
    const auto perPlugin = [&](int count) {
        return report.Nanoseconds("Registration/RegisterAndUnregister/" + std::to_string(count) +
                                  "/real_time") /
               count;
    };
    if (perPlugin(10) <= 0 || perPlugin(25) <= 0 || perPlugin(50) <= 0)
        return;
    std::printf("\nImage-file plug-ins of ten formats, registered and unregistered\n");
    for (int count : {10, 25, 50}) {
        std::printf("%-66s %10.2f%-3s\n",
                    ("  per plug-in, " + std::to_string(count) + " plug-ins").c_str(),
                    perPlugin(count) / 1000.0, "us");
    }
    std::printf("%-66s %10.2f%-3s\n", "per plug-in with 50 / per plug-in with 10",
                perPlugin(50) / perPlugin(10), "x");
}
