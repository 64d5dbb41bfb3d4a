#pragma once

#include "engine/Value.h"

#include <QSlider>

namespace host::ui {

/// A slider over whole or broken numbers. It tells of numbers while it is dragged and once more
/// when it is let go, of keys and the wheel at once, and never of a number that a script set.
class RangeSlider : public QSlider
{
    Q_OBJECT
public:
    explicit RangeSlider(bool whole, QWidget* parent = nullptr);

    /// An int or a float.
    Value Number() const;
    void SetNumber(double number);
    double GetLeast() const { return m_least; }
    double GetMost() const { return m_most; }
    /// The number stays as near as the new range lets it.
    void SetRange(double least, double most);
    /// What a key adds. 0: one, or a hundredth of the range.
    void SetStep(double step);
    double GetStep() const { return m_step; }

Q_SIGNALS:
    void Dragged();
    void Changed();

private:
    void ApplyRange();
    void OnMoved();

    const bool m_whole;
    double m_least = 0;
    double m_most;
    double m_number = 0;
    double m_step = 0;
};

} // namespace host::ui
