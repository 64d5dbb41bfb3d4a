#pragma once

#include <QAbstractButton>

/// One entry of the activity bar: a large icon, the waterline while its page is shown, and a small
/// number while there is one. Owned by the bar, which alone checks it.
class ActivityButton : public QAbstractButton
{
    Q_OBJECT

public:
    ActivityButton(const QString& icon, const QString& label, QWidget* parent);

    /// Shown as "99+" from 100 on; 0 shows nothing.
    void SetCount(int count);
    int GetCount() const { return m_count; }
    /// Which edge of the window the waterline is at.
    void SetWaterlineLeft(bool left);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void nextCheckState() override { }

private:
    QColor IconColor() const;
    void PaintWaterline(QPainter& painter) const;
    void PaintCount(QPainter& painter) const;

    QString m_icon;
    int m_count = 0;
    bool m_waterlineLeft = true;
    bool m_focusByKey = false;
};
