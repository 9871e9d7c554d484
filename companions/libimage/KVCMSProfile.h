#pragma once

#include <QByteArray>
#include <QString>

#include "kvimage_export.h"

/// An ICC colour profile held by value: its bytes and the header facts read
/// from them. A default-constructed profile is empty. Copies are cheap and
/// independent; any thread may use its own copy.
class KVIMAGE_EXPORT KVCMSProfile
{
public:
    /// An empty profile: no bytes, colour space 0.
    KVCMSProfile() = default;

    /// Reads and checks the ICC file at path. On failure (missing file, not an
    /// ICC profile) returns false and the profile is empty.
    bool Load(const QString& path);

    /// True for a default-constructed profile or one whose Load() failed.
    bool IsEmpty() const { return m_data.isEmpty(); }
    /// The ICC header's colour-space signature ('RGB ' = 0x52474220); 0 when empty.
    quint32 GetColorSpace() const { return m_colorSpace; }
    /// The profile's description tag, or an empty string.
    QString GetDescription() const { return m_description; }
    /// The file the profile was loaded from.
    QString GetPath() const { return m_path; }
    /// The raw ICC bytes, ready for a colour transform.
    QByteArray GetData() const { return m_data; }

    /// Profiles are equal when their bytes are; the path plays no part.
    bool operator==(const KVCMSProfile& other) const { return m_data == other.m_data; }
    /// The negation of operator==().
    bool operator!=(const KVCMSProfile& other) const { return !(*this == other); }

    /// The colour-space signature of RGB profiles, as GetColorSpace() answers it.
    static const quint32 RGBColorSpace = 0x52474220;

private:
    QByteArray m_data;
    QString m_description;
    QString m_path;
    quint32 m_colorSpace = 0;
};
