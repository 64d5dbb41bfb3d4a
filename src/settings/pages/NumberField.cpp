#include "settings/pages/NumberField.h"

#include "settings/pages/OptionTable.h"
#include "settings/pages/WheelGuard.h"

#include <QLabel>
#include <QSpinBox>

NumberField::NumberField(const OptionRow& row, QWidget* parent)
    : OptionField(row, parent)
    , m_number(new QSpinBox(this))
{
    m_number->setRange(row.range.minimum, row.range.maximum);
    GuardFromWheel(m_number);
    AddControl(m_number);
    auto* unit = new QLabel(OptionTable::tr(row.range.unit), this);
    unit->setObjectName(QStringLiteral("unit"));
    AddBeside(unit);
    AddStretch();
    connect(m_number, QOverload<int>::of(&QSpinBox::valueChanged), this, &NumberField::Changed);
}

QVariant NumberField::GetValue() const
{
    return m_number->value();
}

void NumberField::SetValue(const QVariant& value)
{
    const int number = value.toInt();
    m_number->setRange(qMin(GetRow().range.minimum, number), qMax(GetRow().range.maximum, number));
    m_number->setValue(number);
}

QWidget* NumberField::GetControl() const
{
    return m_number;
}
