#include "language/MelParser.h"

namespace {

const QLatin1String TYPE_NAMES[] = {QLatin1String("string"), QLatin1String("int"),
    QLatin1String("float"), QLatin1String("matrix"), QLatin1String("vector")};

/// Characters at which the scan does anything, besides words behind white space.
bool IsSignificant(ushort code)
{
    switch (code) {
    case ';':
    case '{':
    case '}':
    case '[':
    case ']':
    case '(':
    case ')':
    case '"':
    case '/':
    case 'g':
    case 'p': return true;
    default: return false;
    }
}

bool IsParameterCharacter(QChar character)
{
    const ushort code = character.unicode();
    return (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z')
        || (code >= '0' && code <= '9') || code == '_' || code == ',' || code == '$' || code == '*'
        || code == '/' || character.isSpace();
}

} // namespace

void MelParser::ClearAll()
{
    BaseParser::ClearAll();
    m_inProcedure = false;
    m_procedureDepth = 0;
}

void MelParser::AppendError(const QString&, int, int) { }

void MelParser::Parse(const QString& text, const QString& filePath)
{
    BaseParser::Parse(text, filePath);
    NoEmptyLinesAtStartCheck();
    const int length = m_script.length();
    for (; m_position < length; ++m_position) {
        const QChar character = m_script.at(m_position);
        if (IsSignificant(character.unicode()))
            ParseCharacter(character);
    }
    if (m_bracesDepth > 0)
        ParenthesesError(QLatin1Char('}'), length - 1, length - 1);
}

void MelParser::NoEmptyLinesAtStartCheck()
{
    const int firstCode = NextNonSpace(0);
    if (firstCode < m_script.length() && LineEnd(0) < firstCode) {
        AppendWarning(
            QStringLiteral(
                "Empty line(s) at start of file. Line numbers in trace may be incorrect."),
            0, 0);
    }
}

void MelParser::ParseCharacter(QChar character)
{
    switch (character.unicode()) {
    case ';': ParseStatementEnd(); break;
    case '"': ParseString(m_position); break;
    case '/': ParseComment(); break;
    case 'g':
    case 'p': ParseWord(character); break;
    default: ParseBracket(character); break;
    }
}

void MelParser::ParseWord(QChar first)
{
    if (m_position > 0 && !m_script.at(m_position - 1).isSpace())
        return;
    if (first == QLatin1Char('p'))
        ParseProc();
    else if (!ParseGlobalProc())
        ParseGlobalVariable();
}

void MelParser::ParseStatementEnd()
{
    if (m_parenthesesDepth > 0)
        ParenthesesError(QLatin1Char(')'), m_position, m_position + 1);
    else if (m_bracketsDepth > 0)
        ParenthesesError(QLatin1Char(']'), m_position, m_position + 1);
}

void MelParser::ParseBracket(QChar bracket)
{
    const ushort code = bracket.unicode();
    int& depth = code == '{' || code == '}' ? m_bracesDepth
        : code == '[' || code == ']'        ? m_bracketsDepth
                                            : m_parenthesesDepth;
    if (code == '{' || code == '[' || code == '(') {
        ++depth;
        return;
    }
    if (depth == 0) {
        UnexpectedParenthesesError(bracket, m_position, m_position + 1);
        return;
    }
    --depth;
    if (code == '}' && depth == m_procedureDepth)
        m_inProcedure = false;
}

bool MelParser::ParseString(int start)
{
    return ParseQuoted(QLatin1Char('"'), start);
}

void MelParser::ParseComment()
{
    // A line feed follows at least.
    const QChar next = m_script.at(m_position + 1);
    if (next == QLatin1Char('/')) {
        ++m_position;
        ParseSingleLineComment();
    } else if (next == QLatin1Char('*')) {
        ++m_position;
        ParseMultiLineComment();
    }
}

void MelParser::ParseSingleLineComment()
{
    const int end = LineEnd(m_position);
    TodoCheck(m_position, end, end);
    m_position = end;
}

void MelParser::ParseMultiLineComment()
{
    const int close = m_script.indexOf(QLatin1String("*/"), m_position + 1);
    // A note in a comment that is never closed has no end: -1, on purpose.
    TodoCheck(m_position, close < 0 ? m_script.length() : close, close);
    m_position = close < 0 ? m_script.length() - 1 : close + 1;
}

/// Where the optional return type behind the keyword ends: behind the last white space that only
/// types, array brackets and white space lead to. -1 when there is none on this line.
int MelParser::ReturnTypeEnd(int from) const
{
    int end = -1;
    for (int at = from; m_script.at(at) != QChar(QChar::LineFeed);) {
        const QChar character = m_script.at(at);
        if (character.isSpace()) {
            end = ++at;
            continue;
        }
        int length = character == QLatin1Char('[') || character == QLatin1Char(']') ? 1 : 0;
        for (const QLatin1String typeName : TYPE_NAMES)
            length = length == 0 && StartsWith(at, typeName) ? typeName.size() : length;
        if (length == 0)
            break;
        at += length;
    }
    return end;
}

bool MelParser::ParseGlobalProc()
{
    if (!StartsWith(m_position, QLatin1String("global")))
        return false;
    const int keywordEnd = m_position + 6;
    const int proc = SkipSpaceInLine(keywordEnd);
    if (proc == keywordEnd || !StartsWith(proc, QLatin1String("proc")))
        return false;
    const int matchEnd = ReturnTypeEnd(proc + 4);
    if (matchEnd >= 0)
        ParseProcHeader(matchEnd, ParserItemType::MelGlobalProc);
    return matchEnd >= 0;
}

bool MelParser::ParseProc()
{
    if (!StartsWith(m_position, QLatin1String("proc")))
        return false;
    const int matchEnd = ReturnTypeEnd(m_position + 4);
    if (matchEnd >= 0)
        ParseProcHeader(matchEnd, ParserItemType::MelProc);
    return matchEnd >= 0;
}

void MelParser::ParseProcHeader(int matchEnd, ParserItemType type)
{
    m_procedureDepth = m_bracesDepth;
    if (m_inProcedure) {
        AppendError(
            QStringLiteral("Procedures cannot be nested within each other. Expected a '}'."),
            m_position, matchEnd);
        return;
    }
    const int nameEnd = NameEnd(matchEnd, QLatin1Char('.'));
    const QString name = m_script.mid(matchEnd, nameEnd - matchEnd);
    if (name.isEmpty() || name.endsWith(QLatin1Char('.')) || name.contains(QLatin1String(".."))) {
        AppendError(QStringLiteral("Invalid procedure name"), m_position, nameEnd);
        return;
    }
    AppendItem(name, type, matchEnd, m_bracesDepth);
    m_position = nameEnd;
    ParseProcStructure(matchEnd);
}

void MelParser::ParseProcStructure(int start)
{
    const int length = m_script.length();
    const int open = NextNonSpace(m_position);
    if (open == length || m_script.at(open) != QLatin1Char('(')) {
        ParenthesesError(QLatin1Char('('), start, m_position);
        m_position = qMin(open, length - 1);
        return;
    }
    int close = open + 1;
    while (close < length && IsParameterCharacter(m_script.at(close)))
        ++close;
    if (close == length || m_script.at(close) != QLatin1Char(')')) {
        ParenthesesError(QLatin1Char(')'), start, m_position);
        m_position = open;
        return;
    }
    const int body = NextNonSpace(close + 1);
    if (body < length && m_script.at(body) == QLatin1Char('{')) {
        m_inProcedure = true;
        m_position = body - 1; // the scan counts the brace
        return;
    }
    ParenthesesError(QLatin1Char('{'), start, m_position);
    if (body == length)
        m_position = length - 1;
}

bool MelParser::ParseGlobalVariable()
{
    if (!StartsWith(m_position, QLatin1String("global")))
        return false;
    const int keywordEnd = m_position + 6;
    const int type = SkipSpaceInLine(keywordEnd);
    if (type == keywordEnd)
        return false;
    int typeEnd = type;
    for (const QLatin1String typeName : TYPE_NAMES)
        typeEnd = typeEnd == type && StartsWith(type, typeName) ? type + typeName.size() : typeEnd;
    if (typeEnd == type)
        return false;
    while (m_script.at(typeEnd) == QLatin1Char('[') || m_script.at(typeEnd) == QLatin1Char(']'))
        ++typeEnd;
    const int name = typeEnd + 1;
    if (m_script.at(typeEnd) == QLatin1Char('\n') || !m_script.at(typeEnd).isSpace()
        || m_script.at(name) != QLatin1Char('$'))
        return false;
    const int nameEnd = NameEnd(name + 1);
    if (nameEnd == name + 1)
        return false;
    AppendItem(
        m_script.mid(name, nameEnd - name), ParserItemType::MelGlobalVariable, name, m_bracesDepth);
    m_position = nameEnd - 1;
    return true;
}
