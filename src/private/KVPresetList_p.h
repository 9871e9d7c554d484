#pragma once

#include "KVSettingsFile_p.h"
#include "KVSingleton_p.h"

#include <QList>
#include <QSettings>
#include <QString>
#include <QVariant>

#include <algorithm>
#include <new>
#include <stdexcept>

// A user-editable list of presets kept in an INI file of its own: a top-level
// "Version" and, in one group, a key per entry named by its index (0, 1, 2...).
// Add(value) keeps the list in ascending order of the entries' ordering key;
// every change is announced through the public object's signals Inserted,
// Changhed and Removed, then written to the file at once.
//
// Private is the public class's private part, which derives from this one and
// supplies:
//   q                          the public object, whose signals are emitted
//   static m_pInstance         the one public object, or null
//   static Instance()          m_pInstance's private part, or null
//   kGroup, kDefaults          the INI group and the resource with the defaults
//   kOutOfRange                the message of the exception that Get throws
//   OrderKey(value)            what Add(value) orders by
//   IsValid(value)             whether a value read from a file is kept
//   ToSetting(value), FromSetting(setting)
//                              a value as the file stores it, and back
template <typename Private, typename Value> class KVPresetList
{
public:
    static void InitInstance() { KVSingleton::Init(Private::m_pInstance); }

    static void ReleaseInstance() { KVSingleton::Release(Private::m_pInstance); }

    static void Load(const QString& fileName)
    {
        if (Private* d = Private::Instance())
            d->LoadFromFile(fileName);
    }

    // Reads the user's file as its keys stand; only a file that this list
    // never wrote (no "Version") is replaced by the defaults.
    void LoadFromFile(const QString& fileName)
    {
        m_fileName = fileName;
        m_file.SetPath(fileName);
        if (ReadUserFile())
            return;
        m_list.clear();
        KVSettingsFile defaults(QString::fromLatin1(Private::kDefaults), KVSettingsFile::ReadOnly);
        Read(defaults.ReadPath());
        Sync();
    }

    void Sync() { Write(); }

    void Add(int index, const Value& value)
    {
        index = std::clamp(index, 0, int(m_list.size()));
        m_list.insert(index, value);
        Q_EMIT Self().q->Inserted(index);
        Sync();
    }

    int Add(const Value& value)
    {
        const int index = FindInsertIndex(value);
        Add(index, value);
        return index;
    }

    // A linear scan rather than a binary search: Add(index, ...) and Set may
    // have put the list out of order, and the place is the first entry whose
    // key is greater whatever the order.
    int FindInsertIndex(const Value& value) const
    {
        const auto key = Private::OrderKey(value);
        const auto greater = std::find_if(m_list.cbegin(), m_list.cend(), [&](const Value& entry) {
            return Private::OrderKey(entry) > key;
        });
        return int(greater - m_list.cbegin());
    }

    void Remove(int index)
    {
        if (!Contains(index))
            return;
        m_list.removeAt(index);
        Q_EMIT Self().q->Removed(index);
        Sync();
    }

    void Set(int index, const Value& value)
    {
        if (!Contains(index) || m_list.at(index) == value)
            return;
        m_list[index] = value;
        Q_EMIT Self().q->Changhed(index);
        Sync();
    }

    Value Get(int index) const
    {
        if (!Contains(index))
            throw std::out_of_range(Private::kOutOfRange);
        return m_list.at(index);
    }

    QList<Value> m_list;
    QString m_fileName;
    KVSettingsFile m_file;

private:
    static QString VersionKey() { return QStringLiteral("Version"); }

    // Past the check, Qt may still fail an allocation that a value asks for
    // and throw std::bad_alloc: the list then stays empty, and the file is
    // left alone rather than taken for one without "Version".
    bool ReadUserFile()
    {
        try {
            const QString path = m_file.ReadPath();
            if (!QSettings(path, QSettings::IniFormat).contains(VersionKey()))
                return false;
            Read(path);
        } catch (const std::bad_alloc&) {
            m_list.clear();
        }
        return true;
    }

    void Write()
    {
        const QString path = m_file.WritePath();
        if (path.isEmpty())
            return;
        try {
            QSettings settings(path, QSettings::IniFormat);
            settings.setValue(VersionKey(), QStringLiteral("2.3.0"));
            settings.beginGroup(QString::fromLatin1(Private::kGroup));
            const int stored = settings.allKeys().size();
            for (int i = 0; i < m_list.size(); ++i)
                settings.setValue(QString::number(i), Private::ToSetting(m_list.at(i)));
            // Counting the keys rather than taking the highest index bounds this
            // by the file's size. A key beyond a gap in a hand-edited file
            // survives, which is harmless: reading stops at the gap.
            for (int i = m_list.size(); i < stored; ++i)
                settings.remove(QString::number(i));
            settings.endGroup();
            // Here rather than in the destructor, which swallows a failure.
            settings.sync();
            if (settings.status() == QSettings::NoError)
                m_file.Written();
        } catch (const std::bad_alloc&) {
        }
    }

    // Stops at the first missing index; invalid values are skipped.
    void Read(const QString& fileName)
    {
        QSettings settings(fileName, QSettings::IniFormat);
        settings.beginGroup(QString::fromLatin1(Private::kGroup));
        for (int i = 0; settings.contains(QString::number(i)); ++i) {
            const Value value = Private::FromSetting(settings.value(QString::number(i)));
            if (Private::IsValid(value))
                m_list.append(value);
        }
    }

    bool Contains(int index) const { return index >= 0 && index < m_list.size(); }
    Private& Self() { return static_cast<Private&>(*this); }
};
