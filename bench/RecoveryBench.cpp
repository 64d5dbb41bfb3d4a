// What keeping unsaved text costs the interface thread: the longest turn of the event loop while a
// snapshot of a long text is taken and written.

#include "RatioMain.h"
#include "editor/CodeEditor.h"
#include "settings/KeyBindings.h"
#include "window/RecoveryKeeper.h"

#include <QApplication>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QThread>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <functional>
#include <time.h>

namespace {

constexpr int LINES = 100000;
constexpr int LINE_LENGTH = 100; ///< 10 MB in all
constexpr int LONG_LINE = 5000000;
constexpr double LONGEST_TURN = 8; // ms
const char* const DELAYS = "1000000:1000000"; ///< never by itself
constexpr int QUIET = 1500; // ms without work: what else waits for a pause in typing is over
constexpr double WORK = 2; // ms

enum class Typing { None, InTheMiddle };

QString Lines()
{
    return (QString(LINE_LENGTH - 1, QLatin1Char('x')) + QLatin1Char('\n')).repeated(LINES);
}

bool HasSnapshot(const QString& folder)
{
    QDirIterator files(
        folder, {QStringLiteral("*.te2-recovery")}, QDir::Files, QDirIterator::Subdirectories);
    return files.hasNext();
}

double Spend(const std::function<void()>& work)
{
    QElapsedTimer clock;
    clock.start();
    work();
    return clock.nsecsElapsed() / 1e6;
}

double ThreadMilliseconds()
{
    timespec time = {};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return time.tv_sec * 1e3 + time.tv_nsec / 1e6;
}

/// The longest of several pieces of work. On a busy machine the clock also shows the work of
/// others, the processor's time only ours.
struct Longest
{
    double clock = 0; ///< ms
    double processor = 0;

    void Take(const std::function<void()>& work)
    {
        const double before = ThreadMilliseconds();
        clock = std::max(clock, Spend(work));
        processor = std::max(processor, ThreadMilliseconds() - before);
    }
};

void PressKey(QPlainTextEdit& editor)
{
    QKeyEvent press(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
    QApplication::sendEvent(&editor, &press);
}

void WaitUntilQuiet()
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < QUIET) {
        Longest turn;
        turn.Take([] { QApplication::processEvents(); });
        if (turn.processor > WORK)
            clock.restart();
        QThread::msleep(1);
    }
}

void Snapshot(benchmark::State& state, const QString& text, Typing typing)
{
    const QTemporaryDir folder;
    qputenv("TE2_RECOVERY_DELAYS", DELAYS);
    KeyBindings bindings;
    CodeEditorProperties properties;
    properties.filePath = QStringLiteral("/nowhere/script.txt");
    CodeEditor editor(properties, &bindings);
    editor.setPlainText(text);
    editor.resize(1000, 800);
    editor.show();
    const auto describe = [&properties](const CodeEditor&) {
        RecoverySnapshot snapshot;
        snapshot.properties = properties;
        return snapshot;
    };
    RecoveryKeeper keeper(folder.path(), describe, nullptr);
    editor.SetModified(false);
    keeper.Watch(&editor);
    editor.setTextCursor(QTextCursor(editor.document()->findBlockByNumber(LINES / 2)));
    PressKey(editor);
    WaitUntilQuiet();

    Longest turn;
    Longest key;
    int turns = 0;
    for (auto _ : state) {
        const double total = Spend([&] {
            keeper.SnapshotSoon();
            for (; !HasSnapshot(folder.path()); ++turns) {
                turn.Take([] { QApplication::processEvents(); });
                if (typing == Typing::InTheMiddle)
                    key.Take([&editor] { PressKey(editor); });
            }
        });
        state.counters["until_written_ms"] = total;
        state.SetIterationTime(turn.clock / 1000);
    }
    state.counters["turns"] = turns;
    state.counters["own_ms"] = turn.processor;
    state.counters["own_key_ms"] = key.processor;
}

/// At once, as before a script runs.
void Flush(benchmark::State& state, const QString& text)
{
    const QTemporaryDir folder;
    KeyBindings bindings;
    CodeEditor editor(CodeEditorProperties(), &bindings);
    const auto describe = [](const CodeEditor&) { return RecoverySnapshot(); };
    RecoveryKeeper keeper(folder.path(), describe, nullptr);
    editor.setPlainText(text);
    keeper.Watch(&editor);
    editor.SetModified(true);
    for (auto _ : state)
        state.SetIterationTime(Spend([&keeper] { keeper.Flush(RecoveryFile::Wait::No); }) / 1000);
}

void Register(const char* name, const std::function<void(benchmark::State&)>& run)
{
    benchmark::RegisterBenchmark(name, run)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime()
        ->Iterations(1);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setCursorFlashTime(0); // painting a long line again is work, too
    Register("longest_turn_10_MB", [](auto& state) { Snapshot(state, Lines(), Typing::None); });
    Register("longest_turn_10_MB_while_typing",
        [](auto& state) { Snapshot(state, Lines(), Typing::InTheMiddle); });
    Register("longest_turn_one_long_line",
        [](auto& state) { Snapshot(state, QString(LONG_LINE, QLatin1Char('x')), Typing::None); });
    for (const char* name :
        {"longest_turn_10_MB", "longest_turn_10_MB_while_typing", "longest_turn_one_long_line"})
        TimeGoal(name, LONGEST_TURN);
    Register("flush_10_MB", [](auto& state) { Flush(state, Lines()); });
    return RunBenchmarks(argc, argv);
}
