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

#include <QGuiApplication>

#include <memory>

namespace {
// One manager's life cycle as a host sees it. The export preset lists have
// neither init nor release: the application object starts and ends them.
struct Lifecycle
{
    const char* name;
    void (*init)();
    void (*release)();
    QObject* (*instance)();
};

template <typename M>
Lifecycle Of(void (*init)() = &M::InitInstance, void (*release)() = &M::ReleaseInstance)
{
    return {M::staticMetaObject.className(), init, release,
            [] { return (QObject*)M::GetInstance(); }};
}
} // namespace

// The colour-profile manager is not here: it keeps its pointer when it is
// released, once, at shutdown. Without a KVApplication object (none, or a plain
// QGuiApplication) the static accessors give their defaults and write nothing.
class SingletonTest : public QObject
{
    Q_OBJECT

    int m_argc = 1;
    char* m_argv[2] = {const_cast<char*>("tst_singletons"), nullptr};
    std::unique_ptr<KVApplication> m_app;
    const QList<Lifecycle> m_managers = {Of<KVImageFileManager>(),
                                         Of<KVAdjustmentManager>(),
                                         Of<KVBrushToolManager>(),
                                         Of<KVRecentManager>(),
                                         Of<KVMenuManager>(),
                                         Of<KVToolGroupManager>(),
                                         Of<KVToolBarManager>(),
                                         Of<KVToolWidgetManager>(),
                                         Of<MZExportResolutions>(nullptr, nullptr),
                                         Of<MZExportSizes>(nullptr, nullptr)};

    void CheckNeutral()
    {
        using App = KVApplication;
        QVERIFY(!App::GetInstance());
        QCOMPARE(App::GetApplicationValue("Any/Key", 5).toInt(), 5);
        QCOMPARE(App::GetUserValue("Language/Index", "pt_BR").toString(), QString("pt_BR"));
        QVERIFY(App::GetDataFolder().isNull() && App::GetUserDataFolder().isNull());
        App::SetUserValue("Any/Key", 1);
        App::SetAppicationValue("Any/Key", 1);
        App::SetBackground(Qt::red);
        App::SetTexturePatternIndex(4);
        App::SetDataFolder(KVTest::HomePath() + "/moved");
        App::FlushData();
        QCOMPARE(App::GetBackground(), QColor(Qt::white));
        QCOMPARE(App::GetTexturePatternIndex(), 0);
        QVERIFY(!QDir(KVTest::HomePath() + "/moved").exists());
        QVERIFY(!QDir(KVTest::HomePath() + "/Library").exists());
    }

private Q_SLOTS:
    void withoutApplicationObject()
    {
        CheckNeutral();
        {
            QGuiApplication plain(m_argc, m_argv);
            CheckNeutral();
        }
        {
            KVApplication app(m_argc, m_argv);
            QCOMPARE(KVApplication::GetInstance(), &app);
            QVERIFY(KVApplication::GetUserDataFolder().startsWith(KVTest::HomePath()));
        }
        QVERIFY(!KVApplication::GetInstance() && KVApplication::GetUserDataFolder().isNull());
    }

    // What a failed row left behind goes before the application object.
    void cleanup()
    {
        for (const Lifecycle& manager : m_managers) {
            if (manager.release)
                manager.release();
        }
        m_app.reset();
    }

    void releaseClearsTheInstanceFirst_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < m_managers.size(); ++i)
            QTest::newRow(m_managers[i].name) << i;
    }

    // A slot on destroyed() that asks for the manager finds none rather than
    // the object being destroyed; a second init keeps the first instance.
    void releaseClearsTheInstanceFirst()
    {
        QFETCH(int, index);
        m_app.reset(new KVApplication(m_argc, m_argv));
        const Lifecycle& manager = m_managers[index];
        if (manager.init) {
            manager.init();
            QObject* first = manager.instance();
            manager.init();
            QCOMPARE(manager.instance(), first);
        }
        QObject* instance = manager.instance();
        QVERIFY(instance);
        bool heard = false;
        connect(instance, &QObject::destroyed, this, [&] {
            heard = true;
            instance = manager.instance();
        });
        manager.release ? manager.release() : m_app.reset();
        QVERIFY(heard && !instance && !manager.instance());
    }
};

KV_TEST_MAIN(SingletonTest)
#include "tst_singletons.moc"
