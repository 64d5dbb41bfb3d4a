#pragma once

#include "engine/Call.h"
#include "engine/CommandRegistry.h"
#include "scene/Scene.h"

namespace host::commands {

// What the commands that work on the scene share: how they find what they are asked about, how
// they say that it is not there, and how what they do can be taken back.

/// Items that names mean, or why they mean none.
struct FoundItems
{
    QVector<scene::Item> items;
    std::optional<Error> error;

    /// The nodes of the items, each once, in order.
    QVector<scene::Node*> Nodes() const;
};

struct FoundPlug
{
    scene::Plug plug;
    std::optional<Error> error;
};

Error NoMatch(const QString& name);
Error NothingSelected();

/// Everything that one name, pattern, attribute or component means. Empty when there is nothing.
QVector<scene::Item> FindItems(const QString& text, bool everyNamespace = false);
/// The same for several names; a name that means nothing, or a plain name that means several
/// things, is an error.
FoundItems FindAll(const QStringList& names);
/// The objects of the call; without any, what is selected. An error when that is nothing, too.
FoundItems Targets(const Call& call);
FoundItems Targets(const QStringList& names);
/// Attributes that "box.tx" means; a transform answers for its shape, too. FindPlug wants just one.
FoundPlug FindPlug(const QString& text);
QVector<scene::Plug> FindPlugs(const QString& text);

/// Name for a new node: the one of the flag "name" or, without it, `usual` counted up to one that
/// nobody bears.
struct NewName
{
    QString name;
    std::optional<Error> error;
};
NewName NameFor(const Call& call, const QString& usual);
NewName NameFor(const QString& wanted, const QString& usual);
/// "pCube1" has the shape "pCubeShape1".
QString ShapeName(const QString& transform);

QStringList DisplayNames(const QVector<scene::Node*>& nodes, bool fullPath = false);
void SelectNodes(const QVector<scene::Node*>& nodes);
/// The leading numbers of the objects, and what follows them as text.
struct NumbersAndNames
{
    QVector<double> numbers;
    QStringList names;
};
NumbersAndNames SplitNumbers(const Call& call);

/// Registers a command whose changes are one step to undo; if it fails it changes nothing.
void RegisterSceneCommand(
    CommandRegistry& registry, const CommandRow& row, const char* sharedFlags = nullptr);
template <size_t N>
void RegisterSceneCommands(CommandRegistry& registry, const CommandRow (&rows)[N])
{
    for (const CommandRow& row : rows)
        RegisterSceneCommand(registry, row);
}

// Each theme's file ends in its tables and registers them here.
void RegisterSceneAttributes(CommandRegistry& registry);
void RegisterSceneAttributeEditing(CommandRegistry& registry);
void RegisterSceneConnections(CommandRegistry& registry);
void RegisterSceneDeformers(CommandRegistry& registry);
void RegisterSceneDisplay(CommandRegistry& registry);
void RegisterSceneExpressions(CommandRegistry& registry);
void RegisterSceneFiles(CommandRegistry& registry);
void RegisterSceneHierarchy(CommandRegistry& registry);
void RegisterSceneDrivenKeys(CommandRegistry& registry);
void RegisterSceneKeyCopies(CommandRegistry& registry);
void RegisterSceneKeys(CommandRegistry& registry);
void RegisterSceneLists(CommandRegistry& registry);
void RegisterSceneNamespaces(CommandRegistry& registry);
void RegisterSceneNodes(CommandRegistry& registry);
void RegisterScenePlay(CommandRegistry& registry);
void RegisterScenePlayback(CommandRegistry& registry);
void RegisterScenePrimitives(CommandRegistry& registry);
void RegisterSceneSelection(CommandRegistry& registry);
void RegisterSceneSets(CommandRegistry& registry);
void RegisterSceneSkins(CommandRegistry& registry);
void RegisterSceneTangents(CommandRegistry& registry);
void RegisterSceneTransforms(CommandRegistry& registry);

} // namespace host::commands
