#include "TestSupport.h"

#include <KVApplication.h>
#include <KVToolBarManager.h>
#include <KVToolWidgetManager.h>

#include <QGridLayout>
#include <QLineEdit>
#include <QPointer>
#include <QVBoxLayout>

namespace {
// The static interface that both managers share.
struct Api
{
    void (*init)();
    void (*release)();
    QObject* (*instance)();
    bool (*add)(QWidget*, const QString&);
    void (*remove)(QWidget*);
    void (*activate)(QWidget*);
    QWidget* (*content)();
    bool (*empty)();
    QString (*uid)();
    bool clearsFocus;
};

template <typename M> Api ApiOf(bool clearsFocus)
{
    return {&M::InitInstance,
            &M::ReleaseInstance,
            [] { return (QObject*)M::GetInstance(); },
            &M::Add,
            &M::Remove,
            &M::Activate,
            &M::GeneralContent,
            &M::IsGeneralContentEmpty,
            &M::CurrentUID,
            clearsFocus};
}
} // namespace

// Runs once for each manager. The log holds Add() results ("+a=1") and every
// ContentChanged() with the current UID and title at that moment.
class ToolContentTest : public QObject
{
    Q_OBJECT
public:
    explicit ToolContentTest(const Api& api)
        : m_api(api)
    {}

public Q_SLOTS:
    void Record()
    {
        QWidget* general = m_api.content();
        m_log << QString("C(%1|%2)").arg(m_api.uid(), general ? general->windowTitle() : "none");
    }

private:
    const Api m_api;
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

private Q_SLOTS:
    void init()
    {
        m_api.init();
        connect(m_api.instance(), SIGNAL(ContentChanged()), this, SLOT(Record()));
    }
    void cleanup()
    {
        m_api.release();
        for (const QPointer<QWidget>& widget : qAsConst(m_widgets))
            delete widget.data();
        m_widgets.clear();
        m_log.clear();
    }

    void withoutInstanceEverythingIsNeutral()
    {
        m_api.release();
        QVERIFY(!m_api.add(Widget("a"), "uid-a"));
        m_api.activate(Widget("a"));
        m_api.remove(Widget("a"));
        QVERIFY(!m_api.content() && m_api.empty() && m_api.uid().isNull());
    }

    void everyContentTakesTheSameCell()
    {
        QWidget* general = m_api.content();
        auto* grid = qobject_cast<QGridLayout*>(general->layout());
        QVERIFY(grid && !general->parent());
        const QSizePolicy preferred(QSizePolicy::Preferred, QSizePolicy::Preferred);
        QSizePolicy fixed(QSizePolicy::Fixed, QSizePolicy::Fixed, QSizePolicy::LineEdit);
        fixed.setRetainSizeWhenHidden(true);
        for (const QString name : {"a", "b"}) {
            Widget(name)->setSizePolicy(fixed);
            Widget(name)->show();
            QVERIFY(m_api.add(Widget(name), name));
            QCOMPARE(Widget(name)->sizePolicy(), preferred);
            QVERIFY(Widget(name)->isHidden() && Widget(name)->parent() == general);
            int row, column, rows, columns;
            grid->getItemPosition(grid->indexOf(Widget(name)), &row, &column, &rows, &columns);
            QCOMPARE(QPoint(row, column), QPoint(0, 0));
        }
        m_api.remove(Widget("a"));
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
            {"nothing activated", "+a +b act:-", "+a=1 +b=1", ""},
            {"hide by null", "+a act:a act:- act:-", "+a=1 C(uid-a|Title a) C(|Title a)", ""},
            {"hide by unknown", "+a act:a act:x", "+a=1 C(uid-a|Title a) C(|Title a)", ""},
            {"remove current", "+a +b act:a rem:a rem:a rem:x act:a",
             "+a=1 +b=1 C(uid-a|Title a) C(|)", ""},
            {"remove other", "+a +b act:a rem:b", "+a=1 +b=1 C(uid-a|Title a)", "a"},
            {"delete current", "+a +b act:a del:a act:-", "+a=1 +b=1 C(uid-a|Title a) C(|)", ""},
            {"delete other", "+a +b act:b del:a", "+a=1 +b=1 C(uid-b|Title b)", "b"},
            {"add again after remove", "+a rem:a +a act:a", "+a=1 +a=1 C(uid-a|Title a)", "a"}};
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
                m_log << QString("+%1=%2").arg(name).arg(m_api.add(widget, "uid-" + name));
            else if (command.startsWith("act"))
                m_api.activate(widget);
            else if (command.startsWith("rem"))
                m_api.remove(widget);
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
        QCOMPARE(m_api.empty(), shown.isEmpty());
        QCOMPARE(m_api.uid(), shown.isEmpty() ? QString() : "uid-" + shown);
    }

    // A focused field inside a content that is switched to another one, then to none.
    void focusOfSwitchedContent()
    {
        QWidget window;
        auto* layout = new QVBoxLayout(&window);
        auto* elsewhere = new QLineEdit;
        layout->addWidget(elsewhere);
        layout->addWidget(m_api.content());
        for (const QString name : {"a", "b"}) {
            new QLineEdit(Widget(name));
            m_api.add(Widget(name), name);
        }
        window.show();
        QApplication::setActiveWindow(&window);
        QVERIFY(QTest::qWaitForWindowActive(&window));
        for (QWidget* next : {Widget("b"), static_cast<QWidget*>(nullptr)}) {
            QWidget* shown = next ? Widget("a") : Widget("b");
            m_api.activate(shown);
            auto* field = shown->findChild<QLineEdit*>();
            field->setFocus();
            QVERIFY(field->hasFocus());
            m_api.activate(next);
            QVERIFY(!field->hasFocus());
            QCOMPARE(QApplication::focusWidget(), m_api.clearsFocus ? nullptr : elsewhere);
            QCOMPARE(shown->focusWidget(), m_api.clearsFocus ? nullptr : field);
        }
    }

    // The window that embeds the general content may delete it first.
    void windowDeletesGeneralContent()
    {
        auto* window = new QWidget;
        (new QVBoxLayout(window))->addWidget(m_api.content());
        m_api.add(Widget("a"), "uid-a");
        m_api.add(Widget("b"), "uid-b");
        m_api.activate(Widget("a"));
        delete window;
        QCOMPARE(m_log.join(' '), QString("C(uid-a|Title a) C(|none)"));
        QVERIFY(!m_widgets["a"] && !m_widgets["b"]);
        QVERIFY(!m_api.content() && m_api.empty() && !m_api.add(Widget("c"), "uid-c"));
    }

    // Only what is still inside goes with the manager, silently.
    void releaseDeletesWhatIsInside()
    {
        for (const QString name : {"a", "b", "c"})
            m_api.add(Widget(name), name);
        m_api.activate(Widget("a"));
        m_api.remove(Widget("b"));
        m_api.remove(Widget("c"));
        Widget("c")->setParent(nullptr);
        m_log.clear();
        m_api.release();
        QVERIFY(m_log.isEmpty());
        QVERIFY(!m_widgets["a"] && !m_widgets["b"] && m_widgets["c"]);
    }
};

int main(int argc, char** argv)
{
    KVTest::PrepareProcess();
    int appArgc = 1;
    KVApplication app(appArgc, argv);
    ToolContentTest bar(ApiOf<KVToolBarManager>(true));
    ToolContentTest panel(ApiOf<KVToolWidgetManager>(false));
    qInfo("KVToolBarManager:");
    const int barResult = QTest::qExec(&bar, argc, argv);
    qInfo("KVToolWidgetManager:");
    return barResult | QTest::qExec(&panel, argc, argv);
}
#include "tst_toolcontentmanagers.moc"
