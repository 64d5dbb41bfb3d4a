#pragma once

#include <QIcon>
#include <QWidget>

namespace host::ui {

/// The widget of a workspace control: its object name is the control's name, its children are the
/// control's content. Lives in a DockArea while it is open, else hidden in the workspace.
class WorkspacePanel : public QWidget
{
    Q_OBJECT
public:
    WorkspacePanel(const QString& name, QWidget* parent);

    QString GetLabel() const { return windowTitle(); }
    void SetLabel(const QString& label);
    QIcon GetIcon() const { return m_icon; }
    void SetIcon(const QIcon& icon);
    /// The viewport's panel cannot be closed or taken out.
    bool IsFixed() const { return m_fixed; }
    void SetFixed(bool fixed) { m_fixed = fixed; }
    /// Nothing has been put into it yet.
    bool IsEmpty() const;
    /// Colour of its tab while it is the current one.
    QColor TabColor() const;

    QSize sizeHint() const override;

Q_SIGNALS:
    void LabelChanged();
    void Shown();

protected:
    void showEvent(QShowEvent* event) override;

private:
    QIcon m_icon;
    bool m_fixed = false;
};

} // namespace host::ui
