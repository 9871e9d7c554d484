#include "TestImagePlugin.h"

TestImagePlugin::TestImagePlugin(TestImagePluginConfig config)
    : m_config(std::move(config))
{
    if (m_config.readerFormats.isEmpty())
        m_config.readerFormats = m_config.formats;
}

TestGroup TestImagePlugin::Group(const QString& uid) const
{
    for (const TestGroup& group : m_config.groups) {
        if (group.uid == uid)
            return group;
    }
    return TestGroup();
}

QStringList TestImagePlugin::GetGroups() const
{
    QStringList groups;
    for (const TestGroup& group : m_config.groups)
        groups.append(group.uid);
    return groups;
}

KVImageFileReader* TestImagePlugin::CreateReaderByUID(const QString& uid)
{
    if (!m_config.makesReaders || !m_config.readerUIDs.contains(uid))
        return nullptr;
    ++m_readersMade;
    return new TestImageReader(uid, m_config.readerFormats);
}

KVImageFileWriter* TestImagePlugin::CreateWriterByUID(const QString& uid)
{
    if (!m_config.writerUIDs.contains(uid))
        return nullptr;
    ++m_writersMade;
    return new TestImageWriter(uid, m_config.formats);
}

KVImageFileReader* TestImagePlugin::CreateReader(const QString& format)
{
    m_requestedFormats.append(format);
    return m_config.formats.contains(format) ? CreateReaderByUID(m_config.readerUIDs.value(0))
                                             : nullptr;
}

KVImageFileWriter* TestImagePlugin::CreateWriter(const QString& format)
{
    m_requestedFormats.append(format);
    return m_config.formats.contains(format) ? CreateWriterByUID(m_config.writerUIDs.value(0))
                                             : nullptr;
}

void TestImagePlugin::ReleaseReader(KVImageFileReader* reader)
{
    ++m_readersReleased;
    delete reader;
}

void TestImagePlugin::ReleaseWriter(KVImageFileWriter* writer)
{
    ++m_writersReleased;
    delete writer;
}
