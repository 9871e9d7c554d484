#pragma once

#include "KVImageFileManager.h"

#include <QList>
#include <QMap>
#include <QMutex>
#include <QSemaphore>
#include <QSet>
#include <QString>
#include <QVector>

class KVImageFileManager::Private
{
public:
    // A pool of ready-made readers for one format. The semaphore counts free
    // readers and is always taken before the mutex, which guards only the
    // free-reader stack. QSemaphore takes several permits all at once or
    // none: a relocation waiting for the whole pool holds nothing that a
    // borrower could use meanwhile.
    struct ReadersRef
    {
        explicit ReadersRef(int n);

        KVImageFileReader* Acquire();
        void Release(KVImageFileReader* reader);
        // Takes a reader out of the pool for good, once every reader is back.
        void Relocate(QObject* reader);

        QVector<QObject*> m_freeReaders;
        QSemaphore m_available;
        QMutex m_lock;
        int m_size;
    };

    // The tables of one direction, reading or writing.
    struct Side
    {
        QMap<QString, QStringList> groups;           // group UID -> suffixes
        QMap<QString, QList<QObject*>> formatOwners; // suffix -> plug-ins, newest first
        QMap<QObject*, QObject*> objectOwners;       // reader (writer) -> its plug-in
        QMap<QString, QObject*> uids;                // reader (writer) UID -> plug-in
    };

    explicit Private(KVImageFileManager* owner);
    ~Private();

    static Private* Instance();

    bool Register(KVImageFilePlugin* plugin);
    bool Unregister(KVImageFilePlugin* plugin);
    void RemovePlugin(QObject* plugin);

    QString GetGroupName(const QString& group) const;
    KVImageFilePlugin* GetPlugin(const Side& side, const QString& format) const;

    KVImageFileReader* CreateReader(const QString& format);
    KVImageFileReader* CreateReaderByUID(const QString& uid);
    KVImageFileWriter* CreateWriter(const QString& format);
    KVImageFileWriter* CreateWriterByUID(const QString& uid);
    void ReleaseReader(KVImageFileReader* reader);
    void ReleaseWriter(KVImageFileWriter* writer);
    void OnReaderDestroyed(QObject* reader);
    void OnWriterDestroyed(QObject* writer);

    QString GetFilter(const QStringList& groups, const Side& side) const;

    bool InitReadersPool(int count);
    void ReleaseReadersPool();
    void RelocatePoolReadersFor(QObject* reader);
    KVImageFileReader* AcquireReader(const QString& format) const;
    void ReleaseAcquiredReader(KVImageFileReader* reader) const;

    KVImageFileManager* q;
    Side m_read;
    Side m_write;
    QMap<QString, QString> m_groupNames;
    QSet<QObject*> m_plugins;
    QMap<QString, ReadersRef*> m_poolByFormat;
    QList<ReadersRef*> m_pools;
    QMap<QObject*, ReadersRef*> m_poolByReader;
    OpenCallback m_openCallback = nullptr;
    void* m_openUser = nullptr;
    SaveCallback m_saveCallback = nullptr;
    void* m_saveUser = nullptr;

    static KVImageFileManager* m_pInstance;
    static const QString m_allGroup;

private:
    void RegisterSide(Side& side, KVImageFilePlugin* plugin, const QStringList& uids);
    void RemoveSide(Side& side, QObject* plugin);
    static bool AppendEnabled(KVImageFilePlugin* plugin, const QStringList& formats,
                              QStringList& list);
    // A reader or writer made by the plug-in, watched and recorded as its.
    template <typename Object>
    Object* Make(Side& side, KVImageFilePlugin* plugin,
                 Object* (KVImageFilePlugin::*create)(const QString&), const QString& key,
                 const char* destroyedSlot);
    // The plug-in that made object, after forgetting and no longer watching it.
    KVImageFilePlugin* TakeOwner(Side& side, QObject* object, const char* destroyedSlot);
};
