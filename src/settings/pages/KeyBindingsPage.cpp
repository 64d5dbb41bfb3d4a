#include "settings/pages/KeyBindingsPage.h"

#include "settings/KeyBindings.h"
#include "settings/pages/KeyBindingsModel.h"
#include "settings/pages/KeyBindingsTable.h"
#include "settings/pages/KeyCaptureField.h"
#include "window/chrome/FlatButton.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"
#include "window/chrome/ToolLineEdit.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace {

// Design pixels.
constexpr int GAP = 8;
constexpr int FILTER_GAP = 4;
constexpr int BUTTON_GAP = 2; ///< the buttons bring the room for their rings along
constexpr int TABLE_HEIGHT = 160;

constexpr int HINT_LINES = 2;

} // namespace

/// What can be done with a row, or with all of them.
struct KeyBindingsPage::Command
{
    enum Needs { FreeRow, RowWithKeys, ChangedRow, AnyChange };
    const char* text;
    const char* objectName; ///< of its button; null without one
    QList<QKeySequence> keys;
    void (KeyBindingsTable::*onTable)();
    Needs needs;
};

// clang-format off
const KeyBindingsPage::Command KeyBindingsPage::COMMANDS[] = {
    {QT_TR_NOOP("Edit Shortcut"),   nullptr,            {Qt::Key_Return, Qt::Key_Enter, Qt::Key_F2}, &KeyBindingsTable::EditKeys,   Command::FreeRow},
    {QT_TR_NOOP("Add Shortcut"),    "m_addButton",      {Qt::Key_Insert},                            &KeyBindingsTable::AddKeys,    Command::FreeRow},
    {QT_TR_NOOP("Remove Shortcut"), nullptr,            {Qt::Key_Delete},                            &KeyBindingsTable::RemoveKeys, Command::RowWithKeys},
    {QT_TR_NOOP("Clear"),           "m_clearRowButton", {Qt::CTRL + Qt::Key_Delete},                 &KeyBindingsTable::ClearRow,   Command::RowWithKeys},
    {QT_TR_NOOP("Reset"),           "m_resetButton",    {Qt::CTRL + Qt::Key_Backspace},              &KeyBindingsTable::ResetRow,   Command::ChangedRow},
    {QT_TR_NOOP("Reset All"),       "m_resetAllButton", {},                                          nullptr,                       Command::AnyChange},
};
// clang-format on

KeyBindingsPage::KeyBindingsPage(KeyBindings* bindings, QWidget* parent)
    : PreferencesPage(parent)
    , m_bindings(bindings)
    , m_model(new KeyBindingsModel(bindings->GetKeySequences(), this))
{
    CreateFilter();
    CreateTable();
    CreateLayout();
    connect(m_model, &QAbstractItemModel::dataChanged, this, &PreferencesPage::Changed);
    connect(m_table, &KeyBindingsTable::CurrentChanged, this, &KeyBindingsPage::UpdateActions);
    m_table->setCurrentIndex(m_model->index(0, 0));
    UpdateFilterMode();
}

void KeyBindingsPage::CreateFilter()
{
    m_filter = new ToolLineEdit(this);
    m_filter->setObjectName(QStringLiteral("m_filter"));
    m_filter->setAccessibleName(tr("Filter"));
    m_filter->setPlaceholderText(tr("Filter by command or key"));
    m_filter->installEventFilter(this);
    m_keyFilter = new KeyCaptureField(this);
    m_keyFilter->setObjectName(QStringLiteral("m_keyFilter"));
    m_keyFilter->setAccessibleName(tr("Filter by pressed keys"));
    m_keyFilter->setPlaceholderText(tr("Press the keys to look for"));
    m_pressKeysButton = new FlatButton(QStringLiteral("prefs_key_bindings"),
        tr("Press Keys to Filter"), FlatButton::Tint::Computed, this);
    m_pressKeysButton->setObjectName(QStringLiteral("m_pressKeysButton"));
    m_pressKeysButton->setCheckable(true);
    connect(m_filter, &QLineEdit::textChanged, this, &KeyBindingsPage::UpdateFilter);
    connect(m_keyFilter, &QLineEdit::textChanged, this, &KeyBindingsPage::UpdateFilter);
    connect(m_keyFilter, &KeyCaptureField::Accepted, this, [this] { m_table->setFocus(); });
    connect(m_keyFilter, &KeyCaptureField::Cancelled, m_pressKeysButton, &FlatButton::click);
    connect(m_pressKeysButton, &FlatButton::toggled, this, &KeyBindingsPage::UpdateFilterMode);
    // By a click as well: who switches wants to go on there.
    connect(m_pressKeysButton, &FlatButton::clicked, this,
        [this] { m_filters->currentWidget()->setFocus(Qt::OtherFocusReason); });
}

void KeyBindingsPage::CreateTable()
{
    m_table = new KeyBindingsTable(m_model, this);
    m_table->setObjectName(QStringLiteral("m_table"));
    m_table->setAccessibleName(tr("Key Bindings"));
    m_table->setContextMenuPolicy(Qt::ActionsContextMenu);
    m_hint = new QLabel(this);
    m_hint->setObjectName(QStringLiteral("m_hint"));
    m_hint->setWordWrap(true);
    m_hint->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_hint->setTextFormat(Qt::PlainText);
    setFocusProxy(m_filter);
}

/// Each one has an entry in the context menu of the table, and keys while that has the focus.
void KeyBindingsPage::CreateCommands(QBoxLayout& buttons)
{
    for (const Command& command : COMMANDS) {
        auto* action = new QAction(tr(command.text), m_table);
        action->setShortcuts(command.keys);
        action->setShortcutContext(Qt::WidgetShortcut);
        m_table->addAction(action);
        if (command.onTable)
            connect(action, &QAction::triggered, m_table, command.onTable);
        else
            connect(action, &QAction::triggered, this, &KeyBindingsPage::ResetAll);
        m_actions.append(action);
        m_buttons.append(nullptr);
        if (!command.objectName)
            continue;
        auto* button = new QPushButton(action->text(), this);
        button->setObjectName(QLatin1String(command.objectName));
        button->setAccessibleName(action->text());
        button->setAutoDefault(false);
        if (!command.keys.isEmpty()) {
            button->setToolTip(tr("%1 (%2)").arg(
                action->text(), action->shortcut().toString(QKeySequence::NativeText)));
        }
        connect(button, &QPushButton::clicked, action, &QAction::trigger);
        buttons.addWidget(button);
        m_buttons.last() = button;
    }
}

void KeyBindingsPage::CreateLayout()
{
    auto* filterRow = new QHBoxLayout;
    m_filters = new QStackedLayout;
    m_filters->addWidget(m_filter);
    m_filters->addWidget(m_keyFilter);
    filterRow->addLayout(m_filters, 1);
    filterRow->addWidget(m_pressKeysButton);
    auto* buttons = new QHBoxLayout;
    CreateCommands(*buttons);
    buttons->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(filterRow);
    layout->addWidget(m_table, 1);
    layout->addWidget(m_hint);
    layout->addLayout(buttons);
    FollowLook(this, [this, layout, filterRow, buttons] {
        layout->setSpacing(Theme::Dp(GAP));
        filterRow->setSpacing(Theme::Dp(FILTER_GAP));
        buttons->setSpacing(Theme::Dp(BUTTON_GAP));
        m_table->setMinimumHeight(Theme::Dp(TABLE_HEIGHT));
        m_hint->setFont(Theme::SmallFont(font()));
        m_hint->setMinimumHeight(HINT_LINES * QFontMetrics(m_hint->font()).lineSpacing());
    });
}

QString KeyBindingsPage::GetTitle() const
{
    return tr("Key Bindings");
}

QString KeyBindingsPage::GetIconName() const
{
    return QStringLiteral("prefs_key_bindings");
}

bool KeyBindingsPage::IsChanged() const
{
    const QList<KeyBinding>& edited = m_model->GetBindings();
    for (int row = 0; row < edited.size(); ++row) {
        QList<QKeySequence> inForce = m_bindings->GetKeySequences()[row].userSequences;
        inForce.removeAll(QKeySequence());
        if (edited[row].userSequences != inForce)
            return true;
    }
    return false;
}

void KeyBindingsPage::Apply()
{
    m_table->FinishEditing();
    m_bindings->UpdateUserSequences(m_model->GetBindings());
    Q_EMIT Changed();
}

void KeyBindingsPage::RestoreDefaults()
{
    ResetAll();
}

QString KeyBindingsPage::GetRestoreQuestion() const
{
    return tr("Set the keys of all commands back to the built-in ones?");
}

void KeyBindingsPage::ResetAll()
{
    m_table->FinishEditing();
    m_model->ResetAll();
}

int KeyBindingsPage::MarkMatches(const QString& text)
{
    // Nothing that is looked for stays hidden.
    if (!text.isEmpty()) {
        m_pressKeysButton->setChecked(false);
        m_filter->clear();
    }
    const int matches = m_table->MarkMatches(text);
    m_hasMatches = matches > 0;
    return matches;
}

QWidget* KeyBindingsPage::FindFirstMatch() const
{
    return m_hasMatches ? m_table : nullptr;
}

void KeyBindingsPage::UpdateFilterMode()
{
    const bool pressesKeys = m_pressKeysButton->isChecked();
    m_keyFilter->SetKnownSequences(m_model->GetAllSequences());
    m_filters->setCurrentWidget(pressesKeys ? static_cast<QWidget*>(m_keyFilter) : m_filter);
    UpdateFilter();
}

void KeyBindingsPage::UpdateFilter()
{
    const bool pressesKeys = m_pressKeysButton->isChecked();
    const QString text = m_filter->text().trimmed();
    const QKeySequence keys = m_keyFilter->GetSequence();
    const QString shownKeys = KeyBindingsModel::ShownText(keys);
    m_table->ShowRows(
        [&](int row) {
            return pressesKeys ? keys.isEmpty() || m_model->HasKeys(row, keys)
                               : text.isEmpty() || m_model->ContainsText(row, text);
        },
        pressesKeys ? tr("No command has the keys %1.").arg(shownKeys)
                    : tr("No command or key contains \"%1\".").arg(text));
}

bool KeyBindingsPage::IsPossible(const Command& command) const
{
    const int row = m_table->GetCurrentRow();
    const bool isFree = row >= 0 && !m_model->IsFixed(row);
    switch (command.needs) {
    case Command::RowWithKeys: return isFree && !m_model->GetSequences(row).isEmpty();
    case Command::ChangedRow: return isFree && m_model->IsChanged(row);
    case Command::AnyChange:
        for (int i = 0; i < m_model->rowCount(); ++i) {
            if (m_model->IsChanged(i))
                return true;
        }
        return false;
    default: return isFree;
    }
}

QString KeyBindingsPage::GetHint() const
{
    const int row = m_table->GetCurrentRow();
    const QString conflict = row < 0 ? QString() : m_model->Describe(row);
    if (row < 0 || !conflict.isEmpty())
        return conflict;
    if (m_table->IsEditing())
        return tr("Press the keys. Return takes them, Escape leaves the field as it was.");
    if (m_model->IsFixed(row))
        return tr("The keys of this command are fixed.");
    return tr("Return changes the keys, Insert adds others, Delete removes them.");
}

void KeyBindingsPage::UpdateActions()
{
    for (int i = 0; i < m_actions.size(); ++i) {
        m_actions[i]->setEnabled(IsPossible(COMMANDS[i]));
        if (m_buttons[i])
            m_buttons[i]->setEnabled(m_actions[i]->isEnabled());
    }
    m_hint->setText(GetHint());
}

/// In the text's field Down and Return lead to what was found, and Escape shows everything again,
/// before they end the dialog.
bool KeyBindingsPage::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_filter || event->type() != QEvent::KeyPress)
        return PreferencesPage::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Down || key == Qt::Key_Return || key == Qt::Key_Enter) {
        m_table->setFocus(Qt::TabFocusReason);
        return true;
    }
    if (key == Qt::Key_Escape && !m_filter->text().isEmpty()) {
        m_filter->clear();
        return true;
    }
    return false;
}
