#include "TestSupport.h"

#include <KVActivateAction.h>
#include <KVApplication.h>
#include <KVToolGroupManager.h>

using Group = KVToolGroupManager;

namespace {
// A tool that vetoes changes while it is busy, as the editor's tools do.
class Tool : public KVActivateAction
{
public:
    using KVActivateAction::KVActivateAction;
    bool IsAllowChange() override
    {
        ++asked;
        return KVActivateAction::IsAllowChange() && !busy;
    }
    bool busy = false;
    int asked = 0;
};
} // namespace

// Tools A, B and D are members, C is not. Every signal of every tool is
// recorded in order ("B:I1" = B emitted ImplicitToggled(true), "A:T0" =
// A emitted Toggled(false)), together with the results of Activate().
class ToolGroupTest : public QObject
{
    Q_OBJECT

    QMap<QString, Tool*> m_tools;
    QStringList m_log;

    void Run(const QString& commands)
    {
        for (const QString& command : commands.split(' ', Qt::SkipEmptyParts)) {
            const QString verb = command.section(':', 0, 0);
            Tool* tool = m_tools.value(command.section(':', 1));
            if (verb == "act")
                m_log << QString("act=%1").arg(Group::Activate(tool));
            else if (verb == "set+" || verb == "set-")
                tool->SetChecked(verb == "set+");
            else if (verb == "imp+" || verb == "imp-")
                tool->SetImplicitChecked(verb == "imp+");
            else if (verb == "tog")
                tool->Toggle();
            else if (verb == "itog")
                tool->ImplicitToggle();
            else if (verb == "busy" || verb == "free")
                tool->busy = verb == "busy";
            else if (verb == "add")
                Group::Add(tool);
            else if (verb == "rem")
                Group::Remove(tool);
            else if (verb == "del")
                delete m_tools.take(command.section(':', 1));
        }
    }

    QString State() const
    {
        QString state = QString("E=%1 I=%2")
                            .arg(m_tools.key(static_cast<Tool*>(Group::GetExplicitAction()), "-"),
                                 m_tools.key(static_cast<Tool*>(Group::GetImplicitAction()), "-"));
        for (auto it = m_tools.cbegin(); it != m_tools.cend(); ++it)
            state += QString(" %1%2%3")
                         .arg(it.key())
                         .arg(it.value()->IsChecked())
                         .arg(it.value()->IsImplicitlyChecked());
        return state;
    }

private Q_SLOTS:
    void init()
    {
        Group::InitInstance();
        for (const QString name : {"A", "B", "C", "D"}) {
            auto* tool = new Tool;
            connect(tool, &KVActivateAction::Toggled, this,
                    [this, name](bool on) { m_log << QString("%1:T%2").arg(name).arg(on); });
            connect(tool, &KVActivateAction::ImplicitToggled, this,
                    [this, name](bool on) { m_log << QString("%1:I%2").arg(name).arg(on); });
            m_tools.insert(name, tool);
            if (name != "C")
                Group::Add(tool);
        }
        m_log.clear();
    }
    void cleanup()
    {
        Group::ReleaseInstance(); // members outlive the group
        qDeleteAll(m_tools);
        m_tools.clear();
    }

    void sequences_data()
    {
        QTest::addColumn<QString>("commands");
        QTest::addColumn<QString>("emitted");
        QTest::addColumn<QString>("state");
        const char* const rows[][4] = {
            // One action on its own.
            {"check, uncheck", "set+:C set+:C imp-:C tog:C", "C:I1 C:T1 C:I0 C:T0",
             "E=- I=- A00 B00 C00 D00"},
            {"veto", "busy:C set+:C tog:C itog:C imp+:C", "", "E=- I=- A00 B00 C00 D00"},
            {"implicit alone", "itog:C itog:C imp+:C", "C:I1 C:I0 C:I1", "E=- I=- A00 B00 C01 D00"},
            // The group.
            {"select, temporary, end, switch", "act:A imp+:B imp-:B act:D",
             "A:I1 A:T1 act=1 B:I1 A:I0 B:I0 A:I1 A:I0 A:T0 D:I1 D:T1 act=1",
             "E=D I=D A00 B00 C00 D11"},
            {"reselect ends temporary", "act:A imp+:B act:A",
             "A:I1 A:T1 act=1 B:I1 A:I0 B:I0 A:I1 act=1", "E=A I=A A11 B00 C00 D00"},
            {"only a temporary", "imp+:B act:D", "B:I1 B:I0 act=1", "E=- I=- A00 B00 C00 D00"},
            {"selected vetoes", "act:A busy:A act:D", "A:I1 A:T1 act=1 act=0",
             "E=A I=A A11 B00 C00 D00"},
            {"temporary vetoes", "act:A imp+:B busy:B act:D", "A:I1 A:T1 act=1 B:I1 A:I0 act=0",
             "E=A I=B A10 B01 C00 D00"},
            {"temporary destroyed", "act:A imp+:B del:B", "A:I1 A:T1 act=1 B:I1 A:I0 A:I1",
             "E=A I=A A11 C00 D00"},
            {"selected destroyed during temporary", "act:A imp+:B del:A imp-:B act:D",
             "A:I1 A:T1 act=1 B:I1 A:I0 B:I0 D:I1 D:T1 act=1", "E=D I=D B00 C00 D11"},
            {"removed temporary", "act:A imp+:B rem:B imp-:B imp+:B",
             "A:I1 A:T1 act=1 B:I1 A:I0 A:I1 B:I0 B:I1", "E=A I=A A11 B01 C00 D00"},
            {"checked and changeable is refused", "set+:C add:C set-:C set+:C",
             "C:I1 C:T1 C:I0 C:T0 C:I1 C:T1", "E=- I=- A00 B00 C11 D00"},
            {"checked and vetoing joins", "set+:C busy:C add:C free:C set-:C set+:C",
             "C:I1 C:T1 C:I0 C:T0 C:I1 C:T1", "E=C I=C A00 B00 C11 D00"},
            {"direct selection during temporary keeps the old one checked", "act:A imp+:B set+:D",
             "A:I1 A:T1 act=1 B:I1 A:I0 D:I1 B:I0 D:T1", "E=D I=D A10 B00 C00 D11"}};
        for (const auto& row : rows)
            QTest::newRow(row[0]) << QString(row[1]) << QString(row[2]) << QString(row[3]);
    }
    void sequences()
    {
        QFETCH(QString, commands);
        QFETCH(QString, emitted);
        QFETCH(QString, state);
        Run(commands);
        QCOMPARE(m_log.join(' '), emitted);
        QCOMPARE(State(), state);
    }

    // The veto is asked only when something would change; without an
    // instance the group does nothing and the actions go on alone.
    void vetoAndWithoutInstance()
    {
        Run("set-:C imp-:C");
        QCOMPARE(m_tools["C"]->asked, 0);
        Run("set+:C tog:C itog:C");
        QCOMPARE(m_tools["C"]->asked, 3);
        m_log.clear();
        Group::ReleaseInstance();
        Run("add:C act:C rem:A set+:A");
        QCOMPARE(m_log.join(' '), QString("act=0 A:I1 A:T1"));
        QVERIFY(!Group::GetExplicitAction() && !Group::GetImplicitAction());
    }
};

KV_TEST_APP_MAIN(ToolGroupTest)
#include "tst_toolgroupmanager.moc"
