#pragma once

#include <QByteArray>
#include <QMetaType>
#include <QVector>

// Values of a settings file that Qt decodes harmlessly, however odd, and
// values that make Qt crash, abort, loop or allocate far beyond what the
// file holds (or crash when it writes the file back).
struct SettingsRow
{
    const char* name = "";
    QByteArray value; // as the INI file holds it
    bool damaged = false;
    QByteArray start = QByteArray(); // what the file starts with, before any section
};
Q_DECLARE_METATYPE(SettingsRow)

QVector<SettingsRow> SettingsRows();

// A file holding the row's value as "Plugin/Key" among others; with
// repaired, a damaged value as the repair leaves it.
QByteArray SettingsRowFile(const SettingsRow& row, bool repaired = false);
