#include "KVToolBarManager_p.h"

KVToolBarManager* KVToolBarManager::Private::m_pInstance = nullptr;
