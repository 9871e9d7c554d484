#pragma once

#include <KVImageFilePlugin.h>
#include <KVImageFileReader.h>
#include <KVImageFileWriter.h>

// A format group as a test plug-in declares it.
struct TestGroup
{
    QString uid;
    QString name;
    QStringList formats;
};

// What a TestImagePlugin offers, fixed at construction.
struct TestImagePluginConfig
{
    QString uid = QStringLiteral("{7e57a000-0000-4000-8000-000000000000}");
    QStringList formats;
    QStringList disabled; // formats for which IsFormatEnabled() is false
    QList<TestGroup> groups;
    QStringList readerUIDs;
    QStringList writerUIDs;
    QStringList readerFormats; // what its readers report; the plug-in's formats when empty
    bool makesReaders = true;
};

// A reader or writer that reads a 1x1 image and writes nothing.
template <typename Base> class TestImageFile : public Base
{
public:
    TestImageFile(const QString& uid, const QStringList& formats)
        : m_uid(uid)
        , m_formats(formats)
    {}
    QString GetUID() const override { return m_uid; }
    QStringList GetFormats() const override { return m_formats; }
    QImage Read(const QString&) { return QImage(1, 1, QImage::Format_ARGB32); }
    bool Write(const QImage&, const QString&) { return true; }
    const QString m_uid;
    const QStringList m_formats;
};
using TestImageReader = TestImageFile<KVImageFileReader>;
using TestImageWriter = TestImageFile<KVImageFileWriter>;

// An image-file plug-in whose tables are given at construction. It deletes
// what it is asked to release and counts what it made and released.
class TestImagePlugin : public KVImageFilePlugin
{
    Q_OBJECT
public:
    explicit TestImagePlugin(TestImagePluginConfig config)
        : m_config(std::move(config))
    {
        if (m_config.readerFormats.isEmpty())
            m_config.readerFormats = m_config.formats;
    }

    QString GetUID() const override { return m_config.uid; }
    QStringList GetReaderUIDs() const override { return m_config.readerUIDs; }
    QStringList GetWriterUIDs() const override { return m_config.writerUIDs; }
    QStringList GetFormats() const override { return m_config.formats; }
    QStringList GetGroups() const override
    {
        QStringList groups;
        for (const TestGroup& group : m_config.groups)
            groups.append(group.uid);
        return groups;
    }
    QString GetGroupName(const QString& uid) const override { return Group(uid).name; }
    QStringList GetGroupFormats(const QString& uid) const override { return Group(uid).formats; }
    bool IsFormatEnabled(const QString& format) const override
    {
        return !m_config.disabled.contains(format);
    }
    KVImageFileReader* CreateReader(const QString& format) override
    {
        m_requestedFormats.append(format);
        return m_config.formats.contains(format) ? CreateReaderByUID(m_config.readerUIDs.value(0))
                                                 : nullptr;
    }
    KVImageFileReader* CreateReaderByUID(const QString& uid) override
    {
        if (!m_config.makesReaders || !m_config.readerUIDs.contains(uid))
            return nullptr;
        ++m_readersMade;
        return new TestImageReader(uid, m_config.readerFormats);
    }
    KVImageFileWriter* CreateWriter(const QString& format) override
    {
        m_requestedFormats.append(format);
        return m_config.formats.contains(format) ? CreateWriterByUID(m_config.writerUIDs.value(0))
                                                 : nullptr;
    }
    KVImageFileWriter* CreateWriterByUID(const QString& uid) override
    {
        if (!m_config.writerUIDs.contains(uid))
            return nullptr;
        ++m_writersMade;
        return new TestImageWriter(uid, m_config.formats);
    }
    void ReleaseReader(KVImageFileReader* reader) override
    {
        ++m_readersReleased;
        delete reader;
    }
    void ReleaseWriter(KVImageFileWriter* writer) override
    {
        ++m_writersReleased;
        delete writer;
    }

    int m_readersMade = 0, m_readersReleased = 0, m_writersMade = 0, m_writersReleased = 0;
    QStringList m_requestedFormats; // suffixes passed to CreateReader/CreateWriter

private:
    TestGroup Group(const QString& uid) const
    {
        for (const TestGroup& group : m_config.groups)
            if (group.uid == uid)
                return group;
        return TestGroup();
    }

    TestImagePluginConfig m_config;
};
