#include "editing/BracketEdits.h"
#include "editing/EditedText.h"
#include "editing/IndentEdits.h"
#include "editing/NewLineEdits.h"
#include "support/TestMain.h"

#include <QtTest>

namespace {

void AddColumns()
{
    Columns<QString, QString, QString, QString>("options", "before", "key", "after");
}

/// True unless it was a Backspace that is left to the text widget.
bool Press(EditedText& text, QChar key)
{
    if (key == '\n')
        InsertNewLine(text.cursor, text.options, text.Source());
    else if (key == '\b')
        return InsertBackspace(text.cursor, text.options, text.Source());
    else if (QString("([{").contains(key))
        InsertOpeningBrace(text.cursor, key, text.options, text.Source());
    else if (QString(")]}").contains(key))
        InsertClosingBrace(text.cursor, key, text.options, text.Source());
    else
        InsertQuote(text.cursor, key, text.options, text.Source());
    return true;
}

void PressAndCompare()
{
    QFETCH(QString, options);
    QFETCH(QString, before);
    QFETCH(QString, key);
    EditedText text(options, before);
    Press(text, key.at(0));
    QTEST(text.Marked(), "after");
    QCOMPARE(text.FaultOfHistory(), QString());
}

} // namespace

/// What single keys do; "\n" is Return, "\b" Backspace.
class TypingEditsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void BreaksLines_data();
    void BreaksLines() { PressAndCompare(); }
    void TypesPairs_data();
    void TypesPairs() { PressAndCompare(); }
    void ErasesPairsAndSteps_data();
    void ErasesPairsAndSteps();
    void GoesHome();
};

void TypingEditsTest::BreaksLines_data()
{
    AddColumns();
    // clang-format off
    Row("keeps the indent", "", "  a|b", "\n", "  a\n  |b");
    Row("within the indent", "", "  |  a", "\n", "  \n  |  a");
    Row("in the editor's style", "tabs", "  \t  a|", "\n", "  \t  a\n\t  |");
    Row("without auto indent", "python smart flat", "  if x:|", "\n", "  if x:\n|");
    Row("in place of a selection", "", " a<b\nc|d", "\n", " a\n |d");
    Row("python: a step behind a colon", "python smart", "if x:|", "\n", "if x:\n    |");
    Row("python: a tab as a step", "python smart tabs", "\tif x: |", "\n", "\tif x: \n\t\t|");
    Row("python: no smart indent", "python", "if x:|", "\n", "if x:\n|");
    Row("python: splits a pair", "python smart", " x = {|}", "\n", " x = {\n     |\n }");
    Row("python: no pair without a step", "python", "[|]", "\n", "[\n|]");
    Row("python: aligned with the first argument", "python smart aligned", "foo(a,| b)", "\n", "foo(a,\n    | b)");
    Row("python: aligned, inner bracket of another kind", "python aligned", "foo([a,|", "\n", "foo([a,\n     |");
    Row("python: aligned by tabs", "python aligned tabs", "value(a,|", "\n", "value(a,\n\t  |");
    Row("python: a bracket in a string aligns nothing", "python aligned", "  f = '(',|", "\n", "  f = '(',\n  |");
    Row("python: back to the statement", "python smart", "  foo(a,\n      b)|", "\n", "  foo(a,\n      b)\n  |");
    Row("python: block of a statement in two lines", "python", "  def f(a,\n        b):|", "\n", "  def f(a,\n        b):\n      |");
    Row("python: opener in a comment is none", "python smart", "  foo(\n # (\n      b)|", "\n", "  foo(\n # (\n      b)\n  |");
    Row("mel: splits curly braces", "mel smart", "  proc f() {|}", "\n", "  proc f() {\n      |\n  }");
    Row("mel: two braces, two steps", "mel smart", "{ {|", "\n", "{ {\n        |");
    Row("mel: one closed brace changes nothing", "mel smart", "    }|", "\n", "    }\n    |");
    Row("mel: the second closed brace goes back", "mel smart", "        }}|", "\n", "        }}\n    |");
    Row("mel: braces behind the cursor do not count", "mel smart", "{|}}}", "\n", "{\n    |\n}}}");
    Row("mel: a step behind a bracket", "mel smart", "ls [|", "\n", "ls [\n    |");
    Row("mel: only round brackets align", "mel aligned", "  {$a[1,|", "\n", "  {$a[1,\n  |");
    Row("mel: brace behind a statement in two lines", "mel", "  if ($a\n    + b) {|}", "\n", "  if ($a\n    + b) {\n      |\n  }");
    // clang-format on
}

void TypingEditsTest::TypesPairs_data()
{
    AddColumns();
    // clang-format off
    Row("closes at the end of a line", "python brackets", "f|\nx", "(", "f(|)\nx");
    Row("closes before a blank", "python brackets", "f| x", "[", "f[|] x");
    Row("closes before a bracket", "python brackets", "f(|)", "{", "f({|})");
    Row("only opens before a letter", "python brackets", "|x", "(", "(|x");
    Row("only opens in a string", "python brackets", "'a| b'", "(", "'a(| b'");
    Row("only opens in a comment at the end of its line", "mel brackets", "// a|", "(", "// a(|");
    Row("closes behind a closed string", "mel brackets", "\"a\"|", "[", "\"a\"[|]");
    Row("wraps a selection", "mel brackets", "a <b\nc| d", "{", "a {<b\nc|} d");
    Row("wraps a selection made backwards", "mel brackets", "|ab<", "(", "(|ab<)");
    Row("replaces a selection without closing", "mel", "a<b|c", "(", "a(|c");
    Row("a curly brace goes to its header's line", "mel smart", "  if ($a)\n      |", "{", "  if ($a)\n  {|");
    Row("and to an else, past comments", "mel smart", "  else // (\n\n|", "{", "  else // (\n\n  {|");
    Row("but stays in a list", "mel smart", "  int $a[] =\n    |", "{", "  int $a[] =\n    {|");
    Row("steps over the closer", "python brackets", "f(|)", ")", "f()|");
    Row("types a closer in its own right", "python", "f(|)", ")", "f()|)");
    Row("a closer replaces a selection", "python brackets", "f<(|)", ")", "f)|)");
    Row("a closer goes to its opener's line", "mel smart", "  if {\n    x { }\n    | ", "}", "  if {\n    x { }\n  }| ");
    Row("a closer without opener stays", "mel smart", "  /*{*/\n    |", "}", "  /*{*/\n    }|");
    Row("a closer stays with aligned arguments", "python smart aligned", "f(\n  |", ")", "f(\n  )|");
    Row("a closer behind code stays", "mel smart", "{\n  x|", "}", "{\n  x}|");
    Row("one quote behind a word", "python quotes", "ab|", "\"", "ab\"|");
    Row("one quote behind a digit", "python quotes", "a1|", "\"", "a1\"|");
    Row("one quote behind a letter of two units", "python quotes", "𝒜|", "\"", "𝒜\"|");
    Row("two quotes behind a sign", "python quotes", "x =|\ny", "'", "x ='|'\ny");
    Row("two quotes behind a picture", "python quotes", "😀|", "'", "😀'|'");
    Row("one quote before a word", "python quotes", "=|x", "'", "='|x");
    Row("one quote beside a quote of any kind", "mel quotes", "='|", "\"", "='\"|");
    Row("two quotes between brackets", "mel quotes", "f(|)", "`", "f(`|`)");
    Row("two quotes between opening square brackets", "python quotes", "[|[", "'", "['|'[");
    Row("steps over a quote", "python quotes", "'a|'", "'", "'a'|");
    Row("one quote in a string", "python quotes", "'a | b'", "\"", "'a \"| b'");
    Row("wraps in quotes", "python quotes", "a <b|", "'", "a '<b|'");
    Row("a quote replaces a selection", "python", "a <b|", "'", "a '|");
    Row("overwrites", "python overwrite", "|ab", "(", "(|b");
    Row("does not overwrite a line end", "python overwrite", "a|\nb", "(", "a(|\nb");
    // clang-format on
}

void TypingEditsTest::ErasesPairsAndSteps_data()
{
    AddColumns();
    // What is not handled stays, for the text widget to erase one character.
    // clang-format off
    Row("empty brackets", "python brackets", "f(|)", "\b", "f|");
    Row("square brackets", "python brackets", "f[|]", "\b", "f|");
    Row("another closer", "python brackets", "f(|]", "\b", "f(|]");
    Row("not with the option off", "python", "f(|)", "\b", "f(|)");
    Row("empty quotes", "python quotes", "a = '|'", "\b", "a = |");
    Row("quotes of another language", "mel quotes", "'|'", "\b", "'|'");
    Row("brackets in a string", "python brackets", "'(|)'", "\b", "'(|)'");
    Row("to the tab stop", "python stops", "      |x", "\b", "  |x");
    Row("the rest of a step", "python stops", "  |x", "\b", "|x");
    Row("within the indent", "python stops", "      |  x", "\b", "  |  x");
    Row("blanks in an open string", "python stops", "'''\n    |", "\b", "'''\n    |");
    Row("a selection", "python stops", "  <  |x", "\b", "  <  |x");
    // clang-format on
}

void TypingEditsTest::ErasesPairsAndSteps()
{
    QFETCH(QString, options);
    QFETCH(QString, before);
    QFETCH(QString, after);
    EditedText text(options, before);
    QCOMPARE(Press(text, '\b'), before != after);
    QCOMPARE(text.Marked(), after);
    QCOMPARE(text.FaultOfHistory(), QString());
}

void TypingEditsTest::GoesHome()
{
    EditedText text("", "x\n    ab|");
    for (const char* expected : {"x\n    |ab", "x\n|    ab", "x\n    |ab"}) {
        GoHome(text.cursor, false, false);
        QCOMPARE(text.Marked(), QString(expected));
    }
    GoHome(text.cursor, true, false);
    QCOMPARE(text.Marked(), "x\n|    <ab");
    GoHome(text.cursor, true, true);
    QCOMPARE(text.Marked(), "|x\n    <ab");
}

TE2_TEST(TypingEditsTest)
#include "TypingEditsTest.moc"
