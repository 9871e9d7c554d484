#pragma once

#include "KVPresetList_p.h"
#include "MZExportSizes.h"

// Entries are stored as plain decimal numbers in the group "Sizes".
class MZExportSizes::Private : public KVPresetList<MZExportSizes::Private, long long>
{
public:
    explicit Private(MZExportSizes* owner)
        : q(owner)
    {}

    static Private* Instance() { return m_pInstance ? m_pInstance->d.get() : nullptr; }

    MZExportSizes* q;

    static MZExportSizes* m_pInstance;

private:
    friend class KVPresetList<Private, long long>;

    static constexpr const char* kGroup = "Sizes";
    static constexpr const char* kDefaults = ":/ExportAndShareSize.ini";
    static constexpr const char* kOutOfRange = "size index is out of range";

    static long long OrderKey(long long size) { return size; }
    static bool IsValid(long long size) { return size > 0; }
    static QVariant ToSetting(long long size) { return QVariant::fromValue<qlonglong>(size); }
    // Text that is not a number reads as 0, which is invalid.
    static long long FromSetting(const QVariant& setting) { return setting.toLongLong(); }
};
