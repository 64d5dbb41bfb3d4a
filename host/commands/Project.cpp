#include "commands/Project.h"

#include "commands/OpenFiles.h"

#include <QDir>
#include <QRegularExpression>
#include <QSaveFile>

namespace host::commands {

namespace {

const QString RULES_FILE = QStringLiteral("/workspace.mel");

} // namespace

QString Project::Name() const
{
    return QFileInfo(m_root).fileName();
}

void Project::SetRoot(const QString& root)
{
    m_root = QDir::cleanPath(QDir(root).absolutePath());
}

QString Project::Expand(const QString& path) const
{
    return QDir::isAbsolutePath(path) ? QDir::cleanPath(path)
                                      : QDir::cleanPath(m_root + QLatin1Char('/') + path);
}

QString Project::Open(const QString& root)
{
    if (!QFileInfo(root).isDir())
        return QStringLiteral("The project folder \"%1\" does not exist.").arg(root);
    QFile file(root + RULES_FILE);
    QMap<QString, QString> rules;
    if (file.exists()) {
        if (!file.open(QIODevice::ReadOnly)) {
            return QStringLiteral("Cannot read \"%1\": %2.")
                .arg(file.fileName(), file.errorString());
        }
        static const QRegularExpression line(
            QStringLiteral("^\\s*workspace\\s+-(?:fr|fileRule)\\s+\"([^\"]*)\"\\s+\"([^\"]*)\""),
            QRegularExpression::MultilineOption);
        auto matches = line.globalMatch(DecodedText(file.readAll()));
        while (matches.hasNext()) {
            const auto match = matches.next();
            rules.insert(match.captured(1), match.captured(2));
        }
    }
    SetRoot(root);
    m_rules = rules;
    return {};
}

QString Project::Save() const
{
    QString text = QStringLiteral("// Project definition\n\n");
    for (auto it = m_rules.begin(); it != m_rules.end(); ++it)
        text += QStringLiteral("workspace -fr \"%1\" \"%2\";\n").arg(it.key(), it.value());
    QSaveFile file(m_root + RULES_FILE);
    if (!QDir().mkpath(m_root) || !file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0
        || !file.commit()) {
        return QStringLiteral("Cannot write \"%1\": %2.").arg(file.fileName(), file.errorString());
    }
    return {};
}

} // namespace host::commands
