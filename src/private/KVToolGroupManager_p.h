#pragma once

#include "KVToolGroupManager.h"

#include <QSet>

class KVToolGroupManager::Private
{
public:
    explicit Private(KVToolGroupManager* owner)
        : q(owner)
    {}

    static Private* Instance() { return m_pInstance ? m_pInstance->d.get() : nullptr; }

    void Add(KVActivateAction* action);
    void Remove(KVActivateAction* action);
    bool Activate(KVActivateAction* action);
    void OnToggled(QObject* member, bool checked);
    void OnImplicitToggled(QObject* member, bool checked);
    // Forgets a member that is destroyed or removed, handing the implicit
    // state back to the explicit action when the member had it.
    void Drop(QObject* object);

    KVToolGroupManager* q;
    QObject* m_explicit = nullptr;
    QObject* m_implicit = nullptr;
    QSet<QObject*> m_members;

    static KVToolGroupManager* m_pInstance;

private:
    void Connect(KVActivateAction* action);
    void Disconnect(KVActivateAction* action);
    // Sets the implicit state without the group hearing it; other listeners do.
    void SetImplicitSilently(QObject* member, bool checked);
    // Makes the explicit action, if any and not the given object, implicit again.
    void FallBackToExplicit(QObject* leaving);
};
