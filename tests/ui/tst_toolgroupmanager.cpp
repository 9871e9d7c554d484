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
    bool IsAllowChange() override
    {
        ++asked;
        return KVActivateAction::IsAllowChange() && !busy;
    }
    bool busy = false;
    int asked = 0;
};

// Each row: commands | log | final state ("A10" = A checked, not implicitly).
const char* const kSequences[] = {
    // C alone: a change asks for the veto, a busy tool refuses every change.
    "set-:C imp-:C ask:C set+:C set+:C imp-:C tog:C itog:C itog:C imp+:C ask:C | "
    "C?0 C:I1 C:T1 C:I0 C:T0 C:I1 C:I0 C:I1 C?6 | E=- I=- A00 B00 C01 D00",
    "busy:C set+:C tog:C itog:C imp+:C | | E=- I=- A00 B00 C00 D00",
    // Reselecting ends the temporary tool; with only a temporary one it ends and nothing is
    // checked.
    "act:A imp+:B imp-:B act:D | A:I1 A:T1 act=1 B:I1 A:I0 B:I0 A:I1 A:I0 A:T0 D:I1 D:T1 "
    "act=1 | E=D I=D A00 B00 C00 D11",
    "act:A imp+:B act:A | A:I1 A:T1 act=1 B:I1 A:I0 B:I0 A:I1 act=1 | E=A I=A A11 B00 C00 D00",
    "imp+:B act:D | B:I1 B:I0 act=1 | E=- I=- A00 B00 C00 D00",
    "act:A imp+:B busy:B act:D | A:I1 A:T1 act=1 B:I1 A:I0 act=0 | E=A I=B A10 B01 C00 D00",
    "act:A imp+:B set+:D | A:I1 A:T1 act=1 B:I1 A:I0 D:I1 B:I0 D:T1 | E=D I=D A10 B00 C00 D11",
    // A destroyed or removed temporary tool hands back to the selected one.
    "act:A imp+:B del:B | A:I1 A:T1 act=1 B:I1 A:I0 A:I1 | E=A I=A A11 C00 D00",
    "act:A imp+:B del:A imp-:B act:D | A:I1 A:T1 act=1 B:I1 A:I0 B:I0 D:I1 D:T1 act=1 | "
    "E=D I=D B00 C00 D11",
    "act:A imp+:B rem:B imp-:B imp+:B | A:I1 A:T1 act=1 B:I1 A:I0 A:I1 B:I0 B:I1 | "
    "E=A I=A A11 B01 C00 D00",
    // A checked member joins only if it vetoes unchecking; "rel" ends the group.
    "set+:C add:C set-:C set+:C | C:I1 C:T1 C:I0 C:T0 C:I1 C:T1 | E=- I=- A00 B00 C11 D00",
    "set+:C busy:C add:C free:C set-:C set+:C | C:I1 C:T1 C:I0 C:T0 C:I1 C:T1 | "
    "E=C I=C A00 B00 C11 D00",
    "rel add:C act:C rem:A set+:A | act=0 A:I1 A:T1 | E=- I=- A11 B00 C00 D00",
};
} // namespace

// Tools A, B and D are members, C is not. The log holds every signal in order
// ("B:I1" = B emitted ImplicitToggled(true), "A:T0" = A emitted Toggled(false)),
// the results of Activate() and the veto questions asked so far ("C?3").
class ToolGroupTest : public QObject
{
    Q_OBJECT

    QMap<QString, Tool*> m_tools;
    QStringList m_log;

    QString State() const
    {
        auto name = [this](QObject* tool) { return m_tools.key(static_cast<Tool*>(tool), "-"); };
        QString state = "E=" + name(Group::GetExplicitAction());
        state += " I=" + name(Group::GetImplicitAction());
        for (auto it = m_tools.cbegin(); it != m_tools.cend(); ++it)
            state += " " + it.key() + QString::number(it.value()->IsChecked()) +
                     QString::number(it.value()->IsImplicitlyChecked());
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
        QTest::addColumn<QString>("row");
        for (const char* row : kSequences)
            QTest::newRow(QString(row).section(" | ", 0, 0).toUtf8()) << QString(row);
    }
    void sequences()
    {
        QFETCH(QString, row);
        const QStringList parts = row.split('|');
        for (const QString& command : parts[0].split(' ', Qt::SkipEmptyParts)) {
            const QString verb = command.section(':', 0, 0), name = command.section(':', 1);
            Tool* tool = m_tools.value(name);
            if (verb == "act")
                m_log << QString("act=%1").arg(Group::Activate(tool));
            else if (verb == "ask")
                m_log << QString("%1?%2").arg(name).arg(tool->asked);
            else if (verb.startsWith("set"))
                tool->SetChecked(verb.endsWith('+'));
            else if (verb.startsWith("imp"))
                tool->SetImplicitChecked(verb.endsWith('+'));
            else if (verb.endsWith("tog"))
                verb == "tog" ? tool->Toggle() : tool->ImplicitToggle();
            else if (verb == "busy" || verb == "free")
                tool->busy = verb == "busy";
            else if (verb == "add" || verb == "rem")
                verb == "add" ? Group::Add(tool) : Group::Remove(tool);
            else if (verb == "del")
                delete m_tools.take(name);
            else if (verb == "rel")
                Group::ReleaseInstance();
            else
                QFAIL(qPrintable("unknown command " + command));
        }
        QCOMPARE(m_log.join(' '), parts[1].trimmed());
        QCOMPARE(State(), parts[2].trimmed());
    }
};

KV_TEST_APP_MAIN(ToolGroupTest)
#include "tst_toolgroupmanager.moc"
