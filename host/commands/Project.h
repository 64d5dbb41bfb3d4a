#pragma once

#include <QMap>
#include <QString>

namespace host::commands {

/// The folder in which a user's work lies, with the sub-folder of each kind of file. Its rules are
/// kept in "workspace.mel" in that folder. Main thread only.
class Project
{
public:
    /// Without a closing slash.
    const QString& Root() const { return m_root; }
    QString Name() const;
    void SetRoot(const QString& root);

    const QMap<QString, QString>& Rules() const { return m_rules; }
    void SetRule(const QString& kind, const QString& folder) { m_rules.insert(kind, folder); }
    /// An absolute path as it is, another one below the root.
    QString Expand(const QString& path) const;

    /// Makes `root` the project and reads its rules. Empty on success; else nothing changes.
    QString Open(const QString& root);
    /// Replaces the rules file as a whole or leaves it as it was. Empty on success.
    QString Save() const;

private:
    QString m_root;
    QMap<QString, QString> m_rules;
};

} // namespace host::commands
