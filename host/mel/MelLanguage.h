#pragma once

#include "engine/Script.h"

#include <QStringList>
#include <QVector>

#include <memory>
#include <optional>

namespace host {
class Engine;
}

namespace host::mel {

class GlobalScope;
class Interpreter;

/// A global procedure as `whatIs`, `getProcArguments` and `melInfo` tell of it.
struct ProcedureInfo
{
    QString name;
    QString file; ///< absolute; empty when it was typed or handed over as text
    int line = 0; ///< from 1
    Value::Kind resultKind = Value::Kind::None;
    QVector<Value::Kind> parameters;
};

/// The MEL interpreter as the rest of the host sees it. Owns the global variables and procedures
/// of the session. One per engine; main thread only; may be started again by what it runs.
class MelLanguage : public ScriptLanguage
{
public:
    /// Becomes `engine.mel` and registers the functions and commands that belong to the language.
    explicit MelLanguage(Engine& engine);
    ~MelLanguage() override;

    /// The one of the current engine.
    static MelLanguage& Current();

    // Running
    ScriptResult Run(const QString& text) override;
    /// A relative name is looked for along the script path; its ".mel" may be missing.
    ScriptResult RunFile(const QString& path) override;

    // Procedures
    std::optional<ProcedureInfo> FindProcedure(const QString& name) const;
    /// Sorted names of the global procedures.
    QStringList ProcedureNames() const;

    // Global variables, named with their "$"
    /// None when there is no such variable (or nothing was assigned to it yet).
    Value::Kind GlobalVariableKind(const QString& name) const;
    QStringList GlobalVariableNames() const;
    Value GlobalVariable(const QString& name) const;
    /// Makes the variable when it is missing, else converts to its kind. When that cannot be done
    /// the error is shown, nothing changes and the answer is false.
    bool SetGlobalVariable(const QString& name, const Value& value);

    /// The last error's message without its place; also of errors that were caught.
    QString LastError() const;

    /// For the functions of the language itself.
    Interpreter& GetInterpreter() { return *m_interpreter; }

private:
    Engine& m_engine;
    std::unique_ptr<GlobalScope> m_globals;
    std::unique_ptr<Interpreter> m_interpreter;
};

} // namespace host::mel
