#include "KVCMSManager_p.h"

#include <QDir>

KVCMSManager* KVCMSManager::Private::m_pInstance = nullptr;

namespace {
// The name filters match as the platform's file systems do: without regard to
// case on macOS and Windows, exactly elsewhere.
#if defined(Q_OS_DARWIN) || defined(Q_OS_WIN)
const QDir::Filters kNameMatching = QDir::Filters();
#else
const QDir::Filters kNameMatching = QDir::CaseSensitive;
#endif

QStringList ProfileFileNames(const QString& folder)
{
    // An empty string would make QDir list the current folder.
    if (folder.isEmpty())
        return QStringList();
    return QDir(folder).entryList({QStringLiteral("*.icc"), QStringLiteral("*.icm")},
                                  QDir::Files | kNameMatching, QDir::Name);
}
} // namespace

void KVCMSManager::Private::Load(const QString& folder)
{
    std::lock_guard<std::mutex> lock(m_lock);
    m_rgbProfiles.clear();
    for (const QString& name : ProfileFileNames(folder)) {
        KVCMSProfile profile;
        if (profile.Load(folder + QDir::separator() + name) &&
            profile.GetColorSpace() == KVCMSProfile::RGBColorSpace)
            m_rgbProfiles.append(profile);
    }
}

void KVCMSManager::Private::SetWorkingRGBIndex(int index)
{
    {
        std::lock_guard<std::mutex> lock(m_lock);
        if (m_workingRGBIndex == index)
            return;
        m_workingRGBIndex = index;
    }
    Q_EMIT q->WorkingRGBIndexChanged(index);
}
