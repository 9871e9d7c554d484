#pragma once

#include "KVPlugin.h"

// A brush plug-in that a plug-in library registers with the brush tool
// registry under its UID.
class KVPLUGINCORE_EXPORT KVBrushPlugin : public KVPlugin
{
    Q_OBJECT
public:
    explicit KVBrushPlugin(QObject* parent = nullptr);
    ~KVBrushPlugin() override;

    int GetType() const override;
};
