// Module files and Maya.env: what they say is done or complained of, and the environment comes
// back.

#include "engine/Modules.h"
#include "engine/StartEnvironment.h"
#include "fuzz/Fuzz.h"

#include <QDir>
#include <QFile>
#include <QProcessEnvironment>
#include <QTemporaryDir>

using namespace host;
using fuzz::Expect;

namespace {

constexpr int LONGEST_VALUE = 128 * 1024;

/// In it are a module's folders, and below it alone may an input look for others.
class Folder
{
public:
    Folder()
    {
        for (const char* name : {"tool/plug-ins", "tool/scripts/rig", "tool/icons", "presets"})
            QDir(m_directory.path()).mkpath(QLatin1String(name));
    }

    QString Path() const { return m_directory.path(); }

    QString Write(const char* name, QByteArray bytes) const
    {
        bytes.replace("..", ".");
        for (int i = bytes.indexOf('/'); i >= 0; i = bytes.indexOf('/', i + 1)) {
            if (i == 0 || QByteArray(" \t\n:=").contains(bytes.at(i - 1)))
                bytes[i] = '.';
        }
        QFile file(m_directory.filePath(QLatin1String(name)));
        Expect(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(),
            QStringLiteral("a file can be written"));
        return file.fileName();
    }

private:
    QTemporaryDir m_directory;
};

void ExpectNamed(const QStringList& problems, const QString& path)
{
    for (const QString& problem : problems) {
        Expect(problem.startsWith(path + QLatin1String(", line ")),
            QStringLiteral("a problem has its place: %1").arg(problem));
    }
}

} // namespace

TE2_FUZZ_TARGET(ModuleFiles)
{
    static const Folder folder;
    const QProcessEnvironment before = QProcessEnvironment::systemEnvironment();
    {
        StartEnvironment environment;
        const QString settings = folder.Write("Maya.env", input.Text(2000).toUtf8());
        ExpectNamed(environment.ReadFile(settings), settings);
        const QString file = folder.Write("a.mod", input.Rest());
        Modules modules;
        ExpectNamed(modules.Read({folder.Path()}, environment), file);
        for (const Module& module : modules.All()) {
            Expect(!module.name.isEmpty() && QFileInfo(module.folder).isDir()
                    && modules.Find(module.name) == &module,
                QStringLiteral("a module is found: %1").arg(module.name));
        }
        const QProcessEnvironment changed = QProcessEnvironment::systemEnvironment();
        for (const QString& name : changed.keys()) {
            Expect(name.size() + changed.value(name).size() < LONGEST_VALUE,
                QStringLiteral("a program can be started with %1").arg(name));
        }
    }
    Expect(QProcessEnvironment::systemEnvironment() == before,
        QStringLiteral("nothing of it stays in the environment"));
}
