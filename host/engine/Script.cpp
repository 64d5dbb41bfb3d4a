#include "engine/Script.h"

#include "engine/Engine.h"

#include <QRegularExpression>

namespace host {

namespace {

/// #1, #2 ... become the values of the control that calls.
QString WithArguments(const QString& text, const QVector<Value>& arguments)
{
    static const QRegularExpression marker(QStringLiteral("#([1-9][0-9]?)"));
    QString filled;
    int copied = 0;
    auto matches = marker.globalMatch(text);
    while (matches.hasNext()) {
        const auto match = matches.next();
        const int index = match.captured(1).toInt() - 1;
        if (index >= arguments.size())
            continue;
        filled += text.mid(copied, match.capturedStart() - copied) + arguments[index].ToText();
        copied = match.capturedEnd();
    }
    return filled + text.mid(copied);
}

} // namespace

QString Script::Description() const
{
    return callable ? callable->Description() : text;
}

Outcome Script::Run(const QVector<Value>& arguments) const
{
    if (IsEmpty())
        return {};
    Engine& engine = Engine::Current();
    if (callable) {
        const ScriptScope scope(language);
        return callable->Call(arguments);
    }
    const QString filled
        = language == Language::Mel && !arguments.isEmpty() ? WithArguments(text, arguments) : text;
    const ScriptResult result = engine.Execute(language, filled, false);
    if (result.failed)
        return Error{result.errorText, ErrorKind::Runtime, true};
    return result.value;
}

} // namespace host
