#include "ui/commands/Tables.h"
#include "ui/commands/Templates.h"

namespace host::ui {

namespace {

/// What a template holds: by type of element, the call that named its flags. A child of the
/// template's element.
class TemplateRecord : public QObject
{
public:
    using QObject::QObject;

    QHash<QString, Call> calls;
};

/// The names given by setUITemplate, the current one last. They go with the model they name
/// elements of.
class TemplateStack : public QObject
{
public:
    using QObject::QObject;

    QStringList names;
};

TemplateStack& Stack()
{
    static QPointer<TemplateStack> stack;
    if (!stack)
        stack = new TemplateStack(&InterfaceModel::Current());
    return *stack;
}

TemplateRecord* FindRecord(const QString& name)
{
    const Element* element = InterfaceModel::Current().Find(name, TemplateKind);
    if (!element)
        return nullptr;
    return static_cast<TemplateRecord*>(element->children().value(0));
}

bool Knows(const Call& call, const char* flag)
{
    return call.GetCommand().FindFlag(QString::fromLatin1(flag)) != nullptr;
}

void MakeTemplate(Element& element, const Call&)
{
    new TemplateRecord(&element);
}

Outcome NoParent(const Call&, Element*& parent)
{
    parent = nullptr;
    return {};
}

Outcome SetTemplate(Call& call)
{
    QStringList& names = Stack().names;
    if (call.IsQuery())
        return names.isEmpty() ? QString() : names.last();
    if (call.Has("popTemplate")) {
        if (names.isEmpty())
            return Error{QStringLiteral("There is no template to go back from.")};
        names.removeLast();
        return names.isEmpty() ? QString() : names.last();
    }
    const QString name = call.Has("pushTemplate") ? call.Text("pushTemplate") : call.ObjectText();
    if (!name.isEmpty() && !FindRecord(name))
        return Error{InterfaceModel::NotFound(name)};
    if (!call.Has("pushTemplate") && !names.isEmpty())
        names.removeLast();
    names += name;
    return name;
}

// clang-format off
const ControlRow ROWS[] = {
    {"uiTemplate", TemplateKind, MakeTemplate, {}, "exists/ex - cq;", nullptr, NoParent, CommonFlags::None},
};

const CommandRow COMMANDS[] = {
    {"setUITemplate", "string", "Q", "[String]", "popTemplate/ppt - c; pushTemplate/pst str cq", SetTemplate},
};
// clang-format on

} // namespace

Outcome DefineTemplate(const Call& call)
{
    const QString name = call.Text("defineTemplate");
    TemplateRecord* record = FindRecord(name);
    if (!record)
        return Error{InterfaceModel::NotFound(name)};
    record->calls.insert(call.GetCommand().GetName(), call);
    return name;
}

QVector<Call> TemplateCalls(const Call& call)
{
    QVector<Call> calls;
    if (!Knows(call, "useTemplate"))
        return calls;
    QStringList names = Stack().names.mid(Stack().names.size() - 1);
    if (call.Has("useTemplate"))
        names += call.Text("useTemplate");
    for (const QString& name : qAsConst(names)) {
        const TemplateRecord* record = FindRecord(name);
        if (record && record->calls.contains(call.GetCommand().GetName()))
            calls += record->calls.value(call.GetCommand().GetName());
    }
    return calls;
}

void MakeHostTemplates()
{
    for (const char* name : {"DefaultTemplate", "OptionsTemplate", "AttrEdTemplate", "NONE"}) {
        Element* element = InterfaceModel::Current().Create(
            TemplateKind, QStringLiteral("uiTemplate"), QString::fromLatin1(name), nullptr);
        new TemplateRecord(element);
    }
}

void RegisterTemplateCommands(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
    commands.Register(COMMANDS);
}

} // namespace host::ui
