#pragma once

#include <QWidget>

/// One line of plain text that gives way: as wide as its text where there is room, otherwise with
/// the middle left out. Owned by its parent.
class ElidedLabel : public QWidget
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent);

    void SetText(const QString& text);
    QString GetText() const { return m_text; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_text;
};
