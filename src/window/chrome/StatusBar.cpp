#include "window/chrome/StatusBar.h"

#include "settings/Settings.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/StatusItem.h"
#include "window/chrome/Theme.h"
#include "window/chrome/ToolTipText.h"

#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QPainter>

namespace {

// Design pixels.
constexpr int BAR_HEIGHT = 24;
constexpr int END_MARGIN = 4;

struct LanguageRow
{
    const char* label;
    const char* icon; ///< null: none
};

constexpr LanguageRow LANGUAGES[] = {
    {QT_TRANSLATE_NOOP("StatusBar", "Text"), nullptr},
    {QT_TRANSLATE_NOOP("StatusBar", "MEL"), "lang_mel"},
    {QT_TRANSLATE_NOOP("StatusBar", "Python"), "lang_python"},
};

/// By severity.
constexpr const char* SEVERITY_ICONS[] = {"", "status_error", "status_warning", "status_info"};

struct FieldRow
{
    const char* label;
    bool* shown;
};

const FieldRow FIELDS[] = {
    {QT_TRANSLATE_NOOP("StatusBar", "Interpreter"), &Settings::statusBarInterpreterVisible},
    {QT_TRANSLATE_NOOP("StatusBar", "Error Count"), &Settings::statusBarErrorCountVisible},
    {QT_TRANSLATE_NOOP("StatusBar", "Line Message"), &Settings::statusBarLineMessageVisible},
};

StatusItem::Part CountPart(const char* icon, int count, Theme::Role role)
{
    const QColor color = Theme::Color(count > 0 ? role : Theme::Role::Soft);
    return {QLatin1String(icon), QString::number(count), color, true};
}

} // namespace

StatusBar::StatusBar(QWidget* parent)
    : QWidget(parent)
    , m_counts(CreateItem(QStringLiteral("m_counts")))
    , m_info(CreateItem(QStringLiteral("m_info")))
    , m_overwrite(CreateItem(QStringLiteral("m_overwrite")))
    , m_position(CreateItem(QStringLiteral("m_position")))
    , m_format(CreateItem(QStringLiteral("m_format")))
    , m_session(CreateItem(QStringLiteral("m_session")))
    , m_interpreter(CreateItem(QStringLiteral("m_interpreter")))
{
    auto* layout = new QHBoxLayout(this);
    layout->setSpacing(0);
    layout->addWidget(m_counts);
    layout->addWidget(m_info);
    layout->addStretch(1);
    layout->addWidget(m_session);
    layout->addWidget(m_overwrite);
    layout->addWidget(m_position);
    layout->addWidget(m_format);
    layout->addWidget(m_interpreter);

    m_info->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    m_position->SetWidthKept(true);
    connect(m_counts, &QAbstractButton::clicked, this, &StatusBar::CountsPressed);
    connect(m_info, &QAbstractButton::clicked, this, &StatusBar::InfoPressed);
    connect(m_position, &QAbstractButton::clicked, this, &StatusBar::PositionPressed);
    FollowLook(this, [this] { UpdateLook(); });
    m_overwrite->SetText(tr("OVR"), Theme::Color(Theme::Role::Strong), tr("Overwrite mode"));
    m_overwrite->hide();
    SetFormat(QString(), QString());
    SetSession(QString(), QString());
    SetErrorAndWarningCount(0, 0);
    UpdateFields();
}

StatusItem* StatusBar::CreateItem(const QString& name)
{
    auto* item = new StatusItem(this);
    item->setObjectName(name);
    item->SetPressable(false);
    return item;
}

QSize StatusBar::sizeHint() const
{
    return {0, Theme::Dp(BAR_HEIGHT)};
}

void StatusBar::SetInterpreter(int language)
{
    const LanguageRow& row = LANGUAGES[qBound(0, language, 2)];
    const QString label = tr(row.label);
    m_interpreter->SetParts(
        {{QLatin1String(row.icon), label, Theme::Color(Theme::Role::Soft), false}},
        tr("Language %1").arg(label));
}

void StatusBar::SetCursorPosition(int line, int column, int selectionLength)
{
    m_position->SetPressable(line > 0);
    m_position->setToolTip(line > 0 ? tr("Go to Line") : QString());
    if (line == 0) {
        m_position->ForgetWidths();
        m_position->SetParts({}, QString());
        return;
    }
    QString text = tr("Ln %1, Col %2").arg(line).arg(column);
    QString sentence = tr("Line %1, column %2").arg(line).arg(column);
    if (selectionLength > 0) {
        text += tr(" (%1 selected)").arg(selectionLength);
        sentence += tr(", %1 selected").arg(selectionLength);
    }
    m_position->SetText(text, Theme::Color(Theme::Role::Soft), sentence);
}

void StatusBar::SetFormat(const QString& encoding, const QString& lineEnds)
{
    const QColor color = Theme::Color(Theme::Role::Soft);
    QVector<StatusItem::Part> parts;
    QStringList sentences;
    if (!encoding.isEmpty()) {
        parts.append({QString(), encoding, color, false});
        sentences.append(tr("Encoding %1").arg(encoding));
    }
    if (!lineEnds.isEmpty()) {
        parts.append({QString(), lineEnds, color, false});
        sentences.append(tr("Line ends %1").arg(lineEnds));
    }
    m_format->SetParts(parts, sentences.join(QStringLiteral(", ")));
    m_format->setVisible(!parts.isEmpty());
}

void StatusBar::SetSession(const QString& text, const QString& explanation)
{
    m_session->SetText(text, Theme::Color(Theme::Role::Strong), explanation);
    m_session->setToolTip(ToolTipText(explanation));
    m_session->setVisible(!text.isEmpty());
}

void StatusBar::SetOverwrite(bool overwrite)
{
    m_overwrite->setVisible(overwrite);
}

void StatusBar::SetErrorAndWarningCount(int errors, int warnings)
{
    const QString errorCount = errors == 1 ? tr("1 error") : tr("%1 errors").arg(errors);
    const QString warningCount = warnings == 1 ? tr("1 warning") : tr("%1 warnings").arg(warnings);
    m_counts->SetParts({CountPart("status_error", errors, Theme::Role::StatusError),
                           CountPart("status_warning", warnings, Theme::Role::StatusWarning)},
        tr("%1, %2").arg(errorCount, warningCount));
    m_counts->setToolTip(m_counts->accessibleName());
    m_counts->SetPressable(errors + warnings > 0);
}

void StatusBar::SetInfo(const QString& text, Severity severity)
{
    m_infoText = text;
    m_severity = severity;
    UpdateInfo();
}

void StatusBar::ShowTip(const QString& text)
{
    m_tip = text;
    UpdateInfo();
}

void StatusBar::UpdateInfo()
{
    const QColor color = Theme::Color(Theme::Role::Soft);
    const bool isMessage
        = m_tip.isEmpty() && Settings::statusBarLineMessageVisible && !m_infoText.isEmpty();
    if (isMessage) {
        const QString icon = QLatin1String(SEVERITY_ICONS[static_cast<int>(m_severity)]);
        m_info->SetParts({{icon, m_infoText.simplified(), color, false}}, m_infoText);
    } else {
        m_info->SetText(m_tip, color, m_tip);
    }
    m_info->setToolTip(isMessage ? ToolTipText(m_infoText) : QString());
    m_info->SetPressable(isMessage);
}

void StatusBar::UpdateFields()
{
    m_interpreter->setVisible(Settings::statusBarInterpreterVisible);
    m_counts->setVisible(Settings::statusBarErrorCountVisible);
    UpdateInfo();
}

QMenu* StatusBar::CreateContextMenu()
{
    auto* menu = new QMenu(this);
    for (const FieldRow& row : FIELDS) {
        QAction* const action = menu->addAction(tr(row.label));
        action->setCheckable(true);
        action->setChecked(*row.shown);
        connect(action, &QAction::toggled, this, [this, shown = row.shown](bool checked) {
            *shown = checked;
            UpdateFields();
        });
    }
    menu->addSeparator();
    connect(menu->addAction(tr("Hide Status Bar")), &QAction::triggered, this,
        &StatusBar::HideRequested);
    return menu;
}

void StatusBar::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu* const menu = CreateContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
}

void StatusBar::UpdateLook()
{
    // The groove at the top belongs to the bar's height.
    layout()->setContentsMargins(
        Theme::Dp(END_MARGIN), Theme::Hairline(), Theme::Dp(END_MARGIN), 0);
    setFixedHeight(Theme::Dp(BAR_HEIGHT));
    for (StatusItem* item : {m_counts, m_info, m_overwrite, m_position, m_format, m_interpreter})
        item->setFont(Theme::SmallFont(font()));
}

void StatusBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Theme::Color(Theme::Role::Panel));
    painter.fillRect(0, 0, width(), Theme::Hairline(), Theme::Color(Theme::Role::Groove));
}
