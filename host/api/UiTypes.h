#pragma once

#include "engine/Outcome.h"

#include <maya/MQtUtil.h>

#include <memory>

namespace host {
class Call;
}

namespace host::api {

struct PluginRecord;

/// A type of control that a plug-in adds: the command that makes such controls by the plug-in's
/// function, and asks and changes what all controls have. Kept by the registry's entry. Main thread
/// only.
class UiType
{
public:
    UiType(const QString& name, MQtUtil::UITypeCreatorFn create, const QString& command,
        std::shared_ptr<PluginRecord> record);

    /// False when the command's name is taken.
    static bool Register(const std::shared_ptr<UiType>& type);
    /// False when there is no such type.
    static bool Deregister(const QString& name);

private:
    Outcome Run(const Call& call) const;
    Outcome Make(const Call& call) const;

    QString m_name;
    MQtUtil::UITypeCreatorFn m_create;
    QString m_command;
    std::shared_ptr<PluginRecord> m_record; ///< null for the host's own code
};

} // namespace host::api
