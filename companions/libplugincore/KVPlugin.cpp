#include "KVPlugin.h"

KVPlugin::KVPlugin(QObject* parent)
    : QObject(parent)
{}

KVPlugin::~KVPlugin() = default;

int KVPlugin::GetType() const
{
    return GenericType;
}
