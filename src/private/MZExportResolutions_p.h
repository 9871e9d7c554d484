#pragma once

#include "KVPresetList_p.h"
#include "MZExportResolutions.h"

// Entries are stored as "<width>x<height>" in the group "Resolutions" and
// ordered by width alone.
class MZExportResolutions::Private : public KVPresetList<MZExportResolutions::Private, QSize>
{
public:
    explicit Private(MZExportResolutions* owner)
        : q(owner)
    {}

    static Private* Instance() { return m_pInstance ? m_pInstance->d.get() : nullptr; }

    // Spaces are ignored; anything other than two decimal numbers from 1 to
    // 10000 joined by a lower-case x gives QSize(-1, -1). The text comes from
    // a file that the user may edit, so the fuzz target reaches it directly.
    static QSize SizeFromString(const QString& text);
    static QString SizeToString(const QSize& size);

    MZExportResolutions* q;

    static MZExportResolutions* m_pInstance;

private:
    friend class KVPresetList<Private, QSize>;

    static constexpr const char* kGroup = "Resolutions";
    static constexpr const char* kDefaults = ":/ExportAndShareResolution.ini";
    static constexpr const char* kOutOfRange = "resolution index is out of range";

    static int OrderKey(const QSize& size) { return size.width(); }
    static bool IsValid(const QSize& size) { return size.width() >= 1 && size.height() >= 1; }
    static QVariant ToSetting(const QSize& size) { return SizeToString(size); }
    static QSize FromSetting(const QVariant& setting) { return SizeFromString(setting.toString()); }
};
