#include "commands/OpenFiles.h"

#include <QFile>
#include <QTextCodec>

namespace host::commands {

namespace {

/// Bytes; a device without line ends must not take all memory.
constexpr int MAXIMUM_LINE = 1 << 24;

} // namespace

OpenFiles::~OpenFiles()
{
    // A pipe's command may run on: waiting for it here could take for ever.
    for (const File& file : qAsConst(m_files))
        std::fclose(file.file);
}

int OpenFiles::Add(std::FILE* file, bool isPipe)
{
    if (!file)
        return 0;
    m_files.insert(++m_lastId, {file, isPipe, Last::None});
    return m_lastId;
}

int OpenFiles::Open(const QString& path, const QString& mode)
{
    const QByteArray closeOnExec = mode.toLatin1() + 'e';
    return Add(std::fopen(QFile::encodeName(path).constData(), closeOnExec.constData()), false);
}

int OpenFiles::OpenPipe(const QString& command, const QString& mode)
{
    return Add(::popen(QFile::encodeName(command).constData(), mode.toLatin1().constData()), true);
}

void OpenFiles::Close(int id)
{
    const File file = m_files.take(id);
    if (!file.file)
        return;
    if (file.isPipe)
        ::pclose(file.file);
    else
        std::fclose(file.file);
}

std::FILE* OpenFiles::Prepare(int id, Last access)
{
    const auto found = m_files.find(id);
    if (found == m_files.end())
        return nullptr;
    // The C library wants a seek between reading and writing.
    if (!found->isPipe && found->last != Last::None && found->last != access)
        std::fseek(found->file, 0, SEEK_CUR);
    found->last = access;
    return found->file;
}

bool OpenFiles::AtEnd(int id) const
{
    const File file = m_files.value(id);
    return !file.file || std::feof(file.file) != 0;
}

QByteArray OpenFiles::ReadLine(int id)
{
    std::FILE* file = Prepare(id, Last::Read);
    QByteArray line;
    while (file && !line.endsWith('\n') && line.size() < MAXIMUM_LINE) {
        const int byte = getc_unlocked(file);
        if (byte == EOF)
            break;
        line += static_cast<char>(byte);
    }
    return line;
}

QByteArray OpenFiles::ReadWord(int id, const QByteArray& separators)
{
    std::FILE* file = Prepare(id, Last::Read);
    QByteArray word;
    while (file && word.size() < MAXIMUM_LINE) {
        const int byte = getc_unlocked(file);
        if (byte == EOF)
            break;
        if (!separators.contains(static_cast<char>(byte)))
            word += static_cast<char>(byte);
        else if (!word.isEmpty())
            break;
    }
    return word;
}

QByteArray OpenFiles::ReadText(int id, int limit)
{
    std::FILE* file = Prepare(id, Last::Read);
    QByteArray text;
    while (file && text.size() < limit) {
        const int byte = getc_unlocked(file);
        if (byte == EOF || byte == 0)
            break;
        text += static_cast<char>(byte);
    }
    return text;
}

QByteArray OpenFiles::ReadBytes(int id, int size)
{
    std::FILE* file = Prepare(id, Last::Read);
    if (!file)
        return {};
    QByteArray bytes(size, '\0');
    bytes.truncate(static_cast<int>(std::fread(bytes.data(), 1, static_cast<size_t>(size), file)));
    return bytes;
}

bool OpenFiles::Write(int id, const QByteArray& bytes)
{
    std::FILE* file = Prepare(id, Last::Write);
    const auto size = static_cast<size_t>(bytes.size());
    return file && std::fwrite(bytes.constData(), 1, size, file) == size;
}

void OpenFiles::Flush(int id)
{
    if (std::FILE* file = Prepare(id, Last::Write))
        std::fflush(file);
}

void OpenFiles::Rewind(int id)
{
    if (std::FILE* file = m_files.value(id).file) {
        std::rewind(file);
        m_files[id].last = Last::None;
    }
}

QString DecodedText(const QByteArray& bytes)
{
    QTextCodec::ConverterState state;
    const QString text
        = QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0 ? text : QString::fromLatin1(bytes);
}

} // namespace host::commands
