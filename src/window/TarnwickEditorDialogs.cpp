// Commands of the editor window that ask for something first, or tell it.

#include "editor/CodeEditor.h"
#include "files/SafeFile.h"
#include "plugin/Logger.h"
#include "plugin/MayaUtil.h"
#include "settings/Settings.h"
#include "window/TarnwickEditor.h"

#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPointer>

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
