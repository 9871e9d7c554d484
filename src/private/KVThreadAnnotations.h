#pragma once

// Qt is not built with ThreadSanitizer, so the tool cannot see the ordering
// that QMutex and QSemaphore give once they block in the kernel. These calls
// state that ordering where the library relies on it; they cost nothing in
// other builds.

#if defined(__SANITIZE_THREAD__)
#include <sanitizer/tsan_interface.h>
#define KV_HAPPENS_BEFORE(address)                                                                 \
    __tsan_release(const_cast<void*>(static_cast<const void*>(address)))
#define KV_HAPPENS_AFTER(address)                                                                  \
    __tsan_acquire(const_cast<void*>(static_cast<const void*>(address)))
#else
#define KV_HAPPENS_BEFORE(address) static_cast<void>(address)
#define KV_HAPPENS_AFTER(address) static_cast<void>(address)
#endif
