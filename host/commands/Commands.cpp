#include "commands/Commands.h"

#include "commands/PluginPreferences.h"
#include "commands/Session.h"
#include "commands/Tables.h"
#include "commands/scene/RigTables.h"
#include "commands/scene/SceneCommands.h"
#include "engine/Engine.h"

#include <QFileInfo>

namespace host::commands {

namespace {

/// What the user kept of earlier sessions.
void ReadPreferences(Engine& engine)
{
    const QString problem = ReadPluginPreferences(engine);
    if (!problem.isEmpty())
        engine.output.Warning(problem);
    const QString runTimeCommands = Session::Current().runTimeCommands.FilePath();
    if (engine.mel && QFileInfo(runTimeCommands).isFile())
        engine.mel->RunFile(runTimeCommands);
    Session::Current().hotkeys.Read();
}

} // namespace

void RegisterCommands(Engine& engine)
{
    engine.commandState = std::make_shared<Session>(engine);
    void (*const themes[])(CommandRegistry&) = {
        RegisterAbout,
        RegisterArrays,
        RegisterConditions,
        RegisterDisplayStrings,
        RegisterFileSystem,
        RegisterFiles,
        RegisterHelp,
        RegisterHotkeys,
        RegisterIntrospection,
        RegisterMathematics,
        RegisterModules,
        RegisterOptionVar,
        RegisterOutput,
        RegisterPlugins,
        RegisterRunTimeCommands,
        RegisterSceneAttributes,
        RegisterSceneAttributeEditing,
        RegisterSceneChains,
        RegisterSceneConnections,
        RegisterSceneDeformers,
        RegisterSceneDisplay,
        RegisterSceneExpressions,
        RegisterSceneFiles,
        RegisterSceneHierarchy,
        RegisterSceneDrivenKeys,
        RegisterSceneKeyCopies,
        RegisterSceneKeys,
        RegisterSceneLayers,
        RegisterSceneLists,
        RegisterSceneMeasures,
        RegisterSceneNamespaces,
        RegisterSceneNodes,
        RegisterScenePlay,
        RegisterScenePlayback,
        RegisterScenePrimitives,
        RegisterSceneSelection,
        RegisterSceneSets,
        RegisterSceneSkins,
        RegisterSceneTangents,
        RegisterSceneTransforms,
        RegisterScriptJobs,
        RegisterStrings,
        RegisterSystem,
        RegisterTime,
        RegisterVectors,
        RegisterWorkspace,
    };
    for (const auto theme : themes)
        theme(engine.commands);
    ReadPreferences(engine);
}

void ReleaseCommands(Engine& engine)
{
    engine.commandState = std::make_shared<Session>(engine);
}

} // namespace host::commands
