#pragma once

#include <QObject>
#include <QStringList>

#include "kvcore_export.h"

#include <memory>

class KVImageFilePlugin;
class KVImageFileReader;
class KVImageFileWriter;
class MZDocumentInterface;

/// The process-wide registry of image file formats. Image-file plug-ins are
/// registered with it; it answers which suffixes and format groups can be read
/// or written and by which plug-in, creates readers and writers through their
/// plug-ins, lends pooled readers to decoding threads, builds the file dialogs'
/// filters, and forwards opening and saving to the document layer's callbacks.
///
/// A singleton: InitInstance() creates it, ReleaseInstance() deletes it. Every
/// operation is static and answers null, false or empty while there is none.
/// The manager never deletes a plug-in, reader or writer: plug-ins dispose of
/// what they made. Only AcquireReader() and ReleaseAcquiredReader() may be
/// called from threads other than the main thread.
class KVCORE_EXPORT KVImageFileManager : public QObject
{
    Q_OBJECT
public:
    /// Opens one file; may set *ok to false to stop a batch. Returns whether it opened.
    using OpenCallback = bool (*)(const QString& path, bool* ok, void* user);
    /// Saves one document; returns whether it was saved.
    using SaveCallback = bool (*)(MZDocumentInterface* document, void* user);

    /// Creates the manager unless it exists. Create it before plug-ins load:
    /// the loader registers image-file plug-ins only with an existing manager.
    static void InitInstance();
    /// The manager, for connecting to its signals; null while there is none.
    static KVImageFileManager* GetInstance();
    /// Deletes the manager, with any reader pool records left. Release the
    /// pool first.
    static void ReleaseInstance();

    /// The UID of the pseudo-group that holds every readable or writable suffix.
    static QString GetAllGroupUID();

    /// Adds a plug-in's formats, groups, reader and writer UIDs; the newest
    /// plug-in serves a suffix first. True when registered (also when it was already).
    static bool Register(KVImageFilePlugin* plugin);
    /// Removes everything the plug-in contributed; false when it was not registered.
    static bool Unregister(KVImageFilePlugin* plugin);

    /// Readable group UIDs in UID order, including the All group once a suffix
    /// is readable (the write side never has it).
    static QStringList GetSupportedReadGroups();
    /// Writable group UIDs in UID order, never the All group.
    static QStringList GetSupportedWriteGroups();
    /// Readable suffixes of a group, in the order they were learnt; empty for an
    /// unknown group.
    static QStringList GetGroupReadFormats(const QString& group);
    /// Writable suffixes of a group, in the order they were learnt; empty for
    /// an unknown group.
    static QStringList GetGroupWriteFormats(const QString& group);
    /// The read list if the group is a read group, otherwise the write list.
    static QStringList GetGroupFormats(const QString& group);
    /// Every readable suffix, sorted: the All group's list.
    static QStringList GetSupportedReadFormats();
    /// Every writable suffix, sorted.
    static QStringList GetSupportedWriteFormats();
    /// The display name of a group; "Unknown" for an unknown UID.
    static QString GetGroupName(const QString& group);

    /// The plug-in that reads a suffix (any case), the one registered last, or null.
    static KVImageFilePlugin* GetPluginForRead(const QString& format);
    /// The plug-in that writes a suffix (any case), or null.
    static KVImageFilePlugin* GetPluginForWrite(const QString& format);

    /// A new reader for a suffix (any case), made by the serving plug-in, or
    /// null. Give it back with ReleaseReader().
    static KVImageFileReader* CreateReader(const QString& format);
    /// A new reader of the kind with that UID, made by the plug-in that offers
    /// it, or null. Give it back with ReleaseReader().
    static KVImageFileReader* CreateReaderByUID(const QString& uid);
    /// A new writer for a suffix (any case), made by the serving plug-in, or
    /// null. Give it back with ReleaseWriter().
    static KVImageFileWriter* CreateWriter(const QString& format);
    /// A new writer of the kind with that UID, or null. Give it back with
    /// ReleaseWriter().
    static KVImageFileWriter* CreateWriterByUID(const QString& uid);
    /// Hands a reader made through the manager back to its plug-in, taking a
    /// pooled one out of its pool; anything else is ignored.
    static void ReleaseReader(KVImageFileReader* reader);
    /// Hands a writer made through the manager back to its plug-in; anything
    /// else is ignored.
    static void ReleaseWriter(KVImageFileWriter* writer);

    /// The open dialog's name filter for QFileDialog, one entry per readable
    /// group: "All (*.bmp *.png);;PNG image (*.png)".
    static QString GetFilterForRead();
    /// The save dialog's name filter: every writable group, never the All group.
    static QString GetFilterForWrite();

    /// Makes a pool of readers (one per processor thread) for every readable
    /// suffix that has none yet. False without the manager.
    static bool InitReadersPool();
    /// Disposes of every pooled reader, waiting for lent ones to come back.
    static void ReleaseReadersPool();
    /// Borrows a pooled reader for a suffix (any case), waiting while all are
    /// lent out; null when the suffix has no pool. Any thread.
    static KVImageFileReader* AcquireReader(const QString& format);
    /// Gives a borrowed reader back; a reader of no pool is ignored. Any thread.
    static void ReleaseAcquiredReader(KVImageFileReader* reader);

    /// The document layer's open callback and the pointer handed back to it;
    /// registering again replaces the pair, a null callback switches opening off.
    static void Register(OpenCallback open, void* user);
    /// The document layer's save callback and the pointer handed back to it;
    /// registering again replaces the pair, a null callback switches saving off.
    static void Register(SaveCallback save, void* user);
    /// Opens one file through the open callback; false (and *ok false) without one.
    static bool Open(const QString& path, bool* ok);
    /// Opens files in order until the callback clears the shared ok flag.
    static void Open(const QStringList& paths);
    /// Saves a document through the save callback; false without one.
    static bool Save(MZDocumentInterface* document);

Q_SIGNALS:
    /// A new group (with its name) became known.
    void SupportedGroupsChanged();
    /// The suffix list of a group changed.
    void SupportedGroupChanged(const QString& groupUID);

private Q_SLOTS:
    void OnPluginDestroyed(QObject* plugin);
    void OnReaderDestroyed(QObject* reader);
    void OnWriterDestroyed(QObject* writer);

private:
    KVImageFileManager();
    ~KVImageFileManager() override;

    friend class KVSingleton; // makes and deletes the instance
    class Private;
    std::unique_ptr<Private> d;
};
