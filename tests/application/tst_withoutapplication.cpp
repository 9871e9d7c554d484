#include "TestSupport.h"

#include <KVApplication.h>

#include <QGuiApplication>
#include <QSignalSpy>

using App = KVApplication;

// The static accessors with no application object, or with one that is not a
// KVApplication: getters give their defaults, setters do nothing.
class WithoutApplicationTest : public QObject
{
    Q_OBJECT

private:
    void CheckNeutral()
    {
        QVERIFY(!App::GetInstance());
        QCOMPARE(App::GetApplicationValue("Any/Key", 5).toInt(), 5);
        QCOMPARE(App::GetUserValue("Language/Index", "pt_BR").toString(), QString("pt_BR"));
        QCOMPARE(App::GetUserValue(App::SaveAsSuffix, "png").toString(), QString("png"));
        QCOMPARE(App::GetDataFolder(), QString());
        QCOMPARE(App::GetUserDataFolder(), QString());
        QCOMPARE(App::GetBackground(), QColor(Qt::white));
        QCOMPARE(App::GetMaskBackground(), QColor(Qt::black));
        QCOMPARE(App::GetColorManagementEqualPolicy(), App::EqualKeepEmbedded);
        QVERIFY(App::WarnAboutLayerInfo());

        App::SetUserValue("Any/Key", 1);
        App::SetAppicationValue("Any/Key", 1);
        App::SetBackground(Qt::red);
        App::SetTexturePatternIndex(4);
        App::SetDataFolder(KVTest::HomePath() + "/moved");
        App::FlushData();
        QCOMPARE(App::GetBackground(), QColor(Qt::white));
        QCOMPARE(App::GetTexturePatternIndex(), 0);
        QVERIFY(!QDir(KVTest::HomePath() + "/moved").exists());
        QVERIFY2(!QDir(KVTest::HomePath() + "/Library").exists(),
                 "nothing may be written without an application object");
    }

private Q_SLOTS:
    void noApplicationObject() { CheckNeutral(); }

    void plainGuiApplication()
    {
        int argc = 1;
        char name[] = "plain";
        char* argv[] = {name, nullptr};
        QGuiApplication plain(argc, argv);
        CheckNeutral();
    }

    void applicationObjectComesAndGoes()
    {
        int argc = 1;
        char name[] = "pelkaro";
        char* argv[] = {name, nullptr};
        {
            App app(argc, argv);
            QCOMPARE(App::GetInstance(), &app);
            QVERIFY(App::GetUserDataFolder().startsWith(KVTest::HomePath()));
        }
        QVERIFY(!App::GetInstance());
        QCOMPARE(App::GetUserDataFolder(), QString());
    }
};

KV_TEST_MAIN(WithoutApplicationTest)
#include "tst_withoutapplication.moc"
