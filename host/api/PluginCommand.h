#pragma once

#include "api/PluginRecord.h"
#include "engine/Call.h"

#define MNoVersionString
#define MNoPluginEntry
#include <maya/MFnPlugin.h>
#include <maya/MPxCommand.h>
#include <maya/MSyntax.h>

namespace host::api {

/// A command as a plug-in registered it: makes the objects that run it. Main thread only.
/// Invariant: after Retire no code of the plug-in is reached through it.
class PluginCommand : public std::enable_shared_from_this<PluginCommand>
{
public:
    PluginCommand(const QString& name, std::shared_ptr<PluginRecord> record,
        MCreatorFunction creator, MCreateSyntaxFunction syntaxFunction);

    const QString& Name() const { return m_name; }
    const std::shared_ptr<PluginRecord>& Record() const { return m_record; }
    bool HasSyntax() const { return m_syntaxFunction || m_syntax; }
    /// Made at the first call and kept; empty without a syntax function.
    const MSyntax& Syntax();

    /// The entry for the engine's registry.
    std::unique_ptr<Command> MakeEntry();
    void Retire();

private:
    Outcome Run(Call& call);
    Outcome RunObject(std::unique_ptr<MPxCommand> object, Call& call);

    QString m_name;
    std::shared_ptr<PluginRecord> m_record;
    MCreatorFunction m_creator;
    MCreateSyntaxFunction m_syntaxFunction;
    std::unique_ptr<MSyntax> m_syntax;
};

} // namespace host::api
