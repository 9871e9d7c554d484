#pragma once

#include <QObject>
#include <QString>

#include "kvcore_export.h"

#include <memory>

class QAction;
class QMenu;
class QMenuBar;

/// Builds one menu bar from menus and actions that independent parts of the
/// application contribute without knowing of each other: a top-level menu per
/// role, and actions and submenus at integer positions inside it. Both levels
/// stay sorted, and every entry lands at once in its place in the real menus,
/// before or after Setup() filled the bar.
///
/// A singleton: InitInstance() creates it, ReleaseInstance() deletes it. Every
/// operation is static and answers null or does nothing while there is none.
/// The manager deletes no menu or action: top-level menus it creates have no
/// parent and belong to the caller, entries it creates belong to their
/// top-level menu. It forgets whatever is destroyed. Main thread only.
///
/// A top-level menu is chosen by its role, a value of the enumeration
/// MenuRole, which holds an int and declares no members: the application
/// defines them once, for example
/// \code
/// enum KVMenuManager::MenuRole : int { FileMenu = 10, EditMenu = 20 };
/// \endcode
/// and any int converts with static_cast<KVMenuManager::MenuRole>(value).
/// Lower values stand further left.
class KVCORE_EXPORT KVMenuManager : public QObject
{
    Q_OBJECT
public:
    // A top-level menu; lower values stand further left. The application
    // defines the members once (see above).
    enum MenuRole : int;

    /// Creates the manager unless it exists.
    static void InitInstance();
    /// The manager; null while there is none.
    static KVMenuManager* GetInstance();
    /// Deletes the manager; the menus and actions stay with their owners.
    static void ReleaseInstance();

    /// A new parentless top-level menu for the role; null when the role has one.
    static QMenu* CreateMenu(MenuRole role, const QString& title);
    /// The caller's menu as the role's top-level menu; ignored when the role has one.
    static void CreateMenu(MenuRole role, QMenu* menu);

    /// A new action, owned by the role's menu, at the position inside it; null
    /// when the role has no menu or the position is taken.
    static QAction* CreateAction(MenuRole role, int position);
    /// The caller's action at the position; ignored in the same cases.
    static void CreateAction(MenuRole role, int position, QAction* action);
    /// A new submenu, a child of the role's menu, at the position inside it;
    /// null in the same cases.
    static QMenu* CreateMenu(MenuRole role, int position);
    /// The caller's menu as a submenu at the position; ignored in the same cases.
    static void CreateMenu(MenuRole role, int position, QMenu* menu);

    /// Takes the entry at the position out of the role's menu without deleting
    /// it; the caller owns it from then on and the position is free again.
    static void Take(MenuRole role, int position);

    /// Adds every top-level menu to the bar, in role order. Menus created later
    /// do not reach the bar; a second call adds all of them again.
    static void Setup(QMenuBar* bar);

private Q_SLOTS:
    void OnObjectDestroyed(QObject* object);

private:
    KVMenuManager();
    ~KVMenuManager() override;

    friend class KVSingleton; // makes and deletes the instance
    class Private;
    std::unique_ptr<Private> d;
};
