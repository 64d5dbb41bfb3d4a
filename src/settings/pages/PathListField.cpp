#include "settings/pages/PathListField.h"

#include "settings/Settings.h"
#include "settings/pages/HomePath.h"
#include "settings/pages/OptionTable.h"
#include "window/chrome/FlatButton.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"
#include "window/chrome/ToolTipText.h"

#include <QAction>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QListWidget>

namespace {

// Design pixels.
constexpr int HEIGHT = 92;
constexpr int TOOL_GAP = 2;

} // namespace

/// What can be done with the list, by a button and by keys while the list has the focus.
struct PathListField::Command
{
    const char* label;
    const char* icon;
    const char* objectName;
    int key;
    void (PathListField::*slot)();
    bool (*possible)(int row, int count);
};

// clang-format off
const PathListField::Command PathListField::COMMANDS[] = {
    {QT_TR_NOOP("Add Folder..."), "new_highlight",    "m_addButton",      Qt::Key_Insert,           &PathListField::Add,      [](int, int) { return true; }},
    {QT_TR_NOOP("Remove Folder"), "delete_highlight", "m_removeButton",   Qt::Key_Delete,           &PathListField::Remove,   [](int row, int) { return row >= 0; }},
    {QT_TR_NOOP("Move Up"),       "move_up",          "m_moveUpButton",   Qt::ALT + Qt::Key_Up,     &PathListField::MoveUp,   [](int row, int) { return row > 0; }},
    {QT_TR_NOOP("Move Down"),     "move_down",        "m_moveDownButton", Qt::ALT + Qt::Key_Down,   &PathListField::MoveDown, [](int row, int count) { return row >= 0 && row + 1 < count; }},
};
// clang-format on

PathListField::PathListField(const OptionRow& row, QWidget* parent)
    : OptionField(row, parent)
    , m_list(new QListWidget(this))
{
    m_list->setTextElideMode(Qt::ElideMiddle);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    m_list->setContextMenuPolicy(Qt::ActionsContextMenu);
    AddControl(m_list, true);
    CreateButtons();
    connect(m_list, &QListWidget::currentRowChanged, this, &PathListField::UpdateButtons);
    connect(m_list, &QListWidget::itemChanged, this, &PathListField::OnItemChanged);
    FollowLook(this, [this] { m_list->setFixedHeight(Theme::Dp(HEIGHT)); });
    UpdateButtons();
}

void PathListField::CreateButtons()
{
    auto* tools = new QWidget(this);
    auto* layout = new QHBoxLayout(tools);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const Command& command : COMMANDS) {
        const QKeySequence keys(command.key);
        auto* action = new QAction(tr(command.label), m_list);
        action->setShortcut(keys);
        action->setShortcutContext(Qt::WidgetShortcut);
        m_list->addAction(action);
        connect(action, &QAction::triggered, this, command.slot);
        auto* button = new FlatButton(
            QLatin1String(command.icon), action->text(), FlatButton::Tint::Computed, tools);
        button->setObjectName(QLatin1String(command.objectName));
        button->SetToolTip(
            tr("%1 (%2)").arg(action->text(), keys.toString(QKeySequence::NativeText)));
        connect(button, &QAbstractButton::clicked, action, &QAction::trigger);
        layout->addWidget(button);
        m_buttons.append(button);
    }
    layout->addStretch(1);
    AddBeside(tools);
    FollowLook(tools, [layout] { layout->setSpacing(Theme::Dp(TOOL_GAP)); });
}

void PathListField::UpdateButtons()
{
    for (int i = 0; i < m_buttons.size(); ++i) {
        const bool possible = COMMANDS[i].possible(m_list->currentRow(), m_list->count());
        m_buttons[i]->setEnabled(possible);
        m_list->actions().at(i)->setEnabled(possible);
    }
}

void PathListField::AddPath(const QString& path)
{
    auto* item = new QListWidgetItem(path);
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    item->setToolTip(WrappedToolTipText(path));
    m_list->addItem(item);
}

void PathListField::Add()
{
    const QString path = QFileDialog::getExistingDirectory(this, OptionTable::tr(GetRow().label));
    if (path.isEmpty())
        return;
    AddPath(path);
    m_list->setCurrentRow(m_list->count() - 1);
    Q_EMIT Changed();
}

void PathListField::Remove()
{
    delete m_list->takeItem(m_list->currentRow());
    UpdateButtons();
    Q_EMIT Changed();
}

void PathListField::Move(int distance)
{
    const int row = m_list->currentRow();
    QListWidgetItem* const item = m_list->takeItem(row);
    m_list->insertItem(row + distance, item);
    m_list->setCurrentItem(item);
    Q_EMIT Changed();
}

/// A path that was typed away is gone.
void PathListField::OnItemChanged(QListWidgetItem* item)
{
    const QSignalBlocker blocker(m_list);
    item->setText(WithHomeFolder(item->text()));
    item->setToolTip(WrappedToolTipText(item->text()));
    if (item->text().trimmed().isEmpty())
        delete item;
    UpdateButtons();
    Q_EMIT Changed();
}

QVariant PathListField::GetValue() const
{
    QStringList paths;
    for (int row = 0; row < m_list->count(); ++row)
        paths.append(m_list->item(row)->text());
    return paths.join(Settings::PATH_SEP);
}

void PathListField::SetValue(const QVariant& value)
{
    if (GetValue() == value)
        return;
    const QSignalBlocker blocker(m_list);
    m_list->clear();
    for (const QString& path : value.toString().split(Settings::PATH_SEP, Qt::SkipEmptyParts))
        AddPath(path);
    m_list->setCurrentRow(0);
    UpdateButtons();
    Q_EMIT Changed();
}

QWidget* PathListField::GetControl() const
{
    return m_list;
}
