#pragma once

#include "engine/Engine.h"
#include "mel/MelLanguage.h"
#include "python/PythonLanguage.h"

#include <QMutex>
#include <QTemporaryDir>

/// An engine with its two languages, and everything that it prints.
class PythonFixture
{
public:
    explicit PythonFixture(host::RunState state = host::RunState::Interactive);

    /// Runs the text as the console does and gives what was shown, see Transcript.
    QStringList Run(const QString& text);
    host::ScriptResult Execute(const QString& text)
    {
        return engine.Execute(host::Language::Python, text, false);
    }
    /// One "Kind: text" per message since the last call, pieces of printed text joined.
    QStringList TakeTranscript();
    QVector<host::Message> TakeMessages();

private:
    // Before Python, whose end is written down too.
    QMutex m_mutex;
    QVector<host::Message> m_messages;

public:
    QTemporaryDir directory;
    host::Engine engine;
    host::mel::MelLanguage mel;
    host::python::PythonLanguage python;
};
