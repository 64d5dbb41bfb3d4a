#include "commands/scene/SceneCommands.h"

#include "commands/Patterns.h"
#include "engine/Engine.h"
#include "scene/Components.h"

#include <QRegularExpression>

namespace host::commands {

using namespace scene;

namespace {

/// The call as a person would type it.
QString Typed(const Call& call)
{
    QString text = call.GetCommand().GetName();
    for (const Word& word : call.GetWords()) {
        const QString typed
            = word.value.IsArray() ? word.value.ToTextList().join(QLatin1Char(' ')) : word.Text();
        text += QLatin1Char(' ') + typed;
    }
    return text;
}

/// Where the name ends and an attribute or component begins; -1 for a name alone.
int PartDot(const QString& text)
{
    return text.indexOf(QLatin1Char('.'), text.lastIndexOf(QLatin1Char('|')) + 1);
}

QVector<Plug> PlugsOf(Node& node, const QString& path)
{
    QVector<Plug> plugs;
    if (!path.contains(QLatin1Char('*')) && !path.contains(QLatin1Char('?'))) {
        const Plug plug = Plug::Find(node, path);
        if (plug.IsValid())
            plugs += plug;
        return plugs;
    }
    const QRegularExpression expression = ShellExpression(path);
    for (const Attribute* attribute : node.AllAttributes()) {
        if (expression.match(attribute->longName).hasMatch())
            plugs += Plug::Find(node, attribute->longName);
    }
    return plugs;
}

/// A transform answers for its shape's attributes, too.
QVector<Plug> PlugsOfObject(Node& node, const QString& path)
{
    QVector<Plug> plugs = PlugsOf(node, path);
    if (!plugs.isEmpty() || !node.GetType().IsTransform())
        return plugs;
    for (Node* shape : node.Shapes()) {
        plugs = PlugsOf(*shape, path);
        if (!plugs.isEmpty())
            break;
    }
    return plugs;
}

/// ".tx" is the attribute of what is selected.
QVector<Node*> NodesOf(const QString& name, bool everyNamespace)
{
    const Scene& scene = Scene::Current();
    if (!name.isEmpty())
        return scene.Find(name, everyNamespace);
    QVector<Node*> nodes;
    if (!scene.Selection().isEmpty())
        nodes += scene.Selection().first().node.get();
    return nodes;
}

bool IsPattern(const QString& text)
{
    return text.contains(QLatin1Char('*')) || text.contains(QLatin1Char('?'));
}

Error Ambiguous(const QString& name)
{
    return {QStringLiteral("More than one object matches name: %1").arg(name), ErrorKind::Value};
}

} // namespace

Error NoMatch(const QString& name)
{
    return {QStringLiteral("No object matches name: %1").arg(name), ErrorKind::Value};
}

Error NothingSelected()
{
    return {QStringLiteral("Nothing is selected.")};
}

QVector<Node*> FoundItems::Nodes() const
{
    QVector<Node*> nodes;
    QSet<Node*> known;
    for (const Item& item : items) {
        if (!known.contains(item.node.get()))
            nodes += item.node.get();
        known.insert(item.node.get());
    }
    return nodes;
}

QVector<Item> FindItems(const QString& text, bool everyNamespace)
{
    QVector<Item> items;
    const int dot = PartDot(text);
    for (Node* node : NodesOf(text.left(dot), everyNamespace)) {
        if (dot < 0) {
            items += Item{node->shared_from_this(), {}, false};
            continue;
        }
        const QString path = text.mid(dot + 1);
        for (const Plug& plug : PlugsOfObject(*node, path))
            items += Item{plug.node->shared_from_this(), plug.key, false};
        const QString component = LegalComponent(Scene::Current(), *node, path);
        if (!component.isEmpty())
            items += Item{node->shared_from_this(), component, true};
    }
    return items;
}

FoundItems FindAll(const QStringList& names)
{
    FoundItems found;
    for (const QString& name : names) {
        const QVector<Item> items = FindItems(name);
        if (items.isEmpty())
            found.error = NoMatch(name);
        else if (items.size() > 1 && !IsPattern(name))
            found.error = Ambiguous(name);
        if (found.error)
            return found;
        found.items += items;
    }
    return found;
}

FoundItems Targets(const QStringList& names)
{
    if (!names.isEmpty())
        return FindAll(names);
    FoundItems found;
    found.items = Scene::Current().Selection();
    if (found.items.isEmpty())
        found.error = NothingSelected();
    return found;
}

FoundItems Targets(const Call& call)
{
    return Targets(call.ObjectTexts());
}

QVector<Plug> FindPlugs(const QString& text)
{
    QVector<Plug> plugs;
    const int dot = PartDot(text);
    if (dot < 0)
        return plugs;
    for (Node* node : NodesOf(text.left(dot), false))
        plugs += PlugsOfObject(*node, text.mid(dot + 1));
    return plugs;
}

FoundPlug FindPlug(const QString& text)
{
    const QVector<Plug> plugs = FindPlugs(text);
    if (plugs.isEmpty())
        return {{}, NoMatch(text)};
    if (plugs.size() > 1)
        return {{}, Ambiguous(text)};
    return {plugs.first(), std::nullopt};
}

NewName NameFor(const QString& wanted, const QString& usual)
{
    const NameIndex& names = Scene::Current().Names();
    if (wanted.isEmpty())
        return {names.UnusedName(usual), std::nullopt};
    QString name = wanted;
    // "#" asks for the next free number.
    const bool numbered = name.endsWith(QLatin1Char('#'));
    if (numbered)
        name = name.left(name.size() - 1) + QLatin1Char('1');
    name = NameIndex::LegalName(name);
    if (name.isEmpty())
        return {{}, Error{QStringLiteral("New name has no legal characters.")}};
    return {numbered ? names.UnusedName(name) : name, std::nullopt};
}

NewName NameFor(const Call& call, const QString& usual)
{
    return NameFor(call.Text("name"), usual);
}

QString ShapeName(const QString& transform)
{
    int end = transform.size();
    while (end > 0 && transform.at(end - 1).isDigit())
        --end;
    return transform.left(end) + QLatin1String("Shape") + transform.mid(end);
}

QStringList DisplayNames(const QVector<Node*>& nodes, bool fullPath)
{
    QStringList names;
    names.reserve(nodes.size());
    for (const Node* node : nodes)
        names += fullPath ? node->Path() : Scene::Current().DisplayName(*node);
    return names;
}

void SelectNodes(const QVector<Node*>& nodes)
{
    QVector<Item> items;
    for (Node* node : nodes)
        items += Item{node->shared_from_this(), {}, false};
    Scene::Current().Select(items);
}

NumbersAndNames SplitNumbers(const Call& call)
{
    static const QRegularExpression measure(
        QStringLiteral("^[-+]?[0-9.]+(e[-+]?[0-9]+)?(mm|cm|m|in|ft|yd|deg|rad)?$"));
    NumbersAndNames split;
    for (const Value& object : call.GetObjects()) {
        const bool isNumber = object.IsNumber() || measure.match(object.ToText()).hasMatch();
        if (isNumber && split.names.isEmpty())
            split.numbers += object.ToFloat();
        else
            split.names += object.ToText();
    }
    return split;
}

void RegisterSceneCommand(CommandRegistry& registry, const CommandRow& row, const char* sharedFlags)
{
    auto command = std::make_unique<Command>(row, sharedFlags);
    command->handler = [run = row.run](Call& call) {
        Journal& journal = Scene::Current().journal;
        const size_t mark = journal.Mark();
        journal.Begin();
        const Outcome outcome = run(call);
        if (!outcome.Ok())
            journal.RollBack(mark);
        const QString name = journal.Mark() > mark ? Typed(call) : QString();
        if (std::unique_ptr<UndoStep> step = journal.End(name))
            Engine::Current().undoQueue.Add(std::move(step));
        return outcome;
    };
    registry.Register(std::move(command));
}

} // namespace host::commands
