#pragma once

#include <QObject>

#include "kvcore_export.h"

#include <memory>

class KVActivateAction;

/// Keeps the tool actions that are added to it exclusive: at most one of them
/// is explicitly on (the selected tool, the explicit action) and at most one
/// implicitly on (the tool in effect, the implicit action). When a temporary
/// tool's implicit state ends, the selected tool is in effect again. The group
/// follows its members through their signals, so state changed on a member
/// directly is followed as well; it owns none of them and forgets destroyed ones.
/// Main thread only.
///
/// A singleton: InitInstance() creates it, ReleaseInstance() deletes it. Every
/// static operation does nothing and answers null or false while there is none.
class KVCORE_EXPORT KVToolGroupManager : public QObject
{
    Q_OBJECT
public:
    /// Creates the manager unless it exists.
    static void InitInstance();
    /// The manager; null while there is none.
    static KVToolGroupManager* GetInstance();
    /// Deletes the manager; the actions keep their states.
    static void ReleaseInstance();

    /// Makes the action a member; neither explicit nor implicit yet. An action
    /// that is checked and allows changes is refused; one that vetoes joins
    /// as it is.
    static void Add(KVActivateAction* action);
    /// Ends the membership; the action keeps its states, and the selected tool
    /// takes over when it was the one in effect.
    static void Remove(KVActivateAction* action);
    /// Makes the action the selected one: ends a temporary tool, switches the
    /// selected one off, then checks the action. False when a member vetoed,
    /// possibly after the temporary tool ended. With only a temporary tool in
    /// effect and none selected, that tool ends and the action is NOT checked
    /// (true all the same); callers that need it on check GetExplicitAction().
    static bool Activate(KVActivateAction* action);

    /// The member that is explicitly on (the selected tool), or null.
    static KVActivateAction* GetExplicitAction();
    /// The member that is implicitly on (the tool in effect), or null.
    static KVActivateAction* GetImplicitAction();

public Q_SLOTS:
    /// Receives a member's Toggled(); the member is the sender.
    void OnToggled(bool checked);
    /// Receives a member's ImplicitToggled(); the member is the sender.
    void OnImplicitToggled(bool checked);
    /// Forgets a member that is being destroyed.
    void OnDestroyed(QObject* object);

private:
    KVToolGroupManager();
    ~KVToolGroupManager() override;

    friend class KVSingleton; // makes and deletes the instance
    class Private;
    std::unique_ptr<Private> d;
};
