#pragma once

#include "KVPlugin.h"

/// A brush plug-in that a plug-in library registers with the brush tool
/// registry under its UID.
class KVPLUGINCORE_EXPORT KVBrushPlugin : public KVPlugin
{
    Q_OBJECT
public:
    /// A brush plug-in, a child of parent when one is given.
    explicit KVBrushPlugin(QObject* parent = nullptr);
    /// Out of line, so that the type has one identity across libraries.
    ~KVBrushPlugin() override;

    /// KVPlugin::BrushType.
    int GetType() const override;
};
