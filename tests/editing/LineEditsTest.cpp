#include "editing/LineEdits.h"

#include "editing/CommentEdits.h"
#include "editing/EditedText.h"
#include "editing/IndentEdits.h"
#include "support/TestMain.h"

#include <QtTest>

/// Commands that work on whole lines.
class LineEditsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void EditsLines_data();
    void EditsLines();
    void AddsNoStepWithoutAnEdit_data();
    void AddsNoStepWithoutAnEdit();
    void KeepsTypingApart();
};

namespace {

using Command = void (*)(EditedText& text);

const QHash<QString, Command>& Commands()
{
    static const QHash<QString, Command> COMMANDS = {
        {"indent", [](EditedText& text) { IncreaseIndent(text.cursor, false, text.options); }},
        {"force", [](EditedText& text) { IncreaseIndent(text.cursor, true, text.options); }},
        {"dedent", [](EditedText& text) { DecreaseIndent(text.cursor, text.options); }},
        {"spaces", [](EditedText& text) { ConvertTabsToSpaces(text.cursor, text.options); }},
        {"comment", [](EditedText& text) { ToggleComment(text.cursor, text.options); }},
        {"block",
            [](EditedText& text) { ToggleBlockComment(text.cursor, text.options, text.Source()); }},
        {"up", [](EditedText& text) { MoveLine(text.cursor, true); }},
        {"down", [](EditedText& text) { MoveLine(text.cursor, false); }},
        {"copy up", [](EditedText& text) { CopyLine(text.cursor, true); }},
        {"copy down", [](EditedText& text) { CopyLine(text.cursor, false); }},
        {"delete", [](EditedText& text) { DeleteLines(text.cursor); }},
        {"put", [](EditedText& text) { InsertLineAbove(text.cursor, "new"); }},
        {"end", [](EditedText& text) { EnsureNewLineAtEof(text.cursor); }},
        {"trim", [](EditedText& text) { TrimTrailingWhiteSpaces(text.cursor, false); }},
        {"trim+end", [](EditedText& text) { TrimTrailingWhiteSpaces(text.cursor, true); }},
    };
    return COMMANDS;
}

} // namespace

void LineEditsTest::EditsLines_data()
{
    Columns<QString, QString, QString, QString>("options", "command", "before", "after");
    // clang-format off
    Row("step at the cursor", "size=3", "indent", "a|b", "a   |b");
    Row("step in place of a selection", "tabs", "indent", "a<b|", "a\t|");
    Row("step for a line", "", "force", "a|b", "    a|b");
    Row("step for lines, blank ones too", "", "indent", "a<b\n\n  c|", "    a<b\n    \n      c|");
    Row("not for the line that the selection ends before", "", "indent", "<a\nb\n|c", "    <a\n    b\n|c");
    Row("one line selected with its end", "", "indent", "<a\n|b", "    <a\n|b");
    Row("indent gets the editor's style", "tabs", "indent", "<      a\nb|", "\t<\t  a\n\tb|");
    Row("step away", "", "dedent", "      a|", "  a|");
    Row("less than a step", "", "dedent", "  a<b\n\tc\n|  d", "a<b\nc\n|  d");
    Row("leading tabs to their stops", "python", "spaces", "\ta\t|= '\t'\n \t#\t", "    a\t|= '\t'\n    #\t");
    Row("a cursor between leading tabs", "python", "spaces", "\t|\ta", "    |    a");
    Row("leading tabs inside a string", "python", "spaces", "'''\n\ta'''|", "'''\n    a'''|");
    Row("tabs of selected lines", "", "spaces", "\ta\n<\tb\n|\tc", "\ta\n<    b\n|\tc");
    Row("comments in one column", "python", "comment", "        <a\n\n    b\n    c|", "    #     <a\n\n    # b\n    # c|");
    Row("uncomments", "python", "comment", "    #     <a\n\n    # b\n    # c|", "        <a\n\n    b\n    c|");
    Row("comments where some are", "mel", "comment", "// <a\nb|", "// // <a\n// b|");
    Row("a cursor at the marker goes behind it", "mel", "comment", "<a\nb\n|c", "// <a\n// b\n|c");
    Row("tabs give way first", "python", "comment", "<\ta\n  b\n\t|", "<  #   a\n  # b\n    |");
    Row("tabs stay in a script of tabs", "python tabs", "comment", "<\ta\n\t\tb|", "<\t# a\n\t# \tb|");
    Row("one line", "mel", "comment", "  a|b", "  // a|b");
    Row("one line, blank left alone", "mel", "comment", "  |", "  |");
    Row("uncomments without a blank", "mel", "comment", " //  a|", "  a|");
    Row("no comments in a text", "", "comment", "a|", "a|");
    Row("block comment round a selection", "mel", "block", "a <b\nc| d", "a /*<b\nc|*/ d");
    Row("block comment at the cursor", "mel", "block", "a | b", "a /*|*/ b");
    Row("block comment away", "mel", "block", "a /*<b\nc|*/ d", "a <b\nc| d");
    Row("block comment selected with its markers", "mel", "block", "</*b*/|", "<b|");
    Row("block comment that is never closed", "mel", "block", "/* a\nb|", " a\nb|");
    Row("behind a block comment", "mel", "block", "/*a*/|", "/*a*//*|*/");
    Row("in a line comment", "mel", "block", "a // b|", "// a // b|");
    Row("block comment in python", "python", "block", "a <b| c", "# a <b| c");
    Row("moves up", "", "up", "a\nb<b\nc|c\nd", "b<b\nc|c\na\nd");
    Row("moves up from the end", "", "up", "a\n|b", "|b\na");
    Row("moves down", "", "down", "a\n<b\nc\n|d\ne", "a\nd\n<b\nc\n|e");
    Row("moves down to the end", "", "down", "a|\nb", "b\na|");
    Row("copies down", "", "copy down", "a<a\nb|\nc", "aa\nb\na<a\nb|\nc");
    Row("copies up", "", "copy up", "a|", "a|\na");
    Row("copies lines with their end", "", "copy down", "<a\n|b", "a\n<a\n|b");
    Row("deletes", "", "delete", "a\nb|b\nc", "a\n|c");
    Row("deletes the last line", "", "delete", "a\nb|b", "a\n|");
    Row("deletes what is selected", "", "delete", "<a\nb\n|c", "|c");
    Row("puts a line above", "", "put", "a\nb|c", "a\nnew\nb|c");
    Row("ends the text", "", "end", "a<b|", "a<b|\n");
    Row("trims", "", "trim", "a \n \t\nb|", "a\n\nb|");
    Row("trims round the cursor", "", "trim", "a <  |  \nb", "a|\nb");
    Row("trims what is selected", "", "trim", "<a \n |\nb", "<a\n|\nb");
    Row("trims and ends", "", "trim+end", "a  \n\t\nb\t|", "a\n\nb|\n");
    Row("trims nothing but blanks", "", "trim+end", "  |", "|\n");
    // clang-format on
}

void LineEditsTest::EditsLines()
{
    QFETCH(QString, options);
    QFETCH(QString, command);
    QFETCH(QString, before);
    QFETCH(QString, after);
    EditedText text(options, before);
    Commands().value(command)(text);
    QCOMPARE(text.Marked(), after);
    QCOMPARE(text.document.isUndoAvailable(), before != after);
    QCOMPARE(text.FaultOfHistory(), QString());
}

void LineEditsTest::AddsNoStepWithoutAnEdit_data()
{
    Columns<QString, QString>("command", "marked");
    Row("first line up", "up", "a|\nb");
    Row("last line down", "down", "<a\nb|");
    Row("an empty last line", "delete", "a\n|");
    Row("no indent", "dedent", "a|");
    Row("ended", "end", "a\n|");
    Row("empty", "trim+end", "|");
    Row("trimmed", "trim+end", "a\n|");
}

void LineEditsTest::AddsNoStepWithoutAnEdit()
{
    QFETCH(QString, command);
    QFETCH(QString, marked);
    EditedText text("", marked);
    text.document.setModified(false);
    Commands().value(command)(text);
    QCOMPARE(text.Marked(), marked);
    QVERIFY(!text.document.isUndoAvailable() && !text.document.isModified());
}

/// The toolkit would join what is typed right behind an edit to it.
void LineEditsTest::KeepsTypingApart()
{
    EditedText text("", "a|");
    IncreaseIndent(text.cursor, false, text.options);
    text.cursor.insertText("b");
    text.document.undo();
    QCOMPARE(text.document.toPlainText(), "a    ");
}

TE2_TEST(LineEditsTest)
#include "LineEditsTest.moc"
