// Shows the thread sanitizer the mutexes of Qt, whose code is not built for it.
//
// The linker puts these functions in the place of QMutex's (see the sanitizer's flags in cmake/),
// so that what the product guards with a QMutex counts as guarded, and what it does not as a race.
#include <sanitizer/tsan_interface.h>

class QMutex;

extern "C" {

// NOLINTBEGIN(bugprone-reserved-identifier): the linker's names
void __real__ZN6QMutex4lockEv(QMutex* mutex);
bool __real__ZN6QMutex7tryLockEi(QMutex* mutex, int timeoutMs);
void __real__ZN6QMutex6unlockEv(QMutex* mutex);

void __wrap__ZN6QMutex4lockEv(QMutex* mutex)
{
    __tsan_mutex_pre_lock(mutex, 0);
    __real__ZN6QMutex4lockEv(mutex);
    __tsan_mutex_post_lock(mutex, 0, 0);
}

bool __wrap__ZN6QMutex7tryLockEi(QMutex* mutex, int timeoutMs)
{
    __tsan_mutex_pre_lock(mutex, __tsan_mutex_try_lock);
    const bool isLocked = __real__ZN6QMutex7tryLockEi(mutex, timeoutMs);
    __tsan_mutex_post_lock(
        mutex, __tsan_mutex_try_lock | (isLocked ? 0U : __tsan_mutex_try_lock_failed), 0);
    return isLocked;
}

void __wrap__ZN6QMutex6unlockEv(QMutex* mutex)
{
    __tsan_mutex_pre_unlock(mutex, 0);
    __real__ZN6QMutex6unlockEv(mutex);
    __tsan_mutex_post_unlock(mutex, 0);
}
// NOLINTEND(bugprone-reserved-identifier)

} // extern "C"
