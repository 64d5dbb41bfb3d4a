#include "engine/Engine.h"
#include "ui/commands/Tables.h"
#include "ui/commands/windows/WindowTables.h"

#include <QDialog>

namespace host::ui {

namespace {

const QString DISMISSED = QStringLiteral("dismiss");

/// The dialogs that are open, the front one last.
class LayoutDialog : public QDialog
{
public:
    explicit LayoutDialog(QWidget* parent)
        : QDialog(parent)
    {
        Open() += this;
    }
    ~LayoutDialog() override { Open().removeOne(this); }
    static QVector<LayoutDialog*>& Open()
    {
        static QVector<LayoutDialog*> open;
        return open;
    }
    void Dismiss(const QString& text)
    {
        answer = text;
        dismissed = true;
        accept();
    }

    QString answer = DISMISSED;
    bool dismissed = false;
};

Outcome NoDialog()
{
    return Error{QStringLiteral("No layout dialog is open.")};
}

/// The script that fills the dialog finds a form layout as its current parent.
Outcome Build(const Call& call, Element& element)
{
    const ParentScope scope(InterfaceModel::Current());
    InterfaceModel::Current().SetCurrentParent(&element);
    const Script form{Language::Mel, QStringLiteral("formLayout;"), nullptr};
    const Outcome made = form.Run();
    return made.Ok() ? call.GetScript("uiScript").Run() : made;
}

Outcome RunLayoutDialog(Call& call)
{
    if (call.Has("dismiss")) {
        if (LayoutDialog::Open().isEmpty())
            return NoDialog();
        LayoutDialog::Open().last()->Dismiss(call.Text("dismiss"));
        return {};
    }
    const Engine& engine = Engine::Current();
    if (engine.IsBatch())
        return DISMISSED;
    if (!call.Has("uiScript"))
        return Error{QStringLiteral("layoutDialog needs -uiScript.")};
    const QPointer<LayoutDialog> dialog
        = new LayoutDialog(engine.ui ? engine.ui->MainWindow() : nullptr);
    dialog->setWindowTitle(call.Text("title"));
    InterfaceModel& model = InterfaceModel::Current();
    Element* element = model.Create(WindowKind, QStringLiteral("layoutDialog"), QString(), nullptr);
    element->SetWidget(dialog, dialog);
    const Outcome built = Build(call, *element);
    if (built.Ok() && dialog && !dialog->dismissed)
        dialog->exec();
    // The script may have deleted it.
    const QString answer = dialog ? dialog->answer : DISMISSED;
    delete dialog;
    return built.Ok() ? Outcome(answer) : built;
}

// clang-format off
const CommandRow COMMANDS[] = {
    {"layoutDialog", "string", "", "",
        "backgroundColor/bgc float float float c; dismiss/dis str c; parent/p str c; title/t str c; uiScript/ui script c", RunLayoutDialog},
};
// clang-format on

} // namespace

void RegisterLayoutDialog(CommandRegistry& commands)
{
    commands.Register(COMMANDS);
}

} // namespace host::ui
