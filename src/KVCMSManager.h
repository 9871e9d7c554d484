#pragma once

#include <QObject>
#include <QString>

#include <KVCMSProfile.h>

#include "kvcore_export.h"

#include <memory>

/// The RGB colour profiles (ICC) found in one folder, and the index of the
/// working RGB profile among them. The list is read once, when the manager is
/// created, and never changes afterwards. Any thread may call the accessors;
/// the change signal comes after the lock is released, on the calling thread.
///
/// A singleton: InitInstance(folder) creates it, ReleaseInstance() deletes it
/// once at shutdown, after which neither GetInstance() nor InitInstance() may
/// be used.
class KVCORE_EXPORT KVCMSManager : public QObject
{
    Q_OBJECT
public:
    /// Creates the manager and loads the "*.icc" and "*.icm" files of folder
    /// whose colour space is RGB, in name order. Does nothing when the manager
    /// exists already (the folder is not read again).
    static void InitInstance(const QString& folder);
    /// The manager; null before InitInstance().
    static KVCMSManager* GetInstance();
    /// Deletes the manager, once, at shutdown.
    static void ReleaseInstance();

    /// The number of RGB profiles found.
    int GetRGBProfileCount() const;
    /// A copy of the profile at index, or an empty profile when index is out of range.
    KVCMSProfile GetRGBProfile(int index) const;

    /// -1 until somebody sets it.
    int GetWorkingRGBIndex() const;
    /// Stores index, also one outside the list, and emits WorkingRGBIndexChanged
    /// when it differs from the stored one.
    void SetWorkingRGBIndex(int index);

Q_SIGNALS:
    /// The working profile index changed to index.
    void WorkingRGBIndexChanged(int index);

private:
    KVCMSManager();
    ~KVCMSManager() override;

    friend class KVSingleton; // makes the instance
    class Private;
    std::unique_ptr<Private> d;
};
