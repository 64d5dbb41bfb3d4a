// Feeds kept inputs to a target, without a fuzzer: fuzz_replay <target> <file or folder> ...

#include "fuzz/Fuzz.h"
#include "fuzz/FuzzHost.h"

#include <QApplication>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <cstdio>

namespace {

QStringList FilesOf(const QString& path)
{
    const QDir folder(path);
    if (!folder.exists())
        return QFile::exists(path) ? QStringList{path} : QStringList();
    QStringList files;
    for (const QString& name : folder.entryList(QDir::Files, QDir::Name))
        files += folder.filePath(name);
    return files;
}

bool Replay(const fuzz::Target& target, const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "Cannot read %s\n", qPrintable(path));
        return false;
    }
    // Written before it runs, so that the last line names the one that ended the process.
    std::printf("%s\n", qPrintable(path));
    std::fflush(stdout);
    fuzz::RunTarget(target, file.readAll());
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const fuzz::Target* const target = fuzz::FindTarget(arguments.value(1).toLocal8Bit());
    if (!target) {
        std::fprintf(stderr, "No target named \"%s\"\n", qPrintable(arguments.value(1)));
        return 2;
    }
    QStringList files;
    for (const QString& path : arguments.mid(2))
        files += FilesOf(path);
    if (files.isEmpty()) {
        std::fprintf(stderr, "Nothing to replay for %s\n", target->name);
        return 1;
    }
    const bool complete = std::all_of(files.cbegin(), files.cend(),
        [target](const QString& path) { return Replay(*target, path); });
    fuzz::FuzzHost::Close();
    return complete ? 0 : 1;
}
