#pragma once

#include <QtGlobal>

#include "kvutils_export.h"

/// Process-wide display pixel ratio and the rounding of logical lengths to
/// device pixels. The application object sets the ratio once at start; any
/// thread may read it.
class KVUTILS_EXPORT KVPixelRatioRound
{
public:
    /// Not made: every member is static.
    KVPixelRatioRound() = delete;

    /// Sets the ratio of device to logical pixels; a ratio of 0 or less is ignored.
    static void SetPixelRatio(qreal ratio);
    /// The ratio set last; 1.0 until one is set.
    static qreal GetPixelRatio();

    /// A logical length in device pixels, rounded to the nearest whole pixel.
    static int ToDevice(qreal logical);
    /// A device length in logical pixels.
    static qreal ToLogical(int device);
};
