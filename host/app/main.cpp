#include "app/Host.h"
#include "ui/window/HostStyle.h"

#include <QApplication>
#include <QTimer>

#include <cstdio>

namespace {

constexpr int USAGE_ERROR = 2;

int RunBatch(host::Host& host, const host::Options& options)
{
    host.Start();
    if (options.loadsPlugins)
        host.LoadPlugins();
    bool failed = false;
    for (const host::StartTask& task : options.tasks) {
        if (host.IsQuitting())
            break;
        failed = !host.RunTask(task) || failed;
    }
    host.Shutdown();
    return host.ExitCode() != 0 ? host.ExitCode() : failed ? 1 : 0;
}

int RunWindow(QApplication& application, host::Host& host, const host::Options& options)
{
    // The host ends when its own rules say so, not when some window closes.
    QApplication::setQuitOnLastWindowClosed(false);
    QObject::connect(
        &host, &host::Host::Finished, &application, [](int code) { QApplication::exit(code); });
    host.Start();
    // Plug-ins and scripts expect a running event loop.
    QTimer::singleShot(0, &host, [&host, &options] {
        if (options.loadsPlugins)
            host.LoadPlugins();
        if (options.OpensEditor() && options.loadsPlugins)
            host.OpenEditor();
        for (const host::StartTask& task : options.tasks)
            host.RunTask(task);
        if (!options.screenshot.isEmpty())
            host.TakeScreenshot(options.screenshot);
    });
    return QApplication::exec();
}

/// Batch mode is decided before there is an application object to ask.
bool IsBatch(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        if (qstrcmp(argv[i], "-batch") == 0 || qstrcmp(argv[i], "--batch") == 0
            || qstrcmp(argv[i], "-help") == 0 || qstrcmp(argv[i], "--help") == 0)
            return true;
    }
    return false;
}

} // namespace

int main(int argc, char** argv)
{
    // No display is needed then; the toolkit asks for one all the same.
    if (IsBatch(argc, argv))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments += QString::fromLocal8Bit(argv[i]);
    QString error;
    const std::optional<host::Options> options = host::ReadOptions(arguments, error);
    if (!options) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return USAGE_ERROR;
    }
    if (options->help) {
        std::fputs(qPrintable(host::UsageText()), stdout);
        return 0;
    }
    int ownArguments = 1; // the host's options are not the toolkit's
    QApplication application(ownArguments, argv);
    QApplication::setApplicationName(QStringLiteral("tarnwick-host"));
    QApplication::setApplicationDisplayName(QStringLiteral("Tarnwick Host"));
    if (!options->batch)
        host::ui::HostStyle::Apply(application, options->scale);
    host::Host host(options->batch ? host::RunState::Batch : host::RunState::Interactive,
        options->preferencesFolder);
    if (!options->batch)
        return RunWindow(application, host, *options);
    return RunBatch(host, *options);
}
