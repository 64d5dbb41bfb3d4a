#include "ui/commands/controls/RangeSlider.h"

#include <QSignalBlocker>

namespace host::ui {

namespace {

constexpr int POSITIONS = 1000;
constexpr int USUAL_MOST = 100;

} // namespace

RangeSlider::RangeSlider(bool whole, QWidget* parent)
    : QSlider(Qt::Horizontal, parent)
    , m_whole(whole)
    , m_most(whole ? USUAL_MOST : 1)
{
    ApplyRange();
    connect(this, &QSlider::valueChanged, this, &RangeSlider::OnMoved);
    connect(this, &QSlider::sliderReleased, this, &RangeSlider::Changed);
}

Value RangeSlider::Number() const
{
    return m_whole ? Value(qRound(m_number)) : Value(m_number);
}

/// The positions of the widget are numbers only as far as they fit into an int.
void RangeSlider::ApplyRange()
{
    const QSignalBlocker blocker(this);
    const double range = m_most - m_least;
    const bool exact = m_whole && range <= POSITIONS * 1000.0;
    setRange(0, exact ? qRound(range) : POSITIONS);
    const double step = m_step > 0 ? m_step : m_whole ? 1 : range / 100;
    const double steps = range > 0 ? step / range * maximum() : 1;
    setSingleStep(qBound(1, qRound(steps), qMax(1, maximum())));
    setPageStep(qMax(singleStep(), maximum() / 10));
    setValue(range > 0 ? qRound((m_number - m_least) / range * maximum()) : 0);
}

void RangeSlider::SetNumber(double number)
{
    m_number = qBound(m_least, number, m_most);
    ApplyRange();
}

void RangeSlider::SetRange(double least, double most)
{
    m_least = least;
    m_most = qMax(least, most);
    SetNumber(m_number);
}

void RangeSlider::SetStep(double step)
{
    m_step = qMax(0.0, step);
    ApplyRange();
}

void RangeSlider::OnMoved()
{
    const double range = m_most - m_least;
    m_number = maximum() > 0 ? m_least + range * value() / maximum() : m_least;
    if (isSliderDown())
        Q_EMIT Dragged();
    else
        Q_EMIT Changed();
}

} // namespace host::ui
