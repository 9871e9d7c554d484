#pragma once

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QVariant>

// A value as QSettings writes it into a file of its own: its type's name,
// then the file's text. Two values that QSettings cannot tell apart once
// written give the same text.
inline QByteArray IniText(const QVariant& value)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("value.ini"));
    {
        QSettings settings(path, QSettings::IniFormat);
        settings.setValue(QStringLiteral("value"), value);
    }
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    return QByteArray(value.typeName()) + '\n' + file.readAll();
}
