#pragma once

#include <QToolButton>

#include <functional>

namespace host::ui {

/// A button of a shelf: a picture with a few letters over it, or its label when there is no
/// picture.
class ShelfButton : public QToolButton
{
    Q_OBJECT
public:
    explicit ShelfButton(QWidget* parent = nullptr);

    void SetOverlay(const QString& text);
    QString GetOverlay() const { return m_overlay; }
    void SetOverlayColor(const QColor& color);
    /// Called when it is switched by a program, which its signals need not tell.
    std::function<void()> switched;

Q_SIGNALS:
    void DoubleClicked();

protected:
    void checkStateSet() override;
    void paintEvent(QPaintEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    QString m_overlay;
    QColor m_overlayColor;
};

} // namespace host::ui
