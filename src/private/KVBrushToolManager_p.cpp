#include "KVBrushToolManager_p.h"

KVBrushToolManager* KVBrushToolManager::Private::m_pInstance = nullptr;
