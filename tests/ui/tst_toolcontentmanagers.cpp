#include "TestSupport.h"

#include <KVApplication.h>
#include <KVToolBarManager.h>
#include <KVToolWidgetManager.h>

#include <QGridLayout>
#include <QLineEdit>
#include <QPointer>
#include <QVBoxLayout>

using Bar = KVToolBarManager;

// The tool bar and tool widget managers share one implementation, checked
// here through the tool bar manager; they differ in what becomes of the focus.
// The log holds Add() results ("+a=1") and every ContentChanged() with the
// current UID and title at that moment.
class ToolContentTest : public QObject
{
    Q_OBJECT

    QMap<QString, QPointer<QWidget>> m_widgets;
    QStringList m_log;

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
        auto* layout = new QVBoxLayout(&window);
        auto* elsewhere = new QLineEdit;
        layout->addWidget(elsewhere);
        layout->addWidget(M::GeneralContent());
        auto* field = new QLineEdit(Widget("a"));
        QVERIFY(M::Add(Widget("a"), "uid-a") && M::Add(Widget("b"), "uid-b"));
        M::Activate(Widget("a"));
        window.show();
        QApplication::setActiveWindow(&window);
        QVERIFY(QTest::qWaitForWindowActive(&window));
        field->setFocus();
        QVERIFY(field->hasFocus());
        M::Activate(Widget("b"));
        QVERIFY(!field->hasFocus());
        QCOMPARE(QApplication::focusWidget(), clears ? nullptr : elsewhere);
        QCOMPARE(Widget("a")->focusWidget(), clears ? nullptr : field);
        QCOMPARE(M::CurrentUID(), QString("uid-b"));
        M::Remove(Widget("b"));
        QVERIFY(M::IsGeneralContentEmpty());
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
    }

    // A content takes the first cell and gives up its space when hidden.
    void contentTakesTheFirstCell()
    {
        QWidget* general = Bar::GeneralContent();
        auto* grid = qobject_cast<QGridLayout*>(general->layout());
        QVERIFY(grid && !general->parent());
        QSizePolicy fixed(QSizePolicy::Fixed, QSizePolicy::Fixed, QSizePolicy::LineEdit);
        fixed.setRetainSizeWhenHidden(true);
        Widget("a")->setSizePolicy(fixed);
        Widget("a")->show();
        QVERIFY(Bar::Add(Widget("a"), "a"));
        QCOMPARE(Widget("a")->sizePolicy(),
                 QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred));
        QVERIFY(Widget("a")->isHidden() && Widget("a")->parent() == general);
        int row, column, rows, columns;
        grid->getItemPosition(grid->indexOf(Widget("a")), &row, &column, &rows, &columns);
        QCOMPARE(QPoint(row, column), QPoint(0, 0));
        Bar::Remove(Widget("a"));
        QVERIFY(grid->indexOf(Widget("a")) < 0 && Widget("a")->parent() == general);
    }

    // Commands: "+a" adds widget a under "uid-a", "act:a" activates it ("act:-"
    // null), "rem:a" removes it, "del:a" deletes it. x is never added.
    void sequences_data()
    {
        QTest::addColumn<QString>("commands");
        QTest::addColumn<QString>("log");
        QTest::addColumn<QString>("shown");
        const char* const rows[][4] = {
            {"switch", "+a +b +a act:a act:a act:b",
             "+a=1 +b=1 +a=0 C(uid-a|Title a) C(uid-b|Title b)", "b"},
            {"hide by null or unknown", "+a act:- act:a act:x act:-",
             "+a=1 C(uid-a|Title a) C(|Title a)", ""},
            {"remove current", "+a +b act:a rem:a rem:a rem:x act:a",
             "+a=1 +b=1 C(uid-a|Title a) C(|)", ""},
            {"remove other, add it again", "+a +b act:a rem:b +b act:b",
             "+a=1 +b=1 C(uid-a|Title a) +b=1 C(uid-b|Title b)", "b"},
            {"delete current", "+a +b act:a del:a act:-", "+a=1 +b=1 C(uid-a|Title a) C(|)", ""},
            {"delete other", "+a +b act:b del:a", "+a=1 +b=1 C(uid-b|Title b)", "b"}};
        for (const auto& row : rows)
            QTest::newRow(row[0]) << QString(row[1]) << QString(row[2]) << QString(row[3]);
    }
    void sequences()
    {
        QFETCH(QString, commands);
        QFETCH(QString, log);
        QFETCH(QString, shown);
        for (const QString& command : commands.split(' ')) {
            const QString name = command.mid(command.startsWith('+') ? 1 : 4);
            QWidget* widget = name == "-" ? nullptr : Widget(name);
            if (command.startsWith('+'))
                m_log << QString("+%1=%2").arg(name).arg(Bar::Add(widget, "uid-" + name));
            else if (command.startsWith("act"))
                Bar::Activate(widget);
            else if (command.startsWith("rem"))
                Bar::Remove(widget);
            else
                delete widget;
        }
        QCOMPARE(m_log.join(' '), log);
        QStringList visible;
        for (auto it = m_widgets.cbegin(); it != m_widgets.cend(); ++it) {
            if (it.value() && !it.value()->isHidden())
                visible << it.key();
        }
        QCOMPARE(visible.join(' '), shown);
        QCOMPARE(Bar::IsGeneralContentEmpty(), shown.isEmpty());
        QCOMPARE(Bar::CurrentUID(), shown.isEmpty() ? QString() : "uid-" + shown);
    }

    // The tool bar manager clears the focus, the tool widget manager leaves it to Qt.
    void focusOfSwitchedContent_data()
    {
        QTest::addColumn<bool>("toolBar");
        QTest::newRow("KVToolBarManager") << true;
        QTest::newRow("KVToolWidgetManager") << false;
    }
    void focusOfSwitchedContent()
    {
        QFETCH(bool, toolBar);
        toolBar ? CheckFocus<Bar>(true) : CheckFocus<KVToolWidgetManager>(false);
    }

    // The window that embeds the general content may delete it first.
    void windowDeletesGeneralContent()
    {
        auto* window = new QWidget;
        (new QVBoxLayout(window))->addWidget(Bar::GeneralContent());
        Bar::Add(Widget("a"), "uid-a");
        Bar::Add(Widget("b"), "uid-b");
        Bar::Activate(Widget("a"));
        delete window;
        QCOMPARE(m_log.join(' '), QString("C(uid-a|Title a) C(|none)"));
        QVERIFY(!m_widgets["a"] && !m_widgets["b"]);
        QVERIFY(!Bar::GeneralContent() && Bar::IsGeneralContentEmpty() &&
                !Bar::Add(Widget("c"), "uid-c"));
    }

    // Only what is still inside goes with the manager, silently; then every
    // call is neutral.
    void releaseDeletesWhatIsInside()
    {
        for (const QString name : {"a", "b", "c"})
            Bar::Add(Widget(name), name);
        Bar::Activate(Widget("a"));
        Bar::Remove(Widget("b"));
        Bar::Remove(Widget("c"));
        Widget("c")->setParent(nullptr);
        m_log.clear();
        Bar::ReleaseInstance();
        QVERIFY(m_log.isEmpty());
        QVERIFY(!m_widgets["a"] && !m_widgets["b"] && m_widgets["c"]);

        QVERIFY(!Bar::Add(Widget("c"), "uid-c"));
        Bar::Activate(Widget("c"));
        Bar::Remove(Widget("c"));
        QVERIFY(!Bar::GeneralContent() && Bar::IsGeneralContentEmpty() &&
                Bar::CurrentUID().isNull());
    }
};

KV_TEST_APP_MAIN(ToolContentTest)
#include "tst_toolcontentmanagers.moc"
