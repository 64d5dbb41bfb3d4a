// Commands of the editor window that ask for something first, or tell it.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "files/SafeFile.h"
#include "language/BaseParser.h"
#include "plugin/Logger.h"
#include "plugin/MayaUtil.h"
#include "settings/Settings.h"
#include "window/TarnwickEditor.h"

#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPointer>

namespace {

/// As buffers are told apart by their names and files by their paths.
QString EntryOf(const CodeEditorProperties& properties)
{
    return properties.type == CodeEditorType::File ? properties.filePath : properties.label;
}

/// The place of the entry that was chosen; -1 when nothing was.
int ChooseEntry(QWidget* parent, const QString& title, const QString& label,
    const QStringList& entries, int current)
{
    QInputDialog dialog(parent);
    dialog.setOption(QInputDialog::UseListViewForComboBoxItems);
    dialog.setWindowTitle(title);
    dialog.setLabelText(label);
    dialog.setComboBoxItems(entries);
    dialog.setTextValue(entries.value(current));
    return dialog.exec() == QDialog::Accepted ? entries.indexOf(dialog.textValue()) : -1;
}

} // namespace

void TarnwickEditor::GoToFile()
{
    QStringList paths;
    QStringList entries;
    for (const CodeEditorGroup* const group : qAsConst(m_groups)) {
        for (int tab = 0; tab < group->GetCount(); ++tab) {
            const CodeEditorProperties properties = group->GetProperties(tab);
            paths += properties.filePath;
            entries += EntryOf(properties);
        }
    }
    for (const QString& path : qAsConst(Settings::recentFiles)) {
        if (paths.contains(path))
            continue;
        paths += path;
        entries += path;
    }
    const CodeEditor* const active = GetActiveCodeEditor();
    const int current = active ? paths.indexOf(active->GetFilePath()) : 0;
    const int chosen = ChooseEntry(this, tr("Go to File"), tr("File:"), entries, current);
    if (chosen < 0)
        return;
    if (!CodeEditorExists(paths[chosen]))
        OpenFile(paths[chosen], false);
    SetActiveCodeEditor(paths[chosen]);
}

void TarnwickEditor::GoToSymbolInFile()
{
    const QPointer<CodeEditor> editor = GetActiveCodeEditor();
    if (!editor)
        return;
    UpdateParser();
    const BaseParser* const parser = GetActiveCodeEditorGroup()->GetParser();
    const QVector<ParserItem> items = parser ? parser->GetItems() : QVector<ParserItem>();
    if (items.isEmpty()) {
        QMessageBox::information(this, tr("Go to Symbol in File"), tr("No symbols"));
        return;
    }
    QStringList entries;
    int current = 0;
    for (int i = 0; i < items.size(); ++i) {
        const int line = editor->document()->findBlock(items[i].position).blockNumber() + 1;
        entries += tr("%1 (line %2)").arg(items[i].name).arg(line);
        if (items[i].position <= editor->GetCursorPosition())
            current = i;
    }
    const int chosen
        = ChooseEntry(this, tr("Go to Symbol in File"), tr("Symbol:"), entries, current);
    if (chosen < 0 || !editor)
        return;
    editor->SetCursorPosition(items[chosen].position, false, true);
    editor->setFocus(Qt::OtherFocusReason);
}

void TarnwickEditor::GoToLine()
{
    const QPointer<CodeEditor> editor = GetActiveCodeEditor();
    if (!editor)
        return;
    const int count = editor->GetLineCount();
    bool accepted = false;
    const int line = QInputDialog::getInt(this, tr("Go to Line"), tr("Line 1 to %1:").arg(count),
        editor->GetCurrentLine(), 1, count, 1, &accepted);
    if (!accepted || !editor)
        return;
    editor->SetCurrentLine(line);
    editor->setFocus(Qt::OtherFocusReason);
}

void TarnwickEditor::ShowInsertPathDialog()
{
    static QString directory;
    const QPointer<CodeEditor> editor = GetActiveCodeEditor();
    if (!editor)
        return;
    const bool isFile = editor->GetType() == CodeEditorType::File;
    const QDir folder = QFileInfo(editor->GetFilePath()).absoluteDir();
    if (directory.isEmpty() && isFile)
        directory = folder.path();
    const QString path = QFileDialog::getOpenFileName(this, tr("Insert Path"), directory);
    if (path.isEmpty() || !editor)
        return;
    directory = QFileInfo(path).absolutePath();
    const bool isRelative = isFile && !Settings::insertPathAbsolute;
    editor->ClearSelectionAndInsertText(isRelative ? folder.relativeFilePath(path) : path);
    editor->setFocus(Qt::OtherFocusReason);
}

void TarnwickEditor::OpenPylintrc()
{
    QString path = Settings::pylintConfigPath;
    if (path.isEmpty() || !QFileInfo(path).isFile())
        path = ShowNewPylintrcDialog();
    if (path.isEmpty())
        return;
    OpenFile(path, false);
    SetActiveCodeEditor(path);
}

/// Makes a configuration where the user wants it, or takes the one that is there; its path, empty
/// when there is none.
QString TarnwickEditor::ShowNewPylintrcDialog()
{
    const QString missing = Settings::pylintConfigPath;
    const QString start = missing.isEmpty()
        ? QDir(Settings::GetUserConfigDirectory()).filePath(QStringLiteral("pylintrc"))
        : missing;
    const QString path = QFileDialog::getSaveFileName(this, tr("Create pylintrc"), start,
        tr("All Files(*.*)"), nullptr, QFileDialog::DontConfirmOverwrite);
    if (path.isEmpty())
        return path;
    QString reason;
    if (!QFileInfo::exists(path) && !SafeFile::Write(path, "[MAIN]\n", reason)) {
        Logger::Error(QStringLiteral("Failed to write to file: %1 (%2)").arg(path, reason));
        return QString();
    }
    Settings::pylintConfigPath = path;
    WriteUserConfigs();
    return path;
}

void TarnwickEditor::ShowAboutDialog()
{
    const auto orUnknown
        = [](const QString& text) { return text.isEmpty() ? tr("unknown") : text; };
    const QString title = Settings::APPLICATION_TITLE;
    QMessageBox box(QMessageBox::NoIcon, tr("About %1").arg(title),
        QStringLiteral("%1 %2").arg(title, Settings::VERSION_STRING), QMessageBox::Close, this);
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    box.setInformativeText(
        tr("Host: %1\nPython: %2\nQt: %3\nConfiguration: %4")
            .arg(orUnknown(MayaUtil::GetMayaVersionString()),
                orUnknown(MayaUtil::GetPythonVersion()), orUnknown(MayaUtil::GetQtVersion()),
                orUnknown(Settings::GetUserConfigDirectory())));
    box.exec();
}
