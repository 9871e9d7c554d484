#include "Adjustments.h"

#include <algorithm>
#include <cmath>

namespace {
// A copy with 32-bit pixels that a per-pixel adjustment can change in place.
QImage EditableCopy(const QImage& image)
{
    return image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32
                                                         : QImage::Format_RGB32);
}

template <typename Map> QImage MapPixels(const QImage& image, Map map)
{
    if (image.isNull())
        return QImage();
    QImage result = EditableCopy(image);
    for (int y = 0; y < result.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(result.scanLine(y));
        std::transform(line, line + result.width(), line, map);
    }
    return result;
}

template <typename Level> ChannelAdjustment::Table MakeTable(Level level)
{
    ChannelAdjustment::Table table;
    for (int value = 0; value < 256; ++value)
        table[value] = uchar(std::clamp(int(std::lround(level(value))), 0, 255));
    return table;
}
} // namespace

ChannelAdjustment::ChannelAdjustment(const QString& id, const Table& table)
    : m_id(id)
    , m_table(table)
{}

QImage ChannelAdjustment::Apply(const QImage& image) const
{
    return MapPixels(image, [this](QRgb pixel) {
        return qRgba(m_table[qRed(pixel)], m_table[qGreen(pixel)], m_table[qBlue(pixel)],
                     qAlpha(pixel));
    });
}

InvertAdjustment::InvertAdjustment()
    : ChannelAdjustment(QStringLiteral("{da5ea87a-dcee-4fb3-b891-65cf5cc1a43c}"),
                        MakeTable([](int value) { return 255 - value; }))
{}

QString InvertAdjustment::GetName() const
{
    return tr("Invert");
}

BrightnessAdjustment::BrightnessAdjustment(const QString& id, int levels)
    : ChannelAdjustment(id, MakeTable([levels](int value) { return value + levels; }))
    , m_levels(levels)
{}

QString BrightnessAdjustment::GetName() const
{
    return m_levels >= 0 ? tr("Brighten") : tr("Darken");
}

ContrastAdjustment::ContrastAdjustment(const QString& id, double factor)
    : ChannelAdjustment(id,
                        MakeTable([factor](int value) { return (value - 127.5) * factor + 127.5; }))
    , m_factor(factor)
{}

QString ContrastAdjustment::GetName() const
{
    return m_factor >= 1.0 ? tr("Increase Contrast") : tr("Decrease Contrast");
}

QString GreyscaleAdjustment::GetUID() const
{
    return QStringLiteral("{fc524009-18f7-4677-83d2-a3585c305e74}");
}

QString GreyscaleAdjustment::GetName() const
{
    return tr("Greyscale");
}

QImage GreyscaleAdjustment::Apply(const QImage& image) const
{
    return MapPixels(image, [](QRgb pixel) {
        const int grey = qGray(pixel);
        return qRgba(grey, grey, grey, qAlpha(pixel));
    });
}
