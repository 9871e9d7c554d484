#pragma once

#include <QByteArray>
#include <QString>

#include "kvimage_export.h"

// An ICC colour profile held by value: its bytes and the header facts read
// from them. A default-constructed profile is empty.
class KVIMAGE_EXPORT KVCMSProfile
{
public:
    KVCMSProfile() = default;

    // Reads and checks the ICC file at path. On failure (missing file, not an
    // ICC profile) returns false and the profile is empty.
    bool Load(const QString& path);

    bool IsEmpty() const { return m_data.isEmpty(); }
    // The ICC header's colour-space signature ('RGB ' = 0x52474220); 0 when empty.
    quint32 GetColorSpace() const { return m_colorSpace; }
    // The profile's description tag, or an empty string.
    QString GetDescription() const { return m_description; }
    // The file the profile was loaded from.
    QString GetPath() const { return m_path; }
    // The raw ICC bytes, ready for a colour transform.
    QByteArray GetData() const { return m_data; }

    bool operator==(const KVCMSProfile& other) const { return m_data == other.m_data; }
    bool operator!=(const KVCMSProfile& other) const { return !(*this == other); }

    static const quint32 RGBColorSpace = 0x52474220;

private:
    QByteArray m_data;
    QString m_description;
    QString m_path;
    quint32 m_colorSpace = 0;
};
