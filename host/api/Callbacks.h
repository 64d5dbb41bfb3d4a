#pragma once

#include <maya/MMessage.h>

#include <QMutex>

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace host::api {

/// One registered callback. Lives on while it runs, even when it is removed meanwhile.
struct Callback
{
    MCallbackId id = 0;
    const void* library = nullptr; ///< the loader's name for the file that holds its function
    std::atomic<bool> removed{false};
    std::atomic<int> running{0}; ///< on all threads together
    std::function<void()> unregister;
};

/// The callbacks that plug-ins have registered with the host. Safe from any thread.
class Callbacks
{
public:
    /// A callback for `function`, to be handed to Keep once the engine knows it.
    std::shared_ptr<Callback> Make(const void* function);
    void Keep(const std::shared_ptr<Callback>& callback, std::function<void()> unregister);

    /// Afterwards the callback will not run again, and runs no more except on this thread's own
    /// stack or where it is stuck.
    MStatus Remove(MCallbackId id);
    /// Removes all whose function is in the library; how many there were.
    int RemoveOf(const void* library);
    /// On this thread's stack.
    bool IsRunning(const void* library) const;
    /// On another thread, from which it did not come back in time when it was removed.
    bool IsStuck(const void* library) const;
    void Clear();

    /// The library that a function belongs to, as the loader of the process knows it.
    static const void* LibraryOf(const void* function);
    static MCallbackId Current();

private:
    std::shared_ptr<Callback> Take(MCallbackId id);
    void Detach(const std::shared_ptr<Callback>& callback);

    mutable QMutex m_mutex;
    std::map<MCallbackId, std::shared_ptr<Callback>> m_callbacks;
    std::vector<std::shared_ptr<Callback>> m_stuck;
    MCallbackId m_lastId = 0;
};

/// Held while a callback's function is called; says whether it may be.
class CallbackScope
{
public:
    explicit CallbackScope(Callback& callback);
    ~CallbackScope();
    CallbackScope(const CallbackScope&) = delete;
    CallbackScope& operator=(const CallbackScope&) = delete;

    bool MayRun() const { return !m_callback.removed; }

private:
    Callback& m_callback;
};

} // namespace host::api
