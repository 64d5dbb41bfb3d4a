#pragma once

#include "settings/ExtraSelectionProperties.h"

#include <QDialog>

class ColorLabel;
class HighlightPreview;
class QCheckBox;
class QGridLayout;
class QLineEdit;
class QPushButton;
class ToolLineEdit;

/// Edits one rule of the console's highlighting. Modal, owned by its parent or on the stack of who
/// asks. It changes no rule itself.
class OutputHighlightingDialog : public QDialog
{
    Q_OBJECT

public:
    /// Without SetDefaults or SetSelectionProperties it is filled as for a new rule.
    OutputHighlightingDialog(const QString& title, QWidget* parent);

    void SetDefaults();
    void SetSelectionProperties(const ExtraSelectionProperties& rule);
    ExtraSelectionProperties GetSelectionProperties() const;

public Q_SLOTS:
    void SelectForegroundColor();
    void SelectBackgroundColor();
    /// Closes only when the console could use the rule; otherwise says what is wrong with it.
    void accept() override;

private Q_SLOTS:
    void UpdateDisplay();

private:
    void CreateWidgets();
    void CreateLayout();
    void AddRow(
        QGridLayout& grid, const QString& label, QWidget* field, QWidget* second, QWidget* atEnd);
    void CreateConnections();
    void SelectColor(ColorLabel* label, QCheckBox* enabledCheckBox);
    void SetColor(ColorLabel* label, QCheckBox* enabledCheckBox, const QColor& color, bool enabled,
        const QColor& whenUnset);
    /// Empty when the expression can be used, or the text is no expression.
    QString ExpressionFault() const;
    void Refuse(QLineEdit* field, const QString& reason);

    QLineEdit* m_name;
    ToolLineEdit* m_match;
    QCheckBox* m_regExp;
    ColorLabel* m_foreground;
    QCheckBox* m_foregroundEnabled;
    ColorLabel* m_background;
    QCheckBox* m_backgroundEnabled;
    QCheckBox* m_enabled;
    QCheckBox* m_highlightLine;
    HighlightPreview* m_preview;
    QPushButton* m_ok;
    QPushButton* m_cancel;
};
