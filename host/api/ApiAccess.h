#pragma once

#include "engine/Call.h"

#include <maya/MObject.h>

namespace host {
struct Plugin;
}
namespace host::api {
class PluginCommand;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// The host's way to what the public classes keep private. Each function is defined beside the
/// class that it opens.
class ApiAccess
{
public:
    /// Null for a null object.
    static host::Plugin* PluginOf(const MObject& object);
    static MObject ObjectOf(host::Plugin* plugin);

    static const QVector<host::Word>& WordsOf(const MArgList& list);
    static void SetWords(MArgList& list, const QVector<host::Word>& words);

    static bool TakesSelection(const MSyntax& syntax);
    static unsigned int MinimumObjects(const MSyntax& syntax);
    /// Gives a command the flags, objects and modes of a syntax.
    static void Describe(host::Command& command, const MSyntax& syntax);

    /// Ties a command object to its registration, for syntax() and hasSyntax().
    static void Attach(MPxCommand& object, const std::shared_ptr<host::api::PluginCommand>& command,
        const QString& text);

    static void SetNames(MSelectionList& list, const QStringList& names);
    static void SetValue(MCommandResult& result, const host::Value& value);
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
