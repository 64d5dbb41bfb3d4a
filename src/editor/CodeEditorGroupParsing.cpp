// Checking the current editor of a code editor group.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "editor/PylintMessages.h"
#include "language/MelParser.h"
#include "language/PylintWorker.h"
#include "language/PythonParser.h"
#include "plugin/Logger.h"
#include "settings/Settings.h"

#include <QThread>

namespace {

constexpr int SHUTDOWN_MILLISECONDS = 1000;

} // namespace

void CodeEditorGroup::OnTextChanged(const QString& path, const QString& text)
{
    CodeEditor* const current = GetCurrent();
    if (current && IsFindReplaceVisible() && HasSearchText())
        UpdateSearchResults(current);
    UpdateParser(current);
    if (Settings::sideBarVisible && Settings::searchViewActive
        && !Settings::globalSearchRegEx.pattern().isEmpty())
        Q_EMIT TextChanged(path, text);
}

void CodeEditorGroup::UpdateParser()
{
    UpdateParser(GetCurrent());
}

BaseParser* CodeEditorGroup::GetParser() const
{
    const CodeEditor* const editor = GetCurrent();
    return editor ? GetParser(editor->GetLanguage()) : nullptr;
}

BaseParser* CodeEditorGroup::GetParser(CodeEditorLanguage language) const
{
    switch (language) {
    case CodeEditorLanguage::Mel: return m_melParser.get();
    case CodeEditorLanguage::Python: return m_pythonParser.get();
    case CodeEditorLanguage::Text: break;
    }
    return nullptr;
}

void CodeEditorGroup::UpdateParser(CodeEditor* editor)
{
    if (!editor || !editor->isVisible() || !m_parsingEnabled) {
        Q_EMIT ParserUpdated(nullptr);
        return;
    }
    BaseParser* const parser = GetParser(editor->GetLanguage());
    if (!parser) {
        editor->UpdateErrorsAndWarnings({}, {}, {});
        Q_EMIT ParserUpdated(nullptr);
        return;
    }
    const QString text = editor->GetText();
    parser->Parse(text, editor->GetFilePath());
    m_parsedEditor = editor;
    m_parsedRevision = editor->document()->revision();
    // The marks come from pylint alone while it is there to give them.
    if (parser->IsPython() && Settings::pylintEnabled)
        RequestPylint(text, editor->GetFilePath());
    else
        ShowMessages(*editor, *parser);
    Q_EMIT ParserUpdated(parser);
}

void CodeEditorGroup::ShowMessages(CodeEditor& editor, const BaseParser& parser)
{
    editor.UpdateErrorsAndWarnings(parser.GetErrors(), parser.GetWarnings(), parser.GetInfos());
}

void CodeEditorGroup::RequestPylint(const QString& text, const QString& path)
{
    // Nobody waits for threads that most people never use.
    if (!m_workerThread->isRunning())
        m_workerThread->start(QThread::InheritPriority);
    Q_EMIT PylintSourceCode(text, path, Settings::pylintPythonPath);
}

void CodeEditorGroup::OnPylintOutput(const QString& path, const QStringList& lines, int fieldCount)
{
    CodeEditor* const editor = GetCurrent();
    if (!editor || editor->GetFilePath() != path)
        return;
    const PylintMessages messages = ReadPylintMessages(lines, fieldCount);
    editor->UpdateErrorsAndWarnings(messages.errors, messages.warnings, messages.infos);
}

void CodeEditorGroup::OnPylintFailed(const QString& path)
{
    CodeEditor* const editor = GetCurrent();
    // What the parser found elsewhere, or in another text, would be marked in the wrong places;
    // after the change of the text it is parsed again anyway.
    const bool parsed = editor && editor == m_parsedEditor && editor->GetFilePath() == path
        && editor->document()->revision() == m_parsedRevision
        && editor->GetLanguage() == CodeEditorLanguage::Python;
    if (parsed)
        ShowMessages(*editor, *m_pythonParser);
}

void CodeEditorGroup::CreateWorkerThread()
{
    m_workerThread = new QThread(this);
    m_workerThread->setObjectName(QStringLiteral("pylintThread%1").arg(m_id));
    m_pylintWorker = new PylintWorker;
    connect(this, &CodeEditorGroup::ShutdownWorkers, m_pylintWorker, &PylintWorker::Shutdown);
    connect(this, &CodeEditorGroup::PylintSourceCode, m_pylintWorker, &PylintWorker::Pylint);
    connect(m_pylintWorker, &PylintWorker::PylintOutput, this, &CodeEditorGroup::OnPylintOutput);
    connect(m_pylintWorker, &PylintWorker::PylintFailed, this, &CodeEditorGroup::OnPylintFailed);
    connect(m_workerThread, &QThread::finished, m_pylintWorker, &QObject::deleteLater);
    m_pylintWorker->moveToThread(m_workerThread);
}

void CodeEditorGroup::DestroyWorkerThread()
{
    if (!m_workerThread->isRunning()) {
        delete m_pylintWorker; // never started, or gone with the thread
        return;
    }
    Q_EMIT ShutdownWorkers();
    if (m_workerThread->wait(SHUTDOWN_MILLISECONDS))
        return;
    // Deleted while it runs, the thread would take the whole process with it.
    Logger::Error("The pylint thread did not end in time.");
    m_workerThread->setParent(nullptr);
    connect(m_workerThread, &QThread::finished, m_workerThread, &QObject::deleteLater);
}
