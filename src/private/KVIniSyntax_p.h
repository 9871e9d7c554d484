#pragma once

#include <QByteArray>
#include <QStringList>
#include <QVector>

// QSettings' INI syntax, read the way Qt 5 reads it: where a logical line
// ends (quotes and escaped line breaks carry it on, a semicolon outside
// quotes ends it), which lines hold a key's value, and how a value's text is
// unescaped into one string or, split at unquoted commas, a list.
namespace KVIniSyntax {

// A key's value in the file: the bytes [from, to) after its '='.
struct Value
{
    int from = 0;
    int to = 0;
};

// Every key's value in the file, in file order; section lines, comments and
// lines without '=' hold none.
QVector<Value> Values(const QByteArray& ini);

// The value's text as QSettings unescapes it: one string, or the elements of
// a list. Raw bytes are Latin-1, or UTF-8 when utf8 is set (a file that
// starts with UTF-8's byte order mark).
QStringList Strings(const QByteArray& ini, Value value, bool utf8);

} // namespace KVIniSyntax
