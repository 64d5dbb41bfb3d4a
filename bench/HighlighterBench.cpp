// What colouring a long script costs beside the same text left plain, and beside the rules written
// down as expressions.

#include "NaiveHighlighting.h"
#include "RatioMain.h"
#include "language/PythonHighlighter.h"
#include "language/WordSet.h"
#include "plugin/MayaUtil.h"
#include "settings/ColorSettings.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QTextBlock>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <functional>
#include <memory>

namespace {

constexpr int LINES = 100000;
constexpr int MANY_LINES = 1000000;
constexpr int KEYS = 400;
const QSize SIZE(1000, 800);

QString MakeScript(int lines)
{
    static const QStringList BODY{"class Thing%1(object):\n", "    \"\"\"Holds number %1.\"\"\"\n",
        "    def method_%1(self, name, count=%1):\n", "        # what is asked for most\n",
        "        return len(name) + count * 2.5\n", "\n", "@decorated\n",
        "def function_%1(values):\n", "    for value in values:\n",
        "        print('value %1', value, \"and \\\" more\")\n"};
    QString script;
    for (int i = 0; i < lines; ++i)
        script
            += QString(BODY.at(i % BODY.size())).replace(QLatin1String("%1"), QString::number(i));
    return script;
}

const QString& Script()
{
    static const QString script = MakeScript(LINES);
    return script;
}

const QString& LongScript()
{
    static const QString script = MakeScript(MANY_LINES);
    return script;
}

class NaiveHighlighter : public QSyntaxHighlighter
{
public:
    explicit NaiveHighlighter(QTextDocument* document)
        : QSyntaxHighlighter(document)
    { }

protected:
    void highlightBlock(const QString& text) override
    {
        setCurrentBlockState(m_rules.Highlight(
            text, previousBlockState(), [this](int start, int length, const QString& role) {
                setFormat(start, length, ColorSettings::GetCodeEditorFormat(role, false));
            }));
    }

private:
    const NaiveHighlighting m_rules{NaiveHighlighting::Python};
};

/// A text widget that may have our highlighter, and then has it colour what is painted.
class Editor : public QPlainTextEdit
{
public:
    explicit Editor(bool colours)
    {
        setFont(QFont(QStringLiteral("DejaVu Sans Mono"), 10));
        setLineWrapMode(NoWrap);
        resize(SIZE);
        if (colours) {
            highlighter = new PythonHighlighter(document());
            connect(this, &QPlainTextEdit::updateRequest, this, &Editor::ColourView);
        }
    }

    void ShowText(const QString& text)
    {
        setPlainText(text);
        show();
        QApplication::processEvents();
    }

    void WaitUntilColoured() const
    {
        while (highlighter && !highlighter->IsComplete())
            QApplication::processEvents();
    }

    /// The longest turn of the event loop, in seconds, until there is nothing left to colour.
    double LongestTurn() const
    {
        double longest = 0;
        do {
            QElapsedTimer clock;
            clock.start();
            QApplication::processEvents();
            longest = qMax(longest, clock.nsecsElapsed() / 1e9);
        } while (!highlighter->IsComplete());
        return longest;
    }

    void Type(QChar character)
    {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QString(character));
        QApplication::sendEvent(this, &press);
    }

    PythonHighlighter* highlighter = nullptr;

private:
    void ColourView()
    {
        const QTextBlock first = firstVisibleBlock();
        const int lines = viewport()->height() / fontMetrics().lineSpacing() + 1;
        highlighter->EnsureHighlighted(first.blockNumber(), first.blockNumber() + lines);
    }
};

/// Texts are taken down again behind the measurement.
using Editors = std::vector<std::unique_ptr<Editor>>;

void Open(benchmark::State& state, bool colours)
{
    Editors editors;
    for (auto _ : state) {
        editors.push_back(std::make_unique<Editor>(colours));
        editors.back()->ShowText(Script());
    }
}

void FinishLong(benchmark::State& state, bool colours)
{
    Editors editors;
    for (auto _ : state) {
        editors.push_back(std::make_unique<Editor>(colours));
        editors.back()->ShowText(LongScript());
        editors.back()->WaitUntilColoured();
    }
}

/// All lines coloured, with nobody looking.
void ColourWhole(benchmark::State& state)
{
    Editor editor(false);
    editor.setPlainText(Script());
    for (auto _ : state) {
        PythonHighlighter highlighter(editor.document());
        while (!highlighter.IsComplete())
            QApplication::processEvents();
    }
}

void ColourWholeNaively(benchmark::State& state)
{
    Editor editor(false);
    editor.setPlainText(Script());
    for (auto _ : state) {
        NaiveHighlighter highlighter(editor.document());
        highlighter.rehighlight();
    }
}

void LongestTurnBehindOpening(benchmark::State& state)
{
    for (auto _ : state) {
        Editor editor(true);
        editor.ShowText(Script());
        state.SetIterationTime(editor.LongestTurn());
    }
}

void LongestTurnOfQuotesAtTheTop(benchmark::State& state)
{
    for (auto _ : state) {
        Editor editor(true);
        editor.ShowText(Script());
        editor.WaitUntilColoured();
        double longest = 0;
        for (int quote = 0; quote < 3; ++quote) {
            QElapsedTimer clock;
            clock.start();
            editor.Type(QLatin1Char('"'));
            longest = qMax(longest, clock.nsecsElapsed() / 1e9);
            longest = qMax(longest, editor.LongestTurn());
        }
        state.SetIterationTime(longest);
    }
}

void KeysInTheMiddle(benchmark::State& state)
{
    for (auto _ : state) {
        Editor editor(true);
        editor.ShowText(Script());
        editor.setTextCursor(QTextCursor(editor.document()->findBlockByNumber(LINES / 2)));
        editor.centerCursor();
        editor.WaitUntilColoured();
        std::vector<double> times;
        for (int key = 0; key < KEYS; ++key) {
            QElapsedTimer clock;
            clock.start();
            editor.Type(QLatin1Char(char('a' + key % 26)));
            QApplication::processEvents();
            times.push_back(clock.nsecsElapsed() / 1e9);
        }
        std::sort(times.begin(), times.end());
        state.SetIterationTime(times[times.size() * 99 / 100]);
    }
}

/// Knows a vocabulary of any size and nothing else.
class VocabularyHighlighter : public Highlighter
{
public:
    VocabularyHighlighter(QTextDocument* document, const QStringList& words)
        : Highlighter(document, {}, {ColorSettings::MEL_COMMANDS})
        , m_words(words)
    { }

protected:
    void HighlightKeywords(QStringView text, LineRoles& roles) const override
    {
        LineWords::FillWords(text, LineWords::Letters, m_words, 0, roles);
    }

private:
    const WordSet m_words;
};

void ColourWith(benchmark::State& state, int names)
{
    Editor editor(false);
    editor.setPlainText(Script());
    const QStringList words = MayaUtil::MelProcedures().mid(0, names);
    for (auto _ : state) {
        VocabularyHighlighter highlighter(editor.document(), words);
        while (!highlighter.IsComplete())
            QApplication::processEvents();
    }
}

benchmark::internal::Benchmark* Register(const char* name, void (*run)(benchmark::State&))
{
    return benchmark::RegisterBenchmark(name, run)->Unit(benchmark::kMillisecond)->Iterations(1);
}

/// A benchmark and its floor.
void RegisterPair(const std::string& name, void (*run)(benchmark::State&),
    void (*floor)(benchmark::State&), double goal)
{
    Register(name.c_str(), run)->UseRealTime();
    Register((name + "/floor").c_str(), floor)->UseRealTime();
    RatioGoal(name.c_str(), goal);
}

void RegisterLongest(const char* name, void (*run)(benchmark::State&), double goal)
{
    Register(name, run)->UseManualTime();
    TimeGoal(name, goal);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    ColorSettings::Initialize();
    RegisterPair(
        "open_100k_lines", [](auto& state) { Open(state, true); },
        [](auto& state) { Open(state, false); }, 1.1);
    RegisterPair(
        "finish_1M_lines", [](auto& state) { FinishLong(state, true); },
        [](auto& state) { FinishLong(state, false); }, 1.2);
    RegisterPair("colour_100k_lines", ColourWhole, ColourWholeNaively, 0.25);
    RegisterPair(
        "vocabulary_of_18000", [](auto& state) { ColourWith(state, 18000); },
        [](auto& state) { ColourWith(state, 200); }, 1.1);
    RegisterLongest("longest_turn_behind_opening", LongestTurnBehindOpening, 8);
    RegisterLongest("longest_turn_of_quotes_at_the_top", LongestTurnOfQuotesAtTheTop, 8);
    RegisterLongest("p99_of_keys_in_the_middle", KeysInTheMiddle, 2);
    return RunBenchmarks(argc, argv);
}
