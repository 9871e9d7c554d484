#pragma once

#include <QStringList>

#include "KVPlugin.h"

class KVImageFileReader;
class KVImageFileWriter;

// A plug-in that reads and writes image file formats, grouped for the file
// dialogs. Suffixes are lower case. The plug-in makes its readers and writers
// and is the only one that disposes of them.
class KVPLUGINCORE_EXPORT KVImageFilePlugin : public KVPlugin
{
    Q_OBJECT
public:
    explicit KVImageFilePlugin(QObject* parent = nullptr);
    ~KVImageFilePlugin() override;

    int GetType() const final;

    // UIDs of the readers and writers this plug-in offers.
    virtual QStringList GetReaderUIDs() const = 0;
    virtual QStringList GetWriterUIDs() const = 0;
    // Every suffix the plug-in handles, for reading and writing alike.
    virtual QStringList GetFormats() const = 0;
    // UIDs of the format groups it contributes to, their names and suffixes.
    virtual QStringList GetGroups() const = 0;
    virtual QString GetGroupName(const QString& group) const = 0;
    virtual QStringList GetGroupFormats(const QString& group) const = 0;
    // A suffix is offered only while this is true.
    virtual bool IsFormatEnabled(const QString& format) const = 0;

    // Readers and writers by suffix or by UID; null when the plug-in has none.
    virtual KVImageFileReader* CreateReader(const QString& format) = 0;
    virtual KVImageFileReader* CreateReaderByUID(const QString& uid) = 0;
    virtual KVImageFileWriter* CreateWriter(const QString& format) = 0;
    virtual KVImageFileWriter* CreateWriterByUID(const QString& uid) = 0;
    // Dispose of a reader or writer that this plug-in made.
    virtual void ReleaseReader(KVImageFileReader* reader) = 0;
    virtual void ReleaseWriter(KVImageFileWriter* writer) = 0;
};
