#include "TestSupport.h"

#include <IBrushFactory.h>
#include <KVActivateAction.h>
#include <KVAdjustmentManager.h>
#include <KVApplication.h>
#include <KVBrushToolManager.h>
#include <KVImageFileManager.h>
#include <KVImageFileReader.h>
#include <KVImageFileWriter.h>
#include <KVToolBarManager.h>
#include <KVToolGroupManager.h>
#include <KVToolPlugin.h>
#include <KVToolWidgetManager.h>

#include <QAction>
#include <QTemporaryDir>

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

QString ToolName(KVToolPlugin* tool)
{
    return tool->GetActions().first()->text();
}

// The tools the tool bar and panel areas show with the areas' titles, then the checked tools.
QString ToolState()
{
    QString bar, panel;
    QStringList checked;
    for (KVToolPlugin* tool : KVToolPlugin::GetToolPlugins()) {
        if (tool->GetUID() == KVToolBarManager::CurrentUID())
            bar = ToolName(tool);
        if (tool->GetUID() == KVToolWidgetManager::CurrentUID())
            panel = ToolName(tool);
        if (tool->GetActions().first()->isChecked())
            checked << ToolName(tool);
    }
    return QStringList{bar, KVToolBarManager::GeneralContent()->windowTitle(), panel,
                       KVToolWidgetManager::GeneralContent()->windowTitle(), checked.join(',')}
        .join(' ');
}
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

        m_app->UIReady();
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

    void imageFilesRoundTrip_data()
    {
        QTest::addColumn<QString>("suffix");
        QTest::addColumn<int>("tolerance");
        QTest::newRow("png") << "png" << 0;
        QTest::newRow("jpg") << "jpg" << 12;
    }

    void imageFilesRoundTrip()
    {
        QFETCH(QString, suffix);
        QFETCH(int, tolerance);
        QImage image(32, 16, QImage::Format_RGB32);
        image.fill(qRgb(200, 30, 40));
        QTemporaryDir dir;
        const QString path = dir.filePath("picture." + suffix);
        KVImageFileWriter* writer = KVImageFileManager::CreateWriter(suffix);
        QVERIFY(writer && writer->Write(image, path));
        KVImageFileManager::ReleaseWriter(writer);
        KVImageFileReader* reader = KVImageFileManager::CreateReader(suffix.toUpper());
        QVERIFY(reader);
        const QImage read = reader->Read(path);
        KVImageFileManager::ReleaseReader(reader);
        QCOMPARE(read.size(), image.size());
        const QColor pixel = read.pixelColor(20, 8);
        QVERIFY(qAbs(pixel.red() - 200) + qAbs(pixel.green() - 30) + qAbs(pixel.blue() - 40) <=
                tolerance);
    }

    void toolActionsSwitchTheToolAreas()
    {
        m_app->UIReady();
        QCOMPARE(ToolState(), QString("Move Move Move Move Move"));
        KVActivateAction* move = KVToolGroupManager::GetExplicitAction();
        QVERIFY(move && move->IsChecked());
        for (const QString name : {"Brush", "Brush", "Hand"}) { // a second click keeps it
            for (KVToolPlugin* tool : KVToolPlugin::GetToolPlugins()) {
                if (ToolName(tool) == name)
                    tool->GetActions().first()->trigger();
            }
            QCOMPARE(ToolState(), QString("%1 %1 %1 %1 %1").arg(name));
            QVERIFY(!move->IsChecked());
        }
    }

    // The starter reads its level from user.ini, kept within 1..255, and saves it on
    // FlushData(); its file unloaded alone takes its adjustment back.
    void starterThreshold_data()
    {
        QTest::addColumn<QVariant>("stored"); // invalid: no level in user.ini
        QTest::addColumn<int>("level");
        QTest::newRow("default") << QVariant() << 128;
        QTest::newRow("stored") << QVariant(100) << 100;
        QTest::newRow("stored too high") << QVariant(999) << 255;
    }

    void starterThreshold()
    {
        QFETCH(QVariant, stored);
        QFETCH(int, level);
        const QString key = "Starter/ThresholdLevel";
        QTemporaryDir userFolder;
        KVApplication::SetUserDataFolder(userFolder.path());
        if (stored.isValid())
            KVApplication::SetUserValue(key, stored);

        m_app->LoadPlugin(KV_STARTER);
        KVAdjustment* threshold =
            KVAdjustmentManager::GetAdjustment(KVAdjustmentManager::GetRegistered().value(6));
        QVERIFY(threshold && threshold->GetName() == "Threshold");
        QImage image(2, 1, QImage::Format_ARGB32);
        image.setPixel(0, 0, qRgba(level - 1, level - 1, level - 1, 90));
        image.setPixel(1, 0, qRgba(level, level, level, 90));
        const QImage adjusted = threshold->Apply(image);
        QCOMPARE(adjusted.pixel(0, 0), qRgba(0, 0, 0, 90));
        QCOMPARE(adjusted.pixel(1, 0), qRgba(255, 255, 255, 90));
        KVApplication::FlushData();
        QCOMPARE(KVApplication::GetUserValue(key).toInt(), level);
        m_app->UnloadPlugin(KV_STARTER);
        QCOMPARE(KVAdjustmentManager::GetRegistered().size(), 6);
    }
};

KV_TEST_MAIN(SamplePluginsTest)
#include "tst_sampleplugins.moc"
