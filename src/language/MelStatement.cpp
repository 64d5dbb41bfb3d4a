#include "language/MelStatement.h"

#include <QVector>

namespace {

bool IsNameCharacter(QChar character)
{
    return character.isLetterOrNumber() || character == QLatin1Char('_');
}

/// Reads a statement from its start and keeps what each open bracket or back-quote is inside of.
class StatementReader
{
public:
    explicit StatementReader(const QString& text)
        : m_text(text)
    { }

    QString ReadCommand();

private:
    struct Level
    {
        QChar opener;
        QString command;
        bool expectsCommand = true;
    };

    void Read();
    void SkipString();
    void SkipComment();
    void ReadWord();
    void ReadSign(QChar sign);
    void Open(QChar opener);
    void Close();
    void ReadBackQuote();
    void StartStatement() { m_levels.last() = {m_levels.last().opener, QString(), true}; }
    bool IsCommandOneOf(std::initializer_list<const char*> words) const;

    const QString& m_text;
    int m_place = 0;
    QVector<Level> m_levels{Level()};
};

QString StatementReader::ReadCommand()
{
    while (m_place < m_text.size())
        Read();
    // Skipping a string or comment that is still open steps past the end.
    return m_place == m_text.size() ? m_levels.last().command : QString();
}

void StatementReader::Read()
{
    const QChar character = m_text.at(m_place);
    if (character.isSpace())
        ++m_place;
    else if (character == QLatin1Char('"'))
        SkipString();
    else if (m_text.midRef(m_place, 2) == QLatin1String("//")
        || m_text.midRef(m_place, 2) == QLatin1String("/*"))
        SkipComment();
    else if (IsNameCharacter(character))
        ReadWord();
    else
        ReadSign(character);
}

void StatementReader::SkipString()
{
    m_levels.last().expectsCommand = false;
    for (++m_place; m_place < m_text.size() && m_text.at(m_place) != QLatin1Char('"'); ++m_place) {
        if (m_text.at(m_place) == QLatin1Char('\\'))
            ++m_place;
    }
    m_place = m_place < m_text.size() ? m_place + 1 : m_text.size() + 1;
}

void StatementReader::SkipComment()
{
    const bool isBlock = m_text.at(m_place + 1) == QLatin1Char('*');
    const QLatin1String end(isBlock ? "*/" : "\n");
    const int found = m_text.indexOf(end, m_place + 2);
    m_place = found < 0 ? m_text.size() + 1 : found + end.size();
}

void StatementReader::ReadWord()
{
    const int start = m_place;
    while (m_place < m_text.size() && IsNameCharacter(m_text.at(m_place)))
        ++m_place;
    Level& level = m_levels.last();
    if (!level.expectsCommand)
        return;
    level.command = m_text.mid(start, m_place - start);
    level.expectsCommand = IsCommandOneOf({"else", "do"});
}

void StatementReader::ReadSign(QChar sign)
{
    ++m_place;
    switch (sign.unicode()) {
    case ';':
    case '{':
    case '}': StartStatement(); break;
    case '(':
    case '[': Open(sign); break;
    case ')':
    case ']': Close(); break;
    case '`': ReadBackQuote(); break;
    case ':':
        if (IsCommandOneOf({"case", "default"}))
            StartStatement();
        break;
    default: m_levels.last().expectsCommand = false;
    }
}

void StatementReader::Open(QChar opener)
{
    m_levels.last().expectsCommand = false;
    m_levels.append({opener, QString(), false});
}

void StatementReader::Close()
{
    const QChar opener = m_levels.last().opener;
    if (opener != QLatin1Char('(') && opener != QLatin1Char('['))
        return;
    m_levels.removeLast();
    if (IsCommandOneOf({"if", "while", "for", "switch"}))
        StartStatement();
}

void StatementReader::ReadBackQuote()
{
    for (int i = m_levels.size() - 1; i > 0; --i) {
        if (m_levels[i].opener == QLatin1Char('`')) {
            m_levels.resize(i);
            return;
        }
    }
    Open(QLatin1Char('`'));
    m_levels.last().expectsCommand = true;
}

bool StatementReader::IsCommandOneOf(std::initializer_list<const char*> words) const
{
    for (const char* word : words) {
        if (m_levels.last().command == QLatin1String(word))
            return true;
    }
    return false;
}

} // namespace

QString MelStatement::CommandBefore(const QString& text)
{
    return StatementReader(text).ReadCommand();
}
