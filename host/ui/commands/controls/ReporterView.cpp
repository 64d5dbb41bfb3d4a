#include "ui/commands/controls/ReporterView.h"

#include "engine/Engine.h"

#include <QScrollBar>

namespace host::ui {

namespace {

/// More than this cannot be on show at once, so older messages that still wait are dropped.
constexpr qint64 MAXIMUM_WAITING = 16 * 1024 * 1024;

struct ColorRow
{
    MessageType type;
    QRgb color;
};

const ColorRow COLORS[] = {
    {MessageType::Warning, 0xffdfe527},
    {MessageType::Error, 0xfff46a6a},
    {MessageType::Result, 0xff2ab422},
};

QTextCharFormat FormatOf(MessageType type)
{
    QTextCharFormat format;
    for (const ColorRow& row : COLORS) {
        if (row.type == type)
            format.setForeground(QColor(row.color));
    }
    return format;
}

/// The messages at the end that hold the last lines a view can show.
QVector<Message> Tail(const QVector<Message>& messages)
{
    int first = messages.size();
    for (int lines = 0; first > 0 && lines < ReporterView::MAXIMUM_LINES; --first)
        lines += messages[first - 1].text.count(QLatin1Char('\n'));
    return messages.mid(first);
}

} // namespace

bool ReporterFilter::Accepts(const Message& message) const
{
    const QString language
        = message.language == Language::Mel ? QStringLiteral("mel") : QStringLiteral("python");
    if (language == hiddenLanguage)
        return false;
    switch (message.type) {
    case MessageType::Info: return !suppressInfo;
    case MessageType::Warning: return !suppressWarnings;
    case MessageType::Error: return !suppressErrors;
    case MessageType::Result: return !suppressResults;
    case MessageType::StackTrace: return !suppressStackTrace;
    default: return true;
    }
}

ReporterView::ReporterView(QWidget* parent)
    : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setLineWrapMode(NoWrap);
    setMaximumBlockCount(MAXIMUM_LINES);
    connect(this, &ReporterView::MessagesWaiting, this, &ReporterView::Flush, Qt::QueuedConnection);
    m_listener
        = Engine::Current().output.AddDisplay([this](const Message& message) { Receive(message); });
}

ReporterView::~ReporterView()
{
    if (Engine::Exists())
        Engine::Current().output.Remove(m_listener);
}

void ReporterView::SetFilter(const ReporterFilter& filter)
{
    m_filter = filter;
    if (isVisible())
        Refill();
}

void ReporterView::Refill()
{
    Empty();
    {
        const QMutexLocker lock(&m_mutex);
        m_stale = false;
    }
    Insert(Tail(Engine::Current().history.Messages(
        [this](const Message& message) { return m_filter.Accepts(message); })));
}

void ReporterView::showEvent(QShowEvent* event)
{
    Refill();
    QPlainTextEdit::showEvent(event);
}

void ReporterView::hideEvent(QHideEvent* event)
{
    {
        const QMutexLocker lock(&m_mutex);
        m_stale = true;
    }
    Empty();
    QPlainTextEdit::hideEvent(event);
}

QString ReporterView::HistoryText() const
{
    return Engine::Current().history.Text(
        [this](const Message& message) { return m_filter.Accepts(message); });
}

void ReporterView::Empty()
{
    {
        const QMutexLocker lock(&m_mutex);
        m_waiting.clear();
        m_waitingCharacters = 0;
    }
    clear();
}

void ReporterView::Receive(const Message& message)
{
    bool first = false;
    {
        const QMutexLocker lock(&m_mutex);
        if (m_stale)
            return;
        first = m_waiting.isEmpty();
        m_waiting += message;
        m_waitingCharacters += message.text.size();
        if (m_waitingCharacters > MAXIMUM_WAITING) {
            const int half = m_waiting.size() / 2;
            for (int i = 0; i < half; ++i)
                m_waitingCharacters -= m_waiting[i].text.size();
            m_waiting.remove(0, half);
        }
    }
    if (first)
        Q_EMIT MessagesWaiting();
}

void ReporterView::Flush()
{
    QVector<Message> messages;
    {
        const QMutexLocker lock(&m_mutex);
        messages.swap(m_waiting);
        m_waitingCharacters = 0;
    }
    Insert(messages);
}

void ReporterView::AppendNote(const QString& text)
{
    Insert({Message{MessageType::Display, text, Language::Mel}});
}

/// One edit for all of them; neighbours that look the same become one piece of text.
void ReporterView::Insert(const QVector<Message>& messages)
{
    const bool atEnd = verticalScrollBar()->value() == verticalScrollBar()->maximum();
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    cursor.beginEditBlock();
    QString joined;
    for (int i = 0; i < messages.size(); ++i) {
        const Message& message = messages.at(i);
        if (m_filter.Accepts(message))
            joined += FramedText(message);
        const QTextCharFormat format = FormatOf(message.type);
        if (i + 1 < messages.size() && FormatOf(messages.at(i + 1).type) == format)
            continue;
        cursor.insertText(joined, format);
        joined.clear();
    }
    cursor.endEditBlock();
    if (atEnd)
        verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

} // namespace host::ui
