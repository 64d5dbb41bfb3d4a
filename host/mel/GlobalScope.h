#pragma once

#include "mel/Code.h"

#include <QHash>
#include <QStringList>

#include <memory>
#include <unordered_map>

namespace host::mel {

/// A variable of the global name space. Its address never changes.
struct GlobalVariable
{
    /// None until the first assignment tells, when the compiler could not.
    Value::Kind kind = Value::Kind::None;
    Value value;

    Value::Kind CurrentKind() const { return kind == Value::Kind::None ? value.GetKind() : kind; }
};

/// Holds the global procedure of a name, if there is one. Calls keep its address, so that a name is
/// bound when the call runs without being looked up.
struct ProcedureCell
{
    std::shared_ptr<const Procedure> procedure;
};

/// The names that outlive a text. Nothing is ever removed. Main thread only.
class GlobalScope
{
public:
    /// Null when there is none. Names with their "$".
    GlobalVariable* FindVariable(const QString& name) const;
    GlobalVariable& AddVariable(const QString& name, std::unique_ptr<GlobalVariable> variable);
    QStringList VariableNames() const;

    ProcedureCell& Cell(const QString& name);
    const Procedure* FindProcedure(const QString& name) const;
    void Define(const std::shared_ptr<const Procedure>& procedure);
    QStringList ProcedureNames() const;

private:
    std::unordered_map<QString, std::unique_ptr<GlobalVariable>> m_variables;
    std::unordered_map<QString, std::unique_ptr<ProcedureCell>> m_cells;
};

} // namespace host::mel
