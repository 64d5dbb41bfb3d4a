#include "engine/OutputStream.h"

namespace host {

namespace {

thread_local Language currentLanguage = Language::Mel;
thread_local int nesting = 0;

} // namespace

int OutputStream::Add(Role role, Filter call)
{
    const QMutexLocker lock(&m_mutex);
    m_entries.append({++m_lastId, role, std::make_shared<Filter>(std::move(call))});
    return m_lastId;
}

int OutputStream::AddListener(Listener listener)
{
    return Add(Role::Listener, [listener = std::move(listener)](const Message& message) {
        listener(message);
        return false;
    });
}

int OutputStream::AddFilter(Filter filter)
{
    return Add(Role::Filter, std::move(filter));
}

int OutputStream::AddDisplay(Listener listener)
{
    return Add(Role::Display, [listener = std::move(listener)](const Message& message) {
        listener(message);
        return false;
    });
}

void OutputStream::Remove(int id)
{
    const QMutexLocker lock(&m_mutex);
    for (int i = 0; i < m_entries.size(); ++i) {
        if (m_entries[i].id == id) {
            m_entries.remove(i);
            return;
        }
    }
}

bool OutputStream::IsPresent(int id) const
{
    const QMutexLocker lock(&m_mutex);
    for (const Entry& entry : m_entries) {
        if (entry.id == id)
            return true;
    }
    return false;
}

void OutputStream::Write(MessageType type, const QString& text)
{
    if (nesting >= MAXIMUM_NESTING)
        return;
    ++nesting;
    const Message message{type, text, currentLanguage};
    QVector<Entry> entries;
    {
        const QMutexLocker lock(&m_mutex);
        entries = m_entries;
    }
    bool keptBack = false;
    for (const Entry& entry : qAsConst(entries)) {
        if (entry.role != Role::Display && IsPresent(entry.id))
            keptBack = (*entry.call)(message) || keptBack;
    }
    // Only now, as a filter may have been added after the display that it speaks for.
    for (const Entry& entry : qAsConst(entries)) {
        if (entry.role == Role::Display && !keptBack && IsPresent(entry.id))
            (*entry.call)(message);
    }
    --nesting;
}

Language OutputStream::CurrentLanguage()
{
    return currentLanguage;
}

LanguageScope::LanguageScope(Language language)
    : m_previous(currentLanguage)
{
    currentLanguage = language;
}

LanguageScope::~LanguageScope()
{
    currentLanguage = m_previous;
}

QString FramedText(const Message& message)
{
    const QString mark
        = message.language == Language::Mel ? QStringLiteral("//") : QStringLiteral("#");
    const auto framed = [&](const QString& label) {
        return mark + QLatin1Char(' ') + label + message.text + QLatin1Char(' ') + mark
            + QLatin1Char('\n');
    };
    switch (message.type) {
    case MessageType::History:
    case MessageType::Display: return message.text;
    case MessageType::Info: return framed({});
    case MessageType::Warning: return framed(QStringLiteral("Warning: "));
    case MessageType::Error: return framed(QStringLiteral("Error: "));
    case MessageType::Result: return framed(QStringLiteral("Result: "));
    case MessageType::StackTrace: {
        QString lines;
        for (const QString& line : message.text.split(QLatin1Char('\n')))
            lines += mark + QLatin1Char(' ') + line + QLatin1Char('\n');
        return lines;
    }
    }
    return message.text;
}

} // namespace host
