#pragma once

#include <QImage>
#include <QStringList>

#include "kvplugincore_export.h"

/// Made by the brush plug-in whose UID is {00000000-0000-0000-0000-000000000002}:
/// the brushes a brush tool can paint with, and their tips. The loader finds
/// it among a container's plug-ins; KVApplication::GetBrushFactory() answers it.
class KVPLUGINCORE_EXPORT IBrushFactory
{
public:
    /// Out of line, so that the interface has one type identity across libraries.
    virtual ~IBrushFactory();

    /// Identifiers of the brushes this factory makes.
    virtual QStringList GetBrushIDs() const = 0;
    /// The display name of a brush; empty for an unknown identifier.
    virtual QString GetBrushName(const QString& id) const = 0;
    /// The brush tip as an 8-bit alpha mask of diameter x diameter pixels, with
    /// hardness from 0 (soft edge) to 1 (hard edge); a null image for an unknown
    /// identifier or a diameter below 1.
    virtual QImage CreateBrushTip(const QString& id, int diameter, qreal hardness) const = 0;
};
