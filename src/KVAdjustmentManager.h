#pragma once

#include <QObject>
#include <QStringList>

#include <KVAdjustment.h>

#include "kvcore_export.h"

#include <memory>

/// The process-wide registry of adjustments: plug-in libraries register their
/// KVAdjustment objects under their identifiers, menus and panels list them.
/// Any thread may call it; its signals come after its lock is released, on the
/// calling thread. The manager owns no adjustment.
///
/// A singleton: InitInstance() creates it, ReleaseInstance() deletes it. Every
/// operation is static and answers false, null or empty while there is none.
class KVCORE_EXPORT KVAdjustmentManager : public QObject
{
    Q_OBJECT
public:
    /// Creates the manager unless it exists. Create it before plug-ins load.
    static void InitInstance();
    /// The manager, for connecting to its signals; null while there is none.
    static KVAdjustmentManager* GetInstance();
    /// Deletes the manager; the adjustments stay as they are.
    static void ReleaseInstance();

    /// Registers the adjustment under GetAdjustmentID(). True for a new or an
    /// already registered adjustment (and for null); false, with a log line,
    /// when another adjustment holds the identifier.
    static bool Register(KVAdjustment* adjustment);
    /// Forgets the identifier; false when it is unknown.
    static bool Unregister(const QString& id);
    /// Identifiers in the order they were registered.
    static QStringList GetRegistered();
    /// The adjustment registered under the identifier, or null.
    static KVAdjustment* GetAdjustment(const QString& id);
    /// The identifier the adjustment is registered under, or a null string.
    static QString GetID(KVAdjustment* adjustment);

Q_SIGNALS:
    /// The adjustment was registered under id.
    void Registred(QString id, KVAdjustment* adjustment);
    /// The adjustment registered under id was forgotten; it is not deleted.
    void Unregistred(QString id, KVAdjustment* adjustment);

private:
    KVAdjustmentManager();
    ~KVAdjustmentManager() override;

    friend class KVSingleton; // makes and deletes the instance
    class Private;
    std::unique_ptr<Private> d;
};
