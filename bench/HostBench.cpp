// What the host and the first window cost: loops, prints, starting.

#include "RatioMain.h"
#include "app/Host.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QPlainTextEdit>
#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

using host::Language;

const QString MEL_LOOP
    = QStringLiteral("{ int $i; int $x = 0; for ($i = 0; $i < 1000000; $i++) $x += $i; }");
const QString PYTHON_LOOP = QStringLiteral("x = 0\nfor i in range(1000000):\n    x += i\n");
const QString MEL_CALLS
    = QStringLiteral("proc int next(int $a) { return $a + 1; }"
                     "{ int $i; int $x; for ($i = 0; $i < 1000000; $i++) $x = next($x); }");
const QString PYTHON_CALLS
    = QStringLiteral("def next_one(a):\n    return a + 1\n"
                     "x = 0\nfor i in range(1000000):\n    x = next_one(x)\n");
const QString MEL_PRINTS = QStringLiteral(
    "{ int $i; for ($i = 0; $i < 100000; $i++) print (\"line \" + $i + \" of the log\\n\"); }");
const QString PYTHON_PRINTS
    = QStringLiteral("for i in range(100000):\n    print('line', i, 'of the log')\n");

const QString LONG_PYTHON_PRINTS
    = QStringLiteral("for i in range(1000000):\n    print('line', i, 'of the log')\n");

/// Work whose time must stay in proportion to the number of turns, which stands for %1.
struct GrowthRow
{
    const char* name;
    const char* floorName;
    const char* script;
};

// clang-format off
constexpr GrowthRow GROWTHS[] = {
    {"mel_text_growth", "mel_text_growth/floor",
        "{ string $s; int $i; for ($i = 0; $i < %1; $i++) $s = $s + $i + \",\"; }"},
    {"mel_array_growth", "mel_array_growth/floor",
        "{ string $a[]; int $i; for ($i = 0; $i < %1; $i++) $a[size($a)] = \"n\" + $i; }"},
    {"mel_duplicates", "mel_duplicates/floor",
        "{ string $a[]; int $i; for ($i = 0; $i < %1; $i += 10) $a[size($a)] = \"n\" + ($i / 2);"
        " $a = stringArrayRemoveDuplicates($a); }"},
};
// clang-format on
constexpr int FEW_TURNS = 100000;
constexpr int MANY_TURNS = 4 * FEW_TURNS;

host::Host* theHost = nullptr;

QWidget* Console()
{
    for (QWidget* widget : QApplication::allWidgets()) {
        if (qstrcmp(widget->metaObject()->className(), "OutputTextEdit") == 0)
            return widget;
    }
    return nullptr;
}

void Mel(const QString& text)
{
    theHost->GetEngine().Execute(Language::Mel, text, false);
}

void Settle()
{
    for (int turn = 0; turn < 20; ++turn)
        QApplication::processEvents();
}

void OpenEditor()
{
    Mel(QStringLiteral("catchQuiet(`loadPlugin -quiet \"" BENCH_PLUGIN "\"`); tarnwickEditor2"));
    Settle();
}

void CloseEditor()
{
    Mel(QStringLiteral("catchQuiet(`unloadPlugin TarnwickEditor2`)"));
    Settle();
}

/// Counts how often the console is painted while a script runs.
class PaintCounter : public QObject
{
public:
    int count = 0;

    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

void RunScript(benchmark::State& state, Language language, const QString& script)
{
    for (auto _ : state)
        theHost->GetEngine().Execute(language, script, false);
}

void RunWithWindow(benchmark::State& state, Language language, const QString& script)
{
    OpenEditor();
    PaintCounter paints;
    auto* console = qobject_cast<QPlainTextEdit*>(Console());
    if (!console || !console->isVisible()) {
        state.SkipWithError("the editor did not open");
        return;
    }
    console->viewport()->installEventFilter(&paints);
    QElapsedTimer clock;
    clock.start();
    RunScript(state, language, script);
    state.counters["paints_per_second"] = paints.count * 1000.0 / qMax<qint64>(1, clock.elapsed());
}

void RunWithoutWindow(benchmark::State& state, Language language, const QString& script)
{
    CloseEditor();
    RunScript(state, language, script);
}

void StartHost(benchmark::State& state)
{
    for (auto _ : state) {
        const QTemporaryDir preferences;
        QProcess::execute(QStringLiteral(BENCH_HOST),
            {QStringLiteral("-prefs"), preferences.path(), QStringLiteral("-noPlugins"),
                QStringLiteral("-command"), QStringLiteral("quit -force")});
    }
}

void LoadAndOpen(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        CloseEditor();
        state.ResumeTiming();
        OpenEditor();
    }
}

void Register(const char* name, const std::function<void(benchmark::State&)>& run)
{
    benchmark::RegisterBenchmark(name, run)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->Iterations(1);
}

void RegisterAll()
{
    Register("mel_additions", [](auto& s) { RunScript(s, Language::Mel, MEL_LOOP); });
    Register("mel_additions/floor", [](auto& s) { RunScript(s, Language::Python, PYTHON_LOOP); });
    RatioGoal("mel_additions", 3);
    Register("mel_calls", [](auto& s) { RunScript(s, Language::Mel, MEL_CALLS); });
    Register("mel_calls/floor", [](auto& s) { RunScript(s, Language::Python, PYTHON_CALLS); });
    RatioGoal("mel_calls", 3);
    for (const GrowthRow& row : GROWTHS) {
        const QString script = QString::fromLatin1(row.script);
        Register(row.name, [=](auto& s) { RunScript(s, Language::Mel, script.arg(MANY_TURNS)); });
        Register(
            row.floorName, [=](auto& s) { RunScript(s, Language::Mel, script.arg(FEW_TURNS)); });
        RatioGoal(row.name, 6);
    }
    Register("mel_prints", [](auto& s) { RunWithWindow(s, Language::Mel, MEL_PRINTS); });
    Register("mel_prints/floor", [](auto& s) { RunWithoutWindow(s, Language::Mel, MEL_PRINTS); });
    RatioGoal("mel_prints", 3);
    Register("python_prints", [](auto& s) { RunWithWindow(s, Language::Python, PYTHON_PRINTS); });
    Register("python_prints/floor",
        [](auto& s) { RunWithoutWindow(s, Language::Python, PYTHON_PRINTS); });
    RatioGoal("python_prints", 3);
    // For its counter: how often the console is painted during a burst of some seconds.
    Register("long_burst", [](auto& s) { RunWithWindow(s, Language::Python, LONG_PYTHON_PRINTS); });
    Register("host_start", StartHost);
    TimeGoal("host_start", 1000);
    Register("plugin_load_and_window", LoadAndOpen);
    TimeGoal("plugin_load_and_window", 300);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QTemporaryDir preferences;
    host::Host host(host::RunState::Interactive, preferences.path());
    theHost = &host;
    host.Start();
    RegisterAll();
    return RunBenchmarks(argc, argv);
}
