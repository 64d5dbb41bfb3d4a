#pragma once

#include <QByteArray>
#include <QHash>
#include <QStringList>

namespace host {

/// The environment variables that the host itself sets when it starts: from Maya.env and from
/// modules. They are the process's own, so that everything in it and its children see them. The
/// one object belongs to the engine; with it go the changes. Main thread, before others start.
class StartEnvironment
{
public:
    StartEnvironment() = default;
    ~StartEnvironment();
    StartEnvironment(const StartEnvironment&) = delete;
    StartEnvironment& operator=(const StartEnvironment&) = delete;

    /// False, and nothing changes, when the value is longer than any process may be given: none
    /// could be started with it.
    bool Set(const QString& name, const QString& value);
    /// Adds an entry behind those that are there (":" between), unless it is one of them.
    bool Append(const QString& name, const QString& entry);

    /// Lines "NAME = value" of Maya.env; $NAME and ${NAME} in a value are variables. What the
    /// process was started with stays. Returns what is wrong with the file, a text for each line.
    QStringList ReadFile(const QString& path);

private:
    QString ReadLine(const QString& line);
    bool IsGiven(const QByteArray& name) const;

    QHash<QByteArray, QByteArray> m_before; ///< null for a variable that was not there
};

/// What to say of a variable that could not be set.
QString TooLongForEnvironment(const QString& name);

/// The entries of a variable that holds a list.
QStringList EnvironmentEntries(const char* name);

} // namespace host
