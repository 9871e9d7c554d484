#include "KVImageFilePlugin.h"

KVImageFilePlugin::KVImageFilePlugin(QObject* parent)
    : KVPlugin(parent)
{}

KVImageFilePlugin::~KVImageFilePlugin() = default;

int KVImageFilePlugin::GetType() const
{
    return ImageFileType;
}
