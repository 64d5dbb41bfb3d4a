#pragma once

#include "engine/Value.h"

#include <QDoubleSpinBox>

namespace host::ui {

/// A field for a whole or broken number, without arrows. It tells of a number when its editing is
/// done, and never of one that a script set.
class NumberBox : public QDoubleSpinBox
{
    Q_OBJECT
public:
    explicit NumberBox(bool whole, QWidget* parent = nullptr);

    bool IsWhole() const { return m_whole; }
    /// An int or a float.
    Value Number() const;
    void SetNumber(double number);
    void SetLeast(double least);
    void SetMost(double most);
    void SetPrecision(int digits);

Q_SIGNALS:
    void Changed();

private:
    const bool m_whole;
};

} // namespace host::ui
