#pragma once

#include <QImage>
#include <QObject>
#include <QStringList>

#include "kvplugincore_export.h"

// Encodes images into files of one or more formats. Made and disposed of by
// its KVImageFilePlugin.
class KVPLUGINCORE_EXPORT KVImageFileWriter : public QObject
{
    Q_OBJECT
public:
    explicit KVImageFileWriter(QObject* parent = nullptr);
    ~KVImageFileWriter() override;

    // The brace-form GUID of this kind of writer.
    virtual QString GetUID() const = 0;
    // The lower-case suffixes that this writer can encode.
    virtual QStringList GetFormats() const = 0;
    // Encodes image into fileName; false on failure, with GetErrorString() telling why.
    virtual bool Write(const QImage& image, const QString& fileName) = 0;
    virtual QString GetErrorString() const;
};
