#include "MZExportResolutions.h"

#include "private/MZExportResolutions_p.h"

MZExportResolutions::MZExportResolutions() = default;
MZExportResolutions::~MZExportResolutions() = default;
