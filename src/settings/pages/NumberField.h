#pragma once

#include "settings/pages/OptionField.h"

class QSpinBox;

/// An option that is a whole number within the row's range. Owned by the page.
class NumberField : public OptionField
{
    Q_OBJECT

public:
    NumberField(const OptionRow& row, QWidget* parent);

    QVariant GetValue() const override;
    /// A number out of range, which a file may hold, is kept until another one is chosen.
    void SetValue(const QVariant& value) override;
    QWidget* GetControl() const override;

private:
    QSpinBox* m_number;
};
