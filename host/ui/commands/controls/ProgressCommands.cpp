#include "engine/Engine.h"
#include "ui/commands/Tables.h"

#include <QLabel>
#include <QProgressBar>
#include <QStatusTipEvent>

namespace host::ui {

namespace {

/// A bar that a person may cancel with Escape while it runs, if the script allows that.
class ProgressBar : public QProgressBar
{
public:
    /// Shows itself; Escape then cancels the work instead of stopping the script.
    void Begin()
    {
        reset();
        setValue(minimum());
        m_cancelled = false;
        m_running = true;
        if (isMain)
            show();
        Engine::Current().interrupt.cancel
            = [bar = QPointer<ProgressBar>(this)] { return bar && bar->Cancel(); };
    }
    void End()
    {
        m_running = false;
        reset();
        if (isMain)
            hide();
        Engine::Current().interrupt.cancel = nullptr;
    }
    bool IsCancelled() const { return m_cancelled; }
    /// Lets a person see how far it is, and press Escape.
    void Show()
    {
        repaint();
        const Interrupt& interrupt = Engine::Current().interrupt;
        if (m_running && interruptable && interrupt.hook)
            interrupt.hook();
    }

    bool interruptable = false;
    bool isMain = false;

private:
    /// False when the script cannot be cancelled this way.
    bool Cancel()
    {
        if (!m_running || !interruptable)
            return false;
        m_cancelled = true;
        return true;
    }

    bool m_running = false;
    bool m_cancelled = false;
};

ProgressBar* Bar(const Element& element)
{
    return As<ProgressBar>(element);
}

void MakeBar(Element& element, const Call& call)
{
    auto* bar = new ProgressBar;
    bar->setRange(0, 100);
    bar->setTextVisible(false);
    bar->isMain = call.Has("isMainProgressBar") && call.Bool("isMainProgressBar");
    element.SetWidget(bar);
    if (bar->isMain)
        bar->hide();
}

void SetProgress(Edit& edit)
{
    const bool isStep = qstrcmp(edit.flag, "step") == 0;
    const int wanted = isStep ? Bar(edit.element)->value() + edit.Int() : edit.Int();
    Bar(edit.element)
        ->setValue(qBound(Bar(edit.element)->minimum(), wanted, Bar(edit.element)->maximum()));
    Bar(edit.element)->Show();
}

void SetStatus(Edit& edit)
{
    edit.element.values.insert(QStringLiteral("status"), edit.Text());
    Bar(edit.element)->setFormat(edit.Text());
    Bar(edit.element)->setTextVisible(!edit.Text().isEmpty());
    Bar(edit.element)->Show();
}

/// Shows what the controls of its window say about themselves.
class HelpLine : public QLabel
{
public:
    HelpLine() { setTextFormat(Qt::PlainText); }

protected:
    void showEvent(QShowEvent* event) override
    {
        window()->installEventFilter(this);
        QLabel::showEvent(event);
    }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::StatusTip && watched == window())
            setText(static_cast<QStatusTipEvent*>(event)->tip());
        return false;
    }
};

void MakeHelpLine(Element& element, const Call&)
{
    element.SetWidget(new HelpLine);
}

// clang-format off
const Property BAR[] = {
    {"isMainProgressBar", [](Edit&) {}, [](Element& e) -> Value { return Bar(e)->isMain; }},
    {"isInterruptable", [](Edit& e) { Bar(e.element)->interruptable = e.Bool(); }, [](Element& e) -> Value { return Bar(e)->interruptable; }},
    {"minValue",        [](Edit& e) { Bar(e.element)->setMinimum(e.Int()); }, [](Element& e) -> Value { return Bar(e)->minimum(); }},
    {"maxValue",        [](Edit& e) { Bar(e.element)->setMaximum(e.Int()); }, [](Element& e) -> Value { return Bar(e)->maximum(); }},
    {"beginProgress",   [](Edit& e) { Bar(e.element)->Begin(); }, nullptr},
    {"status",          SetStatus, nullptr},
    {"progress",        SetProgress, [](Element& e) -> Value { return qMax(Bar(e)->minimum(), Bar(e)->value()); }},
    {"step",            SetProgress, nullptr},
    {"endProgress",     [](Edit& e) { Bar(e.element)->End(); }, nullptr},
    {"isCancelled",     nullptr, [](Element& e) -> Value { return Bar(e)->IsCancelled(); }},
};

const ControlRow ROWS[] = {
    {"progressBar", ControlKind, MakeBar, BAR,
        "beginProgress/bp - ce; endProgress/ep - ce; isCancelled/ic - q; isInterruptable/ii B cqe; isMainProgressBar/imp B cq;"
        "maxValue/max int cqe; minValue/min int cqe; progress/pr int cqe; status/st str cqe; step/s int e;"},
    {"helpLine", ControlKind, MakeHelpLine, {}, ""},
};
// clang-format on

} // namespace

void RegisterProgressCommands(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
}

} // namespace host::ui
