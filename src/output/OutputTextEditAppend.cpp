// Appending to the console, at a price that a burst can pay.

#include "output/OutputTextEdit.h"
#include "output/TextTail.h"
#include "output/TimeSpent.h"

#include <QTimer>

namespace {

constexpr int REPAINT_INTERVAL = 250; // ms: a long burst repaints at most four times a second
constexpr int FRAME = 16; // ms
/// ns of one frame for inserting, marking and painting piece by piece; what follows is joined.
constexpr qint64 INSERT_AT_ONCE = 2'000'000;
constexpr int PENDING_CUT_SIZE = 1 << 20; // characters that may be kept beyond the limit

} // namespace

void OutputTextEdit::AppendText(const QString& text)
{
    if (m_logStream)
        WriteToLog(text);
    if (!isVisible()) {
        KeepPending(text);
        return;
    }
    if (!m_isTurnEndDue && m_frame.hasExpired(FRAME)) {
        m_frame.start();
        m_frameCost = 0;
    }
    m_followDue = true;
    m_extraSelectionsDue = true;
    if (m_frameCost >= INSERT_AT_ONCE) {
        Join(text);
    } else {
        const TimeSpent spent(m_frameCost);
        InsertText(text);
        FollowOutput();
    }
    ScheduleTurnEnd();
    RepaintIfDue();
}

void OutputTextEdit::KeepPending(const QString& text)
{
    m_pendingText += text;
    const int limit = m_longLines.GetLineLimit();
    if (limit <= 0 || m_pendingText.size() < qMax(PENDING_CUT_SIZE, m_pendingCutSize))
        return;
    m_pendingText.remove(0, TailStart(m_pendingText, limit));
    m_pendingCutSize = 2 * m_pendingText.size();
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
    const int limit = m_longLines.GetLineLimit();
    const int start = limit > 0 ? TailStart(text, limit) : 0;
    if (start > 0)
        Empty();
    const QString kept = text.mid(start);
    if (m_longLines.IsNeededFor(kept)) {
        m_longLines.Append(kept);
        return;
    }
    QTextCursor cursor(QPlainTextEdit::document());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(kept);
}

void OutputTextEdit::FlushJoined()
{
    if (m_joinedText.isEmpty())
        return;
    QString text;
    text.swap(m_joinedText);
    InsertText(text);
    // It is painted with this turn now, and must not be without its marks.
    if (m_frameTimer->isActive()) {
        m_frameTimer->stop();
        QMetaObject::invokeMethod(this, &OutputTextEdit::FinishTurn, Qt::QueuedConnection);
    }
}

void OutputTextEdit::FollowOutput()
{
    FlushJoined();
    if (!m_followDue)
        return;
    m_followDue = false;
    QTextCursor cursor(QPlainTextEdit::document());
    cursor.movePosition(QTextCursor::End);
    QPlainTextEdit::setTextCursor(cursor);
}

/// Comes before the turn is painted. What was joined over several turns waits for the frame's end.
void OutputTextEdit::ScheduleTurnEnd()
{
    if (m_isTurnEndDue)
        return;
    m_isTurnEndDue = true;
    const qint64 rest = FRAME - m_frame.elapsed();
    if (m_joinedText.isEmpty() || rest <= 0)
        QMetaObject::invokeMethod(this, &OutputTextEdit::FinishTurn, Qt::QueuedConnection);
    else
        m_frameTimer->start(static_cast<int>(rest));
}

void OutputTextEdit::FinishTurn()
{
    const TimeSpent spent(m_frameCost);
    FollowOutput();
    if (m_extraSelectionsDue) {
        UpdateExtraSelections();
        UpdateSearchResults();
    }
    m_isTurnEndDue = false;
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
