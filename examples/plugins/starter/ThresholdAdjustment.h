#pragma once

#include <KVAdjustment.h>

// [starter-adjustment]
// Black where a pixel is darker than the level, white elsewhere; alpha stays.
class ThresholdAdjustment : public KVAdjustment
{
    Q_OBJECT
public:
    explicit ThresholdAdjustment(int level);

    QString GetUID() const override;
    QString GetAdjustmentID() const override { return GetUID(); }
    QString GetName() const override;
    QImage Apply(const QImage& image) const override;

    int GetLevel() const { return m_level; }

private:
    const int m_level; // fixed when made, so Apply() may run on any thread
};
// [starter-adjustment-end]
