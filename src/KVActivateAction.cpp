#include "KVActivateAction.h"

#include "private/KVActivateAction_p.h"

KVActivateAction::KVActivateAction(QObject* parent)
    : QObject(parent)
    , d(new Private(this))
{}

KVActivateAction::~KVActivateAction() = default;

bool KVActivateAction::IsChecked() const
{
    return d->m_checked;
}

bool KVActivateAction::IsImplicitlyChecked() const
{
    return d->m_implicitChecked;
}

bool KVActivateAction::IsAllowChange()
{
    return d->m_allowChange;
}

void KVActivateAction::AllowChange(bool allow)
{
    d->m_allowChange = allow;
}

void KVActivateAction::Toggle()
{
    if (IsAllowChange())
        d->ApplyChecked(!d->m_checked);
}

void KVActivateAction::SetChecked(bool checked)
{
    if (checked != d->m_checked && IsAllowChange())
        d->ApplyChecked(checked);
}

void KVActivateAction::ImplicitToggle()
{
    if (IsAllowChange())
        d->ApplyImplicitChecked(!d->m_implicitChecked);
}

void KVActivateAction::SetImplicitChecked(bool checked)
{
    if (checked != d->m_implicitChecked && IsAllowChange())
        d->ApplyImplicitChecked(checked);
}
