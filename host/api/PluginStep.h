#pragma once

#include "api/PluginRecord.h"
#include "engine/UndoQueue.h"

#include <maya/MPxCommand.h>

namespace host::api {

class PluginCommand;

/// A call of a plug-in's command that can be undone: keeps the object that ran it.
class PluginStep : public UndoStep
{
public:
    PluginStep(std::unique_ptr<MPxCommand> object, std::shared_ptr<PluginCommand> command);
    ~PluginStep() override;

    bool Undo() override { return Run(&MPxCommand::undoIt); }
    bool Redo() override { return Run(&MPxCommand::redoIt); }
    QString Name() const override;

    const PluginCommand& Command() const { return *m_command; }
    const PluginRecord& Record() const;

private:
    bool Run(MStatus (MPxCommand::*step)());

    std::shared_ptr<PluginCommand> m_command;
    std::unique_ptr<MPxCommand> m_object;
};

/// Whether something of the plug-in can be undone or redone.
bool HasSteps(const PluginRecord& record);
void RemoveSteps(const PluginRecord& record);
void RemoveSteps(const PluginCommand& command);

} // namespace host::api
