#pragma once

#include "KVThreadAnnotations.h"

#include <QSemaphore>

#include <algorithm>
#include <atomic>

// A counting semaphore whose count lives in an atomic: taking and giving back
// permits costs one atomic operation while nobody has to wait, and only a
// thread that must block (or must wake a blocked one) goes through the
// QSemaphore. A negative count is the number of permits that blocked threads
// are waiting for.
class KVCountingSemaphore
{
public:
    explicit KVCountingSemaphore(int permits)
        : m_count(permits)
    {}

    void acquire(int permits = 1)
    {
        if (permits <= 0)
            return;
        const int before = m_count.fetch_sub(permits, std::memory_order_acq_rel);
        const int missing = permits - std::max(before, 0);
        if (missing > 0) {
            m_waiters.acquire(missing);
            KV_HAPPENS_AFTER(&m_waiters);
        }
    }

    void release(int permits = 1)
    {
        if (permits <= 0)
            return;
        const int before = m_count.fetch_add(permits, std::memory_order_acq_rel);
        if (before < 0) {
            KV_HAPPENS_BEFORE(&m_waiters);
            m_waiters.release(std::min(permits, -before));
        }
    }

    // Permits free right now (negative while threads wait).
    int available() const { return m_count.load(std::memory_order_relaxed); }

private:
    std::atomic<int> m_count;
    QSemaphore m_waiters;
};
