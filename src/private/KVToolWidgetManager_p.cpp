#include "KVToolWidgetManager_p.h"

KVToolWidgetManager* KVToolWidgetManager::Private::m_pInstance = nullptr;
