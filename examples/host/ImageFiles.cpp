#include "ImageFiles.h"

#include <KVImageFileManager.h>
#include <KVImageFileReader.h>
#include <KVImageFileWriter.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QThread>

QImage DecodeWithPool(const QString& path, QString* error)
{
    const QString suffix = QFileInfo(path).suffix();
    KVImageFileReader* reader = KVImageFileManager::AcquireReader(suffix);
    if (!reader) {
        *error =
            QCoreApplication::translate("ImageFiles", "No plug-in reads \"%1\" files.").arg(suffix);
        return QImage();
    }
    const QImage image = reader->Read(path);
    *error = image.isNull() ? reader->GetErrorString() : QString();
    KVImageFileManager::ReleaseAcquiredReader(reader);
    return image;
}

void DecodeInBackground(const QString& path, QObject* context,
                        std::function<void(const QImage&, const QString&)> done)
{
    QThread* worker = QThread::create([path, context, done] {
        QString error;
        const QImage image = DecodeWithPool(path, &error);
        QMetaObject::invokeMethod(
            context, [done, image, error] { done(image, error); }, Qt::QueuedConnection);
    });
    QObject::connect(worker, &QThread::finished, worker, &QObject::deleteLater);
    worker->start();
}

bool WriteDocument(const ImageDocument& document, QString* error)
{
    const QString suffix = QFileInfo(document.path).suffix();
    KVImageFileWriter* writer = KVImageFileManager::CreateWriter(suffix);
    if (!writer) {
        *error = QCoreApplication::translate("ImageFiles", "No plug-in writes \"%1\" files.")
                     .arg(suffix);
        return false;
    }
    const bool written = writer->Write(document.image, document.path);
    *error = written ? QString() : writer->GetErrorString();
    KVImageFileManager::ReleaseWriter(writer);
    return written;
}
