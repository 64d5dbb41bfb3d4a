#pragma once

#include "settings/pages/OptionRow.h"

#include <QWidget>

class ElidedLabel;
class QBoxLayout;
class QLabel;
class QSpacerItem;

/// One option of the preferences: its label and what changes its value. Owned by the page.
class OptionField : public QWidget
{
    Q_OBJECT

public:
    /// The field for the row's kind.
    static OptionField* Create(const OptionRow& row, QWidget* parent);

    const OptionRow& GetRow() const { return m_row; }
    virtual QVariant GetValue() const = 0;
    /// Changed is told when the value was another one.
    virtual void SetValue(const QVariant& value) = 0;
    /// What has the focus when a person goes to the option.
    virtual QWidget* GetControl() const = 0;

    /// Greys the option and says why it has no effect; an empty reason makes it live again.
    void SetIdle(const QString& reason);
    /// Marks the control and says under it what is wrong; an empty text takes the mark away.
    void SetFault(const QString& fault);
    QString GetFault() const { return m_fault; }
    /// Stands under the control while nothing is wrong.
    void SetNote(const QString& note);
    /// Behind the control.
    void AddBeside(QWidget* widget);
    /// The option is one that was searched for.
    void SetMatched(bool matched);
    bool IsMatched() const { return m_matched; }

    /// Of the label in front of the control; 0 when there is none.
    int GetLabelWidth() const;
    void SetLabelWidth(int width);

    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void Changed();

protected:
    OptionField(const OptionRow& row, QWidget* parent);

    /// Puts the control behind the label, or under it, and names it after the option. Called once.
    void AddControl(QWidget* control, bool underLabel = false);
    void AddStretch();
    void paintEvent(QPaintEvent* event) override;

private:
    void AddLabel(bool underLabel);
    void UpdateRemark();
    void UpdateToolTip();

    const OptionRow& m_row;
    QBoxLayout* m_line;
    QLabel* m_label = nullptr;
    QSpacerItem* m_remarkIndent; ///< so that the remark stands under the control
    ElidedLabel* m_remark; ///< what is wrong, or else the note
    QString m_reason;
    QString m_fault;
    QString m_note;
    bool m_matched = false;
};
