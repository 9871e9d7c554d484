#include "Scenario.h"

#include <KVApplication.h>
#include <MZExportResolutions.h>
#include <MZExportSizes.h>

#include <csignal>

// Adds one preset to each list, reports where they went, and dies at once:
// nothing but the write made by the change itself can save them.
KV_SCENARIO(presetsKilledAfterChange)
{
    Q_UNUSED(app);
    Q_UNUSED(arguments);
    Report(QStringLiteral("resolutionIndex"),
           QString::number(MZExportResolutions::Add(QSize(1234, 567))));
    Report(QStringLiteral("sizeIndex"), QString::number(MZExportSizes::Add(5000000000LL)));
    std::raise(SIGKILL);
    return 0;
}
