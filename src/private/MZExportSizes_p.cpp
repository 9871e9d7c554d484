#include "MZExportSizes_p.h"

MZExportSizes* MZExportSizes::Private::m_pInstance = nullptr;
