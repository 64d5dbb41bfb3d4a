// What the code editor costs beside a bare text widget: opening, typing, scrolling, changing tabs.

#include "RatioMain.h"
#include "app/Host.h"
#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "language/AutoCompleter.h"
#include "plugin/MayaUtil.h"
#include "settings/KeyBindings.h"
#include "settings/Settings.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTextBlock>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <functional>
#include <memory>
#include <time.h>

namespace {

constexpr int LINES = 100000;
constexpr int KEYS = 400;
constexpr int LINE_LENGTH = 1500;
constexpr int SCROLL_STEPS = 400;
constexpr int TABS = 50;
constexpr int LONG_TABS = 3;
constexpr int IDLE_WAIT = 1500; // ms
constexpr int OFFER_WAIT = 5000; // ms
constexpr double FRAME = 16; // ms
const QSize SIZE(1000, 800);

using Editor = std::unique_ptr<QPlainTextEdit>;
using MakeEditor = std::function<Editor()>;

const QString& LongText()
{
    static const QString text = [] {
        QString lines;
        for (int i = 0; i < LINES; ++i)
            lines += QStringLiteral("    value_%1 = function(name, %1) * 2\n").arg(i);
        return lines;
    }();
    return text;
}

CodeEditorProperties Properties(int number, CodeEditorLanguage language = CodeEditorLanguage::Text)
{
    CodeEditorProperties properties;
    properties.language = language;
    properties.filePath = QStringLiteral("/nowhere/%1.txt").arg(number);
    properties.label = QStringLiteral("script %1.txt").arg(number);
    return properties;
}

KeyBindings& Bindings()
{
    static KeyBindings bindings;
    return bindings;
}

/// The floor: the toolkit's widget with our font and nothing else.
Editor MakeBare()
{
    auto editor = std::make_unique<QPlainTextEdit>();
    editor->setFont(Settings::codeEditorFont);
    editor->setLineWrapMode(QPlainTextEdit::NoWrap);
    editor->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    editor->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    return editor;
}

Editor MakeOurs()
{
    return std::make_unique<CodeEditor>(Properties(0), &Bindings());
}

Editor MakePython()
{
    return std::make_unique<CodeEditor>(Properties(0, CodeEditorLanguage::Python), &Bindings());
}

/// Runs the event loop until nothing is due: layouts, deferred marks, paints.
void Settle()
{
    for (int turn = 0; turn < 3; ++turn)
        QApplication::processEvents();
}

/// Also past the timers that come after loading: change notices, highlighting.
void WaitUntilIdle()
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < IDLE_WAIT)
        QApplication::processEvents(QEventLoop::AllEvents, 10);
}

void ShowWith(QPlainTextEdit& editor, const QString& text)
{
    editor.resize(SIZE);
    editor.setPlainText(text);
    editor.show();
    Settle();
}

/// The costs of single steps, for what a mean would hide.
class Steps
{
public:
    void Add(const QElapsedTimer& clock) { m_times.push_back(clock.nsecsElapsed() / 1e6); }

    /// The median is what counts where the clock is not the benchmark's own.
    void Report(benchmark::State& state)
    {
        std::sort(m_times.begin(), m_times.end());
        const double median = m_times[m_times.size() / 2];
        state.SetIterationTime(median / 1e3);
        state.counters["median_ms"] = median;
        state.counters["p99_ms"] = m_times[m_times.size() * 99 / 100];
        state.counters["longest_ms"] = m_times.back();
    }

private:
    std::vector<double> m_times;
};

/// A class of ten methods in every hundred lines.
QString ClassText(int lines)
{
    QString text;
    for (int i = 0; i < lines; ++i) {
        if (i % 100 == 0)
            text += QStringLiteral("class Class_%1(object):\n").arg(i);
        else if (i % 10 == 1)
            text += QStringLiteral("    def method_%1(self, name):\n").arg(i);
        else if (i % 10 == 2)
            text += QStringLiteral("        self.value_%1 = Class_%2(name)\n")
                        .arg(i)
                        .arg(i / 200 * 100);
        else
            text += QStringLiteral("        value_%1 = function(name, %1) * 2\n").arg(i);
    }
    return text;
}

void Repeat(benchmark::State& state, int count, const std::function<void(int)>& step)
{
    Steps steps;
    for (auto _ : state) {
        for (int i = 0; i < count; ++i) {
            QElapsedTimer clock;
            clock.start();
            step(i);
            Settle();
            steps.Add(clock);
        }
        steps.Report(state);
    }
}

void Open(benchmark::State& state, const MakeEditor& make)
{
    // Taking a text down again is nobody's waiting time.
    std::vector<Editor> editors;
    for (auto _ : state) {
        editors.push_back(make());
        ShowWith(*editors.back(), LongText());
    }
}

void Type(benchmark::State& state, const MakeEditor& make)
{
    const Editor editor = make();
    ShowWith(*editor, LongText());
    editor->setTextCursor(QTextCursor(editor->document()->findBlockByNumber(LINES / 2)));
    editor->centerCursor();
    Settle();
    Repeat(state, KEYS, [&editor](int i) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QString(QChar('a' + i % 26)));
        QApplication::sendEvent(editor.get(), &press);
    });
}

/// A person's Python with every aid on: brackets and quotes that close themselves and are typed
/// over, lines that indent themselves, a step taken back.
void TypeCode(benchmark::State& state, const MakeEditor& make)
{
    static const QString CODE
        = QStringLiteral("if value(name[1], 'x') == {'a': (1, 2)}:\nprint(\"text\")\n\b");
    const Editor editor = make();
    ShowWith(*editor, LongText());
    QTextCursor cursor(editor->document()->findBlockByNumber(LINES / 2));
    cursor.insertText(QStringLiteral("\n"));
    cursor.movePosition(QTextCursor::PreviousBlock);
    editor->setTextCursor(cursor);
    editor->centerCursor();
    WaitUntilIdle();
    Repeat(state, KEYS, [&editor](int i) {
        const QChar character = CODE.at(i % CODE.size());
        const int key = character == QLatin1Char('\n') ? int(Qt::Key_Return)
            : character == QLatin1Char('\b')           ? int(Qt::Key_Backspace)
                                                       : int(character.toUpper().unicode());
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, character);
        QApplication::sendEvent(editor.get(), &press);
    });
}

/// One line that gets longer than any view.
void TypeLongLine(benchmark::State& state, const MakeEditor& make)
{
    static const QString CODE = QStringLiteral("value_1(name[2], 'x') + other * 3.5 - ");
    const Editor editor = make();
    ShowWith(*editor, LongText().left(20000));
    editor->setTextCursor(QTextCursor(editor->document()->findBlockByNumber(200)));
    editor->textCursor().insertText(QStringLiteral("\n"));
    editor->moveCursor(QTextCursor::PreviousBlock);
    WaitUntilIdle();
    Repeat(state, LINE_LENGTH, [&editor](int i) {
        const QChar character = CODE.at(i % CODE.size());
        QKeyEvent press(QEvent::KeyPress, int(character.toUpper().unicode()), Qt::NoModifier,
            QString(character));
        QApplication::sendEvent(editor.get(), &press);
    });
}

/// Of this thread alone: a busy machine makes no turn longer.
double CpuTime()
{
    timespec now = {};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return now.tv_sec + now.tv_nsec / 1e9;
}

/// The longest turn of the event loop while somebody types and the lists of names come, which they
/// must at every "|".
void OfferNames(benchmark::State& state, const QString& text, const QString& keys)
{
    CodeEditor editor(Properties(0, CodeEditorLanguage::Python), &Bindings());
    ShowWith(editor, text);
    editor.setFocus();
    QTextCursor cursor(editor.document()->findBlockByNumber(editor.blockCount() / 20 * 10 + 5));
    cursor.insertText(QStringLiteral("        \n"));
    cursor.movePosition(QTextCursor::PreviousCharacter);
    editor.setTextCursor(cursor);
    editor.centerCursor();
    WaitUntilIdle();
    double longest = 0;
    bool wasPause = false; // the text was told of, which nobody waits for
    QObject::connect(&editor, &CodeEditor::TextChanged, [&wasPause] { wasPause = true; });
    const auto turn = [&](const std::function<void()>& press) {
        wasPause = false;
        const double start = CpuTime();
        press();
        QApplication::processEvents();
        if (!wasPause)
            longest = std::max(longest, CpuTime() - start);
    };
    const auto isOffered = [&editor] {
        const auto* completer = editor.findChild<AutoCompleter*>();
        return completer && completer->isVisible();
    };
    for (auto _ : state) {
        for (const QChar key : keys) {
            if (key == QLatin1Char('|')) {
                QElapsedTimer patience;
                for (patience.start(); !isOffered() && patience.elapsed() < OFFER_WAIT;)
                    turn([] {});
                if (!isOffered())
                    state.SkipWithError("no names are offered");
                continue;
            }
            turn([&] {
                QKeyEvent press(QEvent::KeyPress,
                    key == QLatin1Char('\n') ? int(Qt::Key_Return) : int(key.toUpper().unicode()),
                    Qt::NoModifier, key);
                QApplication::sendEvent(&editor, &press);
            });
        }
        state.SetIterationTime(longest);
    }
}

/// One command on all lines, each of which ends in blanks.
void EditAllLines(benchmark::State& state, const std::function<void(CodeEditor&)>& command)
{
    const QString text = QString(LongText()).replace(QLatin1String("\n"), QLatin1String("  \n"));
    for (auto _ : state) {
        state.PauseTiming();
        CodeEditor editor(Properties(0, CodeEditorLanguage::Python), &Bindings());
        ShowWith(editor, text);
        WaitUntilIdle();
        editor.SetCursorSelection(0, editor.document()->characterCount() - 1);
        Settle();
        state.ResumeTiming();
        command(editor);
        Settle();
        state.PauseTiming();
        const bool hasEdited = editor.GetText() != text;
        editor.undo();
        if (!hasEdited || editor.document()->isUndoAvailable() || editor.GetText() != text)
            state.SkipWithError("not one step to undo");
        state.ResumeTiming();
    }
}

void Scroll(benchmark::State& state, const MakeEditor& make)
{
    const Editor editor = make();
    ShowWith(*editor, LongText());
    Repeat(state, SCROLL_STEPS, [&editor](int) {
        QScrollBar* const bar = editor->verticalScrollBar();
        bar->setValue(bar->value() + 3);
    });
}

void SwitchTabs(benchmark::State& state)
{
    CodeEditorGroup group(0, &Bindings(), nullptr, nullptr);
    group.resize(SIZE);
    for (int i = 0; i < TABS; ++i) {
        const QString text = i % (TABS / LONG_TABS) == 1 ? LongText() : LongText().left(20000);
        group.InsertCodeEditor(i, Properties(i), text);
    }
    group.show();
    WaitUntilIdle();
    Repeat(state, TABS * 2, [&group](int i) { group.SetCurrentIndex((i * 17) % TABS); });
}

benchmark::internal::Benchmark* Register(
    const char* name, const std::function<void(benchmark::State&)>& run)
{
    return benchmark::RegisterBenchmark(name, run)->Unit(benchmark::kMillisecond)->Iterations(1);
}

void RegisterOffer(const char* name, const QString& text, const QString& keys)
{
    Register(name, [text, keys](auto& state) { OfferNames(state, text, keys); })->UseManualTime();
    TimeGoal(name, FRAME);
}

using Run = void (*)(benchmark::State&, const MakeEditor&);

void RegisterPair(const std::string& name, Run run, double goal, const MakeEditor& make = MakeOurs)
{
    Register(name.c_str(), [run, make](auto& state) { run(state, make); })->UseRealTime();
    Register((name + "/floor").c_str(), [run](auto& state) {
        run(state, MakeBare);
    })->UseRealTime();
    RatioGoal(name.c_str(), goal);
}

/// By the median of the presses: the rare long ones are a goal of their own.
void RegisterKeys(const std::string& name, Run run, double goal, const MakeEditor& make = MakeOurs)
{
    Register(name.c_str(), [run, make](auto& state) { run(state, make); })->UseManualTime();
    Register((name + "/floor").c_str(), [run](auto& state) {
        run(state, MakeBare);
    })->UseManualTime();
    RatioGoal(name.c_str(), goal);
}

void RegisterLines(const char* name, const std::function<void(CodeEditor&)>& command)
{
    Register(name, [command](auto& state) { EditAllLines(state, command); })->UseRealTime();
    TimeGoal(name, 500);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    // Python completion asks the host's interpreter.
    const QTemporaryDir preferences;
    host::Host host(host::RunState::Interactive, preferences.path());
    host.Start();
    MayaUtil::SourceApplicationScripts();
    RegisterPair("open_100k_lines", Open, 1.05);
    RegisterKeys("type_in_the_middle", Type, 1.5);
    RegisterKeys("type_a_long_line", TypeLongLine, 2, MakePython);
    RegisterPair("scroll", Scroll, 2);
    Register("switch_tabs", SwitchTabs)->UseManualTime();
    RegisterKeys("type_code_with_aids", TypeCode, 2, MakePython);
    RegisterOffer("names_of_100k_lines", LongText(), QStringLiteral("x = val|ue_7(fu|nc\n"));
    RegisterOffer("names_of_10k_lines_of_classes", ClassText(10000),
        QStringLiteral("x = val|ue_7(Cl|ass_1, self.|val|ue_)\n"));
    RegisterLines("comment_100k_lines", &CodeEditor::ToggleComment);
    RegisterLines("indent_100k_lines", [](CodeEditor& editor) { editor.IncreaseIndent(false); });
    RegisterLines(
        "trim_100k_lines", [](CodeEditor& editor) { editor.TrimTrailingWhiteSpaces(true); });
    RegisterLines("move_100k_lines", [](CodeEditor& editor) {
        editor.SetCursorSelection(editor.document()->findBlockByNumber(1).position(),
            editor.document()->characterCount() - 1);
        editor.MoveLine(true);
    });
    return RunBenchmarks(argc, argv);
}
