#include "SettingsRows.h"

#include <QDataStream>
#include <QMetaType>
#include <QRect>

namespace {
// Bytes of a Qt 4.0 stream, as QSettings writes a variant.
template <typename... Values> QByteArray Stream(const Values&... values)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_4_0);
    (out << ... << values);
    return bytes;
}

QByteArray Escaped(const QByteArray& bytes)
{
    QByteArray text;
    for (const char byte : bytes)
        text += "\\x" + QByteArray::number(uchar(byte), 16);
    return text;
}

QByteArray Variant(const QByteArray& bytes)
{
    return "@Variant(" + Escaped(bytes) + ")";
}

// A region's bytes wrapped as a variant: operations read until they end.
QByteArray Region(const QByteArray& operations)
{
    return Variant(Stream(quint32(QMetaType::QRegion)) + Stream(operations));
}

// Variants in variants: four bytes a level, "\0\0\0)" as the file holds
// them (41, the variant type, is a closing parenthesis).
QByteArray NestedVariants(int depth)
{
    return "@Variant(" + QByteArray("\\0\\0\\0)").repeated(depth) +
           Escaped(Stream(quint32(2), qint32(7))) + ")";
}

const quint32 kHuge = 0x7fffffff;
const QByteArray kPolygon = Stream(quint32(QMetaType::QPolygon), kHuge);
} // namespace

QVector<SettingsRow> SettingsRows()
{
    // One row per kind of value; more of each kind are in the fuzz corpora.
    return {
        {"string list claiming sixteen strings", "@Variant(\\0\\0\\0\\v\\0\\0\\0\\x10)", false},
        {"escaped at sign", "@@Variant(\\0\\0\\0G\\x7f\\xff\\xff\\xff)", false},
        // Qt dies on these, hangs, or keeps a value that it dies writing back.
        {"string list count", Variant(Stream(quint32(QMetaType::QStringList), kHuge)), true},
        {"polygon count", Variant(kPolygon), true},
        {"region rectangles", Region(Stream(qint32(10), kHuge)), true},
        {"region ellipse that takes seconds",
         Region(Stream(qint32(2), QRect(QPoint(0x547830, 0x4c), QPoint(0x78300000, 0xfffe)))),
         true},
        {"pen dashes",
         Variant(Stream(quint32(77), quint8(1), 2.0, quint8(Qt::SolidPattern), qint8(1),
                        quint16(0xffff), quint16(0), quint16(0), quint16(0), quint16(0), 2.0,
                        kHuge)),
         true},
        {"date in an unknown zone",
         "@DateTime(\\0\\0\\0\\x10\\0\\0\\0\\0\\0\\0%\\x8ds\\0\\0\\0\\0\\x3\\0\\0\\0\\x4\\0X\\0Y)",
         true},
        // 0xa8 is Qt 4's number of the polygon; after a byte order mark it
        // reads as Latin-1 in a section parsed after the file was read.
        {"byte order mark, polygon", "@Variant(\\0\\0\\0\xa8\\x7f\\xff\\xff\\xff)", true,
         "\xef\xbb\xbf"},
        {"variants nested forty thousand deep", NestedVariants(40000),
         true}, // overflows Qt's stack
    };
}

QByteArray SettingsRowFile(const SettingsRow& row, bool repaired)
{
    return row.start +
           "[General]\nVersion=2.4.0\nTexturePatternIndex=4\n[Colors]\nBackground=@Variant(\\0\\0"
           "\\0\\x43\\x1\\xff\\xff\\xff\\xff\\0\\0\\0\\0\\0\\0)\n[Plugin]\nKey=" +
           (repaired && row.damaged ? QByteArray("@Invalid()") : row.value) +
           "\n[Save]\nPathOpen=/pictures\n";
}
