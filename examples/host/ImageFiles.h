#pragma once

#include <MZDocumentInterface.h>

#include <QImage>
#include <QString>

#include <functional>

class QObject;

// An open image as the host's document layer knows it.
class ImageDocument : public MZDocumentInterface
{
public:
    QString path;
    QImage image;
};

// Decodes a file with a reader borrowed from the library's pool, on the
// calling thread; a null image and the reason when it cannot.
QImage DecodeWithPool(const QString& path, QString* error);

// Decodes on a worker thread and hands the result to done() on context's thread.
void DecodeInBackground(const QString& path, QObject* context,
                        std::function<void(const QImage&, const QString&)> done);

// Encodes the document's image into its path with a writer for the path's suffix.
bool WriteDocument(const ImageDocument& document, QString* error);
