#include "language/PythonLines.h"

#include <QRegularExpression>

namespace {

bool IsTriple(QStringView line, int place, QChar quote)
{
    return place + 2 < line.size() && line[place] == quote && line[place + 1] == quote
        && line[place + 2] == quote;
}

/// Behind the quote that ends the string, or -1 when the line does not end it.
int EndOfString(QStringView line, int from, QChar quote, bool triple)
{
    for (int i = from; i < line.size(); ++i) {
        if (line[i] == QLatin1Char('\\'))
            ++i;
        else if (line[i] == quote && (!triple || IsTriple(line, i, quote)))
            return triple ? i + 3 : i + 1;
    }
    return -1;
}

} // namespace

bool PythonLineReader::Continues(QStringView line)
{
    static const QRegularExpression STATEMENT(QStringLiteral(
        "^\\s*(?:@|(?:def|class|import|return|while|try|with|pass|raise|async)\\b)"));
    const bool continues
        = IsOpen() && (IsInString() || !STATEMENT.match(line.toString()).hasMatch());
    if (!continues)
        m_depth = 0;
    Read(line);
    return continues;
}

void PythonLineReader::Read(QStringView line)
{
    m_code = QString(line.size(), QLatin1Char(' '));
    m_isJoined = false;
    int place = 0;
    if (IsInString()) {
        const int end = EndOfString(line, 0, m_quote, true);
        if (end < 0)
            return;
        m_quote = QChar();
        place = end;
    }
    while (place >= 0 && place < line.size()) {
        const QChar character = line[place];
        if (character == QLatin1Char('#'))
            return;
        if (character == QLatin1Char('"') || character == QLatin1Char('\'')) {
            place = ReadStringStart(line, place);
            continue;
        }
        if (QLatin1String("([{").contains(character))
            ++m_depth;
        else if (QLatin1String(")]}").contains(character) && m_depth > 0)
            --m_depth;
        m_code[place] = character;
        ++place;
    }
    m_isJoined = place >= 0 && line.endsWith(QLatin1Char('\\'));
}

/// Behind the string, or -1 when it takes the rest of the line.
int PythonLineReader::ReadStringStart(QStringView line, int place)
{
    const QChar quote = line[place];
    const bool triple = IsTriple(line, place, quote);
    const int end = EndOfString(line, place + (triple ? 3 : 1), quote, triple);
    if (end < 0 && triple)
        m_quote = quote;
    return end;
}
