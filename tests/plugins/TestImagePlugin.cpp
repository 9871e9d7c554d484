#include "TestImagePlugin.h"

TestImagePlugin::TestImagePlugin(TestImagePluginConfig config)
    : m_config(std::move(config))
{
    if (m_config.readerFormats.isEmpty())
        m_config.readerFormats = m_config.formats;
}

const TestGroup* TestImagePlugin::Group(const QString& uid) const
{
    for (const TestGroup& group : m_config.groups) {
        if (group.uid == uid)
            return &group;
    }
    return nullptr;
}

QStringList TestImagePlugin::GetGroups() const
{
    QStringList groups;
    for (const TestGroup& group : m_config.groups)
        groups.append(group.uid);
    return groups;
}

QString TestImagePlugin::GetGroupName(const QString& uid) const
{
    return Group(uid) ? Group(uid)->name : QString();
}

QStringList TestImagePlugin::GetGroupFormats(const QString& uid) const
{
    return Group(uid) ? Group(uid)->formats : QStringList();
}

KVImageFileReader* TestImagePlugin::MakeReader(const QString& uid)
{
    if (!m_config.makesReaders)
        return nullptr;
    ++m_readersMade;
    return new TestImageReader(uid, m_config.readerFormats);
}

KVImageFileWriter* TestImagePlugin::MakeWriter(const QString& uid)
{
    ++m_writersMade;
    return new TestImageWriter(uid, m_config.formats);
}

KVImageFileReader* TestImagePlugin::CreateReader(const QString& format)
{
    m_requestedFormats.append(format);
    return m_config.formats.contains(format) ? MakeReader(m_config.readerUIDs.value(0)) : nullptr;
}

KVImageFileWriter* TestImagePlugin::CreateWriter(const QString& format)
{
    m_requestedFormats.append(format);
    return m_config.formats.contains(format) ? MakeWriter(m_config.writerUIDs.value(0)) : nullptr;
}
