#pragma once

#include <QColor>
#include <QGradientStops>
#include <QList>

#include "kvcore_export.h"

class QDataStream;

// One stop of a user gradient: a position and either a fixed colour or a
// binding to the application's current background or foreground colour, or
// the mark of a user colour. Bound stops get their colour only when they are
// resolved, so a saved gradient follows later changes of those colours.
class KVCORE_EXPORT KVGradientStop
{
public:
    // Position 0.0, black, no flag set.
    KVGradientStop();
    KVGradientStop(double position, const QColor& color, bool background, bool foreground,
                   bool userColor);

    // The resolved colour: the current background colour, else the current
    // foreground colour, else black for a user colour, else the stored colour.
    QColor GetColor() const;
    bool IsBackground() const;
    bool IsForeground() const;
    bool IsUserColor() const;
    double GetPosition() const;

    void SetColor(const QColor& color);
    void SetBackground(bool background);
    void SetForeground(bool foreground);
    void SetUserColor(bool userColor);
    void SetPosition(double position);

    // Position, stored colour and the three flags, in QDataStream's own
    // encoding at the stream's version. A stream that runs short, or whose
    // colour has a colour model that QColor does not know, leaves position 0.0 and
    // an invalid colour, and its status says so.
    void Write(QDataStream& stream) const;
    void Read(QDataStream& stream);

private:
    double m_position = 0.0;
    QColor m_color = Qt::black;
    bool m_background = false;
    bool m_foreground = false;
    bool m_userColor = false;
};

KVCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const KVGradientStop& stop);
KVCORE_EXPORT QDataStream& operator>>(QDataStream& stream, KVGradientStop& stop);

// (position, resolved colour) for every stop, in list order; positions are
// taken as they are.
KVCORE_EXPORT QGradientStops ToGradientStops(const QList<KVGradientStop>& stops);
// The same mirrored: last stop first, each at 1.0 - position.
KVCORE_EXPORT QGradientStops ToReversedStops(const QList<KVGradientStop>& stops);
// Stops with fixed colours, no flag set.
KVCORE_EXPORT QList<KVGradientStop> FromGradientStops(const QGradientStops& stops);
