#pragma once

#include <QByteArray>
#include <QVector>

// Values of a settings file that Qt decodes harmlessly, however odd, and
// values that make Qt crash, abort, loop or allocate far beyond what the
// file holds (or crash when it writes the file back). The check must leave
// the first alone and catch the second; the differential test holds both
// against plain QSettings.
struct SettingsRow
{
    const char* name;
    QByteArray value; // as the INI file holds it
    bool damaged;
    QByteArray start = QByteArray();    // what the file starts with, before any section
    QByteArray repaired = "@Invalid()"; // the value as the repair leaves it
};

QVector<SettingsRow> SettingsRows();

// A file holding the row's value among others: top-level keys, the value in
// a section of its own ("Plugin/Key"), and a section after it.
QByteArray SettingsRowFile(const SettingsRow& row);
