// What finding costs in a text of 10 MB: from a key until all is counted, until the first match is
// shown, and replacing everything.

#include "RatioMain.h"
#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "editor/DocumentSearch.h"
#include "editor/FindReplaceWidget.h"
#include "editor/SearchExpression.h"
#include "settings/KeyBindings.h"
#include "window/chrome/FlatButton.h"

#include <QApplication>
#include <QElapsedTimer>

#include <benchmark/benchmark.h>
#include <memory>

namespace {

constexpr int LINES = 200000; ///< with the first half of them matching

const QString& LongText()
{
    static const QString text = [] {
        QString lines;
        for (int i = 0; i < LINES; ++i)
            lines += QStringLiteral("    %2_%1 = function(name, %1) * 2 + setAttr\n")
                         .arg(i)
                         .arg(2 * i < LINES ? QStringLiteral("value") : QStringLiteral("other"));
        return lines;
    }();
    return text;
}

/// A group whose bar is open over the long text.
class LongGroup
{
public:
    explicit LongGroup(CodeEditorLanguage language = CodeEditorLanguage::Text)
        : m_group(0, &m_keyBindings, nullptr, nullptr)
    {
        CodeEditorProperties properties;
        properties.language = language;
        properties.label = QStringLiteral("long");
        m_group.SetParsingEnabled(false);
        m_group.InsertCodeEditor(0, properties, LongText());
        m_group.resize(1000, 800);
        m_group.show();
        m_group.ShowFindReplace(true, false, true, false);
        Settle();
    }

    CodeEditor& Editor() { return *m_group.GetCurrent(); }
    CodeEditorGroup& Group() { return m_group; }
    void UseExpressions()
    {
        m_group.findChild<FlatButton*>(QStringLiteral("m_regularExpressionButton"))->click();
    }

    static void Settle()
    {
        for (int turn = 0; turn < 3; ++turn)
            QApplication::processEvents();
    }

    /// Until all is counted; the longest time that a key would have had to wait, in ms.
    double Count()
    {
        double longest = 0;
        while (!Editor().GetSearch().IsFinished()) {
            QElapsedTimer clock;
            clock.start();
            QApplication::processEvents();
            longest = qMax(longest, clock.nsecsElapsed() / 1e6);
        }
        return longest;
    }

private:
    KeyBindings m_keyBindings;
    CodeEditorGroup m_group;
};

/// The last key of what is sought, until the count stands.
void Count(benchmark::State& state, const char* text, bool expression)
{
    LongGroup group;
    if (expression)
        group.UseExpressions();
    const QString sought = QString::fromLatin1(text);
    double longest = 0;
    for (auto _ : state) {
        state.PauseTiming();
        group.Group().SetSearchText(sought.chopped(1));
        group.Count();
        LongGroup::Settle();
        state.ResumeTiming();
        group.Group().SetSearchText(sought);
        longest = qMax(longest, group.Count());
    }
    state.counters["turn_ms"] = longest;
}

/// A key in the text while the bar is open.
void CountAfterEdit(benchmark::State& state)
{
    LongGroup group;
    group.Group().SetSearchText(QStringLiteral("value"));
    group.Count();
    group.Editor().SetCursorPosition(LongText().size() / 3, false, false);
    for (auto _ : state) {
        group.Editor().textCursor().insertText(QStringLiteral("x"));
        group.Count();
    }
}

/// A key in the field until the match is selected, far from the cursor.
void FirstMatch(benchmark::State& state)
{
    LongGroup group;
    for (auto _ : state) {
        state.PauseTiming();
        group.Group().SetSearchText(QString());
        group.Editor().SetCursorPosition(0, false, false);
        LongGroup::Settle();
        state.ResumeTiming();
        group.Group().SetSearchText(QStringLiteral("other"));
        while (!group.Editor().textCursor().hasSelection())
            QApplication::processEvents();
    }
}

void ReplaceAll(benchmark::State& state, CodeEditorLanguage language)
{
    const QRegularExpression expression
        = CreateSearchRegEx(QStringLiteral("value"), true, false, false);
    for (auto _ : state) {
        state.PauseTiming();
        auto group = std::make_unique<LongGroup>(language);
        state.ResumeTiming();
        group->Editor().ReplaceAll(expression, QStringLiteral("longer_value"), false);
        LongGroup::Settle();
        state.PauseTiming();
        group.reset();
        state.ResumeTiming();
    }
}

void Register(const char* name, double goal, const std::function<void(benchmark::State&)>& run)
{
    benchmark::RegisterBenchmark(name, run)
        ->Unit(benchmark::kMillisecond)
        ->Iterations(1)
        ->UseRealTime();
    TimeGoal(name, goal);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    Register("count", 50, [](auto& state) { Count(state, "value_1", false); });
    Register("count_rare", 50, [](auto& state) { Count(state, "needle", false); });
    Register("count_expression", 200, [](auto& state) { Count(state, "val(u)e_\\d+", true); });
    Register("count_after_edit", 50, CountAfterEdit);
    Register("first_match", 50, FirstMatch);
    Register("replace_all", 2000, [](auto& state) { ReplaceAll(state, CodeEditorLanguage::Text); });
    Register("replace_all_python", 4000,
        [](auto& state) { ReplaceAll(state, CodeEditorLanguage::Python); });
    return RunBenchmarks(argc, argv);
}
