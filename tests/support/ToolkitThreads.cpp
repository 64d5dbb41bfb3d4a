#include "support/ToolkitThreads.h"

#include <QCoreApplication>
#include <QMutex>
#include <QThread>
#include <QWaitCondition>

#include <dlfcn.h>

// These functions bear the names of the toolkit's own and are found before them. They call the
// toolkit's and tell the sanitizer which order of things between threads that makes sure: that of a
// mutex, and that what happens before an event is sent happens before any event is handled later.
// The second is more than is promised, so that some races go unseen; none is seen that is not
// there.

extern "C" {
void __tsan_acquire(void* address);
void __tsan_release(void* address);
}

namespace {

int channel = 0;

/// The toolkit's function with this mangled name.
template <typename Function>
Function Original(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

/// Holds what is to be called on another thread. Sender and receiver each give it up when they are
/// done, and the later one deletes it: the toolkit counts them unseen.
class Slot : public QtPrivate::QSlotObjectBase
{
public:
    explicit Slot(QSlotObjectBase* called)
        : QSlotObjectBase(&Slot::Do)
        , m_called(called)
    {
        __tsan_release(this);
    }

private:
    static void Do(int operation, QSlotObjectBase* base, QObject* receiver, void** arguments, bool*)
    {
        auto* const slot = static_cast<Slot*>(base);
        __tsan_acquire(slot);
        if (operation == Call) {
            slot->m_called->call(receiver, arguments);
            __tsan_release(slot);
        } else if (operation == Destroy) {
            slot->m_called->destroyIfLastRef();
            delete slot;
        }
    }

    QSlotObjectBase* m_called;
};

} // namespace

ToolkitThreads::EventScope::EventScope()
{
    __tsan_acquire(&channel);
}

ToolkitThreads::EventScope::~EventScope()
{
    __tsan_release(&channel);
}

void QMutex::lock() noexcept
{
    static const auto original = Original<void (*)(QMutex*)>("_ZN6QMutex4lockEv");
    original(this);
    __tsan_acquire(this);
}

bool QMutex::tryLock(int timeout) noexcept
{
    static const auto original = Original<bool (*)(QMutex*, int)>("_ZN6QMutex7tryLockEi");
    const bool locked = original(this, timeout);
    if (locked)
        __tsan_acquire(this);
    return locked;
}

void QMutex::unlock() noexcept
{
    static const auto original = Original<void (*)(QMutex*)>("_ZN6QMutex6unlockEv");
    __tsan_release(this);
    original(this);
}

bool QWaitCondition::wait(QMutex* mutex, unsigned long time)
{
    static const auto original = Original<bool (*)(QWaitCondition*, QMutex*, unsigned long)>(
        "_ZN14QWaitCondition4waitEP6QMutexm");
    __tsan_release(mutex);
    const bool woken = original(this, mutex, time);
    __tsan_acquire(mutex);
    return woken;
}

bool QThread::wait(QDeadlineTimer deadline)
{
    static const auto original
        = Original<bool (*)(QThread*, QDeadlineTimer)>("_ZN7QThread4waitE14QDeadlineTimer");
    const bool ended = original(this, deadline);
    __tsan_acquire(&channel);
    return ended;
}

void QCoreApplication::postEvent(QObject* receiver, QEvent* event, int priority)
{
    static const auto original = Original<void (*)(QObject*, QEvent*, int)>(
        "_ZN16QCoreApplication9postEventEP7QObjectP6QEventi");
    __tsan_release(&channel);
    original(receiver, event, priority);
}

void QMetaObject::activate(QObject* sender, const QMetaObject* type, int signal, void** arguments)
{
    static const auto original = Original<void (*)(QObject*, const QMetaObject*, int, void**)>(
        "_ZN11QMetaObject8activateEP7QObjectPKS_iPPv");
    __tsan_release(&channel);
    original(sender, type, signal, arguments);
}

bool QMetaObject::invokeMethodImpl(
    QObject* object, QtPrivate::QSlotObjectBase* slot, Qt::ConnectionType type, void* result)
{
    static const auto original
        = Original<bool (*)(QObject*, QtPrivate::QSlotObjectBase*, Qt::ConnectionType, void*)>(
            "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14Connec"
            "tionTypeEPv");
    __tsan_release(&channel);
    const bool invoked = original(object, new Slot(slot), type, result);
    __tsan_acquire(&channel);
    return invoked;
}
