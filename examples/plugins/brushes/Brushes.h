#pragma once

#include <IBrushFactory.h>
#include <KVBrushPlugin.h>

#include <QList>

// A brush that the brush tool paints with, registered with the brush tool
// registry. Its UID is also its identifier in the brush factory.
class SampleBrush : public KVBrushPlugin
{
    Q_OBJECT
public:
    enum Shape
    {
        Round,
        SoftRound, // round, with half the hardness asked for
        Square,
    };

    // Tips above this diameter are not made.
    static constexpr int MaximumDiameter = 4096;

    SampleBrush(const QString& uid, Shape shape);

    QString GetUID() const override { return m_uid; }
    QString GetName() const;
    // An Alpha8 tip of diameter x diameter pixels: opaque inside the hard
    // core (hardness times the radius), fading smoothly to transparent at the
    // edge. Null for a diameter below 1 or above MaximumDiameter.
    QImage CreateTip(int diameter, qreal hardness) const;

private:
    QString m_uid;
    Shape m_shape;
};

// The brush factory, found by the loader under its fixed UID. It makes the
// tips of the brushes it was given, which stay the container's.
class SampleBrushFactory : public KVBrushPlugin, public IBrushFactory
{
    Q_OBJECT
public:
    explicit SampleBrushFactory(const QList<SampleBrush*>& brushes);

    QString GetUID() const override;
    QStringList GetBrushIDs() const override;
    QString GetBrushName(const QString& id) const override;
    QImage CreateBrushTip(const QString& id, int diameter, qreal hardness) const override;

private:
    const SampleBrush* Find(const QString& id) const;

    QList<SampleBrush*> m_brushes;
};
