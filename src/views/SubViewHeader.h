#pragma once

#include <QWidget>

class FlatButton;
class QHBoxLayout;

/// The row above a section of the side bar: an arrow, the section's title and its tool buttons.
/// Owned by its section. Never takes the focus by a click.
class SubViewHeader : public QWidget
{
    Q_OBJECT

public:
    SubViewHeader(const QString& title, QWidget* parent);

    /// In pixels at the interface scale.
    static int Height();

    QString GetTitle() const { return m_title; }
    void SetTitle(const QString& title);
    /// Small and quiet, behind the title.
    void SetNote(const QString& note);
    void SetExpanded(bool expanded);
    /// Takes the button over. Buttons keep their order.
    void AddTool(FlatButton* button);
    /// Checked buttons stay shown either way, as they tell that something is in force. Hidden ones
    /// keep their place.
    void SetToolsRevealed(bool revealed);
    void UpdateTools();

Q_SIGNALS:
    void Toggled();
    void ExpandRequested(bool expand);
    /// Towards the header above (-1) or below (1).
    void StepRequested(int step);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void UpdateLook();
    void UpdateAccessibleName();

    QString m_title;
    QString m_note;
    QHBoxLayout* m_layout = nullptr;
    QList<FlatButton*> m_tools;
    QFont m_captionFont;
    bool m_isElided = false; ///< as it was painted last
    bool m_expanded = true;
    bool m_revealed = false;
    bool m_pressed = false;
    bool m_focusByKey = false;
};
