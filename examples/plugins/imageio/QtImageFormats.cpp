#include "QtImageFormats.h"

#include <QFileInfo>
#include <QImageReader>
#include <QImageWriter>
#include <QSet>
#include <QUuid>

const QString QtImageFilePlugin::UID = QStringLiteral("{5b0c3f2e-61a4-4c7b-9d55-3f0f6a1c2e10}");

namespace {
// Suffixes that Qt's handlers share, and the names their groups show.
struct KnownFamily
{
    const char* name;
    QStringList formats;
};

const QList<KnownFamily>& KnownFamilies()
{
    static const QList<KnownFamily> families = {
        {QT_TRANSLATE_NOOP("QtImageFilePlugin", "PNG image"), {"png"}},
        {QT_TRANSLATE_NOOP("QtImageFilePlugin", "JPEG image"), {"jpeg", "jpg"}},
        {QT_TRANSLATE_NOOP("QtImageFilePlugin", "BMP image"), {"bmp"}},
        {QT_TRANSLATE_NOOP("QtImageFilePlugin", "TIFF image"), {"tif", "tiff"}},
        {QT_TRANSLATE_NOOP("QtImageFilePlugin", "WebP image"), {"webp"}},
        {QT_TRANSLATE_NOOP("QtImageFilePlugin", "Netpbm image"), {"pbm", "pgm", "ppm"}},
        {QT_TRANSLATE_NOOP("QtImageFilePlugin", "Windows icon"), {"ico", "cur"}},
        {QT_TRANSLATE_NOOP("QtImageFilePlugin", "X11 bitmap"), {"xbm"}},
        {QT_TRANSLATE_NOOP("QtImageFilePlugin", "X11 pixmap"), {"xpm"}},
    };
    return families;
}

QString StableUid(const QString& name)
{
    static const QUuid space(QStringLiteral("{5b0c3f2e-61a4-4c7b-9d55-3f0f6a1c2e10}"));
    return QUuid::createUuidV5(space, name).toString();
}

QtImageFilePlugin::Family MakeFamily(const QString& name, const QStringList& formats)
{
    const QString key = formats.first();
    return {name, formats, StableUid("group:" + key), StableUid("reader:" + key),
            StableUid("writer:" + key)};
}

QStringList ReadableAndWritable()
{
    QSet<QString> writable;
    for (const QByteArray& format : QImageWriter::supportedImageFormats())
        writable.insert(QString::fromLatin1(format).toLower());
    QStringList formats;
    for (const QByteArray& format : QImageReader::supportedImageFormats()) {
        const QString suffix = QString::fromLatin1(format).toLower();
        if (writable.contains(suffix) && !formats.contains(suffix))
            formats.append(suffix);
    }
    formats.sort();
    return formats;
}
} // namespace

QtImageFilePlugin::QtImageFilePlugin(QObject* parent)
    : KVImageFilePlugin(parent)
{
    QStringList remaining = ReadableAndWritable();
    for (const KnownFamily& known : KnownFamilies()) {
        QStringList formats;
        for (const QString& format : known.formats) {
            if (remaining.removeAll(format) > 0)
                formats.append(format);
        }
        if (!formats.isEmpty())
            m_families.append(MakeFamily(tr(known.name), formats));
    }
    for (const QString& format : qAsConst(remaining))
        m_families.append(MakeFamily(tr("%1 image").arg(format.toUpper()), {format}));
}

QtImageFilePlugin::~QtImageFilePlugin() = default;

QStringList QtImageFilePlugin::Collect(QString Family::*field) const
{
    QStringList values;
    for (const Family& family : m_families)
        values.append(family.*field);
    return values;
}

QStringList QtImageFilePlugin::GetReaderUIDs() const
{
    return Collect(&Family::readerUID);
}

QStringList QtImageFilePlugin::GetWriterUIDs() const
{
    return Collect(&Family::writerUID);
}

QStringList QtImageFilePlugin::GetFormats() const
{
    QStringList formats;
    for (const Family& family : m_families)
        formats.append(family.formats);
    return formats;
}

QStringList QtImageFilePlugin::GetGroups() const
{
    return Collect(&Family::group);
}

const QtImageFilePlugin::Family* QtImageFilePlugin::FindFamily(const QString& value,
                                                               QString Family::*field) const
{
    for (const Family& family : m_families) {
        if (family.*field == value)
            return &family;
    }
    return nullptr;
}

const QtImageFilePlugin::Family* QtImageFilePlugin::FindFamilyOf(const QString& format) const
{
    for (const Family& family : m_families) {
        if (family.formats.contains(format))
            return &family;
    }
    return nullptr;
}

QString QtImageFilePlugin::GetGroupName(const QString& group) const
{
    const Family* family = FindFamily(group, &Family::group);
    return family ? family->name : QString();
}

QStringList QtImageFilePlugin::GetGroupFormats(const QString& group) const
{
    const Family* family = FindFamily(group, &Family::group);
    return family ? family->formats : QStringList();
}

bool QtImageFilePlugin::IsFormatEnabled(const QString& format) const
{
    return FindFamilyOf(format) != nullptr;
}

KVImageFileReader* QtImageFilePlugin::CreateReader(const QString& format)
{
    const Family* family = FindFamilyOf(format);
    return family ? new QtImageFileReader(family->readerUID, family->formats) : nullptr;
}

KVImageFileReader* QtImageFilePlugin::CreateReaderByUID(const QString& uid)
{
    const Family* family = FindFamily(uid, &Family::readerUID);
    return family ? new QtImageFileReader(family->readerUID, family->formats) : nullptr;
}

KVImageFileWriter* QtImageFilePlugin::CreateWriter(const QString& format)
{
    const Family* family = FindFamilyOf(format);
    return family ? new QtImageFileWriter(family->writerUID, family->formats) : nullptr;
}

KVImageFileWriter* QtImageFilePlugin::CreateWriterByUID(const QString& uid)
{
    const Family* family = FindFamily(uid, &Family::writerUID);
    return family ? new QtImageFileWriter(family->writerUID, family->formats) : nullptr;
}

void QtImageFilePlugin::ReleaseReader(KVImageFileReader* reader)
{
    delete reader;
}

void QtImageFilePlugin::ReleaseWriter(KVImageFileWriter* writer)
{
    delete writer;
}

QtImageFileReader::QtImageFileReader(const QString& uid, const QStringList& formats)
    : m_uid(uid)
    , m_formats(formats)
{}

QImage QtImageFileReader::Read(const QString& fileName)
{
    QImageReader reader(fileName);
    reader.setAutoTransform(true);
    QImage image = reader.read();
    m_error = image.isNull() ? reader.errorString() : QString();
    return image;
}

QtImageFileWriter::QtImageFileWriter(const QString& uid, const QStringList& formats)
    : m_uid(uid)
    , m_formats(formats)
{}

bool QtImageFileWriter::Write(const QImage& image, const QString& fileName)
{
    QString format = QFileInfo(fileName).suffix().toLower();
    if (!m_formats.contains(format))
        format = m_formats.value(0);
    QImageWriter writer(fileName, format.toLatin1());
    const bool written = writer.write(image);
    m_error = written ? QString() : writer.errorString();
    return written;
}
