#include "MZExportSizes.h"

#include "private/MZExportSizes_p.h"

MZExportSizes::MZExportSizes() = default;
MZExportSizes::~MZExportSizes() = default;
