// Widgets, layout and looks of the find bar.

#include "editor/FindReplaceWidget.h"
#include "settings/KeyBindings.h"
#include "window/chrome/FlatButton.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"
#include "window/chrome/ToolLineEdit.h"

#include <QHBoxLayout>
#include <QLabel>

namespace {

// Design pixels.
constexpr int WIDTH_WITH_REPLACE = 452;
constexpr int WIDTH_COLLAPSED = 400;
constexpr int WIDTH_FIND_ONLY = 380;
constexpr int PARENT_MARGIN = 40; ///< left free of the parent's width
constexpr int PADDING = 6;
constexpr int FIELD_HEIGHT = 26;
constexpr int ROW_GAP = 5;
constexpr int GAP = 4;
constexpr int TOGGLE_EXTENT = 20;
constexpr int TOGGLE_LEFT = 3;
constexpr int TOGGLE_GAP = 3;
constexpr int LABEL_WIDTH = 64;
constexpr int WIDTH_FOR_LABEL = 300; ///< below, the count gives its room to the field
constexpr int WIDTH_FOR_ARROWS = 220;

void SetColor(QLabel& label, Theme::Role role)
{
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, Theme::Color(role));
    label.setPalette(palette);
}

} // namespace

/// A button of the bar; `binding` is the command whose shortcut the tool tip names.
struct FindReplaceWidget::ButtonRow
{
    FlatButton* FindReplaceWidget::*button;
    const char* name;
    const char* icon;
    const char* label;
    int binding;
    bool checkable;
};

// clang-format off
const FindReplaceWidget::ButtonRow FindReplaceWidget::BUTTONS[] = {
    {&FindReplaceWidget::m_toggleReplaceButton,     "m_toggleReplaceButton",     "view_collapsed",     QT_TR_NOOP("Toggle Replace"),         KeyBindings::None,         false},
    {&FindReplaceWidget::m_matchCaseButton,         "m_matchCaseButton",         "match_case",         QT_TR_NOOP("Match Case"),             KeyBindings::None,         true},
    {&FindReplaceWidget::m_matchWordButton,         "m_matchWordButton",         "match_word",         QT_TR_NOOP("Match Whole Word"),       KeyBindings::None,         true},
    {&FindReplaceWidget::m_regularExpressionButton, "m_regularExpressionButton", "regular_expression", QT_TR_NOOP("Use Regular Expression"), KeyBindings::None,         true},
    {&FindReplaceWidget::m_previousButton,          "m_previousButton",          "next",               QT_TR_NOOP("Previous Match"),         KeyBindings::FindPrevious, false},
    {&FindReplaceWidget::m_nextButton,              "m_nextButton",              "next",               QT_TR_NOOP("Next Match"),             KeyBindings::FindNext,     false},
    {&FindReplaceWidget::m_findInSelectionButton,   "m_findInSelectionButton",   "text",               QT_TR_NOOP("Find in Selection"),      KeyBindings::None,         true},
    {&FindReplaceWidget::m_closeButton,             "m_closeButton",             "close_white",        QT_TR_NOOP("Close Find"),             KeyBindings::Escape,       false},
    {&FindReplaceWidget::m_replaceButton,           "m_replaceButton",           "replace",            QT_TR_NOOP("Replace"),                KeyBindings::ReplaceNext,  false},
    {&FindReplaceWidget::m_replaceAllButton,        "m_replaceAllButton",        "replace_all",        QT_TR_NOOP("Replace All"),            KeyBindings::ReplaceAll,   false},
};
// clang-format on

void FindReplaceWidget::CreateWidgets()
{
    m_searchLineEdit = new ToolLineEdit(this);
    m_searchLineEdit->setObjectName(QStringLiteral("m_searchLineEdit"));
    m_searchLineEdit->setAccessibleName(tr("Find"));
    m_searchLineEdit->setPlaceholderText(tr("Find"));
    m_replaceLineEdit = new ToolLineEdit(this);
    m_replaceLineEdit->setObjectName(QStringLiteral("m_replaceLineEdit"));
    m_replaceLineEdit->setAccessibleName(tr("Replace"));
    m_replaceLineEdit->setPlaceholderText(tr("Replace"));
    for (ToolLineEdit* field : {m_searchLineEdit, m_replaceLineEdit}) {
        field->setMinimumWidth(0);
        field->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        field->installEventFilter(this);
    }
    m_replaceLineEdit->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    for (const ButtonRow& row : BUTTONS) {
        auto* button = new FlatButton(
            QString::fromLatin1(row.icon), tr(row.label), FlatButton::Tint::Computed, this);
        button->setObjectName(QString::fromLatin1(row.name));
        button->setCheckable(row.checkable);
        this->*row.button = button;
    }
    m_toggleReplaceButton->SetExtent(TOGGLE_EXTENT);
    m_previousButton->SetUpsideDown(true);
    for (FlatButton* tool : {m_matchCaseButton, m_matchWordButton, m_regularExpressionButton})
        m_searchLineEdit->AddTool(tool);

    m_resultsLabel = new QLabel(this);
    m_resultsLabel->setObjectName(QStringLiteral("m_resultsLabel"));
    m_resultsLabel->setAccessibleName(tr("Results"));
    m_resultsLabel->setAlignment(Qt::AlignCenter);
    m_messageLabel = new QLabel(this);
    m_messageLabel->setObjectName(QStringLiteral("m_messageLabel"));
    m_messageLabel->setAccessibleName(tr("Message"));
    m_messageLabel->setTextFormat(Qt::PlainText);
    m_messageLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_messageLabel->hide();
}

void FindReplaceWidget::CreateLayout()
{
    auto* searchRow = new QHBoxLayout;
    searchRow->addWidget(m_searchLineEdit, 1);
    for (QWidget* widget : std::initializer_list<QWidget*>{m_resultsLabel, m_previousButton,
             m_nextButton, m_findInSelectionButton, m_closeButton})
        searchRow->addWidget(widget);

    auto* replaceRow = new QHBoxLayout;
    replaceRow->addWidget(m_replaceLineEdit);
    replaceRow->addWidget(m_replaceButton);
    replaceRow->addWidget(m_replaceAllButton);
    replaceRow->addStretch(1);

    auto* rows = new QVBoxLayout;
    rows->addLayout(searchRow);
    rows->addLayout(replaceRow);
    rows->addWidget(m_messageLabel);

    auto* toggle = new QVBoxLayout;
    toggle->addWidget(m_toggleReplaceButton, 0, Qt::AlignTop);

    auto* layout = new QHBoxLayout(this);
    layout->setSpacing(0);
    layout->addLayout(toggle);
    layout->addLayout(rows, 1);
    QWidget* order = m_toggleReplaceButton;
    for (QWidget* next :
        std::initializer_list<QWidget*>{m_searchLineEdit, m_replaceLineEdit, m_matchCaseButton,
            m_matchWordButton, m_regularExpressionButton, m_previousButton, m_nextButton,
            m_findInSelectionButton, m_closeButton, m_replaceButton, m_replaceAllButton}) {
        setTabOrder(order, next);
        order = next;
    }
    FollowLook(this, [this] { UpdateLook(); });
}

void FindReplaceWidget::UpdateLook()
{
    QLayout* const rows = layout()->itemAt(1)->layout();
    for (ToolLineEdit* field : {m_searchLineEdit, m_replaceLineEdit})
        field->setFixedHeight(Theme::Dp(FIELD_HEIGHT));
    m_resultsLabel->setMinimumWidth(Theme::Dp(LABEL_WIDTH));
    rows->setSpacing(Theme::Dp(ROW_GAP));
    for (QLayout* row : rows->findChildren<QLayout*>())
        row->setSpacing(Theme::Dp(GAP));
    const int hairline = Theme::Hairline();
    const int padding = hairline + Theme::Dp(PADDING);
    const int left = m_replaceEnabled ? hairline : padding + Theme::Dp(PADDING);
    layout()->setContentsMargins(left, padding, padding, padding);
    const int above = (Theme::Dp(FIELD_HEIGHT) - Theme::Dp(TOGGLE_EXTENT)) / 2;
    layout()->itemAt(0)->layout()->setContentsMargins(m_replaceEnabled
            ? QMargins(Theme::Dp(TOGGLE_LEFT), above, Theme::Dp(TOGGLE_GAP), 0)
            : QMargins());
    UpdateMessageLabel();
    UpdateResultsLabel();
    UpdateSize();
}

void FindReplaceWidget::UpdateReplaceRow()
{
    // Hiding the focused field would hand the focus to whatever comes next.
    const QList<QWidget*> row = {m_replaceLineEdit, m_replaceButton, m_replaceAllButton};
    if (!m_replaceVisible && row.contains(focusWidget()))
        m_searchLineEdit->setFocus(Qt::OtherFocusReason);
    m_toggleReplaceButton->setVisible(m_replaceEnabled);
    m_toggleReplaceButton->SetIcon(
        m_replaceVisible ? QStringLiteral("view_expanded") : QStringLiteral("view_collapsed"));
    for (QWidget* widget : row)
        widget->setVisible(m_replaceVisible);
    UpdateSize();
}

void FindReplaceWidget::UpdateReplaceFieldWidth()
{
    m_replaceLineEdit->setFixedWidth(qMax(0, m_searchLineEdit->width() - Theme::Dp(GAP)));
}

void FindReplaceWidget::UpdateResultsLabel()
{
    const bool found = m_total > 0;
    m_resultsLabel->setText(found ? tr("%1 of %2").arg(m_current).arg(m_total) : tr("No Results"));
    const bool missed = !found && HasSearchText();
    SetColor(*m_resultsLabel, missed ? Theme::Role::NoResults : Theme::Role::Soft);
    for (FlatButton* button : {m_previousButton, m_nextButton, m_replaceButton, m_replaceAllButton})
        button->setEnabled(found);
}

void FindReplaceWidget::UpdateMessageLabel()
{
    const QString problem = m_fault.isEmpty() ? m_message : m_fault;
    const QString text = problem.isEmpty() ? m_notice : problem;
    SetColor(*m_messageLabel, problem.isEmpty() ? Theme::Role::Soft : Theme::Role::NoResults);
    if (m_messageLabel->text() == text)
        return;
    m_messageLabel->setText(text);
    m_messageLabel->setToolTip(text);
    m_messageLabel->setVisible(!text.isEmpty());
    UpdateSize();
}

void FindReplaceWidget::SetParentWidth(int width)
{
    m_parentWidth = width;
    UpdateSize();
}

/// Grows and shrinks at its left and lower edges.
void FindReplaceWidget::UpdateSize()
{
    const int designed = !m_replaceEnabled ? WIDTH_FIND_ONLY
        : m_replaceVisible                 ? WIDTH_WITH_REPLACE
                                           : WIDTH_COLLAPSED;
    int width = Theme::Dp(designed);
    if (m_parentWidth > 0)
        width = qMin(width, m_parentWidth - Theme::Dp(PARENT_MARGIN));
    width = qMax(width, Theme::Dp(PARENT_MARGIN));
    m_resultsLabel->setVisible(width >= Theme::Dp(WIDTH_FOR_LABEL));
    m_previousButton->setVisible(width >= Theme::Dp(WIDTH_FOR_ARROWS));
    m_nextButton->setVisible(width >= Theme::Dp(WIDTH_FOR_ARROWS));
    QLayout* const all = layout();
    // Rows that came or went are known to the nested layouts only after this.
    all->activate();
    const int right = x() + this->width();
    setGeometry(right - width, y(), width, all->sizeHint().height());
}

void FindReplaceWidget::UpdateKeyBindings(const KeyBindings* keyBindings)
{
    for (const ButtonRow& row : BUTTONS)
        (this->*row.button)->SetToolTip(keyBindings->GetToolTip(row.binding, tr(row.label)));
}
