#pragma once

#include "settings/pages/OptionField.h"

class ToolLineEdit;

/// An option that is the path of a file or folder, typed or chosen. Owned by the page.
class PathField : public OptionField
{
    Q_OBJECT

public:
    PathField(const OptionRow& row, QWidget* parent);

    QVariant GetValue() const override;
    void SetValue(const QVariant& value) override;
    QWidget* GetControl() const override;

private Q_SLOTS:
    void Browse();
    void ExpandHome();

private:
    ToolLineEdit* m_path;
};
