#pragma once

#include <QImage>
#include <QObject>
#include <QStringList>

#include "kvplugincore_export.h"

// Decodes image files of one or more formats. Made and disposed of by its
// KVImageFilePlugin; one reader decodes one file at a time.
class KVPLUGINCORE_EXPORT KVImageFileReader : public QObject
{
    Q_OBJECT
public:
    explicit KVImageFileReader(QObject* parent = nullptr);
    ~KVImageFileReader() override;

    // The brace-form GUID of this kind of reader.
    virtual QString GetUID() const = 0;
    // The lower-case suffixes that this reader can decode.
    virtual QStringList GetFormats() const = 0;
    // Decodes the file; a null image on failure, with GetErrorString() telling why.
    virtual QImage Read(const QString& fileName) = 0;
    virtual QString GetErrorString() const;
};
