#pragma once

#include <QString>
#include <QVector>

#include <functional>
#include <memory>

namespace host {

/// The beginning or end of a call that a MEL script makes.
struct CallNotice
{
    enum class Kind { Procedure, Command };

    QString name;
    unsigned int number = 0; ///< the same at the beginning and the end
    bool begins = true;
    Kind kind = Kind::Procedure;
};

/// Who wants to hear of every command and procedure that MEL calls. Main thread only. A listener
/// may remove itself and others; one removed meanwhile is not called.
class CallListeners
{
public:
    using CommandListener = std::function<void(const QString& text)>;
    using CallListener = std::function<void(const CallNotice&)>;

    /// The id is never 0. The text is the command as a script would write it.
    int AddForCommands(CommandListener listener);
    /// For procedures and commands, at both ends of each call.
    int AddForCalls(CallListener listener);
    bool Remove(int id);

    /// False saves the caller the making of a text.
    bool HearsCommands() const { return m_commandListeners > 0; }
    bool HearsCalls() const { return m_entries.size() > m_commandListeners; }
    void TellCommand(const QString& text);
    void TellCall(const CallNotice& notice);

private:
    friend class CallScope;

    struct Entry
    {
        int id = 0;
        CommandListener command;
        CallListener call;
    };
    using EntryPointer = std::shared_ptr<const Entry>;

    int Add(Entry entry);

    QVector<EntryPointer> m_entries;
    int m_commandListeners = 0;
    int m_lastId = 0;
    unsigned int m_lastCall = 0;
};

/// Tells the beginning of a call and, when it is destroyed, its end.
class CallScope
{
public:
    CallScope(CallListeners& listeners, const QString& name, CallNotice::Kind kind);
    ~CallScope();
    CallScope(const CallScope&) = delete;
    CallScope& operator=(const CallScope&) = delete;

private:
    CallListeners& m_listeners;
    CallNotice m_notice;
};

} // namespace host
