#include "MZExportResolutions_p.h"

MZExportResolutions* MZExportResolutions::Private::m_pInstance = nullptr;

void MZExportResolutions::Private::InitInstance() {}
void MZExportResolutions::Private::ReleaseInstance() {}
void MZExportResolutions::Private::Load(const QString&) {}
