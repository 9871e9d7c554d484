#pragma once

#include "KVCMSManager.h"

#include <QList>

#include <mutex>

class KVCMSManager::Private
{
public:
    explicit Private(KVCMSManager* owner)
        : q(owner)
    {}

    // Replaces the list with the RGB profiles of folder, holding the lock throughout.
    void Load(const QString& folder);
    // Emits the change with the lock released, so that slots may call back.
    void SetWorkingRGBIndex(int index);

    KVCMSManager* q;
    mutable std::mutex m_lock;
    QList<KVCMSProfile> m_rgbProfiles;
    int m_workingRGBIndex = -1;

    static KVCMSManager* m_pInstance;
};
