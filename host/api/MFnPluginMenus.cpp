#include "api/ApiAccess.h"
#include "api/Conversions.h"
#include "api/MenuItems.h"
#include "api/PluginCommand.h"
#include "api/Session.h"
#include "api/StatusDetails.h"
#include "engine/Engine.h"

// The entries that plug-ins add to the host's menus, made by the same command that scripts use.

namespace host::api {

namespace {

QString Quoted(QString text)
{
    text.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    return QLatin1Char('"') + text.replace(QLatin1Char('"'), QLatin1String("\\\""))
        + QLatin1Char('"');
}

/// The new entry's full name; empty when it could not be made, which has been shown.
QString MakeMenuItem(const QString& flags, const QString& parent, const QString& command)
{
    const QString text = QStringLiteral("menuItem %1 -parent %2 -command %3")
                             .arg(flags, Quoted(parent), Quoted(command));
    return Engine::Current().Execute(Language::Mel, text, false).value.ToText();
}

} // namespace

bool DeleteMenuItem(PluginRecord& record, const QString& name)
{
    if (!record.menuItems.removeOne(name))
        return false;
    const QString text = QStringLiteral("if (`menuItem -exists %1`) deleteUI -menuItem %1");
    if (Engine::Current().mel)
        Engine::Current().Execute(Language::Mel, text.arg(Quoted(name)), false);
    return true;
}

} // namespace host::api

OPENMAYA_MAJOR_NAMESPACE_OPEN

using host::api::Report;
using host::api::Session;
using host::api::ToQString;

MStringArray MFnPlugin::addMenuItem(const MString& menuItemName, const MString& parentName,
    const MString& commandName, const MString& commandParams, bool needOptionBox,
    const MString* optBoxFunction, MStatus* retStatus)
{
    MStringArray made;
    const auto record = Session::Current().FindPlugin(ApiAccess::PluginOf(object()));
    Report(retStatus, MS::kFailure);
    if (!record || !host::Engine::Current().mel)
        return made;
    const QString parent = ToQString(parentName);
    const QString label = QLatin1String("-label ") + host::api::Quoted(ToQString(menuItemName));
    const QString command = ToQString(commandName);
    QStringList names{host::api::MakeMenuItem(
        label, parent, (command + QLatin1Char(' ') + ToQString(commandParams)).trimmed())};
    if (needOptionBox && !names.first().isEmpty()) {
        names += host::api::MakeMenuItem(QStringLiteral("-optionBox true"), parent,
            optBoxFunction ? ToQString(*optBoxFunction) : command);
    }
    names.removeAll(QString());
    record->menuItems += names;
    Report(retStatus, names.isEmpty() ? MS::kFailure : MS::kSuccess);
    return host::api::ToMStringArray(names);
}

MStatus MFnPlugin::removeMenuItem(MStringArray& menuItemNames)
{
    const auto record = Session::Current().FindPlugin(ApiAccess::PluginOf(object()));
    if (!record)
        return MS::kFailure;
    MStatus status;
    for (const MString& name : menuItemNames) {
        if (!host::api::DeleteMenuItem(*record, ToQString(name)))
            status = MS::kInvalidParameter;
    }
    return status;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
