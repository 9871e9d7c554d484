#include "KVSettingsFile_p.h"

#include "KVLog.h"

#include <QColor>
#include <QDataStream>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSettings>
#include <QStringList>
#include <QTimeZone>
#include <QtEndian>

#include <algorithm>

#include <sys/stat.h>

// The INI reading below follows QSettings' own (Qt 5's qsettings.cpp) step
// by step: where a line ends, which lines hold values, and how a value is
// unescaped, so that every string that Qt would decode as a variant is seen.
namespace {

bool IsSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool IsSpecial(char c)
{
    return c == '\n' || c == '\r' || c == '"' || c == ';' || c == '=' || c == '\\';
}

struct Line
{
    int start = 0;
    int length = 0;
    int equals = -1;
};

// One logical line from position on: quotes and escaped line breaks carry
// it on, a semicolon outside quotes ends it, one at its start makes it a
// comment.
bool ReadLine(const QByteArray& data, int& position, Line& line)
{
    const int size = data.size();
    bool inQuotes = false;
    line.equals = -1;
    line.start = position;
    while (line.start < size && IsSpace(data.at(line.start)))
        ++line.start;

    int i = line.start;
    bool ended = false;
    while (i < size && !ended) {
        const char ch = data.at(i++);
        if (!IsSpecial(ch))
            continue;
        if (ch == '=') {
            if (!inQuotes && line.equals == -1)
                line.equals = i - 1;
        } else if (ch == '\n' || ch == '\r') {
            if (i == line.start + 1)
                ++line.start;
            else if (!inQuotes)
                ended = true;
        } else if (ch == '\\') {
            if (i < size) {
                const char escaped = data.at(i++);
                if (i < size) {
                    const char next = data.at(i);
                    if ((escaped == '\n' && next == '\r') || (escaped == '\r' && next == '\n'))
                        ++i;
                }
            }
        } else if (ch == '"') {
            inQuotes = !inQuotes;
        } else if (i == line.start + 1) { // a comment
            while (i < size && data.at(i) != '\n' && data.at(i) != '\r')
                ++i;
            while (i < size && IsSpace(data.at(i)))
                ++i;
            line.start = i;
        } else if (!inQuotes) {
            ended = true;
        }
    }
    if (ended)
        --i;
    position = i;
    line.length = i - line.start;
    return line.length > 0;
}

void ChopTrailingSpaces(QString& text, int limit)
{
    int n = text.size() - 1;
    while (n >= limit && (text.at(n) == QLatin1Char(' ') || text.at(n) == QLatin1Char('\t')))
        text.truncate(n--);
}

char EscapedCharacter(char code)
{
    static const char codes[][2] = {{'a', '\a'}, {'b', '\b'},  {'f', '\f'}, {'n', '\n'},
                                    {'r', '\r'}, {'t', '\t'},  {'v', '\v'}, {'"', '"'},
                                    {'?', '?'},  {'\'', '\''}, {'\\', '\\'}};
    for (const auto& escape : codes) {
        if (code == escape[0])
            return escape[1];
    }
    return 0;
}

int HexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

// A value's text as Qt unescapes it: one string, or the elements of a list
// when unquoted commas split it. Raw text is Latin-1, or UTF-8 in a file
// that starts with its byte order mark.
class Unescaper
{
public:
    Unescaper(const QByteArray& data, bool utf8)
        : m_data(data)
        , m_utf8(utf8)
    {}

    QStringList Strings(int from, int to);

private:
    void SkipSpaces()
    {
        while (m_i < m_to && (m_data.at(m_i) == ' ' || m_data.at(m_i) == '\t'))
            ++m_i;
        m_chopLimit = m_text.size();
    }
    // False when the value ended inside the escape.
    bool Escape();
    void Number(int base);
    void Comma();
    void Raw();

    const QByteArray& m_data;
    const bool m_utf8;
    int m_i = 0;
    int m_to = 0;
    int m_chopLimit = 0;
    bool m_inQuotes = false;
    bool m_quoted = false;
    bool m_isList = false;
    QString m_text;
    QStringList m_list;
};

QStringList Unescaper::Strings(int from, int to)
{
    m_i = from;
    m_to = to;
    SkipSpaces();
    bool complete = true;
    while (m_i < m_to && complete) {
        const char ch = m_data.at(m_i);
        if (ch == '\\') {
            complete = Escape();
        } else if (ch == '"') {
            ++m_i;
            m_quoted = true;
            m_inQuotes = !m_inQuotes;
            if (!m_inQuotes)
                SkipSpaces();
        } else if (ch == ',' && !m_inQuotes) {
            Comma();
        } else {
            Raw();
        }
    }
    if (complete && !m_quoted)
        ChopTrailingSpaces(m_text, m_chopLimit);
    if (!m_isList)
        return {m_text};
    m_list.append(m_text);
    return m_list;
}

bool Unescaper::Escape()
{
    if (++m_i >= m_to)
        return false;
    const char code = m_data.at(m_i++);
    if (const char escaped = EscapedCharacter(code)) {
        m_text += QLatin1Char(escaped);
    } else if (code == 'x') {
        if (m_i >= m_to)
            return false;
        if (HexDigit(m_data.at(m_i)) >= 0)
            Number(16);
    } else if (code >= '0' && code <= '7') {
        --m_i;
        Number(8);
    } else if ((code == '\n' || code == '\r') && m_i < m_to) {
        const char next = m_data.at(m_i);
        if ((next == '\n' || next == '\r') && next != code)
            ++m_i;
    }
    m_chopLimit = m_text.size();
    return true;
}

// Qt keeps taking digits for as long as they come, and keeps the low
// sixteen bits of the number.
void Unescaper::Number(int base)
{
    quint32 value = 0;
    while (m_i < m_to) {
        const int digit = HexDigit(m_data.at(m_i));
        if (digit < 0 || digit >= base)
            break;
        value = value * quint32(base) + quint32(digit);
        ++m_i;
    }
    m_text += QChar(ushort(value & 0xffff));
}

void Unescaper::Comma()
{
    if (!m_quoted)
        ChopTrailingSpaces(m_text, m_chopLimit);
    if (!m_isList) {
        m_isList = true;
        m_list.clear();
    }
    m_list.append(m_text);
    m_text.clear();
    m_quoted = false;
    ++m_i;
    SkipSpaces();
}

void Unescaper::Raw()
{
    int j = m_i + 1;
    while (j < m_to && m_data.at(j) != '\\' && m_data.at(j) != '"' && m_data.at(j) != ',')
        ++j;
    const char* raw = m_data.constData() + m_i;
    m_text += m_utf8 ? QString::fromUtf8(raw, j - m_i) : QString::fromLatin1(raw, j - m_i);
    m_i = j;
}

// A variant as QSettings stores it, in a Qt 4.0 stream. Follow: the value
// was read to its end; Ended: the bytes ran out, where Qt stops decoding
// too; Lost: a value that Qt decodes without a claimed count but whose end
// is not known here; Reject: a count that the bytes cannot hold, or nesting
// too deep.
enum class Result
{
    Follow,
    Ended,
    Lost,
    Reject,
};

// Qt decodes nested variants recursively: far deeper than anything that a
// program writes, and far shallower than the stack.
constexpr int kMaxDepth = 64;

class VariantCheck
{
public:
    explicit VariantCheck(const QByteArray& bytes)
        : m_bytes(bytes)
    {}

    Result Variant(int depth);

private:
    qint64 Remaining() const { return m_bytes.size() - m_position; }
    bool Read(quint32* value);
    Result Skip(qint64 size);
    Result String();
    bool Bytes(QByteArray* bytes);
    Result Strings();
    Result Vector(int elementSize);
    Result Variants(int depth);
    Result Map(int depth, bool intKeys);
    Result Colour();
    Result Stops();
    Result Brush();
    Result Pen();
    Result Palette();
    Result Region();
    Result Image();
    Result Value(quint32 type, int depth);

    const QByteArray& m_bytes;
    qint64 m_position = 0;
};

bool VariantCheck::Read(quint32* value)
{
    if (Remaining() < 4)
        return false;
    const auto* p = reinterpret_cast<const uchar*>(m_bytes.constData() + m_position);
    *value = quint32(p[0]) << 24 | quint32(p[1]) << 16 | quint32(p[2]) << 8 | quint32(p[3]);
    m_position += 4;
    return true;
}

Result VariantCheck::Skip(qint64 size)
{
    if (Remaining() < size)
        return Result::Ended;
    m_position += size;
    return Result::Follow;
}

// A QString or QByteArray: its length, then its bytes; Qt reads them in
// steps, never trusting the length with one allocation.
Result VariantCheck::String()
{
    quint32 length = 0;
    if (!Read(&length))
        return Result::Ended;
    return length == 0xffffffff ? Result::Follow : Skip(length);
}

bool VariantCheck::Bytes(QByteArray* bytes)
{
    quint32 length = 0;
    if (!Read(&length))
        return false;
    if (length == 0xffffffff)
        return true;
    if (length > Remaining())
        return false;
    *bytes = m_bytes.mid(int(m_position), int(length));
    m_position += length;
    return true;
}

// The following element decides: an element whose end is lost may only be
// the last.
Result Continue(Result element, bool last)
{
    if (element == Result::Lost && !last)
        return Result::Reject;
    return element;
}

// Qt reserves room for the count before it reads an element.
Result VariantCheck::Strings()
{
    quint32 count = 0;
    if (!Read(&count))
        return Result::Ended;
    if (count > Remaining() / 4)
        return Result::Reject;
    for (quint32 i = 0; i < count; ++i) {
        const Result element = String();
        if (element != Result::Follow)
            return element;
    }
    return Result::Follow;
}

Result VariantCheck::Vector(int elementSize)
{
    quint32 count = 0;
    if (!Read(&count))
        return Result::Ended;
    if (count > Remaining() / elementSize)
        return Result::Reject;
    return Skip(qint64(count) * elementSize);
}

Result VariantCheck::Variants(int depth)
{
    quint32 count = 0;
    if (!Read(&count))
        return Result::Ended;
    if (count > Remaining() / 4) // every variant starts with its type
        return Result::Reject;
    for (quint32 i = 0; i < count; ++i) {
        const Result element = Continue(Variant(depth + 1), i + 1 == count);
        if (element != Result::Follow)
            return element;
    }
    return Result::Follow;
}

// Maps read entry by entry, without reserving: a count beyond the bytes
// only ends where they do.
Result VariantCheck::Map(int depth, bool intKeys)
{
    quint32 count = 0;
    if (!Read(&count))
        return Result::Ended;
    for (quint32 i = 0; i < count; ++i) {
        const Result key = intKeys ? Skip(4) : String();
        if (key != Result::Follow)
            return key;
        const Result value = Continue(Variant(depth + 1), i + 1 == count);
        if (value != Result::Follow)
            return value;
    }
    return Result::Follow;
}

// A colour model (one byte) and five components of two bytes. Qt takes any byte
// for the colour model, and keeps it even when the components run short; one that
// QColor does not know makes every copy of the colour undefined behaviour,
// so it counts as damage like a count too large.
Result VariantCheck::Colour()
{
    if (Remaining() < 1)
        return Result::Ended;
    const qint8 model = qint8(m_bytes.at(int(m_position)));
    if (model < QColor::Invalid || model > QColor::ExtendedRgb)
        return Result::Reject;
    return Skip(11);
}

// Gradient stops: a count, reserved for, and a position and a colour each.
Result VariantCheck::Stops()
{
    quint32 count = 0;
    if (!Read(&count))
        return Result::Ended;
    if (count > Remaining() / (8 + 11))
        return Result::Reject;
    for (quint32 i = 0; i < count; ++i) {
        const Result position = Skip(8);
        const Result colour = position == Result::Follow ? Colour() : position;
        if (colour != Result::Follow)
            return colour;
    }
    return Result::Follow;
}

// Style (one byte) and colour; a gradient adds its type, its stops and its
// points; a texture adds a pixmap.
Result VariantCheck::Brush()
{
    if (Remaining() < 1)
        return Result::Ended;
    const int style = uchar(m_bytes.at(int(m_position++)));
    const Result colour = Colour();
    if (colour != Result::Follow)
        return colour;
    const int kTexture = 24, kLinear = 15, kConical = 17;
    if (style == kTexture)
        return Result::Lost;
    if (style < kLinear || style > kConical)
        return Result::Follow;
    quint32 type = 0;
    if (!Read(&type))
        return Result::Ended;
    const Result stops = Stops();
    if (stops != Result::Follow)
        return stops;
    const int kLinearType = 0, kRadialType = 1;
    return Skip(type == kLinearType ? 32 : type == kRadialType ? 40 : 24);
}

// Style (one byte), width (a double), brush, miter limit (a double), and
// the dash pattern, reserved for.
Result VariantCheck::Pen()
{
    const Result head = Skip(1 + 8);
    if (head != Result::Follow)
        return head;
    const Result brush = Continue(Brush(), false);
    if (brush != Result::Follow)
        return brush;
    const Result miterLimit = Skip(8);
    return miterLimit != Result::Follow ? miterLimit : Vector(8);
}

// Three colour groups of seventeen brushes each.
Result VariantCheck::Palette()
{
    const int brushes = 3 * 17;
    for (int i = 0; i < brushes; ++i) {
        const Result brush = Continue(Brush(), i + 1 == brushes);
        if (brush != Result::Follow)
            return brush;
    }
    return Result::Follow;
}

// A byte array holding the region as Qt writes it: a list of rectangles
// (kind 10). Qt reads other kinds too, with counts that it loops over
// unchecked; no program writes them.
Result VariantCheck::Region()
{
    quint32 length = 0;
    if (!Read(&length))
        return Result::Ended;
    if (length == 0xffffffff || length == 0)
        return Result::Follow;
    if (length > Remaining())
        return Result::Ended;
    const qint64 end = m_position + length;
    quint32 kind = 0;
    quint32 count = 0;
    if (!Read(&kind) || !Read(&count) || kind != 10 || count > (end - m_position) / 16)
        return Result::Reject;
    m_position = end;
    return Result::Follow;
}

// An image: a flag for a null one, then a PNG file, which Qt's reader
// takes chunk by chunk up to its end chunk.
Result VariantCheck::Image()
{
    quint32 present = 0;
    if (!Read(&present))
        return Result::Ended;
    if (present == 0)
        return Result::Follow;
    const Result signature = Skip(8);
    if (signature != Result::Follow)
        return signature;
    for (;;) {
        quint32 length = 0;
        if (!Read(&length) || Remaining() < 4)
            return Result::Ended;
        const bool end = m_bytes.mid(int(m_position), 4) == "IEND";
        const Result chunk = Skip(4 + qint64(length) + 4);
        if (chunk != Result::Follow || end)
            return chunk;
    }
}

// The size of a type of fixed size in a Qt 4.0 stream, by its Qt 5 type
// number; 0 for the others.
qint64 FixedSize(quint32 type)
{
    switch (type) {
    case QMetaType::Bool:
    case QMetaType::Char:
    case QMetaType::UChar:
    case QMetaType::SChar:
        return 1;
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::QChar:
        return 2;
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Float:
    case QMetaType::QDate:
    case QMetaType::QTime:
    case QMetaType::QSizePolicy:
        return 4;
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::QSize:
    case QMetaType::QPoint:
    case QMetaType::QVector2D:
        return 8;
    case QMetaType::QDateTime:
        return 9;
    case QMetaType::QTextLength:
    case QMetaType::QVector3D:
        return 12;
    case QMetaType::QRect:
    case QMetaType::QSizeF:
    case QMetaType::QLine:
    case QMetaType::QPointF:
    case QMetaType::QUuid:
    case QMetaType::QVector4D:
    case QMetaType::QQuaternion:
        return 16;
    case QMetaType::QRectF:
    case QMetaType::QLineF:
        return 32;
    case QMetaType::QMatrix:
        return 48;
    case QMetaType::QMatrix4x4:
        return 64;
    case QMetaType::QTransform:
        return 72;
    default:
        return 0;
    }
}

Result VariantCheck::Value(quint32 type, int depth)
{
    if (const qint64 size = FixedSize(type))
        return Skip(size);
    switch (type) {
    case QMetaType::QColor:
        return Colour();
    case QMetaType::UnknownType: // Qt 4 wrote an empty string for an invalid variant
    case QMetaType::QString:
    case QMetaType::QByteArray:
    case QMetaType::QUrl:
    case QMetaType::QLocale:
    case QMetaType::QColorSpace:
    case QMetaType::QJsonObject:
    case QMetaType::QJsonArray:
    case QMetaType::QJsonDocument:
    case QMetaType::QCborValue:
    case QMetaType::QCborArray:
    case QMetaType::QCborMap:
        return String();
    case QMetaType::QFont: { // family, then point and pixel size and five bytes of style
        const Result family = String();
        return family != Result::Follow ? family : Skip(17);
    }
    case QMetaType::QImage:
    case QMetaType::QPixmap:
    case QMetaType::QBitmap:
    case QMetaType::QIcon:
        return Image();
    case QMetaType::QRegExp: {
        const Result pattern = String();
        return pattern != Result::Follow ? pattern : Skip(3);
    }
    case QMetaType::QRegularExpression: {
        const Result pattern = String();
        return pattern != Result::Follow ? pattern : Skip(4);
    }
    case QMetaType::QBitArray: {
        quint32 bits = 0;
        return Read(&bits) ? Skip((qint64(bits) + 7) / 8) : Result::Ended;
    }
    case QMetaType::QKeySequence: {
        quint32 count = 0;
        return Read(&count) ? Skip(4 * qint64(std::min(count, 4u))) : Result::Ended;
    }
    case QMetaType::QStringList:
    case QMetaType::QByteArrayList:
        return Strings();
    case QMetaType::QVariantList:
        return Variants(depth);
    case QMetaType::QVariantMap:
    case QMetaType::QVariantHash:
        return Map(depth, false);
    case QMetaType::QTextFormat: {
        const Result kind = Skip(4);
        return kind != Result::Follow ? kind : Map(depth, true);
    }
    case QMetaType::QVariant:
        return Variant(depth + 1);
    case QMetaType::QPolygon:
        return Vector(8);
    case QMetaType::QPolygonF:
        return Vector(16);
    case QMetaType::QBrush:
        return Brush();
    case QMetaType::QPen:
        return Pen();
    case QMetaType::QPalette:
        return Palette();
    case QMetaType::QRegion:
        return Region();
    default: // cursors, curves, JSON values, types of plug-ins
        return Result::Lost;
    }
}

Result VariantCheck::Variant(int depth)
{
    if (depth > kMaxDepth)
        return Result::Reject;
    quint32 type = 0;
    if (!Read(&type))
        return Result::Ended;
    // Qt 4's numbers, as Qt reads them from a Qt 4.0 stream.
    if (type == 127)
        type = QMetaType::User;
    else if (type >= 128 && type != QMetaType::User)
        type -= 97;
    else if (type == 75)
        type = QMetaType::QSizePolicy;
    else if (type > 75 && type <= 86)
        type -= 1;
    // A type that Qt 4 did not know, the polygon of reals among them, goes by
    // its name; Qt looks the name up and reads the type as its own.
    if (type == QMetaType::User) {
        QByteArray name;
        if (!Bytes(&name))
            return Result::Ended;
        type = QMetaType::type(name.constData());
        if (type == QMetaType::UnknownType)
            return Result::Ended;
        if (type >= QMetaType::User)
            return Result::Lost;
    }
    return Value(type, depth);
}

// A "@DateTime(...)" value is a variant in a Qt 5.6 stream that Qt only
// ever writes for a date and time; anything else in one is not trusted. Its
// zone is read by name, and a name that this system does not know gives an
// invalid zone, which Qt cannot write back (it follows the zone's null
// data) at the next write of the file.
bool IsDateTime(const QByteArray& bytes)
{
    if (bytes.size() >= 4 && qFromBigEndian<quint32>(bytes.constData()) != QMetaType::QDateTime)
        return false;
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_5_6);
    QVariant value;
    stream >> value;
    const QDateTime dateTime = value.toDateTime();
    return dateTime.timeSpec() != Qt::TimeZone || dateTime.timeZone().isValid();
}

bool IsParsableString(const QString& text)
{
    if (!text.startsWith(QLatin1Char('@')) || !text.endsWith(QLatin1Char(')')))
        return true;
    if (text.startsWith(QLatin1String("@Variant(")))
        return VariantCheck(text.midRef(9).toLatin1()).Variant(0) != Result::Reject;
    if (text.startsWith(QLatin1String("@DateTime(")))
        return IsDateTime(text.midRef(10).toLatin1());
    return true;
}
bool AreValuesParsable(const QByteArray& ini, int from, bool utf8)
{
    int position = from;
    Line line;
    while (ReadLine(ini, position, line)) {
        if (ini.at(line.start) == '[' || line.equals < 0)
            continue;
        Unescaper value(ini, utf8);
        const QStringList strings = value.Strings(line.equals + 1, line.start + line.length);
        if (!std::all_of(strings.cbegin(), strings.cend(), &IsParsableString))
            return false;
    }
    return true;
}
} // namespace

namespace KVSettingsFile {

// A file that starts with UTF-8's byte order mark is read as UTF-8 by the
// QSettings object that reads it from disk, but a section parsed later
// through another object sharing that read is taken as Latin-1: both must
// pass.
bool IsParsable(const QByteArray& ini)
{
    if (!ini.startsWith("\xef\xbb\xbf"))
        return AreValuesParsable(ini, 0, false);
    return AreValuesParsable(ini, 3, true) && AreValuesParsable(ini, 3, false);
}

bool IsParsable(const QString& path)
{
    QFile file(path);
    if (!file.exists())
        return true;
    return file.open(QIODevice::ReadOnly) && IsParsable(file.readAll());
}

void ClearStaleLock(const QString& path)
{
    const QString lockPath = path + QStringLiteral(".lock");
    if (!QFileInfo::exists(lockPath))
        return;
    QLockFile lock(lockPath);
    lock.setStaleLockTime(1000);
    if (lock.tryLock(0))
        lock.unlock();
}

} // namespace KVSettingsFile

namespace {
// The file's size and modification time, which tell whether it changed
// since it was checked; a size of -1 for a file that does not exist.
// QFileInfo answers the time as a QDateTime, whose conversion to local time
// would cost as much again as the read it guards.
KVSettingsGuard::Stamp StampOf(const QString& path)
{
    struct stat status;
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return {};
#ifdef __APPLE__
    const struct timespec& modified = status.st_mtimespec;
#else
    const struct timespec& modified = status.st_mtim;
#endif
    return {qint64(status.st_size), qint64(modified.tv_sec) * 1000000000 + modified.tv_nsec};
}
} // namespace

KVSettingsGuard::KVSettingsGuard() = default;

KVSettingsGuard::~KVSettingsGuard() = default;

void KVSettingsGuard::SetPath(const QString& path)
{
    m_path = path;
    m_checked = Stamp{-2, -2};
    // Splitting the file into sections decodes no value: safe whatever it holds.
    m_parsed = std::make_unique<QSettings>(path, QSettings::IniFormat);
}

bool KVSettingsGuard::IsParsable()
{
    const Stamp stamp = StampOf(m_path);
    if (stamp == m_checked)
        return m_parsable;
    m_checked = stamp;
    m_parsable = KVSettingsFile::IsParsable(m_path);
    if (!m_parsable)
        KV_LOG(QStringLiteral("The settings file \"%1\" cannot be parsed; it is neither read nor "
                              "written.")
                   .arg(m_path));
    return m_parsable;
}

void KVSettingsGuard::Trust()
{
    m_checked = StampOf(m_path);
    m_parsable = true;
}
