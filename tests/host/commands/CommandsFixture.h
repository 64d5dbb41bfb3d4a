#pragma once

#include "engine/Engine.h"
#include "mel/MelLanguage.h"

#include <QTemporaryDir>

/// A host in batch mode with MEL and the commands, in a preferences folder of its own. Keeps what
/// was written to the output, one entry per message.
class CommandsFixture
{
public:
    CommandsFixture();
    ~CommandsFixture();

    /// Runs a text. Its value as a result line shows it; of a failed text "error: " and why.
    QString Run(const QString& text);
    /// "print: a\n", "warning: text", "error: text", "info: text" in order; empties the list.
    QStringList TakeMessages();
    QString Path(const QString& name) const { return m_directory.filePath(name); }

    /// A new host on the same preferences, as after a restart.
    void Restart();
    host::Engine& GetEngine() { return *m_engine; }

private:
    void Start();
    void Stop();

    QTemporaryDir m_directory;
    std::unique_ptr<host::Engine> m_engine;
    std::unique_ptr<host::mel::MelLanguage> m_mel;
    QStringList m_messages;
};
