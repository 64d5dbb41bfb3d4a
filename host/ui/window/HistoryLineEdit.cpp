#include "ui/window/HistoryLineEdit.h"

#include <QKeyEvent>

namespace host::ui {

HistoryLineEdit::HistoryLineEdit(QWidget* parent)
    : QLineEdit(parent)
{ }

void HistoryLineEdit::Remember(const QString& text)
{
    if (m_history.isEmpty() || m_history.last() != text)
        m_history += text;
    if (m_history.size() > MAXIMUM_ENTRIES)
        m_history.removeFirst();
    m_index = m_history.size();
    m_typed.clear();
}

void HistoryLineEdit::Step(int direction)
{
    const int index = m_index + direction;
    if (index < 0 || index > m_history.size())
        return;
    if (m_index == m_history.size())
        m_typed = text();
    m_index = index;
    setText(m_index == m_history.size() ? m_typed : m_history.at(m_index));
}

void HistoryLineEdit::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Up)
        Step(-1);
    else if (event->key() == Qt::Key_Down)
        Step(1);
    else
        QLineEdit::keyPressEvent(event);
}

} // namespace host::ui
