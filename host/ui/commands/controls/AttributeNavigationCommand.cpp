// What flows into an attribute, and the way there.

#include "commands/scene/SceneCommands.h"
#include "ui/commands/SceneViewer.h"
#include "ui/commands/Tables.h"
#include "ui/commands/controls/FieldGroup.h"

#include <QLineEdit>
#include <QPushButton>

namespace host::ui {

namespace {

constexpr int FIELD_WIDTH = 160;

/// The label, the name of the node that flows into the attribute, and a button that selects it or,
/// when there is none, has the script make one.
class NavigationGroup : public FieldGroup
{
public:
    explicit NavigationGroup(Element& element)
        : FieldGroup(true)
        , m_element(&element)
        , m_source(new QLineEdit(this))
        , m_button(new QPushButton(this))
        , m_viewer([this] { Refresh(); })
    {
        m_source->setReadOnly(true);
        Add(m_source, FIELD_WIDTH);
        Add(m_button);
        QObject::connect(m_button, &QPushButton::clicked, this, [this] { OnPressed(); });
        Refresh();
    }

    void SetPlug(const scene::Plug& plug)
    {
        m_node = plug.node->shared_from_this();
        m_key = plug.key;
        Refresh();
    }
    QString AttributeName() const
    {
        const scene::Plug plug = Plug();
        return plug.IsValid() ? scene::Scene::Current().DisplayName(plug) : QString();
    }
    void Refresh()
    {
        const scene::Node* source = Source();
        m_source->setText(source ? scene::Scene::Current().DisplayName(*source) : QString());
        m_button->setText(source ? QStringLiteral("Select") : QStringLiteral("Create"));
        const bool makes = m_element && m_element->HasCallback(QStringLiteral("createNew"));
        m_button->setEnabled(source || (makes && Plug().IsValid()));
    }

private:
    scene::Plug Plug() const
    {
        if (!m_node || !m_node->IsInScene())
            return {};
        return scene::Plug::FromKey(*m_node, m_key);
    }
    scene::Node* Source() const
    {
        const scene::Plug plug = Plug();
        const scene::ConnectionPointer connection = plug.IsValid() ? plug.Incoming() : nullptr;
        return connection ? connection->source : nullptr;
    }
    void OnPressed()
    {
        if (const scene::Node* source = Source()) {
            const Script select{Language::Mel,
                QStringLiteral("select -r -noExpand ")
                    + scene::Scene::Current().DisplayName(*source),
                nullptr};
            select.Run();
        } else if (m_element) {
            m_element->RunCallback(QStringLiteral("createNew"), {AttributeName()});
        }
    }

    QPointer<Element> m_element;
    QLineEdit* m_source;
    QPushButton* m_button;
    scene::NodePointer m_node;
    QString m_key;
    SceneViewer m_viewer;
};

NavigationGroup* Navigation(const Element& element)
{
    return As<NavigationGroup>(element);
}

void SetAttribute(Edit& edit)
{
    const commands::FoundPlug found = commands::FindPlug(edit.Text());
    if (found.error) {
        edit.error = found.error->text;
        return;
    }
    if (Group(edit.element)->GetLabel().isEmpty())
        Group(edit.element)->SetLabel(found.plug.attribute->NiceName());
    Navigation(edit.element)->SetPlug(found.plug);
}

void SetCreation(Edit& edit)
{
    edit.element.SetCallback(QString::fromLatin1(edit.flag), edit.call.GetScript(edit.flag));
    Navigation(edit.element)->Refresh();
}

// clang-format off
const Property NAVIGATION[] = {
    {"attribute", SetAttribute, [](Element& e) -> Value { return Navigation(e)->AttributeName(); }},
    {"createNew", SetCreation, nullptr},
};

const ControlRow ROWS[] = {
    {"attrNavigationControlGrp", ControlKind,
        [](Element& element, const Call&) { element.SetWidget(new NavigationGroup(element)); }, NAVIGATION,
        "attrNavDecision/anad str str cqe; attribute/at str cqe; changeCommand/cc script cqe; connectAttrToDropped/catd script cqe;"
        "connectNodeToDropped/cnd script cqe; connectToExisting/cte script cqe; createNew/cn script cqe; defaultTraversal/dtv script cqe;"
        "delete/del script cqe; disconnect/dis script cqe; ignore/ig script cqe; ignoreNotSupported/ins B cqe; noIgnorableMenu/nim B cqe;"
        "noKeyableMenu/nkm B cqe; relatedNodes/rln script cqe; unignore/uig script cqe;",
        nullptr, nullptr, CommonFlags::Control, &GROUP_FAMILY},
};
// clang-format on

} // namespace

void RegisterAttributeNavigation(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
}

} // namespace host::ui
