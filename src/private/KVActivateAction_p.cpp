#include "KVActivateAction_p.h"

#include <QPointer>

// A listener of ImplicitToggled() may delete the action; Toggled() then has
// nobody left to come from.
void KVActivateAction::Private::ApplyChecked(bool checked)
{
    if (m_implicitChecked != checked) {
        QPointer<KVActivateAction> alive(q);
        ApplyImplicitChecked(checked);
        if (!alive)
            return;
    }
    m_checked = checked;
    Q_EMIT q->Toggled(checked);
}

void KVActivateAction::Private::ApplyImplicitChecked(bool checked)
{
    m_implicitChecked = checked;
    Q_EMIT q->ImplicitToggled(checked);
}
