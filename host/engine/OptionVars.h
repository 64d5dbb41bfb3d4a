#pragma once

#include "engine/Value.h"

#include <QMap>
#include <QSet>

#include <functional>

namespace host {

/// Named values that scripts and plug-ins keep in the user's preferences: int, float, string, or an
/// array of them. Main thread only.
class OptionVars
{
public:
    bool Contains(const QString& name) const { return m_values.contains(name); }
    /// None when absent.
    Value Get(const QString& name) const { return m_values.value(name); }
    void Set(const QString& name, const Value& value);
    bool Remove(const QString& name);
    QStringList Names() const { return m_values.keys(); }
    /// Keeps the value out of the file, until the name is removed.
    void SetTransient(const QString& name) { m_transient.insert(name); }

    /// Called after a value was set or removed by name, if anybody wants to know.
    std::function<void(const QString& name)> changed;

    /// Adds the file's values. A missing file is no error; an unreadable entry is left out. The
    /// text tells what went wrong, empty when nothing did.
    QString Load(const QString& path);
    /// Replaces the file as a whole or leaves it as it was.
    QString Save(const QString& path) const;

private:
    QMap<QString, Value> m_values;
    QSet<QString> m_transient;
};

} // namespace host
