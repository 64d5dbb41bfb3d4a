#include "window/chrome/StatusBar.h"

#include "settings/Settings.h"
#include "window/chrome/Theme.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

namespace {

// Design pixels.
constexpr int BAR_HEIGHT = 24;
constexpr int SIDE_MARGIN = 8;
constexpr int ITEM_SPACING = 16;
constexpr int ICON_SPACING = 6;
constexpr int ICON_SIZE = 14;

struct LanguageRow
{
    const char* label;
    const char* icon;
};

constexpr LanguageRow LANGUAGES[] = {
    {QT_TRANSLATE_NOOP("StatusBar", "Text"), "lang_text"},
    {QT_TRANSLATE_NOOP("StatusBar", "MEL"), "lang_mel"},
    {QT_TRANSLATE_NOOP("StatusBar", "Python"), "lang_python"},
};

} // namespace

StatusBar::StatusBar(QWidget* parent)
    : QWidget(parent)
    , m_info(CreateItem(QStringLiteral("m_info"), tr("Line Message")))
    , m_position(CreateItem(QStringLiteral("m_position"), tr("Cursor Position")))
    , m_overwrite(CreateItem(QStringLiteral("m_overwrite"), tr("Overwrite Mode")))
    , m_interpreterIcon(CreateItem(QStringLiteral("m_interpreterIcon"), QString()))
    , m_interpreter(CreateItem(QStringLiteral("m_interpreter"), tr("Interpreter")))
{
    m_info->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_overwrite->setText(tr("OVR"));
    m_overwrite->hide();

    auto* interpreter = new QHBoxLayout;
    interpreter->setSpacing(Theme::Dp(ICON_SPACING));
    interpreter->addWidget(m_interpreterIcon);
    interpreter->addWidget(m_interpreter);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(Theme::Dp(SIDE_MARGIN), 0, Theme::Dp(SIDE_MARGIN), 0);
    layout->setSpacing(Theme::Dp(ITEM_SPACING));
    layout->addWidget(m_info, 1);
    layout->addWidget(m_overwrite);
    layout->addWidget(m_position);
    layout->addLayout(interpreter);
    setFixedHeight(Theme::Dp(BAR_HEIGHT));
    UpdateFonts();
}

QLabel* StatusBar::CreateItem(const QString& name, const QString& accessibleName)
{
    auto* label = new QLabel(this);
    label->setObjectName(name);
    label->setAccessibleName(accessibleName);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QSize StatusBar::sizeHint() const
{
    return {0, Theme::Dp(BAR_HEIGHT)};
}

void StatusBar::SetInterpreter(int language)
{
    const LanguageRow& row = LANGUAGES[qBound(0, language, 2)];
    m_interpreter->setText(tr(row.label));
    m_interpreterIcon->setPixmap(
        Theme::Pixmap(QLatin1String(row.icon), ICON_SIZE, devicePixelRatioF()));
    m_interpreter->setVisible(Settings::statusBarInterpreterVisible);
    m_interpreterIcon->setVisible(Settings::statusBarInterpreterVisible);
}

void StatusBar::SetCursorPosition(int line, int column, int selectionLength)
{
    if (line == 0) {
        m_position->clear();
        m_position->setMinimumWidth(0);
        return;
    }
    QString text = tr("Ln %1, Col %2").arg(line).arg(column);
    if (selectionLength > 0)
        text += tr(" (%1 selected)").arg(selectionLength);
    m_position->setText(text);
    // Nothing to its left may move with each key, so the field only grows.
    m_position->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_position->setMinimumWidth(qMax(m_position->minimumWidth(), m_position->sizeHint().width()));
}

void StatusBar::SetOverwrite(bool overwrite)
{
    m_overwrite->setVisible(overwrite);
}

void StatusBar::SetInfo(const QString& text)
{
    m_infoText = text;
    UpdateInfoText();
}

void StatusBar::ShowTip(const QString& text)
{
    m_tip = text;
    UpdateInfoText();
}

void StatusBar::UpdateInfoText()
{
    const bool shown = !m_tip.isEmpty() || Settings::statusBarLineMessageVisible;
    const QString text = m_tip.isEmpty() ? m_infoText : m_tip;
    m_info->setText(shown ? m_info->fontMetrics().elidedText(text, Qt::ElideRight, m_info->width())
                          : QString());
    m_info->setToolTip(m_tip.isEmpty() ? m_infoText.toHtmlEscaped() : QString());
}

void StatusBar::UpdateFonts()
{
    for (QLabel* label : {m_info, m_position, m_overwrite, m_interpreter}) {
        QPalette palette = label->palette();
        palette.setColor(QPalette::WindowText, Theme::Color(Theme::Role::Text));
        label->setPalette(palette);
        label->setFont(Theme::SmallFont(font()));
    }
}

void StatusBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Theme::Color(Theme::Role::Panel));
    painter.fillRect(0, 0, width(), Theme::Hairline(), Theme::Color(Theme::Role::Groove));
}

void StatusBar::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    UpdateInfoText();
}

bool StatusBar::event(QEvent* event)
{
    if (event->type() == QEvent::FontChange)
        UpdateFonts();
    return QWidget::event(event);
}
