#pragma once

#include "editing/BlockDataSource.h"
#include "editing/TextChanges.h"
#include "editor/CodeEditorMarks.h"
#include "editor/CodeEditorProperties.h"

#include <QAbstractTextDocumentLayout>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>

#include <functional>
#include <memory>
#include <utility>

class AutoCompleter;
class CodeEditorBlockData;
class CodeEditorErrorBarOverlay;
class CodeEditorLineNumbers;
class DocumentSearch;
class Highlighter;
class KeyBindings;
class OverlayWidget;
class QAction;
class QFileSystemWatcher;
class QHelpEvent;
class QMenu;
class QTextCharFormat;
class QTimer;
struct EditingOptions;
struct SearchResult;
struct TextSpan;

/// The editor of one script: text with line numbers, the rules of what is handed to the host when
/// the user executes, and a change notification that waits for a pause in typing. Owned by its
/// group; lives on the interface thread; speaks to its owner by signals alone.
class CodeEditor : public QPlainTextEdit
{
    Q_OBJECT

public:
    /// One line number to paint: from 1, in pixels of the viewport.
    struct VisibleLine
    {
        int number = 0;
        int top = 0;
        int height = 0;
    };

    /// A marked piece of the text, by positions in the document.
    struct MarkedSpan
    {
        int start = 0;
        int end = 0; ///< behind the last character
    };

    /// `keyBindings` outlives the editor and is not owned.
    CodeEditor(const CodeEditorProperties& properties, KeyBindings* keyBindings,
        QWidget* parent = nullptr);
    ~CodeEditor() override;

    // Identity
    void GetProperties(CodeEditorProperties& properties) const;
    /// Watches a file's path; with `force` also re-derives what hangs on the language.
    void SetProperties(const CodeEditorProperties& properties, bool force);
    /// The watch on a file goes with the file, also when another one takes its place.
    void RenewFileWatch();
    CodeEditorType GetType() const { return m_type; }
    CodeEditorLanguage GetLanguage() const { return m_language; }
    QString GetFilePath() const { return m_filePath; }
    QString GetLabel() const { return m_label; }

    // Text
    /// Never null, not even of an empty document.
    QString GetText() const;
    /// The text that belongs into the file: unlike GetText it has every blank as it was read.
    QString GetStoredText() const;
    void SetText(const QString& text);
    /// With the text widget's own paragraph separators (U+2029).
    QString GetSelectedText() const;
    /// With line feeds; otherwise unchanged.
    QString GetSelectedTextForExecute() const;
    QString GetCurrentLineText() const;
    /// Trimmed at both ends.
    QString GetCurrentLineForExecute() const;
    /// The text as the inside of a Python string literal, for syntax checks.
    QString GetTextForPythonProcessing() const;
    int GetSelectedStartPosition() const;
    int GetSelectedEndPosition() const;
    void ClearSelection();
    /// Inserts at the far end of what was selected.
    void ClearSelectionAndInsertText(const QString& text);
    /// Writes a command's flag as the language does behind the cursor or selection, as one step.
    void InsertFlag(const QString& longName);
    bool IsModified() const;
    void SetModified(bool modified);
    /// The null character outside the text.
    QChar CharacterAt(int position) const;
    QString SpacesStr(int count) const;
    QString SpacesForTab() const { return SpacesStr(m_tabSize); }

    // Cursor and view
    /// From 1.
    int GetCurrentLine() const;
    int GetLineCount() const;
    /// Shows the line centred; a line outside the text is ignored.
    void SetCurrentLine(int line);
    /// The same with a column as GetCursorStatus has it; one behind the line's end is its end.
    void SetCurrentLine(int line, int column);
    int GetCursorPosition() const;
    void SetCursorPosition(int position, bool home, bool centre);
    void SetCursorSelection(int start, int end);
    int GetVerticalScrollBarValue() const;
    void SetVerticalScrollBarValue(int value);
    int GetVerticalScrollBarWidth() const;
    /// Line and column from 1, the column with tabs expanded; the length in characters.
    void GetCursorStatus(
        const QTextCursor& cursor, int& line, int& column, int& selectionLength) const;
    void GetCursorStatus(int& line, int& column, int& selectionLength) const;

    // Line data; null for an invalid block only
    CodeEditorBlockData* GetBlockData(const QTextBlock& block) const;
    CodeEditorBlockData* GetBlockData(const QTextCursor& cursor) const;
    CodeEditorBlockData* GetPreviousBlockData(const QTextCursor& cursor) const;
    bool IsIgnoredBlockDataPosition(const QTextCursor& cursor) const;
    /// Searches up from the cursor's line for a comment's opener: its document position or -1.
    int GetBlockCommentOpenPosition(const QTextCursor& cursor) const;
    /// Searches down from column `from` of the cursor's line for a closer: its position or -1.
    int GetBlockCommentClosePosition(const QTextCursor& cursor, int from) const;

    // Brackets and quotes
    /// The null character for anything but a bracket.
    static QChar GetMatchingBrace(QChar character);
    static bool IsOpeningBrace(QChar character);
    static bool IsClosingBrace(QChar character);
    static bool IsMatchingBraces(QChar open, QChar close);
    bool IsQuoteForLanguage(QChar character) const;

    // Options of the editor's language
    bool IsDisplayErrorsEnabled() const;
    bool IsPylintEnabled() const;
    bool IsAutoIndentEnabled() const;
    bool IsSmartIndentEnabled() const;
    bool IsIndentToParenthesesEnabled() const;
    bool IsInsertClosingBraceEnabled() const;
    bool IsInsertClosingQuoteEnabled() const;
    bool IsBackspaceToTabStopEnabled() const;

    // What the checkers say
    /// Replaces all three lists. Messages with a span are carried along while the user types.
    void UpdateErrorsAndWarnings(const QVector<ParserMessage>& errors,
        const QVector<ParserMessage>& warnings, const QVector<ParserMessage>& infos);
    /// 0 while the language's errors are not displayed, as everything else about messages.
    int GetNumberOfErrors() const;
    int GetNumberOfWarnings() const;
    /// The first message of the cursor's line, errors before warnings before infos; or empty.
    QString GetErrorAndWarningsText() const;
    /// Empty while the language's errors are not displayed.
    const CodeEditorMarks& GetMarks() const;

    // State of the search
    /// An expression without pattern ends the search. Found text is marked.
    void SetSearchRegEx(const QRegularExpression& expression);
    const QRegularExpression& GetSearchRegEx() const { return m_searchRegEx; }
    bool IsFindInSelectionEnabled() const { return m_findInSelection; }
    /// -1 when no region is set.
    int GetFindInSelectionStart() const { return m_findInSelectionStart; }
    int GetFindInSelectionEnd() const { return m_findInSelectionEnd; }
    /// Searches only what is selected now from here on.
    void SetSelectedSearchRegion();
    void ClearFindInSelection();

    // Find and replace, with the current search; they answer whether something was found
    /// Selects and centres the first match that starts at `position` or behind (that ends there
    /// or before), wrapping round at the ends of the text or the region. False also when that takes
    /// too long; the match is then shown as soon as all are counted.
    bool Find(int position, bool backward);
    /// Steps over the match that is selected.
    bool FindNext();
    bool FindPrevious();
    /// FindNext unless a match is selected, with less time for it.
    void FindWhileTyping();
    /// Replaces the match that is selected and goes to the next one; only goes there without one.
    bool Replace(const QString& text);
    /// One undo step. How many matches were replaced; `findInSelection`: in the region only.
    int ReplaceAll(const QRegularExpression& expression, const QString& text, bool findInSelection);
    /// Counts all matches at once: the number of the one at the selection's start, from 1 or -1,
    /// and how many there are.
    void GetSearchResults(const QRegularExpression& expression, int& current, int& total);
    /// Counts in slices; SearchResultsChanged tells of each but the first.
    const DocumentSearch& CountSearchResults();
    const DocumentSearch& GetSearch() const { return *m_search; }
    void SelectWordUnderCursor();

    // Hits of the search in files
    /// Selects and shows the match at the position, or the one nearest to it; without any goes to
    /// the position and answers false.
    bool FindGlobal(int position);
    /// Replaces the match at the position; false when there is none.
    bool FindAndReplaceGlobal(int position);
    /// Replaces the listed hits as one step to undo. False, and nothing is done, when one of them
    /// does not stand in the text any more.
    bool FindAndReplaceAllGlobal(const QVector<SearchResult>& hits, const QString& text);
    /// Marks the hits of the search in files, while its page is in view, where nothing else is
    /// sought.
    void UpdateGlobalSearch();

    /// What to search for: the selection, else the word under the cursor, which gets selected.
    /// Empty when that is more than one line.
    QString TakeSearchText();

    /// Where a dragged tab or file would go, in the editor's coordinates; empty: nowhere.
    void SetDropOverlayRect(const QRect& rectangle);

    // Typing aids, each one step to undo and nothing in an editor that is read only
    void InsertNewLine();
    /// Indents the line that `cursor` stands at the start of, given where the line before it was
    /// broken: its record may be null, the characters are those of PrevNonWhitespace and
    /// NextNonWhitespace there.
    void UpdateIndentationOnNewLine(QTextCursor& cursor, const QTextBlock& previousBlock,
        const CodeEditorBlockData* previousData, int column, QChar previous, QChar next) const;
    void InsertOpeningBrace(QChar brace);
    void InsertClosingBrace(QChar brace);
    void InsertQuote(QChar quote);
    /// False when one character is to be erased as usual.
    bool InsertBackspace();
    void OnHomeKeyPressed(bool shift, bool ctrl);
    static void WrapSelection(QTextCursor& cursor, QChar open, QChar close);
    /// The last (first) character from `index` on that is not white space, or the null character.
    static QChar PrevNonWhitespace(const QString& text, int index);
    static QChar NextNonWhitespace(const QString& text, int index);
    /// The indent of the line that holds the partner of a closing bracket at a column of `block`.
    bool GetOpeningBraceIndent(
        QChar brace, int position, QString& indent, const QTextBlock& block) const;

    // Lines, each one step to undo; a selection that ends at the start of a line leaves it out
    /// `force`: the lines even when no more than one is selected.
    void IncreaseIndent(bool force);
    void DecreaseIndent();
    /// In the selected lines, or all without a selection.
    void ConvertTabsToSpaces();
    void ToggleComment();
    void ToggleBlockComment();
    void MoveLine(bool up);
    void CopyLine(bool up);
    void DeleteLines();
    /// Takes the blanks off the ends of all lines; with `ensureNewLine` the text then ends with a
    /// line end.
    void TrimTrailingWhiteSpaces(bool ensureNewLine);
    void EnsureNewLineAtEof();

    // Re-reading the settings
    void UpdateFontsAndColors();
    void UpdateFont();
    void UpdateTextOptions();

    // What the margin and the error bar paint
    /// The lines that `area` of the viewport touches.
    QVector<VisibleLine> GetVisibleLines(const QRect& area) const;
    /// From 0, ascending: where the searched text was found, in the region if there is one.
    QVector<int> GetSearchHitLines() const;
    /// Around the view only, ascending.
    const QVector<MarkedSpan>& GetOccurrences() const { return m_occurrences; }
    const QVector<MarkedSpan>& GetFoundText() const { return m_foundText; }
    int GetGutterWidth() const;
    /// Null where the colour scheme has none.
    static const QTextCharFormat* GetLineNumbersFormat() { return m_colorFormats.lineNumbers; }
    static const QTextCharFormat* GetGutterFormat() { return m_colorFormats.gutter; }

Q_SIGNALS:
    void ReceivedFocus();
    void ErrorAndWarningTextChanged();
    void OverwriteModeChanged();
    void EscapeKeyPressed();
    void IncreaseFontSizeRequested();
    void DecreaseFontSizeRequested();
    void ExecuteRequested();
    void ExecuteAllRequested();
    void ExecuteLineRequested();
    void SaveScriptToShelfRequested();
    void InsertPathRequested();
    void PythonDirRequested();
    void PythonHelpRequested();
    void PythonUpdateModuleStateRequested();
    void PythonRevertModuleStateRequested();
    void TogglePythonRevertModuleStateOnExecuteRequested();
    /// 250 ms after the last change.
    void TextChanged(const QString& filePath, const QString& text);
    void FileChanged(const QString& path);
    void QuickHelpChanged(const QString& text, bool isRequested);
    void ModificationChanged(bool modified, CodeEditor* editor);
    void SearchResultsChanged();

public Q_SLOTS:
    void Execute() { Q_EMIT ExecuteRequested(); }
    void ExecuteAll() { Q_EMIT ExecuteAllRequested(); }
    void ExecuteLine() { Q_EMIT ExecuteLineRequested(); }
    void SaveScriptToShelf() { Q_EMIT SaveScriptToShelfRequested(); }
    void InsertPath() { Q_EMIT InsertPathRequested(); }
    void PythonDirSelection() { Q_EMIT PythonDirRequested(); }
    void PythonHelpSelection() { Q_EMIT PythonHelpRequested(); }
    void PythonUpdateModuleState() { Q_EMIT PythonUpdateModuleStateRequested(); }
    void PythonRevertModuleState() { Q_EMIT PythonRevertModuleStateRequested(); }
    void TogglePythonRevertModuleStateOnExecute()
    {
        Q_EMIT TogglePythonRevertModuleStateOnExecuteRequested();
    }
    // Without a selection the whole line is meant.
    void CustomCut();
    void CustomCopy();
    void CustomPaste();
    /// These also bring the selection back. They hide the toolkit's.
    void undo();
    void redo();
    /// Asks for help on what is selected.
    void QuickHelp() { Q_EMIT QuickHelpChanged(GetSelectedTextForExecute(), true); }
    /// Opens the host's page on the selected command; nothing in a text editor.
    void CommandDocumentation();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private Q_SLOTS:
    void OnTextChanged();
    void OnTextChangedDelay();
    void OnModificationChanged(bool modified);
    void OnDocumentContentsChanged(int position, int removed, int added);
    void OnFileChanged(const QString& path);
    void ShowContextMenu(const QPoint& point);
    void OnCompletionDue();
    void OnCompletionNamesArrived(bool isExplicit);
    void OnCompletionSelectionRested(const QString& name);
    /// Replaces what was typed of a name, as one step to undo.
    void CompleteCode(const QString& text, int prefixLength);
    void UpdateLineNumberWidth();
    void UpdateAccessibleName();
    void OnSearchHitsChanged();
    void OnSearchCounted();
    void OnUpdateRequest(const QRect& area, int scrolled);
    void UpdateLineNumbers(int scrolled);
    void ScheduleExtraSelections();
    void KeepCursorLineShaped();
    void UpdateExtraSelections();

private:
    /// Roles of the colour scheme, shared by all editors; null where the scheme has none.
    /// A search that goes on once all matches are counted, unless the selection is another by then.
    struct PendingFind
    {
        int position = -1; ///< -1: none
        bool backward = false;
        int selectionStart = 0;
        int selectionEnd = 0;
    };
    /// The region before an edit that took an end of it away.
    struct RegionBefore
    {
        int undoSteps = -1; ///< of the document then
        int start = -1;
        int end = -1;
    };
    struct ColorFormats
    {
        const QTextCharFormat* plainText = nullptr;
        const QTextCharFormat* currentLine = nullptr;
        const QTextCharFormat* matchingSelection = nullptr;
        const QTextCharFormat* matchingBraces = nullptr;
        const QTextCharFormat* lineNumbers = nullptr;
        const QTextCharFormat* gutter = nullptr;
        const QTextCharFormat* indentationGuides = nullptr;
        const QTextCharFormat* found = nullptr;
        const QTextCharFormat* currentFound = nullptr;
        const QTextCharFormat* findRegion = nullptr;
    };
    using ExtraSelections = QList<QTextEdit::ExtraSelection>;
    /// A line in view and where it stands in the viewport.
    struct BlockDrawing
    {
        QTextBlock block;
        QPointF offset;
        double height = 0.0;
    };

    static void FetchColorFormats();
    void CreateConnections();
    bool IsWrapping() const;
    void LayOutForWidth();
    void WatchFile(const CodeEditorProperties& properties);

    // Highlighting
    void SetHighlighterFromLanguage();
    void DropHighlighter();
    void HighlightVisibleLines();

    // Keys, each step tells whether it took the key
    bool HandleMenuKey(QKeyEvent* event);
    bool HandleKeypadEnter(QKeyEvent* event);
    bool HandleReturn(QKeyEvent* event);
    bool HandleNavigationKey(QKeyEvent* event);
    bool HandlePairKey(QKeyEvent* event);
    bool HandleCompletionKey(QKeyEvent* event);
    bool HandleClipboardKey(QKeyEvent* event);
    void SendKeyAgain(Qt::Key key, Qt::KeyboardModifiers modifiers);
    bool HandleBackspace(QKeyEvent* event);
    void ToggleOverwriteMode();

    // Editing
    enum class CursorAfter { Follows, IsSet };
    EditingOptions GetEditingOptions() const;
    BlockDataSource GetBlockDataSource() const;
    void EditAtCursor(const std::function<void(QTextCursor&)>& operation);
    void EditLines(CursorAfter after, const std::function<TextPasses(QTextCursor&)>& operation);
    void StepThroughHistory(void (QPlainTextEdit::*operation)());

    // Completion
    void SetAutoCompleterFromLanguage();
    /// Null in a text editor.
    AutoCompleter* GetAutoCompleter();
    bool IsAutoCompleterVisible() const;
    void HideAutoCompleter();
    bool IsCompleteOnLettersEnabled() const;
    bool IsCompleteOnUserEnabled() const;
    bool IsCompletionPlace(bool isExplicit) const;
    /// `isExplicit`: the user asked for it; a single name then goes into the text at once.
    void UpdateAutoCompleter(bool isExplicit);
    void UpdateAutoCompleterLater();
    void UpdateCompleterBeforeKey(const QKeyEvent& event);
    void UpdateCompleterAfterKey(const QKeyEvent& event);

    // Marks over the text
    QVector<QTextBlock> GetNearbyBlocks() const;
    void AppendSelection(
        ExtraSelections& selections, const QTextCharFormat* format, int start, int end) const;
    void AppendCurrentLine(ExtraSelections& selections) const;
    void AppendFindRegion(ExtraSelections& selections) const;
    // Around the view
    QVector<MarkedSpan> FindOccurrences() const;
    QVector<MarkedSpan> FindSearchedText();
    void SetMarkedSpans(QVector<MarkedSpan>& spans, const QVector<MarkedSpan>& newSpans);
    void AppendCurrentMatch(ExtraSelections& selections);
    void AppendMatchingBraces(ExtraSelections& selections) const;
    bool IsWithinFindRegion(int start, int end) const;
    bool IsCurrentMatchSelected() const;

    // Find and replace
    DocumentSearch& UpdateSearch();
    bool FindWithin(int milliseconds, int position, bool backward);
    void ShowMatch(const TextSpan& match);
    bool IsMatchSelected();

    // Painting
    using SpanSlice
        = std::pair<QVector<MarkedSpan>::const_iterator, QVector<MarkedSpan>::const_iterator>;
    /// The spans, ascending, that begin from `start` to before `end`.
    static SpanSlice SpansWithin(const QVector<MarkedSpan>& spans, int start, int end);
    static MarkedSpan PaintedPart(const BlockDrawing& drawing, const QRect& area);
    QVector<QTextLayout::FormatRange> MarkedRanges(
        const QTextBlock& block, const MarkedSpan& part) const;
    QVector<BlockDrawing> GetBlockDrawings(const QRect& area) const;
    QVector<int> CountIndentGuides(const QVector<BlockDrawing>& blocks) const;
    int CountIndentGuides(const QTextBlock& block) const;
    void PaintBlock(QPainter& painter, const BlockDrawing& block,
        const QAbstractTextDocumentLayout::PaintContext& context, const QRect& area) const;
    void PaintIndentGuides(QPainter& painter, const QVector<BlockDrawing>& blocks) const;
    void PaintWaves(QPainter& painter, const QVector<BlockDrawing>& blocks) const;
    void PaintCurrentMatch(QPainter& painter, const QVector<BlockDrawing>& blocks) const;
    void PaintCursor(QPainter& painter, const BlockDrawing& block, int cursorPosition) const;
    /// The rectangles that a span of the document covers, one per visual line.
    QVector<QRectF> GetSpanRects(const BlockDrawing& block, int start, int end) const;
    /// The character under a point of the viewport, -1 where none is.
    int GetCharacterPosition(const QPoint& point) const;
    bool ShowMarkToolTip(const QHelpEvent& event);

    // Following changes of the text
    void OffsetParserMessages(const QVector<PositionChange>& changes);
    /// Every edit inside the region or at its edges belongs to it.
    void OffsetFindInSelection(int position, int removed, int added);
    void SetFindRegion(int start, int end);
    /// Whether the change was the undoing of an edit that took an end of the region away.
    bool RestoreFindRegion();
    /// Tells of a change once and only when the text or a count is another one.
    void UpdateErrorAndWarningText();
    /// Keeps the marks in place for a paint that comes before they are made anew.
    void OffsetMarkedSpans(int position, int removed, int added);
    /// After messages came or went.
    void RefreshMarks();

    void FillContextMenu(QMenu& menu);
    QAction* AddMenuEntry(
        QMenu& menu, const QString& label, int binding, void (CodeEditor::*slot)());
    void AddPythonMenu(QMenu& menu);

    CodeEditorLineNumbers* m_lineNumbers;
    CodeEditorErrorBarOverlay* m_errorBar; ///< over the vertical scroll bar
    CodeEditorType m_type = CodeEditorType::Buffer;
    CodeEditorLanguage m_language = CodeEditorLanguage::Text;
    QString m_filePath;
    QString m_label;
    CodeEditorMarks m_marks;
    QString m_errorAndWarningText; ///< as last told
    int m_numberOfErrors = 0; ///< as last told
    int m_numberOfWarnings = 0;
    int m_tabSize = 4; ///< columns
    bool m_insertSpaces = true;
    bool m_autoIndent = true;
    KeyBindings* m_keyBindings; ///< not owned
    std::shared_ptr<QFileSystemWatcher> m_fileWatcher; ///< of all editors; made for the first file
    QTimer* m_textChangeTimer;
    OverlayWidget* m_dropOverlay;
    /// In the line where the cursor is. A block would not tell when its line is gone.
    QTextCursor m_shapedLine;
    QVector<MarkedSpan> m_occurrences;
    QVector<MarkedSpan> m_foundText;
    int m_lastCursorLine = 0; ///< when the marks were made last; from 1
    int m_currentMatchStart = 0; ///< of the found text that is selected
    int m_currentMatchEnd = -1; ///< before the start when none is
    DocumentSearch* m_search;
    DocumentSearch* m_globalSearch = nullptr; ///< of the search in files, while its hits are marked
    PendingFind m_pendingFind;
    QRegularExpression m_searchRegEx; ///< without pattern while nothing is searched
    bool m_findInSelection = false;
    int m_findInSelectionStart = -1;
    int m_findInSelectionEnd = -1;
    QVector<RegionBefore> m_regionsBefore; ///< oldest first, for edits that can be undone
    int m_undoSteps = 0; ///< before the change that is told next
    /// Positions are not carried along while the editor rewrites text itself.
    bool m_rewritingText = false;
    /// The messages are told of the single changes of an edit when it is over.
    bool m_followsChanges = false;
    bool m_wasShown = false;
    int m_scrollValueToShow = -1; ///< asked for before the first show; -1: where the cursor is
    int m_lastBlockCount = 1; ///< before the change that is told next
    QTimer* m_extraSelectionsTimer;
    Highlighter* m_highlighter = nullptr; ///< owned by the document
    AutoCompleter* m_autoCompleter = nullptr; ///< made when first needed
    QTimer* m_completionTimer = nullptr; ///< made when first needed
    int m_completionPosition = -1; ///< of the cursor when the completer was asked last
    static ColorFormats m_colorFormats; ///< fetched with the first editor and with every new look
};
