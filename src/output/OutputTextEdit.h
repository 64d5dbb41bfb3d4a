#pragma once

#include "output/LongLines.h"
#include "settings/ExtraSelectionProperties.h"

#include <QElapsedTimer>
#include <QList>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QVector>

#include <memory>

class DocumentSearch;
class FindReplaceWidget;
class KeyBindings;
class QFile;
class QTextStream;
class QTimer;

/// The console: shows everything the host prints, as finished text, and keeps the last lines of it.
/// Owned by the output panel; interface thread only.
///
/// A burst of output costs little: text is inserted at once only for a small part of each frame;
/// then it is joined and inserted at the end of the turn or, when every turn prints, of the frame,
/// at the repaint that shows progress, before input, or when somebody reads the text. Every reader
/// therefore goes through this class's own operations (the inherited ones of the same names are
/// hidden), and the document they see is the same as if each piece had been inserted by itself.
/// They also join the lines that are too long for one block of the document.
class OutputTextEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    /// `keyBindings` outlives the console and is not owned.
    explicit OutputTextEdit(KeyBindings* keyBindings, QWidget* parent = nullptr);
    ~OutputTextEdit() override;

    /// Shows the text behind everything else and lets the view follow it. While the console is
    /// hidden it is kept and inserted when the console is shown.
    void AppendText(const QString& text);
    void ClearAll();
    void ScrollToEnd();
    /// The most lines kept; 0 for no limit.
    void SetLineLimit(int lines);

    /// Copies everything that arrives from now on to a file, which is overwritten. False, and
    /// logged, when it cannot be opened.
    bool BeginWriteToFile(const QString& path);
    void EndWriteToFile();
    bool IsWriteToFileActive() const { return m_logFile != nullptr; }
    /// Empty when not writing.
    QString GetWriteToFilePath() const;

    QString GetText();
    QString GetSelectedText();
    QString GetSelectedTextForExecute();
    int GetSelectedStartPosition();
    int GetSelectedEndPosition();

    // These first insert what was joined; they hide the inherited ones.
    QString toPlainText();
    QTextDocument* document();
    QTextCursor textCursor();
    int blockCount();
    void selectAll();
    void copy();
    void setTextCursor(const QTextCursor& cursor);
    void moveCursor(
        QTextCursor::MoveOperation operation, QTextCursor::MoveMode mode = QTextCursor::MoveAnchor);
    QList<QTextEdit::ExtraSelection> extraSelections();

    void SelectWordUnderCursor();

    // Finding, with a bar that floats over the text
    /// Starts with what is selected, or the word under the cursor. Nothing is ever replaced here.
    void ShowFindReplace(bool replace, bool focus);
    void CloseFindReplace();
    bool IsFindReplaceVisible() const;
    bool HasSearchText() const;
    FindReplaceWidget* GetFindReplace() const { return m_findReplace; }
    /// Selects the first match at or behind `from` (the last one before it), going on at the other
    /// end of the text. False when there is none.
    bool Find(int from, bool backward);
    /// The number of matches, and that of the selected one from 1, or -1.
    void GetSearchResults(const QRegularExpression& expression, int& count, int& current);
    static int EarliestPosition(const QTextCursor& cursor);
    static int LatestPosition(const QTextCursor& cursor);

    // Re-reading the settings
    void UpdateFontsAndColors();
    void UpdateFont();
    void UpdateTextOptions();

Q_SIGNALS:
    void ReceivedFocus();
    void IncreaseFontSizeRequested();
    void DecreaseFontSizeRequested();
    /// The log file took no more; why has been logged.
    void WriteToFileEnded();

public Q_SLOTS:
    void UpdateExtraSelections();
    void FindNext();
    void FindPrevious();
    void OnSearchChanged(
        const QRegularExpression& expression, bool findInSelection, bool incremental);
    void OnFindReplaceClosed();
    void UpdateSearchResults();
    void UpdateFindReplacePosition();

protected:
    QMimeData* createMimeDataFromSelection() const override;
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private Q_SLOTS:
    void QueueUpdateExtraSelections(int sliderAction);
    void ShowContextMenu(const QPoint& point);
    void OnUpdateRequest(const QRect& rectangle, int scrolled);
    void ScheduleExtraSelections();
    /// The end of an event-loop turn in which something was appended.
    void FinishTurn();

private:
    void CreateConnections();
    void BreakConnections();
    void CreateFindReplace();
    DocumentSearch& UpdateSearch();
    bool IsMatchSelected();
    void OnSearchCounted();
    int SelectedMatchNumber() const;
    void ShowSearchResults();
    void TakeFindRegion(bool findInSelection, bool retake);

    // Appending
    void WriteToLog(const QString& text);
    void ReportLogFailure(const QString& path, const QString& reason);
    void KeepPending(const QString& text);
    void Join(const QString& text);
    void InsertText(const QString& text);
    void Empty();
    void FlushJoined();
    void FollowOutput();
    void RepaintIfDue();
    void ScheduleTurnEnd();
    bool AnswersUserInput(const QEvent& event) const;

    // Extra selections
    struct Rule
    {
        QRegularExpression expression;
        QTextCharFormat format;
        bool wholeLine = false;
        QString name;
        bool isRegularExpression = false;
        int slowUpdates = 0; ///< one after the other
    };
    void HighlightUserDefinedSelections(int start, int end);
    bool HighlightRule(const Rule& rule, const QStringList& lines, int start);
    void HighlightMatchedSelection(int start, int end);
    void HighlightFoundSelection(int start, int end);
    int EndOfView() const;
    void AppendSelection(int start, int end, const QTextCharFormat& format);
    struct MarkedColumns
    {
        QTextBlock block;
        int first = 0;
        int last = 0;
    };
    MarkedColumns ColumnsToMark(const QTextBlock& block) const;
    void UpdateRules();
    bool IsCurrentMatchSelected() const;
    void PaintCurrentMatch(const QRect& area);
    void OutlineCurrentMatch(
        QPainter& painter, const QTextBlock& block, const QPointF& offset) const;

    KeyBindings* m_keyBindings; ///< not owned
    LongLines m_longLines;
    QList<QTextEdit::ExtraSelection> m_extraSelections;
    MarkedColumns m_markedColumns; ///< of the line that got the last mark, in this update
    QTextCursor m_currentMatch; ///< as marked; null without one
    QString m_pendingText; ///< arrived while hidden
    int m_pendingCutSize = 0; ///< length at which the pending text is cut to the limit again
    std::unique_ptr<QFile> m_logFile; ///< null when not writing
    std::unique_ptr<QTextStream> m_logStream; ///< null when not writing
    FindReplaceWidget* m_findReplace = nullptr;
    DocumentSearch* m_search = nullptr;
    int m_pendingFind = -1; ///< from where to search once all is counted; -1: nothing is sought
    bool m_isPendingBackward = false;
    QRegularExpression m_searchRegEx; ///< without pattern when nothing is sought
    QTextCursor m_findRegion; ///< null, or selects what alone is searched
    QElapsedTimer m_repaintTimer;

    QTimer* m_frameTimer; ///< fires where turns end that nothing more was inserted in
    QString m_joinedText; ///< appended and not inserted yet
    QElapsedTimer m_frame; ///< since the first append of this frame
    qint64 m_frameCost = 0; ///< ns spent on the console in this frame
    bool m_isTurnEndDue = false;
    bool m_followDue = false;
    bool m_extraSelectionsDue = false;

    QVector<Rule> m_rules;
    QVector<ExtraSelectionProperties> m_rulesSource; ///< what m_rules was made of
};
