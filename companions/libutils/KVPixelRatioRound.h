#pragma once

#include <QtGlobal>

#include "kvutils_export.h"

// Process-wide display pixel ratio and the rounding of logical lengths to
// device pixels. The application object sets the ratio once at start.
class KVUTILS_EXPORT KVPixelRatioRound
{
public:
    static void SetPixelRatio(qreal ratio);
    static qreal GetPixelRatio();

    // A logical length in device pixels, rounded to the nearest whole pixel.
    static int ToDevice(qreal logical);
    // A device length in logical pixels.
    static qreal ToLogical(int device);

private:
    KVPixelRatioRound() = delete;
};
