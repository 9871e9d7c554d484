#pragma once

#include <QByteArray>
#include <QMetaType>
#include <QVector>

// Settings values that Qt decodes harmlessly, however odd, and values that
// make Qt crash, abort, hang or over-allocate (now or writing them back).
struct SettingsRow
{
    const char* name = "";
    QByteArray value; // as the INI file holds it
    bool damaged = false;
    QByteArray start = QByteArray(); // what the file starts with, before any section
};
Q_DECLARE_METATYPE(SettingsRow)

QVector<SettingsRow> SettingsRows();

// A file holding the row's value as "Plugin/Key" among others (repaired: as the repair leaves it).
QByteArray SettingsRowFile(const SettingsRow& row, bool repaired = false);
