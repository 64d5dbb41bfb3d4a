#pragma once

#include <QWidget>

class QToolButton;

namespace host::ui {

/// A titled box whose content can be folded away: the widget of a frame layout.
class FrameBox : public QWidget
{
    Q_OBJECT
public:
    explicit FrameBox(QWidget* parent = nullptr);

    QWidget* GetContent() const { return m_content; }
    QString GetLabel() const;
    void SetLabel(const QString& label);
    void SetLabelVisible(bool visible);
    bool IsLabelVisible() const;
    void SetCollapsable(bool collapsable);
    bool IsCollapsable() const { return m_collapsable; }
    void SetCollapsed(bool collapsed);
    bool IsCollapsed() const { return m_collapsed; }
    void SetMargins(int width, int height);
    int MarginWidth() const;
    int MarginHeight() const;

Q_SIGNALS:
    /// By the person's click only, before and after the content came or went.
    void AboutToToggle(bool collapsed);
    void Toggled(bool collapsed);

private:
    void OnHeaderClicked();
    void UpdateArrow();

    QToolButton* m_header;
    QWidget* m_content;
    bool m_collapsable = false;
    bool m_collapsed = false;
};

} // namespace host::ui
