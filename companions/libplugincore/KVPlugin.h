#pragma once

#include <QObject>
#include <QString>

#include "kvplugincore_export.h"

/// The base of every plug-in object that a plug-in container hands out. The
/// loader tells kinds apart by GetType() and plug-ins apart by GetUID().
class KVPLUGINCORE_EXPORT KVPlugin : public QObject
{
    Q_OBJECT
public:
    /// The kind codes. Only ImageFileType has a fixed meaning for the loader.
    enum Type
    {
        GenericType = 0,    ///< Any other plug-in; the base's answer.
        AdjustmentType = 1, ///< A KVAdjustment.
        ImageFileType = 2,  ///< A KVImageFilePlugin, which the loader registers.
        BrushType = 3,      ///< A KVBrushPlugin.
        ToolType = 4,       ///< A KVToolPlugin.
    };

    /// A plug-in object, a child of parent when one is given.
    explicit KVPlugin(QObject* parent = nullptr);
    /// Out of line, so that the type has one identity across libraries.
    ~KVPlugin() override;

    /// The kind of plug-in; 2 means a KVImageFilePlugin. The base answers GenericType.
    virtual int GetType() const;
    /// A brace-form GUID that identifies this plug-in object.
    virtual QString GetUID() const = 0;
};
