// The bookmark store outside Apple platforms: the bookmarks live in the
// editor's native user settings under the same key as Foundation's, and a
// bookmark records the identity of its file instead of a sandbox grant.

#include "KVFileBookmark_p.h"

#include <QDataStream>
#include <QDateTime>
#include <QFileInfo>
#include <QHash>
#include <QSettings>

namespace {
const char kRecentFilesKey[] = "Recent files";
const char kSandboxVariable[] = "APP_SANDBOX_CONTAINER_ID";
const quint32 kBookmarkMagic = 0x4b56424d; // "KVBM"

class UserDefaults : public QSettings
{
public:
    UserDefaults()
        : QSettings(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Pelkaro AB"),
                    QStringLiteral("Pelkaro"))
    {}

    bool IsUsable() const { return status() == QSettings::NoError; }

    // The stored bookmarks, or false when there is no dictionary of them.
    bool GetBookmarks(QVariantMap* bookmarks) const
    {
        const QVariant value = this->value(QLatin1String(kRecentFilesKey));
        if (value.userType() != QMetaType::QVariantMap)
            return false;
        *bookmarks = value.toMap();
        return true;
    }
};

// A file put in place of the bookmarked one gets a new birth time, where the
// file system keeps one.
qint64 BirthTime(const QFileInfo& info)
{
    const QDateTime birth = info.birthTime();
    return birth.isValid() ? birth.toMSecsSinceEpoch() : -1;
}

QByteArray CreateBookmark(const QString& path)
{
    const QFileInfo info(path);
    if (!info.isFile())
        return QByteArray();
    QByteArray data;
    QDataStream stream(&data, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_15);
    stream << kBookmarkMagic << info.canonicalFilePath() << BirthTime(info);
    return data;
}

// Whether the data is a bookmark of a file that is still where, and what, it was.
bool Resolves(const QByteArray& data)
{
    QDataStream stream(data);
    stream.setVersion(QDataStream::Qt_5_15);
    quint32 magic = 0;
    QString path;
    qint64 birthTime = -1;
    stream >> magic >> path >> birthTime;
    if (stream.status() != QDataStream::Ok || magic != kBookmarkMagic || path.isEmpty())
        return false;
    const QFileInfo info(path);
    return info.isFile() && BirthTime(info) == birthTime;
}

bool ResolveStored(const QString& absolutePath)
{
    const UserDefaults defaults;
    QVariantMap bookmarks;
    return defaults.IsUsable() && defaults.GetBookmarks(&bookmarks) &&
           Resolves(bookmarks.value(absolutePath).toByteArray());
}

std::mutex s_accessLock;
QHash<QString, int> s_activeAccess;
} // namespace

bool KVBookmarkStore::IsSandbox()
{
    return qEnvironmentVariableIsSet(kSandboxVariable);
}

bool KVBookmarkStore::StartAccess(const QString& absolutePath)
{
    if (!ResolveStored(absolutePath))
        return false;
    std::lock_guard<std::mutex> lock(s_accessLock);
    ++s_activeAccess[absolutePath];
    return true;
}

bool KVBookmarkStore::StopAccess(const QString& absolutePath)
{
    if (!ResolveStored(absolutePath))
        return false;
    std::lock_guard<std::mutex> lock(s_accessLock);
    const auto it = s_activeAccess.find(absolutePath);
    if (it != s_activeAccess.end() && --it.value() == 0)
        s_activeAccess.erase(it);
    return true;
}

void KVBookmarkStore::Add(const QString& absolutePath)
{
    UserDefaults defaults;
    if (!defaults.IsUsable())
        return;
    QVariantMap bookmarks;
    if (defaults.GetBookmarks(&bookmarks) && bookmarks.contains(absolutePath))
        return;
    const QByteArray data = CreateBookmark(absolutePath);
    if (data.isEmpty())
        return;
    bookmarks.insert(absolutePath, data);
    defaults.setValue(QLatin1String(kRecentFilesKey), bookmarks);
    defaults.sync();
}

int KVBookmarkStore::ActiveAccessCount(const QString& absolutePath)
{
    std::lock_guard<std::mutex> lock(s_accessLock);
    return s_activeAccess.value(absolutePath);
}
