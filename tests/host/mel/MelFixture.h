#pragma once

#include "engine/Engine.h"
#include "mel/MelLanguage.h"

#include <QTemporaryDir>

/// An engine with the MEL interpreter and nothing else, and what it printed. One per test function.
class MelFixture
{
public:
    MelFixture();

    host::ScriptResult Run(const QString& text);
    /// The messages of a type, oldest first.
    QStringList Texts(host::MessageType type) const;
    /// What `print` wrote, in one piece.
    QString Printed() const;
    /// Every message as "type: text", line ends shown as "\n".
    QStringList Log() const;
    void Forget() { m_messages.clear(); }

    /// Writes a file into the user's script folder; its path.
    QString WriteScript(const QString& name, const QByteArray& contents);

private:
    QTemporaryDir m_directory;
    QVector<host::Message> m_messages;

public:
    host::Engine engine;
    host::mel::MelLanguage mel;
};
