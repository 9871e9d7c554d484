#include "RatioReporter.h"

#include <KVApplication.h>
#include <KVImageFileManager.h>

#include <IPluginContainer.h>

#include <QDir>
#include <QFile>
#include <QPluginLoader>
#include <QTemporaryDir>

#include <memory>

namespace {
std::unique_ptr<QTemporaryDir> s_folder;
QStringList s_files;

// Ten distinct plug-in files: copies of the test containers.
void MakePluginFiles()
{
    s_folder = std::make_unique<QTemporaryDir>();
    const QStringList kinds = {"tc_image_a", "tc_image_b", "tc_brush", "tc_adjustments"};
    for (int i = 0; i < 10; ++i) {
        const QString kind = kinds.at(i % kinds.size());
        const QString path = s_folder->filePath(QStringLiteral("lib%1_%2.dylib").arg(kind).arg(i));
        QFile::copy(QStringLiteral(KV_TEST_PLUGIN_DIR "/lib%1.dylib").arg(kind), path);
        s_files.append(path);
    }
}

// Loading meets an empty image file registry, as at the editor's start.
class Plugins : public benchmark::Fixture
{
public:
    void SetUp(benchmark::State&) override { KVImageFileManager::InitInstance(); }
    void TearDown(benchmark::State&) override { KVImageFileManager::ReleaseInstance(); }
};

BENCHMARK_DEFINE_F(Plugins, LoadPluginsTen)(benchmark::State& state)
{
    auto* app = KVApplication::GetInstance();
    for (auto _ : state) {
        app->LoadPlugins(s_files);
        state.PauseTiming();
        app->UnloadPlugins(s_files);
        state.ResumeTiming();
    }
}
BENCHMARK_REGISTER_F(Plugins, LoadPluginsTen)->UseRealTime()->Unit(benchmark::kMicrosecond);

// Loads the files with bare QPluginLoaders and, when asked, initialises each
// container as the library does: that part is the plug-ins' own work.
void LoadBare(benchmark::State& state, bool initialize)
{
    std::vector<std::unique_ptr<QPluginLoader>> loaders;
    for (auto _ : state) {
        for (const QString& file : qAsConst(s_files)) {
            loaders.push_back(std::make_unique<QPluginLoader>(file));
            QPluginLoader& loader = *loaders.back();
            loader.setLoadHints(loader.loadHints() | QLibrary::ResolveAllSymbolsHint);
            auto* container = qobject_cast<IPluginContainer*>(loader.instance());
            if (initialize) {
                container->Initialize();
                benchmark::DoNotOptimize(container->GetPlugins());
            }
        }
        state.PauseTiming();
        for (auto& loader : loaders) {
            if (initialize)
                qobject_cast<IPluginContainer*>(loader->instance())->Release();
            loader->unload();
        }
        loaders.clear();
        state.ResumeTiming();
    }
}

BENCHMARK_DEFINE_F(Plugins, BareInstanceTen)(benchmark::State& state)
{
    LoadBare(state, false);
}
BENCHMARK_REGISTER_F(Plugins, BareInstanceTen)->UseRealTime()->Unit(benchmark::kMicrosecond);

BENCHMARK_DEFINE_F(Plugins, BareInstanceAndInitializeTen)(benchmark::State& state)
{
    LoadBare(state, true);
}
BENCHMARK_REGISTER_F(Plugins, BareInstanceAndInitializeTen)
    ->UseRealTime()
    ->Unit(benchmark::kMicrosecond);
} // namespace

void SetUpPlugins()
{
    MakePluginFiles();
}

void TearDownPlugins()
{
    s_folder.reset();
}

void PrintPluginRatios(const RatioReporter& report)
{
    const std::string library = "Plugins/LoadPluginsTen/real_time";
    const Spread initialized =
        report.Ratio(library, "Plugins/BareInstanceAndInitializeTen/real_time");
    if (!initialized.IsValid())
        return;
    std::printf("\nPlug-in loading (ten files, the libraries already mapped)\n");
    PrintTarget("LoadPlugins / (bare instance() + the containers' own Initialize)", initialized,
                "x", initialized.median <= 1.2, "(at most 1.2x)");
    PrintSpread("LoadPlugins / bare QPluginLoader::instance()",
                report.Ratio(library, "Plugins/BareInstanceTen/real_time"), "x");
}
