#pragma once

#include <QObject>
#include <QStringList>

#include "kvcore_export.h"

class KVImageFilePlugin;
class KVImageFileReader;
class KVImageFileWriter;
class MZDocumentInterface;

// The process-wide registry of image file formats. Image-file plug-ins are
// registered with it; it answers which suffixes and format groups can be read
// or written and by which plug-in, creates readers and writers through their
// plug-ins, lends pooled readers to decoding threads, builds the file dialogs'
// filters, and forwards opening and saving to the document layer's callbacks.
//
// A singleton: InitInstance() creates it, ReleaseInstance() deletes it. Every
// operation is static and answers null, false or empty while there is none.
// The manager never deletes a plug-in, reader or writer: plug-ins dispose of
// what they made. Only AcquireReader() and ReleaseAcquiredReader() may be
// called from threads other than the main thread.
class KVCORE_EXPORT KVImageFileManager : public QObject
{
    Q_OBJECT
public:
    // Opens one file; may set *ok to false to stop a batch. Returns whether it opened.
    using OpenCallback = bool (*)(const QString& path, bool* ok, void* user);
    // Saves one document; returns whether it was saved.
    using SaveCallback = bool (*)(MZDocumentInterface* document, void* user);

    static void InitInstance();
    static KVImageFileManager* GetInstance();
    static void ReleaseInstance();

    // The UID of the pseudo-group that holds every readable or writable suffix.
    static QString GetAllGroupUID();

    // Adds a plug-in's formats, groups, reader and writer UIDs; the newest
    // plug-in serves a suffix first. True when registered (also when it was already).
    static bool Register(KVImageFilePlugin* plugin);
    // Removes everything the plug-in contributed; false when it was not registered.
    static bool Unregister(KVImageFilePlugin* plugin);

    // Group UIDs in UID order: the read side includes the All group, the write side never does.
    static QStringList GetSupportedReadGroups();
    static QStringList GetSupportedWriteGroups();
    // Suffixes of a group, in the order they were learnt; empty for an unknown group.
    static QStringList GetGroupReadFormats(const QString& group);
    static QStringList GetGroupWriteFormats(const QString& group);
    // The read list if the group is a read group, otherwise the write list.
    static QStringList GetGroupFormats(const QString& group);
    // Every readable (writable) suffix, sorted.
    static QStringList GetSupportedReadFormats();
    static QStringList GetSupportedWriteFormats();
    // The display name of a group; "Unknown" for an unknown UID.
    static QString GetGroupName(const QString& group);

    // The plug-in that serves a suffix (any case), or null.
    static KVImageFilePlugin* GetPluginForRead(const QString& format);
    static KVImageFilePlugin* GetPluginForWrite(const QString& format);

    // A new reader or writer made by the serving plug-in, or null. Give it back
    // with ReleaseReader()/ReleaseWriter().
    static KVImageFileReader* CreateReader(const QString& format);
    static KVImageFileReader* CreateReaderByUID(const QString& uid);
    static KVImageFileWriter* CreateWriter(const QString& format);
    static KVImageFileWriter* CreateWriterByUID(const QString& uid);
    // Hands a reader or writer made through the manager back to its plug-in;
    // anything else is ignored.
    static void ReleaseReader(KVImageFileReader* reader);
    static void ReleaseWriter(KVImageFileWriter* writer);

    // Name filters for QFileDialog: "All (*.bmp *.png);;PNG image (*.png)".
    static QString GetFilterForRead();
    static QString GetFilterForWrite();

    // Makes a pool of readers (one per processor thread) for every readable
    // suffix that has none yet. False without the manager.
    static bool InitReadersPool();
    // Disposes of every pooled reader, waiting for lent ones to come back.
    static void ReleaseReadersPool();
    // Borrows a pooled reader for a suffix (any case), waiting while all are
    // lent out; null when the suffix has no pool. Any thread.
    static KVImageFileReader* AcquireReader(const QString& format);
    // Gives a borrowed reader back; a reader of no pool is ignored. Any thread.
    static void ReleaseAcquiredReader(KVImageFileReader* reader);

    // The document layer's callbacks; registering again replaces the pair, a
    // null callback switches opening (saving) off.
    static void Register(OpenCallback open, void* user);
    static void Register(SaveCallback save, void* user);
    // Opens one file through the open callback; false (and *ok false) without one.
    static bool Open(const QString& path, bool* ok);
    // Opens files in order until the callback clears the shared ok flag.
    static void Open(const QStringList& paths);
    // Saves a document through the save callback; false without one.
    static bool Save(MZDocumentInterface* document);

Q_SIGNALS:
    // A new group (with its name) became known.
    void SupportedGroupsChanged();
    // The suffix list of a group changed.
    void SupportedGroupChanged(const QString& groupUID);

private Q_SLOTS:
    void OnPluginDestroyed(QObject* plugin);
    void OnReaderDestroyed(QObject* reader);
    void OnWriterDestroyed(QObject* writer);

private:
    KVImageFileManager();
    ~KVImageFileManager() override;

    class Private;
    Private* d;
};
