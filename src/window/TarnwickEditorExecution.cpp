// What the editor window has the host do, and the host's output on its way to the console.

#include "editor/CodeEditor.h"
#include "plugin/Logger.h"
#include "plugin/MayaUtil.h"
#include "settings/Settings.h"
#include "window/PanelGroup.h"
#include "window/TarnwickEditor.h"

#include <QAction>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>

void TarnwickEditor::Execute(int kind)
{
    // Never the active editor in its stead: what runs is what the user is looking at.
    const CodeEditor* editor = GetCodeEditorWithFocus();
    if (!editor)
        return;
    if (Settings::pythonRevertModuleStateOnExecute)
        MayaUtil::PythonRevertModuleState();
    const QString text = ExecuteText(*editor, kind);
    if (text.isEmpty())
        return;
    // Saving may ask, and the editor be gone afterwards.
    const CodeEditorLanguage language = editor->GetLanguage();
    if (Settings::saveAllOnExecute)
        SaveAll(true, true);
    KeepUnsavedText();
    switch (language) {
    case CodeEditorLanguage::Mel: MayaUtil::ExecuteMelScript(text); break;
    case CodeEditorLanguage::Python: MayaUtil::ExecutePythonScript(text); break;
    case CodeEditorLanguage::Text: break;
    }
}

QString TarnwickEditor::ExecuteText(const CodeEditor& editor, int kind) const
{
    if (kind == ExecuteCurrentLine)
        return editor.GetCurrentLineForExecute();
    const QString selected
        = kind == ExecuteSelection ? editor.GetSelectedTextForExecute() : QString();
    return selected.isEmpty() ? editor.GetText() : selected;
}

void TarnwickEditor::SourceScript()
{
    const QString mel = tr("MEL (*.mel)");
    const QString filters = QStringLiteral("%1;;%2").arg(mel, tr("All Files(*.*)"));
    QString filter = mel;
    const QString path
        = QFileDialog::getOpenFileName(this, tr("Source Script"), QString(), filters, &filter);
    if (path.isEmpty())
        return;
    KeepUnsavedText();
    MayaUtil::SourceScript(path);
}

void TarnwickEditor::SaveScriptToShelf()
{
    const CodeEditor* editor = GetActiveCodeEditor();
    const QString text = editor ? ExecuteText(*editor, ExecuteSelection) : QString();
    if (text.isEmpty())
        return;
    // The dialog lets the event loop run: the editor may be gone afterwards.
    const bool isMel = editor->GetLanguage() == CodeEditorLanguage::Mel;
    bool accepted = false;
    const QString label = QInputDialog::getText(this, tr("New Shelf Item"),
        tr("Enter name of new shelf item:"), QLineEdit::Normal, QString(), &accepted);
    if (!accepted || label.isEmpty())
        return;
    KeepUnsavedText();
    MayaUtil::SaveScriptToShelf(label, text, isMel);
}

void TarnwickEditor::PythonUpdateModuleState()
{
    if (Settings::pythonConfirmOverwriteModuleState) {
        // A set of Yes alone with No as its default, as it has always been: the toolkit shows both
        // then, and closing the box leaves the state alone.
        const auto answer = QMessageBox::question(this, tr("Python Module State"),
            tr("Overwrite existing Python module state?"), QMessageBox::Yes, QMessageBox::No);
        if (answer != QMessageBox::Yes)
            return;
    }
    MayaUtil::PythonUpdateModuleState();
    Logger::Info(QStringLiteral("Python module state updated."));
}

void TarnwickEditor::PythonRevertModuleState()
{
    MayaUtil::PythonRevertModuleState();
    Logger::Info(QStringLiteral("Python module state reverted."));
}

void TarnwickEditor::UpdatePythonRevertModuleStateOnExecute()
{
    Settings::pythonRevertModuleStateOnExecute = m_revertModuleStateOnExecuteAction->isChecked();
}

void TarnwickEditor::OnTogglePythonRevertModuleStateOnExecuteRequested()
{
    m_revertModuleStateOnExecuteAction->toggle();
    UpdatePythonRevertModuleStateOnExecute();
}

void TarnwickEditor::PrintPythonPath()
{
    MayaUtil::PrintPythonPath();
}

void TarnwickEditor::PrintPythonEnviron()
{
    MayaUtil::PrintPythonEnviron();
}

void TarnwickEditor::PrintMayaEnvVarPaths()
{
    if (const auto* action = qobject_cast<QAction*>(sender()))
        MayaUtil::PrintMayaEnvVarPaths(action->text());
}

void TarnwickEditor::AppendToOutputThreadSafe(const QString& text)
{
    Q_EMIT AppendToOutputRequested(text);
}

void TarnwickEditor::AppendToOutput(const QString& text)
{
    m_outputPanel->OutputAppendText(text);
}

void TarnwickEditor::ClearHistory()
{
    m_outputPanel->OutputClearAll();
}

void TarnwickEditor::UpdateOutputVerbosity()
{
    const QObject* action = sender();
    if (action == m_echoAllAction)
        m_outputPanel->SetEchoAllCommandsEnabled(true);
    else if (action == m_normalAction)
        m_outputPanel->SetNormalVerbosity();
    else if (action == m_minimalAction)
        m_outputPanel->SetMinimalVerbosity();
}

void TarnwickEditor::OnShowOutputVerbosityMenu()
{
    QAction* const actions[] = {m_echoAllAction, m_normalAction, m_minimalAction};
    for (int i = 0; i < 3; ++i)
        actions[i]->setChecked(i == m_outputPanel->GetVerbosityIndex());
}

void TarnwickEditor::OnEchoAllCommandsChanged()
{
    m_echoAllCommandsAction->setChecked(MayaUtil::EchoAllCommandsEnabled());
}

void TarnwickEditor::ToggleEchoAllCommands()
{
    m_outputPanel->SetEchoAllCommandsEnabled(m_echoAllCommandsAction->isChecked());
}

void TarnwickEditor::ToggleLineNumbersInErrors()
{
    MayaUtil::SetLineNumbersInErrorsEnabled(m_lineNumbersInErrorsAction->isChecked());
}

void TarnwickEditor::ToggleShowStackTrace()
{
    MayaUtil::SetShowStackTraceEnabled(m_showStackTraceAction->isChecked());
}

void TarnwickEditor::ToggleSuppressStackWindow()
{
    MayaUtil::SetSuppressStackWindowEnabled(m_suppressStackWindowAction->isChecked());
}

void TarnwickEditor::ToggleWriteOutputToFile()
{
    m_outputPanel->ToggleWriteToFile();
    OnWriteToFileUpdated(m_outputPanel->IsWriteToFileActive());
}

void TarnwickEditor::OnWriteToFileUpdated(bool active)
{
    m_writeOutputToFileAction->setChecked(active);
}

void TarnwickEditor::UpdateOverrideScriptEditorButton()
{
    if (Settings::overrideScriptEditorButton)
        MayaUtil::OverrideScriptEditorButton();
    else
        MayaUtil::RestoreScriptEditorButton();
}

void TarnwickEditor::MelCommandReference()
{
    MayaUtil::ShowHelp(QStringLiteral("DocsMelCommands"));
}

void TarnwickEditor::PythonCommandReference()
{
    MayaUtil::ShowHelp(QStringLiteral("DocsPythonCommands"));
}

void TarnwickEditor::NodeAndAttributeReference()
{
    MayaUtil::ShowHelp(QStringLiteral("DocsNodes"));
}
