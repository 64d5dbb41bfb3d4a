#pragma once

#include "settings/pages/OptionField.h"

class QComboBox;

/// An option that is the family of a font, monospaced ones first. Owned by the page.
class FontField : public OptionField
{
    Q_OBJECT

public:
    FontField(const OptionRow& row, QWidget* parent);

    QVariant GetValue() const override;
    void SetValue(const QVariant& value) override;
    QWidget* GetControl() const override;

private:
    void AddFamilies();

    QComboBox* m_family;
};
