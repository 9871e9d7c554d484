#include "KVImageFileManager_p.h"

#include "KVLog.h"
#include "KVThreadAnnotations.h"

#include <KVImageFilePlugin.h>
#include <KVImageFileReader.h>
#include <KVImageFileWriter.h>

#include <QThread>

#include <algorithm>

KVImageFileManager* KVImageFileManager::Private::m_pInstance = nullptr;
const QString KVImageFileManager::Private::m_allGroup =
    QStringLiteral("{00000000-0000-0000-0000-000000000001}");

namespace {
// Log readers know the duplicate-UID message by this line of this unit.
constexpr int kDuplicateUidLine = 521;

// Locks a pool's free-reader stack, telling thread checkers what it orders.
class FreeReadersLocker
{
public:
    explicit FreeReadersLocker(QMutex& lock)
        : m_lock(lock)
    {
        m_lock.lock();
        KV_HAPPENS_AFTER(&m_lock);
    }
    ~FreeReadersLocker()
    {
        KV_HAPPENS_BEFORE(&m_lock);
        m_lock.unlock();
    }
    FreeReadersLocker(const FreeReadersLocker&) = delete;
    FreeReadersLocker& operator=(const FreeReadersLocker&) = delete;

private:
    QMutex& m_lock;
};

KVImageFilePlugin* AsPlugin(QObject* plugin)
{
    // Only KVImageFilePlugin objects are ever registered.
    return static_cast<KVImageFilePlugin*>(plugin);
}
} // namespace

// ReadersRef

KVImageFileManager::Private::ReadersRef::ReadersRef(int n)
    : m_available(n)
    , m_size(n)
{}

KVImageFileReader* KVImageFileManager::Private::ReadersRef::Acquire()
{
    m_available.acquire();
    FreeReadersLocker locker(m_lock);
    QObject* reader = m_freeReaders.takeLast();
    return static_cast<KVImageFileReader*>(reader);
}

void KVImageFileManager::Private::ReadersRef::Release(KVImageFileReader* reader)
{
    {
        FreeReadersLocker locker(m_lock);
        m_freeReaders.append(reader);
    }
    m_available.release();
}

void KVImageFileManager::Private::ReadersRef::Relocate(QObject* reader)
{
    m_available.acquire(m_size);
    FreeReadersLocker locker(m_lock);
    // A reader that is not among the free ones was taken out before: the pool
    // keeps its size then, so that its permits still match its readers.
    const int index = m_freeReaders.indexOf(reader);
    if (index >= 0) {
        m_freeReaders.remove(index);
        --m_size;
    }
    if (m_size != 0)
        m_available.release(m_size);
}

// Private

KVImageFileManager::Private::Private(KVImageFileManager* owner)
    : q(owner)
{
    m_groupNames.insert(m_allGroup, QObject::tr("All"));
}

KVImageFileManager::Private::~Private()
{
    qDeleteAll(m_pools);
}

KVImageFileManager::Private* KVImageFileManager::Private::Instance()
{
    return m_pInstance ? m_pInstance->d.get() : nullptr;
}

bool KVImageFileManager::Private::Register(KVImageFilePlugin* plugin)
{
    if (!plugin)
        return false;
    if (m_plugins.contains(plugin))
        return true;
    RegisterSide(m_read, plugin, plugin->GetReaderUIDs());
    RegisterSide(m_write, plugin, plugin->GetWriterUIDs());
    QObject::connect(plugin, SIGNAL(destroyed(QObject*)), q, SLOT(OnPluginDestroyed(QObject*)));
    m_plugins.insert(plugin);
    return true;
}

bool KVImageFileManager::Private::AppendEnabled(KVImageFilePlugin* plugin,
                                                const QStringList& formats, QStringList& list)
{
    bool appended = false;
    for (const QString& format : formats) {
        if (plugin->IsFormatEnabled(format) && !list.contains(format)) {
            list.append(format);
            appended = true;
        }
    }
    return appended;
}

void KVImageFileManager::Private::RegisterSide(Side& side, KVImageFilePlugin* plugin,
                                               const QStringList& uids)
{
    for (const QString& uid : uids) {
        if (side.uids.contains(uid)) {
            KV_LOG_AT(kDuplicateUidLine, QStringLiteral("%1 uid is not unique.").arg(uid));
            continue;
        }
        side.uids.insert(uid, plugin);
    }

    QStringList all = side.groups.value(m_allGroup);
    bool allChanged = false;
    for (const QString& format : plugin->GetFormats()) {
        if (!plugin->IsFormatEnabled(format))
            continue;
        side.formatOwners[format].prepend(plugin);
        if (!all.contains(format)) {
            all.append(format);
            allChanged = true;
        }
    }
    if (allChanged) {
        std::sort(all.begin(), all.end());
        side.groups.insert(m_allGroup, all);
        Q_EMIT q->SupportedGroupChanged(m_allGroup);
    }

    for (const QString& group : plugin->GetGroups()) {
        const auto existing = side.groups.find(group);
        if (existing != side.groups.end()) {
            if (AppendEnabled(plugin, plugin->GetGroupFormats(group), existing.value()))
                Q_EMIT q->SupportedGroupChanged(group);
            continue;
        }
        QStringList formats;
        AppendEnabled(plugin, plugin->GetGroupFormats(group), formats);
        if (!m_groupNames.contains(group)) {
            m_groupNames.insert(group, plugin->GetGroupName(group));
            Q_EMIT q->SupportedGroupsChanged();
        }
        side.groups.insert(group, formats);
        Q_EMIT q->SupportedGroupChanged(group);
    }
}

bool KVImageFileManager::Private::Unregister(KVImageFilePlugin* plugin)
{
    if (!plugin || !m_plugins.contains(plugin))
        return false;
    RemovePlugin(plugin);
    QObject::disconnect(plugin, SIGNAL(destroyed(QObject*)), q, SLOT(OnPluginDestroyed(QObject*)));
    return true;
}

void KVImageFileManager::Private::RemovePlugin(QObject* plugin)
{
    RemoveSide(m_read, plugin);
    RemoveSide(m_write, plugin);
    m_plugins.remove(plugin);
}

void KVImageFileManager::Private::RemoveSide(Side& side, QObject* plugin)
{
    for (auto it = side.uids.begin(); it != side.uids.end();) {
        if (it.value() == plugin)
            it = side.uids.erase(it);
        else
            ++it;
    }

    // An emptied owner list stays in the map: the suffix then has no plug-in.
    QStringList unsupported;
    for (auto it = side.formatOwners.begin(); it != side.formatOwners.end(); ++it) {
        if (it.value().removeAll(plugin) > 0 && it.value().isEmpty())
            unsupported.append(it.key());
    }
    for (const QString& format : unsupported) {
        for (auto group = side.groups.begin(); group != side.groups.end(); ++group) {
            if (!group.value().removeOne(format))
                continue;
            if (group.value().isEmpty() && group.key() != m_allGroup)
                Q_EMIT q->SupportedGroupsChanged();
            Q_EMIT q->SupportedGroupChanged(group.key());
        }
    }

    // Readers and writers may outlive their plug-in's registration: they stay
    // connected and pooled, and leave both when they are destroyed.
    for (auto it = side.objectOwners.begin(); it != side.objectOwners.end();) {
        if (it.value() == plugin)
            it = side.objectOwners.erase(it);
        else
            ++it;
    }
}

QString KVImageFileManager::Private::GetGroupName(const QString& group) const
{
    const auto name = m_groupNames.constFind(group);
    return name != m_groupNames.constEnd() ? name.value() : KVImageFileManager::tr("Unknown");
}

KVImageFilePlugin* KVImageFileManager::Private::GetPlugin(const Side& side,
                                                          const QString& format) const
{
    const QList<QObject*> owners = side.formatOwners.value(format.toLower());
    return owners.isEmpty() ? nullptr : AsPlugin(owners.first());
}

template <typename Object>
Object* KVImageFileManager::Private::Make(Side& side, KVImageFilePlugin* plugin,
                                          Object* (KVImageFilePlugin::*create)(const QString&),
                                          const QString& key, const char* destroyedSlot)
{
    Object* object = plugin ? (plugin->*create)(key) : nullptr;
    if (object) {
        QObject::connect(object, SIGNAL(destroyed(QObject*)), q, destroyedSlot);
        side.objectOwners.insert(object, plugin);
    }
    return object;
}

KVImageFilePlugin* KVImageFileManager::Private::TakeOwner(Side& side, QObject* object,
                                                          const char* destroyedSlot)
{
    const auto owner = side.objectOwners.find(object);
    if (owner == side.objectOwners.end())
        return nullptr;
    KVImageFilePlugin* plugin = AsPlugin(owner.value());
    side.objectOwners.erase(owner);
    QObject::disconnect(object, SIGNAL(destroyed(QObject*)), q, destroyedSlot);
    return plugin;
}

KVImageFileReader* KVImageFileManager::Private::CreateReader(const QString& format)
{
    return Make(m_read, GetPlugin(m_read, format), &KVImageFilePlugin::CreateReader,
                format.toLower(), SLOT(OnReaderDestroyed(QObject*)));
}

KVImageFileReader* KVImageFileManager::Private::CreateReaderByUID(const QString& uid)
{
    return Make(m_read, AsPlugin(m_read.uids.value(uid)), &KVImageFilePlugin::CreateReaderByUID,
                uid, SLOT(OnReaderDestroyed(QObject*)));
}

KVImageFileWriter* KVImageFileManager::Private::CreateWriter(const QString& format)
{
    return Make(m_write, GetPlugin(m_write, format), &KVImageFilePlugin::CreateWriter,
                format.toLower(), SLOT(OnWriterDestroyed(QObject*)));
}

KVImageFileWriter* KVImageFileManager::Private::CreateWriterByUID(const QString& uid)
{
    return Make(m_write, AsPlugin(m_write.uids.value(uid)), &KVImageFilePlugin::CreateWriterByUID,
                uid, SLOT(OnWriterDestroyed(QObject*)));
}

void KVImageFileManager::Private::ReleaseReader(KVImageFileReader* reader)
{
    KVImageFilePlugin* plugin = TakeOwner(m_read, reader, SLOT(OnReaderDestroyed(QObject*)));
    if (!plugin)
        return;
    RelocatePoolReadersFor(reader);
    plugin->ReleaseReader(reader);
}

void KVImageFileManager::Private::ReleaseWriter(KVImageFileWriter* writer)
{
    if (KVImageFilePlugin* plugin = TakeOwner(m_write, writer, SLOT(OnWriterDestroyed(QObject*))))
        plugin->ReleaseWriter(writer);
}

void KVImageFileManager::Private::OnReaderDestroyed(QObject* reader)
{
    m_read.objectOwners.remove(reader);
    RelocatePoolReadersFor(reader);
}

void KVImageFileManager::Private::OnWriterDestroyed(QObject* writer)
{
    m_write.objectOwners.remove(writer);
}

QString KVImageFileManager::Private::GetFilter(const QStringList& groups, const Side& side) const
{
    static const QString patternSeparator = QStringLiteral(" ");
    QString filter;
    for (int i = 0; i < groups.size(); ++i) {
        const QString& group = groups.at(i);
        filter += GetGroupName(group);
        filter += KVImageFileManager::tr(" (");
        for (const QString& format : side.groups.value(group))
            filter += QStringLiteral("*.%1 ").arg(format);
        // Overwrites the last pattern's blank, or the "(" of an empty group.
        filter.chop(patternSeparator.size());
        filter += i + 1 == groups.size() ? QStringLiteral(")") : QStringLiteral(");;");
    }
    return filter;
}

bool KVImageFileManager::Private::InitReadersPool(int count)
{
    const int n = count > 0 ? count : QThread::idealThreadCount();
    for (const QString& format : m_read.groups.value(m_allGroup)) {
        if (m_poolByFormat.contains(format))
            continue;
        // A plug-in that makes no reader (or the same one twice) gets a
        // smaller pool rather than one that lends null or shared readers.
        QVector<QObject*> readers;
        for (int i = 0; i < n; ++i) {
            KVImageFileReader* reader = CreateReader(format);
            if (reader && !readers.contains(reader))
                readers.append(reader);
        }
        if (readers.isEmpty())
            continue;
        auto* pool = new ReadersRef(readers.size());
        pool->m_freeReaders = readers;
        for (QObject* reader : qAsConst(readers))
            m_poolByReader.insert(reader, pool);
        const auto* last = static_cast<KVImageFileReader*>(readers.last());
        for (const QString& suffix : last->GetFormats())
            m_poolByFormat.insert(suffix.toLower(), pool);
        m_pools.append(pool);
    }
    return true;
}

void KVImageFileManager::Private::ReleaseReadersPool()
{
    for (ReadersRef* pool : qAsConst(m_pools)) {
        while (pool->m_size > 0) {
            KVImageFileReader* reader = pool->Acquire();
            pool->Release(reader);
            const int size = pool->m_size;
            // Takes it out of the pool and has its plug-in dispose of it.
            ReleaseReader(reader);
            // A reader whose plug-in is gone only leaves the pool.
            if (pool->m_size == size)
                pool->Relocate(reader);
        }
        delete pool;
    }
    m_pools.clear();
    // No deleted pool can be reached after this.
    m_poolByFormat.clear();
    m_poolByReader.clear();
}

void KVImageFileManager::Private::RelocatePoolReadersFor(QObject* reader)
{
    if (ReadersRef* pool = m_poolByReader.value(reader))
        pool->Relocate(reader);
}

KVImageFileReader* KVImageFileManager::Private::AcquireReader(const QString& format) const
{
    // Borrowing is the hot path: a suffix that is lower case already needs no copy.
    ReadersRef* pool = m_poolByFormat.value(format.isLower() ? format : format.toLower());
    return pool ? pool->Acquire() : nullptr;
}

void KVImageFileManager::Private::ReleaseAcquiredReader(KVImageFileReader* reader) const
{
    if (ReadersRef* pool = m_poolByReader.value(reader))
        pool->Release(reader);
}
