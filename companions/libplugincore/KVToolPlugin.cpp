#include "KVToolPlugin.h"

namespace {
QList<KVToolPlugin*>& ToolPlugins()
{
    static QList<KVToolPlugin*> plugins;
    return plugins;
}
} // namespace

KVToolPlugin::KVToolPlugin(QObject* parent)
    : KVPlugin(parent)
{
    ToolPlugins().append(this);
}

KVToolPlugin::~KVToolPlugin()
{
    ToolPlugins().removeOne(this);
}

int KVToolPlugin::GetType() const
{
    return ToolType;
}

QList<KVToolPlugin*> KVToolPlugin::GetToolPlugins()
{
    return ToolPlugins();
}
