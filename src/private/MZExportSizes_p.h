#pragma once

#include "MZExportSizes.h"

// Work in progress: the preset list's private part. The application object
// calls the three static hooks below.
class MZExportSizes::Private
{
public:
    static void InitInstance();
    static void ReleaseInstance();
    static void Load(const QString& fileName);

    static MZExportSizes* m_pInstance;
};
