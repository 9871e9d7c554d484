#pragma once

#include <QObject>
#include <QStringList>

#include <KVBrushPlugin.h>

#include "kvcore_export.h"

// The process-wide registry of brush plug-ins, under their UIDs, and the one
// main brush plug-in, forgotten when it is destroyed. Registration may come
// from any thread; its signals come after its lock is released, on the
// calling thread. The main brush plug-in belongs to the main thread. The
// manager owns no plug-in.
//
// A singleton: InitInstance() creates it, ReleaseInstance() deletes it. Every
// operation is static and answers false, null or empty while there is none.
class KVCORE_EXPORT KVBrushToolManager : public QObject
{
    Q_OBJECT
public:
    static void InitInstance();
    static KVBrushToolManager* GetInstance();
    static void ReleaseInstance();

    // Registers the plug-in under GetUID(). True for a new or an already
    // registered plug-in (and for null); false, with a log line, when another
    // plug-in holds the UID.
    static bool Register(KVBrushPlugin* plugin);
    // Forgets the UID (the main brush plug-in stays); false when it is unknown.
    static bool Unregister(const QString& id);
    // UIDs in the order they were registered.
    static QStringList GetRegistered();
    static KVBrushPlugin* GetPlugin(const QString& id);
    // The UID the plug-in is registered under, or a null string.
    static QString GetID(KVBrushPlugin* plugin);

    static KVBrushPlugin* GetMainBrushPlugin();
    static void SetMainBrushPlugin(KVBrushPlugin* plugin);

Q_SIGNALS:
    void Registred(QString id, KVBrushPlugin* plugin);
    void Unregistred(QString id, KVBrushPlugin* plugin);

private Q_SLOTS:
    void OnMainBrushPluginDestroyed();

private:
    KVBrushToolManager();
    ~KVBrushToolManager() override;

    class Private;
    Private* d;
};
