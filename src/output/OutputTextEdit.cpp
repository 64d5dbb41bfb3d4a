// Appending to the console, reading it, and its events.

#include "output/OutputTextEdit.h"

#include "editor/FindReplaceWidget.h"
#include "language/MelVariableSelection.h"
#include "output/TextTail.h"
#include "settings/ColorSettings.h"
#include "settings/KeyBindings.h"
#include "settings/Settings.h"
#include "window/chrome/TextLook.h"
#include "window/chrome/Theme.h"

#include <QFile>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>
#include <QTextStream>
#include <QTimer>

namespace {

constexpr int REPAINT_INTERVAL = 250; // ms: a long burst repaints at most four times a second
constexpr qint64 INSERT_AT_ONCE = 20'000'000; // ns of one turn; what follows is joined
constexpr int PENDING_CUT_SIZE = 1 << 20; // characters
constexpr int PAGE_STEP_DELAY = 1; // ms
constexpr int LEFT_MARGIN = 4; // design pixels

} // namespace

OutputTextEdit::OutputTextEdit(KeyBindings* keyBindings, QWidget* parent)
    : QPlainTextEdit(parent)
    , m_keyBindings(keyBindings)
    , m_turnTimer(new QTimer(this))
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
    m_turnTimer->setSingleShot(true);
    m_turnTimer->setInterval(0);
    UpdateFontsAndColors();
    CreateFindReplace();
    CreateConnections();
    m_repaintTimer.start();
}

OutputTextEdit::~OutputTextEdit()
{
    EndWriteToFile();
}

void OutputTextEdit::CreateConnections()
{
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this,
        &OutputTextEdit::ScheduleExtraSelections);
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this,
        &OutputTextEdit::ScheduleExtraSelections);
    connect(
        this, &QPlainTextEdit::selectionChanged, this, &OutputTextEdit::ScheduleExtraSelections);
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, this,
        &OutputTextEdit::QueueUpdateExtraSelections);
    connect(this, &QWidget::customContextMenuRequested, this, &OutputTextEdit::ShowContextMenu);
    connect(m_turnTimer, &QTimer::timeout, this, &OutputTextEdit::FinishTurn);
}

void OutputTextEdit::AppendText(const QString& text)
{
    if (m_logStream)
        WriteToLog(text);
    if (!isVisible()) {
        KeepPending(text);
        return;
    }
    if (text.isEmpty())
        return;
    m_followDue = true;
    m_extraSelectionsDue = true;
    if (m_turnNanoseconds >= INSERT_AT_ONCE) {
        Join(text);
    } else {
        QElapsedTimer spent;
        spent.start();
        InsertText(text);
        FollowOutput();
        m_turnNanoseconds += spent.nsecsElapsed();
    }
    if (!m_turnTimer->isActive())
        m_turnTimer->start();
    RepaintIfDue();
}

void OutputTextEdit::KeepPending(const QString& text)
{
    m_pendingText += text;
    const int limit = QPlainTextEdit::document()->maximumBlockCount();
    if (limit <= 0 || m_pendingText.size() < m_pendingCutSize)
        return;
    m_pendingText.remove(0, TailStart(m_pendingText, limit));
    m_pendingCutSize = qMax(PENDING_CUT_SIZE, 2 * m_pendingText.size());
}

void OutputTextEdit::Join(const QString& text)
{
    // Apart they are two breaks, joined they would be one.
    if (m_joinedText.endsWith(QLatin1Char('\r')) && text.startsWith(QLatin1Char('\n')))
        FlushJoined();
    m_joinedText += text;
}

/// Whatever would be dropped again at once is not inserted in the first place.
void OutputTextEdit::InsertText(const QString& text)
{
    QTextDocument* const document = QPlainTextEdit::document();
    const int limit = document->maximumBlockCount();
    const int start = limit > 0 ? TailStart(text, limit) : 0;
    if (start > 0) {
        setPlainText(text.mid(start));
        return;
    }
    QTextCursor cursor(document);
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(text);
}

void OutputTextEdit::FlushJoined()
{
    if (m_joinedText.isEmpty())
        return;
    QString text;
    text.swap(m_joinedText);
    InsertText(text);
}

void OutputTextEdit::FollowOutput()
{
    FlushJoined();
    if (!m_followDue)
        return;
    m_followDue = false;
    QTextCursor cursor(QPlainTextEdit::document());
    cursor.movePosition(QTextCursor::End);
    setTextCursor(cursor);
}

void OutputTextEdit::FinishTurn()
{
    m_turnNanoseconds = 0;
    FollowOutput();
    if (!m_extraSelectionsDue)
        return;
    UpdateExtraSelections();
    UpdateSearchResults();
}

void OutputTextEdit::RepaintIfDue()
{
    if (m_repaintTimer.elapsed() <= REPAINT_INTERVAL)
        return;
    FollowOutput();
    UpdateSearchResults();
    UpdateExtraSelections();
    viewport()->repaint();
    m_repaintTimer.start();
}

void OutputTextEdit::ClearAll()
{
    m_joinedText.clear();
    m_pendingText.clear();
    m_followDue = false;
    clear();
    m_findReplace->SetFindInSelectionEnabled(false, false);
    m_findRegion = QTextCursor();
    m_extraSelections.clear();
    setExtraSelections(m_extraSelections);
    UpdateSearchResults();
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
    setMaximumBlockCount(qMax(0, lines));
}

QString OutputTextEdit::GetText()
{
    return toPlainText();
}

QString OutputTextEdit::GetSelectedText()
{
    return textCursor().selectedText();
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
    return QPlainTextEdit::toPlainText();
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
    return QPlainTextEdit::blockCount();
}

void OutputTextEdit::selectAll()
{
    FollowOutput();
    QPlainTextEdit::selectAll();
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
    document()->setDefaultTextOption(
        TextLook::Option(font(), Settings::tabsSizeDefault, Settings::outputWordWrapEnabled));
}

bool OutputTextEdit::AnswersUserInput(const QEvent& event) const
{
    switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu: return m_followDue;
    default: return false;
    }
}

bool OutputTextEdit::event(QEvent* event)
{
    if (AnswersUserInput(*event))
        FollowOutput();
    return QPlainTextEdit::event(event);
}

bool OutputTextEdit::viewportEvent(QEvent* event)
{
    if (AnswersUserInput(*event))
        FollowOutput();
    return QPlainTextEdit::viewportEvent(event);
}

void OutputTextEdit::showEvent(QShowEvent* event)
{
    if (!m_pendingText.isEmpty()) {
        QString text;
        text.swap(m_pendingText);
        m_pendingCutSize = 0;
        InsertText(text);
        m_followDue = true;
        m_extraSelectionsDue = true;
        m_turnTimer->start();
    }
    QPlainTextEdit::showEvent(event);
}

void OutputTextEdit::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    if (textCursor().atEnd())
        ScrollToEnd();
    UpdateFindReplacePosition();
}

void OutputTextEdit::focusInEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusInEvent(event);
    Q_EMIT ReceivedFocus();
}

void OutputTextEdit::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Escape) {
        QPlainTextEdit::keyPressEvent(event);
        return;
    }
    CloseFindReplace();
    QTextCursor cursor = textCursor();
    cursor.clearSelection();
    setTextCursor(cursor);
}

void OutputTextEdit::wheelEvent(QWheelEvent* event)
{
    if (event->modifiers() == Qt::NoModifier) {
        QPlainTextEdit::wheelEvent(event);
        return;
    }
    if (event->modifiers() != Qt::ControlModifier || !Settings::outputMouseWheelChangesFontSize)
        return;
    if (event->angleDelta().y() > 0)
        Q_EMIT IncreaseFontSizeRequested();
    else if (event->angleDelta().y() < 0)
        Q_EMIT DecreaseFontSizeRequested();
}

void OutputTextEdit::mouseDoubleClickEvent(QMouseEvent* event)
{
    QPlainTextEdit::mouseDoubleClickEvent(event);
    if (Settings::outputDoubleClickIncludesDollarSign)
        setTextCursor(WithDollarSign(textCursor()));
}

void OutputTextEdit::QueueUpdateExtraSelections(int sliderAction)
{
    if (sliderAction == QAbstractSlider::SliderPageStepAdd
        || sliderAction == QAbstractSlider::SliderPageStepSub)
        QTimer::singleShot(PAGE_STEP_DELAY, this, &OutputTextEdit::UpdateExtraSelections);
}

void OutputTextEdit::ShowContextMenu(const QPoint& point)
{
    const auto addEntry = [this](QMenu& menu, const QString& label, int binding) {
        QAction* action = menu.addAction(label);
        action->setShortcut(m_keyBindings->GetShortcut(binding));
        action->setShortcutVisibleInContextMenu(true);
        return action;
    };
    QMenu menu(this);
    connect(addEntry(menu, tr("Copy"), KeyBindings::Copy), &QAction::triggered, this,
        &OutputTextEdit::copy);
    menu.addSeparator();
    connect(addEntry(menu, tr("Select All"), KeyBindings::SelectAll), &QAction::triggered, this,
        &OutputTextEdit::selectAll);
    menu.addSeparator();
    connect(addEntry(menu, tr("Clear Output"), KeyBindings::ClearOutput), &QAction::triggered, this,
        &OutputTextEdit::ClearAll);
    menu.exec(mapToGlobal(point));
}
