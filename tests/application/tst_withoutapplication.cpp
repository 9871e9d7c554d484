#include "TestSupport.h"

#include <KVApplication.h>

#include <QGuiApplication>

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
        QVERIFY(App::GetDataFolder().isNull() && App::GetUserDataFolder().isNull());

        App::SetUserValue("Any/Key", 1);
        App::SetAppicationValue("Any/Key", 1);
        App::SetBackground(Qt::red);
        App::SetTexturePatternIndex(4);
        App::SetDataFolder(KVTest::HomePath() + "/moved");
        App::FlushData();
        QCOMPARE(App::GetBackground(), QColor(Qt::white));
        QCOMPARE(App::GetTexturePatternIndex(), 0);
        // Nothing may be written without an application object.
        QVERIFY(!QDir(KVTest::HomePath() + "/moved").exists());
        QVERIFY(!QDir(KVTest::HomePath() + "/Library").exists());
    }

    int m_argc = 1;
    char* m_argv[2] = {const_cast<char*>("tst_withoutapplication"), nullptr};

private Q_SLOTS:
    void noApplicationObject() { CheckNeutral(); }

    void plainGuiApplication()
    {
        QGuiApplication plain(m_argc, m_argv);
        CheckNeutral();
    }

    void applicationObjectComesAndGoes()
    {
        {
            App app(m_argc, m_argv);
            QCOMPARE(App::GetInstance(), &app);
            QVERIFY(App::GetUserDataFolder().startsWith(KVTest::HomePath()));
        }
        QVERIFY(!App::GetInstance() && App::GetUserDataFolder().isNull());
    }
};

KV_TEST_MAIN(WithoutApplicationTest)
#include "tst_withoutapplication.moc"
