#include "ui/commands/controls/ColorSwatch.h"

#include "ui/commands/Control.h"

#include <QPainter>

namespace host::ui {

namespace {

const QSize NATURAL_SIZE(60, 20);

} // namespace

ColorSwatch::ColorSwatch(QWidget* parent)
    : QAbstractButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

void ColorSwatch::SetColor(const QColor& color)
{
    m_color = color;
    update();
}

QSize ColorSwatch::sizeHint() const
{
    return {Scaled(NATURAL_SIZE.width()), Scaled(NATURAL_SIZE.height())};
}

void ColorSwatch::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), isEnabled() ? m_color : m_color.darker(150));
    const QColor edge = palette().color(hasFocus() ? QPalette::Link : QPalette::Dark);
    painter.setPen(edge);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace host::ui
