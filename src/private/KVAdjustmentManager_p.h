#pragma once

#include "KVAdjustmentManager.h"
#include "KVRegistry_p.h"

class KVAdjustmentManager::Private
{
public:
    explicit Private(KVAdjustmentManager* owner)
        : q(owner)
    {}

    static Private* Instance() { return m_pInstance ? m_pInstance->d.get() : nullptr; }

    KVAdjustmentManager* q;
    KVRegistry<KVAdjustment> m_registry;

    static KVAdjustmentManager* m_pInstance;
};
