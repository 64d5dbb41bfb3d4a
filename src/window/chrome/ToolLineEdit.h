#pragma once

#include <QLineEdit>
#include <QList>

class FlatButton;

/// A field with tool buttons at its right end, inside its edge; the text ends before them. Owned by
/// its parent.
class ToolLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit ToolLineEdit(QWidget* parent);

    /// Appends a button, which becomes a child of the field.
    void AddTool(FlatButton* button);
    /// Marks the field as holding something unusable and says why; an empty text takes the mark
    /// away again.
    void SetFault(const QString& fault);
    QString GetFault() const { return m_fault; }
    /// Shown while there is no fault.
    void SetPlainToolTip(const QString& toolTip);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void PlaceTools();
    void UpdateToolTip();

    QList<FlatButton*> m_tools;
    QString m_fault;
    QString m_plainToolTip;
};
