#include "TestSupport.h"

#include <IBrushFactory.h>
#include <KVActivateAction.h>
#include <KVAdjustmentManager.h>
#include <KVApplication.h>
#include <KVBrushToolManager.h>
#include <KVImageFileManager.h>
#include <KVToolBarManager.h>
#include <KVToolGroupManager.h>
#include <KVToolPlugin.h>
#include <KVToolWidgetManager.h>

#include <QAction>

#include <memory>

namespace {
// Brushes first, as a scan of the plug-in folders loads them.
const QStringList kSampleFiles = {KV_SAMPLE_BRUSHES, KV_SAMPLE_IMAGEIO, KV_SAMPLE_ADJUSTMENTS,
                                  KV_SAMPLE_BASICTOOLS};

// The registries' instances, made in this order and released in reverse.
const std::pair<void (*)(), void (*)()> kManagers[] = {
    {&KVImageFileManager::InitInstance, &KVImageFileManager::ReleaseInstance},
    {&KVAdjustmentManager::InitInstance, &KVAdjustmentManager::ReleaseInstance},
    {&KVBrushToolManager::InitInstance, &KVBrushToolManager::ReleaseInstance},
    {&KVToolGroupManager::InitInstance, &KVToolGroupManager::ReleaseInstance},
    {&KVToolBarManager::InitInstance, &KVToolBarManager::ReleaseInstance},
    {&KVToolWidgetManager::InitInstance, &KVToolWidgetManager::ReleaseInstance}};

} // namespace

// The four sample plug-in files and the starter, loaded as a host loads them.
class SamplePluginsTest : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<KVApplication> m_app;
    int m_argc = 1;
    char m_name[8] = "Pelkaro";
    char* m_argv[2] = {m_name, nullptr};

private Q_SLOTS:
    void init()
    {
        m_app = std::make_unique<KVApplication>(m_argc, m_argv);
        for (const auto& manager : kManagers)
            manager.first();
        m_app->LoadPlugins(kSampleFiles);
        for (const QString& file : kSampleFiles)
            QCOMPARE(m_app->GetErrorInfo(file), QString("Plugin OK."));
    }

    void cleanup()
    {
        m_app->UnloadPlugins();
        for (auto manager = std::rbegin(kManagers); manager != std::rend(kManagers); ++manager)
            manager->second();
        m_app.reset();
    }

    // What each sample contributes, and nothing left of it after unloading.
    void contributionsAndUnloading()
    {
        QStringList adjustments, brushes;
        for (const QString& id : KVAdjustmentManager::GetRegistered())
            adjustments << KVAdjustmentManager::GetAdjustment(id)->GetName();
        QCOMPARE(adjustments, QStringList({"Invert", "Greyscale", "Brighten", "Darken",
                                           "Increase Contrast", "Decrease Contrast"}));
        const IBrushFactory* factory = KVApplication::GetBrushFactory();
        QVERIFY(factory);
        QCOMPARE(factory->GetBrushIDs(), KVBrushToolManager::GetRegistered());
        for (const QString& id : factory->GetBrushIDs())
            brushes << factory->GetBrushName(id);
        QCOMPARE(brushes, QStringList({"Round", "Soft Round", "Square"}));
        QCOMPARE(KVBrushToolManager::GetMainBrushPlugin()->GetUID(), factory->GetBrushIDs()[0]);
        QVERIFY(KVImageFileManager::GetSupportedReadFormats().contains("png"));
        m_app->UIReady();
        QStringList tools;
        for (KVToolPlugin* tool : KVToolPlugin::GetToolPlugins())
            tools << tool->GetActions().first()->text();
        QCOMPARE(tools, QStringList({"Move", "Brush", "Hand"}));
        QVERIFY(KVToolGroupManager::GetExplicitAction()->IsChecked());
        m_app->UnloadPlugins();
        QVERIFY(KVImageFileManager::GetSupportedReadFormats().isEmpty());
        QVERIFY(KVAdjustmentManager::GetRegistered().isEmpty());
        QVERIFY(KVBrushToolManager::GetRegistered().isEmpty());
        QVERIFY(!KVBrushToolManager::GetMainBrushPlugin());
        QVERIFY(!KVApplication::GetBrushFactory());
        QVERIFY(KVToolPlugin::GetToolPlugins().isEmpty());
        QVERIFY(!KVToolGroupManager::GetExplicitAction());
        QVERIFY(!KVToolGroupManager::GetImplicitAction());
        for (QWidget* area :
             {KVToolBarManager::GeneralContent(), KVToolWidgetManager::GeneralContent()}) {
            QVERIFY(area->findChildren<QWidget*>().isEmpty());
            QCOMPARE(area->windowTitle(), QString());
        }
    }

    // The starter's file, loaded and unloaded alone, adds and takes back its adjustment.
    void starter()
    {
        m_app->LoadPlugin(KV_STARTER);
        const QStringList ids = KVAdjustmentManager::GetRegistered();
        QCOMPARE(ids.size(), 7);
        QCOMPARE(KVAdjustmentManager::GetAdjustment(ids.value(6))->GetName(), QString("Threshold"));
        m_app->UnloadPlugin(KV_STARTER);
        QCOMPARE(KVAdjustmentManager::GetRegistered(), ids.mid(0, 6));
    }
};

KV_TEST_MAIN(SamplePluginsTest)
#include "tst_sampleplugins.moc"
