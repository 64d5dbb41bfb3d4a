#pragma once

#include <QColor>
#include <QWidget>

/// One line as the console would show it. Owned by the dialog that edits the rule.
class HighlightPreview : public QWidget
{
    Q_OBJECT

public:
    explicit HighlightPreview(QWidget* parent);

    /// An invalid colour stands for the console's own.
    void Show(const QString& text, const QColor& foreground, const QColor& background);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_text;
    QColor m_foreground;
    QColor m_background;
};
