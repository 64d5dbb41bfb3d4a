#pragma once

#include "editor/CodeEditor.h"

#include <QWidget>

class QHelpEvent;
class QPainter;

/// The margin left of a code editor's text: line numbers and, between them and the text, the
/// gutter with a mark for the worst message of each line. Child of the editor; asks it for
/// everything it paints. The width holds at least two digits and follows the number of lines.
class CodeEditorLineNumbers : public QWidget
{
    Q_OBJECT

public:
    explicit CodeEditorLineNumbers(CodeEditor* editor);

    /// Makes room for the number of lines there is now. The room shrinks only when told so, not
    /// while lines come and go under a typing hand.
    void UpdateDigits(bool mayShrink);
    /// Fits itself into the editor's left margin.
    void UpdatePlace();

    QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    int NumberWidth() const;
    void PaintNumbers(
        QPainter& painter, const QRect& area, const QVector<CodeEditor::VisibleLine>& lines) const;
    void PaintMarks(QPainter& painter, const QVector<CodeEditor::VisibleLine>& lines) const;
    void ShowToolTip(const QHelpEvent& event) const;
    /// The line at that height; the nearest one outside the text. -1 without any.
    int LineAt(int y) const;
    /// The line on which the editor's selection begins, whichever way it goes.
    int AnchorLine() const;
    void SelectLines(int anchorLine, int line);

    CodeEditor* m_editor; ///< the parent
    int m_digits = 0;
    int m_anchorLine = -1; ///< where a drag over the numbers began
};
