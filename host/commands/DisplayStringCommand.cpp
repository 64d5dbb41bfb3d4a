#include "commands/Patterns.h"
#include "commands/Session.h"
#include "commands/Tables.h"
#include "engine/Engine.h"

namespace host::commands {

namespace {

/// The interface texts that the host's own scripts and plug-ins ask for.
const std::pair<const char*, const char*> OWN_STRINGS[] = {
    {"m_WindowMenu.kGeneralEditorsLabel", "General Editors"},
};

QMap<QString, QString>& Strings()
{
    QMap<QString, QString>& strings = Session::Current().displayStrings;
    if (strings.isEmpty()) {
        for (const auto& [key, text] : OWN_STRINGS)
            strings.insert(QLatin1String(key), QLatin1String(text));
    }
    return strings;
}

Outcome Unknown(const QString& key)
{
    return Error{QStringLiteral("displayString: the key '%1' does not exist.").arg(key)};
}

Outcome Keys(const QString& pattern)
{
    const QRegularExpression wanted
        = ShellExpression(pattern.isEmpty() ? QStringLiteral("*") : pattern);
    QStringList keys;
    for (const QString& key : Strings().keys()) {
        if (wanted.match(key).hasMatch())
            keys += key;
    }
    return keys;
}

Outcome DisplayString(Call& call)
{
    const QString key = call.ObjectText();
    if (call.Has("keys"))
        return Keys(key);
    if (call.Has("exists"))
        return Strings().contains(key);
    if (call.IsQuery() || call.Has("delete")) {
        if (!Strings().contains(key))
            return Unknown(key);
        if (call.IsQuery())
            return Strings().value(key);
        Strings().remove(key);
        return {};
    }
    if (key.isEmpty() || !call.Has("value"))
        return Error{QStringLiteral("displayString needs a key and a value.")};
    if (Strings().contains(key) && !call.Has("replace")
        && Strings().value(key) != call.Text("value")) {
        return Error{QStringLiteral("displayString: the key '%1' has a value already.").arg(key)};
    }
    Strings().insert(key, call.Text("value"));
    return {};
}

const CommandRow COMMANDS[] = {
    {"displayString", "any", "Q", "[String]",
        "delete/d - c; exists/ex - cq; keys/k - cq; replace/r - cq; value/v str cq", DisplayString},
};

} // namespace

void RegisterDisplayStrings(CommandRegistry& registry)
{
    registry.Register(COMMANDS);
}

} // namespace host::commands
