// The console's events: keys, wheel, mouse and menu.

#include "language/MelVariableSelection.h"
#include "output/OutputTextEdit.h"
#include "settings/KeyBindings.h"
#include "settings/Settings.h"

#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>
#include <QTimer>

namespace {

constexpr int PAGE_STEP_DELAY = 1; // ms

} // namespace

bool OutputTextEdit::AnswersUserInput(const QEvent& event) const
{
    switch (event.type()) {
    case QEvent::ShortcutOverride:
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
        // Joined while it was still shown.
        FlushJoined();
        InsertText(text);
        m_followDue = true;
        m_extraSelectionsDue = true;
        ScheduleTurnEnd();
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

/// The scroll bar is silent while the view follows the cursor; this is not.
void OutputTextEdit::OnUpdateRequest(const QRect& rectangle, int scrolled)
{
    if (scrolled != 0 || rectangle == viewport()->rect())
        ScheduleExtraSelections();
}

void OutputTextEdit::QueueUpdateExtraSelections(int sliderAction)
{
    if (sliderAction == QAbstractSlider::SliderPageStepAdd
        || sliderAction == QAbstractSlider::SliderPageStepSub)
        QTimer::singleShot(PAGE_STEP_DELAY, this, &OutputTextEdit::UpdateExtraSelections);
}

void OutputTextEdit::ShowContextMenu(const QPoint& point)
{
    // Without a loop of its own: the window may go while the menu is open.
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto addEntry = [this, menu](const QString& label, int binding, bool isEnabled) {
        QAction* action = menu->addAction(label);
        action->setShortcut(m_keyBindings->GetShortcut(binding));
        action->setShortcutVisibleInContextMenu(true);
        action->setEnabled(isEnabled);
        return action;
    };
    const bool hasText = !document()->isEmpty();
    connect(addEntry(tr("Copy"), KeyBindings::Copy, textCursor().hasSelection()),
        &QAction::triggered, this, &OutputTextEdit::copy);
    menu->addSeparator();
    connect(addEntry(tr("Select All"), KeyBindings::SelectAll, hasText), &QAction::triggered, this,
        &OutputTextEdit::selectAll);
    menu->addSeparator();
    connect(addEntry(tr("Clear Output"), KeyBindings::ClearOutput, hasText), &QAction::triggered,
        this, &OutputTextEdit::ClearAll);
    // The point is the viewport's.
    menu->popup(viewport()->mapToGlobal(point));
}
