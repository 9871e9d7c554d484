#pragma once

#include <QList>
#include <QObject>
#include <QSize>

#include "kvcore_export.h"

#include <memory>

/// The user's export resolution presets (width x height), kept in width order
/// by Add(size), saved to exportandshareresolution.ini after every change and
/// seeded from the application's ":/ExportAndShareResolution.ini" on first use.
/// The application object starts and releases the one instance; every
/// operation is static and harmless while there is none.
///
/// Each signal comes after the list changed and before the file is written,
/// with the index concerned as it is at that moment. Main thread only.
class KVCORE_EXPORT MZExportResolutions : public QObject
{
    Q_OBJECT
public:
    /// An empty list. The application object makes the one instance; a host
    /// makes none.
    MZExportResolutions();
    /// Deletes the list; the file stays as the last change wrote it.
    ~MZExportResolutions() override;

    /// The instance, for connecting to its signals; null while there is none.
    static MZExportResolutions* GetInstance();
    /// A copy of the presets in the order shown to the user.
    static QList<QSize> GetList();
    /// The number of presets; -1 without the instance.
    static int GetSize();
    /// Inserts at index, clamped to the list, whether or not that keeps the order.
    static void Add(int index, const QSize& size);
    /// Inserts after every preset of the same or a smaller width; the index used.
    static int Add(const QSize& size);
    /// Deletes one preset; an index outside the list is ignored.
    static void Remove(int index);
    /// Replaces one preset in place, without moving it to keep the order; an
    /// index outside the list or an equal value is ignored.
    static void Set(int index, const QSize& size);
    /// The preset at index. Throws std::out_of_range for an index outside the
    /// list; QSize(-1, -1) without the instance.
    static QSize Get(int index);

Q_SIGNALS:
    /// A preset was inserted at index.
    void Inserted(int index);
    /// The preset at index was replaced.
    void Changhed(int index);
    /// The preset that was at index was deleted.
    void Removed(int index);

private:
    friend class KVApplication; // starts, loads and releases the instance
    class Private;
    std::unique_ptr<Private> d;
};
