#pragma once

#include <QImage>

#include "KVPlugin.h"

/// An image adjustment that a plug-in library registers with the adjustment
/// registry under its identifier. A host lists the registered adjustments by
/// their names and applies one to an image without knowing what it does.
class KVPLUGINCORE_EXPORT KVAdjustment : public KVPlugin
{
    Q_OBJECT
public:
    /// An adjustment, a child of parent when one is given.
    explicit KVAdjustment(QObject* parent = nullptr);
    /// Out of line, so that the type has one identity across libraries.
    ~KVAdjustment() override;

    /// KVPlugin::AdjustmentType.
    int GetType() const override;
    /// The identifier the adjustment is registered under.
    virtual QString GetAdjustmentID() const = 0;
    /// The name that menus show, in the current language. The base answers
    /// the identifier.
    virtual QString GetName() const;
    /// The adjusted copy of the image; the image itself is left alone, and a
    /// null image gives a null image. A host may call it on a worker thread,
    /// so an implementation touches no widget and no shared state. The base
    /// answers the image unchanged.
    virtual QImage Apply(const QImage& image) const;
};
