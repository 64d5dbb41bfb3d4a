#include "commands/Session.h"
#include "engine/Engine.h"
#include "ui/commands/Tables.h"

namespace host::ui {

namespace {

/// Greys its element while a condition has that state. Belongs to the element.
class DimLink : public QObject
{
public:
    DimLink(Element& element, const QString& condition, bool dimmedState)
        : QObject(&element)
        , m_element(element)
        , m_session(Engine::Current().commandState)
    {
        setObjectName(condition);
        commands::Conditions& conditions = commands::Session::Current().conditions;
        m_id = conditions.Watch(
            condition, [this, dimmedState](bool state) { Apply(state != dimmedState); });
        Apply(conditions.IsTrue(condition) != dimmedState);
    }
    ~DimLink() override
    {
        const std::shared_ptr<void> session = m_session.lock();
        if (session && Engine::Exists() && session == Engine::Current().commandState)
            commands::Session::Current().conditions.Unwatch(m_id);
    }

private:
    void Apply(bool enabled)
    {
        if (QWidget* widget = m_element.GetWidget())
            widget->setEnabled(enabled);
        if (QAction* action = m_element.GetAction())
            action->setEnabled(enabled);
    }

    Element& m_element;
    std::weak_ptr<void> m_session; ///< the conditions go with it
    int m_id = 0;
};

Outcome DimWhen(Call& call)
{
    const bool clears = call.Has("clear");
    const QString condition = call.ObjectText();
    const QString name = call.ObjectText(1);
    if (!commands::Session::Current().conditions.Contains(condition))
        return Error{QStringLiteral("Unknown condition: '%1'.").arg(condition)};
    Element* element = nullptr;
    const Outcome found = FindElement(name, ANY_KIND, element);
    if (!found.Ok())
        return found;
    delete element->findChild<DimLink*>(condition, Qt::FindDirectChildrenOnly);
    if (!clears)
        new DimLink(*element, condition, call.Has("true"));
    return {};
}

const CommandRow COMMANDS[] = {
    {"dimWhen", "none", "", "String String", "clear/c - c; false/f - c; true/t - c", DimWhen},
};

} // namespace

void RegisterDimWhen(CommandRegistry& commands)
{
    commands.Register(COMMANDS);
}

} // namespace host::ui
