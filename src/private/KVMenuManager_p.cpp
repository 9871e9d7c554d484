#include "KVMenuManager_p.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>

KVMenuManager* KVMenuManager::Private::m_pInstance = nullptr;

int KVMenuManager::Private::FindInsertIndex(const Elements& elements, int value)
{
    for (std::size_t i = 0; i < elements.size(); ++i) {
        if (elements[i].position == value)
            return -1;
        if (elements[i].position > value)
            return int(i);
    }
    return int(elements.size());
}

int KVMenuManager::Private::IndexAtPosition(const Elements& elements, int value)
{
    const auto found = std::find_if(elements.begin(), elements.end(),
                                    [value](const MenuElement& e) { return e.position == value; });
    return found == elements.end() ? -1 : int(found - elements.begin());
}

QObject* KVMenuManager::Private::ObjectOf(const MenuElement& element)
{
    return element.menu ? static_cast<QObject*>(element.menu) : element.action;
}

// The QAction that stands for the element inside its parent menu.
QAction* KVMenuManager::Private::EntryOf(const MenuElement& element)
{
    return element.menu ? element.menu->menuAction() : element.action;
}

bool KVMenuManager::Private::InsertTopLevel(MenuRole role, QMenu* menu)
{
    const int index = FindInsertIndex(m_menus, role);
    if (index < 0)
        return false;
    m_menus.insert(m_menus.begin() + index, MenuElement{menu, nullptr, role, {}});
    Watch(menu);
    return true;
}

QMenu* KVMenuManager::Private::InsertMenu(MenuRole role, const QString& title)
{
    if (FindInsertIndex(m_menus, role) < 0)
        return nullptr;
    QMenu* menu = new QMenu(title);
    InsertTopLevel(role, menu);
    return menu;
}

void KVMenuManager::Private::InsertMenu(MenuRole role, QMenu* menu)
{
    if (menu)
        InsertTopLevel(role, menu);
}

KVMenuManager::Private::MenuElement* KVMenuManager::Private::FindChildSlot(MenuRole role,
                                                                           int position, int* index)
{
    const int top = IndexAtPosition(m_menus, role);
    if (top < 0)
        return nullptr;
    *index = FindInsertIndex(m_menus[top].elements, position);
    return *index < 0 ? nullptr : &m_menus[top];
}

// The real menu's entries keep the order of the records: a new entry goes
// before the one that now holds its index.
void KVMenuManager::Private::PlaceChild(MenuElement& top, int index, int position, QMenu* menu,
                                        QAction* action)
{
    if (index == int(top.elements.size())) {
        if (menu)
            top.menu->addMenu(menu);
        else
            top.menu->addAction(action);
    } else {
        QAction* before = EntryOf(top.elements[index]);
        if (menu)
            top.menu->insertMenu(before, menu);
        else
            top.menu->insertAction(before, action);
    }
    top.elements.insert(top.elements.begin() + index, MenuElement{menu, action, position, {}});
    Watch(menu ? static_cast<QObject*>(menu) : action);
}

QAction* KVMenuManager::Private::InsertAction(MenuRole role, int position)
{
    int index = 0;
    MenuElement* top = FindChildSlot(role, position, &index);
    if (!top)
        return nullptr;
    QAction* action = new QAction(top->menu);
    PlaceChild(*top, index, position, nullptr, action);
    return action;
}

void KVMenuManager::Private::InsertAction(MenuRole role, int position, QAction* action)
{
    int index = 0;
    if (MenuElement* top = action ? FindChildSlot(role, position, &index) : nullptr)
        PlaceChild(*top, index, position, nullptr, action);
}

QMenu* KVMenuManager::Private::InsertMenu(MenuRole role, int position)
{
    int index = 0;
    MenuElement* top = FindChildSlot(role, position, &index);
    if (!top)
        return nullptr;
    QMenu* menu = new QMenu(top->menu);
    PlaceChild(*top, index, position, menu, nullptr);
    return menu;
}

void KVMenuManager::Private::InsertMenu(MenuRole role, int position, QMenu* menu)
{
    int index = 0;
    if (MenuElement* top = menu ? FindChildSlot(role, position, &index) : nullptr)
        PlaceChild(*top, index, position, menu, nullptr);
}

void KVMenuManager::Private::Remove(MenuRole role, int position)
{
    const int top = IndexAtPosition(m_menus, role);
    if (top < 0)
        return;
    Elements& children = m_menus[top].elements;
    const int child = IndexAtPosition(children, position);
    if (child < 0)
        return;
    m_menus[top].menu->removeAction(EntryOf(children[child]));
    QObject* object = ObjectOf(children[child]);
    children.erase(children.begin() + child);
    Unwatch(object);
}

void KVMenuManager::Private::Remove(QMenu* menu)
{
    RemoveChildren(menu);
}

void KVMenuManager::Private::Remove(QAction* action)
{
    RemoveChildren(action);
}

void KVMenuManager::Private::RemoveChildren(const QObject* object)
{
    for (MenuElement& top : m_menus) {
        Elements& children = top.elements;
        children.erase(
            std::remove_if(children.begin(), children.end(),
                           [object](const MenuElement& e) { return ObjectOf(e) == object; }),
            children.end());
    }
}

void KVMenuManager::Private::Setup(QMenuBar* bar) const
{
    if (!bar)
        return;
    for (const MenuElement& top : m_menus) {
        if (top.menu)
            bar->addMenu(top.menu);
    }
}

// Only pointers are compared here: the object is already half destroyed. A
// top-level menu says so before its children go, so the entries that survive
// it are still whole when they are let go.
void KVMenuManager::Private::Forget(QObject* object)
{
    for (auto top = m_menus.begin(); top != m_menus.end();) {
        if (top->menu != object) {
            ++top;
            continue;
        }
        const Elements orphans = std::move(top->elements);
        top = m_menus.erase(top);
        for (const MenuElement& orphan : orphans)
            Unwatch(ObjectOf(orphan));
    }
    for (const MenuElement& top : m_menus) {
        for (const MenuElement& child : top.elements) {
            if (ObjectOf(child) != object)
                continue;
            if (child.menu)
                Remove(child.menu);
            else
                Remove(child.action);
            return;
        }
    }
}

bool KVMenuManager::Private::IsRecorded(const QObject* object) const
{
    return std::any_of(m_menus.begin(), m_menus.end(), [object](const MenuElement& top) {
        return top.menu == object ||
               std::any_of(top.elements.begin(), top.elements.end(),
                           [object](const MenuElement& e) { return ObjectOf(e) == object; });
    });
}

void KVMenuManager::Private::Watch(QObject* object)
{
    QObject::connect(object, SIGNAL(destroyed(QObject*)), q, SLOT(OnObjectDestroyed(QObject*)),
                     Qt::UniqueConnection);
}

// The same object may stand in several places; it is watched until the last goes.
void KVMenuManager::Private::Unwatch(QObject* object)
{
    if (!IsRecorded(object))
        QObject::disconnect(object, SIGNAL(destroyed(QObject*)), q,
                            SLOT(OnObjectDestroyed(QObject*)));
}
