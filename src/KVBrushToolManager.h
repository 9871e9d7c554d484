#pragma once

#include <QObject>
#include <QStringList>

#include <KVBrushPlugin.h>

#include "kvcore_export.h"

#include <memory>

/// The process-wide registry of brush plug-ins, under their UIDs, and the one
/// main brush plug-in, forgotten when it is destroyed. Registration may come
/// from any thread; its signals come after its lock is released, on the
/// calling thread. The main brush plug-in belongs to the main thread. The
/// manager owns no plug-in.
///
/// A singleton: InitInstance() creates it, ReleaseInstance() deletes it. Every
/// operation is static and answers false, null or empty while there is none.
class KVCORE_EXPORT KVBrushToolManager : public QObject
{
    Q_OBJECT
public:
    /// Creates the manager unless it exists. Create it before plug-ins load.
    static void InitInstance();
    /// The manager, for connecting to its signals; null while there is none.
    static KVBrushToolManager* GetInstance();
    /// Deletes the manager; the plug-ins stay as they are.
    static void ReleaseInstance();

    /// Registers the plug-in under GetUID(). True for a new or an already
    /// registered plug-in (and for null); false, with a log line, when another
    /// plug-in holds the UID.
    static bool Register(KVBrushPlugin* plugin);
    /// Forgets the UID (the main brush plug-in stays); false when it is unknown.
    static bool Unregister(const QString& id);
    /// UIDs in the order they were registered.
    static QStringList GetRegistered();
    /// The plug-in registered under the UID, or null.
    static KVBrushPlugin* GetPlugin(const QString& id);
    /// The UID the plug-in is registered under, or a null string.
    static QString GetID(KVBrushPlugin* plugin);

    /// The plug-in set last by SetMainBrushPlugin(); null once it is destroyed.
    static KVBrushPlugin* GetMainBrushPlugin();
    /// Makes the plug-in (registered or not, or null) the main brush plug-in.
    static void SetMainBrushPlugin(KVBrushPlugin* plugin);

Q_SIGNALS:
    /// The plug-in was registered under id.
    void Registred(QString id, KVBrushPlugin* plugin);
    /// The plug-in registered under id was forgotten; it is not deleted.
    void Unregistred(QString id, KVBrushPlugin* plugin);

private Q_SLOTS:
    void OnMainBrushPluginDestroyed();

private:
    KVBrushToolManager();
    ~KVBrushToolManager() override;

    friend class KVSingleton; // makes and deletes the instance
    class Private;
    std::unique_ptr<Private> d;
};
