#pragma once

#include "KVToolWidgetManager.h"

#include "KVToolContent_p.h"

class KVToolWidgetManager::Private : public KVToolContent<KVToolWidgetManager>
{
public:
    explicit Private(KVToolWidgetManager* owner)
        : KVToolContent(owner, FocusOnHide::Keep)
    {}

    static Private* Instance() { return m_pInstance ? m_pInstance->d.get() : nullptr; }

    static KVToolWidgetManager* m_pInstance;
};
