#include "TestSupport.h"

#include <KVApplication.h>
#include <KVMenuManager.h>

#include <QMenu>
#include <QMenuBar>
#include <QPointer>

enum KVMenuManager::MenuRole : int
{
    FileMenu = 1,
    EditMenu = 2,
    ViewMenu = 3
};

using Menus = KVMenuManager;

// Menus placed by role and position, read back from the real menus and bar.
class MenuManagerTest : public QObject
{
    Q_OBJECT

    QList<QPointer<QMenu>> m_topLevel; // parentless menus the tests must delete

    static QString Texts(const QWidget* widget)
    {
        QStringList texts;
        for (QAction* action : widget->actions())
            texts << action->text();
        return texts.join(' ');
    }
    QMenu* Top(int role)
    {
        m_topLevel << Menus::CreateMenu(Menus::MenuRole(role), QString::number(role));
        return m_topLevel.last();
    }

private Q_SLOTS:
    void init() { Menus::InitInstance(); }
    void cleanup()
    {
        Menus::ReleaseInstance();
        qDeleteAll(m_topLevel);
        m_topLevel.clear();
    }

    // "a10"/"m10" make an action/submenu at 10, "A10"/"M10" hand in the caller's; a taken
    // position refuses all four. "t10" takes the entry at 10 back and deletes it.
    void entriesFollowTheirPositions_data()
    {
        QTest::addColumn<QString>("row");
        for (const char* row :
             {"a10 a30 a20 = 10 20 30", "m30 a-10 M20 A5 = -10 5 20 30",
              "a20 m20 A20 M20 a10 = 10 20", "a10 a20 m30 t20 t30 t25 a20 a15 = 10 15 20"})
            QTest::newRow(row) << QString(row);
    }
    void entriesFollowTheirPositions()
    {
        QFETCH(QString, row);
        QMenu* file = Top(Menus::FileMenu);
        QObject owner;
        QMap<int, QPointer<QObject>> made;
        for (const QString& entry : row.section(" = ", 0, 0).split(' ')) {
            const QString text = entry.mid(1);
            const int at = text.toInt();
            const char kind = entry.at(0).toLatin1();
            if (kind == 'a' && (made[at] = Menus::CreateAction(Menus::FileMenu, at)))
                static_cast<QAction*>(made[at].data())->setText(text);
            else if (kind == 'm' && (made[at] = Menus::CreateMenu(Menus::FileMenu, at)))
                static_cast<QMenu*>(made[at].data())->setTitle(text);
            else if (kind == 'A')
                Menus::CreateAction(Menus::FileMenu, at, new QAction(text, &owner));
            else if (kind == 'M')
                Menus::CreateMenu(Menus::FileMenu, at, new QMenu(text, file));
            else if (kind == 't') {
                Menus::Take(Menus::FileMenu, at);
                QCOMPARE(made.value(at).isNull(), at == 25); // taking deletes nothing
                delete made.value(at).data();
            }
        }
        QCOMPARE(Texts(file), row.section(" = ", 1));
    }

    void barShowsRolesInOrderAndKeepsTheFirstMenu()
    {
        Top(Menus::ViewMenu);
        QMenu* file = Top(Menus::FileMenu);
        QMenu own("own"), stranger("stranger");
        Menus::CreateMenu(Menus::EditMenu, &own);
        Menus::CreateMenu(Menus::EditMenu, &stranger);
        QVERIFY(!Menus::CreateMenu(Menus::FileMenu, "second"));
        QVERIFY(!Menus::CreateAction(Menus::MenuRole(42), 1));
        QMenuBar bar;
        Menus::Setup(&bar);
        QCOMPARE(Texts(&bar), QString("1 own 3"));

        Menus::CreateAction(Menus::FileMenu, 1)->setText("late");
        QCOMPARE(Texts(file), QString("late"));
        Top(0); // a later menu, placed by a second Setup()
        Menus::Setup(&bar);
        QCOMPARE(Texts(&bar), QString("0 1 own 3"));
    }

    // Whatever dies is forgotten: its position or role is free again. Without
    // the manager every call is neutral.
    void destroyedObjectsAreForgotten()
    {
        QMenu *file = Top(Menus::FileMenu), *edit = Top(Menus::EditMenu);
        auto* caller = new QAction("caller");
        Menus::CreateAction(Menus::FileMenu, 10, caller);
        Menus::CreateAction(Menus::EditMenu, 10, caller);
        QPointer<QAction> owned = Menus::CreateAction(Menus::EditMenu, 20);
        delete Menus::CreateMenu(Menus::FileMenu, 20);
        QVERIFY(Menus::CreateMenu(Menus::FileMenu, 20));

        delete edit; // takes its own action along, leaves the caller's
        QVERIFY(!owned && !Menus::CreateAction(Menus::EditMenu, 10));
        Top(Menus::EditMenu);
        Menus::CreateAction(Menus::EditMenu, 10, caller);
        delete caller; // was in two menus
        QCOMPARE(file->actions().size(), 1);
        QVERIFY(Menus::CreateAction(Menus::FileMenu, 10) &&
                Menus::CreateAction(Menus::EditMenu, 10));

        auto* bar = new QMenuBar;
        Menus::Setup(bar);
        delete bar;
        Menus::ReleaseInstance(); // the menus outlive the manager
        QCOMPARE(file->actions().size(), 2);

        QVERIFY(!Menus::CreateMenu(Menus::FileMenu, "File") &&
                !Menus::CreateAction(Menus::FileMenu, 10) &&
                !Menus::CreateMenu(Menus::FileMenu, 10));
        Menus::Take(Menus::FileMenu, 10), Menus::Setup(nullptr);
    }
};

KV_TEST_APP_MAIN(MenuManagerTest)
#include "tst_menumanager.moc"
