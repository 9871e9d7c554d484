#pragma once

#include "KVActivateAction.h"

class KVActivateAction::Private
{
public:
    explicit Private(KVActivateAction* owner)
        : q(owner)
    {}

    // Change the state and announce it; the veto was asked already.
    void ApplyChecked(bool checked);
    void ApplyImplicitChecked(bool checked);

    KVActivateAction* q;
    bool m_checked = false;
    bool m_implicitChecked = false;
    bool m_allowChange = true;
};
