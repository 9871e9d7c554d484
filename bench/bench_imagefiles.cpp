#include "RatioReporter.h"
#include "TestImagePlugin.h"

#include <KVImageFileManager.h>

#include <QMutex>
#include <QSemaphore>
#include <QThread>
#include <QVector>

#include <chrono>
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

// The same round trip written the plain way, beside it.
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

// A decoding thread does real work with each reader it borrows: 5 us here,
// a small image's worth, spent on the clock so that it is the same on any
// machine.
void DecodeWork()
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::microseconds(5);
    while (std::chrono::steady_clock::now() < end)
        benchmark::ClobberMemory();
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
    const std::string pool = "ImageFiles/PoolRoundTrip/real_time/threads:";
    const std::string worked = "ImageFiles/PoolRoundTripWithWork/real_time/threads:";
    const std::string create = "ImageFiles/CreateReaderPerRequest/real_time";
    const Spread roundTrip = report.Value(pool + "1");
    if (!roundTrip.IsValid())
        return;
    std::printf("\nReader pool\n");
    PrintSpread("pool round trip, one thread", roundTrip, "ns");
    const Spread bare = report.Ratio(pool + "1", "BareRoundTrip/real_time/threads:1");
    PrintTarget("  / bare QSemaphore+QMutex round trip", bare, "x", bare.median <= 1.25,
                "(at most 1.25x)");
    PrintSpread("reader created per request / pool round trip", report.Ratio(create, pool + "1"),
                "x");
    const Spread scaled = report.Ratio(worked + "2", worked + "1", Measure::ItemsPerSecond);
    PrintTarget("two threads / one, borrowing with 5 us of work each", scaled, "x",
                scaled.median >= 1.9, "(at least 1.9x)");
    PrintSpread("  the work alone, two threads / one",
                report.Ratio("WorkAlone/real_time/threads:2", "WorkAlone/real_time/threads:1",
                             Measure::ItemsPerSecond),
                "x");
    PrintSpread("two threads / one, borrowing and nothing else",
                report.Ratio(pool + "2", pool + "1", Measure::ItemsPerSecond), "x");
    PrintSpread("dialog filter, 30 groups over 100 formats",
                report.Value("ImageFiles/FilterForRead30Groups100Formats/real_time"), "us", 0.001);
}

void PrintRegistrationRatios(const RatioReporter& report)
{
    const auto run = [](int count) {
        return "Registration/RegisterAndUnregister/" + std::to_string(count) + "/real_time";
    };
    if (!report.Value(run(10)).IsValid())
        return;
    std::printf("\nImage-file plug-ins of ten formats, registered and unregistered\n");
    for (int count : {10, 25, 50}) {
        PrintSpread(("  per plug-in, " + std::to_string(count) + " plug-ins").c_str(),
                    report.Value(run(count)), "us", 0.001 / count);
    }
    PrintSpread("per plug-in with 50 / per plug-in with 10", report.Ratio(run(50), run(10)), "x",
                10.0 / 50.0);
}
