#pragma once

#include "engine/Script.h"

#include <QMutex>

#include <functional>

namespace host {

/// The order is that of the API's enumeration and must not change.
enum class MessageType { History, Display, Info, Warning, Error, Result, StackTrace };

struct Message
{
    MessageType type = MessageType::Display;
    /// Display and History as they are, line feeds included; the others without a closing one.
    QString text;
    /// The interpreter that was at work; decides between "//" and "#" in the host's own log.
    Language language = Language::Mel;
};

/// Everything the host prints. Listeners run in the order they were added, on the thread that
/// prints; adding, removing and writing are safe from any thread. A listener may write and may
/// remove itself or others; one that is removed while a message goes round does not get it.
class OutputStream
{
public:
    using Listener = std::function<void(const Message&)>;
    /// True keeps the message from the listeners that were added with AddDisplay.
    using Filter = std::function<bool(const Message&)>;

    /// Gets every message. The id is never 0.
    int AddListener(Listener listener);
    int AddFilter(Filter filter);
    /// For the host's own log, reporter and command line: gets what no filter kept back.
    int AddDisplay(Listener listener);
    void Remove(int id);

    void Write(MessageType type, const QString& text);
    void Display(const QString& text) { Write(MessageType::Display, text); }
    void Info(const QString& text) { Write(MessageType::Info, text); }
    void Warning(const QString& text) { Write(MessageType::Warning, text); }
    void Error(const QString& text) { Write(MessageType::Error, text); }

    /// The language that messages of this thread are said to come from.
    static Language CurrentLanguage();

    /// What a listener writes while it is called goes out too, up to this depth.
    static constexpr int MAXIMUM_NESTING = 32;

private:
    enum class Role { Listener, Filter, Display };

    struct Entry
    {
        int id = 0;
        Role role = Role::Listener;
        std::shared_ptr<Filter> call;
    };

    int Add(Role role, Filter call);
    bool IsPresent(int id) const;

    mutable QMutex m_mutex;
    QVector<Entry> m_entries;
    int m_lastId = 0;
};

/// Sets the language of this thread's messages while it lives.
class LanguageScope
{
public:
    explicit LanguageScope(Language language);
    ~LanguageScope();
    LanguageScope(const LanguageScope&) = delete;
    LanguageScope& operator=(const LanguageScope&) = delete;

private:
    Language m_previous;
};

/// "// Warning: text //\n" and the like: a message as the host's own windows show it.
QString FramedText(const Message& message);

} // namespace host
