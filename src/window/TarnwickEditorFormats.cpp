// How files stand on the disk, and the questions before something of that would be lost.

#include "editor/CodeEditor.h"
#include "files/FileText.h"
#include "files/TextBytes.h"
#include "files/TextFormat.h"
#include "plugin/Logger.h"
#include "settings/ExtraSettings.h"
#include "window/FormatQuestion.h"
#include "window/Question.h"
#include "window/TarnwickEditor.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QTextCodec>

namespace {

constexpr qint64 LARGE_FILE = 64 * 1024 * 1024; // bytes
/// What is no text says so early.
constexpr qint64 LOOKED_AT = 1024 * 1024; // bytes

const QTextCodec& Utf8()
{
    return *QTextCodec::codecForName("UTF-8");
}

/// That of the user's choice, unless it has no place for the text.
const QTextCodec& PlainCodec(const QString& text)
{
    const QTextCodec& chosen = FileText::ChosenCodec();
    return TextBytes::CanHold(text, chosen) ? chosen : Utf8();
}

QString Describe(const TextFormat& format)
{
    QStringList parts{format.DescribeEncoding(FileText::ChosenCodec()), format.DescribeLineEnds()};
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

TextFormat ConvertedFormat(const QTextCodec& codec, const TextFormat& old)
{
    TextFormat format;
    format.declared = old.declared;
    if (codec.name() != FileText::ChosenCodec().name()) {
        format.codec = codec.name();
        format.isKept = true;
    }
    return format;
}

FormatQuestion QuestionAbout(
    const QString& path, const TextFormat& format, const QTextCodec& target, bool canKeep)
{
    FormatQuestion question;
    question.name = QFileInfo(path).fileName();
    question.canKeep = canKeep;
    question.found
        = canKeep ? Describe(format) : CodecLabel(format.GetCodec(FileText::ChosenCodec()));
    question.target = CodecLabel(target);
    if (format.hasOddBytes)
        question.warning
            += TarnwickEditor::tr("\n\nWritten as %1, invalid bytes become unknown characters.");
    if (!format.declared.isEmpty() && format.declared == format.codec)
        question.warning += TarnwickEditor::tr("\n\nWritten as %1, its coding line is wrong.");
    question.warning.replace(QLatin1String("%1"), question.target);
    return question;
}

} // namespace

QString TarnwickEditor::ReadText(const QString& path, CodeEditorType type)
{
    if (type == CodeEditorType::Buffer)
        return FileText::Read(path, FileText::Encoding::Utf8);
    QByteArray bytes;
    if (!FileText::ReadBytes(path, bytes))
        return QString();
    FormattedText file = ReadFormatted(bytes, FileText::ChosenCodec());
    file.format.isKept = m_fileFormats.value(path).isKept;
    m_fileFormats.insert(path, file.format);
    m_diskContents.Set(path, FileText::FingerprintOf(bytes));
    UpdateTextFormat();
    return file.text;
}

bool TarnwickEditor::SaveCodeEditor(const QString& path, const QString& text)
{
    return WriteFile(path, text, m_fileFormats.value(path));
}

/// As the file stood that the text was read from, or as the user wants it.
bool TarnwickEditor::WriteFile(const QString& path, const QString& text, const TextFormat& found)
{
    TextFormat format = FollowText(found, text, FileText::ChosenCodec());
    QByteArray bytes;
    if (path.isEmpty() || !ChooseBytes(path, text, format, bytes))
        return false;
    const QByteArray fingerprint = FileText::FingerprintOf(bytes);
    NoteSaving(path, fingerprint);
    if (!FileText::WriteBytes(path, bytes))
        return false;
    m_fileFormats.insert(path, format);
    m_diskContents.Set(path, fingerprint);
    UpdateTextFormat();
    return true;
}

/// False when the user wants it left alone.
bool TarnwickEditor::ChooseBytes(
    const QString& path, const QString& text, TextFormat& format, QByteArray& bytes)
{
    const QTextCodec& chosen = FileText::ChosenCodec();
    const bool canKeep = TextBytes::CanHold(text, format.GetCodec(chosen));
    const QByteArray plain = FormatPlainly(text, PlainCodec(text));
    bytes = canKeep && !format.IsOrdinary() ? FormatText(text, format, chosen) : plain;
    // Nobody minds what comes out the same.
    if (canKeep && bytes == plain)
        return true;
    switch (AskAboutFormat(QuestionAbout(path, format, PlainCodec(text), canKeep), format)) {
    case FormatAnswer::Keep: format.isKept = true; return true;
    case FormatAnswer::Convert:
        bytes = plain;
        format = ConvertedFormat(PlainCodec(text), format);
        return true;
    case FormatAnswer::Cancel: break;
    }
    return false;
}

FormatAnswer TarnwickEditor::AskAboutFormat(const FormatQuestion& asked, const TextFormat& format)
{
    const bool mayKeep = format.isKept || ExtraSettings::keepEncodingAndLineEnds;
    if (asked.canKeep && (mayKeep || m_isShuttingDown))
        return FormatAnswer::Keep;
    // Rather another encoding than lost characters.
    if (m_isShuttingDown)
        return FormatAnswer::Convert;
    SaveBatch single;
    SaveBatch& batch = m_saveBatch ? *m_saveBatch : single;
    if (batch.answer && (asked.canKeep || *batch.answer != FormatAnswer::Keep))
        return *batch.answer;
    FormatQuestion question = asked;
    if (batch.files > 1)
        question.checkBox = tr("Do the same for all files");
    else if (asked.canKeep)
        question.checkBox = tr("Always keep encoding and line ends, without asking");
    bool checked = false;
    const FormatAnswer answer = ::AskAboutFormat(this, question, checked);
    batch.isCancelled = answer == FormatAnswer::Cancel;
    if (checked && batch.files > 1)
        batch.answer = answer;
    else if (checked && answer == FormatAnswer::Keep) {
        ExtraSettings::keepEncodingAndLineEnds = true;
        ExtraSettings::WriteUserConfig();
    }
    return answer;
}

/// The editor shows what became of the bytes that were no characters.
void TarnwickEditor::DropOddCharacters(const QString& path, const QString& saved)
{
    if (!m_fileFormats.value(path).hasOddBytes && TextBytes::HasOddCharacters(saved))
        ReloadFile(path);
}

/// Asks about what is hardly meant to be edited. When the last session comes back nobody is asked:
/// such a file stays closed and stands first among the recent ones.
bool TarnwickEditor::MayOpen(const QString& path)
{
    QFile file(path);
    const bool isLarge = file.size() > LARGE_FILE;
    const bool isBinary = QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly)
        && LooksBinary(file.read(LOOKED_AT));
    if (!isLarge && !isBinary)
        return true;
    const QString size = QLocale().formattedDataSize(file.size());
    if (!m_isComplete) {
        Logger::Warning(
            tr("Not opened again, but kept with the recent files: %1 (%2)").arg(path, size));
        AddRecentFile(path);
        return false;
    }
    const QString text = isBinary
        ? tr("'%1' (%2) does not look like a text.\n\nOpen it all the same?")
        : tr("'%1' has %2. It may take long to open, and to work with.\n\nOpen it all the same?");
    return AskQuestion(this, tr("Open File"), text.arg(QFileInfo(path).fileName(), size),
               QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
        == QMessageBox::Yes;
}
