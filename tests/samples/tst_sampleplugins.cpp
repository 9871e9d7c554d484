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
#include <QApplication>
#include <QLineEdit>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QVBoxLayout>

#include <memory>

namespace {
// Brushes first, as a scan of the plug-in folders loads them.
const QStringList kSampleFiles = {KV_SAMPLE_BRUSHES, KV_SAMPLE_IMAGEIO, KV_SAMPLE_ADJUSTMENTS,
                                  KV_SAMPLE_BASICTOOLS};

template <typename Item, typename NameOf>
Item Named(const QList<Item>& items, const QString& name, NameOf nameOf)
{
    for (const Item& item : items) {
        if (nameOf(item) == name)
            return item;
    }
    return Item();
}

QString AdjustmentName(const QString& id)
{
    return KVAdjustmentManager::GetAdjustment(id)->GetName();
}

KVAdjustment* AdjustmentNamed(const QString& name)
{
    return KVAdjustmentManager::GetAdjustment(
        Named(KVAdjustmentManager::GetRegistered(), name, AdjustmentName));
}

QString ToolName(KVToolPlugin* tool)
{
    return tool->GetActions().first()->text();
}

void Select(const QString& tool)
{
    Named(KVToolPlugin::GetToolPlugins(), tool, ToolName)->GetActions().first()->trigger();
}

// The tools the tool bar and panel areas show, the areas' titles, and the checked tools.
QString ToolState()
{
    const QList<KVToolPlugin*> tools = KVToolPlugin::GetToolPlugins();
    const auto shown = [&](const QString& uid) {
        KVToolPlugin* tool = Named(tools, uid, [](KVToolPlugin* t) { return t->GetUID(); });
        return tool ? ToolName(tool) : QStringLiteral("none");
    };
    QStringList checked;
    for (KVToolPlugin* tool : tools) {
        if (tool->GetActions().first()->isChecked())
            checked.append(ToolName(tool));
    }
    return QStringLiteral("bar=%1 (%2), panel=%3 (%4), checked=%5")
        .arg(shown(KVToolBarManager::CurrentUID()),
             KVToolBarManager::GeneralContent()->windowTitle(),
             shown(KVToolWidgetManager::CurrentUID()),
             KVToolWidgetManager::GeneralContent()->windowTitle(), checked.join(','));
}

QString Showing(const QString& tool)
{
    return QString("bar=%1 (%1), panel=%1 (%1), checked=%1").arg(tool);
}

// The registries' instances, made in this order and released in reverse.
const std::pair<void (*)(), void (*)()> kManagers[] = {
    {&KVImageFileManager::InitInstance, &KVImageFileManager::ReleaseInstance},
    {&KVAdjustmentManager::InitInstance, &KVAdjustmentManager::ReleaseInstance},
    {&KVBrushToolManager::InitInstance, &KVBrushToolManager::ReleaseInstance},
    {&KVToolGroupManager::InitInstance, &KVToolGroupManager::ReleaseInstance},
    {&KVToolBarManager::InitInstance, &KVToolBarManager::ReleaseInstance},
    {&KVToolWidgetManager::InitInstance, &KVToolWidgetManager::ReleaseInstance}};

QImage Filled(int width, int height, QRgb colour)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}
} // namespace

// The four sample plug-in files, loaded as a host loads them and used as a user would.
class SamplePluginsTest : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<KVApplication> m_app;
    bool m_unloaded = false;
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
        m_unloaded = false;
        QVERIFY(m_app->GetErrorPlugins().empty());
        for (const QString& file : kSampleFiles)
            QCOMPARE(m_app->GetErrorInfo(file), QString("Plugin OK."));
    }

    void cleanup()
    {
        if (!m_unloaded)
            m_app->UnloadPlugins();
        for (auto manager = std::rbegin(kManagers); manager != std::rend(kManagers); ++manager)
            manager->second();
        m_app.reset();
    }

    void imageFilesRoundTrip_data()
    {
        QTest::addColumn<QString>("suffix");
        QTest::addColumn<int>("tolerance");
        QTest::addColumn<QString>("group");
        QTest::newRow("png") << "png" << 0 << "PNG image";
        QTest::newRow("jpg") << "jpg" << 12 << "JPEG image";
        QTest::newRow("jpeg") << "jpeg" << 12 << "JPEG image";
    }

    void imageFilesRoundTrip()
    {
        QFETCH(QString, suffix);
        QFETCH(int, tolerance);
        QFETCH(QString, group);

        for (const QStringList& groups : {KVImageFileManager::GetSupportedReadGroups(),
                                          KVImageFileManager::GetSupportedWriteGroups()}) {
            const QString uid = Named(groups, group, &KVImageFileManager::GetGroupName);
            QVERIFY2(!uid.isEmpty(), qPrintable(group));
            QVERIFY(KVImageFileManager::GetGroupFormats(uid).contains(suffix));
        }

        // Two flat halves, each a whole number of JPEG blocks wide.
        QImage image(32, 16, QImage::Format_RGB32);
        image.fill(qRgb(200, 30, 40));
        for (int y = 0; y < 16; ++y) {
            for (int x = 16; x < 32; ++x)
                image.setPixel(x, y, qRgb(20, 60, 220));
        }
        QTemporaryDir dir;
        const QString path = dir.filePath("picture." + suffix);
        KVImageFileWriter* writer = KVImageFileManager::CreateWriter(suffix);
        QVERIFY(writer);
        QVERIFY2(writer->Write(image, path), qPrintable(writer->GetErrorString()));
        KVImageFileManager::ReleaseWriter(writer);

        KVImageFileReader* reader = KVImageFileManager::CreateReader(suffix.toUpper());
        QVERIFY(reader);
        const QImage read = reader->Read(path);
        KVImageFileManager::ReleaseReader(reader);
        QCOMPARE(read.size(), image.size());
        for (const QPoint& at : {QPoint(4, 8), QPoint(27, 8)}) {
            const QRgb expected = image.pixel(at), actual = read.pixel(at);
            QVERIFY2(qAbs(qRed(actual) - qRed(expected)) <= tolerance &&
                         qAbs(qGreen(actual) - qGreen(expected)) <= tolerance &&
                         qAbs(qBlue(actual) - qBlue(expected)) <= tolerance,
                     qPrintable(QString::number(actual, 16)));
        }
    }

    // directions: each channel's change for a channel below the middle, one at it and one
    // above; exact: the whole pixel after it, when the adjustment has one answer.
    void adjustments_data()
    {
        QTest::addColumn<QString>("adjustment");
        QTest::addColumn<uint>("before");
        QTest::addColumn<QVector<int>>("directions");
        QTest::addColumn<uint>("exact");

        QTest::newRow("invert") << "Invert" << qRgba(10, 100, 200, 128) << QVector<int>{1, 1, -1}
                                << qRgba(245, 155, 55, 128);
        // qGray's weights: 11/32 red, 16/32 green, 5/32 blue.
        QTest::newRow("greyscale") << "Greyscale" << qRgba(10, 100, 200, 77)
                                   << QVector<int>{1, -1, -1} << qRgba(84, 84, 84, 77);
        const QRgb grey = qRgba(60, 128, 200, 90);
        QTest::newRow("brighten") << "Brighten" << grey << QVector<int>{1, 1, 1} << 0u;
        QTest::newRow("darken") << "Darken" << grey << QVector<int>{-1, -1, -1} << 0u;
        QTest::newRow("more contrast")
            << "Increase Contrast" << grey << QVector<int>{-1, 0, 1} << 0u;
        QTest::newRow("less contrast")
            << "Decrease Contrast" << grey << QVector<int>{1, 0, -1} << 0u;
    }

    void adjustments()
    {
        QFETCH(QString, adjustment);
        QFETCH(uint, before);
        QFETCH(QVector<int>, directions);
        QFETCH(uint, exact);

        QStringList names;
        for (const QString& id : KVAdjustmentManager::GetRegistered())
            names.append(AdjustmentName(id));
        QCOMPARE(names, QStringList({"Invert", "Greyscale", "Brighten", "Darken",
                                     "Increase Contrast", "Decrease Contrast"}));
        KVAdjustment* adjusting = AdjustmentNamed(adjustment);
        QVERIFY(adjusting->Apply(QImage()).isNull());

        const QImage image = Filled(5, 3, before);
        const QImage adjusted = adjusting->Apply(image);
        QCOMPARE(adjusted.size(), image.size());
        const QRgb after = adjusted.pixel(4, 2);
        if (exact)
            QCOMPARE(QString::number(after, 16), QString::number(exact, 16));
        const QVector<int> changes = {qRed(after) - qRed(before), qGreen(after) - qGreen(before),
                                      qBlue(after) - qBlue(before)};
        for (int channel = 0; channel < 3; ++channel)
            QCOMPARE(qBound(-1, changes[channel], 1), directions[channel]);
        QCOMPARE(qAlpha(after), qAlpha(before));
        QCOMPARE(image.pixel(4, 2), QRgb(before)); // the original is left alone
    }

    void brushTips_data()
    {
        QTest::addColumn<QString>("brush");
        QTest::addColumn<qreal>("hardness");
        QTest::addColumn<bool>("opaqueAtThreeQuarters"); // partly transparent otherwise
        QTest::addColumn<int>("corner");
        QTest::newRow("hard round") << "Round" << 1.0 << true << 0;
        QTest::newRow("round, hardness 0") << "Round" << 0.0 << false << 0;
        QTest::newRow("soft round at full hardness") << "Soft Round" << 1.0 << false << 0;
        QTest::newRow("hard square") << "Square" << 1.0 << true << 255;
    }

    void brushTips()
    {
        QFETCH(QString, brush);
        QFETCH(qreal, hardness);
        QFETCH(bool, opaqueAtThreeQuarters);
        QFETCH(int, corner);

        const IBrushFactory* factory = KVApplication::GetBrushFactory();
        QVERIFY(factory);
        QCOMPARE(factory->GetBrushIDs(), KVBrushToolManager::GetRegistered());
        const KVBrushPlugin* main = KVBrushToolManager::GetMainBrushPlugin();
        QVERIFY(main);
        QCOMPARE(factory->GetBrushName(main->GetUID()), QString("Round"));
        QVERIFY(factory->CreateBrushTip(main->GetUID(), 0, 1.0).isNull());
        QVERIFY(factory->CreateBrushTip("{unknown}", 9, 1.0).isNull());
        QVERIFY(factory->GetBrushName("{unknown}").isEmpty());

        const QString id = Named(factory->GetBrushIDs(), brush,
                                 [&](const QString& id) { return factory->GetBrushName(id); });
        const QImage tip = factory->CreateBrushTip(id, 41, hardness);
        QCOMPARE(tip.format(), QImage::Format_Alpha8);
        QCOMPARE(tip.size(), QSize(41, 41));
        const auto alpha = [&](int x, int y) { return int(tip.constScanLine(y)[x]); };
        QCOMPARE(alpha(20, 20), 255);
        const int threeQuarters = alpha(20 + 15, 20);
        if (opaqueAtThreeQuarters)
            QCOMPARE(threeQuarters, 255);
        else
            QVERIFY2(threeQuarters > 0 && threeQuarters < 255,
                     qPrintable(QString::number(threeQuarters)));
        QCOMPARE(alpha(0, 0), corner);
    }

    void toolActionsSwitchTheToolAreas()
    {
        QStringList names;
        for (KVToolPlugin* tool : KVToolPlugin::GetToolPlugins())
            names.append(ToolName(tool));
        QCOMPARE(names, QStringList({"Move", "Brush", "Hand"}));

        m_app->UIReady();
        QCOMPARE(ToolState(), Showing("Move"));
        KVActivateAction* move = KVToolGroupManager::GetExplicitAction();
        QVERIFY(move && move->IsChecked());
        Select("Brush");
        QCOMPARE(ToolState(), Showing("Brush"));
        QVERIFY(!move->IsChecked());
        Select("Brush"); // a second click keeps it
        QCOMPARE(ToolState(), Showing("Brush"));
        Select("Hand");
        QCOMPARE(ToolState(), Showing("Hand"));
    }

    void spaceHoldsTheHandTool()
    {
        QWidget window; // shows the tool bar area and takes it along
        auto* layout = new QVBoxLayout(&window);
        auto* field = new QLineEdit;
        layout->addWidget(field);
        layout->addWidget(KVToolBarManager::GeneralContent());
        window.show();
        QApplication::setActiveWindow(&window);
        QVERIFY(QTest::qWaitForWindowActive(&window));
        field->clearFocus();
        Select("Brush");
        KVActivateAction* brush = KVToolGroupManager::GetExplicitAction();

        QTest::keyPress(&window, Qt::Key_Space);
        QCOMPARE(ToolState(), Showing("Hand"));
        QCOMPARE(KVToolGroupManager::GetExplicitAction(), brush);
        QTest::keyRelease(&window, Qt::Key_Space);
        QCOMPARE(ToolState(), Showing("Brush"));

        // A blank typed into a text field stays a blank.
        field->setFocus();
        QTest::keyClick(field, Qt::Key_Space);
        QCOMPARE(field->text(), QString(" "));
        QCOMPARE(ToolState(), Showing("Brush"));
    }

    void toolOptionsAreSavedOnFlush()
    {
        Select("Brush");
        auto* size = KVToolBarManager::GeneralContent()->findChild<QSpinBox*>();
        QVERIFY(size);
        size->setValue(33);
        KVApplication::FlushData();
        QCOMPARE(KVApplication::GetUserValue("BasicTools/BrushSize").toInt(), 33);
    }

    // The starter plug-in, of the samples' libadjustments family: it registers a threshold
    // with the level from user.ini, saves the level on FlushData() and takes the
    // adjustment back when its file alone is unloaded.
    void starterThresholds_data()
    {
        QTest::addColumn<QVariant>("stored"); // invalid: no level in user.ini
        QTest::addColumn<int>("level");
        QTest::addColumn<int>("grey");
        QTest::addColumn<int>("result");
        QTest::newRow("default, below") << QVariant() << 128 << 127 << 0;
        QTest::newRow("default, at the level") << QVariant() << 128 << 128 << 255;
        QTest::newRow("stored") << QVariant(100) << 100 << 110 << 255;
        QTest::newRow("stored too high") << QVariant(999) << 255 << 254 << 0;
        QTest::newRow("stored too low") << QVariant(-5) << 1 << 0 << 0;
        QTest::newRow("stored as text") << QVariant("64") << 64 << 64 << 255;
    }

    void starterThresholds()
    {
        QFETCH(QVariant, stored);
        QFETCH(int, level);
        QFETCH(int, grey);
        QFETCH(int, result);

        const QString key = "Starter/ThresholdLevel";
        QTemporaryDir userFolder;
        KVApplication::SetUserDataFolder(userFolder.path());
        if (stored.isValid())
            KVApplication::SetUserValue(key, stored);

        m_app->LoadPlugin(KV_STARTER);
        QCOMPARE(m_app->GetErrorInfo(KV_STARTER), QString("Plugin OK."));
        KVAdjustment* threshold = AdjustmentNamed("Threshold");
        QVERIFY(threshold);
        const QImage adjusted = threshold->Apply(Filled(4, 2, qRgba(grey, grey, grey, 90)));
        QCOMPARE(QString::number(adjusted.pixel(3, 1), 16),
                 QString::number(qRgba(result, result, result, 90), 16));
        KVApplication::FlushData();
        QCOMPARE(KVApplication::GetUserValue(key).toInt(), level);

        m_app->UnloadPlugin(KV_STARTER);
        QVERIFY(!AdjustmentNamed("Threshold"));
        QCOMPARE(KVAdjustmentManager::GetRegistered().size(), 6);
        KVApplication::SetUserValue(key, -1);
        KVApplication::FlushData(); // reaches the unloaded container no more
        QCOMPARE(KVApplication::GetUserValue(key).toInt(), -1);
    }

    void unloadingEmptiesTheRegistries()
    {
        m_app->UIReady();
        m_app->UnloadPlugins();
        m_unloaded = true;
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
};

KV_TEST_MAIN(SamplePluginsTest)
#include "tst_sampleplugins.moc"
