#pragma once

#include "commands/Conditions.h"
#include "commands/Deferred.h"
#include "commands/HelpRequests.h"
#include "commands/HistoryFile.h"
#include "commands/Hotkeys.h"
#include "commands/OpenFiles.h"
#include "commands/Project.h"
#include "commands/Random.h"
#include "commands/RunTimeCommands.h"
#include "commands/ScriptJobs.h"
#include "commands/scene/Expressions.h"
#include "commands/scene/KeySettings.h"
#include "commands/scene/Player.h"
#include "engine/Value.h"
#include "scene/Scene.h"

#include <QElapsedTimer>
#include <QMap>
#include <QStringList>

#include <memory>
#include <optional>

namespace host::commands {

/// What the commands remember between two calls. Owned by the engine, made by RegisterCommands;
/// main thread only.
class Session
{
public:
    explicit Session(Engine& engine);

    static Session& Current();

    /// Since the session began.
    double Seconds() const { return m_clock.nsecsElapsed() / 1e9; }

    scene::Scene scene; ///< goes last: the jobs wait for what happens in it
    Random random;
    OpenFiles files;
    QHash<QString, double> timers; ///< when each was started, see Seconds
    QMap<QString, std::optional<QStringList>> intersections; ///< none: no array was given yet
    QMap<QString, QString> displayStrings;
    QMap<QString, Value> stashedOptions;
    QMap<QString, Value> optionDefaults;
    QMap<QString, QString> optionCategories;
    Deferred deferred;
    Expressions expressions;
    HelpRequests helpRequests;
    HistoryFile historyFile;
    Hotkeys hotkeys;
    KeySettings keys;
    Project project;
    RunTimeCommands runTimeCommands;
    Player player;
    Conditions conditions;
    std::unique_ptr<ScriptJobs> scriptJobs;
    /// Draws the view into a file; set by whoever shows one. False when it could not.
    std::function<bool(const QString& path, const QString& format)> drawView;
    int waitCursors = 0; ///< requests not yet taken back
    bool suppressStackWindow = false; ///< kept for those who ask: there is no such window here
    bool refreshSuspended = false;

private:
    QElapsedTimer m_clock;
};

} // namespace host::commands
