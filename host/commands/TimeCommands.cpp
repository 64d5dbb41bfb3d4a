#include "commands/Session.h"
#include "commands/Tables.h"
#include "engine/Engine.h"

#include <QDateTime>

#include <utility>

namespace host::commands {

namespace {

/// The tokens of `date -format`; MM is the month, mm the minute.
QString Formatted(const QDateTime& time, const QString& format)
{
    const std::pair<const char*, const char*> tokens[] = {{"YYYY", "yyyy"}, {"YY", "yy"},
        {"MM", "MM"}, {"DD", "dd"}, {"hh", "HH"}, {"mm", "mm"}, {"ss", "ss"}};
    QString text;
    for (int i = 0; i < format.size();) {
        bool replaced = false;
        for (const auto& [token, qtToken] : tokens) {
            if (!format.midRef(i).startsWith(QLatin1String(token)))
                continue;
            text += time.toString(QLatin1String(qtToken));
            i += static_cast<int>(qstrlen(token));
            replaced = true;
            break;
        }
        if (!replaced)
            text += format.at(i++);
    }
    return text;
}

Outcome Date(Call& call)
{
    const std::pair<const char*, const char*> formats[] = {{"date", "YYYY/MM/DD"},
        {"time", "hh:mm:ss"}, {"shortDate", "MM/DD"}, {"shortTime", "hh:mm"}};
    QString format = QStringLiteral("YYYY/MM/DD hh:mm:ss");
    if (call.Has("format"))
        format = call.Text("format");
    for (const auto& [flag, pattern] : formats) {
        if (call.Has(flag))
            format = QLatin1String(pattern);
    }
    return Formatted(QDateTime::currentDateTime(), format);
}

Outcome TimerX(Call& call)
{
    const double now = Session::Current().Seconds();
    return call.Has("startTime") ? now - call.Float("startTime") : now;
}

Outcome Timer(Call& call)
{
    QHash<QString, double>& timers = Session::Current().timers;
    const QString name = call.Text("name");
    const double now = Session::Current().Seconds();
    if (call.Has("startTimer")) {
        timers.insert(name, now);
        return 0.0;
    }
    if (!timers.contains(name))
        return Error{QStringLiteral("Timer \"%1\" was not started.").arg(name)};
    const double elapsed = now - timers.value(name);
    if (call.Has("endTimer"))
        timers.remove(name);
    return elapsed;
}

const CommandRow COMMANDS[] = {
    {"date", "string", "", "",
        "date/d - c; format/f str c; shortDate/sd - c; shortTime/st - c; time/t - c", Date},
    {"timerX", "float", "", "", "startTime/st float c", TimerX},
    {"timer", "float", "", "", "endTimer/e - c; lapTime/lap - c; name/n str c; startTimer/s - c",
        Timer},
};

} // namespace

void RegisterTime(CommandRegistry& registry)
{
    registry.Register(COMMANDS);
}

} // namespace host::commands
