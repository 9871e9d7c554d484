#include "KVToolGroupManager_p.h"

#include "KVActivateAction.h"

KVToolGroupManager* KVToolGroupManager::Private::m_pInstance = nullptr;

void KVToolGroupManager::Private::Connect(KVActivateAction* action)
{
    QObject::connect(action, SIGNAL(Toggled(bool)), q, SLOT(OnToggled(bool)));
    QObject::connect(action, SIGNAL(ImplicitToggled(bool)), q, SLOT(OnImplicitToggled(bool)));
    QObject::connect(action, SIGNAL(destroyed(QObject*)), q, SLOT(OnDestroyed(QObject*)));
}

void KVToolGroupManager::Private::Disconnect(KVActivateAction* action)
{
    QObject::disconnect(action, SIGNAL(Toggled(bool)), q, SLOT(OnToggled(bool)));
    QObject::disconnect(action, SIGNAL(ImplicitToggled(bool)), q, SLOT(OnImplicitToggled(bool)));
    QObject::disconnect(action, SIGNAL(destroyed(QObject*)), q, SLOT(OnDestroyed(QObject*)));
}

void KVToolGroupManager::Private::SetImplicitSilently(QObject* member, bool checked)
{
    auto* action = qobject_cast<KVActivateAction*>(member);
    if (!action)
        return;
    QObject::disconnect(action, SIGNAL(ImplicitToggled(bool)), q, SLOT(OnImplicitToggled(bool)));
    action->SetImplicitChecked(checked);
    QObject::connect(action, SIGNAL(ImplicitToggled(bool)), q, SLOT(OnImplicitToggled(bool)));
}

void KVToolGroupManager::Private::FallBackToExplicit(QObject* leaving)
{
    if (m_explicit && m_explicit != leaving) {
        SetImplicitSilently(m_explicit, true);
        m_implicit = m_explicit;
    }
}

// A checked action that may change is kept out on purpose: taking it in would
// give the group a selected tool that it did not choose.
void KVToolGroupManager::Private::Add(KVActivateAction* action)
{
    if (!action || m_members.contains(action))
        return;
    if (action->IsChecked()) {
        if (action->IsAllowChange())
            return;
        action->SetChecked(false);
    }
    Connect(action);
    m_members.insert(action);
}

void KVToolGroupManager::Private::Remove(KVActivateAction* action)
{
    if (!action || !m_members.contains(action))
        return;
    Disconnect(action);
    Drop(action);
}

// Only compares the pointer: the object may be half destroyed.
void KVToolGroupManager::Private::Drop(QObject* object)
{
    if (!m_members.contains(object))
        return;
    if (object == m_implicit) {
        m_implicit = nullptr;
        FallBackToExplicit(object);
    }
    if (object == m_explicit)
        m_explicit = nullptr;
    m_members.remove(object);
}

// Switching the previous explicit action off is left to Activate().
void KVToolGroupManager::Private::OnToggled(QObject* member, bool checked)
{
    if (checked) {
        m_explicit = member;
        if (m_implicit && m_implicit != member)
            SetImplicitSilently(m_implicit, false);
        m_implicit = member;
    } else if (member == m_explicit) {
        m_explicit = nullptr;
    }
}

void KVToolGroupManager::Private::OnImplicitToggled(QObject* member, bool checked)
{
    if (checked) {
        if (member == m_implicit)
            return;
        if (m_implicit)
            SetImplicitSilently(m_implicit, false);
        m_implicit = member;
    } else if (member == m_implicit) {
        SetImplicitSilently(member, false);
        m_implicit = nullptr;
        FallBackToExplicit(member);
    }
}

// Each round ends the temporary tool, then switches the selected one off; the
// members' signals update m_explicit and m_implicit as it goes. A member may
// veto inside SetChecked() although it allowed the change a moment before:
// a round that changes nothing counts as a veto instead of looping forever.
bool KVToolGroupManager::Private::Activate(KVActivateAction* action)
{
    if (!action)
        return false;
    if (!m_explicit && !m_implicit) {
        action->SetChecked(true);
        return true;
    }
    while (m_explicit || m_implicit) {
        if (m_implicit && m_implicit != m_explicit) {
            auto* temporary = qobject_cast<KVActivateAction*>(m_implicit);
            if (!temporary || !temporary->IsAllowChange())
                return false;
            temporary->SetImplicitChecked(false);
        }
        if (m_explicit == action)
            return true;
        if (!m_explicit)
            return true;
        auto* selected = qobject_cast<KVActivateAction*>(m_explicit);
        if (!selected || !selected->IsAllowChange())
            return false;
        const QObject* explicitBefore = m_explicit;
        const QObject* implicitBefore = m_implicit;
        selected->SetChecked(false);
        if (m_explicit == explicitBefore && m_implicit == implicitBefore)
            return false;
    }
    action->SetChecked(true);
    return true;
}
