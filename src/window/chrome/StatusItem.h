#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QVector>

/// One field of the status bar: icons and short texts in a row, which a person may press when there
/// is something to go to. Owned by the bar.
class StatusItem : public QAbstractButton
{
    Q_OBJECT

public:
    /// An icon with a text behind it; either may be missing.
    struct Part
    {
        QString icon;
        QString text;
        QColor color;
        bool tinted = false; ///< the icon has the text's colour rather than its own
    };

    explicit StatusItem(QWidget* parent);

    /// `sentence` is what assistive technology says.
    void SetParts(const QVector<Part>& parts, const QString& sentence);
    void SetText(const QString& text, const QColor& color, const QString& sentence);
    /// The texts, a blank between two.
    QString GetText() const;
    void SetPressable(bool pressable);
    /// The field is as wide as the widest of its last texts, and so nothing shifts with each key.
    void SetWidthKept(bool kept);
    void ForgetWidths();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    int ContentWidth() const;
    void PaintParts(QPainter& painter) const;

    QVector<Part> m_parts;
    QVector<int> m_lastWidths; ///< of the contents, the latest last
    bool m_pressable = false;
    bool m_widthKept = false;
    bool m_focusByKey = false;
};
