#include "KVAdjustmentManager_p.h"

KVAdjustmentManager* KVAdjustmentManager::Private::m_pInstance = nullptr;
