// What the editor window has the host do, and the host's output on its way to the console.

#include "editor/CodeEditor.h"
#include "plugin/Logger.h"
#include "plugin/MayaUtil.h"
#include "settings/Settings.h"
#include "window/PanelGroup.h"
#include "window/PythonName.h"
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
    Settings::pythonRevertModuleStateOnExecute = m_actions.revertModuleStateOnExecute->isChecked();
}

void TarnwickEditor::OnTogglePythonRevertModuleStateOnExecuteRequested()
{
    m_actions.revertModuleStateOnExecute->toggle();
    UpdatePythonRevertModuleStateOnExecute();
}

/// As a script of its own, so that the console shows what was called and what came of it.
void TarnwickEditor::CallPythonOnSelection(const QString& function)
{
    const CodeEditor* const editor = GetActiveCodeEditor();
    if (!editor)
        return;
    QString name = editor->GetSelectedTextForExecute().trimmed();
    if (name.isEmpty()) {
        name = PythonName::NameAt(
            editor->GetCurrentLineText(), editor->textCursor().positionInBlock());
    }
    if (!PythonName::IsName(name)) {
        Logger::Warning(QStringLiteral("%1( ) needs a Python name, such as os.path, that is "
                                       "selected or at the cursor.")
                            .arg(function));
        return;
    }
    KeepUnsavedText();
    MayaUtil::ExecutePythonScript(QStringLiteral("%1(%2)").arg(function, name));
}

void TarnwickEditor::PythonDirSelection()
{
    CallPythonOnSelection(QStringLiteral("dir"));
}

void TarnwickEditor::PythonHelpSelection()
{
    CallPythonOnSelection(QStringLiteral("help"));
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
    if (action == m_actions.echoAll)
        m_outputPanel->SetEchoAllCommandsEnabled(true);
    else if (action == m_actions.normal)
        m_outputPanel->SetNormalVerbosity();
    else if (action == m_actions.minimal)
        m_outputPanel->SetMinimalVerbosity();
}

void TarnwickEditor::OnShowOutputVerbosityMenu()
{
    QAction* const actions[] = {m_actions.echoAll, m_actions.normal, m_actions.minimal};
    for (int i = 0; i < 3; ++i)
        actions[i]->setChecked(i == m_outputPanel->GetVerbosityIndex());
}

void TarnwickEditor::OnEchoAllCommandsChanged()
{
    m_actions.echoAllCommands->setChecked(MayaUtil::EchoAllCommandsEnabled());
}

void TarnwickEditor::ToggleEchoAllCommands()
{
    m_outputPanel->SetEchoAllCommandsEnabled(m_actions.echoAllCommands->isChecked());
}

void TarnwickEditor::ToggleLineNumbersInErrors()
{
    MayaUtil::SetLineNumbersInErrorsEnabled(m_actions.lineNumbersInErrors->isChecked());
}

void TarnwickEditor::ToggleShowStackTrace()
{
    MayaUtil::SetShowStackTraceEnabled(m_actions.showStackTrace->isChecked());
}

void TarnwickEditor::ToggleSuppressStackWindow()
{
    MayaUtil::SetSuppressStackWindowEnabled(m_actions.suppressStackWindow->isChecked());
}

void TarnwickEditor::ToggleWriteOutputToFile()
{
    m_outputPanel->ToggleWriteToFile();
    OnWriteToFileUpdated(m_outputPanel->IsWriteToFileActive());
}

void TarnwickEditor::OnWriteToFileUpdated(bool active)
{
    m_actions.writeOutputToFile->setChecked(active);
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

void TarnwickEditor::OpenCommandReference()
{
    if (CodeEditor* const editor = GetActiveCodeEditor())
        editor->CommandDocumentation();
}
