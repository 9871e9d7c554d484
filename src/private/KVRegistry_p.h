#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <mutex>

// A registry of objects under unique string keys that remembers the order of
// registration, guarded by a non-recursive mutex so that any thread may use
// it. The registry owns none of the objects. Callers announce changes only
// after a call returns, that is, after the lock is released.
template <typename Object> class KVRegistry
{
public:
    // Registers object under keyOf(object), asked under the lock, then calls
    // added(key) or duplicate(key) with the lock released. True unless the key
    // was another object's.
    template <typename KeyOf, typename Duplicate, typename Added>
    bool Register(Object* object, KeyOf keyOf, Duplicate duplicate, Added added)
    {
        QString key;
        switch (Insert(object, keyOf, &key)) {
        case Outcome::Ignored:
            return true;
        case Outcome::DuplicateKey:
            duplicate(key);
            return false;
        case Outcome::Added:
            added(key);
            return true;
        }
        return false;
    }

    // Removes the key, then calls removed(object) with the lock released.
    // False for an unknown key.
    template <typename Removed> bool Unregister(const QString& key, Removed removed)
    {
        Object* object = Take(key);
        if (!object)
            return false;
        removed(object);
        return true;
    }

    Object* Get(const QString& key) const
    {
        std::lock_guard<std::mutex> lock(m_lock);
        const auto it = m_objects.find(key);
        return it == m_objects.end() ? nullptr : it->second;
    }

    // The key of the first pair (in key order) that holds object, or a null string.
    QString KeyOf(const Object* object) const
    {
        std::lock_guard<std::mutex> lock(m_lock);
        const QString* key = FindKey(object);
        return key ? *key : QString();
    }

    QStringList Order() const
    {
        std::lock_guard<std::mutex> lock(m_lock);
        return m_order;
    }

private:
    enum class Outcome
    {
        Added,
        Ignored,      // a null object, or one registered already
        DuplicateKey, // another object holds the key
    };

    template <typename KeyOf> Outcome Insert(Object* object, KeyOf keyOf, QString* key)
    {
        std::lock_guard<std::mutex> lock(m_lock);
        if (!object || FindKey(object))
            return Outcome::Ignored;
        *key = std::invoke(keyOf, object);
        if (m_objects.count(*key) != 0)
            return Outcome::DuplicateKey;
        m_objects.emplace(*key, object);
        m_order.append(*key);
        return Outcome::Added;
    }

    Object* Take(const QString& key)
    {
        std::lock_guard<std::mutex> lock(m_lock);
        const auto it = m_objects.find(key);
        if (it == m_objects.end())
            return nullptr;
        Object* object = it->second;
        m_objects.erase(it);
        m_order.removeOne(key);
        return object;
    }

    const QString* FindKey(const Object* object) const
    {
        for (const auto& [key, value] : m_objects) {
            if (value == object)
                return &key;
        }
        return nullptr;
    }

    mutable std::mutex m_lock;
    std::map<QString, Object*> m_objects;
    QStringList m_order;
};
