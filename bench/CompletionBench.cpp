// What completion costs between a key and the list: twenty thousand names of MEL, and the source
// that Python completion sends.

#include "RatioMain.h"
#include "language/MelAutoCompleter.h"
#include "language/PythonCompletion.h"
#include "language/PythonSource.h"
#include "settings/ColorSettings.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPlainTextEdit>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <limits>

namespace {

constexpr double FRAME = 30; // ms from the key to the painted list
constexpr int PYTHON_LINES = 10000;
// A rare beginning, the commonest one, and words that grow and change.
const char* const WORDS[] = {"someProcedure1", "polyCommand", "RunTime77", "s", "whi"};

/// A key, and everything that follows until the list is painted.
void Press(QPlainTextEdit& editor, MelAutoCompleter& completer, QChar character)
{
    editor.insertPlainText(QString(character));
    const QTextCursor cursor = editor.textCursor();
    if (completer.ValidateAndSetPrefix(cursor))
        completer.Update(cursor, editor.cursorRect(), false);
    else
        completer.hide();
    QApplication::processEvents();
}

void FirstKey(benchmark::State& state)
{
    QPlainTextEdit editor;
    editor.show();
    QApplication::processEvents();
    for (auto _ : state) {
        MelAutoCompleter completer(&editor);
        Press(editor, completer, QLatin1Char('s'));
    }
}

void LongestKey(benchmark::State& state)
{
    QPlainTextEdit editor;
    MelAutoCompleter completer(&editor);
    editor.show();
    QApplication::processEvents();
    for (auto _ : state) {
        qint64 longest = 0;
        for (const char* word : WORDS) {
            for (const QChar character : QString::fromLatin1(word) + QLatin1Char(' ')) {
                QElapsedTimer clock;
                clock.start();
                Press(editor, completer, character);
                longest = std::max(longest, clock.nsecsElapsed());
            }
        }
        state.SetIterationTime(longest / 1e9);
    }
}

/// Reading the text and choosing what the host is asked about an object of a class in it.
void PreparePythonSource(benchmark::State& state)
{
    QString text;
    for (int i = 0; i < PYTHON_LINES; ++i) {
        if (i % 100 == 0)
            text += QStringLiteral("class Class_%1(Class_%2):\n").arg(i).arg(i - 100);
        else if (i % 10 == 1)
            text += QStringLiteral("    def method_%1(self, argument):\n").arg(i);
        else if (i % 10 == 2)
            text
                += QStringLiteral("        self.value_%1 = Class_%2(argument)\n").arg(i).arg(i / 2);
        else
            text += QStringLiteral("        value_%1 = call(name[%1], 'text') # why\n").arg(i);
    }
    const QString line = QStringLiteral("        self.");
    for (auto _ : state) {
        const PythonSource source(text, PYTHON_LINES / 2 + 5);
        const QString wanted = PythonCompletion::SourceFor(
            source, line, QStringLiteral("self"), {}, std::numeric_limits<int>::max());
        benchmark::DoNotOptimize(PythonCompletion::EscapedForPython(wanted));
        state.counters["asked_characters"] = wanted.size();
    }
}

benchmark::internal::Benchmark* Register(const char* name, void (*run)(benchmark::State&))
{
    return benchmark::RegisterBenchmark(name, run)->Unit(benchmark::kMillisecond)->Iterations(1);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    ColorSettings::Initialize();
    Register("first_key", FirstKey)->UseRealTime();
    TimeGoal("first_key", FRAME);
    Register("longest_key", LongestKey)->UseManualTime();
    TimeGoal("longest_key", FRAME);
    Register("python_source_of_10k_lines", PreparePythonSource)->UseRealTime();
    TimeGoal("python_source_of_10k_lines", FRAME);
    return RunBenchmarks(argc, argv);
}
