#pragma once

#include "KVBrushToolManager.h"
#include "KVRegistry_p.h"

class KVBrushToolManager::Private
{
public:
    static Private* Instance() { return m_pInstance ? m_pInstance->d.get() : nullptr; }

    KVBrushToolManager* q = nullptr;
    KVRegistry<KVBrushPlugin> m_registry;
    KVBrushPlugin* m_pMainBrushPlugin = nullptr; // main thread only

    static KVBrushToolManager* m_pInstance;
};
