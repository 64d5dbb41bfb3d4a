// What it costs to begin where the last session ended, beside a session with one file.

#include "RatioMain.h"
#include "app/Host.h"
#include "plugin/MayaUtil.h"
#include "settings/ColorSettings.h"
#include "settings/Settings.h"
#include "window/TabDetails.h"
#include "window/TarnwickEditor.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <memory>

namespace {

constexpr int TABS = 50;
constexpr int LINES = 500;
constexpr int ROUNDS = 5;
const QSize SIZE(1300, 900);

QByteArray Script(int number)
{
    QByteArray lines;
    for (int i = 0; i < LINES; ++i)
        lines += "    value_" + QByteArray::number(i) + " = function(name, "
            + QByteArray::number(number) + ") * 2\n";
    return lines;
}

QStringList MakeTabs(const QTemporaryDir& folder)
{
    QStringList records;
    for (int i = 0; i < TABS; ++i) {
        TabDetails details;
        details.type = CodeEditorType::File;
        details.path = folder.filePath(
            QStringLiteral("script%1.%2").arg(i).arg(QLatin1String(i % 2 ? "py" : "mel")));
        details.isCurrent = i == TABS / 2;
        details.cursorPosition = 4000;
        details.scrollValue = 100;
        QFile file(details.path);
        if (!file.open(QIODevice::WriteOnly) || file.write(Script(i)) < 0)
            qFatal("cannot write %s", qPrintable(details.path));
        records.append(FormatTabDetails(details));
    }
    return records;
}

/// Until everything is on the screen; in ms.
double TimeToStart(const QStringList& records)
{
    Settings::tabDetails = records;
    QElapsedTimer clock;
    clock.start();
    TarnwickEditor window;
    window.resize(SIZE);
    window.show();
    for (int turn = 0; turn < 3; ++turn)
        QApplication::processEvents();
    return clock.nsecsElapsed() / 1e6;
}

void Restore(benchmark::State& state, const QStringList& records)
{
    TimeToStart(records.mid(0, 1)); // what is made once in a process
    for (auto _ : state) {
        double few = 1e9;
        double many = 1e9;
        for (int i = 0; i < ROUNDS; ++i) {
            few = std::min(few, TimeToStart(records.mid(0, 1)));
            many = std::min(many, TimeToStart(records));
        }
        state.SetIterationTime((many - few) / 1000);
        state.counters["one_tab_ms"] = few;
        state.counters["all_tabs_ms"] = many;
    }
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QTemporaryDir preferences;
    const QTemporaryDir scripts;
    host::Host host(host::RunState::Interactive, preferences.path());
    host.Start();
    MayaUtil::SourceApplicationScripts();
    Settings::ReadUserConfig();
    ColorSettings::ReadUserConfig();
    const QStringList records = MakeTabs(scripts);
    benchmark::RegisterBenchmark(
        "restore_50_tabs", [&records](benchmark::State& state) { Restore(state, records); })
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime()
        ->Iterations(1);
    TimeGoal("restore_50_tabs", 500);
    return RunBenchmarks(argc, argv);
}
