#pragma once

#include <KVImageFilePlugin.h>
#include <KVImageFileReader.h>
#include <KVImageFileWriter.h>

// Image formats read and written through Qt's image I/O (QImageReader and
// QImageWriter), one format group per family of suffixes: PNG image (png),
// JPEG image (jpeg, jpg), BMP image (bmp) and whatever else Qt's image plug-ins
// on the machine can both read and write. The group names are translated
// when the plug-in is made.
class QtImageFilePlugin : public KVImageFilePlugin
{
    Q_OBJECT
public:
    explicit QtImageFilePlugin(QObject* parent = nullptr);
    ~QtImageFilePlugin() override;

    static const QString UID;

    QString GetUID() const override { return UID; }
    QStringList GetReaderUIDs() const override;
    QStringList GetWriterUIDs() const override;
    QStringList GetFormats() const override;
    QStringList GetGroups() const override;
    QString GetGroupName(const QString& group) const override;
    QStringList GetGroupFormats(const QString& group) const override;
    bool IsFormatEnabled(const QString& format) const override;
    KVImageFileReader* CreateReader(const QString& format) override;
    KVImageFileReader* CreateReaderByUID(const QString& uid) override;
    KVImageFileWriter* CreateWriter(const QString& format) override;
    KVImageFileWriter* CreateWriterByUID(const QString& uid) override;
    void ReleaseReader(KVImageFileReader* reader) override;
    void ReleaseWriter(KVImageFileWriter* writer) override;

    // A family of suffixes that Qt reads and writes with one image handler.
    struct Family
    {
        QString name;
        QStringList formats;
        QString group;
        QString readerUID;
        QString writerUID;
    };

private:
    QStringList Collect(QString Family::*field) const;
    const Family* FindFamily(const QString& value, QString Family::*field) const;
    const Family* FindFamilyOf(const QString& format) const;

    QList<Family> m_families;
};

class QtImageFileReader : public KVImageFileReader
{
    Q_OBJECT
public:
    QtImageFileReader(const QString& uid, const QStringList& formats);

    QString GetUID() const override { return m_uid; }
    QStringList GetFormats() const override { return m_formats; }
    QImage Read(const QString& fileName) override;
    QString GetErrorString() const override { return m_error; }

private:
    QString m_uid;
    QStringList m_formats;
    QString m_error;
};

class QtImageFileWriter : public KVImageFileWriter
{
    Q_OBJECT
public:
    QtImageFileWriter(const QString& uid, const QStringList& formats);

    QString GetUID() const override { return m_uid; }
    QStringList GetFormats() const override { return m_formats; }
    bool Write(const QImage& image, const QString& fileName) override;
    QString GetErrorString() const override { return m_error; }

private:
    QString m_uid;
    QStringList m_formats;
    QString m_error;
};
