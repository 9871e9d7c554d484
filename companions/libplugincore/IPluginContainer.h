#pragma once

#include <QList>
#include <QtPlugin>

#include "kvplugincore_export.h"

class KVPlugin;

// The root object of every plug-in library implements this interface. The
// loader calls Initialize() once after loading, GetPlugins() for the objects it
// holds, UIReady() when the main window is up and Release() before unloading.
class KVPLUGINCORE_EXPORT IPluginContainer
{
public:
    virtual ~IPluginContainer();

    virtual void Initialize() = 0;
    virtual void Release() = 0;
    virtual void UIReady() = 0;
    virtual QList<KVPlugin*> GetPlugins() = 0;
};

#define IPluginContainer_iid "Pelkaro.PluginContainer/1.0"
Q_DECLARE_INTERFACE(IPluginContainer, IPluginContainer_iid)
