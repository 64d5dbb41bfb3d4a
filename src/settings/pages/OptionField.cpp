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
#include "window/chrome/ToolTipText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QStyle>

namespace {

// Design pixels.
constexpr int LABEL_GAP = 10;
constexpr int ROW_HEIGHT = 24;
constexpr int FIELD_GAP = 3;
constexpr int RADIUS = 4;
constexpr int MATCH_MARGIN = 4;

constexpr double MATCH_FILL = 0.17; // of the accent
constexpr double MATCH_EDGE = 0.55;

void SetInvalid(QWidget& widget, bool invalid)
{
    if (widget.property("invalid").toBool() == invalid)
        return;
    widget.setProperty("invalid", invalid);
    widget.style()->unpolish(&widget);
    widget.style()->polish(&widget);
}

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
    , m_remarkIndent(new QSpacerItem(0, 0, QSizePolicy::Fixed, QSizePolicy::Fixed))
    , m_remark(new ElidedLabel(this))
{
    setObjectName(QLatin1String(row.key));
    m_remark->setObjectName(QStringLiteral("m_remark"));
    m_remark->hide();
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(m_line);
    auto* remark = new QHBoxLayout;
    remark->setSpacing(0);
    remark->addSpacerItem(m_remarkIndent);
    remark->addWidget(m_remark);
    layout->addLayout(remark);
    FollowLook(this, [this, layout] {
        const int margin = Theme::Dp(MATCH_MARGIN);
        // A check box brings the room for its ring along.
        const bool isCheck = m_row.kind == OptionRow::Kind::Check;
        const int gap = isCheck ? 0 : Theme::Dp(FIELD_GAP);
        layout->setContentsMargins(isCheck ? Theme::Hairline() : margin, gap, margin, gap);
        layout->setSpacing(Theme::Hairline());
        m_line->setSpacing(Theme::Dp(LABEL_GAP));
        m_line->setContentsMargins(0, 0, 0, 0);
        m_remark->setFont(Theme::SmallFont(font()));
    });
}

/// Never less than what stands in it takes, as a minimum height would allow.
QSize OptionField::minimumSizeHint() const
{
    const int height = m_row.kind == OptionRow::Kind::Check ? Theme::Dp(ROW_HEIGHT) : 0;
    return QWidget::minimumSizeHint().expandedTo({0, height});
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
    if (GetLabelWidth() == 0)
        return;
    m_label->setMinimumWidth(width);
    m_remarkIndent->changeSize(
        width + Theme::Dp(LABEL_GAP), 0, QSizePolicy::Fixed, QSizePolicy::Fixed);
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
    if (m_fault == fault)
        return;
    m_fault = fault;
    SetInvalid(*GetControl(), !fault.isEmpty());
    UpdateRemark();
}

void OptionField::SetNote(const QString& note)
{
    m_note = note;
    UpdateRemark();
}

void OptionField::UpdateRemark()
{
    const QString text = m_fault.isEmpty() ? m_note : m_fault;
    m_remark->SetText(text);
    m_remark->setToolTip(WrappedToolTipText(text));
    m_remark->setVisible(!text.isEmpty());
    SetInvalid(*m_remark, !m_fault.isEmpty());
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
    if (!m_fault.isEmpty())
        text = m_fault + QLatin1Char('\n') + text;
    setToolTip(WrappedToolTipText(text));
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
