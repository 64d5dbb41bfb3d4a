#include "scene/SceneFile.h"

#include <algorithm>

namespace host::scene {

const char* const SCENE_FILE_LEAD = "//Tarnwick host scene 1";

namespace {

QString Quoted(QString text)
{
    text.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    text.replace(QLatin1Char('"'), QLatin1String("\\\""));
    text.replace(QLatin1Char('\n'), QLatin1String("\\n"));
    text.replace(QLatin1Char('\r'), QLatin1String("\\r"));
    text.replace(QLatin1Char('\t'), QLatin1String("\\t"));
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString Exact(double number)
{
    return QString::number(number, 'g', 17);
}

QString Joined(const QVector<double>& numbers)
{
    QStringList texts;
    for (const double number : numbers)
        texts += Exact(number);
    return texts.join(QLatin1Char(' '));
}

/// What follows the attribute's name in its statement.
QString ValueText(const Attribute& attribute, const Value& value)
{
    const QString type = QStringLiteral("-type \"%1\" ").arg(QLatin1String(attribute.type->name));
    switch (value.GetKind()) {
    case Value::Kind::Bool: return value.ToBool() ? QStringLiteral("yes") : QStringLiteral("no");
    case Value::Kind::Int: return QString::number(value.ToInt());
    case Value::Kind::Float: return Exact(value.ToFloat());
    case Value::Kind::String: return type + Quoted(value.ToText());
    case Value::Kind::Matrix: return type + Joined(value.Get<Matrix>().cells);
    case Value::Kind::FloatArray:
        return type + QString::number(value.Count()) + QLatin1Char(' ')
            + Joined(value.Get<FloatList>());
    default: break;
    }
    QStringList texts{QString::number(value.Count())};
    for (int i = 0; i < value.Count(); ++i) {
        const Value element = value.At(i);
        if (element.GetKind() == Value::Kind::Vector) {
            const Vector vector = element.ToVector();
            texts += Joined({vector.x, vector.y, vector.z});
        } else {
            texts += element.IsString() ? Quoted(element.ToText()) : element.ToText();
        }
    }
    return type + texts.join(QLatin1Char(' '));
}

QString FlagText(const char* flag, const std::optional<double>& number)
{
    return number ? QStringLiteral(" -%1 %2").arg(QLatin1String(flag), Exact(*number)) : QString();
}

void WriteAttribute(const Attribute& attribute, const QString& node, QString& text)
{
    const AttributeType& type = *attribute.type;
    const bool plainMatrix = qstrcmp(type.name, "fltMatrix") == 0;
    text += QStringLiteral("addAttr -ln %1 -sn %2 -%3 %4")
                .arg(Quoted(attribute.longName), Quoted(attribute.shortName),
                    type.isData ? QStringLiteral("dt") : QStringLiteral("at"),
                    plainMatrix ? QStringLiteral("\"matrix\"") : Quoted(QLatin1String(type.name)));
    if (!attribute.niceName.isEmpty())
        text += QStringLiteral(" -nn ") + Quoted(attribute.niceName);
    if (!attribute.enumNames.isEmpty())
        text += QStringLiteral(" -en ") + Quoted(attribute.enumNames);
    if (!attribute.category.isEmpty())
        text += QStringLiteral(" -ct ") + Quoted(attribute.category);
    if (attribute.type->IsNumeric())
        text += FlagText("dv", attribute.defaultValue.ToFloat());
    text += FlagText("min", attribute.minimum) + FlagText("max", attribute.maximum)
        + FlagText("smn", attribute.softMinimum) + FlagText("smx", attribute.softMaximum);
    if (attribute.isKeyable)
        text += QStringLiteral(" -k 1");
    if (attribute.isHidden)
        text += QStringLiteral(" -h 1");
    if (attribute.isMulti)
        text += QStringLiteral(" -m");
    if (attribute.isColor)
        text += QStringLiteral(" -uac");
    if (type.storage == Storage::Children)
        text += QStringLiteral(" -nc %1").arg(attribute.declaredChildren);
    if (attribute.parent)
        text += QStringLiteral(" -p ") + Quoted(attribute.parent->longName);
    text += QStringLiteral(" %1;\n").arg(Quoted(node));
    for (const auto& child : attribute.children)
        WriteAttribute(*child, node, text);
}

void WriteStates(const Node& node, const QString& name, QString& text)
{
    const auto onOff = [](bool on) { return on ? QStringLiteral("on") : QStringLiteral("off"); };
    const auto& states = node.GetStates();
    for (auto state = states.begin(); state != states.end(); ++state) {
        text += QStringLiteral("setAttr");
        if (state->keyable)
            text += QStringLiteral(" -k ") + onOff(*state->keyable);
        if (state->inChannelBox)
            text += QStringLiteral(" -cb ") + onOff(*state->inChannelBox);
        if (state->locked)
            text += QStringLiteral(" -l on");
        text += QStringLiteral(" %1;\n").arg(Quoted(name + QLatin1Char('.') + state.key()));
    }
    const auto& aliases = node.GetAliases();
    for (auto alias = aliases.begin(); alias != aliases.end(); ++alias) {
        text += QStringLiteral("aliasAttr %1 %2;\n")
                    .arg(Quoted(alias.key()), Quoted(name + QLatin1Char('.') + alias.value()));
    }
}

void WriteNode(const Node& node, QString& text)
{
    const QString name = node.Path();
    if (!node.IsDefault()) {
        text += QStringLiteral("createNode %1 -ss -n %2")
                    .arg(node.GetType().GetName(), Quoted(node.GetName()));
        if (node.GetParent() && !node.IsTopLevel())
            text += QStringLiteral(" -p ") + Quoted(node.GetParent()->Path());
        text += QStringLiteral(";\n");
    }
    for (const auto& attribute : node.GetDynamicAttributes().TopLevel())
        WriteAttribute(*attribute, name, text);
    QStringList keys = node.ValueKeys();
    keys.sort();
    for (const QString& key : qAsConst(keys)) {
        const Plug plug = Plug::FromKey(const_cast<Node&>(node), key);
        const bool kept = plug.IsValid() && plug.attribute->type->storage != Storage::None
            && plug.attribute->isStorable;
        if (kept) {
            text += QStringLiteral("setAttr %1 %2;\n")
                        .arg(Quoted(name + QLatin1Char('.') + key),
                            ValueText(*plug.attribute, *node.FindValue(key)));
        }
    }
}

/// Members are added rather than connected, and so are entries of the lists that every scene has:
/// the places may be taken where this is read.
void WriteConnection(const Connection& connection, QString& text)
{
    const Node& node = *connection.destination;
    const QString& key = connection.destinationKey;
    const QString source = connection.source->Path();
    if (key.contains(QLatin1String("SetMembers["))) {
        const Value* part = node.FindValue(key);
        const QString member = part ? source + QLatin1Char('.') + part->ToText() : source;
        text += QStringLiteral("sets -e -add %1 %2;\n").arg(Quoted(node.Path()), Quoted(member));
        return;
    }
    const bool isEntry = node.IsDefault() && key.endsWith(QLatin1Char(']'));
    if (isEntry && connection.source->IsDefault())
        return;
    text += QStringLiteral("connectAttr %1 %2 %3;\n")
                .arg(isEntry ? QStringLiteral("-na") : QStringLiteral("-f"),
                    Quoted(source + QLatin1Char('.') + connection.sourceKey),
                    Quoted(node.Path() + QLatin1Char('.')
                        + (isEntry ? key.section(QLatin1Char('['), 0, 0) : key)));
}

void WriteConnections(const Node& node, const QSet<const Node*>& written, QString& text)
{
    for (const ConnectionPointer& connection : node.GetIncoming()) {
        if (written.contains(connection->source))
            WriteConnection(*connection, text);
    }
}

void WriteSettings(const Scene& scene, QString& text)
{
    const SceneUnits& units = scene.GetUnits();
    const Playback& playback = scene.GetPlayback();
    text += QStringLiteral("currentUnit -l %1 -a %2 -t %3;\n")
                .arg(units.length, units.angle, units.time);
    text += QStringLiteral("upAxis -ax %1;\n").arg(units.upAxis);
    text += QStringLiteral("playbackOptions -min %1 -max %2 -ast %3 -aet %4 -by %5 -l %6;\n")
                .arg(Exact(playback.minimum), Exact(playback.maximum),
                    Exact(playback.animationStart), Exact(playback.animationEnd),
                    Exact(playback.by), Quoted(playback.loop));
    text += QStringLiteral("currentTime %1;\n").arg(Exact(playback.time));
    for (auto entry = scene.info.begin(); entry != scene.info.end(); ++entry)
        text += QStringLiteral("fileInfo %1 %2;\n").arg(Quoted(entry.key()), Quoted(entry.value()));
    for (const QString& name : scene.Namespaces()) {
        if (name != QLatin1String("UI") && name != QLatin1String("shared"))
            text += QStringLiteral("if (!`namespace -ex %1`) namespace -add %1;\n")
                        .arg(Quoted(name));
    }
}

/// Nodes outside of the hierarchy first, then parents before children.
QVector<Node*> InOrder(const Scene& scene, const QVector<Node*>& only)
{
    QVector<Node*> nodes;
    if (!only.isEmpty()) {
        for (const Node* node : only)
            node->CollectTree(nodes);
        return nodes;
    }
    for (Node* node : scene.Nodes()) {
        if (!node->IsDag())
            nodes += node;
    }
    QVector<Node*> tree;
    scene.Root().CollectTree(tree);
    return nodes + tree.mid(1);
}

} // namespace

QString SceneText(const Scene& scene, const QVector<Node*>& only)
{
    QString text = QLatin1String(SCENE_FILE_LEAD) + QLatin1Char('\n');
    if (only.isEmpty())
        WriteSettings(scene, text);
    const QVector<Node*> nodes = InOrder(scene, only);
    for (const Node* node : nodes)
        WriteNode(*node, text);
    const QSet<const Node*> written(nodes.begin(), nodes.end());
    for (const Node* node : nodes)
        WriteConnections(*node, written, text);
    for (const Node* node : nodes)
        WriteStates(*node, node->Path(), text);
    for (const Node* node : nodes) {
        if (node->IsLocked())
            text += QStringLiteral("lockNode %1;\n").arg(Quoted(node->Path()));
    }
    return text + QStringLiteral("// End of scene\n");
}

} // namespace host::scene
