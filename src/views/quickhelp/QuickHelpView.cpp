#include "views/quickhelp/QuickHelpView.h"

#include "settings/KeyBindings.h"
#include "views/EmptyPage.h"
#include "views/quickhelp/QuickHelpFlags.h"
#include "views/quickhelp/QuickHelpPage.h"
#include "views/quickhelp/QuickHelpText.h"
#include "window/chrome/FlatButton.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"

#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QStackedLayout>
#include <QTimer>

namespace {

// Design pixels.
constexpr int MARGIN = 14;
constexpr int SPACING = 6;

constexpr int HISTORY_LENGTH = 20;
constexpr int REST = 300; // ms without a key after which a name is looked up

void SetColor(QWidget* widget, Theme::Role role)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::WindowText, Theme::Color(role));
    widget->setPalette(palette);
}

} // namespace

QuickHelpView::QuickHelpView(QWidget* parent)
    : QWidget(parent)
{
    CreateWidgets();
    CreateLayout();
    CreateConnections();
    ShowFirstHint();
    UpdateButtons();
}

void QuickHelpView::CreateWidgets()
{
    m_search = new QLineEdit(this);
    m_search->setObjectName(QStringLiteral("m_quickHelpSearch"));
    m_search->setPlaceholderText(tr("Name, or part of a flag"));
    m_search->setAccessibleName(tr("Name, or part of a flag"));
    m_search->setMinimumWidth(0);
    m_search->installEventFilter(this);
    const auto button = [this](const char* icon, const QString& label, const char* name) {
        auto* made = new FlatButton(QLatin1String(icon), label, FlatButton::Tint::Computed, this);
        made->setObjectName(QLatin1String(name));
        return made;
    };
    m_backButton = button("scroll_left", tr("Back"), "m_quickHelpBackButton");
    m_forwardButton = button("scroll_right", tr("Forward"), "m_quickHelpForwardButton");
    m_referenceButton
        = button("view_quick_help", tr("Command Reference"), "m_quickHelpReferenceButton");
    m_emptyPage = new EmptyPage(QStringLiteral("view_quick_help"), this);
    m_emptyPage->setObjectName(QStringLiteral("m_quickHelpEmptyPage"));
    m_page = new QuickHelpPage(this);
    m_page->setObjectName(QStringLiteral("m_quickHelpPage"));
    m_page->setAccessibleName(tr("Quick Help"));
    m_caption = new QLabel(tr("FLAGS"), this);
    m_caption->setObjectName(QStringLiteral("m_quickHelpCaption"));
    m_flags = new QuickHelpFlags(this);
    m_flags->setObjectName(QStringLiteral("m_quickHelpFlags"));
    m_flags->setAccessibleName(tr("Flags"));
    m_count = new QLabel(this);
    m_count->setObjectName(QStringLiteral("m_quickHelpCount"));
    m_count->setTextFormat(Qt::PlainText);
    m_count->setWordWrap(true);
    m_count->setMinimumWidth(1);
    m_restTimer = new QTimer(this);
    m_restTimer->setSingleShot(true);
    m_restTimer->setInterval(REST);
}

void QuickHelpView::CreateLayout()
{
    auto* tools = new QHBoxLayout;
    tools->setSpacing(0);
    tools->addWidget(m_search, 1);
    for (FlatButton* button : {m_backButton, m_forwardButton, m_referenceButton})
        tools->addWidget(button);
    auto* known = new QWidget(this);
    auto* content = new QVBoxLayout(known);
    content->setContentsMargins(0, 0, 0, 0);
    content->setSpacing(0);
    content->addWidget(m_page, 1);
    content->addWidget(m_caption);
    content->addWidget(m_flags, 1);
    content->addWidget(m_count);
    m_pages = new QStackedLayout;
    m_pages->addWidget(m_emptyPage);
    m_pages->addWidget(known);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(tools);
    layout->addLayout(m_pages, 1);
    FollowLook(this, [this, tools] {
        const int margin = Theme::Dp(MARGIN);
        const int spacing = Theme::Dp(SPACING);
        tools->setContentsMargins(margin, spacing, spacing, spacing);
        m_caption->setContentsMargins(margin, spacing, spacing, spacing);
        m_count->setContentsMargins(margin, spacing, margin, spacing);
        UpdateLook();
    });
    QWidget* before = m_search;
    for (QWidget* next : std::initializer_list<QWidget*>{
             m_backButton, m_forwardButton, m_referenceButton, m_page, m_flags}) {
        setTabOrder(before, next);
        before = next;
    }
}

void QuickHelpView::CreateConnections()
{
    connect(m_search, &QLineEdit::textChanged, this, &QuickHelpView::OnSearchChanged);
    connect(m_search, &QLineEdit::returnPressed, this, &QuickHelpView::OnReturnPressed);
    connect(m_restTimer, &QTimer::timeout, this, &QuickHelpView::OnSearchRested);
    connect(m_backButton, &QAbstractButton::clicked, this, [this] { Go(-1); });
    connect(m_forwardButton, &QAbstractButton::clicked, this, [this] { Go(1); });
    connect(m_referenceButton, &QAbstractButton::clicked, this, [this] {
        if (const QuickHelpTopic* const topic = GetTopic())
            Q_EMIT CommandReferenceRequested(topic->name);
    });
    connect(m_flags, &QuickHelpFlags::FlagChosen, this, &QuickHelpView::FlagChosen);
    connect(m_page, &QuickHelpPage::FileRequested, this, &QuickHelpView::FileRequested);
    connect(m_page, &QuickHelpPage::HideRequested, this, &QuickHelpView::HideRequested);
    connect(m_flags, &QuickHelpFlags::HideRequested, this, &QuickHelpView::HideRequested);
}

void QuickHelpView::UpdateLook()
{
    m_caption->setFont(Theme::CaptionFont(font()));
    SetColor(m_caption, Theme::Role::Soft);
    m_count->setFont(Theme::SmallFont(font()));
    SetColor(m_count, Theme::Role::Faint);
}

void QuickHelpView::UpdateKeyBindings(const KeyBindings* keyBindings)
{
    m_referenceButton->SetToolTip(
        keyBindings->GetToolTip(KeyBindings::CommandReference, tr("Command Reference")));
    m_shortcut
        = keyBindings->GetShortcut(KeyBindings::QuickHelp).toString(QKeySequence::NativeText);
    if (m_place < 0 && !m_isUnknown)
        ShowFirstHint();
}

/// What is shown; null while that is nothing.
const QuickHelpTopic* QuickHelpView::GetTopic() const
{
    return m_place < 0 || m_isUnknown ? nullptr : &m_history[m_place];
}

void QuickHelpView::Show(const QString& text, bool isRequested)
{
    const QString name = QuickHelpText::DottedNameIn(text);
    if (name.isEmpty())
        return;
    const Script script = isRequested && m_getScript ? m_getScript() : Script();
    const QuickHelpTopic topic = isRequested ? m_topics.Find(name, script)
                                             : m_topics.FindListed(QuickHelpText::LastPart(name));
    if (topic.IsKnown()) {
        m_search->clear();
        Remember(topic, isRequested);
    } else if (isRequested) {
        ShowNothing(name, script.language == CodeEditorLanguage::Python);
    }
}

/// Names that nobody asked for do not fill the history: each takes the place of the one before.
void QuickHelpView::Remember(const QuickHelpTopic& topic, bool isRequested)
{
    const bool isSame = m_place >= 0 && m_history[m_place].name == topic.name
        && m_history[m_place].kind == topic.kind;
    if (!isSame)
        m_history.resize(m_isPassing && !isRequested ? m_place : m_place + 1);
    if (isSame)
        m_history[m_place] = topic;
    else
        m_history.append(topic);
    if (m_history.size() > HISTORY_LENGTH)
        m_history.removeFirst();
    if (!isSame)
        m_place = m_history.size() - 1;
    m_isPassing = !isRequested && (m_isPassing || !isSame);
    ShowTopic();
}

void QuickHelpView::ShowTopic()
{
    const QuickHelpTopic& topic = m_history[m_place];
    m_isUnknown = false;
    m_page->SetTopic(topic);
    m_flags->SetFlags(topic.flags);
    m_caption->setVisible(!topic.flags.isEmpty());
    m_flags->setVisible(!topic.flags.isEmpty());
    m_count->setVisible(topic.kind == QuickHelpTopic::Kind::Command);
    m_pages->setCurrentIndex(1);
    Filter();
    UpdateButtons();
}

void QuickHelpView::ShowNothing(const QString& name, bool isPython)
{
    m_isUnknown = true;
    m_emptyPage->SetTexts(tr("No help for '%1'").arg(name),
        isPython ? tr("It is no command of the host, nothing that the script defines and nothing "
                      "that is loaded. Run the import that brings it and ask again.")
                 : tr("The host has no command and no procedure of this name. Source the script "
                      "that brings it and ask again."));
    m_pages->setCurrentIndex(0);
    UpdateButtons();
}

void QuickHelpView::ShowFirstHint()
{
    m_emptyPage->SetTexts(tr("Help on commands and Python names"),
        m_shortcut.isEmpty()
            ? tr("Type a name above and press Return, or choose Quick Help in the menu of an "
                 "editor.")
            : tr("Type a name above and press Return, or put the cursor on one in an editor and "
                 "press %1.")
                  .arg(m_shortcut));
}

void QuickHelpView::Go(int step)
{
    // Back from what is unknown leads to what was shown before it.
    const int place = m_isUnknown ? m_place : m_place + step;
    m_place = qBound(0, place, m_history.size() - 1);
    m_isPassing = false;
    m_search->clear();
    ShowTopic();
}

void QuickHelpView::OnSearchChanged()
{
    m_restTimer->start();
    Filter();
}

/// A flag's whole name stays a filter, also where a command is called the same.
void QuickHelpView::OnSearchRested()
{
    const QString text = m_search->text().trimmed();
    const QString name = QuickHelpText::DottedNameIn(text);
    if (name.isEmpty() || name != text || (GetTopic() && m_flags->HasFlag(name)))
        return;
    const QuickHelpTopic topic = m_topics.FindListed(QuickHelpText::LastPart(name));
    if (!topic.IsKnown())
        return;
    m_typedName = text;
    Remember(topic, false);
}

void QuickHelpView::OnReturnPressed()
{
    m_restTimer->stop();
    if (m_search->text().trimmed().startsWith(QLatin1Char('-')))
        FocusFlags();
    else
        Show(m_search->text(), true);
}

void QuickHelpView::FocusFlags()
{
    if (!m_flags->isVisible())
        return;
    m_flags->SelectFirst();
    m_flags->setFocus(Qt::TabFocusReason);
}

void QuickHelpView::Filter()
{
    const QuickHelpTopic* const topic = GetTopic();
    if (!topic)
        return;
    QString wanted = m_search->text().trimmed();
    if (m_typedName.isEmpty() || !wanted.startsWith(m_typedName))
        m_typedName.clear();
    else
        wanted.clear();
    const int shown = m_flags->Filter(wanted);
    if (shown > 0)
        m_count->setText(shown == 1 ? tr("1 flag") : tr("%1 flags").arg(shown));
    else
        m_count->setText(
            wanted.isEmpty() ? tr("No flags") : tr("No flag matches. Return looks the name up."));
}

void QuickHelpView::UpdateButtons()
{
    const QuickHelpTopic* const topic = GetTopic();
    m_backButton->setEnabled(m_place > 0 || (m_isUnknown && m_place >= 0));
    m_forwardButton->setEnabled(m_place >= 0 && m_place + 1 < m_history.size());
    m_referenceButton->setEnabled(topic && topic->kind == QuickHelpTopic::Kind::Command);
}

void QuickHelpView::FocusSearch(Qt::FocusReason reason)
{
    m_search->setFocus(reason);
    m_search->selectAll();
}

void QuickHelpView::contextMenuEvent(QContextMenuEvent* event)
{
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("Hide Side Bar"), this, &QuickHelpView::HideRequested);
    menu->popup(event->globalPos());
}

bool QuickHelpView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_search)
        return QWidget::eventFilter(watched, event);
    // The window has a shortcut on Enter, which in the field belongs to the page.
    if (event->type() == QEvent::ShortcutOverride
        && static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Enter) {
        event->accept();
        return true;
    }
    // From the field straight into the table, as in a list below a field.
    if (event->type() == QEvent::KeyPress
        && static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Down) {
        FocusFlags();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
