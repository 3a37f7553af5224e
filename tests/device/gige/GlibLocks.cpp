// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// For the thread sanitizer only. GLib's locks and queues are system calls of its own, which the
// sanitizer does not know, so all that Aravis does under them looked like a race. These stand in
// for them, tell the sanitizer what they order, and call GLib's. Calls inside of GLib do not pass
// here.
#include <glib.h>
#include <sanitizer/tsan_interface.h>

#include <dlfcn.h>

namespace {

template <class Function> Function* real(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

gpointer taken(GAsyncQueue* queue, gpointer data)
{
    __tsan_acquire(queue);
    return data;
}

} // namespace

#define ZQ_REAL(name) static auto* const next = real<decltype(name)>(#name)
// Before or after the call the sanitizer is told that the lock or queue orders what happens.
#define ZQ_TAKES(name, Lock)                                                                       \
    void name(Lock* lock)                                                                          \
    {                                                                                              \
        ZQ_REAL(name);                                                                             \
        next(lock);                                                                                \
        __tsan_acquire(lock);                                                                      \
    }
#define ZQ_GIVES(name, Lock)                                                                       \
    void name(Lock* lock)                                                                          \
    {                                                                                              \
        ZQ_REAL(name);                                                                             \
        __tsan_release(lock);                                                                      \
        next(lock);                                                                                \
    }
#define ZQ_POPS(name)                                                                              \
    gpointer name(GAsyncQueue* queue)                                                              \
    {                                                                                              \
        ZQ_REAL(name);                                                                             \
        return taken(queue, next(queue));                                                          \
    }

#pragma GCC visibility push(default)
extern "C" {

ZQ_TAKES(g_mutex_lock, GMutex)
ZQ_GIVES(g_mutex_unlock, GMutex)
ZQ_TAKES(g_rec_mutex_lock, GRecMutex)
ZQ_GIVES(g_rec_mutex_unlock, GRecMutex)
ZQ_POPS(g_async_queue_pop)
ZQ_POPS(g_async_queue_try_pop)
ZQ_POPS(g_async_queue_try_pop_unlocked)

void g_cond_wait(GCond* condition, GMutex* mutex)
{
    ZQ_REAL(g_cond_wait);
    __tsan_release(mutex);
    next(condition, mutex);
    __tsan_acquire(mutex);
}

void g_async_queue_push(GAsyncQueue* queue, gpointer data)
{
    ZQ_REAL(g_async_queue_push);
    __tsan_release(queue);
    next(queue, data);
}

gpointer g_async_queue_timeout_pop(GAsyncQueue* queue, guint64 timeout)
{
    ZQ_REAL(g_async_queue_timeout_pop);
    return taken(queue, next(queue, timeout));
}

} // extern "C"
#pragma GCC visibility pop
