#pragma once

#include <QToolButton>

/// The frameless icon button of tool bars and title rows. It never takes the focus by a click,
/// because executing needs an editor that keeps it. Owned by its parent.
class FlatButton : public QToolButton
{
    Q_OBJECT

public:
    enum class Tint {
        Computed, ///< the icon's shape in the colour of the state
        Own, ///< the icon's own colours, faded when disabled
    };

    /// `icon` names a picture of the icon folder; `label` is the accessible name and the tool tip.
    FlatButton(const QString& icon, const QString& label, Tint tint, QWidget* parent);

    /// The tool tip may add a shortcut; the accessible name stays the label.
    void SetToolTip(const QString& toolTip);
    /// An icon with a tint of its own is drawn grey while dimmed (tool bars of idle groups).
    void SetDimmed(bool dimmed);
    /// Edge length in design pixels.
    void SetExtent(int extent);
    void SetIcon(const QString& icon);
    /// Shows the icon upside down.
    void SetUpsideDown(bool upsideDown);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    QColor IconColor() const;
    void PaintBackground(QPainter& painter) const;
    void PaintIcon(QPainter& painter) const;

    QString m_icon;
    Tint m_tint;
    int m_extent = 24;
    bool m_dimmed = false;
    bool m_upsideDown = false;
    bool m_focusByKey = false;
};
