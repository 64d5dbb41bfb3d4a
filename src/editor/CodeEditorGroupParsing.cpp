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
    if (current && IsFindReplaceVisible() && IsSearching())
        UpdateSearchResults(current);
    // What changes in the background is parsed when it is shown.
    if (!current || current->GetFilePath() == path)
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
    Parse(*editor, *parser);
    // The marks come from pylint alone while it is there to give them.
    if (parser->IsPython() && Settings::pylintEnabled)
        RequestPylint(editor->GetText(), editor->GetFilePath());
    else
        ShowMessages(*editor, *parser);
    Q_EMIT ParserUpdated(parser);
}

/// Going back and forth between groups or tabs of two languages parses nothing twice.
void CodeEditorGroup::Parse(CodeEditor& editor, BaseParser& parser)
{
    if (IsParsed(editor, parser))
        return;
    parser.Parse(editor.GetText(), editor.GetFilePath());
    ParsedText& parsed = parser.IsPython() ? m_parsedPython : m_parsedMel;
    parsed.editor = &editor;
    parsed.revision = editor.document()->revision();
}

bool CodeEditorGroup::IsParsed(const CodeEditor& editor, const BaseParser& parser) const
{
    const ParsedText& parsed = parser.IsPython() ? m_parsedPython : m_parsedMel;
    return parsed.editor == &editor && parsed.revision == editor.document()->revision()
        && parser.GetFilePath() == editor.GetFilePath();
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
    Q_EMIT PylintOptionsTaken(PylintOptions::FromSettings());
    Q_EMIT PylintSourceCode(text, path, Settings::pylintPythonPath);
}

void CodeEditorGroup::OnPylintOutput(const QString& path, const QStringList& lines, int fieldCount)
{
    CodeEditor* const editor = GetCurrent();
    // It may have been switched off while it ran.
    if (!Settings::pylintEnabled || !editor || editor->GetFilePath() != path)
        return;
    const PylintMessages messages = ReadPylintMessages(lines, fieldCount);
    editor->UpdateErrorsAndWarnings(messages.errors, messages.warnings, messages.infos);
}

void CodeEditorGroup::OnPylintFailed(const QString& path)
{
    CodeEditor* const editor = GetCurrent();
    if (!editor || editor->GetFilePath() != path)
        return;
    // What the parser found elsewhere, or in another text, would be marked in the wrong places;
    // after the change of the text it is parsed again anyway.
    if (editor->GetLanguage() == CodeEditorLanguage::Python && IsParsed(*editor, *m_pythonParser))
        ShowMessages(*editor, *m_pythonParser);
}

void CodeEditorGroup::CreateWorkerThread()
{
    m_workerThread = new QThread(this);
    m_workerThread->setObjectName(QStringLiteral("pylintThread%1").arg(m_id));
    m_pylintWorker = new PylintWorker;
    connect(this, &CodeEditorGroup::ShutdownWorkers, m_pylintWorker, &PylintWorker::Shutdown);
    qRegisterMetaType<PylintOptions>("PylintOptions");
    connect(this, &CodeEditorGroup::PylintOptionsTaken, m_pylintWorker, &PylintWorker::SetOptions);
    connect(this, &CodeEditorGroup::PylintSourceCode, m_pylintWorker, &PylintWorker::Pylint);
    connect(m_pylintWorker, &PylintWorker::PylintOutput, this, &CodeEditorGroup::OnPylintOutput);
    connect(m_pylintWorker, &PylintWorker::PylintFailed, this, &CodeEditorGroup::OnPylintFailed);
    connect(m_workerThread, &QThread::finished, m_pylintWorker, &QObject::deleteLater);
    m_pylintWorker->moveToThread(m_workerThread);
}

void CodeEditorGroup::DestroyWorkerThread()
{
    Q_EMIT ShutdownWorkers();
    // A thread that is just ending no longer counts as running, but still has the worker.
    if (m_workerThread->wait(SHUTDOWN_MILLISECONDS)) {
        delete m_pylintWorker; // never started, or gone with the thread
        return;
    }
    // Deleted while it runs, the thread would take the whole process with it.
    Logger::Error("The pylint thread did not end in time.");
    m_workerThread->setParent(nullptr);
    connect(m_workerThread, &QThread::finished, m_workerThread, &QObject::deleteLater);
}
