#include "settings/pages/LinesField.h"

#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"

#include <QPlainTextEdit>

namespace {

constexpr int HEIGHT = 66; // design pixels

} // namespace

LinesField::LinesField(const OptionRow& row, QWidget* parent)
    : OptionField(row, parent)
    , m_lines(new QPlainTextEdit(this))
{
    m_lines->setTabChangesFocus(true);
    m_lines->setLineWrapMode(QPlainTextEdit::NoWrap);
    AddControl(m_lines, true);
    connect(m_lines, &QPlainTextEdit::textChanged, this, &LinesField::Changed);
    FollowLook(this, [this] { m_lines->setFixedHeight(Theme::Dp(HEIGHT)); });
}

QVariant LinesField::GetValue() const
{
    return m_lines->toPlainText();
}

void LinesField::SetValue(const QVariant& value)
{
    if (GetValue() != value)
        m_lines->setPlainText(value.toString());
}

QWidget* LinesField::GetControl() const
{
    return m_lines;
}
