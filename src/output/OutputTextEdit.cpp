// The console's set-up, its text and its looks.

#include "output/OutputTextEdit.h"

#include "editor/DocumentSearch.h"
#include "editor/FindReplaceWidget.h"
#include "settings/ColorSettings.h"
#include "settings/Settings.h"
#include "window/chrome/TextLook.h"
#include "window/chrome/Theme.h"

#include <QFile>
#include <QMimeData>
#include <QScrollBar>
#include <QTextDocumentFragment>
#include <QTextStream>
#include <QTimer>

namespace {

constexpr int LEFT_MARGIN = 4; // design pixels

} // namespace

OutputTextEdit::OutputTextEdit(KeyBindings* keyBindings, QWidget* parent)
    : QPlainTextEdit(parent)
    , m_keyBindings(keyBindings)
    , m_longLines(QPlainTextEdit::document())
    , m_frameTimer(new QTimer(this))
{
    setFrameStyle(QFrame::NoFrame);
    setReadOnly(true);
    setCenterOnScroll(false);
    setUndoRedoEnabled(false);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setAccessibleName(tr("Output"));
    // The margin is the text's own ground.
    setViewportMargins(Theme::Dp(LEFT_MARGIN), 0, 0, 0);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    m_frameTimer->setSingleShot(true);
    m_frameTimer->setTimerType(Qt::PreciseTimer);
    m_frame.start();
    UpdateFontsAndColors();
    CreateFindReplace();
    CreateConnections();
    m_repaintTimer.start();
}

OutputTextEdit::~OutputTextEdit()
{
    BreakConnections();
    EndWriteToFile();
}

void OutputTextEdit::CreateConnections()
{
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this,
        &OutputTextEdit::ScheduleExtraSelections);
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this,
        &OutputTextEdit::ScheduleExtraSelections);
    // Of a very wide line only what is in view is marked.
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this,
        &OutputTextEdit::ScheduleExtraSelections);
    connect(
        this, &QPlainTextEdit::selectionChanged, this, &OutputTextEdit::ScheduleExtraSelections);
    connect(this, &QPlainTextEdit::updateRequest, this, &OutputTextEdit::OnUpdateRequest);
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, this,
        &OutputTextEdit::QueueUpdateExtraSelections);
    connect(this, &QWidget::customContextMenuRequested, this, &OutputTextEdit::ShowContextMenu);
    connect(m_frameTimer, &QTimer::timeout, this, &OutputTextEdit::FinishTurn);
}

/// While the parts go, none of them may call back.
void OutputTextEdit::BreakConnections()
{
    disconnect(verticalScrollBar(), nullptr, this, nullptr);
    disconnect(horizontalScrollBar(), nullptr, this, nullptr);
    disconnect(this, nullptr, this, nullptr);
    disconnect(m_findReplace, nullptr, this, nullptr);
    disconnect(m_search, nullptr, this, nullptr);
    disconnect(m_frameTimer, nullptr, this, nullptr);
}

void OutputTextEdit::ClearAll()
{
    m_joinedText.clear();
    m_pendingText.clear();
    m_followDue = false;
    Empty();
    m_findReplace->SetFindInSelectionEnabled(false, false);
    m_findRegion = QTextCursor();
    m_extraSelections.clear();
    m_currentMatch = QTextCursor();
    setExtraSelections(m_extraSelections);
    UpdateSearchResults();
}

void OutputTextEdit::Empty()
{
    clear();
    m_longLines.Forget();
}

void OutputTextEdit::ScrollToEnd()
{
    FollowOutput();
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
    horizontalScrollBar()->setValue(horizontalScrollBar()->minimum());
}

void OutputTextEdit::SetLineLimit(int lines)
{
    FollowOutput();
    m_longLines.SetLineLimit(lines);
}

QString OutputTextEdit::GetText()
{
    return toPlainText();
}

QString OutputTextEdit::GetSelectedText()
{
    const QTextCursor cursor = textCursor();
    return m_longLines.WithoutBreaks(cursor.selectedText(), cursor.selectionStart());
}

QString OutputTextEdit::GetSelectedTextForExecute()
{
    return GetSelectedText().replace(QChar(0x2029), QLatin1Char('\n'));
}

int OutputTextEdit::GetSelectedStartPosition()
{
    return textCursor().selectionStart();
}

int OutputTextEdit::GetSelectedEndPosition()
{
    return textCursor().selectionEnd();
}

QString OutputTextEdit::toPlainText()
{
    FlushJoined();
    return m_longLines.WithoutBreaks(QPlainTextEdit::toPlainText(), 0);
}

QTextDocument* OutputTextEdit::document()
{
    FollowOutput();
    return QPlainTextEdit::document();
}

QTextCursor OutputTextEdit::textCursor()
{
    FollowOutput();
    return QPlainTextEdit::textCursor();
}

int OutputTextEdit::blockCount()
{
    FlushJoined();
    return m_longLines.GetLineCount();
}

void OutputTextEdit::selectAll()
{
    FollowOutput();
    QPlainTextEdit::selectAll();
}

void OutputTextEdit::setTextCursor(const QTextCursor& cursor)
{
    FollowOutput();
    QPlainTextEdit::setTextCursor(cursor);
}

void OutputTextEdit::moveCursor(QTextCursor::MoveOperation operation, QTextCursor::MoveMode mode)
{
    FollowOutput();
    QPlainTextEdit::moveCursor(operation, mode);
}

void OutputTextEdit::copy()
{
    FollowOutput();
    QPlainTextEdit::copy();
}

/// What is copied or dragged. Whatever waits comes behind the selection.
QMimeData* OutputTextEdit::createMimeDataFromSelection() const
{
    const QTextCursor cursor = QPlainTextEdit::textCursor();
    auto* const copied = new QMimeData;
    copied->setText(
        m_longLines.WithoutBreaks(cursor.selection().toPlainText(), cursor.selectionStart()));
    return copied;
}

QList<QTextEdit::ExtraSelection> OutputTextEdit::extraSelections()
{
    FollowOutput();
    if (m_extraSelectionsDue)
        UpdateExtraSelections();
    return QPlainTextEdit::extraSelections();
}

void OutputTextEdit::UpdateFontsAndColors()
{
    UpdateFont();
    TextLook::ApplyColors(*this, ColorSettings::GetOutputFormat(ColorSettings::PLAIN_TEXT, false),
        ColorSettings::GetOutputFormat(ColorSettings::SELECTED_TEXT, false));
    ScheduleExtraSelections();
}

void OutputTextEdit::UpdateFont()
{
    setFont(TextLook::ZoomedFont(Settings::outputFont, Settings::outputZoom));
    UpdateTextOptions();
}

void OutputTextEdit::UpdateTextOptions()
{
    const QTextOption option
        = TextLook::Option(font(), Settings::tabsSizeDefault, Settings::outputWordWrapEnabled);
    // Setting it lays out the whole text anew, whatever it was before.
    const QTextOption old = document()->defaultTextOption();
    if (old.wrapMode() != option.wrapMode()
        || !qFuzzyCompare(1.0 + old.tabStopDistance(), 1.0 + option.tabStopDistance()))
        document()->setDefaultTextOption(option);
}
