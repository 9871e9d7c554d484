#pragma once

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QVariant>

// A value as QSettings writes it into a file of its own: its type's name,
// then the file's text. Values that QSettings cannot tell apart give the same text.
inline QByteArray IniText(const QVariant& value)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("value.ini"));
    QSettings(path, QSettings::IniFormat).setValue(QStringLiteral("value"), value);
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    return QByteArray(value.typeName()) + '\n' + file.readAll();
}

// A file's bytes; empty when it does not exist.
inline QByteArray ReadFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Writes a file, and the folders it needs.
inline bool WriteFile(const QString& path, const QByteArray& data)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(data) == data.size();
}
