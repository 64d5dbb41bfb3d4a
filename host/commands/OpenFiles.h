#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <cstdio>

namespace host::commands {

/// The files and pipes that scripts opened, by number. What is still open when it goes is closed.
/// A number that is not open gives the empty answer; ask IsOpen first.
class OpenFiles
{
public:
    OpenFiles() = default;
    ~OpenFiles();
    OpenFiles(const OpenFiles&) = delete;
    OpenFiles& operator=(const OpenFiles&) = delete;

    /// The file's number, 0 on failure. `mode` is that of the C library.
    int Open(const QString& path, const QString& mode);
    /// The number of a pipe from ("r") or to ("w") a shell command, 0 on failure.
    int OpenPipe(const QString& command, const QString& mode);
    bool IsOpen(int id) const { return m_files.contains(id); }
    bool IsPipe(int id) const { return m_files.value(id).isPipe; }
    /// For a pipe this waits for the command's end.
    void Close(int id);

    /// True only after a read met the end.
    bool AtEnd(int id) const;
    /// Up to and with the line feed; empty at the end.
    QByteArray ReadLine(int id);
    /// The next run of bytes without any of the separators; empty at the end.
    QByteArray ReadWord(int id, const QByteArray& separators);
    /// Up to a zero byte (which is taken but not given back), the end, or `limit` bytes.
    QByteArray ReadText(int id, int limit);
    /// Exactly `size` bytes, or fewer at the end.
    QByteArray ReadBytes(int id, int size);
    /// False when not everything could be written.
    bool Write(int id, const QByteArray& bytes);
    void Flush(int id);
    void Rewind(int id);

private:
    enum class Last { None, Read, Write };

    struct File
    {
        std::FILE* file = nullptr;
        bool isPipe = false;
        Last last = Last::None;
    };

    int Add(std::FILE* file, bool isPipe);
    /// The file made ready for the kind of access; null when it is not open.
    std::FILE* Prepare(int id, Last access);

    QHash<int, File> m_files;
    int m_lastId = 0;
};

/// Bytes as text: UTF-8, or Latin-1 when they are not UTF-8.
QString DecodedText(const QByteArray& bytes);

} // namespace host::commands
