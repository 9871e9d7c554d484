#pragma once

#include <KVAdjustment.h>

#include <array>

// The adjustments of libadjustments. Each maps every pixel on its own and
// keeps its alpha; the result is in Format_ARGB32 when the image has an
// alpha channel and in Format_RGB32 otherwise. The amounts are fixed, so
// opposite adjustments come in pairs (Brighten and Darken).

// Maps the red, green and blue channels through one table.
class ChannelAdjustment : public KVAdjustment
{
    Q_OBJECT
public:
    using Table = std::array<uchar, 256>;

    ChannelAdjustment(const QString& id, const Table& table);

    QString GetUID() const override { return m_id; }
    QString GetAdjustmentID() const override { return m_id; }
    QImage Apply(const QImage& image) const override;

private:
    QString m_id;
    Table m_table;
};

class InvertAdjustment : public ChannelAdjustment
{
    Q_OBJECT
public:
    InvertAdjustment();
    QString GetName() const override;
};

// Adds levels to every channel: Brighten for a positive amount, Darken for a
// negative one.
class BrightnessAdjustment : public ChannelAdjustment
{
    Q_OBJECT
public:
    BrightnessAdjustment(const QString& id, int levels);
    QString GetName() const override;

private:
    int m_levels;
};

// Scales every channel's distance from the middle grey: Increase Contrast for
// a factor above 1, Decrease Contrast below.
class ContrastAdjustment : public ChannelAdjustment
{
    Q_OBJECT
public:
    ContrastAdjustment(const QString& id, double factor);
    QString GetName() const override;

private:
    double m_factor;
};

// Replaces each colour by its grey of the same lightness (qGray).
class GreyscaleAdjustment : public KVAdjustment
{
    Q_OBJECT
public:
    QString GetUID() const override;
    QString GetAdjustmentID() const override { return GetUID(); }
    QString GetName() const override;
    QImage Apply(const QImage& image) const override;
};
