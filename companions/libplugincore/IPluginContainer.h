#pragma once

#include <QList>
#include <QtPlugin>

#include "kvplugincore_export.h"

class KVPlugin;

/// The root object of every plug-in library implements this interface. The
/// loader calls Initialize() once after loading, GetPlugins() for the objects it
/// holds, UIReady() when the main window is up and Release() before unloading.
/// All four are called on the main thread.
class KVPLUGINCORE_EXPORT IPluginContainer
{
public:
    /// Out of line, so that the interface has one type identity across libraries.
    virtual ~IPluginContainer();

    /// Makes the plug-in objects; adjustments and brushes register themselves
    /// here. Loading the same file again calls it again on the same container.
    virtual void Initialize() = 0;
    /// Undoes Initialize() before the library is unloaded: unregisters what
    /// the container registered itself and deletes its plug-in objects.
    virtual void Release() = 0;
    /// The main window stands: the place for work that needs it.
    virtual void UIReady() = 0;
    /// The plug-in objects the container holds. An empty list makes the loader
    /// reject the library ("Empty container.").
    virtual QList<KVPlugin*> GetPlugins() = 0;
};

/// The interface identifier of IPluginContainer, for Q_PLUGIN_METADATA(IID ...).
/// \relates IPluginContainer
#define IPluginContainer_iid "Pelkaro.PluginContainer/1.0"
Q_DECLARE_INTERFACE(IPluginContainer, IPluginContainer_iid)
