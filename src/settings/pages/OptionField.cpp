#include "settings/pages/OptionField.h"

#include "settings/pages/CheckField.h"
#include "settings/pages/FontField.h"
#include "settings/pages/LinesField.h"
#include "settings/pages/NumberField.h"
#include "settings/pages/OptionTable.h"
#include "settings/pages/PathField.h"
#include "settings/pages/PathListField.h"
#include "window/chrome/ElidedLabel.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QStyle>

namespace {

// Design pixels.
constexpr int LABEL_GAP = 10;
constexpr int ROW_HEIGHT = 24;
constexpr int RADIUS = 4;
constexpr int MATCH_MARGIN = 4;

constexpr double MATCH_FILL = 0.17; // of the accent
constexpr double MATCH_EDGE = 0.55;

} // namespace

OptionField* OptionField::Create(const OptionRow& row, QWidget* parent)
{
    using K = OptionRow::Kind;
    switch (row.kind) {
    case K::Check: return new CheckField(row, parent);
    case K::Number: return new NumberField(row, parent);
    case K::FontFamily: return new FontField(row, parent);
    case K::Executable:
    case K::File:
    case K::Folder: return new PathField(row, parent);
    case K::Lines: return new LinesField(row, parent);
    case K::Paths: return new PathListField(row, parent);
    }
    return nullptr;
}

OptionField::OptionField(const OptionRow& row, QWidget* parent)
    : QWidget(parent)
    , m_row(row)
    , m_line(new QHBoxLayout)
    , m_faultLabel(new ElidedLabel(this))
{
    setObjectName(QLatin1String(row.key));
    m_faultLabel->setObjectName(QStringLiteral("m_faultLabel"));
    m_faultLabel->hide();
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(m_line);
    layout->addWidget(m_faultLabel);
    FollowLook(this, [this, layout] {
        const int margin = Theme::Dp(MATCH_MARGIN);
        layout->setContentsMargins(margin, 0, margin, 0);
        layout->setSpacing(Theme::Hairline());
        m_line->setSpacing(Theme::Dp(LABEL_GAP));
        m_line->setContentsMargins(0, 0, 0, 0);
        m_faultLabel->setFont(Theme::SmallFont(font()));
        setMinimumHeight(Theme::Dp(ROW_HEIGHT));
    });
}

void OptionField::AddLabel(bool underLabel)
{
    m_label = new QLabel(OptionTable::GetLabel(m_row), this);
    m_label->setObjectName(QStringLiteral("m_label"));
    m_line->addWidget(m_label);
    if (underLabel)
        m_line->setDirection(QBoxLayout::TopToBottom);
}

void OptionField::AddControl(QWidget* control, bool underLabel)
{
    if (m_row.kind != OptionRow::Kind::Check) {
        AddLabel(underLabel);
        m_label->setBuddy(control);
    }
    control->setObjectName(QStringLiteral("m_control"));
    control->setAccessibleName(OptionTable::GetLabel(m_row));
    m_line->addWidget(control);
    setFocusProxy(control);
    UpdateToolTip();
}

void OptionField::AddBeside(QWidget* widget)
{
    m_line->addWidget(widget);
}

void OptionField::AddStretch()
{
    m_line->addStretch(1);
}

int OptionField::GetLabelWidth() const
{
    const bool isInFront = m_label && m_line->direction() == QBoxLayout::LeftToRight;
    return isInFront ? m_label->sizeHint().width() : 0;
}

void OptionField::SetLabelWidth(int width)
{
    if (GetLabelWidth() > 0)
        m_label->setMinimumWidth(width);
}

void OptionField::SetIdle(const QString& reason)
{
    if (m_reason == reason)
        return;
    m_reason = reason;
    setEnabled(reason.isEmpty());
    UpdateToolTip();
}

void OptionField::SetFault(const QString& fault)
{
    if (m_faultLabel->GetText() == fault)
        return;
    m_faultLabel->SetText(fault);
    m_faultLabel->setVisible(!fault.isEmpty());
    QWidget* const control = GetControl();
    control->setProperty("invalid", !fault.isEmpty());
    control->style()->unpolish(control);
    control->style()->polish(control);
    UpdateToolTip();
}

void OptionField::SetMatched(bool matched)
{
    m_matched = matched;
    update();
}

void OptionField::UpdateToolTip()
{
    QString text = OptionTable::Describe(m_row);
    if (!m_reason.isEmpty())
        text = tr("%1\nWithout effect: %2").arg(text, m_reason);
    if (!m_faultLabel->GetText().isEmpty())
        text = m_faultLabel->GetText() + QLatin1Char('\n') + text;
    setToolTip(text);
    GetControl()->setAccessibleDescription(text);
}

void OptionField::paintEvent(QPaintEvent*)
{
    if (!m_matched)
        return;
    const double half = Theme::Hairline() / 2.0;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Theme::WithAlpha(Theme::Role::Lake, MATCH_EDGE), Theme::Hairline()));
    painter.setBrush(Theme::WithAlpha(Theme::Role::Lake, MATCH_FILL));
    painter.drawRoundedRect(
        QRectF(rect()).adjusted(half, half, -half, -half), Theme::Dp(RADIUS), Theme::Dp(RADIUS));
}
