// Out-of-line destructors and constructors give each type one exported vtable
// and type_info, so that dynamic_cast and qobject_cast work across libraries.

#include "IBrushFactory.h"
#include "IPluginContainer.h"
#include "KVAdjustment.h"
#include "KVBrushPlugin.h"
#include "KVImageFileReader.h"
#include "KVImageFileWriter.h"
#include "MZDocumentInterface.h"

IPluginContainer::~IPluginContainer() = default;
IBrushFactory::~IBrushFactory() = default;
MZDocumentInterface::~MZDocumentInterface() = default;

KVImageFileReader::KVImageFileReader(QObject* parent)
    : QObject(parent)
{}

KVImageFileReader::~KVImageFileReader() = default;

QString KVImageFileReader::GetErrorString() const
{
    return QString();
}

KVImageFileWriter::KVImageFileWriter(QObject* parent)
    : QObject(parent)
{}

KVImageFileWriter::~KVImageFileWriter() = default;

QString KVImageFileWriter::GetErrorString() const
{
    return QString();
}

KVAdjustment::KVAdjustment(QObject* parent)
    : KVPlugin(parent)
{}

KVAdjustment::~KVAdjustment() = default;

int KVAdjustment::GetType() const
{
    return AdjustmentType;
}

QString KVAdjustment::GetName() const
{
    return GetAdjustmentID();
}

QImage KVAdjustment::Apply(const QImage& image) const
{
    return image;
}

KVBrushPlugin::KVBrushPlugin(QObject* parent)
    : KVPlugin(parent)
{}

KVBrushPlugin::~KVBrushPlugin() = default;

int KVBrushPlugin::GetType() const
{
    return BrushType;
}
