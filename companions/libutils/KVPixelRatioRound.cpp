#include "KVPixelRatioRound.h"

#include <atomic>

namespace {
// Read by painting code on any thread, written once by the GUI thread.
std::atomic<qreal> s_pixelRatio{1.0};
} // namespace

void KVPixelRatioRound::SetPixelRatio(qreal ratio)
{
    if (ratio > 0)
        s_pixelRatio.store(ratio);
}

qreal KVPixelRatioRound::GetPixelRatio()
{
    return s_pixelRatio.load();
}

int KVPixelRatioRound::ToDevice(qreal logical)
{
    return qRound(logical * GetPixelRatio());
}

qreal KVPixelRatioRound::ToLogical(int device)
{
    return device / GetPixelRatio();
}
