#include "ThresholdAdjustment.h"

ThresholdAdjustment::ThresholdAdjustment(int level)
    : m_level(level)
{}

// [starter-uid]
QString ThresholdAdjustment::GetUID() const
{
    // A GUID of its own: the registry refuses a second adjustment under it.
    return QStringLiteral("{cb6dca11-5079-4c02-84c4-b29b67286caf}");
}

QString ThresholdAdjustment::GetName() const
{
    return tr("Threshold");
}
// [starter-uid-end]

// [starter-apply]
// A host may call this on a worker thread: it reads the image and the level,
// touches nothing shared and returns a new image.
QImage ThresholdAdjustment::Apply(const QImage& image) const
{
    if (image.isNull())
        return QImage();
    QImage result = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < result.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < result.width(); ++x) {
            const int value = qGray(line[x]) < m_level ? 0 : 255;
            line[x] = qRgba(value, value, value, qAlpha(line[x]));
        }
    }
    return result;
}
// [starter-apply-end]
