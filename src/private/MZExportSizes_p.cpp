#include "MZExportSizes_p.h"

MZExportSizes* MZExportSizes::Private::m_pInstance = nullptr;

void MZExportSizes::Private::InitInstance() {}
void MZExportSizes::Private::ReleaseInstance() {}
void MZExportSizes::Private::Load(const QString&) {}
