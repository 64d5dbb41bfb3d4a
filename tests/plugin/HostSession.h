#pragma once

#include "app/Host.h"

#include <QStringList>
#include <QTemporaryDir>
#include <QVector>

#include <memory>

/// A whole host with fresh preferences that remembers what it prints. One per process.
class HostSession
{
public:
    explicit HostSession(host::RunState state = host::RunState::Interactive);

    host::Engine& GetEngine() { return m_host->GetEngine(); }
    /// Ends the host; nothing else may be called then.
    void Close() { m_host.reset(); }

    /// Loads the built module.
    bool LoadPlugin();
    QString PreferencesFolder() const { return m_directory.path() + "/2024/prefs"; }

    /// Runs a text; false when it raised an error.
    bool Mel(const QString& text);
    bool Python(const QString& text);
    /// What the text shows as its result.
    QString MelResult(const QString& text);

    /// The texts of one type printed since the last call of Forget.
    QStringList Messages(host::MessageType type) const;
    QStringList Errors() const { return Messages(host::MessageType::Error); }
    /// Everything that scripts printed.
    QString Printed() const { return Messages(host::MessageType::Display).join(QString()); }
    void Forget() { m_messages.clear(); }
    /// Lets the host do what waits in its idle queue.
    void RunIdle();

private:
    QTemporaryDir m_directory;
    std::unique_ptr<host::Host> m_host;
    QVector<host::Message> m_messages;
};
