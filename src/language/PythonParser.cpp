#include "language/PythonParser.h"

#include <array>

namespace {

constexpr int TAB_WIDTH = 8;

const QLatin1String CLOSING_STATEMENTS[] = {
    QLatin1String("class"), QLatin1String("def"), QLatin1String("import"), QLatin1String("from")};

int Width(QStringView indent)
{
    int width = 0;
    for (const QChar character : indent)
        width += character == QLatin1Char('\t') ? TAB_WIDTH : 1;
    return width;
}

constexpr std::array<bool, 128> MakeSignificant()
{
    std::array<bool, 128> significant{};
    for (const char character : {'\n', '"', '#', '\'', '(', ')', ':', '[', ']', '{', '}'})
        significant[std::size_t(character)] = true;
    return significant;
}

/// Whether a character inside a line means anything to the scan.
constexpr std::array<bool, 128> SIGNIFICANT = MakeSignificant();

} // namespace

void PythonParser::ClearAll()
{
    BaseParser::ClearAll();
    m_decorators.clear();
    m_indentErrorReported = false;
    m_mixedIndentWarned = false;
    m_nextWord = -1;
    m_currentIndent = {};
    ResetIndentStack();
}

void PythonParser::Parse(const QString& text, const QString& filePath)
{
    BaseParser::Parse(text, filePath);
    Newline(true);
    const int length = m_script.length();
    for (; m_position < length; ++m_position) {
        if (m_atLineStart)
            ParseLineStart();
        else
            ParseInsideLine();
    }
}

void PythonParser::ParseLineStart()
{
    const QChar character = m_script.at(m_position);
    if (character == QLatin1Char(' ') || character == QLatin1Char('\t')) {
        const int length = m_position + 1 - m_lineStartPosition;
        m_currentIndent = QStringView(m_script).mid(m_lineStartPosition, length);
        return;
    }
    if (character == QLatin1Char('\n')) {
        Newline(false);
        return;
    }
    if (character != QLatin1Char('#') && !character.isSpace()) {
        ValidateIndent();
        ParseStatement(character);
        return;
    }
    m_atLineStart = false;
    m_decorators.clear();
    ParseCharacter(character);
}

void PythonParser::ParseStatement(QChar first)
{
    switch (first.unicode()) {
    case 'i':
        if (!ParseImport())
            ParseMain();
        break;
    case 'f': ParseFromImport(); break;
    case 'c': ParseClass(); break;
    case 'd': ParseMethod(); break;
    case '@':
        if (ParseDecorator())
            return; // kept for the statement below
        break;
    default:
        m_decorators.clear();
        ParseCharacter(first);
        return;
    }
    m_decorators.clear();
}

void PythonParser::ParseInsideLine()
{
    // A line feed ends every line, the last one included.
    const QChar* character = m_script.constData() + m_position;
    while (character->unicode() >= SIGNIFICANT.size() || !SIGNIFICANT[character->unicode()])
        ++character;
    m_position = int(character - m_script.constData());
    ParseCharacter(*character);
}

void PythonParser::ParseCharacter(QChar character)
{
    const auto close = [this, character](int& depth) {
        if (depth == 0)
            UnexpectedParenthesesError(character, m_position, m_position + 1);
        else
            --depth;
    };
    switch (character.unicode()) {
    case '\n': Newline(false); break;
    case ':': ParseNewIndent(); break;
    case '(': ++m_parenthesesDepth; break;
    case '{': ++m_bracesDepth; break;
    case '[': ++m_bracketsDepth; break;
    case ')': close(m_parenthesesDepth); break;
    case '}': close(m_bracesDepth); break;
    case ']': close(m_bracketsDepth); break;
    case '\'':
    case '"': ParseString(character, m_position, true); break;
    case '#': ParseComment(); break;
    default: break;
    }
}

bool PythonParser::IsInsideBrackets() const
{
    return m_parenthesesDepth > 0 || m_bracesDepth > 0 || m_bracketsDepth > 0;
}

/// Whether the next word is one that only begins statements. Its start is kept, as a run of empty
/// lines asks for the same one again and again.
bool PythonParser::StatementFollows()
{
    if (m_nextWord < m_position)
        m_nextWord = NextNonSpace(m_position);
    for (const QLatin1String word : CLOSING_STATEMENTS) {
        const int end = m_nextWord + word.size();
        // Within the script: the text ends with a line feed.
        if (StartsWith(m_nextWord, word) && m_script.at(end).isSpace())
            return true;
    }
    return false;
}

void PythonParser::CloseBracketsBeforeStatement()
{
    const char expected = m_bracesDepth > 0 ? '}' : m_parenthesesDepth > 0 ? ')' : ']';
    ParenthesesError(QLatin1Char(expected), m_position, m_position);
    m_parenthesesDepth = 0;
    m_bracesDepth = 0;
    m_bracketsDepth = 0;
}

void PythonParser::Newline(bool first)
{
    if (IsInsideBrackets()) {
        if (!StatementFollows())
            return;
        CloseBracketsBeforeStatement();
    }
    m_atLineStart = true;
    m_lineStartPosition = first ? 0 : m_position + 1;
    m_currentIndent = {};
}

void PythonParser::ParseNewIndent()
{
    if (IsInsideBrackets())
        return;
    int next = m_position + 1;
    while (m_script.at(next) == QLatin1Char(' ') || m_script.at(next) == QLatin1Char('\t'))
        ++next;
    if (m_script.at(next) != QLatin1Char('#') && m_script.at(next) != QLatin1Char('\n'))
        return;
    m_expectIndent = true;
    m_position = LineEnd(next);
    Newline(false);
}

void PythonParser::ValidateIndent()
{
    const int width = Width(m_currentIndent);
    const int top = Width(m_indentStack.last());
    if (m_expectIndent) {
        m_expectIndent = false;
        if (width > top)
            m_indentStack.append(m_currentIndent);
        else
            IndentError(QStringLiteral("Expected an indented block"));
    } else if (width > top) {
        IndentError(QStringLiteral("Unexpected indent"));
    } else {
        MatchDedent();
    }
    const bool mixed
        = m_currentIndent.contains(QLatin1Char('\t')) && m_currentIndent.contains(QLatin1Char(' '));
    if (mixed && !m_mixedIndentWarned) {
        AppendWarning(QStringLiteral("Indent contains both tabs and spaces"), m_lineStartPosition,
            m_position);
        m_mixedIndentWarned = true;
    }
    m_atLineStart = false;
}

/// Leaves the blocks that the line is no part of. Indents are compared as they are written.
void PythonParser::MatchDedent()
{
    while (!m_indentStack.isEmpty() && m_indentStack.last() != m_currentIndent)
        m_indentStack.removeLast();
    if (!m_indentStack.isEmpty())
        return;
    IndentError(QStringLiteral("Unindent does not match any outer indentation level"));
    // One mistake is told once: what follows from it would only hide it.
    m_indentErrorReported = true;
    m_mixedIndentWarned = true;
    m_indentStack.append(QStringView());
}

void PythonParser::IndentError(const QString& message)
{
    if (m_indentErrorReported)
        return;
    AppendError(message, m_lineStartPosition, m_position);
    m_indentErrorReported = true;
}

void PythonParser::ResetIndentStack()
{
    m_indentStack.clear();
    m_indentStack.append(QStringView());
    m_expectIndent = false;
}

int PythonParser::GetIndentLevel() const
{
    return qMax(0, m_indentStack.size() - 1);
}

/// Level of a definition: at column 0 it is 0 whatever came before.
int PythonParser::GetStatementLevel()
{
    if (m_currentIndent.isEmpty())
        ResetIndentStack();
    return GetIndentLevel();
}

void PythonParser::ParseString(QChar quote, int start, bool first)
{
    const QString triple(3, quote);
    if (first && QStringView(m_script).mid(m_position).startsWith(triple))
        ParseDocString(triple);
    else
        ParseQuoted(quote, start);
}

void PythonParser::ParseDocString(const QString& closing)
{
    int close = m_script.indexOf(closing, m_position + 3);
    while (close >= 0 && m_script.at(close - 1) == QLatin1Char('\\')) {
        m_position = close + 1;
        close = m_script.indexOf(closing, m_position);
    }
    const int end = close < 0 ? m_script.length() : close;
    TodoCheck(m_position, end, end);
    m_position = close < 0 ? end : close + 2;
}

void PythonParser::ParseComment()
{
    const int end = LineEnd(m_position);
    TodoCheck(m_position, end, end);
    m_position = end;
    Newline(false);
}
