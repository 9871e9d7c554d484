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

// Not the colour-profile manager: it is released once, at shutdown. Without a
// KVApplication (none, or a plain QGuiApplication) the statics give defaults, write nothing.
class SingletonTest : public QObject
{
    Q_OBJECT

    int m_argc = 1;
    char* m_argv[2] = {const_cast<char*>("tst_singletons"), nullptr};
    std::unique_ptr<KVApplication> m_app;
    QStringList m_heard; // "<class>:<instance found by a slot on destroyed()>"

    // Notes what a slot on destroyed() finds when it asks for the manager.
    template <typename M> void Watch()
    {
        connect(M::GetInstance(), &QObject::destroyed, this, [this] {
            m_heard << QString("%1:%2").arg(M::staticMetaObject.className(),
                                            M::GetInstance() ? "found" : "none");
        });
    }

    // A second init keeps the first instance; release leaves none.
    template <typename M> void Cycle()
    {
        M::InitInstance();
        QObject* first = M::GetInstance();
        M::InitInstance();
        QVERIFY2(M::GetInstance() == first, M::staticMetaObject.className());
        Watch<M>();
        M::ReleaseInstance();
        QVERIFY2(!M::GetInstance(), M::staticMetaObject.className());
    }

    template <typename... M> void Cycles() { (Cycle<M>(), ...); }

    void CheckNeutral()
    {
        using App = KVApplication;
        QVERIFY(!App::GetInstance());
        QCOMPARE(App::GetApplicationValue("Any/Key", 5).toInt(), 5);
        QCOMPARE(App::GetUserValue("Language/Index", "pt_BR").toString(), QString("pt_BR"));
        QVERIFY(App::GetDataFolder().isNull() && App::GetUserDataFolder().isNull());
        App::SetUserValue("Any/Key", 1), App::SetAppicationValue("Any/Key", 1);
        App::SetBackground(Qt::red), App::SetDataFolder(KVTest::HomePath() + "/moved");
        App::FlushData();
        QCOMPARE(App::GetBackground(), QColor(Qt::white));
        // The export preset lists live with the application object.
        QVERIFY(MZExportResolutions::GetSize() == -1 && MZExportSizes::GetSize() == -1);
        QCOMPARE(MZExportResolutions::Get(0), QSize(-1, -1)); // no throw
        QCOMPARE(MZExportSizes::Get(0), -1LL);
        QVERIFY(MZExportResolutions::Add(QSize(10, 10)) == -1 && MZExportSizes::Add(10) == -1);
        MZExportResolutions::Set(0, QSize(10, 10)), MZExportSizes::Remove(0);
        QVERIFY(!QDir(KVTest::HomePath() + "/moved").exists() &&
                !QDir(KVTest::HomePath() + "/Library").exists());
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
        QVERIFY(!KVApplication::GetInstance() && KVApplication::GetUserDataFolder().isNull() &&
                MZExportResolutions::GetSize() == -1);
    }

    // The export preset lists have neither init nor release: the application
    // object starts and ends them.
    void releaseClearsTheInstanceFirst()
    {
        m_app.reset(new KVApplication(m_argc, m_argv));
        Cycles<KVImageFileManager, KVAdjustmentManager, KVBrushToolManager, KVRecentManager,
               KVMenuManager, KVToolGroupManager, KVToolBarManager, KVToolWidgetManager>();
        Watch<MZExportResolutions>();
        Watch<MZExportSizes>();
        m_app.reset();
        QVERIFY(!MZExportResolutions::GetInstance() && !MZExportSizes::GetInstance());
        QCOMPARE(m_heard.size(), 10);
        for (const QString& heard : qAsConst(m_heard))
            QVERIFY2(heard.endsWith(":none"), qPrintable(heard));
    }
};

KV_TEST_MAIN(SingletonTest)
#include "tst_singletons.moc"
