#include "commands/Tables.h"
#include "engine/Engine.h"

namespace host::commands {

namespace {

struct DetailRow
{
    const char* flag;
    QString Module::*value;
};

constexpr DetailRow DETAILS[] = {
    {"definition", &Module::file},
    {"path", &Module::folder},
    {"version", &Module::version},
};

Outcome ModuleInfo(Call& call)
{
    const Modules& modules = Engine::Current().modules;
    if (call.Has("listModules")) {
        QStringList names;
        for (const Module& module : modules.All())
            names += module.name;
        return names;
    }
    if (!call.Has("moduleName"))
        return Error{QStringLiteral("moduleInfo needs -listModules or -moduleName.")};
    const QString name = call.Text("moduleName");
    const Module* module = modules.Find(name);
    if (!module)
        return Error{
            QStringLiteral("Module, \"%1\", was not found on MAYA_MODULE_PATH.").arg(name)};
    for (const DetailRow& row : DETAILS) {
        if (call.Has(row.flag))
            return module->*row.value;
    }
    return Error{QStringLiteral("moduleInfo needs -definition, -path or -version.")};
}

const CommandRow COMMANDS[] = {
    {"moduleInfo", "any", "", "",
        "definition/d - c; listModules/lm - c; moduleName/mn str c; path/p - c; version/v - c",
        ModuleInfo},
};

} // namespace

void RegisterModules(CommandRegistry& registry)
{
    registry.Register(COMMANDS);
}

} // namespace host::commands
