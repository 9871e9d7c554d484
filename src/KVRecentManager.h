#pragma once

#include <QObject>

#include "kvcore_export.h"

// Work in progress.
class KVCORE_EXPORT KVRecentManager : public QObject
{
    Q_OBJECT
};
