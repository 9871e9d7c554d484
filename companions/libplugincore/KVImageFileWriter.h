#pragma once

#include <QImage>
#include <QObject>
#include <QStringList>

#include "kvplugincore_export.h"

/// Encodes images into files of one or more formats. Made and disposed of by
/// its KVImageFilePlugin.
class KVPLUGINCORE_EXPORT KVImageFileWriter : public QObject
{
    Q_OBJECT
public:
    /// A writer, a child of parent when one is given.
    explicit KVImageFileWriter(QObject* parent = nullptr);
    /// Out of line, so that the type has one identity across libraries.
    ~KVImageFileWriter() override;

    /// The brace-form GUID of this kind of writer.
    virtual QString GetUID() const = 0;
    /// The lower-case suffixes that this writer can encode.
    virtual QStringList GetFormats() const = 0;
    /// Encodes image into fileName; false on failure, with GetErrorString() telling why.
    virtual bool Write(const QImage& image, const QString& fileName) = 0;
    /// Why the last Write() failed. The base answers an empty string.
    virtual QString GetErrorString() const;
};
