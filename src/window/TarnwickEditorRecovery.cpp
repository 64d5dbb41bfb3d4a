// Unsaved text that outlives a crash: what is kept while people work, and what is offered at the
// next start.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "files/FileText.h"
#include "files/RecoveryLeftovers.h"
#include "files/RecoveryStore.h"
#include "plugin/Logger.h"
#include "settings/Settings.h"
#include "window/RecoveryKeeper.h"
#include "window/RecoveryNotice.h"
#include "window/TarnwickEditor.h"

#include <QDir>
#include <QFileInfo>
#include <QTextCursor>
#include <QVBoxLayout>

namespace {

QString RecoveryFolder()
{
    const QString directory = Settings::GetUserConfigDirectory();
    return directory.isEmpty() ? QString()
                               : QStringLiteral("%1/%2").arg(directory, RecoveryStore::FOLDER_NAME);
}

/// A backing file that its session cannot have meant: of preferences that have been moved.
QString PathOf(const RecoverySnapshot& snapshot)
{
    const QFileInfo info(snapshot.properties.filePath);
    if (snapshot.properties.type == CodeEditorType::File || info.dir().exists())
        return info.filePath();
    return QStringLiteral("%1/%2").arg(Settings::GetInternalBufferDirectoryPath(), info.fileName());
}

bool HasChangedSince(const RecoverySnapshot& snapshot)
{
    const QFileInfo info(PathOf(snapshot));
    // Nobody but the editor itself writes a buffer's file.
    if (snapshot.properties.type == CodeEditorType::Buffer)
        return info.exists() && info.lastModified() > snapshot.time;
    return FileText::Fingerprint(info.filePath()) != snapshot.baseFingerprint;
}

QString LineOf(const RecoverySnapshot& snapshot)
{
    const QString path = PathOf(snapshot);
    const bool isFile = snapshot.properties.type == CodeEditorType::File;
    QString line = isFile ? path : snapshot.properties.label;
    // One line each, whatever the name holds.
    line.replace(QLatin1Char('\n'), QLatin1Char(' '));
    line = TarnwickEditor::tr("%1 (%2)").arg(
        line, snapshot.time.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")));
    if (isFile && !QFileInfo::exists(path))
        return TarnwickEditor::tr("%1: the file is gone").arg(line);
    return HasChangedSince(snapshot)
        ? TarnwickEditor::tr("%1: the file has been changed since").arg(line)
        : line;
}

/// One step to undo, so that what the editor held is not lost either.
void ReplaceText(CodeEditor* editor, const RecoverySnapshot& snapshot)
{
    QTextCursor cursor(editor->document());
    cursor.beginEditBlock();
    cursor.select(QTextCursor::Document);
    cursor.insertText(snapshot.text);
    cursor.endEditBlock();
    editor->SetModified(true);
    editor->SetCursorPosition(snapshot.cursorPosition, false, true);
}

} // namespace

/// When everything that was stored has been read.
void TarnwickEditor::StartRecovery()
{
    const QString folder = RecoveryFolder();
    if (folder.isEmpty())
        return;
    const auto describe = [this](const CodeEditor& editor) { return DescribeForRecovery(editor); };
    m_recovery = std::make_unique<RecoveryKeeper>(folder, describe, nullptr);
    connect(m_recovery.get(), &RecoveryKeeper::Failed, this, [](const QString& label) {
        Logger::Warning(QStringLiteral("Unsaved text could not be kept: %1").arg(label));
    });
    installEventFilter(m_recovery.get());
    for (CodeEditorGroup* group : qAsConst(m_groups))
        connect(group, &CodeEditorGroup::TabsChanged, this, &TarnwickEditor::WatchForRecovery);
    WatchForRecovery();
    OfferRecovery(folder);
}

void TarnwickEditor::WatchForRecovery()
{
    for (const CodeEditorGroup* group : qAsConst(m_groups)) {
        for (int tab = 0; m_recovery && tab < group->GetCount(); ++tab)
            m_recovery->Watch(group->GetCodeEditor(tab));
    }
}

RecoverySnapshot TarnwickEditor::DescribeForRecovery(const CodeEditor& editor) const
{
    RecoverySnapshot snapshot;
    editor.GetProperties(snapshot.properties);
    const QString path = editor.GetFilePath();
    snapshot.group = GetCodeEditorGroupIndex(GetCodeEditorGroupByPath(path));
    snapshot.cursorPosition = editor.GetCursorPosition();
    snapshot.baseFingerprint = m_diskContents.GetFingerprint(path);
    return snapshot;
}

/// What runs may take the host down with it, though not the machine: nobody waits for the disk.
void TarnwickEditor::KeepUnsavedText()
{
    if (m_recovery && !m_recovery->Flush(RecoveryFile::Wait::No))
        Logger::Warning(QStringLiteral("Unsaved text could not be kept."));
}

void TarnwickEditor::NoteSaving(const QString& path, const QByteArray& fingerprint)
{
    if (m_recovery)
        m_recovery->NoteSaving(GetCodeEditor(path), fingerprint);
}

void TarnwickEditor::OfferRecovery(const QString& folder)
{
    m_leftovers = std::make_unique<RecoveryLeftovers>();
    m_leftovers->Claim(folder);
    QStringList lines;
    for (int i = static_cast<int>(m_leftovers->GetAll().size()) - 1; i >= 0; --i) {
        const RecoverySnapshot& snapshot = m_leftovers->GetAll()[i].snapshot;
        const CodeEditor* const editor = GetCodeEditor(PathOf(snapshot));
        // The backing file may be another session's.
        if (IsGuest() && !editor && snapshot.properties.type == CodeEditorType::Buffer)
            m_leftovers->Leave(i);
        // Saved just before the end.
        else if (editor && !editor->IsModified() && editor->GetStoredText() == snapshot.text)
            m_leftovers->Remove(i);
        else
            lines.prepend(LineOf(snapshot));
    }
    if (lines.isEmpty()) {
        m_leftovers.reset();
        return;
    }
    m_recoveryNotice = new RecoveryNotice(lines, this);
    static_cast<QVBoxLayout*>(layout())->insertWidget(0, m_recoveryNotice);
    // Once the panes have got their sizes back: the editors alone make room for it then.
    m_recoveryNotice->hide();
    QMetaObject::invokeMethod(m_recoveryNotice, &QWidget::show, Qt::QueuedConnection);
    using N = RecoveryNotice;
    connect(m_recoveryNotice, &N::RestoreRequested, this, &TarnwickEditor::RestoreUnsavedText);
    connect(m_recoveryNotice, &N::DropRequested, this, [this] { CloseRecoveryOffer(true); });
    connect(m_recoveryNotice, &N::LaterRequested, this, [this] { CloseRecoveryOffer(false); });
}

/// The oldest first: of several texts of one editor the newest is shown and the others can be had
/// by undoing.
void TarnwickEditor::RestoreUnsavedText()
{
    for (const RecoveryLeftovers::Leftover& leftover : m_leftovers->GetAll())
        RestoreSnapshot(leftover.snapshot);
    // Only when it is safe in this session's own snapshots may the old ones go.
    CloseRecoveryOffer(m_recovery->Flush(RecoveryFile::Wait::ForDisk));
    SaveState();
}

void TarnwickEditor::RestoreSnapshot(const RecoverySnapshot& snapshot)
{
    const CodeEditorProperties& properties = snapshot.properties;
    const QString path = PathOf(snapshot);
    CodeEditorGroup* const stored = GetCodeEditorGroupByIndex(snapshot.group);
    CodeEditorGroup* const group = stored ? stored : GetActiveCodeEditorGroup();
    if (!CodeEditorExists(path) && QFileInfo::exists(path))
        CreateCodeEditor(properties.type, path, properties.label, group, -1);
    if (!CodeEditorExists(path))
        CreateCodeEditor(properties.type, properties.language, path, properties.label,
            QStringLiteral(""), group, -1);
    if (CodeEditor* const editor = GetCodeEditor(path))
        ReplaceText(editor, snapshot);
}

void TarnwickEditor::CloseRecoveryOffer(bool drop)
{
    if (drop)
        m_leftovers->RemoveAll();
    m_leftovers.reset();
    // It may be what calls.
    m_recoveryNotice->hide();
    m_recoveryNotice->deleteLater();
    m_recoveryNotice = nullptr;
    FocusActiveCodeEditor();
}

void TarnwickEditor::EndRecovery()
{
    if (m_recovery)
        m_recovery->Close();
    m_recovery.reset();
    m_leftovers.reset();
}
