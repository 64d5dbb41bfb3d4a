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
    /// Where lines stand in the bar; asked for once for many lines, as the style has to answer.
    struct Scale
    {
        int top = 0; ///< pixel of the first line's mark
        int room = 0; ///< pixels from there to the last line's mark
        int lastLine = 1; ///< from 0, at least 1

        /// The pixel at which a line's mark begins.
        int TopOf(int line) const;
    };

    Scale GetScale() const;
    int MarkHeight() const;
    void RebuildRows();
    void ShowToolTip(const QHelpEvent& event) const;

    CodeEditor* m_editor; ///< not owned
    QScrollBar* m_scrollBar; ///< the parent
    bool m_outdated = true;
    /// By pixel row: the rank of the mark that begins there, 0 for none.
    QVector<int> m_rows;
};
