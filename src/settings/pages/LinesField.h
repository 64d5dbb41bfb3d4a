#pragma once

#include "settings/pages/OptionField.h"

class QPlainTextEdit;

/// An option that is a text of several lines. Owned by the page.
class LinesField : public OptionField
{
    Q_OBJECT

public:
    LinesField(const OptionRow& row, QWidget* parent);

    QVariant GetValue() const override;
    void SetValue(const QVariant& value) override;
    QWidget* GetControl() const override;

private:
    QPlainTextEdit* m_lines;
};
