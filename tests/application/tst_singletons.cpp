#include "TestSupport.h"

#include <KVAdjustmentManager.h>
#include <KVApplication.h>
#include <KVBrushToolManager.h>
#include <KVImageFileManager.h>
#include <KVMenuManager.h>
#include <KVRecentManager.h>
#include <KVToolBarManager.h>
#include <KVToolGroupManager.h>
#include <KVToolWidgetManager.h>
#include <MZExportResolutions.h>
#include <MZExportSizes.h>

#include <functional>
#include <memory>

namespace {
// One manager's life cycle as a host sees it. The export preset lists have
// no init: the application object starts them and releases them as it goes.
struct Lifecycle
{
    std::function<void()> init;
    std::function<void()> release;
    std::function<QObject*()> instance;
};

template <typename M> Lifecycle LifecycleOf()
{
    return {&M::InitInstance, &M::ReleaseInstance, [] { return (QObject*)M::GetInstance(); }};
}
} // namespace

// The colour-profile manager is not here: it keeps its pointer when it is
// released, once, at shutdown.
class SingletonTest : public QObject
{
    Q_OBJECT

private:
    int m_argc = 1;
    char* m_argv[1] = {const_cast<char*>("tst_singletons")};
    std::unique_ptr<KVApplication> m_app;

    QMap<QString, Lifecycle> Managers()
    {
        const auto releaseApplication = [this] { m_app.reset(); };
        return {
            {"KVImageFileManager", LifecycleOf<KVImageFileManager>()},
            {"KVAdjustmentManager", LifecycleOf<KVAdjustmentManager>()},
            {"KVBrushToolManager", LifecycleOf<KVBrushToolManager>()},
            {"KVRecentManager", LifecycleOf<KVRecentManager>()},
            {"KVMenuManager", LifecycleOf<KVMenuManager>()},
            {"KVToolGroupManager", LifecycleOf<KVToolGroupManager>()},
            {"KVToolBarManager", LifecycleOf<KVToolBarManager>()},
            {"KVToolWidgetManager", LifecycleOf<KVToolWidgetManager>()},
            {"MZExportResolutions",
             {{}, releaseApplication, [] { return (QObject*)MZExportResolutions::GetInstance(); }}},
            {"MZExportSizes",
             {{}, releaseApplication, [] { return (QObject*)MZExportSizes::GetInstance(); }}}};
    }

private Q_SLOTS:
    void init() { m_app.reset(new KVApplication(m_argc, m_argv)); }

    // What a failed row left behind goes before the application object.
    void cleanup()
    {
        for (const Lifecycle& manager : Managers()) {
            if (manager.init)
                manager.release();
        }
        m_app.reset();
    }

    void releaseClearsTheInstanceFirst_data()
    {
        QTest::addColumn<QString>("name");
        for (const QString& name : Managers().keys())
            QTest::newRow(qPrintable(name)) << name;
    }

    // A slot on destroyed() that asks for the manager finds none rather than
    // the object being destroyed; a second init keeps the first instance.
    void releaseClearsTheInstanceFirst()
    {
        QFETCH(QString, name);
        const Lifecycle manager = Managers().value(name);
        if (manager.init) {
            manager.init();
            QObject* first = manager.instance();
            manager.init();
            QCOMPARE(manager.instance(), first);
        }
        QObject* instance = manager.instance();
        QVERIFY(instance);
        bool heard = false;
        QObject* seen = instance;
        connect(instance, &QObject::destroyed, this, [&] {
            heard = true;
            seen = manager.instance();
        });
        manager.release();
        QVERIFY(heard);
        QVERIFY(!seen);
        QVERIFY(!manager.instance());
    }
};

KV_TEST_MAIN(SingletonTest)
#include "tst_singletons.moc"
