#include "KVSettingsFile_p.h"

#include "KVLog.h"
#include "KVSettingsCheck_p.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSaveFile>
#include <QSettings>
#include <QTemporaryFile>

#include <sys/stat.h>

namespace {

const QString kLockSuffix = QStringLiteral(".lock");

// QSettings locks a file while it writes it. A writer killed between
// creating the lock file and writing its owner into it leaves an empty one,
// which Qt takes for a live lock until it is 30 s old: every write to the
// file would wait that long. A write holds the lock for milliseconds, so a
// lock file older than a second is stale.
void ClearStaleLock(const QString& path)
{
    if (!QFileInfo::exists(path + kLockSuffix))
        return;
    QLockFile lock(path + kLockSuffix);
    lock.setStaleLockTime(1000);
    if (lock.tryLock(0))
        lock.unlock();
}

bool WriteFile(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

// Never over the copy of an earlier repair.
QString KeepName(const QString& path)
{
    QString name = path + QStringLiteral(".damaged");
    for (int n = 2; QFileInfo::exists(name); ++n)
        name = path + QStringLiteral(".damaged.%1").arg(n);
    return name;
}

// Under QSettings' own lock, so that no writer of another process comes in
// between; the original bytes are safe before the file changes.
bool RepairInPlace(const QString& path, const QByteArray& original, const QByteArray& repaired)
{
    ClearStaleLock(path);
    QLockFile lock(path + kLockSuffix);
    if (!lock.tryLock(1000))
        return false;
    const QString kept = KeepName(path);
    if (!WriteFile(kept, original) || !WriteFile(path, repaired))
        return false;
    KV_LOG(
        QStringLiteral("The settings file \"%1\" held values that Qt cannot read safely; they now "
                       "read as invalid, and the file as it was is kept as \"%2\".")
            .arg(QDir::toNativeSeparators(path), QDir::toNativeSeparators(kept)));
    return true;
}

} // namespace

KVSettingsFile::KVSettingsFile(Use use)
    : m_use(use)
{}

KVSettingsFile::KVSettingsFile(const QString& path, Use use)
    : m_use(use)
{
    SetPath(path);
}

KVSettingsFile::~KVSettingsFile() = default;

void KVSettingsFile::SetPath(const QString& path)
{
    m_path = path;
    m_checked = Stamp{-2, -2};
    ReadThrough(path);
    m_copy.reset();
}

QString KVSettingsFile::ReadPath()
{
    Check();
    return m_readPath;
}

QString KVSettingsFile::WritePath()
{
    Check();
    if (m_readPath != m_path)
        return QString();
    ClearStaleLock(m_path);
    return m_path;
}

void KVSettingsFile::Written()
{
    m_checked = StampOf(m_path);
}

void KVSettingsFile::Check()
{
    const Stamp stamp = StampOf(m_path);
    if (m_use == ReadWrite && stamp == m_checked)
        return;
    m_checked = stamp;
    QFile file(m_path);
    // A missing file: QSettings reads nothing from it and creates nothing.
    const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    file.close();
    const QByteArray repaired = KVSettingsCheck::Repaired(bytes);
    if (repaired.constData() == bytes.constData())
        return ReadThrough(m_path);
    if (m_use == ReadWrite && RepairInPlace(m_path, bytes, repaired)) {
        m_checked = StampOf(m_path);
        return ReadThrough(m_path);
    }
    auto copy = std::make_unique<QTemporaryFile>();
    if (!copy->open() || copy->write(repaired) != repaired.size() || !copy->flush())
        copy.reset();
    KV_LOG(QStringLiteral("The settings file \"%1\" holds values that Qt cannot read safely; it is "
                          "read through a repaired copy and not written.")
               .arg(QDir::toNativeSeparators(m_path)));
    // Without a copy there is nothing safe to read: an empty path reads as
    // a file without keys.
    ReadThrough(copy ? copy->fileName() : QString());
    m_copy = std::move(copy);
}

void KVSettingsFile::ReadThrough(const QString& path)
{
    if (path == m_readPath && m_parsed)
        return;
    m_readPath = path;
    // Splitting the file into sections decodes no value: safe whatever the
    // file holds.
    m_parsed = path.isEmpty() ? nullptr : std::make_unique<QSettings>(path, QSettings::IniFormat);
}

// The size and modification time, which tell whether the file changed since
// it was checked; a size of -1 for a file that does not exist. QFileInfo
// answers the time as a QDateTime, whose conversion to local time would cost
// as much again as the read it guards.
KVSettingsFile::Stamp KVSettingsFile::StampOf(const QString& path)
{
    struct stat status;
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return {};
#ifdef __APPLE__
    const struct timespec& modified = status.st_mtimespec;
#else
    const struct timespec& modified = status.st_mtim;
#endif
    return {qint64(status.st_size), qint64(modified.tv_sec) * 1000000000 + modified.tv_nsec};
}
