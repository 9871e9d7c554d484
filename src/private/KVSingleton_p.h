#pragma once

#include <utility>

// The one instance of a manager, made and deleted the same way by every
// manager. The pointer is the manager's own (its Private's static
// m_pInstance) and is handed in by reference; GetInstance() answers it as it
// stands. A manager whose constructor and destructor are private befriends
// this class.
class KVSingleton
{
public:
    KVSingleton() = delete;

    // Makes the instance when there is none; true when it did. The pointer
    // is set once the constructor has returned.
    template <typename Manager> static bool Init(Manager*& instance)
    {
        if (instance)
            return false;
        instance = new Manager;
        return true;
    }

    // Clears the pointer first, then deletes the instance: whatever runs
    // while it goes (a slot on its destroyed(), a destructor that saves)
    // finds no instance rather than a half-destroyed one.
    template <typename Manager> static void Release(Manager*& instance)
    {
        delete std::exchange(instance, nullptr);
    }
};
