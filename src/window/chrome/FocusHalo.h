#pragma once

#include <QPointer>
#include <QWidget>

/// The soft edge round a field that has the focus, outside of the field: lies over it, paints next
/// to it only and takes no input. Follows the field; a child of the field's parent, made and taken
/// away by the style.
class FocusHalo : public QWidget
{
    Q_OBJECT

public:
    explicit FocusHalo(QWidget* field);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Place();

    QPointer<QWidget> m_field;
};
