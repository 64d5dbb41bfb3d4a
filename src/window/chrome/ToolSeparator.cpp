#include "window/chrome/ToolSeparator.h"

#include "window/chrome/Theme.h"

#include <QPainter>

namespace {

// Design pixels.
constexpr int HEIGHT = 16;
constexpr int MARGIN = 4;

} // namespace

ToolSeparator::ToolSeparator(QWidget* parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize ToolSeparator::sizeHint() const
{
    return {Theme::Hairline() + 2 * Theme::Dp(MARGIN), Theme::Dp(HEIGHT)};
}

void ToolSeparator::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(
        Theme::Dp(MARGIN), 0, Theme::Hairline(), height(), Theme::Color(Theme::Role::RaiseEdge));
}
