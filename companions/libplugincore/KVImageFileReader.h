#pragma once

#include <QImage>
#include <QObject>
#include <QStringList>

#include "kvplugincore_export.h"

/// Decodes image files of one or more formats. Made and disposed of by its
/// KVImageFilePlugin; one reader decodes one file at a time, on whichever
/// thread borrowed it.
class KVPLUGINCORE_EXPORT KVImageFileReader : public QObject
{
    Q_OBJECT
public:
    /// A reader, a child of parent when one is given.
    explicit KVImageFileReader(QObject* parent = nullptr);
    /// Out of line, so that the type has one identity across libraries.
    ~KVImageFileReader() override;

    /// The brace-form GUID of this kind of reader.
    virtual QString GetUID() const = 0;
    /// The lower-case suffixes that this reader can decode.
    virtual QStringList GetFormats() const = 0;
    /// Decodes the file; a null image on failure, with GetErrorString() telling why.
    virtual QImage Read(const QString& fileName) = 0;
    /// Why the last Read() failed. The base answers an empty string.
    virtual QString GetErrorString() const;
};
