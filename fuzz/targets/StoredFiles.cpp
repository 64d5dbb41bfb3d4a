// Files of the editor's own that people, crashes and other versions may have changed.

#include "files/InterruptedSave.h"
#include "files/RecoveryFile.h"
#include "fuzz/Fuzz.h"
#include "views/explorer/WorkspaceFile.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using fuzz::Expect;

namespace {

QString Folder()
{
    static const QTemporaryDir folder;
    return folder.path();
}

QString Write(const QString& name, const QByteArray& bytes)
{
    const QString path = Folder() + QLatin1Char('/') + name;
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    Expect(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(),
        QStringLiteral("a file can be written"));
    return path;
}

QByteArray Read(const QString& path)
{
    QFile file(path);
    Expect(file.open(QIODevice::ReadOnly), QStringLiteral("a file is there: %1").arg(path));
    return file.readAll();
}

QByteArray Checksum(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
}

void ReadWorkspace(const QByteArray& bytes)
{
    const QString path = Write(QStringLiteral("a.te2-workspace"), bytes);
    WorkspaceFile read;
    if (read.Read(path) != WorkspaceFile::Result::Ok)
        return;
    for (const QString& folder : read.GetFolders())
        Expect(QDir::isAbsolutePath(folder), QStringLiteral("a folder's path: %1").arg(folder));
    Expect(read.Write(path), QStringLiteral("it is written"));
    WorkspaceFile again;
    Expect(again.Read(path) == WorkspaceFile::Result::Ok && again.GetFolders() == read.GetFolders(),
        QStringLiteral("folders are read as they were written: %1 | %2")
            .arg(read.GetFolders().join(QLatin1Char(':')),
                again.GetFolders().join(QLatin1Char(':'))));
}

void ReadSnapshot(const QByteArray& bytes)
{
    const auto read = RecoveryFile::Decode(bytes);
    if (!read)
        return;
    Expect(!read->properties.filePath.isEmpty(), QStringLiteral("a snapshot belongs to a file"));
    const QByteArray written = RecoveryFile::Encode(*read);
    const auto again = RecoveryFile::Decode(written);
    Expect(again && again->text == read->text
            && again->properties.filePath == read->properties.filePath
            && RecoveryFile::Encode(*again) == written,
        QStringLiteral("a snapshot is read as it was written"));
}

/// A header and a text in a frame that fits them.
QByteArray Framed(const QByteArray& header, const QByteArray& text)
{
    return QByteArrayLiteral("TarnwickEditor2-recovery 1 ") + QByteArray::number(header.size())
        + ' ' + QByteArray::number(text.size()) + ' ' + Checksum(header + text).toHex() + '\n'
        + header + text;
}

/// A file that holds anything is finished when it is torn, and else stays as it is.
void FinishSave(fuzz::Input& input)
{
    const QByteArray before = input.Bytes();
    const QByteArray after = input.Bytes();
    const QByteArray content = input.Rest();
    const QString target = Write(QStringLiteral("target"), content);
    QByteArray body;
    QDataStream stream(&body, QIODevice::WriteOnly);
    stream << QFile::encodeName(target) << before << after;
    const QByteArray format = QByteArrayLiteral("TarnwickEditor2-save 1");
    const QString save = Write(QStringLiteral("saves/a.save"), format + Checksum(body) + body);
    InterruptedSave::SetFolder(QFileInfo(save).path());
    const QStringList mended = InterruptedSave::FinishAll();
    Expect(!QFile::exists(save), QStringLiteral("what was kept is gone"));
    Expect(Read(target) == (mended.isEmpty() ? content : after),
        QStringLiteral("the file is what it was, or finished"));
    Expect(mended.isEmpty() || (content != before && content != after),
        QStringLiteral("only a torn file is finished"));
}

/// What is no save of ours goes, whatever it says.
void FinishBroken(const QByteArray& bytes)
{
    const QString save = Write(
        QStringLiteral("saves/b.save"), QByteArrayLiteral("TarnwickEditor2-save 1") + bytes);
    InterruptedSave::SetFolder(QFileInfo(save).path());
    Expect(InterruptedSave::FinishAll().isEmpty(), QStringLiteral("nothing is finished"));
}

} // namespace

TE2_FUZZ_TARGET(StoredFiles)
{
    switch (input.Number(5)) {
    case 0: ReadWorkspace(input.Rest()); break;
    case 1: ReadSnapshot(input.Rest()); break;
    case 2: {
        const QByteArray header = input.Bytes();
        ReadSnapshot(Framed(header, input.Rest()));
        break;
    }
    case 3: FinishSave(input); break;
    default: FinishBroken(input.Rest());
    }
}
