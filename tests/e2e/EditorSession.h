#pragma once

#include "app/Host.h"

#include <QPlainTextEdit>
#include <QTemporaryDir>

#include <memory>

/// The built plug-in inside the assembled host, with a preferences folder of its own. Knows the
/// plug-in's widgets by their names only, as the module's classes are not linked here.
class EditorSession
{
public:
    EditorSession();
    /// In the folder of another session, which has ended.
    explicit EditorSession(const QString& preferencesFolder);

    bool LoadPlugin();
    /// Runs the editor's command and waits until the window stands.
    bool OpenEditor();

    host::Host& GetHost() { return m_host; }
    QString PreferencesFolder() const { return m_folder ? m_folder->path() : QString(); }

    QList<QPlainTextEdit*> Editors() const;
    /// Null while the editor's window does not exist.
    QPlainTextEdit* Console() const;
    QString ConsoleText() const;
    /// The editor whose tab is labelled so becomes current and takes the keyboard.
    QPlainTextEdit* Focus(const QString& label);
    /// As typing does: the editor is modified afterwards.
    static void Replace(QPlainTextEdit* editor, const QString& text);
    /// Replaces the focused editor's text and presses the execute key.
    void Execute(QPlainTextEdit* editor, const QString& script);

    /// False when the text raised an error.
    bool Mel(const QString& text);
    bool Python(const QString& text);

private:
    std::unique_ptr<QTemporaryDir> m_folder; ///< null when it is not ours
    host::Host m_host;
};
