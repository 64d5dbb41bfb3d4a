// Files on disk: opening and saving them.

#include "editor/CodeEditorGroup.h"
#include "plugin/Logger.h"
#include "settings/Settings.h"
#include "window/TarnwickEditor.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

namespace {

/// Shows the wait cursor while it lives.
class WaitCursor
{
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

void SetCodec(QTextStream& stream)
{
    // Otherwise the locale's, as the stream has it.
    if (Settings::utf8FileEncodingForReadWrite)
        stream.setCodec("UTF-8");
}

} // namespace

void TarnwickEditor::OpenFile(const QString& path, bool /*restoring*/)
{
    CodeEditorGroup* const group = GetActiveCodeEditorGroup();
    if (path.isEmpty() || !group)
        return;
    const QFileInfo info(path);
    const QString text = GetFileText(info.absoluteFilePath());
    if (text.isNull())
        return;
    const int index = CreateCodeEditor(CodeEditorType::File, GetLanguageFromFilename(info),
        info.absoluteFilePath(), info.fileName(), text, group, -1);
    if (index < 0)
        return;
    group->SetCurrentIndex(index);
    SaveState();
}

QString TarnwickEditor::GetFileText(const QString& path) const
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        Logger::Error(QStringLiteral("Failed to open file: %1").arg(path));
        return QString();
    }
    const WaitCursor cursor;
    QTextStream stream(&file);
    SetCodec(stream);
    const QString text = stream.readAll();
    // Null says that reading failed.
    return text.isNull() ? QStringLiteral("") : text;
}

bool TarnwickEditor::SaveCodeEditor(const QString& path, const QString& text)
{
    if (path.isEmpty())
        return false;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text | QIODevice::Truncate)) {
        Logger::Error(QStringLiteral("Failed to open file for save: %1").arg(path));
        return false;
    }
    const WaitCursor cursor;
    QTextStream stream(&file);
    SetCodec(stream);
    stream << text;
    stream.flush();
    return stream.status() == QTextStream::Ok && file.flush();
}
