// Makes Qt's mutex visible to the thread sanitizer. Debian's Qt is not built for it, and the compare-and-swap
// that locks a QMutex happens inside libQt5Core, so every use of data that a QMutex guards would count as a
// race.
//
// Linked into a test program, these definitions replace Qt's own in the program and in every library that
// calls them (liborvidacatalogs and liborvidashared do), but not in Qt itself. Each calls Qt's and informs
// the sanitizer, which then also reports lock orders that can end in a deadlock.

#include <QMutex>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

namespace {

template <typename Function>
Function *next(const char *mangledName)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, mangledName));
}

} // namespace

void QMutex::lock() noexcept
{
    static const auto lockOfQt = next<void(QMutex *)>("_ZN6QMutex4lockEv");
    __tsan_mutex_pre_lock(this, 0);
    lockOfQt(this);
    __tsan_mutex_post_lock(this, 0, 0);
}

bool QMutex::tryLock(int timeout) noexcept
{
    static const auto tryLockOfQt = next<bool(QMutex *, int)>("_ZN6QMutex7tryLockEi");
    __tsan_mutex_pre_lock(this, __tsan_mutex_try_lock);
    const bool isLocked = tryLockOfQt(this, timeout);
    __tsan_mutex_post_lock(this, __tsan_mutex_try_lock | (isLocked ? 0 : __tsan_mutex_try_lock_failed), 0);
    return isLocked;
}

void QMutex::unlock() noexcept
{
    static const auto unlockOfQt = next<void(QMutex *)>("_ZN6QMutex6unlockEv");
    __tsan_mutex_pre_unlock(this, 0);
    unlockOfQt(this);
    __tsan_mutex_post_unlock(this, 0);
}
