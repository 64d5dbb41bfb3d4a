#include "api/UiTypes.h"

#include "api/Callbacks.h"
#include "api/Guard.h"
#include "api/PluginRecord.h"
#include "api/Session.h"
#include "engine/Engine.h"

#include <QWidget>

namespace host::api {

namespace {

const char* const FLAGS = "annotation/ann str cqe; enable/en B cqe; exists/ex - cq;"
                          "fullPathName/fpn - q; height/h int cqe; parent/p str c;"
                          "visible/vis B cqe; width/w int cqe";

struct PropertyRow
{
    const char* flag;
    Value (*get)(const QWidget&);
    void (*set)(QWidget&, const Value&);
};

// clang-format off
const PropertyRow PROPERTIES[] = {
    {"annotation", [](const QWidget& w) { return Value(w.toolTip()); },
                   [](QWidget& w, const Value& value) { w.setToolTip(value.ToText()); }},
    {"enable",     [](const QWidget& w) { return Value(w.isEnabled()); },
                   [](QWidget& w, const Value& value) { w.setEnabled(value.ToBool()); }},
    {"height",     [](const QWidget& w) { return Value(w.height()); },
                   [](QWidget& w, const Value& value) { w.setFixedHeight(qMax(value.ToInt(), 0)); }},
    {"visible",    [](const QWidget& w) { return Value(!w.isHidden()); },
                   [](QWidget& w, const Value& value) { w.setVisible(value.ToBool()); }},
    {"width",      [](const QWidget& w) { return Value(w.width()); },
                   [](QWidget& w, const Value& value) { w.setFixedWidth(qMax(value.ToInt(), 0)); }},
};
// clang-format on

Outcome Query(const Call& call, const QWidget& widget)
{
    if (call.Has("fullPathName"))
        return Engine::Current().ui->FullName(&widget);
    for (const PropertyRow& row : PROPERTIES) {
        if (call.Has(row.flag))
            return row.get(widget);
    }
    return Error{QStringLiteral("%1: the query needs a flag.").arg(call.GetCommand().GetName())};
}

void Apply(const Call& call, QWidget& widget)
{
    for (const PropertyRow& row : PROPERTIES) {
        if (call.Has(row.flag))
            row.set(widget, call.Argument(row.flag));
    }
}

QString FreeName(const UserInterface& ui, const QString& stem)
{
    int number = 1;
    while (ui.FindControl(stem + QString::number(number), nullptr))
        ++number;
    return stem + QString::number(number);
}

} // namespace

UiType::UiType(const QString& name, MQtUtil::UITypeCreatorFn create, const QString& command,
    std::shared_ptr<PluginRecord> record)
    : m_name(name)
    , m_create(create)
    , m_command(command)
    , m_record(std::move(record))
{ }

bool UiType::Register(const std::shared_ptr<UiType>& type)
{
    Engine& engine = Engine::Current();
    QHash<QString, QString>& types = Session::Current().uiTypes;
    if (engine.commands.Contains(type->m_command) || types.contains(type->m_name))
        return false;
    auto entry = std::make_unique<Command>(
        type->m_command, CommandOrigin::PlugIn, [type](Call& call) { return type->Run(call); });
    entry->SetModes(true, true);
    entry->SetObjects(ReadObjects("[String]"));
    for (const Flag& flag : ReadFlags(FLAGS))
        entry->AddFlag(flag);
    if (type->m_record) {
        entry->owner = type->m_record->plugin->name;
        type->m_record->uiTypes += type->m_name;
    }
    types.insert(type->m_name, type->m_command);
    return engine.commands.Register(std::move(entry));
}

bool UiType::Deregister(const QString& name)
{
    const QString command = Session::Current().uiTypes.take(name);
    const auto entry = Engine::Current().commands.FindCommand(command);
    if (!entry)
        return false;
    const Plugin* owner = Engine::Current().plugins.Find(entry->owner);
    if (const auto record = Session::Current().FindPlugin(owner))
        record->uiTypes.removeAll(name);
    return Engine::Current().commands.Unregister(command);
}

Outcome UiType::Run(const Call& call) const
{
    const UserInterface* ui = Engine::Current().ui;
    if (!ui)
        return Error{QStringLiteral("%1 needs the host's windows.").arg(m_command)};
    const QString name = call.ObjectText();
    QWidget* widget = name.isEmpty() ? nullptr : ui->FindControl(name, nullptr);
    if (call.Has("exists"))
        return widget != nullptr;
    if (call.IsCreate())
        return Make(call);
    if (!widget)
        return Error{QStringLiteral("Object '%1' not found.").arg(name)};
    if (call.IsQuery())
        return Query(call, *widget);
    Apply(call, *widget);
    return {};
}

Outcome UiType::Make(const Call& call) const
{
    UserInterface* ui = Engine::Current().ui;
    QWidget* parent
        = call.Has("parent") ? ui->FindLayout(call.Text("parent"), nullptr) : ui->CurrentParent();
    if (!parent && call.Has("parent"))
        return Error{QStringLiteral("Object '%1' not found.").arg(call.Text("parent"))};
    if (!parent) {
        return Error{
            QStringLiteral("No current window or layout: make one first, or use -parent.")};
    }
    const QString given = call.ObjectText();
    const QString name = given.isEmpty() ? FreeName(*ui, m_command) : given;
    QWidget* widget = nullptr;
    {
        const PluginScope inPlugin(m_record);
        CallGuarded(m_command, [&] { widget = m_create(parent, name); });
    }
    if (!widget)
        return Error{QStringLiteral("%1 made no control.").arg(m_command)};
    if (widget->objectName().isEmpty())
        widget->setObjectName(name);
    if (m_record)
        m_record->controls += QPointer<QObject>(widget);
    Apply(call, *widget);
    return ui->AddWidget(widget, parent, m_name);
}

} // namespace host::api

OPENMAYA_MAJOR_NAMESPACE_OPEN

bool MQtUtil::registerUIType(
    const MString& name, MQtUtil::UITypeCreatorFn creator, const MString& command)
{
    using host::api::Callbacks;
    const QString type = toQString(name);
    const QString commandName = toQString(command);
    if (type.isEmpty() || commandName.isEmpty() || !creator || !host::Engine::Exists()
        || !host::Engine::Current().IsMainThread())
        return false;
    const void* library = Callbacks::LibraryOf(reinterpret_cast<const void*>(creator));
    return host::api::UiType::Register(std::make_shared<host::api::UiType>(
        type, creator, commandName, host::api::Session::Current().FindLibrary(library)));
}

bool MQtUtil::deregisterUIType(const MString& name)
{
    return host::Engine::Exists() && host::api::UiType::Deregister(toQString(name));
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
