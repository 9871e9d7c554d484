#pragma once

#include <QString>

#include <memory>

class QSettings;
class QTemporaryFile;

// One settings file as the library reaches it through QSettings: checked
// before QSettings parses it (KVSettingsCheck_p.h), with every value that Qt
// cannot decode safely replaced, so that such a value costs that value
// alone. A file the library writes is repaired in place, its original bytes
// kept beside it as "<file>.damaged" (".damaged.2" and on for later repairs);
// a file it only reads, or one that cannot be written, is read through a
// repaired copy and left as it is.
//
// Qt keeps an INI file parsed only while some QSettings object on it is
// alive, or afterwards while the file is small: the file also keeps one
// never-written QSettings object open on it, so that every access, which
// opens and closes a QSettings of its own, shares that parse. The check
// runs again only when the file's size or time stamp changed.
class KVSettingsFile
{
public:
    enum Use
    {
        ReadWrite,
        ReadOnly,
    };

    explicit KVSettingsFile(Use use = ReadWrite);
    KVSettingsFile(const QString& path, Use use);
    ~KVSettingsFile();
    KVSettingsFile(const KVSettingsFile&) = delete;
    KVSettingsFile& operator=(const KVSettingsFile&) = delete;

    // The file to reach, first or after it moved.
    void SetPath(const QString& path);
    QString Path() const { return m_path; }

    // The path for QSettings to read now: the file, or a repaired copy.
    QString ReadPath();
    // The path for QSettings to write now, or an empty string while the
    // file can only be read through a copy.
    QString WritePath();
    // The file as QSettings has just written it: Qt wrote only what it
    // holds, so the content needs no check.
    void Written();

private:
    struct Stamp
    {
        qint64 size = -1;
        qint64 modified = -1;
        bool operator==(const Stamp& other) const
        {
            return size == other.size && modified == other.modified;
        }
    };
    static Stamp StampOf(const QString& path);
    void Check();
    void ReadThrough(const QString& path);

    const Use m_use;
    QString m_path;
    QString m_readPath;
    Stamp m_checked{-2, -2};
    std::unique_ptr<QTemporaryFile> m_copy;
    std::unique_ptr<QSettings> m_parsed;
};
