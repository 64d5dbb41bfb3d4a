#include "mel/GlobalScope.h"

namespace host::mel {

std::shared_ptr<const Procedure> Share(const Procedure& procedure)
{
    return {procedure.module->shared_from_this(), &procedure};
}

GlobalVariable* GlobalScope::FindVariable(const QString& name) const
{
    const auto found = m_variables.find(name);
    return found == m_variables.end() ? nullptr : found->second.get();
}

GlobalVariable& GlobalScope::AddVariable(
    const QString& name, std::unique_ptr<GlobalVariable> variable)
{
    std::unique_ptr<GlobalVariable>& entry = m_variables[name];
    if (!entry)
        entry = std::move(variable);
    return *entry;
}

QStringList GlobalScope::VariableNames() const
{
    QStringList names;
    for (const auto& [name, variable] : m_variables)
        names += name;
    names.sort();
    return names;
}

ProcedureCell& GlobalScope::Cell(const QString& name)
{
    std::unique_ptr<ProcedureCell>& cell = m_cells[name];
    if (!cell)
        cell = std::make_unique<ProcedureCell>();
    return *cell;
}

const Procedure* GlobalScope::FindProcedure(const QString& name) const
{
    const auto found = m_cells.find(name);
    return found == m_cells.end() ? nullptr : found->second->procedure.get();
}

void GlobalScope::Define(const std::shared_ptr<const Procedure>& procedure)
{
    Cell(procedure->name).procedure = procedure;
}

QStringList GlobalScope::ProcedureNames() const
{
    QStringList names;
    for (const auto& [name, cell] : m_cells) {
        if (cell->procedure)
            names += name;
    }
    names.sort();
    return names;
}

} // namespace host::mel
