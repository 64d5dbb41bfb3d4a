#include "settings/pages/CheckField.h"

#include "settings/pages/OptionTable.h"

#include <QCheckBox>

CheckField::CheckField(const OptionRow& row, QWidget* parent)
    : OptionField(row, parent)
    , m_check(new QCheckBox(OptionTable::GetLabel(row), this))
{
    AddControl(m_check);
    AddStretch();
    connect(m_check, &QCheckBox::toggled, this, &CheckField::Changed);
}

QVariant CheckField::GetValue() const
{
    return m_check->isChecked();
}

void CheckField::SetValue(const QVariant& value)
{
    m_check->setChecked(value.toBool());
}

QWidget* CheckField::GetControl() const
{
    return m_check;
}
