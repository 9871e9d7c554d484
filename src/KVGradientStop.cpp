#include "KVGradientStop.h"

#include "KVApplication.h"

#include <QDataStream>

namespace {
// Qt takes any byte for a streamed colour's model (RGB, HSV, CMYK...). One
// that QColor does not know is corrupt data and must not live on in a colour
// that gets copied: even a copy reads that byte as a colour model. Writing the
// colour back answers the byte without reading it that way.
bool HasKnownColourModel(const QColor& color, int version)
{
    if (version < QDataStream::Qt_4_0)
        return true; // a plain RGB value, no model byte
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(version);
    out << color;
    const qint8 model = qint8(bytes.at(0));
    return model >= QColor::Invalid && model <= QColor::ExtendedRgb;
}
} // namespace

KVGradientStop::KVGradientStop() = default;

KVGradientStop::KVGradientStop(double position, const QColor& color, bool background,
                               bool foreground, bool userColor)
    : m_position(position)
    , m_color(color)
    , m_background(background)
    , m_foreground(foreground)
    , m_userColor(userColor)
{}

QColor KVGradientStop::GetColor() const
{
    if (m_background)
        return KVApplication::GetBackground();
    if (m_foreground)
        return KVApplication::GetForeground();
    // User colours are chosen outside the gradient; here they resolve to black.
    if (m_userColor)
        return QColor(Qt::black);
    return m_color;
}

bool KVGradientStop::IsBackground() const
{
    return m_background;
}

bool KVGradientStop::IsForeground() const
{
    return m_foreground;
}

bool KVGradientStop::IsUserColor() const
{
    return m_userColor;
}

double KVGradientStop::GetPosition() const
{
    return m_position;
}

void KVGradientStop::SetColor(const QColor& color)
{
    m_color = color;
}

void KVGradientStop::SetBackground(bool background)
{
    m_background = background;
}

void KVGradientStop::SetForeground(bool foreground)
{
    m_foreground = foreground;
}

void KVGradientStop::SetUserColor(bool userColor)
{
    m_userColor = userColor;
}

void KVGradientStop::SetPosition(double position)
{
    m_position = position;
}

void KVGradientStop::Write(QDataStream& stream) const
{
    stream << m_position << m_color << m_background << m_foreground << m_userColor;
}

// What the stream held is kept; only what it lacked reads as 0.0 or an
// invalid colour (the flags as false), and the status tells the caller.
void KVGradientStop::Read(QDataStream& stream)
{
    double position = 0.0;
    stream >> position;
    if (stream.status() != QDataStream::Ok)
        position = 0.0;
    QColor color;
    stream >> color;
    // A colour cut short can look valid.
    if (stream.status() != QDataStream::Ok || !HasKnownColourModel(color, stream.version())) {
        stream.setStatus(QDataStream::ReadCorruptData);
        color = QColor();
    }
    stream >> m_background >> m_foreground >> m_userColor;
    m_position = position;
    m_color = color;
}

QDataStream& operator<<(QDataStream& stream, const KVGradientStop& stop)
{
    stop.Write(stream);
    return stream;
}

QDataStream& operator>>(QDataStream& stream, KVGradientStop& stop)
{
    stop.Read(stream);
    return stream;
}

QGradientStops ToGradientStops(const QList<KVGradientStop>& stops)
{
    QGradientStops result;
    result.reserve(stops.size());
    for (const KVGradientStop& stop : stops)
        result.append(QGradientStop(stop.GetPosition(), stop.GetColor()));
    return result;
}

QGradientStops ToReversedStops(const QList<KVGradientStop>& stops)
{
    QGradientStops result;
    result.reserve(stops.size());
    for (auto it = stops.crbegin(); it != stops.crend(); ++it)
        result.append(QGradientStop(1.0 - it->GetPosition(), it->GetColor()));
    return result;
}

QList<KVGradientStop> FromGradientStops(const QGradientStops& stops)
{
    QList<KVGradientStop> result;
    result.reserve(stops.size());
    for (const QGradientStop& stop : stops)
        result.append(KVGradientStop(stop.first, stop.second, false, false, false));
    return result;
}
