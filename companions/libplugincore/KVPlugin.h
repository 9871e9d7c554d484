#pragma once

#include <QObject>
#include <QString>

#include "kvplugincore_export.h"

// The base of every plug-in object that a plug-in container hands out. The
// loader tells kinds apart by GetType() and plug-ins apart by GetUID().
class KVPLUGINCORE_EXPORT KVPlugin : public QObject
{
    Q_OBJECT
public:
    // The kind codes. Only ImageFileType has a fixed meaning for the loader.
    enum Type
    {
        GenericType = 0,
        AdjustmentType = 1,
        ImageFileType = 2,
        BrushType = 3,
        ToolType = 4,
    };

    explicit KVPlugin(QObject* parent = nullptr);
    ~KVPlugin() override;

    // The kind of plug-in; 2 means a KVImageFilePlugin.
    virtual int GetType() const;
    // A brace-form GUID that identifies this plug-in object.
    virtual QString GetUID() const = 0;
};
