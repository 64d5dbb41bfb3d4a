#pragma once

#include "engine/IdleQueue.h"
#include "engine/Script.h"

#include <QStringList>

#include <memory>
#include <vector>

namespace host::commands {

/// The scripts that `evalDeferred` has put off and that did not run yet. What is left when it goes
/// never runs. Main thread only.
class Deferred
{
public:
    enum class Place { Next, Low, Lowest };

    void Add(const Script& script, Place place);
    /// Their texts, oldest first.
    QStringList Texts() const;

private:
    std::vector<std::shared_ptr<Script>> m_waiting;
};

} // namespace host::commands
