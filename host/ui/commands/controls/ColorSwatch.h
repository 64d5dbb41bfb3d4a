#pragma once

#include <QAbstractButton>

namespace host::ui {

/// A field of one colour. Pressing it asks for another where the owner says so.
class ColorSwatch : public QAbstractButton
{
    Q_OBJECT
public:
    explicit ColorSwatch(QWidget* parent = nullptr);

    QColor GetColor() const { return m_color; }
    void SetColor(const QColor& color);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_color = Qt::black;
};

} // namespace host::ui
