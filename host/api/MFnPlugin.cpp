#include "api/ApiAccess.h"
#include "api/CommandRun.h"
#include "api/Conversions.h"
#include "api/PluginCommand.h"
#include "api/PluginStep.h"
#include "api/Session.h"
#include "api/StatusDetails.h"
#include "engine/Engine.h"

#include <QFileInfo>
#include <QRegularExpression>

OPENMAYA_MAJOR_NAMESPACE_OPEN

using host::api::Report;
using host::api::Session;
using host::api::StatusDetail;
using host::api::ToMString;
using host::api::ToQString;

namespace {

const QString UNKNOWN = QStringLiteral("Unknown");

bool IsName(const QString& text)
{
    static const QRegularExpression name(QStringLiteral("^[A-Za-z_]\\w*$"));
    return name.match(text).hasMatch();
}

/// A text of the plug-in's record; kFailure and "" when the function set is not attached.
MString RecordText(const MObject& object, QString host::Plugin::*text, MStatus* status)
{
    const host::Plugin* plugin = ApiAccess::PluginOf(object);
    Report(status, plugin ? MS::kSuccess : MS::kFailure);
    return plugin ? ToMString(plugin->*text) : MString();
}

MStatus MissingObject()
{
    return host::api::DetailedStatus(MS::kFailure, StatusDetail::DoesNotExist);
}

/// "name1", "name2" ...: the first that no loaded plug-in has.
QString FreeName(const QString& name)
{
    int number = 1;
    while (host::Engine::Current().plugins.Find(name + QString::number(number)))
        ++number;
    return name + QString::number(number);
}

} // namespace

MFnPlugin::MFnPlugin() = default;
MFnPlugin::~MFnPlugin() = default;

MFnPlugin::MFnPlugin(MObject& object, const char* vendor, const char* version,
    const char* requiredApiVersion, MStatus* ReturnStatus)
{
    const MStatus status = setObject(object);
    Report(ReturnStatus, status);
    if (!status)
        return;
    host::Plugin& plugin = *ApiAccess::PluginOf(object);
    // The exit point makes another function set, usually without these.
    if (plugin.vendor == UNKNOWN)
        plugin.vendor = QString::fromUtf8(vendor);
    if (plugin.version == UNKNOWN) {
        plugin.version = QString::fromUtf8(version);
        plugin.apiVersion = QString::fromUtf8(requiredApiVersion);
    }
}

MFn::Type MFnPlugin::type() const
{
    return MFn::kPlugin;
}

MString MFnPlugin::vendor(MStatus* ReturnStatus) const
{
    return RecordText(object(), &host::Plugin::vendor, ReturnStatus);
}

MString MFnPlugin::version(MStatus* ReturnStatus) const
{
    return RecordText(object(), &host::Plugin::version, ReturnStatus);
}

MString MFnPlugin::apiVersion(MStatus* ReturnStatus) const
{
    return RecordText(object(), &host::Plugin::apiVersion, ReturnStatus);
}

MString MFnPlugin::name(MStatus* ReturnStatus) const
{
    return RecordText(object(), &host::Plugin::name, ReturnStatus);
}

MString MFnPlugin::loadPath(MStatus* ReturnStatus) const
{
    const MString path = RecordText(object(), &host::Plugin::path, ReturnStatus);
    return path.length() == 0 ? path : ToMString(QFileInfo(ToQString(path)).path());
}

MStatus MFnPlugin::setName(const MString& newName, bool allowRename)
{
    host::Plugin* plugin = ApiAccess::PluginOf(object());
    QString name = ToQString(newName);
    if (!plugin)
        return MissingObject();
    // Commands already carry the name they were registered under.
    if (name.isEmpty() || !plugin->commands.isEmpty())
        return MS::kInvalidParameter;
    const host::Plugin* other = host::Engine::Current().plugins.Find(name);
    if (other && other != plugin) {
        if (!allowRename)
            return host::api::DetailedStatus(MS::kInvalidParameter, StatusDetail::AlreadyExists);
        name = FreeName(name);
    }
    plugin->name = name;
    return MS::kSuccess;
}

MStatus MFnPlugin::setVersion(const MString& newVersion)
{
    host::Plugin* plugin = ApiAccess::PluginOf(object());
    if (!plugin)
        return MissingObject();
    plugin->version = ToQString(newVersion);
    return MS::kSuccess;
}

MStatus MFnPlugin::registerCommand(const MString& commandName, MCreatorFunction creatorFunction,
    MCreateSyntaxFunction createSyntaxFunction)
{
    const auto record = Session::Current().FindPlugin(ApiAccess::PluginOf(object()));
    if (!record)
        return MissingObject();
    const QString name = ToQString(commandName);
    if (!creatorFunction || !IsName(name))
        return MS::kInvalidParameter;
    host::Engine& engine = host::Engine::Current();
    if (!engine.IsMainThread())
        return host::api::DetailedStatus(MS::kFailure, StatusDetail::WrongThread);
    const auto command = std::make_shared<host::api::PluginCommand>(
        name, record, creatorFunction, createSyntaxFunction);
    if (!engine.commands.Register(command->MakeEntry())) {
        host::api::ShowMessage(host::MessageType::Warning,
            QStringLiteral("Command \"%1\" exists already; plug-in \"%2\" cannot register it.")
                .arg(name, record->plugin->name));
        return host::api::DetailedStatus(MS::kInvalidParameter, StatusDetail::AlreadyExists);
    }
    record->commands.insert(name, command);
    record->plugin->commands += name;
    return MS::kSuccess;
}

MStatus MFnPlugin::deregisterCommand(const MString& commandName)
{
    const auto record = Session::Current().FindPlugin(ApiAccess::PluginOf(object()));
    if (!record)
        return MissingObject();
    const QString name = ToQString(commandName);
    const auto command = record->commands.take(name);
    if (!command)
        return MissingObject();
    command->Retire();
    host::api::RemoveSteps(*command);
    host::Engine::Current().commands.Unregister(name);
    record->plugin->commands.removeAll(name);
    return MS::kSuccess;
}

MStatus MFnPlugin::registerUI(const MString& creationProc, const MString& deletionProc,
    const MString& creationBatchProc, const MString& deletionBatchProc)
{
    const auto record = Session::Current().FindPlugin(ApiAccess::PluginOf(object()));
    if (!record)
        return MissingObject();
    const bool batch = host::Engine::Current().IsBatch();
    record->creationProcedure = ToQString(batch ? creationBatchProc : creationProc);
    record->deletionProcedure = ToQString(batch ? deletionBatchProc : deletionProc);
    return MS::kSuccess;
}

MObject MFnPlugin::findPlugin(const MString& pluginName)
{
    if (!host::Engine::Exists())
        return MObject::kNullObj;
    return ApiAccess::ObjectOf(host::Engine::Current().plugins.Find(ToQString(pluginName)));
}

bool MFnPlugin::isNodeRegistered(const MString&)
{
    // There is no scene here, and so no node type of a plug-in.
    return false;
}

const char* MFnPlugin::className()
{
    return "MFnPlugin";
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
