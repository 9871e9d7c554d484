#pragma once

#include <QByteArray>
#include <QString>

// The settings files are the user's to edit, and QSettings trusts them. A
// "@Variant(...)" or "@DateTime(...)" value is decoded with Qt's stream
// operators when its section is first read, and a few of them believe what
// the bytes claim: a string list or polygon claiming two thousand million
// entries makes Qt reserve room for them and die (std::bad_alloc out of
// QtCore, a write through a null pointer in QtGui), a region claiming as
// many rectangles loops for hours, lists nested deep enough overflow the
// stack, and a date in a time zone that this system does not know is read
// but crashes Qt when the file is next written. Everything else Qt decodes
// harmlessly, if oddly, and is left to Qt.
namespace KVSettingsCheck {

// The INI file's bytes with every damaged value replaced by "@Invalid()",
// which QSettings reads as an invalid value and writes again as it stands;
// every other byte stays as it was. The bytes themselves when nothing is
// damaged.
QByteArray Repaired(const QByteArray& ini);

} // namespace KVSettingsCheck
