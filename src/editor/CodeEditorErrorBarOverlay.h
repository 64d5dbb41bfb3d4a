#pragma once

#include <QVector>
#include <QWidget>

class CodeEditor;
class QHelpEvent;
class QScrollBar;

/// The overview over a code editor's vertical scroll bar: where messages, found text and the cursor
/// stand in the whole document. Child of the scroll bar, which keeps the mouse to itself; asks the
/// editor for what it shows, at most once per repaint.
class CodeEditorErrorBarOverlay : public QWidget
{
    Q_OBJECT

public:
    CodeEditorErrorBarOverlay(CodeEditor* editor, QScrollBar* scrollBar);

    /// What is shown, or the number of lines, changed.
    void UpdateMarks();

    bool eventFilter(QObject* object, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// The part of the scroll bar that stands for the document.
    QRect Groove() const;
    int MarkHeight() const;
    /// Where a line's mark begins, in pixels from the top.
    int TopOfLine(int line) const;
    void RebuildRows();
    void ShowToolTip(const QHelpEvent& event) const;

    CodeEditor* m_editor; ///< not owned
    QScrollBar* m_scrollBar; ///< the parent
    bool m_outdated = true;
    /// By pixel row: the rank of the mark that begins there, 0 for none.
    QVector<int> m_rows;
};
