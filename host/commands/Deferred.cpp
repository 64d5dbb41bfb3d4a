#include "commands/Deferred.h"

#include "engine/Engine.h"

#include <algorithm>

namespace host::commands {

void Deferred::Add(const Script& script, Place place)
{
    m_waiting.push_back(std::make_shared<Script>(script));
    // Only this list keeps the script: a callable must not outlive its interpreter in the queue.
    const std::weak_ptr<Script> waiting = m_waiting.back();
    const auto run = [this, waiting] {
        const std::shared_ptr<Script> taken = waiting.lock();
        if (!taken)
            return;
        m_waiting.erase(std::find(m_waiting.begin(), m_waiting.end(), taken));
        taken->Run();
    };
    IdleQueue& idle = Engine::Current().idle;
    if (place == Place::Next)
        idle.PostNext(run);
    else
        idle.Post(run, place == Place::Low ? IdlePriority::Low : IdlePriority::VeryLow);
}

QStringList Deferred::Texts() const
{
    QStringList texts;
    for (const auto& script : m_waiting)
        texts += script->Description();
    return texts;
}

} // namespace host::commands
