#pragma once

#include "language/PythonSource.h"

#include <QStringList>

/// The statements of a source that tell what an object is: where its name was bound, what the
/// values it was bound to are made of, and the classes met on the way with all their members.
/// Following stops when the text gets longer than is worth asking for. Rather too much is taken
/// than too little, so that the excerpt means what the whole source means.
class PythonExcerpt
{
public:
    /// `chain`: the object's names, which the dots part; empty for the names of the source, of
    /// which only those that come from outside are then left. `limit`: characters.
    PythonExcerpt(const PythonSource& source, const QStringList& chain, int limit);

    struct Text
    {
        QString text;
        int line = 0; ///< from 0: the one that is being written
    };

    bool IsTooLong() const { return m_size > m_limit; }
    /// With `lineText` for the line that is being written.
    Text GetText(const QString& lineText) const;

private:
    void Follow();
    void Need(int name);
    bool Counts(const PythonSource::Binding& binding) const;
    void Resolve(int statement);
    void NeedWords(int statement);
    void NeedClass(int statement);
    void Activate(int function);
    void Keep(int statement);
    int ClassAround(int statement) const;
    bool IsKind(int statement, PythonStatement::Kind kind) const;
    bool HasKeptInside(int statement) const;
    QStringList LinesOf(int statement) const;

    const PythonSource& m_source;
    const QVector<PythonStatement>& m_statements;
    const int m_limit;
    int m_size = 0;
    QVector<int> m_queue; ///< needed names whose bindings were not looked at yet
    QVector<bool> m_isNeeded; ///< by name
    // By statement.
    QVector<bool> m_isKept;
    QVector<bool> m_isResolved; ///< what it is made of is needed, too
    QVector<bool> m_isOpen; ///< a class whose members count, or a function whose names do
};
