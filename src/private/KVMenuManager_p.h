#pragma once

#include "KVMenuManager.h"

#include <vector>

class KVMenuManager::Private
{
public:
    // A top-level menu (position = role, with its entries) or one entry of it:
    // either an action or a submenu.
    struct MenuElement
    {
        QMenu* menu = nullptr;
        QAction* action = nullptr;
        int position = 0;
        std::vector<MenuElement> elements; // ascending position; top level only
    };
    using Elements = std::vector<MenuElement>;

    explicit Private(KVMenuManager* owner)
        : q(owner)
    {}

    static Private* Instance() { return m_pInstance ? m_pInstance->d.get() : nullptr; }

    QMenu* InsertMenu(MenuRole role, const QString& title);
    void InsertMenu(MenuRole role, QMenu* menu);
    QAction* InsertAction(MenuRole role, int position);
    void InsertAction(MenuRole role, int position, QAction* action);
    QMenu* InsertMenu(MenuRole role, int position);
    void InsertMenu(MenuRole role, int position, QMenu* menu);
    void Remove(MenuRole role, int position);
    // Drop the entries that hold the object, in every top-level menu.
    void Remove(QMenu* menu);
    void Remove(QAction* action);
    void Setup(QMenuBar* bar) const;
    // Drops every record of a destroyed menu or action.
    void Forget(QObject* object);

    KVMenuManager* q;
    Elements m_menus; // ascending role, one per role

    static KVMenuManager* m_pInstance;

private:
    static int FindInsertIndex(const Elements& elements, int value);
    static int IndexAtPosition(const Elements& elements, int value);
    static QObject* ObjectOf(const MenuElement& element);
    static QAction* EntryOf(const MenuElement& element);

    bool InsertTopLevel(MenuRole role, QMenu* menu);
    // The top-level record of the role and the index for a new entry at the
    // position, or null when the role has no menu or the position is taken.
    MenuElement* FindChildSlot(MenuRole role, int position, int* index);
    void PlaceChild(MenuElement& top, int index, int position, QMenu* menu, QAction* action);
    void RemoveChildren(const QObject* object);
    bool IsRecorded(const QObject* object) const;
    void Watch(QObject* object);
    void Unwatch(QObject* object);
};
