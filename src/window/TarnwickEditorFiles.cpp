// Files and buffers of the editor window: opening, saving, renaming, reverting.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "files/FileText.h"
#include "plugin/Logger.h"
#include "settings/Settings.h"
#include "views/SideBar.h"
#include "views/outline/OutlineView.h"
#include "window/FormatQuestion.h"
#include "window/Question.h"
#include "window/TarnwickEditor.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTemporaryFile>

namespace {

const QString SCRIPT_FILTER = QStringLiteral("Script Files(*.mel *.py *.pyw *.pyi)");
const QString MEL_FILTER = QStringLiteral("MEL (*.mel)");
const QString PYTHON_FILTER = QStringLiteral("Python (*.py *.pyw *.pyi)");
const QString ALL_FILTER = QStringLiteral("All Files(*.*)");
const QString FILTER_SEPARATOR = QStringLiteral(";;");

struct BufferRow
{
    const char* fileTemplate; ///< in the internal buffer folder
    QString* label;
};

/// By language.
const BufferRow BUFFERS[] = {
    {"textBuffer_XXXXXX.txt", &Settings::defaultTextBufferLabel},
    {"melBuffer_XXXXXX.mel", &Settings::defaultMelBufferLabel},
    {"pythonBuffer_XXXXXX.py", &Settings::defaultPythonBufferLabel},
};

const BufferRow& RowOf(CodeEditorLanguage language)
{
    return BUFFERS[static_cast<int>(language)];
}

/// A new, empty backing file; empty when none could be made.
QString MakeBufferFile(CodeEditorLanguage language)
{
    QTemporaryFile file(QStringLiteral("%1/%2").arg(
        Settings::GetInternalBufferDirectoryPath(), QLatin1String(RowOf(language).fileTemplate)));
    file.setAutoRemove(false);
    if (file.open())
        return QFileInfo(file).absoluteFilePath();
    Logger::Error(QStringLiteral("Failed to open file for save: %1").arg(file.fileTemplate()));
    return QString();
}

QString AbsolutePath(const QString& path)
{
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

/// The name with the filter's first extension, unless it has one of the filter's.
QString WithExtension(const QString& path, const QString& filter)
{
    struct ExtensionRow
    {
        QString filterStart;
        QStringList extensions;
    };
    static const ExtensionRow ROWS[] = {
        {QStringLiteral("MEL"), {QStringLiteral(".mel")}},
        {QStringLiteral("Python"),
            {QStringLiteral(".py"), QStringLiteral(".pyw"), QStringLiteral(".pyi")}},
    };
    for (const ExtensionRow& row : ROWS) {
        if (!filter.startsWith(row.filterStart))
            continue;
        const bool hasOne = std::any_of(row.extensions.begin(), row.extensions.end(),
            [&path](const QString& end) { return path.endsWith(end, Qt::CaseInsensitive); });
        return hasOne ? path : path + row.extensions.first();
    }
    return path;
}

} // namespace

QString TarnwickEditor::DefaultBufferLabel(CodeEditorLanguage language)
{
    return *RowOf(language).label;
}

void TarnwickEditor::NewBuffer()
{
    QMessageBox box(QMessageBox::Question, tr("Source Type"),
        tr("Specify executor source language."), QMessageBox::NoButton, this);
    QPushButton* const mel = box.addButton(tr("MEL"), QMessageBox::AcceptRole);
    const QAbstractButton* const python = box.addButton(tr("Python"), QMessageBox::AcceptRole);
    const QAbstractButton* const none = box.addButton(tr("None"), QMessageBox::ActionRole);
    box.addButton(tr("Cancel"), QMessageBox::RejectRole);
    box.setDefaultButton(mel);
    box.exec();
    if (box.clickedButton() == mel)
        NewBuffer(CodeEditorLanguage::Mel);
    else if (box.clickedButton() == python)
        NewBuffer(CodeEditorLanguage::Python);
    else if (box.clickedButton() == none)
        NewBuffer(CodeEditorLanguage::Text);
}

void TarnwickEditor::NewBuffer(CodeEditorLanguage language)
{
    CodeEditorGroup* const group = GetActiveCodeEditorGroup();
    const QString path = MakeBufferFile(language);
    if (path.isEmpty())
        return;
    const int index = CreateCodeEditor(
        CodeEditorType::Buffer, language, path, QString(), QStringLiteral(""), group, -1);
    if (index < 0)
        return;
    SetActiveCodeEditor(GetActiveCodeEditorGroupIndex(), index, true);
    SaveState();
}

void TarnwickEditor::NewMelBuffer()
{
    NewBuffer(CodeEditorLanguage::Mel);
}

void TarnwickEditor::NewPythonBuffer()
{
    NewBuffer(CodeEditorLanguage::Python);
}

void TarnwickEditor::OpenFile()
{
    // For as long as the program runs the dialog comes back as it was left.
    static QString filter = SCRIPT_FILTER;
    static QString directory;
    const QString filters
        = QStringList{SCRIPT_FILTER, MEL_FILTER, PYTHON_FILTER, ALL_FILTER}.join(FILTER_SEPARATOR);
    const QString path
        = QFileDialog::getOpenFileName(this, tr("Open File"), directory, filters, &filter);
    if (path.isEmpty())
        return;
    directory = QFileInfo(path).absolutePath();
    OpenFile(path, false);
}

void TarnwickEditor::OpenFile(const QString& path, bool /*restoring*/)
{
    CodeEditorGroup* const group = GetActiveCodeEditorGroup();
    if (path.isEmpty() || !group)
        return;
    const int index = CreateCodeEditor(CodeEditorType::File, path, QString(), group, -1);
    if (index < 0)
        return;
    SetActiveCodeEditor(GetActiveCodeEditorGroupIndex(), index, true);
    SaveState();
}

int TarnwickEditor::CreateCodeEditor(CodeEditorType type, const QString& path, const QString& label,
    CodeEditorGroup* group, int index)
{
    const QFileInfo info(AbsolutePath(path));
    const bool isOpen = CodeEditorExists(info.filePath());
    if (!isOpen && type == CodeEditorType::File && !MayOpen(info.filePath()))
        return -1;
    const QString text = isOpen ? QStringLiteral("") : ReadText(info.filePath(), type);
    if (text.isNull())
        return -1;
    return CreateCodeEditor(type, GetLanguageFromFilename(info), info.filePath(),
        type == CodeEditorType::Buffer ? label : info.fileName(), text, group, index);
}

QString TarnwickEditor::GetFileText(const QString& path)
{
    return ReadText(AbsolutePath(path), CodeEditorType::File);
}

void TarnwickEditor::PreSave(CodeEditor* editor)
{
    const bool isMel = editor->GetLanguage() == CodeEditorLanguage::Mel;
    if (!isMel && editor->GetLanguage() != CodeEditorLanguage::Python)
        return;
    const bool trim = isMel ? Settings::melTrimTrailingWhiteSpacesOnSave
                            : Settings::pythonTrimTrailingWhiteSpacesOnSave;
    const bool newLine
        = isMel ? Settings::melEnsureNewLineAtEofOnSave : Settings::pythonEnsureNewLineAtEofOnSave;
    if (trim)
        editor->TrimTrailingWhiteSpaces(newLine);
    else if (newLine)
        editor->EnsureNewLineAtEof();
}

/// To the editor's own path: of a buffer that of its backing file.
bool TarnwickEditor::WriteCodeEditor(CodeEditor* editor)
{
    PreSave(editor);
    CodeEditorProperties properties;
    editor->GetProperties(properties);
    const bool isBuffer = properties.type == CodeEditorType::Buffer;
    const QString text = editor->GetStoredText();
    if (isBuffer)
        NoteSaving(properties.filePath, FileText::FingerprintOf(text.toUtf8()));
    if (isBuffer ? !FileText::Write(properties.filePath, text, FileText::Encoding::Utf8)
                 : !SaveCodeEditor(properties.filePath, text))
        return false;
    editor->SetModified(false);
    // A file that had been deleted is there again to be watched.
    editor->SetProperties(properties, false);
    if (!isBuffer)
        DropOddCharacters(properties.filePath, text);
    return true;
}

bool TarnwickEditor::SaveCodeEditor(int groupIndex, int tabIndex)
{
    const CodeEditorGroup* const group = GetCodeEditorGroupByIndex(groupIndex);
    CodeEditor* const editor = group ? group->GetCodeEditor(tabIndex) : nullptr;
    return editor && WriteCodeEditor(editor);
}

void TarnwickEditor::SaveAll(bool saveBuffers, bool saveFiles)
{
    QStringList paths;
    for (const CodeEditorGroup* group : qAsConst(m_groups)) {
        for (int tab = 0; tab < group->GetCount(); ++tab) {
            const bool isBuffer = group->GetType(tab) == CodeEditorType::Buffer;
            if (group->IsModified(tab) && (isBuffer ? saveBuffers : saveFiles))
                paths.append(group->GetFilePath(tab));
        }
    }
    SaveBatch batch;
    batch.files = paths.size();
    const QScopedValueRollback<SaveBatch*> rollback(m_saveBatch, &batch);
    // A question lets the event loop run: tabs may move or go meanwhile.
    for (const QString& path : qAsConst(paths)) {
        CodeEditor* const editor = GetCodeEditor(path);
        if (editor && !batch.isCancelled)
            WriteCodeEditor(editor);
    }
}

void TarnwickEditor::Save()
{
    CodeEditor* const editor = GetActiveCodeEditor();
    if (!editor)
        return;
    if (editor->GetType() == CodeEditorType::Buffer)
        SaveAs();
    else
        WriteCodeEditor(editor);
}

QString TarnwickEditor::ShowSaveFileNameDialog(const CodeEditorProperties& properties)
{
    static QString directory;
    const bool isFile
        = properties.type == CodeEditorType::File && QFileInfo(properties.filePath).isFile();
    QString filter = properties.language == CodeEditorLanguage::Mel ? MEL_FILTER
        : properties.language == CodeEditorLanguage::Python         ? PYTHON_FILTER
                                                                    : ALL_FILTER;
    const QString filters
        = QStringList{MEL_FILTER, PYTHON_FILTER, ALL_FILTER}.join(FILTER_SEPARATOR);
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Save File"), isFile ? properties.filePath : directory, filters, &filter);
    if (path.isEmpty())
        return path;
    directory = QFileInfo(path).absolutePath();
    const QString completed = WithExtension(path, filter);
    // The dialog has asked about the name that was typed.
    return completed == path || !QFileInfo::exists(completed) || ConfirmReplacing(completed)
        ? completed
        : QString();
}

bool TarnwickEditor::ConfirmReplacing(const QString& path)
{
    return AskQuestion(this, tr("Save File"),
               tr("%1 already exists.\nDo you want to replace it?").arg(path),
               QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
        == QMessageBox::Yes;
}

void TarnwickEditor::SaveAs()
{
    const CodeEditorGroup* const group = GetActiveCodeEditorGroup();
    if (!GetActiveCodeEditor())
        return;
    const CodeEditorProperties properties = group->GetProperties(group->GetCurrentIndex());
    const QString chosen = ShowSaveFileNameDialog(properties);
    const QString path = chosen.isEmpty() ? chosen : AbsolutePath(chosen);
    // The dialog let the event loop run: the editor may be gone.
    CodeEditor* const editor = GetCodeEditor(properties.filePath);
    if (path.isEmpty() || !editor)
        return;
    if (path != properties.filePath && CodeEditorExists(path)) {
        Logger::Error(QStringLiteral("An open editor already exists with that path: %1").arg(path));
        return;
    }
    PreSave(editor);
    const QString text = editor->GetStoredText();
    if (!WriteFile(path, text, m_fileFormats.value(properties.filePath)))
        return;
    BecomeFile(properties, path);
    DropOddCharacters(path, text);
}

/// After the editor's text has been written to `path`.
void TarnwickEditor::BecomeFile(const CodeEditorProperties& old, const QString& path)
{
    CodeEditorGroup* const group = GetCodeEditorGroupByPath(old.filePath);
    const int index = group->GetCodeEditorIndex(old.filePath);
    const QFileInfo info(path);
    group->SetModified(index, false);
    group->SetProperties(
        index, {CodeEditorType::File, GetLanguageFromFilename(info), path, info.fileName()});
    if (old.type == CodeEditorType::Buffer)
        DeleteFileByPath(old.filePath);
    if (old.filePath != path) {
        m_diskContents.Remove(old.filePath);
        m_fileFormats.remove(old.filePath);
    }
    OnPathChanged(old.filePath, path);
}

bool TarnwickEditor::ModifiedFilesExist() const
{
    for (const CodeEditorGroup* group : m_groups) {
        for (int tab = 0; tab < group->GetCount(); ++tab) {
            if (group->GetType(tab) == CodeEditorType::File && group->IsModified(tab))
                return true;
        }
    }
    return false;
}

void TarnwickEditor::Rename()
{
    if (CodeEditorGroup* group = GetActiveCodeEditorGroup())
        Rename(group, group->GetCurrentIndex());
}

void TarnwickEditor::Rename(CodeEditorGroup* group, int index)
{
    if (!group || !group->GetCodeEditor(index))
        return;
    const CodeEditorProperties properties = group->GetProperties(index);
    bool accepted = false;
    const QString name = QInputDialog::getText(
        this, tr("Rename"), tr("New Name:"), QLineEdit::Normal, properties.label, &accepted);
    // The dialog let the event loop run: the editor may be gone.
    if (!accepted || name.isEmpty() || name == properties.label
        || !CodeEditorExists(properties.filePath))
        return;
    if (properties.type == CodeEditorType::File)
        RenameFile(properties.filePath, name);
    else
        RenameBuffer(properties, name);
}

void TarnwickEditor::RenameBuffer(CodeEditorProperties properties, const QString& name)
{
    properties.label = name;
    // It parts the fields that the label is stored in.
    if (name.contains(QLatin1Char(';'))) {
        properties.label.remove(QLatin1Char(';'));
        Logger::Warning(QStringLiteral("Rename: ';' is an invalid character."));
    }
    if (properties.label.isEmpty())
        return;
    CodeEditorGroup* const group = GetCodeEditorGroupByPath(properties.filePath);
    group->SetProperties(group->GetCodeEditorIndex(properties.filePath), properties);
    OnPathChanged(properties.filePath, properties.filePath);
}

void TarnwickEditor::RenameFile(const QString& oldPath, const QString& name)
{
    const QString newPath = QStringLiteral("%1/%2").arg(QFileInfo(oldPath).absolutePath(), name);
    if (QFileInfo::exists(newPath) || CodeEditorExists(newPath))
        Logger::Error(QStringLiteral("Raname failed. File already exists: %1").arg(newPath));
    else if (QFile::rename(oldPath, newPath))
        OnFilePathChanged(oldPath, newPath);
    else
        Logger::Error(
            QStringLiteral("Rename file failed. Please verify file path and permissions: %1 -> %2")
                .arg(oldPath, newPath));
}

void TarnwickEditor::OnFilePathChanged(const QString& oldPath, const QString& newPath)
{
    const QString path = AbsolutePath(newPath);
    const CodeEditorLanguage language = GetLanguageFromFilename(QFileInfo(path));
    for (CodeEditorGroup* group : qAsConst(m_groups))
        group->UpdateFilePath(oldPath, path, language);
    m_diskContents.Move(oldPath, path);
    if (m_fileFormats.contains(oldPath))
        m_fileFormats.insert(path, m_fileFormats.take(oldPath));
    OnPathChanged(oldPath, path);
}

/// After a tab got another path or label.
void TarnwickEditor::OnPathChanged(const QString& oldPath, const QString& newPath)
{
    if (oldPath != newPath)
        m_sideBar->GetOutline()->MoveStoredDetails(oldPath, newPath);
    const int lastUse = m_lastUsedPaths.indexOf(oldPath);
    if (lastUse >= 0)
        m_lastUsedPaths[lastUse] = newPath;
    m_goTo->RefreshFiles();
    UpdateOpenEditors();
    OnActiveCodeEditorChanged();
    SaveState();
}

void TarnwickEditor::DeleteFileByPath(const QString& path)
{
    if (path.isEmpty() || !QFileInfo::exists(path))
        return;
    if (!QFile::remove(path))
        Logger::Error(QStringLiteral("Failed to delete file: %1").arg(path));
}

void TarnwickEditor::RevertFile()
{
    const CodeEditor* const editor = GetActiveCodeEditor();
    if (!editor || editor->GetType() != CodeEditorType::File || !editor->IsModified())
        return;
    const QString path = editor->GetFilePath();
    const auto answer = AskQuestion(this, tr("Reload"),
        tr("Reloading this file will result in unsaved changes being lost.\n\nContinue?"),
        QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (answer == QMessageBox::Yes)
        ReloadFile(path);
}
