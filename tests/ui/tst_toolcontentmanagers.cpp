#include "TestSupport.h"

#include <KVApplication.h>
#include <KVToolBarManager.h>
#include <KVToolWidgetManager.h>

#include <QGridLayout>
#include <QLineEdit>
#include <QPointer>
#include <QVBoxLayout>

using Bar = KVToolBarManager;

// The tool bar manager (the tool widget manager shares its code but leaves the focus to Qt). The
// log holds Add() results ("+a=1") and each ContentChanged() with the current UID and title.
class ToolContentTest : public QObject
{
    Q_OBJECT

    QMap<QString, QPointer<QWidget>> m_widgets;
    QStringList m_log;
    QPointer<QWidget> m_window;

    QWidget* Widget(const QString& name)
    {
        if (!m_widgets.value(name)) {
            m_widgets[name] = new QWidget;
            m_widgets[name]->setWindowTitle("Title " + name);
        }
        return m_widgets[name];
    }

    // A focused field inside a content that is switched away.
    template <typename M> void CheckFocus(bool clears)
    {
        M::InitInstance();
        QWidget window;
        auto* elsewhere = new QLineEdit(&window);
        (new QVBoxLayout(&window))->addWidget(M::GeneralContent());
        auto* field = new QLineEdit(Widget("a"));
        QVERIFY(M::Add(Widget("a"), "uid-a") && M::Add(Widget("b"), "uid-b"));
        M::Activate(Widget("a"));
        window.show();
        QApplication::setActiveWindow(&window);
        QVERIFY(QTest::qWaitForWindowActive(&window));
        field->setFocus();
        QVERIFY(field->hasFocus());
        M::Activate(Widget("b"));
        QCOMPARE(QApplication::focusWidget(), clears ? nullptr : elsewhere);
        QCOMPARE(Widget("a")->focusWidget(), clears ? nullptr : field);
    }

private Q_SLOTS:
    void init()
    {
        Bar::InitInstance();
        connect(Bar::GetInstance(), &Bar::ContentChanged, this, [this] {
            QWidget* general = Bar::GeneralContent();
            m_log << QString("C(%1|%2)")
                         .arg(Bar::CurrentUID(), general ? general->windowTitle() : "none");
        });
    }
    void cleanup()
    {
        Bar::ReleaseInstance();
        KVToolWidgetManager::ReleaseInstance();
        for (const QPointer<QWidget>& widget : qAsConst(m_widgets))
            delete widget.data();
        m_widgets.clear();
        m_log.clear();
        delete m_window.data();
    }

    // A content takes the first cell and gives up its space when hidden; removed,
    // it stays a child of the general content.
    void contentTakesTheFirstCell()
    {
        QWidget *general = Bar::GeneralContent(), *a = Widget("a");
        QSizePolicy fixed(QSizePolicy::Fixed, QSizePolicy::Fixed);
        fixed.setRetainSizeWhenHidden(true);
        a->setSizePolicy(fixed);
        a->show();
        QVERIFY(Bar::Add(a, "a"));
        QCOMPARE(a->sizePolicy(), QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred));
        QVERIFY(a->isHidden());
        auto* grid = qobject_cast<QGridLayout*>(general->layout());
        QCOMPARE(grid->itemAtPosition(0, 0)->widget(), a);
        Bar::Remove(a);
        QVERIFY(grid->indexOf(a) < 0 && a->parent() == general);
    }

    // Each row: commands | log | state. "+a" adds widget a as "uid-a", "act:a" activates
    // it ("act:-" null), "rem:a" removes, "del:a" deletes, "free:a" unparents it; x is
    // never added. "win" puts the general content in a window, "delwin" deletes that,
    // "rel" releases the manager. State: "G" while the general content exists, the
    // visible widgets, "a~" for a deleted one.
    void sequences_data()
    {
        QTest::addColumn<QString>("row");
        for (const char* row : {
                 "+a +b +a act:a act:a act:b | +a=1 +b=1 +a=0 C(uid-a|Title a) C(uid-b|Title b) | "
                 "G b",
                 "+a act:- act:a act:x act:- | +a=1 C(uid-a|Title a) C(|Title a) | G",
                 "+a +b act:a rem:a rem:a rem:x act:a | +a=1 +b=1 C(uid-a|Title a) C(|) | G",
                 "+a +b act:a del:a act:- | +a=1 +b=1 C(uid-a|Title a) C(|) | G a~",
                 "win +a +b act:a delwin +c | +a=1 +b=1 C(uid-a|Title a) C(|none) +c=0 | a~ b~",
                 // Only what is still inside goes with the manager, silently.
                 "+a +b +c act:a rem:b rem:c free:c rel +c act:c rem:c | "
                 "+a=1 +b=1 +c=1 C(uid-a|Title a) +c=0 | a~ b~",
             })
            QTest::newRow(QString(row).section(" | ", 0, 0).toUtf8()) << QString(row);
    }
    void sequences()
    {
        QFETCH(QString, row);
        const QStringList parts = row.split(" | ");
        for (const QString& command : parts[0].split(' ')) {
            const QString name = command.mid(command.startsWith('+') ? 1 : 4);
            QWidget* widget = name == "-" ? nullptr : Widget(name);
            if (command == "win")
                (new QVBoxLayout(m_window = new QWidget))->addWidget(Bar::GeneralContent());
            else if (command == "delwin")
                delete m_window.data();
            else if (command == "rel")
                Bar::ReleaseInstance();
            else if (command.startsWith('+'))
                m_log << QString("+%1=%2").arg(name).arg(Bar::Add(widget, "uid-" + name));
            else if (command.startsWith("act"))
                Bar::Activate(widget);
            else if (command.startsWith("rem"))
                Bar::Remove(widget);
            else if (command.startsWith("free"))
                widget->setParent(nullptr);
            else
                delete widget;
        }
        QCOMPARE(m_log.join(' '), parts[1]);
        QStringList state, visible;
        if (Bar::GeneralContent())
            state << "G";
        for (auto it = m_widgets.cbegin(); it != m_widgets.cend(); ++it) {
            if (!it.value())
                state << it.key() + "~";
            else if (!it.value()->isHidden())
                state << it.key(), visible << it.key();
        }
        QCOMPARE(state.join(' '), parts[2]);
        QCOMPARE(Bar::IsGeneralContentEmpty(), visible.isEmpty());
        QCOMPARE(Bar::CurrentUID(), visible.isEmpty() ? QString() : "uid-" + visible[0]);
    }

    // The tool bar manager clears the focus, the tool widget manager leaves it to Qt.
    void focusOfSwitchedContent()
    {
        CheckFocus<Bar>(true);
        CheckFocus<KVToolWidgetManager>(false);
    }
};

KV_TEST_APP_MAIN(ToolContentTest)
#include "tst_toolcontentmanagers.moc"
