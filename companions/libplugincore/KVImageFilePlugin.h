#pragma once

#include <QStringList>

#include "KVPlugin.h"

class KVImageFileReader;
class KVImageFileWriter;

/// A plug-in that reads and writes image file formats, grouped for the file
/// dialogs. Suffixes are lower case. The plug-in makes its readers and writers
/// and is the only one that disposes of them. The loader registers it with
/// KVImageFileManager and unregisters it at full unloading; it belongs to the
/// main thread.
class KVPLUGINCORE_EXPORT KVImageFilePlugin : public KVPlugin
{
    Q_OBJECT
public:
    /// An image-file plug-in, a child of parent when one is given.
    explicit KVImageFilePlugin(QObject* parent = nullptr);
    /// Out of line, so that the type has one identity across libraries.
    ~KVImageFilePlugin() override;

    /// KVPlugin::ImageFileType (2), which the loader relies on; final.
    int GetType() const final;

    /// UIDs of the readers this plug-in offers.
    virtual QStringList GetReaderUIDs() const = 0;
    /// UIDs of the writers this plug-in offers.
    virtual QStringList GetWriterUIDs() const = 0;
    /// Every suffix the plug-in handles, for reading and writing alike.
    virtual QStringList GetFormats() const = 0;
    /// UIDs of the format groups it contributes to.
    virtual QStringList GetGroups() const = 0;
    /// The display name of one of its groups.
    virtual QString GetGroupName(const QString& group) const = 0;
    /// The suffixes of one of its groups.
    virtual QStringList GetGroupFormats(const QString& group) const = 0;
    /// A suffix is offered only while this is true.
    virtual bool IsFormatEnabled(const QString& format) const = 0;

    /// A new reader for a suffix; null when the plug-in has none.
    virtual KVImageFileReader* CreateReader(const QString& format) = 0;
    /// A new reader of the kind with that UID; null when the plug-in has none.
    virtual KVImageFileReader* CreateReaderByUID(const QString& uid) = 0;
    /// A new writer for a suffix; null when the plug-in has none.
    virtual KVImageFileWriter* CreateWriter(const QString& format) = 0;
    /// A new writer of the kind with that UID; null when the plug-in has none.
    virtual KVImageFileWriter* CreateWriterByUID(const QString& uid) = 0;
    /// Disposes of a reader that this plug-in made.
    virtual void ReleaseReader(KVImageFileReader* reader) = 0;
    /// Disposes of a writer that this plug-in made.
    virtual void ReleaseWriter(KVImageFileWriter* writer) = 0;
};
