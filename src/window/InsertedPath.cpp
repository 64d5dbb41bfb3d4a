#include "window/InsertedPath.h"

#include <QDir>
#include <QDirIterator>

#include <algorithm>

namespace {

/// "C:\maps" and "\\server\maps".
bool IsForeign(const QString& path)
{
    const bool hasDrive = path.size() > 2 && path[0].isLetter() && path[1] == QLatin1Char(':')
        && (path[2] == QLatin1Char('\\') || path[2] == QLatin1Char('/'));
    return hasDrive || path.startsWith(QLatin1String("\\\\"))
        || path.startsWith(QLatin1String("//"));
}

QString WithSeparators(QString path, const PathStyle& style)
{
    if (style.forwardSlashes)
        return path.replace(QLatin1Char('\\'), QLatin1Char('/'));
    path.replace(QLatin1Char('/'), QLatin1Char('\\'));
    return style.escapeBackslashes ? path.replace(QLatin1Char('\\'), QLatin1String("\\\\")) : path;
}

} // namespace

QString InsertedPath::Absolute(const QString& typed, const QString& base)
{
    if (typed == QLatin1String("~") || typed.startsWith(QLatin1String("~/")))
        return QDir::homePath() + typed.mid(1);
    if (typed.isEmpty() || IsForeign(typed) || typed.startsWith(QLatin1Char('/')))
        return typed;
    return base.endsWith(QLatin1Char('/')) ? base + typed : base + QLatin1Char('/') + typed;
}

bool InsertedPath::CanBeRelative(const QString& typed)
{
    return !IsForeign(typed.trimmed());
}

QString InsertedPath::Text(const QString& typed, const QString& base, const PathStyle& style)
{
    const QString name = typed.trimmed();
    if (name.isEmpty())
        return QString();
    QString path = Absolute(name, base);
    if (!style.relativeTo.isEmpty() && CanBeRelative(name)) {
        const bool isFolder = path.endsWith(QLatin1Char('/'));
        path = QDir(style.relativeTo).relativeFilePath(QDir::cleanPath(path));
        if (isFolder)
            path += QLatin1Char('/');
    }
    return WithSeparators(path, style);
}

QStringList InsertedPath::Completions(const QString& typed, const QString& base, int maximum)
{
    const QString head = typed.left(typed.lastIndexOf(QLatin1Char('/')) + 1);
    const QString name = typed.mid(head.size());
    if (IsForeign(typed))
        return {};
    QDirIterator iterator(head.isEmpty() ? base : Absolute(head, base),
        QDir::Dirs | QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot);
    QStringList found;
    while (maximum-- > 0 && iterator.hasNext()) {
        iterator.next();
        const QString entry = iterator.fileName();
        // Hidden entries are for those who ask for them.
        const bool isWanted = entry.startsWith(name, Qt::CaseInsensitive)
            && (name.startsWith(QLatin1Char('.')) || !entry.startsWith(QLatin1Char('.')));
        if (isWanted)
            found.append(
                head + entry + (iterator.fileInfo().isDir() ? QStringLiteral("/") : QString()));
    }
    std::sort(found.begin(), found.end(), [](const QString& left, const QString& right) {
        return left.compare(right, Qt::CaseInsensitive) < 0;
    });
    return found;
}
