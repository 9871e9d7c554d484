#include "TestSupport.h"

#include <IBrushFactory.h>
#include <KVActivateAction.h>
#include <KVAdjustment.h>
#include <KVAdjustmentManager.h>
#include <KVApplication.h>
#include <KVBrushToolManager.h>
#include <KVImageFileManager.h>
#include <KVToolBarManager.h>
#include <KVToolGroupManager.h>
#include <KVToolPlugin.h>
#include <KVToolWidgetManager.h>

#include <QAction>

namespace {
// Brushes first, as a scan of the plug-in folders loads them; the starter last.
const QStringList kSampleFiles = {KV_SAMPLE_BRUSHES, KV_SAMPLE_IMAGEIO, KV_SAMPLE_ADJUSTMENTS,
                                  KV_SAMPLE_BASICTOOLS, KV_STARTER};

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

private Q_SLOTS:
    // What each sample contributes, and nothing left of it after unloading.
    void contributionsAndUnloading()
    {
        int argc = 1;
        char name[] = "Pelkaro", *argv[] = {name, nullptr};
        KVApplication app(argc, argv);
        for (const auto& manager : kManagers)
            manager.first();
        // The starter reads its level when it loads and keeps it within 1..255.
        KVApplication::SetUserValue("Starter/ThresholdLevel", 999);
        app.LoadPlugins(kSampleFiles);
        for (const QString& file : kSampleFiles)
            QCOMPARE(app.GetErrorInfo(file), QString("Plugin OK."));

        QStringList adjustments, brushes;
        const KVAdjustment* threshold = nullptr;
        for (const QString& id : KVAdjustmentManager::GetRegistered()) {
            adjustments << KVAdjustmentManager::GetAdjustment(id)->GetName();
            if (adjustments.last() == "Threshold")
                threshold = KVAdjustmentManager::GetAdjustment(id);
        }
        QCOMPARE(adjustments, QStringList({"Invert", "Greyscale", "Brighten", "Darken",
                                           "Increase Contrast", "Decrease Contrast", "Threshold"}));
        QImage grey(2, 1, QImage::Format_ARGB32);
        grey.setPixel(0, 0, qRgb(254, 254, 254));
        grey.setPixel(1, 0, qRgb(255, 255, 255));
        const QImage applied = threshold->Apply(grey);
        QCOMPARE(applied.pixel(0, 0), qRgb(0, 0, 0));
        QCOMPARE(applied.pixel(1, 0), qRgb(255, 255, 255));
        const IBrushFactory* factory = KVApplication::GetBrushFactory();
        QVERIFY(factory);
        QCOMPARE(factory->GetBrushIDs(), KVBrushToolManager::GetRegistered());
        for (const QString& id : factory->GetBrushIDs())
            brushes << factory->GetBrushName(id);
        QCOMPARE(brushes, QStringList({"Round", "Soft Round", "Square"}));
        QCOMPARE(KVBrushToolManager::GetMainBrushPlugin()->GetUID(), factory->GetBrushIDs()[0]);
        QVERIFY(KVImageFileManager::GetSupportedReadFormats().contains("png"));
        app.UIReady();
        QStringList tools;
        for (KVToolPlugin* tool : KVToolPlugin::GetToolPlugins())
            tools << tool->GetActions().first()->text();
        QCOMPARE(tools, QStringList({"Move", "Brush", "Hand"}));
        QVERIFY(KVToolGroupManager::GetExplicitAction()->IsChecked());
        app.UnloadPlugins();
        QVERIFY(KVImageFileManager::GetSupportedReadFormats().isEmpty());
        QVERIFY(KVAdjustmentManager::GetRegistered().isEmpty());
        QVERIFY(KVBrushToolManager::GetRegistered().isEmpty());
        QVERIFY(!KVBrushToolManager::GetMainBrushPlugin());
        QVERIFY(!KVApplication::GetBrushFactory());
        QVERIFY(KVToolPlugin::GetToolPlugins().isEmpty());
        QVERIFY(!KVToolGroupManager::GetExplicitAction());
        for (auto manager = std::rbegin(kManagers); manager != std::rend(kManagers); ++manager)
            manager->second();
    }
};

KV_TEST_MAIN(SamplePluginsTest)
#include "tst_sampleplugins.moc"
