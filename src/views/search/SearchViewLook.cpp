// Widgets, layout and looks of the search page.

#include "settings/KeyBindings.h"
#include "views/EmptyPage.h"
#include "views/search/SearchResultsView.h"
#include "views/search/SearchView.h"
#include "window/chrome/ElidedLabel.h"
#include "window/chrome/FlatButton.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"
#include "window/chrome/ToolLineEdit.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStackedLayout>

namespace {

// Design pixels.
constexpr int FIELD_HEIGHT = 26;
constexpr int FIELD_LEFT = 24;
constexpr int TOGGLE_EXTENT = 20;
constexpr int TOGGLE_LEFT = 3;
constexpr int RIGHT_MARGIN = 10;
constexpr int ROW_GAP = 6;
constexpr int STATUS_GAP = 4; ///< above and below
constexpr int TOP = 0;
constexpr int BOTTOM = 8;

void SetColor(QWidget* widget, Theme::Role role)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::WindowText, Theme::Color(role));
    widget->setPalette(palette);
}

QLabel* QuietLabel(const QString& name, const QString& accessibleName, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setAccessibleName(accessibleName);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

/// A button of the page; `binding` is the command whose shortcut the tool tip names.
struct SearchView::ButtonRow
{
    FlatButton* SearchView::*button;
    const char* name;
    const char* icon;
    const char* label;
    int binding;
    bool checkable;
};

struct SearchView::FieldRow
{
    ToolLineEdit* SearchView::*field;
    const char* name;
    const char* accessibleName;
    const char* placeholder;
};

// clang-format off
const SearchView::ButtonRow SearchView::BUTTONS[] = {
    {&SearchView::m_refreshButton,           "m_refreshButton",                 "refresh",            QT_TR_NOOP("Refresh"),                KeyBindings::None,           false},
    {&SearchView::m_collapseAllButton,       "m_collapseAllResultsButton",      "collapse_all",       QT_TR_NOOP("Collapse All"),           KeyBindings::None,           false},
    {&SearchView::m_clearButton,             "m_clearSearchButton",             "clear_field",        QT_TR_NOOP("Clear"),                  KeyBindings::None,           false},
    {&SearchView::m_toggleReplaceButton,     "m_toggleGlobalReplaceButton",     "view_collapsed",     QT_TR_NOOP("Toggle Replace"),         KeyBindings::ReplaceInFiles, false},
    {&SearchView::m_matchCaseButton,         "m_globalMatchCaseButton",         "match_case",         QT_TR_NOOP("Match Case"),             KeyBindings::None,           true},
    {&SearchView::m_matchWordButton,         "m_globalMatchWordButton",         "match_word",         QT_TR_NOOP("Match Whole Word"),       KeyBindings::None,           true},
    {&SearchView::m_regularExpressionButton, "m_globalRegularExpressionButton", "regular_expression", QT_TR_NOOP("Use Regular Expression"), KeyBindings::None,           true},
    {&SearchView::m_replaceAllButton,        "m_globalReplaceAllButton",        "replace_all",        QT_TR_NOOP("Replace All"),            KeyBindings::None,           false},
    {&SearchView::m_detailsButton,           "m_detailsButton",                 "search_details",     QT_TR_NOOP("Toggle Search Details"),  KeyBindings::None,           true},
};

const SearchView::FieldRow SearchView::FIELDS[] = {
    {&SearchView::m_searchField,  "m_searchField",  QT_TR_NOOP("Find"),             QT_TR_NOOP("Find")},
    {&SearchView::m_replaceField, "m_replaceField", QT_TR_NOOP("Replace"),          QT_TR_NOOP("Replace")},
    {&SearchView::m_includeField, "m_includeField", QT_TR_NOOP("files to include"), QT_TR_NOOP("files to include")},
    {&SearchView::m_excludeField, "m_excludeField", QT_TR_NOOP("files to exclude"), QT_TR_NOOP("files to exclude")},
};
// clang-format on

void SearchView::CreateWidgets()
{
    m_titleTools = new QWidget(this);
    for (const FieldRow& row : FIELDS) {
        auto* field = new ToolLineEdit(this);
        field->setObjectName(QLatin1String(row.name));
        field->setAccessibleName(tr(row.accessibleName));
        field->setPlaceholderText(tr(row.placeholder));
        field->setMinimumWidth(0);
        field->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        field->installEventFilter(this);
        this->*row.field = field;
    }
    const QString hint = tr("Folders, files and patterns such as *.py, parted by commas");
    m_includeField->SetPlainToolTip(hint);
    m_excludeField->SetPlainToolTip(hint);
    for (const ButtonRow& row : BUTTONS) {
        auto* button = new FlatButton(
            QLatin1String(row.icon), tr(row.label), FlatButton::Tint::Computed, this);
        button->setObjectName(QLatin1String(row.name));
        button->setCheckable(row.checkable);
        this->*row.button = button;
    }
    m_toggleReplaceButton->SetExtent(TOGGLE_EXTENT);
    for (FlatButton* tool : {m_matchCaseButton, m_matchWordButton, m_regularExpressionButton})
        m_searchField->AddTool(tool);
    m_status = new ElidedLabel(this);
    m_status->setObjectName(QStringLiteral("m_searchStatus"));
    m_message = QuietLabel(QStringLiteral("m_searchMessage"), tr("Message"), this);
    m_message->setWordWrap(true);
    m_message->setMinimumWidth(1);
    m_results = new SearchResultsView(this);
    m_results->setObjectName(QStringLiteral("m_results"));
    m_results->setAccessibleName(tr("Search Results"));
    m_emptyPage = new EmptyPage(QStringLiteral("no_results"), this);
    m_emptyPage->setObjectName(QStringLiteral("m_emptyPage"));
}

void SearchView::CreateLayout()
{
    auto* tools = new QHBoxLayout(m_titleTools);
    tools->setContentsMargins(0, 0, 0, 0);
    tools->setSpacing(0);
    for (FlatButton* button : {m_refreshButton, m_collapseAllButton, m_clearButton})
        tools->addWidget(button);

    auto* searchRow = new QHBoxLayout;
    searchRow->addWidget(m_toggleReplaceButton);
    searchRow->addWidget(m_searchField, 1);
    auto* replaceRow = new QHBoxLayout;
    replaceRow->addWidget(m_replaceField, 1);
    replaceRow->addWidget(m_replaceAllButton);
    auto* statusRow = new QHBoxLayout;
    statusRow->addWidget(m_status, 1);
    statusRow->addWidget(m_detailsButton);

    auto* below = new QVBoxLayout;
    below->addLayout(replaceRow);
    below->addLayout(statusRow);
    below->addWidget(m_message);
    auto* filters = new QVBoxLayout;
    filters->addWidget(m_includeField);
    filters->addWidget(m_excludeField);
    below->addLayout(filters);
    auto* groove = new QWidget(this);
    groove->setAutoFillBackground(true);
    m_pages = new QStackedLayout;
    m_pages->addWidget(m_emptyPage);
    m_pages->addWidget(m_results);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(searchRow);
    layout->addLayout(below);
    layout->addWidget(groove);
    layout->addLayout(m_pages, 1);
    FollowLook(this, [=] {
        const int right = Theme::Dp(RIGHT_MARGIN);
        const int toggleLeft = Theme::Dp(TOGGLE_LEFT);
        searchRow->setContentsMargins(toggleLeft, Theme::Dp(TOP), right, 0);
        searchRow->setSpacing(Theme::Dp(FIELD_LEFT) - toggleLeft - Theme::Dp(TOGGLE_EXTENT));
        below->setContentsMargins(
            Theme::Dp(FIELD_LEFT), Theme::Dp(ROW_GAP), right, Theme::Dp(BOTTOM));
        below->setSpacing(Theme::Dp(STATUS_GAP));
        for (QBoxLayout* row : std::initializer_list<QBoxLayout*>{filters, replaceRow, statusRow})
            row->setSpacing(Theme::Dp(ROW_GAP));
        groove->setFixedHeight(Theme::Hairline());
        QPalette palette = groove->palette();
        palette.setColor(QPalette::Window, Theme::Color(Theme::Role::Groove));
        groove->setPalette(palette);
        UpdateLook();
    });
    QWidget* before = m_refreshButton;
    for (QWidget* next : std::initializer_list<QWidget*>{m_collapseAllButton, m_clearButton,
             m_toggleReplaceButton, m_searchField, m_replaceField, m_matchCaseButton,
             m_matchWordButton, m_regularExpressionButton, m_replaceAllButton, m_detailsButton,
             m_includeField, m_excludeField, m_results}) {
        setTabOrder(before, next);
        before = next;
    }
}

void SearchView::UpdateLook()
{
    for (const FieldRow& row : FIELDS)
        (this->*row.field)->setFixedHeight(Theme::Dp(FIELD_HEIGHT));
    for (QWidget* label : std::initializer_list<QWidget*>{m_status, m_message})
        label->setFont(Theme::SmallFont(font()));
    SetColor(m_status, Theme::Role::Faint);
    SetColor(m_message, Theme::Role::NoResults);
}

void SearchView::UpdateKeyBindings(const KeyBindings* keyBindings)
{
    for (const ButtonRow& row : BUTTONS)
        (this->*row.button)->SetToolTip(keyBindings->GetToolTip(row.binding, tr(row.label)));
}

void SearchView::SetReplaceVisible(bool visible)
{
    m_replaceVisible = visible;
    // Hiding the focused field would hand the focus to whatever comes next.
    if (!visible && (m_replaceField->hasFocus() || m_replaceAllButton->hasFocus()))
        m_searchField->setFocus(Qt::OtherFocusReason);
    m_replaceField->setVisible(visible);
    m_replaceAllButton->setVisible(visible);
    m_toggleReplaceButton->SetIcon(
        visible ? QStringLiteral("view_expanded") : QStringLiteral("view_collapsed"));
    m_results->SetReplaceActive(visible && m_replaceAllButton->isEnabled());
}

void SearchView::SetFiltersVisible(bool visible)
{
    if (!visible && (m_includeField->hasFocus() || m_excludeField->hasFocus()))
        m_searchField->setFocus(Qt::OtherFocusReason);
    m_includeField->setVisible(visible);
    m_excludeField->setVisible(visible);
    m_detailsButton->setChecked(visible);
}
