#include "KVSettingsCheck_p.h"

#include "KVIniSyntax_p.h"

#include <QBrush>
#include <QDataStream>
#include <QDateTime>
#include <QImage>
#include <QPalette>
#include <QPixmap>
#include <QPolygon>
#include <QThread>
#include <QTimeZone>
#include <QTransform>
#include <QVariant>

#include <algorithm>
#include <limits>
#include <memory>

// The check decodes a value with Qt's own QDataStream and stream operators,
// and follows Qt's decoding step by step only through the types whose
// decoding believes a claimed count, nests, or keeps a date that cannot be
// written back; every other type, whose cost is bounded by its bytes, Qt
// decodes itself. The stream's position and status thus stay exactly Qt's.
namespace {

// Room a claimed count may have reserved beyond what the rest of the bytes
// could hold; a settings value never needs a fraction of it.
constexpr qint64 kReserveLimit = 64 << 20;
// Qt decodes nested values recursively, with about 300 bytes of stack a
// level: some 28,000 levels overflow a main thread's 8 MB. This many use a
// third of it.
constexpr int kMaxDepth = 10000;
// The check recurses as deeply, and in a debug build with far larger
// frames: it runs on a thread with this much stack.
constexpr uint kCheckStack = 256u << 20;
// A region's rectangles are united one at a time, even those that its bytes
// do not hold.
constexpr qint64 kMaxRegionRects = 65536;
// An ellipse or polygon region is scan converted line by line, which takes
// seconds beyond the first number of lines. Qt refuses a polygon higher than
// the second, unless computing its height overflowed.
constexpr qint64 kSlowScanLines = 16384;
constexpr qint64 kMaxScanLines = 100000;

// A container read starts from a clean status and leaves an earlier failure
// in place afterwards, as Qt's containers do.
class StatusSaver
{
public:
    explicit StatusSaver(QDataStream& stream)
        : m_stream(stream)
        , m_status(stream.status())
    {
        stream.resetStatus();
    }
    ~StatusSaver()
    {
        if (m_status != QDataStream::Ok) {
            m_stream.resetStatus();
            m_stream.setStatus(m_status);
        }
    }
    StatusSaver(const StatusSaver&) = delete;
    StatusSaver& operator=(const StatusSaver&) = delete;

private:
    QDataStream& m_stream;
    const QDataStream::Status m_status;
};

// Qt 4's type numbers, as QVariant reads them from a stream older than Qt 5.
quint32 FromQt4(quint32 type)
{
    if (type == 127)
        return QMetaType::User;
    if (type >= 128 && type != QMetaType::User)
        return type - 97;
    if (type == 75)
        return QMetaType::QSizePolicy;
    if (type > 75 && type <= 86)
        return type - 1;
    return type;
}

// Whether Qt would scan convert this many lines for seconds, or for ever:
// when their number, computed as an int, wrapped around and passed Qt's
// limit.
bool ScansTooLong(qint64 lines)
{
    return lines > kSlowScanLines && qint32(quint32(lines)) <= kMaxScanLines;
}

// QRegion(rectangle, Ellipse): an ellipse through the rectangle's edges,
// its height as QRect computes it (an int that may wrap around). Beyond
// scanning for seconds, an ellipse that Qt refuses leaves a region without
// data, which crashes the first time it is asked whether it is empty.
bool IsBadEllipse(const QRect& ellipse)
{
    if (ellipse.isEmpty())
        return false;
    const qint64 top = ellipse.top();
    const qint64 bottom = top + qint32(quint32(qint64(ellipse.bottom()) - top + 1));
    return qAbs(bottom - top) > kSlowScanLines;
}

// QRegion(polygon): more than two points and not an upright rectangle; the
// lines run between the highest and lowest point that starts an edge that
// is not horizontal.
bool ScansTooLong(const QPolygon& polygon)
{
    const int count = polygon.size();
    if (count <= 2)
        return false;
    const QPoint* p = polygon.constData();
    if ((count == 4 || (count == 5 && p[4] == p[0])) &&
        ((p[0].y() == p[1].y() && p[1].x() == p[2].x() && p[2].y() == p[3].y() &&
          p[3].x() == p[0].x()) ||
         (p[0].x() == p[1].x() && p[1].y() == p[2].y() && p[2].x() == p[3].x() &&
          p[3].y() == p[0].y())))
        return false;
    qint64 top = std::numeric_limits<qint64>::max();
    qint64 bottom = std::numeric_limits<qint64>::min();
    for (int i = 0; i < count; ++i) {
        const QPoint& start = p[(i + count - 1) % count];
        if (start.y() == p[i].y())
            continue;
        top = qMin<qint64>(top, start.y());
        bottom = qMax<qint64>(bottom, start.y());
    }
    return top < bottom && ScansTooLong(bottom - top);
}

class Check
{
public:
    explicit Check(QDataStream& stream)
        : m_s(stream)
    {}

    bool Damaged() const { return m_damaged; }

    // QVariant::load().
    void Variant(int depth)
    {
        if (depth > kMaxDepth)
            return Damage();
        const qint64 start = m_s.device()->pos();
        const QDataStream::Status status = m_s.status();
        quint32 type = 0;
        m_s >> type;
        if (Version() < QDataStream::Qt_5_0)
            type = FromQt4(type);
        if (Version() >= QDataStream::Qt_4_2) {
            qint8 isNull = 0;
            m_s >> isNull;
        }
        if (type == QMetaType::User) {
            QByteArray name;
            m_s >> name;
            type = QMetaType::type(name.constData());
            if (type == QMetaType::UnknownType)
                return m_s.setStatus(QDataStream::ReadCorruptData);
        }
        if (Follow(int(type), depth))
            return;
        m_s.device()->seek(start);
        m_s.resetStatus();
        m_s.setStatus(status);
        QVariant value;
        m_s >> value;
    }

    // QRegion::exec() of a region's bytes. Each nested region works on a
    // copy of its bytes while the enclosing ones keep theirs.
    void Region(const QByteArray& bytes, int version, int depth, qint64 held = 0)
    {
        held += bytes.size();
        if (depth > kMaxDepth || held > kReserveLimit)
            return Damage();
        QDataStream stream(bytes);
        if (version != 0)
            stream.setVersion(version);
        Check region(stream);
        while (!stream.atEnd() && !region.m_damaged)
            region.RegionOperation(depth, held);
        m_damaged = m_damaged || region.m_damaged;
    }

private:
    int Version() const { return m_s.version(); }
    void Damage() { m_damaged = true; }

    qint64 Remaining() const { return m_s.device()->bytesAvailable(); }

    // Whether room for count elements is far beyond what the rest of the
    // bytes could hold.
    bool Overreaches(qint64 count, qint64 reservedEach, qint64 smallest) const
    {
        return count > 0 && count * reservedEach > kReserveLimit && count * smallest > Remaining();
    }

    // False for a type whose decoding Qt is left to do.
    bool Follow(int type, int depth)
    {
        switch (type) {
        case QMetaType::QStringList:
            Array(sizeof(void*), 4, [this] {
                QString element;
                m_s >> element;
            });
            return true;
        case QMetaType::QByteArrayList:
            Array(sizeof(void*), 4, [this] {
                QByteArray element;
                m_s >> element;
            });
            return true;
        case QMetaType::QVariantList:
            Array(sizeof(void*), 4, [this, depth] { Variant(depth + 1); });
            return true;
        case QMetaType::QVariantMap:
        case QMetaType::QVariantHash:
            Map(
                [this] {
                    QString key;
                    m_s >> key;
                },
                depth);
            return true;
        case QMetaType::QTextFormat: {
            qint32 format = 0;
            m_s >> format;
            Map(
                [this] {
                    qint32 key = 0;
                    m_s >> key;
                },
                depth);
            return true;
        }
        case QMetaType::QVariant:
            Variant(depth + 1);
            return true;
        case QMetaType::QPolygon:
            Array(sizeof(QPoint), 8, [this] {
                QPoint point;
                m_s >> point;
            });
            return true;
        case QMetaType::QPolygonF:
            PolygonF();
            return true;
        case QMetaType::QBrush:
            Brush();
            return true;
        case QMetaType::QPen:
            Pen();
            return true;
        case QMetaType::QPalette:
            Palette();
            return true;
        case QMetaType::QRegion: {
            QByteArray bytes;
            m_s >> bytes;
            Region(bytes, Version(), depth + 1);
            return true;
        }
        case QMetaType::QIcon:
            // From Qt 4.3 on an icon names files to read, and icon engine
            // plug-ins that read the rest.
            if (Version() >= QDataStream::Qt_4_3)
                Damage();
            return Version() >= QDataStream::Qt_4_3;
        case QMetaType::QDateTime:
            if (Version() < QDataStream::Qt_5_2)
                return false;
            DateTime();
            return true;
        default:
            return false;
        }
    }

    // QList and QVector: a count, room reserved for it (as an int), then
    // elements until one fails.
    template <typename Element> void Array(qint64 reservedEach, qint64 smallest, Element element)
    {
        const StatusSaver saver(m_s);
        quint32 count = 0;
        m_s >> count;
        if (Overreaches(int(count), reservedEach, smallest))
            return Damage();
        for (quint32 i = 0; i < count && !m_damaged; ++i) {
            element();
            if (m_s.status() != QDataStream::Ok)
                break;
        }
    }

    // QMap and QHash: a count, then keys and values until one fails.
    template <typename Key> void Map(Key key, int depth)
    {
        const StatusSaver saver(m_s);
        quint32 count = 0;
        m_s >> count;
        for (quint32 i = 0; i < count && !m_damaged; ++i) {
            key();
            Variant(depth + 1);
            if (m_s.status() != QDataStream::Ok)
                break;
        }
    }

    // A polygon of reals takes in every point that its count claims, read
    // or not.
    void PolygonF()
    {
        quint32 count = 0;
        m_s >> count;
        if (Overreaches(count, sizeof(QPointF), sizeof(QPointF)))
            return Damage();
        for (quint32 i = 0; i < count && !(m_s.atEnd() && m_s.status() != QDataStream::Ok); ++i) {
            QPointF point;
            m_s >> point;
        }
    }

    void Brush()
    {
        quint8 style = 0;
        QColor colour;
        m_s >> style >> colour;
        if (style == Qt::TexturePattern) {
            if (Version() >= QDataStream::Qt_5_5) {
                QImage texture;
                m_s >> texture;
            } else {
                QPixmap texture;
                m_s >> texture;
            }
        } else if (style >= Qt::LinearGradientPattern && style <= Qt::ConicalGradientPattern) {
            Gradient();
        }
        if (Version() >= QDataStream::Qt_4_3) {
            QTransform transform;
            m_s >> transform;
        }
    }

    void Gradient()
    {
        qint32 type = 0;
        qint32 mode = 0;
        m_s >> type;
        if (Version() >= QDataStream::Qt_4_3)
            m_s >> mode >> mode; // spread and coordinate mode
        if (Version() >= QDataStream::Qt_4_5)
            m_s >> mode; // interpolation mode
        Array(sizeof(QGradientStop), 8 + 11, [this] {
            double position = 0;
            QColor colour;
            m_s >> position >> colour;
        });
        QPointF point;
        double value = 0;
        if (type == QGradient::LinearGradient)
            m_s >> point >> point;
        else if (type == QGradient::RadialGradient)
            m_s >> point >> point >> value;
        else
            m_s >> point >> value;
    }

    void Pen()
    {
        if (Version() < QDataStream::Qt_4_3) {
            quint8 style = 0;
            m_s >> style;
        } else {
            quint16 style = 0;
            bool cosmetic = false;
            m_s >> style >> cosmetic;
        }
        double value = 0;
        m_s >> value; // width
        Brush();
        m_s >> value; // miter limit
        Array(sizeof(qreal), 8, [this] {
            double dash = 0;
            m_s >> dash;
        });
        if (Version() >= QDataStream::Qt_4_3)
            m_s >> value; // dash offset
        if (Version() >= QDataStream::Qt_5_0) {
            bool defaultWidth = false;
            m_s >> defaultWidth;
        }
    }

    void Palette()
    {
        const int roles = Version() <= QDataStream::Qt_4_3    ? QPalette::AlternateBase + 1
                          : Version() <= QDataStream::Qt_5_11 ? QPalette::ToolTipText + 1
                                                              : QPalette::NColorRoles;
        for (int i = 0; i < QPalette::NColorGroups * roles && !m_damaged; ++i)
            Brush();
    }

    void RegionOperation(int depth, qint64 held)
    {
        qint32 operation = 0;
        m_s >> operation;
        if (operation == 1 || operation == 2) { // rectangle, ellipse
            QRect shape;
            m_s >> shape;
            if (operation == 2 && IsBadEllipse(shape))
                Damage();
        } else if (operation == 3 || operation == 4) { // polygon
            QPolygon polygon;
            bool read = true;
            Array(sizeof(QPoint), 8, [&] {
                QPoint point;
                m_s >> point;
                read = read && m_s.status() == QDataStream::Ok;
                if (read)
                    polygon.append(point);
            });
            if (read && ScansTooLong(polygon))
                Damage();
        } else if (operation == 5) { // translation
            QPoint offset;
            m_s >> offset;
        } else if (operation >= 6 && operation <= 9) { // two regions combined
            for (int i = 0; i < 2 && !m_damaged; ++i) {
                QByteArray operand;
                m_s >> operand;
                Region(operand, 0, depth + 1, held);
            }
        } else if (operation == 10) { // rectangles
            quint32 count = 0;
            m_s >> count;
            if (int(count) > kMaxRegionRects && int(count) > Remaining() / 16)
                return Damage();
            for (int i = 0; i < int(count); ++i) {
                QRect rectangle;
                m_s >> rectangle;
            }
        }
    }

    // Qt writes a date in a time zone back by the zone's data, which a zone
    // that this system does not know lacks: the next write of the file
    // would crash.
    void DateTime()
    {
        QDateTime dateTime;
        m_s >> dateTime;
        if (dateTime.timeSpec() == Qt::TimeZone && !dateTime.timeZone().isValid())
            Damage();
    }

    QDataStream& m_s;
    bool m_damaged = false;
};

// Whether QSettings, taking this unescaped text as a value, would crash,
// abort, loop, allocate far beyond what the text holds, or keep a value that
// it crashes on when it writes the file back.
bool IsDamaged(const QString& text)
{
    if (!text.endsWith(QLatin1Char(')')))
        return false;
    int offset = 0;
    QDataStream::Version version = QDataStream::Qt_4_0;
    if (text.startsWith(QLatin1String("@Variant("))) {
        offset = 9;
    } else if (text.startsWith(QLatin1String("@DateTime("))) {
        offset = 10;
        version = QDataStream::Qt_5_6;
    } else {
        return false;
    }
    // As QSettings does: the rest of the text, closing parenthesis included.
    const QByteArray bytes = text.midRef(offset).toLatin1();
    QDataStream stream(bytes);
    stream.setVersion(version);
    Check check(stream);
    check.Variant(0);
    return check.Damaged();
}

// A file that starts with UTF-8's byte order mark is read as UTF-8 by the
// QSettings object that reads it from disk, but a section parsed later
// through another object sharing that read is taken as Latin-1: both must
// be safe.
bool IsDamaged(const QByteArray& ini, KVIniSyntax::Value value)
{
    for (const bool utf8 : {false, true}) {
        if (utf8 && !ini.startsWith("\xef\xbb\xbf"))
            break;
        const QStringList strings = KVIniSyntax::Strings(ini, value, utf8);
        if (std::any_of(strings.cbegin(), strings.cend(),
                        [](const QString& text) { return IsDamaged(text); }))
            return true;
    }
    return false;
}

// Only an '@' or an escape can make a value's text start with "@Variant(".
bool MayHoldVariant(const QByteArray& ini, KVIniSyntax::Value value)
{
    for (int i = value.from; i < value.to; ++i) {
        if (ini.at(i) == '@' || ini.at(i) == '\\')
            return true;
    }
    return false;
}

QByteArray Repair(const QByteArray& ini, const QVector<KVIniSyntax::Value>& values)
{
    QByteArray repaired;
    int copied = 0;
    for (const KVIniSyntax::Value& value : values) {
        if (!IsDamaged(ini, value))
            continue;
        repaired += ini.mid(copied, value.from - copied) + "@Invalid()";
        copied = value.to;
    }
    return copied == 0 ? ini : repaired + ini.mid(copied);
}

} // namespace

namespace KVSettingsCheck {

QByteArray Repaired(const QByteArray& ini)
{
    QVector<KVIniSyntax::Value> values = KVIniSyntax::Values(ini);
    values.erase(
        std::remove_if(values.begin(), values.end(),
                       [&](KVIniSyntax::Value value) { return !MayHoldVariant(ini, value); }),
        values.end());
    if (values.isEmpty())
        return ini;
    QByteArray repaired;
    std::unique_ptr<QThread> check(QThread::create([&] { repaired = Repair(ini, values); }));
    check->setStackSize(kCheckStack);
    check->start();
    check->wait();
    return repaired;
}

} // namespace KVSettingsCheck
