#include "KVImageFileManager.h"

#include "private/KVImageFileManager_p.h"
#include "private/KVSingleton_p.h"

KVImageFileManager::KVImageFileManager()
    : d(new Private(this))
{}

KVImageFileManager::~KVImageFileManager() = default;

void KVImageFileManager::InitInstance()
{
    KVSingleton::Init(Private::m_pInstance);
}

KVImageFileManager* KVImageFileManager::GetInstance()
{
    return Private::m_pInstance;
}

void KVImageFileManager::ReleaseInstance()
{
    KVSingleton::Release(Private::m_pInstance);
}

QString KVImageFileManager::GetAllGroupUID()
{
    return Private::m_allGroup;
}

bool KVImageFileManager::Register(KVImageFilePlugin* plugin)
{
    Private* d = Private::Instance();
    return d && d->Register(plugin);
}

bool KVImageFileManager::Unregister(KVImageFilePlugin* plugin)
{
    Private* d = Private::Instance();
    return d && d->Unregister(plugin);
}

QStringList KVImageFileManager::GetSupportedReadGroups()
{
    const Private* d = Private::Instance();
    return d ? d->m_read.groups.keys() : QStringList();
}

QStringList KVImageFileManager::GetSupportedWriteGroups()
{
    const Private* d = Private::Instance();
    if (!d)
        return QStringList();
    QStringList groups = d->m_write.groups.keys();
    groups.removeOne(Private::m_allGroup);
    return groups;
}

QStringList KVImageFileManager::GetGroupReadFormats(const QString& group)
{
    const Private* d = Private::Instance();
    return d ? d->m_read.groups.value(group) : QStringList();
}

QStringList KVImageFileManager::GetGroupWriteFormats(const QString& group)
{
    const Private* d = Private::Instance();
    return d ? d->m_write.groups.value(group) : QStringList();
}

QStringList KVImageFileManager::GetGroupFormats(const QString& group)
{
    const Private* d = Private::Instance();
    if (!d)
        return QStringList();
    return d->m_read.groups.contains(group) ? d->m_read.groups.value(group)
                                            : d->m_write.groups.value(group);
}

QStringList KVImageFileManager::GetSupportedReadFormats()
{
    return GetGroupReadFormats(Private::m_allGroup);
}

QStringList KVImageFileManager::GetSupportedWriteFormats()
{
    return GetGroupWriteFormats(Private::m_allGroup);
}

QString KVImageFileManager::GetGroupName(const QString& group)
{
    const Private* d = Private::Instance();
    return d ? d->GetGroupName(group) : QString();
}

KVImageFilePlugin* KVImageFileManager::GetPluginForRead(const QString& format)
{
    const Private* d = Private::Instance();
    return d ? d->GetPlugin(d->m_read, format) : nullptr;
}

KVImageFilePlugin* KVImageFileManager::GetPluginForWrite(const QString& format)
{
    const Private* d = Private::Instance();
    return d ? d->GetPlugin(d->m_write, format) : nullptr;
}

KVImageFileReader* KVImageFileManager::CreateReader(const QString& format)
{
    Private* d = Private::Instance();
    return d ? d->CreateReader(format) : nullptr;
}

KVImageFileReader* KVImageFileManager::CreateReaderByUID(const QString& uid)
{
    Private* d = Private::Instance();
    return d ? d->CreateReaderByUID(uid) : nullptr;
}

KVImageFileWriter* KVImageFileManager::CreateWriter(const QString& format)
{
    Private* d = Private::Instance();
    return d ? d->CreateWriter(format) : nullptr;
}

KVImageFileWriter* KVImageFileManager::CreateWriterByUID(const QString& uid)
{
    Private* d = Private::Instance();
    return d ? d->CreateWriterByUID(uid) : nullptr;
}

void KVImageFileManager::ReleaseReader(KVImageFileReader* reader)
{
    if (Private* d = Private::Instance())
        d->ReleaseReader(reader);
}

void KVImageFileManager::ReleaseWriter(KVImageFileWriter* writer)
{
    if (Private* d = Private::Instance())
        d->ReleaseWriter(writer);
}

QString KVImageFileManager::GetFilterForRead()
{
    const Private* d = Private::Instance();
    return d ? d->GetFilter(GetSupportedReadGroups(), d->m_read) : QString();
}

QString KVImageFileManager::GetFilterForWrite()
{
    const Private* d = Private::Instance();
    return d ? d->GetFilter(GetSupportedWriteGroups(), d->m_write) : QString();
}

bool KVImageFileManager::InitReadersPool()
{
    Private* d = Private::Instance();
    return d && d->InitReadersPool(-1);
}

void KVImageFileManager::ReleaseReadersPool()
{
    if (Private* d = Private::Instance())
        d->ReleaseReadersPool();
}

KVImageFileReader* KVImageFileManager::AcquireReader(const QString& format)
{
    const Private* d = Private::Instance();
    return d ? d->AcquireReader(format) : nullptr;
}

void KVImageFileManager::ReleaseAcquiredReader(KVImageFileReader* reader)
{
    if (const Private* d = Private::Instance())
        d->ReleaseAcquiredReader(reader);
}

void KVImageFileManager::Register(OpenCallback open, void* user)
{
    if (Private* d = Private::Instance()) {
        d->m_openCallback = open;
        d->m_openUser = user;
    }
}

void KVImageFileManager::Register(SaveCallback save, void* user)
{
    if (Private* d = Private::Instance()) {
        d->m_saveCallback = save;
        d->m_saveUser = user;
    }
}

bool KVImageFileManager::Open(const QString& path, bool* ok)
{
    const Private* d = Private::Instance();
    if (d && d->m_openCallback)
        return d->m_openCallback(path, ok, d->m_openUser);
    if (ok)
        *ok = false;
    return false;
}

void KVImageFileManager::Open(const QStringList& paths)
{
    bool ok = true;
    for (const QString& path : paths) {
        // Read afresh for every file: a callback may replace itself mid-batch.
        const Private* d = Private::Instance();
        if (!d || !d->m_openCallback)
            return;
        d->m_openCallback(path, &ok, d->m_openUser);
        if (!ok)
            return;
    }
}

bool KVImageFileManager::Save(MZDocumentInterface* document)
{
    const Private* d = Private::Instance();
    return d && d->m_saveCallback && d->m_saveCallback(document, d->m_saveUser);
}

void KVImageFileManager::OnPluginDestroyed(QObject* plugin)
{
    d->RemovePlugin(plugin);
}

void KVImageFileManager::OnReaderDestroyed(QObject* reader)
{
    d->OnReaderDestroyed(reader);
}

void KVImageFileManager::OnWriterDestroyed(QObject* writer)
{
    d->OnWriterDestroyed(writer);
}
