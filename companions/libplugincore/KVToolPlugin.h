#pragma once

#include <QList>

#include "KVPlugin.h"

class QAction;

/// A tool, or a few, that a plug-in library offers: the checkable actions that
/// select them, which the window puts into its tool bar or a menu. The plug-in
/// owns the actions and keeps their checked state. Tool plug-ins belong to the
/// main thread.
class KVPLUGINCORE_EXPORT KVToolPlugin : public KVPlugin
{
    Q_OBJECT
public:
    /// A tool plug-in, a child of parent when one is given; it joins
    /// GetToolPlugins() until it is destroyed.
    explicit KVToolPlugin(QObject* parent = nullptr);
    /// Leaves GetToolPlugins().
    ~KVToolPlugin() override;

    /// KVPlugin::ToolType.
    int GetType() const override;
    /// The actions that select this plug-in's tools, in tool-bar order.
    virtual QList<QAction*> GetActions() const = 0;

    /// Every tool plug-in that exists, in the order they were made. The loader
    /// hands tools to no registry, so the window finds them here once the
    /// plug-ins are loaded.
    static QList<KVToolPlugin*> GetToolPlugins();
};
