#include "Brushes.h"

#include <QtMath>

#include <algorithm>
#include <cmath>

namespace {
// Opacity at a distance from the centre, in radii: 1 inside the hard core,
// then a smooth step down to 0 at the edge.
qreal Opacity(qreal distance, qreal hardness)
{
    if (distance >= 1.0)
        return 0.0;
    if (distance <= hardness)
        return 1.0;
    const qreal s = (distance - hardness) / (1.0 - hardness);
    return 1.0 - s * s * (3.0 - 2.0 * s);
}
} // namespace

SampleBrush::SampleBrush(const QString& uid, Shape shape)
    : m_uid(uid)
    , m_shape(shape)
{}

QString SampleBrush::GetName() const
{
    switch (m_shape) {
    case Round:
        return tr("Round");
    case SoftRound:
        return tr("Soft Round");
    case Square:
        return tr("Square");
    }
    return QString();
}

QImage SampleBrush::CreateTip(int diameter, qreal hardness) const
{
    if (diameter < 1 || diameter > MaximumDiameter)
        return QImage();
    hardness = qBound(0.0, hardness, 1.0); // a NaN hardness becomes 0
    if (m_shape == SoftRound)
        hardness /= 2.0;

    QImage tip(diameter, diameter, QImage::Format_Alpha8);
    const qreal radius = diameter / 2.0;
    for (int y = 0; y < diameter; ++y) {
        uchar* line = tip.scanLine(y);
        const qreal dy = std::abs(y + 0.5 - radius) / radius;
        for (int x = 0; x < diameter; ++x) {
            const qreal dx = std::abs(x + 0.5 - radius) / radius;
            const qreal distance = m_shape == Square ? std::max(dx, dy) : std::hypot(dx, dy);
            line[x] = uchar(qRound(255 * Opacity(distance, hardness)));
        }
    }
    return tip;
}

SampleBrushFactory::SampleBrushFactory(const QList<SampleBrush*>& brushes)
    : m_brushes(brushes)
{}

QString SampleBrushFactory::GetUID() const
{
    return QStringLiteral("{00000000-0000-0000-0000-000000000002}");
}

QStringList SampleBrushFactory::GetBrushIDs() const
{
    QStringList ids;
    for (const SampleBrush* brush : m_brushes)
        ids.append(brush->GetUID());
    return ids;
}

QString SampleBrushFactory::GetBrushName(const QString& id) const
{
    const SampleBrush* brush = Find(id);
    return brush ? brush->GetName() : QString();
}

QImage SampleBrushFactory::CreateBrushTip(const QString& id, int diameter, qreal hardness) const
{
    const SampleBrush* brush = Find(id);
    return brush ? brush->CreateTip(diameter, hardness) : QImage();
}

const SampleBrush* SampleBrushFactory::Find(const QString& id) const
{
    for (const SampleBrush* brush : m_brushes) {
        if (brush->GetUID() == id)
            return brush;
    }
    return nullptr;
}
