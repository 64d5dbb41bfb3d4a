#pragma once

#include <QWidget>

class CodeEditor;

/// The margin left of a code editor's text: line numbers and, between them and the text, the
/// gutter. Child of the editor; asks it for everything it paints. The width holds at least two
/// digits and follows the number of lines.
class CodeEditorLineNumbers : public QWidget
{
    Q_OBJECT

public:
    explicit CodeEditorLineNumbers(CodeEditor* editor);

    /// Fits itself into the editor's left margin.
    void UpdatePlace();

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    int NumberWidth() const;
    /// The line at that height; the nearest one outside the text. -1 without any.
    int LineAt(int y) const;
    void SelectLines(int anchorLine, int line);

    CodeEditor* m_editor; ///< the parent
    int m_anchorLine = -1; ///< where a drag over the numbers began
};
