#include "views/QuickHelpView.h"

#include "plugin/MayaUtil.h"
#include "views/SideBarTree.h"
#include "window/chrome/FlatButton.h"
#include "window/chrome/Theme.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

namespace {

// Design pixels.
constexpr int MARGIN = 14;
constexpr int SPACING = 6;

constexpr int HISTORY_LENGTH = 20;
constexpr int NAME_ROLE = Qt::UserRole;

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
    UpdateFonts();
    UpdateButtons();
    m_name->setText(tr("No command"));
    m_kind->setText(tr("Return searches"));
}

void QuickHelpView::CreateWidgets()
{
    m_search = new QLineEdit(this);
    m_search->setObjectName(QStringLiteral("m_quickHelpSearch"));
    m_search->setPlaceholderText(tr("Command, or part of a flag"));
    m_search->setAccessibleName(tr("Command, or part of a flag"));
    m_name = PlainLabel(QStringLiteral("m_quickHelpName"), this);
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
    m_flags = new SideBarTree(this);
    m_flags->setObjectName(QStringLiteral("m_quickHelpFlags"));
    m_flags->setAccessibleName(tr("Flags"));
    m_flags->setRootIsDecorated(false);
}

void QuickHelpView::CreateLayout()
{
    const int margin = Theme::Dp(MARGIN);
    auto* title = new QHBoxLayout;
    title->setSpacing(Theme::Dp(SPACING));
    title->addWidget(m_name);
    title->addStretch(1);
    title->addWidget(m_kind);
    auto* tools = new QHBoxLayout;
    tools->setSpacing(0);
    tools->addWidget(m_search, 1);
    tools->addSpacing(Theme::Dp(SPACING));
    for (FlatButton* button : {m_backButton, m_forwardButton, m_referenceButton})
        tools->addWidget(button);
    auto* head = new QVBoxLayout;
    head->setContentsMargins(margin, Theme::Dp(SPACING), Theme::Dp(SPACING), Theme::Dp(SPACING));
    head->setSpacing(Theme::Dp(SPACING));
    head->addLayout(tools);
    head->addLayout(title);
    m_count->setContentsMargins(margin, Theme::Dp(SPACING), margin, Theme::Dp(SPACING));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(head);
    layout->addWidget(m_flags, 1);
    layout->addWidget(m_count);
}

void QuickHelpView::CreateConnections()
{
    connect(m_search, &QLineEdit::textChanged, this, &QuickHelpView::Filter);
    connect(m_search, &QLineEdit::returnPressed, this, [this] { Show(m_search->text(), true); });
    connect(m_backButton, &QAbstractButton::clicked, this, [this] { Go(-1); });
    connect(m_forwardButton, &QAbstractButton::clicked, this, [this] { Go(1); });
    connect(m_referenceButton, &QAbstractButton::clicked, this,
        [this] { Q_EMIT CommandReferenceRequested(m_history.value(m_place)); });
    connect(m_flags, &QTreeWidget::itemActivated, this, [this](const QTreeWidgetItem* item) {
        Q_EMIT FlagChosen(item->data(0, NAME_ROLE).toString());
    });
}

bool QuickHelpView::event(QEvent* event)
{
    if (event->type() == QEvent::FontChange)
        UpdateFonts();
    return QWidget::event(event);
}

void QuickHelpView::UpdateFonts()
{
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    m_name->setFont(bold);
    for (QLabel* label : {m_kind, m_count}) {
        label->setFont(Theme::SmallFont(font()));
        SetColor(label, Theme::Role::Faint);
    }
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
    m_name->setText(tr("No help for '%1'").arg(name));
    m_kind->clear();
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
    m_name->setText(name);
    m_kind->setText(tr("MEL command"));
    m_flags->clear();
    const Flags flags = FlagsOf(name);
    for (const QuickHelpText::Flag& flag : flags) {
        auto* item = new QTreeWidgetItem(m_flags);
        item->setText(0, QStringLiteral("-%1").arg(flag.longName));
        item->setData(0, SideBarTree::DetailRole,
            QStringLiteral("-%1  %2").arg(flag.shortName, flag.type).trimmed());
        item->setData(0, NAME_ROLE, flag.longName);
    }
    Filter();
    UpdateButtons();
}

void QuickHelpView::Filter()
{
    const QString wanted = m_search->text().trimmed();
    int shown = 0;
    for (int i = 0; i < m_flags->topLevelItemCount(); ++i) {
        QTreeWidgetItem* const item = m_flags->topLevelItem(i);
        const QString text = item->text(0) + item->data(0, SideBarTree::DetailRole).toString();
        const bool matches = text.contains(wanted, Qt::CaseInsensitive);
        item->setHidden(!matches);
        shown += matches ? 1 : 0;
    }
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
