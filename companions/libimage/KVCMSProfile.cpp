#include "KVCMSProfile.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <lcms2.h>

#include <memory>

namespace {
// Larger than any real profile; keeps a stray file from being read whole.
constexpr qint64 kMaxProfileSize = qint64(64) * 1024 * 1024;
// The fixed ICC header; anything shorter cannot be a profile.
constexpr qint64 kHeaderSize = 128;

struct ProfileCloser
{
    void operator()(void* profile) const { cmsCloseProfile(profile); }
};
using ProfileHandle = std::unique_ptr<void, ProfileCloser>;

// The size that the header gives for the whole profile. LittleCMS opens a
// profile whose end is missing and drops the tags it cannot reach, so a cut
// file would otherwise pass for a valid one.
quint32 DeclaredSize(const QByteArray& data)
{
    return qFromBigEndian<quint32>(data.constData());
}

QString ReadDescription(cmsHPROFILE profile)
{
    const cmsUInt32Number size =
        cmsGetProfileInfo(profile, cmsInfoDescription, "en", "US", nullptr, 0);
    if (size < sizeof(wchar_t))
        return QString();
    std::wstring text(size / sizeof(wchar_t), L'\0');
    cmsGetProfileInfo(profile, cmsInfoDescription, "en", "US", text.data(), size);
    return QString::fromStdWString(text.c_str());
}
} // namespace

bool KVCMSProfile::Load(const QString& path)
{
    *this = KVCMSProfile();

    QFile file(path);
    const qint64 size = QFileInfo(path).size();
    if (size < kHeaderSize || size > kMaxProfileSize || !file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray data = file.readAll();
    if (data.size() != size || DeclaredSize(data) > quint32(size))
        return false;

    ProfileHandle profile(cmsOpenProfileFromMem(data.constData(), cmsUInt32Number(data.size())));
    if (!profile)
        return false;

    m_data = data;
    m_path = path;
    m_colorSpace = quint32(cmsGetColorSpace(profile.get()));
    m_description = ReadDescription(profile.get());
    return true;
}
