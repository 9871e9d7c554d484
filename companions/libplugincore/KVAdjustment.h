#pragma once

#include "KVPlugin.h"

// An image adjustment that a plug-in library registers with the adjustment
// registry under its identifier.
class KVPLUGINCORE_EXPORT KVAdjustment : public KVPlugin
{
    Q_OBJECT
public:
    explicit KVAdjustment(QObject* parent = nullptr);
    ~KVAdjustment() override;

    int GetType() const override;
    // The identifier the adjustment is registered under.
    virtual QString GetAdjustmentID() const = 0;
};
