#include "views/QuickHelpView.h"

#include "plugin/MayaUtil.h"
#include "settings/Settings.h"
#include "views/QuickHelpFlags.h"
#include "window/chrome/FlatButton.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/TextLook.h"
#include "window/chrome/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

namespace {

// Design pixels.
constexpr int MARGIN = 14;
constexpr int SPACING = 6;

constexpr int HISTORY_LENGTH = 20;
constexpr int ICON_SIZE = 16; // design pixels

void SetColor(QWidget* widget, Theme::Role role)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::WindowText, Theme::Color(role));
    widget->setPalette(palette);
}

QLabel* PlainLabel(const QString& name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

} // namespace

QuickHelpView::QuickHelpView(QWidget* parent)
    : QWidget(parent)
{
    CreateWidgets();
    CreateLayout();
    CreateConnections();
    UpdateButtons();
    ShowTitle(tr("No command"), tr("Return searches"), false);
}

void QuickHelpView::CreateWidgets()
{
    m_search = new QLineEdit(this);
    m_search->setObjectName(QStringLiteral("m_quickHelpSearch"));
    m_search->setPlaceholderText(tr("Command, or part of a flag"));
    m_search->setAccessibleName(tr("Command, or part of a flag"));
    m_icon = new QLabel(this);
    m_name = PlainLabel(QStringLiteral("m_quickHelpName"), this);
    m_name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_kind = PlainLabel(QStringLiteral("m_quickHelpKind"), this);
    m_count = PlainLabel(QStringLiteral("m_quickHelpCount"), this);
    const auto button = [this](const char* icon, const QString& label, const char* name) {
        auto* made = new FlatButton(QLatin1String(icon), label, FlatButton::Tint::Computed, this);
        made->setObjectName(QLatin1String(name));
        return made;
    };
    m_backButton = button("scroll_left", tr("Back"), "m_quickHelpBackButton");
    m_forwardButton = button("scroll_right", tr("Forward"), "m_quickHelpForwardButton");
    m_referenceButton
        = button("view_quick_help", tr("Command Reference"), "m_quickHelpReferenceButton");
    m_caption = new QLabel(tr("FLAGS"), this);
    m_caption->setObjectName(QStringLiteral("m_quickHelpCaption"));
    m_flags = new QuickHelpFlags(this);
    m_flags->setObjectName(QStringLiteral("m_quickHelpFlags"));
    m_flags->setAccessibleName(tr("Flags"));
}

void QuickHelpView::CreateLayout()
{
    auto* title = new QHBoxLayout;
    title->addWidget(m_icon);
    title->addWidget(m_name, 1);
    title->addWidget(m_kind);
    auto* tools = new QHBoxLayout;
    tools->setSpacing(0);
    tools->addWidget(m_search, 1);
    for (FlatButton* button : {m_backButton, m_forwardButton, m_referenceButton})
        tools->addWidget(button);
    auto* head = new QVBoxLayout;
    head->addLayout(tools);
    head->addLayout(title);
    head->addWidget(m_caption);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(head);
    layout->addWidget(m_flags, 1);
    layout->addWidget(m_count);
    FollowLook(this, [this, title, head] {
        const int margin = Theme::Dp(MARGIN);
        const int spacing = Theme::Dp(SPACING);
        head->setContentsMargins(margin, spacing, spacing, spacing);
        head->setSpacing(spacing);
        title->setSpacing(spacing);
        title->setContentsMargins(0, spacing, margin - spacing, spacing);
        m_count->setContentsMargins(margin, spacing, margin, spacing);
        UpdateLook();
    });
}

void QuickHelpView::CreateConnections()
{
    connect(m_search, &QLineEdit::textChanged, this, &QuickHelpView::Filter);
    connect(m_search, &QLineEdit::returnPressed, this, [this] { Show(m_search->text(), true); });
    connect(m_backButton, &QAbstractButton::clicked, this, [this] { Go(-1); });
    connect(m_forwardButton, &QAbstractButton::clicked, this, [this] { Go(1); });
    connect(m_referenceButton, &QAbstractButton::clicked, this,
        [this] { Q_EMIT CommandReferenceRequested(m_history.value(m_place)); });
    connect(m_flags, &QuickHelpFlags::FlagChosen, this, &QuickHelpView::FlagChosen);
}

void QuickHelpView::UpdateLook()
{
    m_icon->setPixmap(Theme::Pixmap(QStringLiteral("mel_command"), ICON_SIZE, devicePixelRatioF()));
    m_caption->setFont(Theme::CaptionFont(font()));
    SetColor(m_caption, Theme::Role::Soft);
    ShowTitle(m_name->text(), m_kind->text(), m_isCommand);
    for (QLabel* label : {m_kind, m_count}) {
        label->setFont(Theme::SmallFont(font()));
        SetColor(label, Theme::Role::Faint);
    }
}

/// A command's name looks as it does in a script, a sentence does not.
void QuickHelpView::ShowTitle(const QString& text, const QString& kind, bool isCommand)
{
    int noZoom = 0;
    m_isCommand = isCommand;
    m_icon->setVisible(isCommand);
    m_caption->setVisible(isCommand);
    m_name->setFont(isCommand ? TextLook::ZoomedFont(Settings::codeEditorFont, noZoom) : font());
    m_name->setText(text);
    m_name->setToolTip(text.toHtmlEscaped());
    m_kind->setText(kind);
}

QuickHelpView::Flags QuickHelpView::FlagsOf(const QString& command)
{
    const auto known = m_known.constFind(command);
    if (known != m_known.constEnd())
        return *known;
    const Flags flags = QuickHelpText::Flags(MayaUtil::CommandFlags(command));
    m_known.insert(command, flags);
    return flags;
}

void QuickHelpView::Show(const QString& text, bool isRequested)
{
    const QString name = QuickHelpText::NameIn(text);
    const bool known = MayaUtil::MelCommands().contains(name);
    if (name.isEmpty() || (!known && !isRequested))
        return;
    if (!known) {
        ShowNothing(name);
        return;
    }
    if (m_history.value(m_place) != name) {
        m_history = m_history.mid(0, m_place + 1);
        m_history.append(name);
        while (m_history.size() > HISTORY_LENGTH)
            m_history.removeFirst();
        m_place = m_history.size() - 1;
    }
    ShowName(name);
}

void QuickHelpView::ShowNothing(const QString& name)
{
    ShowTitle(tr("No help for '%1'").arg(name), QString(), false);
    m_flags->clear();
    m_count->clear();
}

void QuickHelpView::Go(int step)
{
    m_place = qBound(0, m_place + step, m_history.size() - 1);
    ShowName(m_history[m_place]);
}

void QuickHelpView::ShowName(const QString& name)
{
    m_search->clear();
    ShowTitle(name, tr("MEL command"), true);
    m_flags->SetFlags(FlagsOf(name));
    Filter();
    UpdateButtons();
}

void QuickHelpView::Filter()
{
    const QString wanted = m_search->text().trimmed();
    const int shown = m_flags->Filter(m_search->text().trimmed());
    m_count->setText(m_place < 0 ? QString() : tr("%n flag(s)", nullptr, shown));
}

void QuickHelpView::UpdateButtons()
{
    m_backButton->setEnabled(m_place > 0);
    m_forwardButton->setEnabled(m_place + 1 < m_history.size());
    m_referenceButton->setEnabled(m_place >= 0);
}

void QuickHelpView::FocusSearch(Qt::FocusReason reason)
{
    m_search->setFocus(reason);
    m_search->selectAll();
}
