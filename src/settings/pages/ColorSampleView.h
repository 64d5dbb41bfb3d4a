#pragma once

#include "settings/pages/ColorSample.h"

#include <QWidget>

#include <memory>
#include <vector>

class QTextLayout;

/// Shows a sample text in the colours of a scheme, as an editor or the console would show it. A
/// click tells which role stands there. Owned by its page, as the scheme is.
class ColorSampleView : public QWidget
{
    Q_OBJECT

public:
    ColorSampleView(const ColorScheme* scheme, QWidget* parent);
    ~ColorSampleView() override;

    /// After the scheme changed, too.
    void Show(ColorSample::Text text);
    ColorSample::Text GetText() const { return m_text; }
    /// The role that is painted at the point, in pixels of the widget.
    ColorRole RoleAt(const QPoint& point) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void RolePressed(const ColorRole& role);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    bool IsCode() const { return m_text != ColorSample::Text::Console; }
    void ChooseFont();
    void LayOut();
    std::unique_ptr<QTextLayout> LayOut(const ColorSample::Line& line, const QFont& font) const;
    QTextCharFormat FormatOf(const QString& key) const;
    QColor Background(const QString& key) const;
    void PaintLine(QPainter& painter, int line) const;
    void PaintGuides(QPainter& painter, int line) const;
    void PaintLineNumbers(QPainter& painter) const;
    int NumbersWidth() const;
    int GutterWidth() const;
    int TextLeft() const;
    double ColumnX(int column) const;

    const ColorScheme* m_scheme; ///< not owned
    ColorSample::Text m_text = ColorSample::Text::Python;
    std::vector<std::unique_ptr<QTextLayout>> m_layouts; ///< one per line
    QFont m_font;
    int m_lineHeight = 1;
};
