#include "app/Options.h"

namespace host {

namespace {

constexpr double MAXIMUM_SCALE = 4.0;

struct Reader
{
    Options options;
    QString value;
};

struct OptionRow
{
    const char* name; ///< one dash; two are understood as well
    const char* argument; ///< null when it takes none
    const char* help;
    void (*apply)(Options&, const QString& value);
};

void AddTask(Options& options, StartTask::Kind kind, const QString& text)
{
    options.tasks.append({kind, text});
}

// clang-format off
const OptionRow ROWS[] = {
    {"batch",      nullptr, "no window; prints go to standard output, warnings and errors to standard error",
        [](Options& o, const QString&) { o.batch = true; }},
    {"command",    "<mel>", "run a MEL text after start",
        [](Options& o, const QString& v) { AddTask(o, StartTask::Kind::Mel, v); }},
    {"python",     "<text>", "run a Python text after start",
        [](Options& o, const QString& v) { AddTask(o, StartTask::Kind::Python, v); }},
    {"script",     "<file>", "run a .mel or .py file after start",
        [](Options& o, const QString& v) { AddTask(o, StartTask::Kind::File, v); }},
    {"prefs",      "<dir>", "the folder that holds the preferences (default: MAYA_APP_DIR, else ~/maya)",
        [](Options& o, const QString& v) { o.preferencesFolder = v; }},
    {"noPlugins",  nullptr, "load no plug-in",
        [](Options& o, const QString&) { o.loadsPlugins = false; }},
    {"screenshot", "<png>", "write a picture of the window and its panels, then quit",
        [](Options& o, const QString& v) { o.screenshot = v; }},
    {"scale",      "<factor>", "the scale of the interface, 1 to 4: its text, and what plug-ins are told",
        [](Options& o, const QString& v) { o.scale = v.toDouble(); }},
    {"help",       nullptr, "print this text",
        [](Options& o, const QString&) { o.help = true; }},
};
// clang-format on

const OptionRow* FindRow(const QString& argument)
{
    if (!argument.startsWith(QLatin1Char('-')))
        return nullptr;
    const QString name = argument.mid(argument.startsWith(QLatin1String("--")) ? 2 : 1);
    for (const OptionRow& row : ROWS) {
        if (name == QLatin1String(row.name))
            return &row;
    }
    return nullptr;
}

} // namespace

std::optional<Options> ReadOptions(const QStringList& arguments, QString& error)
{
    Options options;
    for (int i = 1; i < arguments.size(); ++i) {
        const OptionRow* row = FindRow(arguments[i]);
        if (!row) {
            error = QStringLiteral("Unknown option \"%1\". Try -help.").arg(arguments[i]);
            return std::nullopt;
        }
        if (row->argument && i + 1 == arguments.size()) {
            error = QStringLiteral("The option \"%1\" needs %2.")
                        .arg(arguments[i], QLatin1String(row->argument));
            return std::nullopt;
        }
        row->apply(options, row->argument ? arguments[++i] : QString());
    }
    if (options.scale < 1.0 || options.scale > MAXIMUM_SCALE) {
        error = QStringLiteral("The scale is a number from 1 to %1.").arg(MAXIMUM_SCALE);
        return std::nullopt;
    }
    if (options.batch && !options.screenshot.isEmpty()) {
        error = QStringLiteral("There is no picture in batch mode.");
        return std::nullopt;
    }
    return options;
}

QString UsageText()
{
    QString text
        = QStringLiteral("Usage: tarnwick-host [options]\n\n"
                         "With neither -command, -python nor -script the window opens with "
                         "the script editor.\n\n");
    for (const OptionRow& row : ROWS) {
        const QString name = QStringLiteral("-%1 %2").arg(
            QLatin1String(row.name), QLatin1String(row.argument ? row.argument : ""));
        text += QStringLiteral("  %1 %2\n").arg(name, -18).arg(QLatin1String(row.help));
    }
    return text;
}

} // namespace host
