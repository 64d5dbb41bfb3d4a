#include "api/Callbacks.h"

#include <QElapsedTimer>
#include <QThread>

#include <algorithm>
#include <dlfcn.h>
#include <link.h>
#include <vector>

namespace host::api {

namespace {

/// A callback that waits for the thread which removes it must not hold that up for ever.
constexpr qint64 MAXIMUM_WAIT_MS = 2000;

thread_local std::vector<const Callback*> callbacksOfThread;

/// Waits until no other thread is inside the callback; false when one stays there.
bool AwaitOtherThreads(const Callback& callback)
{
    const auto own = std::count(callbacksOfThread.begin(), callbacksOfThread.end(), &callback);
    QElapsedTimer elapsed;
    elapsed.start();
    while (callback.running > own && elapsed.elapsed() < MAXIMUM_WAIT_MS)
        QThread::yieldCurrentThread();
    return callback.running <= own;
}

} // namespace

std::shared_ptr<Callback> Callbacks::Make(const void* function)
{
    auto callback = std::make_shared<Callback>();
    callback->library = LibraryOf(function);
    const QMutexLocker lock(&m_mutex);
    callback->id = ++m_lastId;
    return callback;
}

void Callbacks::Keep(const std::shared_ptr<Callback>& callback, std::function<void()> unregister)
{
    const QMutexLocker lock(&m_mutex);
    callback->unregister = std::move(unregister);
    m_callbacks.emplace(callback->id, callback);
}

std::shared_ptr<Callback> Callbacks::Take(MCallbackId id)
{
    const QMutexLocker lock(&m_mutex);
    const auto found = m_callbacks.find(id);
    if (found == m_callbacks.end())
        return nullptr;
    std::shared_ptr<Callback> callback = std::move(found->second);
    m_callbacks.erase(found);
    return callback;
}

void Callbacks::Detach(const std::shared_ptr<Callback>& callback)
{
    callback->removed = true;
    callback->unregister();
    if (!AwaitOtherThreads(*callback)) {
        const QMutexLocker lock(&m_mutex);
        m_stuck.push_back(callback);
    }
}

MStatus Callbacks::Remove(MCallbackId id)
{
    if (const std::shared_ptr<Callback> callback = Take(id)) {
        Detach(callback);
        return MS::kSuccess;
    }
    const QMutexLocker lock(&m_mutex);
    return id > 0 && id <= m_lastId ? MS::kFailure : MS::kInvalidParameter;
}

int Callbacks::RemoveOf(const void* library)
{
    std::vector<MCallbackId> ids;
    {
        const QMutexLocker lock(&m_mutex);
        for (const auto& [id, callback] : m_callbacks) {
            if (callback->library == library)
                ids.push_back(id);
        }
    }
    for (const MCallbackId id : ids)
        Remove(id);
    return static_cast<int>(ids.size());
}

bool Callbacks::IsRunning(const void* library) const
{
    return std::any_of(callbacksOfThread.begin(), callbacksOfThread.end(),
        [library](const Callback* callback) { return callback->library == library; });
}

bool Callbacks::IsStuck(const void* library) const
{
    const QMutexLocker lock(&m_mutex);
    return std::any_of(m_stuck.begin(), m_stuck.end(), [library](const auto& callback) {
        return callback->library == library && callback->running > 0;
    });
}

void Callbacks::Clear()
{
    std::map<MCallbackId, std::shared_ptr<Callback>> callbacks;
    {
        const QMutexLocker lock(&m_mutex);
        callbacks.swap(m_callbacks);
    }
    for (const auto& entry : callbacks)
        Detach(entry.second);
}

const void* Callbacks::LibraryOf(const void* function)
{
    Dl_info information;
    void* library = nullptr;
    return dladdr1(function, &information, &library, RTLD_DL_LINKMAP) ? library : nullptr;
}

MCallbackId Callbacks::Current()
{
    return callbacksOfThread.empty() ? 0 : callbacksOfThread.back()->id;
}

CallbackScope::CallbackScope(Callback& callback)
    : m_callback(callback)
{
    ++callback.running;
    callbacksOfThread.push_back(&callback);
}

CallbackScope::~CallbackScope()
{
    callbacksOfThread.pop_back();
    --m_callback.running;
}

} // namespace host::api
