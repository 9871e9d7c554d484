#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

class QSettings;

// The settings files are the user's to edit, and QSettings trusts them. It
// decodes a "@Variant(...)" value with Qt's stream operators, which reserve
// room for whatever count the value claims: a string list claiming two
// thousand million entries makes QtCore throw std::bad_alloc, and a polygon,
// brush, pen or palette doing the same makes QtGui (built without exception
// support) write through a null pointer. Qt parses a section at the first
// read from it and the whole file before a write, so one such value in
// user.ini would end the editor at start-up, every time. The library checks
// a file before QSettings parses it and treats a file that fails as one that
// cannot be read.
namespace KVSettingsFile {

// Whether QSettings can parse these INI bytes without a value whose decoding
// claims more than the value holds, or nests deeper than Qt's recursive
// decoding can be trusted with. Values of types that Qt decodes without a
// claimed count pass unread.
bool IsParsable(const QByteArray& ini);

// The same for the file at path; a file that does not exist is parsable.
bool IsParsable(const QString& path);

// QSettings locks a file while it writes it. A writer killed between
// creating the lock file and writing its owner into it leaves an empty one,
// which Qt takes for a live lock until it is 30 s old: every write to the
// file would wait that long. A write holds the lock for milliseconds, so a
// lock file older than a second is stale; this removes it. Call before a
// write.
void ClearStaleLock(const QString& path);

} // namespace KVSettingsFile

// One settings file of the application object, as every access reaches it:
// checked before QSettings parses it (the verdict is kept while the file's
// size and time stamp stay the same), and kept parsed between accesses.
//
// Qt keeps an INI file parsed only while some QSettings object on it is
// alive, or afterwards while the file is small: without the object held
// here, every read from a user.ini that plug-ins have filled would parse it
// whole again. That object is never written; each access still opens and
// closes its own QSettings, which shares its parse and rereads the file when
// it changed on disk.
class KVSettingsGuard
{
public:
    KVSettingsGuard();
    ~KVSettingsGuard();
    KVSettingsGuard(const KVSettingsGuard&) = delete;
    KVSettingsGuard& operator=(const KVSettingsGuard&) = delete;

    // The file to guard, first or after it moved.
    void SetPath(const QString& path);
    bool IsParsable();
    // The file as QSettings has just written it: it parsed the whole file
    // for that, so the content is known to be parsable.
    void Trust();

    struct Stamp
    {
        qint64 size = -1;
        qint64 modified = -1; // nanoseconds
        bool operator==(const Stamp& other) const
        {
            return size == other.size && modified == other.modified;
        }
    };

private:
    QString m_path;
    std::unique_ptr<QSettings> m_parsed;
    Stamp m_checked{-2, -2};
    bool m_parsable = true;
};
