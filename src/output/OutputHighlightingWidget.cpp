#include "output/OutputHighlightingWidget.h"

#include "output/HighlightRowDelegate.h"
#include "output/OutputHighlightingDialog.h"
#include "settings/ColorSettings.h"
#include "window/chrome/FlatButton.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"
#include "window/chrome/ToolSeparator.h"
#include "window/chrome/ToolTipText.h"

#include <QAction>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QRegularExpression>
#include <QVBoxLayout>

#include <algorithm>

namespace {

// Design pixels.
constexpr int GAP = 6;
constexpr int TOOL_GAP = 2;
constexpr int LIST_WIDTH = 264;
constexpr int LIST_HEIGHT = 184;

bool IsSame(
    const QVector<ExtraSelectionProperties>& left, const QVector<ExtraSelectionProperties>& right)
{
    const auto isSameRule = [](const auto& a, const auto& b) {
        return ColorSettings::GetExtraSelectionString(a)
            == ColorSettings::GetExtraSelectionString(b);
    };
    return left.isSharedWith(right)
        || std::equal(left.begin(), left.end(), right.begin(), right.end(), isSameRule);
}

/// What the rule looks for, and what is wrong with that.
QString ToolTipOf(const ExtraSelectionProperties& rule)
{
    const QRegularExpression expression(rule.regularExpression ? rule.pattern : QString());
    const QString fault = expression.isValid() ? QString()
                                               : QStringLiteral("\n")
            + OutputHighlightingWidget::tr("Finds nothing: %1").arg(expression.errorString());
    return WrappedToolTipText(rule.pattern + fault);
}

} // namespace

/// What can be done with the list besides checking a row.
struct OutputHighlightingWidget::Command
{
    enum Needs { Nothing, Row, RowAbove, RowBelow, Step };
    const char* text;
    const char* icon; ///< null without a tool button
    const char* objectName;
    QList<QKeySequence> keys;
    void (OutputHighlightingWidget::*slot)();
    Needs needs;
};

// clang-format off
const OutputHighlightingWidget::Command OutputHighlightingWidget::COMMANDS[] = {
    {QT_TR_NOOP("New Highlight"),    "new_highlight",    "m_newButton",      {Qt::Key_Insert},                                 &OutputHighlightingWidget::NewItem,         Command::Nothing},
    {QT_TR_NOOP("Edit Highlight"),   nullptr,            nullptr,            {Qt::Key_Return, Qt::Key_Enter, Qt::Key_F2},      &OutputHighlightingWidget::EditCurrentItem, Command::Row},
    {QT_TR_NOOP("Delete Highlight"), "delete_highlight", "m_deleteButton",   {Qt::Key_Delete},                                 &OutputHighlightingWidget::DeleteItem,      Command::Row},
    {QT_TR_NOOP("Move Up"),          "move_up",          "m_moveUpButton",   {Qt::ALT + Qt::Key_Up},                           &OutputHighlightingWidget::MoveItemUp,      Command::RowAbove},
    {QT_TR_NOOP("Move Down"),        "move_down",        "m_moveDownButton", {Qt::ALT + Qt::Key_Down},                         &OutputHighlightingWidget::MoveItemDown,    Command::RowBelow},
    {QT_TR_NOOP("Undo"),             nullptr,            nullptr,            {Qt::CTRL + Qt::Key_Z},                           &OutputHighlightingWidget::Undo,            Command::Step},
};
// clang-format on

OutputHighlightingWidget::OutputHighlightingWidget(QWidget* parent)
    : QWidget(parent)
{
    CreateList();
    CreateLayout();
    Reset();
}

void OutputHighlightingWidget::CreateList()
{
    m_list = new QListWidget(this);
    m_list->setObjectName(QStringLiteral("m_list"));
    m_list->setAccessibleName(tr("Output Highlighting"));
    m_list->setItemDelegate(new HighlightRowDelegate(m_list));
    m_list->setUniformItemSizes(true);
    m_list->setMouseTracking(true);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_list->setContextMenuPolicy(Qt::ActionsContextMenu);
    using W = OutputHighlightingWidget;
    connect(m_list, &QListWidget::itemDoubleClicked, this, &W::EditItem);
    connect(m_list, &QListWidget::itemChanged, this, &W::OnItemChanged);
    connect(m_list, &QListWidget::currentRowChanged, this, &W::UpdateButtons);
}

/// Not by a focus proxy: Tab would go to that at once, past the tools before it.
void OutputHighlightingWidget::focusInEvent(QFocusEvent* event)
{
    m_list->setFocus(event->reason());
}

/// Each one has keys while the list has the focus, and an entry in its context menu.
void OutputHighlightingWidget::CreateCommands(QBoxLayout& tools)
{
    for (const Command& command : COMMANDS) {
        auto* action = new QAction(tr(command.text), m_list);
        action->setShortcuts(command.keys);
        action->setShortcutContext(Qt::WidgetShortcut);
        m_list->addAction(action);
        connect(action, &QAction::triggered, this, command.slot);
        m_actions.append(action);
        m_buttons.append(nullptr);
        if (!command.icon)
            continue;
        auto* button = new FlatButton(
            QLatin1String(command.icon), action->text(), FlatButton::Tint::Computed, this);
        button->setObjectName(QLatin1String(command.objectName));
        button->SetToolTip(tr("%1 (%2)").arg(
            action->text(), action->shortcut().toString(QKeySequence::NativeText)));
        connect(button, &QAbstractButton::clicked, action, &QAction::trigger);
        if (command.needs == Command::RowAbove)
            tools.addWidget(new ToolSeparator(this));
        tools.addWidget(button);
        m_buttons.last() = button;
        // The list comes behind its tools.
        setTabOrder(button, m_list);
    }
    tools.addStretch(1);
}

void OutputHighlightingWidget::CreateLayout()
{
    auto* tools = new QHBoxLayout;
    CreateCommands(*tools);
    m_hint = new QLabel(this);
    m_hint->setObjectName(QStringLiteral("m_hint"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(tools);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_hint);
    FollowLook(this, [this, tools, layout] {
        tools->setSpacing(Theme::Dp(TOOL_GAP));
        layout->setSpacing(Theme::Dp(GAP));
        m_list->setMinimumSize(Theme::Dp(LIST_WIDTH), Theme::Dp(LIST_HEIGHT));
        m_hint->setFont(Theme::SmallFont(font()));
    });
}

void OutputHighlightingWidget::Apply()
{
    ColorSettings::outputUserDefinedSelections = m_rules;
    m_steps.clear();
    UpdateButtons();
    Q_EMIT Changed();
}

void OutputHighlightingWidget::Reset()
{
    m_steps.clear();
    ShowRules(ColorSettings::outputUserDefinedSelections, 0);
}

void OutputHighlightingWidget::RestoreDefaults()
{
    Remember();
    ShowRules(ColorSettings::GetBuiltInSelections(), 0);
}

bool OutputHighlightingWidget::IsChanged() const
{
    return !IsSame(m_rules, ColorSettings::outputUserDefinedSelections);
}

int OutputHighlightingWidget::MarkMatches(const QString& text)
{
    int count = 0;
    for (int row = 0; row < m_rules.size() && !text.isEmpty(); ++row) {
        const bool matches = m_rules[row].name.contains(text, Qt::CaseInsensitive)
            || m_rules[row].pattern.contains(text, Qt::CaseInsensitive);
        if (matches && count++ == 0)
            m_list->setCurrentRow(row);
    }
    return count;
}

void OutputHighlightingWidget::ShowRules(
    const QVector<ExtraSelectionProperties>& rules, int currentRow)
{
    m_rules.clear();
    {
        const QSignalBlocker blocker(m_list);
        m_list->clear();
        for (const ExtraSelectionProperties& rule : rules)
            AddItem(rule);
        m_list->setCurrentRow(qBound(0, currentRow, m_list->count() - 1));
    }
    UpdateButtons();
    Q_EMIT Changed();
}

void OutputHighlightingWidget::AddItem(const ExtraSelectionProperties& rule)
{
    m_rules.append(rule);
    m_list->addItem(new QListWidgetItem);
    ShowRule(m_list->count() - 1);
}

void OutputHighlightingWidget::ShowRule(int row)
{
    const QSignalBlocker blocker(m_list);
    const ExtraSelectionProperties& rule = m_rules[row];
    QListWidgetItem* const item = m_list->item(row);
    item->setText(rule.name);
    item->setCheckState(rule.enabled ? Qt::Checked : Qt::Unchecked);
    item->setData(Qt::ForegroundRole,
        rule.format.hasProperty(QTextFormat::ForegroundBrush) ? rule.format.foreground()
                                                              : QVariant());
    item->setData(Qt::BackgroundRole,
        rule.format.hasProperty(QTextFormat::BackgroundBrush) ? rule.format.background()
                                                              : QVariant());
    item->setToolTip(ToolTipOf(rule));
}

void OutputHighlightingWidget::Remember()
{
    m_steps.append({m_rules, m_list->currentRow()});
}

void OutputHighlightingWidget::Undo()
{
    if (m_steps.isEmpty())
        return;
    const Step step = m_steps.takeLast();
    ShowRules(step.rules, step.row);
}

void OutputHighlightingWidget::NewItem()
{
    OutputHighlightingDialog dialog(tr("New Highlight"), this);
    dialog.SetDefaults();
    if (dialog.exec() != QDialog::Accepted)
        return;
    Remember();
    AddItem(dialog.GetSelectionProperties());
    m_list->setCurrentRow(m_list->count() - 1);
    UpdateButtons();
    Q_EMIT Changed();
}

void OutputHighlightingWidget::EditCurrentItem()
{
    EditItem(m_list->currentItem());
}

void OutputHighlightingWidget::EditItem(QListWidgetItem* item)
{
    const int row = m_list->row(item);
    if (row < 0)
        return;
    OutputHighlightingDialog dialog(tr("Edit Highlight"), this);
    dialog.SetSelectionProperties(m_rules[row]);
    if (dialog.exec() != QDialog::Accepted)
        return;
    Remember();
    m_rules[row] = dialog.GetSelectionProperties();
    ShowRule(row);
    UpdateButtons();
    Q_EMIT Changed();
}

void OutputHighlightingWidget::DeleteItem()
{
    const int row = m_list->currentRow();
    if (row < 0)
        return;
    Remember();
    QVector<ExtraSelectionProperties> rules = m_rules;
    rules.remove(row);
    ShowRules(rules, row);
}

void OutputHighlightingWidget::MoveItemUp()
{
    MoveItem(-1);
}

void OutputHighlightingWidget::MoveItemDown()
{
    MoveItem(1);
}

void OutputHighlightingWidget::MoveItem(int distance)
{
    const int row = m_list->currentRow();
    const int other = row + distance;
    if (row < 0 || other < 0 || other >= m_rules.size())
        return;
    Remember();
    std::swap(m_rules[row], m_rules[other]);
    ShowRule(row);
    ShowRule(other);
    m_list->setCurrentRow(other);
    Q_EMIT Changed();
}

/// The check box is all that is changed in the list itself.
void OutputHighlightingWidget::OnItemChanged(QListWidgetItem* item)
{
    const int row = m_list->row(item);
    const bool isEnabled = item->checkState() == Qt::Checked;
    if (row < 0 || m_rules[row].enabled == isEnabled)
        return;
    Remember();
    m_rules[row].enabled = isEnabled;
    UpdateButtons();
    Q_EMIT Changed();
}

void OutputHighlightingWidget::UpdateButtons()
{
    const int row = m_list->currentRow();
    const auto isPossible = [&](Command::Needs needs) {
        switch (needs) {
        case Command::Row: return row >= 0;
        case Command::RowAbove: return row > 0;
        case Command::RowBelow: return row >= 0 && row + 1 < m_rules.size();
        case Command::Step: return !m_steps.isEmpty();
        default: return true;
        }
    };
    m_hint->setText(m_rules.isEmpty()
            ? tr("Without rules the built-in ones come back at the next start.")
            : tr("Later rules paint over earlier ones."));
    for (int i = 0; i < m_actions.size(); ++i) {
        m_actions[i]->setEnabled(isPossible(COMMANDS[i].needs));
        if (m_buttons[i])
            m_buttons[i]->setEnabled(m_actions[i]->isEnabled());
    }
}
