#include "settings/pages/ColorSample.h"

namespace {

using ColorSample::Line;
using ColorSample::Piece;
using ColorSample::Text;
using C = ColorSettings;

constexpr char16_t SHOWN_BLANK = u'\u00b7';

struct SyntaxLetter
{
    char letter;
    const QString& key;
};

// In the texts below "<k|def>" is a keyword; "<s+f|self>" lies on the ground of found text, too.
// The first character of a line tells what fills its whole width.

// clang-format off
const SyntaxLetter PYTHON[] = {
    {'k', C::PYTHON_KEYWORDS}, {'b', C::PYTHON_BUILTINS},   {'t', C::PYTHON_STRINGS},
    {'o', C::PYTHON_DOC_STRINGS}, {'n', C::PYTHON_NUMBERS}, {'c', C::PYTHON_CLASSES},
    {'m', C::PYTHON_METHODS},  {'#', C::PYTHON_COMMENTS},   {'d', C::PYTHON_DECORATORS},
    {'s', C::PYTHON_SELF_CLS}, {'x', C::PYTHON_MEL_COMMANDS},
};
const SyntaxLetter MEL[] = {
    {'k', C::MEL_KEYWORDS}, {'x', C::MEL_COMMANDS},  {'t', C::MEL_STRINGS}, {'n', C::MEL_NUMBERS},
    {'v', C::MEL_VARIABLES}, {'m', C::MEL_PROCS},    {'#', C::MEL_COMMENTS},
};
const SyntaxLetter GROUNDS[] = {
    {'S', C::SELECTED_TEXT},         {'M', C::MATCHING_SELECTION},   {'F', C::FIND_REPLACE_MATCHING},
    {'G', C::FIND_REPLACE_SELECTED}, {'B', C::MATCHING_BRACES},      {'W', C::WHITESPACES},
    {'C', C::CURRENT_LINE},          {'R', C::FIND_REPLACE_SELECTION},
};

const char* const PYTHON_LINES[] = {
    " <#|# Puts copies of a mesh in a row.>",
    " <k|class> <c|Row>(<b|object>):",
    "     <o|\"\"\"Copies side by side.\"\"\">",
    "     <d|@property>",
    "     <k|def> <m|name>(<s|self>):",
    "         <k|return> <t|\"row of \"> + <+M|mesh>",
    " ",
    "     <k|def> <m|place>(<s|self>, <+S|mesh>, count=<n|3>):",
    "         <k|for> index <k|in> <b|range><+B|(>count<+B|)>:",
    "R            <+G|item> = cmds.<x|ls>(<+M|mesh>)",
    "R            cmds.<x|move>(index, <n|0>, <n|0>)",
    "C<+W|            >cmds.<x|select>(<+F|item>)",
};
const char* const MEL_LINES[] = {
    " <#|// Puts the picked meshes in a row.>",
    " <k|global> <k|proc> <m|inARow>(<k|float> <v+F|$step>)",
    " {",
    "     <k|string> <v|$meshes>[] = `<x|ls> -sl`;",
    "     <k|float> <v|$at> = <n|0.5>;",
    "     <k|for> (<v|$mesh> <k|in> <v|$meshes>) <+B|{>",
    "R        <x|move> -x <v|$at> <v+S|$mesh>;",
    "R        <v|$at> += <v+G|$step>;",
    "C<+W|        ><x|rename> <v+M|$mesh> <t|\"inRow#\">;",
    "     <+B|}>",
    "     <x|print>(<t|\"all in a row\\n\">);",
    " }",
};
const char* const CONSOLE_LINES[] = {
    " row.place(<+S|mesh>)",
    " <+M|mesh>1 moved to 0.5",
    " <+M|mesh>2 moved to 1.0",
    " <+G|locked>: 1 node",
    " <+F|locked> nodes stay in place",
    " done in 0.2 s",
};
// clang-format on

template <size_t N>
QString KeyOf(const SyntaxLetter (&letters)[N], QChar letter)
{
    for (const SyntaxLetter& row : letters) {
        if (QLatin1Char(row.letter) == letter)
            return row.key;
    }
    return {};
}

/// What stands between "<" and ">".
template <size_t N>
Piece MarkedPiece(const QString& text, const SyntaxLetter (&letters)[N])
{
    const int bar = text.indexOf(QLatin1Char('|'));
    const QString marks = text.left(bar);
    const int plus = marks.indexOf(QLatin1Char('+'));
    Piece piece{text.mid(bar + 1), QString(), QString()};
    if (plus != 0)
        piece.syntax = KeyOf(letters, marks.at(0));
    if (plus >= 0)
        piece.ground = KeyOf(GROUNDS, marks.at(plus + 1));
    if (piece.ground == C::WHITESPACES)
        piece.text.fill(QChar(SHOWN_BLANK));
    return piece;
}

template <size_t N>
Line MakeLine(const QString& text, const SyntaxLetter (&letters)[N])
{
    Line line;
    line.ground = KeyOf(GROUNDS, text.at(0));
    for (int at = 1; at < text.size();) {
        const bool isMarked = text.at(at) == QLatin1Char('<');
        int end = text.indexOf(QLatin1Char(isMarked ? '>' : '<'), at);
        end = end < 0 ? text.size() : end;
        if (isMarked)
            line.pieces.append(MarkedPiece(text.mid(at + 1, end - at - 1), letters));
        else
            line.pieces.append({text.mid(at, end - at), QString(), QString()});
        at = end + (isMarked ? 1 : 0);
    }
    return line;
}

template <size_t N, size_t M>
QVector<Line> MakeLines(const char* const (&texts)[N], const SyntaxLetter (&letters)[M])
{
    QVector<Line> lines;
    for (const char* text : texts)
        lines.append(MakeLine(QString::fromLatin1(text), letters));
    return lines;
}

} // namespace

QString Line::GetText() const
{
    QString text;
    for (const Piece& piece : pieces)
        text += piece.text;
    return text;
}

int Line::CountIndent() const
{
    const QString text = GetText();
    int count = 0;
    while (count < text.size() && (text.at(count).isSpace() || text.at(count) == SHOWN_BLANK))
        ++count;
    return count;
}

const QVector<Line>& ColorSample::GetLines(Text text)
{
    static const QVector<Line> python = MakeLines(PYTHON_LINES, PYTHON);
    static const QVector<Line> mel = MakeLines(MEL_LINES, MEL);
    static const QVector<Line> console = MakeLines(CONSOLE_LINES, PYTHON);
    return text == Text::Python ? python : text == Text::Mel ? mel : console;
}

ColorRole::Surface ColorSample::GetSurface(Text text)
{
    return text == Text::Console ? ColorRole::Output : ColorRole::CodeEditor;
}

Text ColorSample::TextWith(const ColorRole& role, Text current)
{
    if (role.surface == ColorRole::Output)
        return Text::Console;
    const auto isOf = [&](const auto& letters) {
        for (const SyntaxLetter& row : letters) {
            if (row.key == role.key)
                return true;
        }
        return false;
    };
    if (isOf(PYTHON))
        return Text::Python;
    if (isOf(MEL))
        return Text::Mel;
    return current == Text::Console ? Text::Python : current;
}

QString ColorSample::RoleAt(const Line& line, int column)
{
    for (const Piece& piece : line.pieces) {
        if (column >= 0 && column < piece.text.size()) {
            const QString& key = piece.ground.isEmpty() ? piece.syntax : piece.ground;
            if (!key.isEmpty())
                return key;
            break;
        }
        column -= piece.text.size();
    }
    return line.ground.isEmpty() ? C::PLAIN_TEXT : line.ground;
}
