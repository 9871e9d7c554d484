#pragma once

#include "MZExportResolutions.h"

// Work in progress: the preset list's private part. The application object
// calls the three static hooks below.
class MZExportResolutions::Private
{
public:
    static void InitInstance();
    static void ReleaseInstance();
    static void Load(const QString& fileName);

    static MZExportResolutions* m_pInstance;
};
