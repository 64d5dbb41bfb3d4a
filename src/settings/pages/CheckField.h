#pragma once

#include "settings/pages/OptionField.h"

class QCheckBox;

/// An option that is on or off. Owned by the page.
class CheckField : public OptionField
{
    Q_OBJECT

public:
    CheckField(const OptionRow& row, QWidget* parent);

    QVariant GetValue() const override;
    void SetValue(const QVariant& value) override;
    QWidget* GetControl() const override;

private:
    QCheckBox* m_check;
};
