#include "ui/commands/controls/NumberBox.h"

#include <QSignalBlocker>

#include <limits>

namespace host::ui {

namespace {

constexpr double LARGEST_FLOAT = 1e12; // More digits than a field can show.
constexpr int USUAL_PRECISION = 3;
constexpr int MOST_DIGITS = 12;

} // namespace

NumberBox::NumberBox(bool whole, QWidget* parent)
    : QDoubleSpinBox(parent)
    , m_whole(whole)
{
    setButtonSymbols(NoButtons);
    setKeyboardTracking(false);
    setDecimals(whole ? 0 : USUAL_PRECISION);
    if (whole)
        setRange(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    else
        setRange(-LARGEST_FLOAT, LARGEST_FLOAT);
    connect(this, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
        [this] { Q_EMIT Changed(); });
}

Value NumberBox::Number() const
{
    return m_whole ? Value(qRound(value())) : Value(value());
}

void NumberBox::SetNumber(double number)
{
    const QSignalBlocker blocker(this);
    setValue(number);
}

void NumberBox::SetLeast(double least)
{
    const QSignalBlocker blocker(this);
    setMinimum(least);
}

void NumberBox::SetMost(double most)
{
    const QSignalBlocker blocker(this);
    setMaximum(most);
}

void NumberBox::SetPrecision(int digits)
{
    const QSignalBlocker blocker(this);
    if (!m_whole)
        setDecimals(qBound(0, digits, MOST_DIGITS));
}

} // namespace host::ui
