#pragma once

#include "commands/OpenFiles.h"
#include "commands/Random.h"

#include <QElapsedTimer>
#include <QMap>
#include <QStringList>

#include <optional>

namespace host::commands {

/// What the commands remember between two calls. Owned by the engine, made by RegisterCommands;
/// main thread only.
class Session
{
public:
    Session() { m_clock.start(); }

    static Session& Current();

    /// Since the session began.
    double Seconds() const { return m_clock.nsecsElapsed() / 1e9; }

    Random random;
    OpenFiles files;
    QHash<QString, double> timers; ///< when each was started, see Seconds
    QMap<QString, std::optional<QStringList>> intersections; ///< none: no array was given yet

private:
    QElapsedTimer m_clock;
};

} // namespace host::commands
