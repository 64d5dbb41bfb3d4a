// Identity, text, cursor and notifications of the code editor.

#include "editor/CodeEditor.h"

#include "editing/CommentEdits.h"
#include "editing/TextColumns.h"
#include "editor/CodeDocumentLayout.h"
#include "editor/CodeEditorBlockData.h"
#include "editor/CodeEditorErrorBarOverlay.h"
#include "editor/CodeEditorLineNumbers.h"
#include "editor/DocumentSearch.h"
#include "language/PythonCompletion.h"
#include "plugin/MayaUtil.h"
#include "settings/Settings.h"
#include "window/chrome/OverlayWidget.h"
#include "window/chrome/Theme.h"

#include <QDragEnterEvent>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>
#include <QTimer>

namespace {

constexpr int TEXT_CHANGE_DELAY = 250; // ms
constexpr int TEXT_MARGIN = 2; // design pixels
constexpr QChar PARAGRAPH_SEPARATOR(0x2029);

/// The system has few of them, and each can watch many files.
std::shared_ptr<QFileSystemWatcher> SharedFileWatcher()
{
    static std::weak_ptr<QFileSystemWatcher> shared;
    std::shared_ptr<QFileSystemWatcher> watcher = shared.lock();
    if (!watcher)
        shared = watcher = std::make_shared<QFileSystemWatcher>();
    return watcher;
}

} // namespace

CodeEditor::CodeEditor(
    const CodeEditorProperties& properties, KeyBindings* keyBindings, QWidget* parent)
    : QPlainTextEdit(parent)
    , m_lineNumbers(new CodeEditorLineNumbers(this))
    , m_errorBar(new CodeEditorErrorBarOverlay(this, verticalScrollBar()))
    , m_keyBindings(keyBindings)
    , m_textChangeTimer(new QTimer(this))
    , m_dropOverlay(new OverlayWidget(this))
    , m_extraSelectionsTimer(new QTimer(this))
{
    auto* text = new QTextDocument(this);
    text->setDocumentLayout(new CodeDocumentLayout(text));
    setDocument(text);
    m_search = new DocumentSearch(text, this);
    setFrameShape(QFrame::NoFrame);
    setMouseTracking(true);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setCenterOnScroll(false);
    document()->setDocumentMargin(Theme::Dp(TEXT_MARGIN));
    // To the document a margin is an edit like any other.
    document()->clearUndoRedoStacks();
    document()->setModified(false);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setOverwriteMode(Settings::overwriteEnabled);
    m_dropOverlay->setObjectName(QStringLiteral("m_dropOverlay"));
    setObjectName(QStringLiteral("codeEditor"));
    m_textChangeTimer->setSingleShot(true);
    m_textChangeTimer->setInterval(TEXT_CHANGE_DELAY);
    m_extraSelectionsTimer->setSingleShot(true);
    m_extraSelectionsTimer->setInterval(0);

    SetProperties(properties, true);
    UpdateFontsAndColors();
    UpdateLineNumberWidth();
    CreateConnections();
}

CodeEditor::~CodeEditor()
{
    if (m_fileWatcher && !m_filePath.isEmpty())
        m_fileWatcher->removePath(m_filePath);
    // Both look at the editor when they go.
    SetAutoCompleterFromLanguage();
    DropHighlighter();
}

void CodeEditor::CreateConnections()
{
    connect(this, &QPlainTextEdit::blockCountChanged, this, &CodeEditor::UpdateLineNumberWidth);
    connect(this, &QPlainTextEdit::updateRequest, this, &CodeEditor::OnUpdateRequest);
    connect(
        this, &QPlainTextEdit::cursorPositionChanged, this, &CodeEditor::ScheduleExtraSelections);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &CodeEditor::KeepCursorLineShaped);
    connect(this, &QPlainTextEdit::selectionChanged, this, &CodeEditor::ScheduleExtraSelections);
    connect(
        verticalScrollBar(), &QScrollBar::valueChanged, this, &CodeEditor::ScheduleExtraSelections);
    connect(this, &QPlainTextEdit::textChanged, this, &CodeEditor::OnTextChanged);
    connect(this, &QPlainTextEdit::modificationChanged, this, &CodeEditor::OnModificationChanged);
    connect(this, &QWidget::customContextMenuRequested, this, &CodeEditor::ShowContextMenu);
    connect(
        document(), &QTextDocument::contentsChange, this, &CodeEditor::OnDocumentContentsChanged);
    connect(m_search, &DocumentSearch::HitBlocksChanged, this, &CodeEditor::OnSearchHitsChanged);
    connect(m_search, &DocumentSearch::Counted, this, &CodeEditor::OnSearchCounted);
    connect(m_textChangeTimer, &QTimer::timeout, this, &CodeEditor::OnTextChangedDelay);
    connect(m_extraSelectionsTimer, &QTimer::timeout, this, &CodeEditor::UpdateExtraSelections);
}

void CodeEditor::GetProperties(CodeEditorProperties& properties) const
{
    properties = {m_type, m_language, m_filePath, m_label};
}

void CodeEditor::SetProperties(const CodeEditorProperties& properties, bool force)
{
    const bool languageChanged = force || properties.language != m_language;
    WatchFile(properties);
    m_type = properties.type;
    m_language = properties.language;
    m_filePath = properties.filePath;
    m_label = properties.label;
    UpdateAccessibleName();
    if (languageChanged) {
        SetHighlighterFromLanguage();
        SetAutoCompleterFromLanguage();
        UpdateTextOptions();
    }
}

void CodeEditor::UpdateAccessibleName()
{
    setAccessibleName(IsModified() ? tr("%1, modified").arg(m_label) : m_label);
}

void CodeEditor::WatchFile(const CodeEditorProperties& properties)
{
    if (m_fileWatcher && !m_filePath.isEmpty())
        m_fileWatcher->removePath(m_filePath);
    if (properties.type != CodeEditorType::File || properties.filePath.isEmpty())
        return;
    if (!m_fileWatcher) {
        m_fileWatcher = SharedFileWatcher();
        connect(m_fileWatcher.get(), &QFileSystemWatcher::fileChanged, this,
            &CodeEditor::OnFileChanged);
    }
    m_fileWatcher->addPath(properties.filePath);
}

void CodeEditor::RenewFileWatch()
{
    if (m_type == CodeEditorType::File && m_fileWatcher
        && !m_fileWatcher->files().contains(m_filePath) && QFileInfo(m_filePath).isFile())
        m_fileWatcher->addPath(m_filePath);
}

void CodeEditor::OnFileChanged(const QString& path)
{
    if (path != m_filePath)
        return;
    RenewFileWatch();
    Q_EMIT FileChanged(path);
}

QString CodeEditor::GetText() const
{
    const QString text = toPlainText();
    return text.isNull() ? QStringLiteral("") : text;
}

QString CodeEditor::GetStoredText() const
{
    QString text = document()->toRawText();
    text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    return text.isNull() ? QStringLiteral("") : text;
}

void CodeEditor::SetText(const QString& text)
{
    m_rewritingText = true;
    setPlainText(text);
    m_rewritingText = false;
    // The toolkit tells nobody that an empty text made the document unmodified.
    OnModificationChanged(IsModified());
    // Nothing of the old text is left for anything to keep its place.
    m_marks.Clear();
    RefreshMarks();
    if (m_findInSelectionStart >= 0)
        SetSelectedSearchRegion();
    m_lineNumbers->UpdateDigits(true);
    UpdateLineNumberWidth();
}

QString CodeEditor::GetSelectedText() const
{
    return textCursor().selectedText();
}

QString CodeEditor::GetSelectedTextForExecute() const
{
    return GetSelectedText().replace(PARAGRAPH_SEPARATOR, QLatin1Char('\n'));
}

QString CodeEditor::GetCurrentLineText() const
{
    return textCursor().block().text();
}

QString CodeEditor::GetCurrentLineForExecute() const
{
    return GetCurrentLineText().trimmed();
}

QString CodeEditor::GetTextForPythonProcessing() const
{
    return PythonCompletion::EscapedForPython(GetText());
}

int CodeEditor::GetSelectedStartPosition() const
{
    return textCursor().selectionStart();
}

int CodeEditor::GetSelectedEndPosition() const
{
    return textCursor().selectionEnd();
}

void CodeEditor::ClearSelection()
{
    QTextCursor cursor = textCursor();
    cursor.clearSelection();
    setTextCursor(cursor);
}

void CodeEditor::ClearSelectionAndInsertText(const QString& text)
{
    QTextCursor cursor = textCursor();
    cursor.setPosition(cursor.selectionEnd());
    cursor.insertText(text);
    setTextCursor(cursor);
}

bool CodeEditor::IsModified() const
{
    return document()->isModified();
}

void CodeEditor::SetModified(bool modified)
{
    document()->setModified(modified);
}

QChar CodeEditor::CharacterAt(int position) const
{
    return document()->characterAt(position);
}

QString CodeEditor::SpacesStr(int count) const
{
    return QString(qMax(0, count), QLatin1Char(' '));
}

int CodeEditor::GetCurrentLine() const
{
    return textCursor().blockNumber() + 1;
}

int CodeEditor::GetLineCount() const
{
    return blockCount();
}

void CodeEditor::SetCurrentLine(int line)
{
    if (line < 1 || line > GetLineCount())
        return;
    m_scrollValueToShow = -1;
    setCenterOnScroll(true);
    setTextCursor(QTextCursor(document()->findBlockByNumber(line - 1)));
    ensureCursorVisible();
    setCenterOnScroll(false);
}

void CodeEditor::SetCurrentLine(int line, int column)
{
    SetCurrentLine(line);
    if (line < 1 || line > GetLineCount())
        return;
    QTextCursor cursor = textCursor();
    const int index = IndexOfColumn(cursor.block().text(), column - 1, m_tabSize);
    cursor.setPosition(cursor.block().position() + index);
    setTextCursor(cursor);
}

int CodeEditor::GetCursorPosition() const
{
    return textCursor().position();
}

void CodeEditor::SetCursorPosition(int position, bool home, bool centre)
{
    m_scrollValueToShow = -1;
    QTextCursor cursor = textCursor();
    cursor.setPosition(qBound(0, position, document()->characterCount() - 1));
    setTextCursor(cursor);
    if (home)
        OnHomeKeyPressed(false, false);
    if (centre)
        centerCursor();
}

void CodeEditor::SetCursorSelection(int start, int end)
{
    m_scrollValueToShow = -1;
    const int last = document()->characterCount() - 1;
    QTextCursor cursor = textCursor();
    cursor.setPosition(qBound(0, start, last));
    cursor.setPosition(qBound(0, end, last), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    centerCursor();
}

int CodeEditor::GetVerticalScrollBarValue() const
{
    return m_scrollValueToShow >= 0 ? m_scrollValueToShow : verticalScrollBar()->value();
}

void CodeEditor::SetVerticalScrollBarValue(int value)
{
    verticalScrollBar()->setValue(value);
    // The first show would bring the cursor into view instead.
    if (!m_wasShown)
        m_scrollValueToShow = value;
}

int CodeEditor::GetVerticalScrollBarWidth() const
{
    return verticalScrollBar()->width();
}

void CodeEditor::GetCursorStatus(
    const QTextCursor& cursor, int& line, int& column, int& selectionLength) const
{
    line = cursor.blockNumber() + 1;
    column = VisualWidth(cursor.block().text().left(cursor.positionInBlock()), m_tabSize) + 1;
    selectionLength = cursor.selectionEnd() - cursor.selectionStart();
}

void CodeEditor::GetCursorStatus(int& line, int& column, int& selectionLength) const
{
    GetCursorStatus(textCursor(), line, column, selectionLength);
}

CodeEditorBlockData* CodeEditor::GetBlockData(const QTextCursor& cursor) const
{
    return GetBlockData(cursor.block());
}

CodeEditorBlockData* CodeEditor::GetPreviousBlockData(const QTextCursor& cursor) const
{
    return GetBlockData(cursor.block().previous());
}

bool CodeEditor::IsIgnoredBlockDataPosition(const QTextCursor& cursor) const
{
    const CodeEditorBlockData* lineData = GetBlockData(cursor);
    return lineData && lineData->IsIgnoredPosition(cursor.positionInBlock());
}

int CodeEditor::GetBlockCommentOpenPosition(const QTextCursor& cursor) const
{
    return FindBlockCommentOpen(cursor.block(), cursor.positionInBlock(), GetBlockDataSource());
}

int CodeEditor::GetBlockCommentClosePosition(const QTextCursor& cursor, int from) const
{
    return FindBlockCommentClose(cursor.block(), from, GetBlockDataSource());
}

void CodeEditor::OnTextChanged()
{
    m_textChangeTimer->start();
}

void CodeEditor::OnTextChangedDelay()
{
    Q_EMIT TextChanged(m_filePath, GetText());
}

void CodeEditor::OnModificationChanged(bool modified)
{
    UpdateAccessibleName();
    Q_EMIT ModificationChanged(modified, this);
}

void CodeEditor::CommandDocumentation()
{
    if (m_language != CodeEditorLanguage::Text)
        MayaUtil::CommandDocumentation(
            GetSelectedTextForExecute(), m_language == CodeEditorLanguage::Python);
}

void CodeEditor::SetDropOverlayRect(const QRect& rectangle)
{
    m_dropOverlay->SetRect(rectangle);
}

void CodeEditor::focusInEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusInEvent(event);
    Q_EMIT ReceivedFocus();
}

void CodeEditor::dragEnterEvent(QDragEnterEvent* event)
{
    // Dropped files are opened by whoever holds the editor, not inserted as text.
    if (event->mimeData()->hasUrls())
        event->ignore();
    else
        QPlainTextEdit::dragEnterEvent(event);
}
