// What the console costs beside a bare text widget that is appended to line by line.

#include "RatioMain.h"
#include "editor/FindReplaceWidget.h"
#include "output/OutputTextEdit.h"
#include "settings/ColorSettings.h"
#include "settings/KeyBindings.h"
#include "settings/Settings.h"

#include <QApplication>

#include <benchmark/benchmark.h>
#include <functional>
#include <memory>

namespace {

constexpr int BURST_LINES = 100000;
constexpr int SINGLE_LINES = 10000; // one per turn of the event loop
constexpr int BIG_TEXT_CHARACTERS = 20 * 1000 * 1000;
constexpr int LONG_LINE_CHARACTERS = 5 * 1000 * 1000;
constexpr int LONG_LINE_PIECES = 1000; // of which each is printed in a turn of its own
const QSize SIZE(1000, 400);

/// Like what hosts print: most of it plain, now and then a line that a rule colours.
QString Line(int number)
{
    switch (number % 10) {
    case 3: return QStringLiteral("// Result: %1 //").arg(number);
    case 7: return QStringLiteral("# Warning: line %1 is odd #").arg(number);
    default:
        return QStringLiteral("setAttr \"pCube%1.translateX\" %2;").arg(number).arg(number * 3);
    }
}

const QStringList& Lines()
{
    static const QStringList lines = [] {
        QStringList all;
        for (int i = 0; i < BURST_LINES; ++i)
            all.append(Line(i));
        return all;
    }();
    return lines;
}

const QString& BigText()
{
    static const QString text = [] {
        QString all;
        for (int i = 0; all.size() < BIG_TEXT_CHARACTERS; ++i)
            all += Line(i) + QLatin1Char('\n');
        return all;
    }();
    return text;
}

/// What a script prints that forgets its line ends, such as a list of all there is.
const QString& LongLine()
{
    static const QString line = [] {
        QString all;
        for (int i = 0; all.size() < LONG_LINE_CHARACTERS; ++i)
            all += QStringLiteral("'pCube%1', ").arg(i);
        return all.left(LONG_LINE_CHARACTERS);
    }();
    return line;
}

void Settle()
{
    for (int turn = 0; turn < 3; ++turn)
        QApplication::processEvents();
}

KeyBindings& Bindings()
{
    static KeyBindings bindings;
    return bindings;
}

std::unique_ptr<OutputTextEdit> MakeConsole()
{
    auto console = std::make_unique<OutputTextEdit>(&Bindings());
    console->SetLineLimit(Settings::outputBufferSize);
    console->resize(SIZE);
    console->show();
    Settle();
    return console;
}

/// The floor: the toolkit's widget with the same limit and font.
std::unique_ptr<QPlainTextEdit> MakeBare()
{
    auto bare = std::make_unique<QPlainTextEdit>();
    bare->setReadOnly(true);
    bare->setUndoRedoEnabled(false);
    bare->setFont(Settings::outputFont);
    bare->setLineWrapMode(QPlainTextEdit::NoWrap);
    bare->setMaximumBlockCount(Settings::outputBufferSize);
    bare->resize(SIZE);
    bare->show();
    Settle();
    return bare;
}

/// A faster console that shows something else is no faster console.
void Check(benchmark::State& state, const QString& text, QStringList expected)
{
    expected = expected.mid(qMax(0, expected.size() - Settings::outputBufferSize));
    if (text != expected.join(QLatin1Char('\n')))
        state.SkipWithError("the console's text is not what was appended");
}

QStringList WithLastLineEmpty(QStringList lines)
{
    lines.append(QString());
    return lines;
}

void Burst(benchmark::State& state)
{
    const auto console = MakeConsole();
    for (auto _ : state) {
        for (const QString& line : Lines())
            console->AppendText(line + QLatin1Char('\n'));
        Settle();
    }
    Check(state, console->GetText(), WithLastLineEmpty(Lines()));
}

void BareBurst(benchmark::State& state)
{
    const auto bare = MakeBare();
    for (auto _ : state) {
        for (const QString& line : Lines())
            bare->appendPlainText(line);
        Settle();
    }
    Check(state, bare->toPlainText(), Lines());
}

void BigAppend(benchmark::State& state)
{
    const auto console = MakeConsole();
    const QString text = BigText();
    for (auto _ : state) {
        console->AppendText(text);
        Settle();
    }
    Check(state, console->GetText(), text.split(QLatin1Char('\n')));
}

void BareBigAppend(benchmark::State& state)
{
    const auto bare = MakeBare();
    const QString text = BigText();
    for (auto _ : state) {
        bare->appendPlainText(text);
        Settle();
    }
    Check(state, bare->toPlainText(), text.split(QLatin1Char('\n')));
}

void OnePerTurn(benchmark::State& state)
{
    const auto console = MakeConsole();
    for (auto _ : state) {
        for (int i = 0; i < SINGLE_LINES; ++i) {
            console->AppendText(Lines()[i] + QLatin1Char('\n'));
            QApplication::processEvents();
        }
        // With what waits for the next frame, and its painting.
        console->extraSelections();
        Settle();
    }
    Check(state, console->GetText(), WithLastLineEmpty(Lines().mid(0, SINGLE_LINES)));
}

/// The worst case: somebody reads after every line, so that each is inserted, marked and painted.
void OnePerFrame(benchmark::State& state)
{
    const auto console = MakeConsole();
    for (auto _ : state) {
        for (int i = 0; i < SINGLE_LINES; ++i) {
            console->AppendText(Lines()[i] + QLatin1Char('\n'));
            console->extraSelections();
            QApplication::processEvents();
        }
    }
    Check(state, console->GetText(), WithLastLineEmpty(Lines().mid(0, SINGLE_LINES)));
}

void BareOnePerTurn(benchmark::State& state)
{
    const auto bare = MakeBare();
    for (auto _ : state) {
        for (int i = 0; i < SINGLE_LINES; ++i) {
            bare->appendPlainText(Lines()[i]);
            QApplication::processEvents();
        }
    }
    Check(state, bare->toPlainText(), Lines().mid(0, SINGLE_LINES));
}

void LongLineAtOnce(benchmark::State& state)
{
    const auto console = MakeConsole();
    for (auto _ : state) {
        console->AppendText(LongLine());
        Settle();
    }
    Check(state, console->GetText(), {LongLine()});
}

void BareLongLine(benchmark::State& state)
{
    const auto bare = MakeBare();
    for (auto _ : state) {
        bare->appendPlainText(LongLine());
        Settle();
    }
    Check(state, bare->toPlainText(), {LongLine()});
}

void LongLineInPieces(benchmark::State& state)
{
    const auto console = MakeConsole();
    const int size = LONG_LINE_CHARACTERS / LONG_LINE_PIECES;
    for (auto _ : state) {
        for (int i = 0; i < LONG_LINE_PIECES; ++i) {
            console->AppendText(LongLine().mid(i * size, size));
            QApplication::processEvents();
        }
        console->extraSelections();
        Settle();
    }
    Check(state, console->GetText(), {LongLine()});
}

/// From one match to the next within the line, of which every word is one.
void LongLineFindNext(benchmark::State& state)
{
    const auto console = MakeConsole();
    console->AppendText(LongLine());
    console->ShowFindReplace(false, true);
    console->GetFindReplace()->SetSearchText(QStringLiteral("pCube"));
    Settle();
    const int before = console->GetSelectedStartPosition();
    for (auto _ : state) {
        console->FindNext();
        Settle();
    }
    if (console->GetSelectedText() != QLatin1String("pCube")
        || console->GetSelectedStartPosition() == before)
        state.SkipWithError("the next match is not selected");
}

/// A word typed into the find bar, every letter of which is found everywhere in the line.
void LongLineSearch(benchmark::State& state)
{
    const QString word = QStringLiteral("pCube");
    const auto console = MakeConsole();
    console->AppendText(LongLine());
    console->ShowFindReplace(false, true);
    for (auto _ : state) {
        for (int length = 1; length <= word.size(); ++length) {
            console->GetFindReplace()->SetSearchText(word.left(length));
            Settle();
        }
    }
    if (console->GetSelectedText() != word)
        state.SkipWithError("the word is not found");
}

void Register(const char* name, void (*run)(benchmark::State&))
{
    benchmark::RegisterBenchmark(name, run)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->Iterations(1);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    // With the built-in rules on.
    ColorSettings::Initialize();
    Register("burst_of_100k_lines", Burst);
    Register("burst_of_100k_lines/floor", BareBurst);
    RatioGoal("burst_of_100k_lines", 0.01);
    Register("20_megabytes_at_once", BigAppend);
    Register("20_megabytes_at_once/floor", BareBigAppend);
    RatioGoal("20_megabytes_at_once", 0.01);
    Register("one_line_per_turn", OnePerTurn);
    Register("one_line_per_turn/floor", BareOnePerTurn);
    RatioGoal("one_line_per_turn", 0.25);
    Register("one_line_per_frame", OnePerFrame);
    Register("one_line_per_frame/floor", BareOnePerTurn);
    RatioGoal("one_line_per_frame", 3.3);
    Register("long_line_at_once", LongLineAtOnce);
    Register("long_line_at_once/floor", BareLongLine);
    RatioGoal("long_line_at_once", 0.1);
    Register("long_line_in_pieces", LongLineInPieces);
    TimeGoal("long_line_in_pieces", 2000);
    Register("long_line_find_next", LongLineFindNext);
    TimeGoal("long_line_find_next", 100);
    Register("long_line_search", LongLineSearch);
    TimeGoal("long_line_search", 500);
    return RunBenchmarks(argc, argv);
}
