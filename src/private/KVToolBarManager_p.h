#pragma once

#include "KVToolBarManager.h"

#include "KVToolContent_p.h"

class KVToolBarManager::Private : public KVToolContent<KVToolBarManager>
{
public:
    explicit Private(KVToolBarManager* owner)
        : KVToolContent(owner, FocusOnHide::Clear)
    {}

    static Private* Instance() { return m_pInstance ? m_pInstance->d.get() : nullptr; }

    static KVToolBarManager* m_pInstance;
};
