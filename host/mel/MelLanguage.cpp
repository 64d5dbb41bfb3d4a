#include "mel/MelLanguage.h"

#include "engine/Engine.h"
#include "mel/GlobalScope.h"
#include "mel/Interpreter.h"
#include "mel/LanguageFunctions.h"
#include "mel/Operations.h"

namespace host::mel {

MelLanguage::MelLanguage(Engine& engine)
    : m_engine(engine)
    , m_globals(std::make_unique<GlobalScope>())
    , m_interpreter(std::make_unique<Interpreter>(engine, *m_globals))
{
    m_engine.mel = this;
    RegisterLanguageFunctions(m_engine.commands);
}

MelLanguage::~MelLanguage()
{
    m_engine.mel = nullptr;
}

MelLanguage& MelLanguage::Current()
{
    return *static_cast<MelLanguage*>(Engine::Current().mel);
}

ScriptResult MelLanguage::Run(const QString& text)
{
    return m_interpreter->Run(text);
}

ScriptResult MelLanguage::RunFile(const QString& path)
{
    return m_interpreter->RunFile(path);
}

std::optional<ProcedureInfo> MelLanguage::FindProcedure(const QString& name) const
{
    const Procedure* procedure = m_globals->FindProcedure(name);
    if (!procedure)
        return std::nullopt;
    ProcedureInfo info{procedure->name, procedure->module->source->Path(), procedure->line,
        procedure->resultKind, {}};
    for (const Value::Kind kind : procedure->parameters)
        info.parameters.append(kind);
    return info;
}

QStringList MelLanguage::ProcedureNames() const
{
    return m_globals->ProcedureNames();
}

Value::Kind MelLanguage::GlobalVariableKind(const QString& name) const
{
    const auto* variable = m_globals->FindVariable(name);
    return variable ? variable->CurrentKind() : Value::Kind::None;
}

QStringList MelLanguage::GlobalVariableNames() const
{
    return m_globals->VariableNames();
}

Value MelLanguage::GlobalVariable(const QString& name) const
{
    const auto* variable = m_globals->FindVariable(name);
    return variable ? variable->value : Value();
}

bool MelLanguage::SetGlobalVariable(const QString& name, const Value& value)
{
    auto* variable = m_globals->FindVariable(name);
    if (!variable)
        variable = &m_globals->AddVariable(name, std::make_unique<mel::GlobalVariable>());
    const Value::Kind kind = variable->CurrentKind();
    try {
        variable->value = Convert(*m_interpreter, value, kind);
    } catch (const ScriptError&) {
        return false;
    }
    variable->kind = variable->value.GetKind();
    return true;
}

QString MelLanguage::LastError() const
{
    return m_interpreter->LastError();
}

} // namespace host::mel
