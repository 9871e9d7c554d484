#pragma once

#include <QList>
#include <QObject>

#include "kvcore_export.h"

// The user's export file-size presets, kept in ascending order by Add(size),
// saved to exportandsharesize.ini after every change and seeded from the
// application's ":/ExportAndShareSize.ini" on first use. The application
// object starts and releases the one instance; every operation is static and
// harmless while there is none.
class KVCORE_EXPORT MZExportSizes : public QObject
{
    Q_OBJECT
public:
    MZExportSizes();
    ~MZExportSizes() override;

    static MZExportSizes* GetInstance();
    static QList<long long> GetList();
    // The number of presets; -1 without the instance.
    static int GetSize();
    // Inserts at index, clamped to the list.
    static void Add(int index, long long size);
    // Inserts after every preset of the same or a smaller value; the index used.
    static int Add(long long size);
    static void Remove(int index);
    static void Set(int index, long long size);
    // Throws std::out_of_range for an index outside the list; -1 without the instance.
    static long long Get(int index);

Q_SIGNALS:
    void Inserted(int index);
    void Changhed(int index);
    void Removed(int index);

private:
    friend class KVApplication; // starts, loads and releases the instance
    class Private;
    Private* d;
};
