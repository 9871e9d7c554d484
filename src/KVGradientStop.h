#pragma once

#include <QColor>
#include <QGradientStops>
#include <QList>

#include "kvcore_export.h"

class QDataStream;

/// One stop of a user gradient: a position and either a fixed colour or a
/// binding to the application's current background or foreground colour, or
/// the mark of a user colour. Bound stops get their colour only when they are
/// resolved, so a saved gradient follows later changes of those colours.
class KVCORE_EXPORT KVGradientStop
{
public:
    /// Position 0.0, black, no flag set.
    KVGradientStop();
    /// A stop with the given position, stored colour and flags.
    KVGradientStop(double position, const QColor& color, bool background, bool foreground,
                   bool userColor);

    /// The resolved colour: the current background colour, else the current
    /// foreground colour, else black for a user colour, else the stored colour.
    QColor GetColor() const;
    /// Whether the stop takes the current background colour.
    bool IsBackground() const;
    /// Whether the stop takes the current foreground colour.
    bool IsForeground() const;
    /// Whether the stop is marked as a user colour.
    bool IsUserColor() const;
    /// The position, as set; not clamped to 0.0 to 1.0.
    double GetPosition() const;

    /// Sets the stored colour, which GetColor() answers when no flag is set.
    void SetColor(const QColor& color);
    /// Binds the stop to the current background colour, or unbinds it.
    void SetBackground(bool background);
    /// Binds the stop to the current foreground colour, or unbinds it.
    void SetForeground(bool foreground);
    /// Marks the stop as a user colour, or unmarks it.
    void SetUserColor(bool userColor);
    /// Sets the position, taken as it is.
    void SetPosition(double position);

    /// Writes position, stored colour and the three flags, in QDataStream's
    /// own encoding at the stream's version.
    void Write(QDataStream& stream) const;
    /// Reads what Write() wrote. A stream that runs short, or whose colour has
    /// a colour model that QColor does not know, leaves position 0.0 and an
    /// invalid colour, and its status says so.
    void Read(QDataStream& stream);

private:
    double m_position = 0.0;
    QColor m_color = Qt::black;
    bool m_background = false;
    bool m_foreground = false;
    bool m_userColor = false;
};

/// Writes the stop with KVGradientStop::Write().
/// \relates KVGradientStop
KVCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const KVGradientStop& stop);
/// Reads the stop with KVGradientStop::Read().
/// \relates KVGradientStop
KVCORE_EXPORT QDataStream& operator>>(QDataStream& stream, KVGradientStop& stop);

/// (position, resolved colour) for every stop, in list order; positions are
/// taken as they are.
/// \relates KVGradientStop
KVCORE_EXPORT QGradientStops ToGradientStops(const QList<KVGradientStop>& stops);
/// The same mirrored: last stop first, each at 1.0 - position.
/// \relates KVGradientStop
KVCORE_EXPORT QGradientStops ToReversedStops(const QList<KVGradientStop>& stops);
/// Stops with fixed colours, no flag set.
/// \relates KVGradientStop
KVCORE_EXPORT QList<KVGradientStop> FromGradientStops(const QGradientStops& stops);
