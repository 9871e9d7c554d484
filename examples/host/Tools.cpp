#include "Tools.h"

#include <KVToolPlugin.h>

QList<QAction*> ToolActions()
{
    QList<QAction*> actions;
    for (KVToolPlugin* tools : KVToolPlugin::GetToolPlugins())
        actions += tools->GetActions();
    return actions;
}
