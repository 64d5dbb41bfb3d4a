#pragma once

#include <QColor>
#include <QWidget>

/// A field that shows a colour and asks for another one when it is clicked, or with Space or Return
/// while it has the focus. Owned by its parent.
class ColorLabel : public QWidget
{
    Q_OBJECT

public:
    explicit ColorLabel(QWidget* parent);

    /// An invalid colour is shown as "none".
    void SetColor(const QColor& color);
    QColor GetColor() const { return m_color; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void Clicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QColor m_color;
    bool m_isPressed = false;
};
