#pragma once

#include "window/DialogAnswers.h"
#include "window/TarnwickEditor.h"
#include "window/WindowFixture.h"

#include <QMainWindow>
#include <QPointer>

class CodeEditor;
class CodeEditorGroup;

/// A window of its own for each test, a folder for the files, and somebody who answers questions.
class FilesFixture
{
protected:
    FilesFixture();
    ~FilesFixture();

    /// A window without any tab.
    void Start();
    /// False when an answer was left over.
    bool Finish();
    /// With what the settings hold.
    void CreateWindow();
    void DeleteWindow() { m_frame.reset(); }

    QString Path(const QString& name) const { return m_folder->filePath(name); }
    QString MakeFile(const QString& name, const QByteArray& text = "text\n") const;
    QByteArray Content(const QString& path) const;
    CodeEditor* OpenFile(const QString& name, const QByteArray& text = "text\n");
    CodeEditor* NewBuffer(const QString& text);
    CodeEditorGroup* Group() const { return m_window->GetActiveCodeEditorGroup(); }
    /// Of the tabs of the active group.
    QStringList Labels() const;
    QStringList BackingFiles() const;
    /// What the window has logged since the last call.
    QStringList TakeLog(host::MessageType type);
    QStringList TakeErrors() { return TakeLog(host::MessageType::Error); }

    std::unique_ptr<WindowFixture> m_host;
    std::unique_ptr<QMainWindow> m_frame;
    QPointer<TarnwickEditor> m_window;
    std::unique_ptr<QTemporaryDir> m_folder;
    DialogAnswers m_dialogs;
};
