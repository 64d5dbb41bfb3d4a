#include "search/RequiredLiterals.h"

namespace {

/// Walks over a pattern and collects the characters that a match cannot do without.
class PatternReader
{
public:
    explicit PatternReader(const QString& pattern)
        : m_pattern(pattern)
    { }

    /// False when the pattern holds something that this reader does not follow.
    bool Read()
    {
        SkipMatchLimit();
        while (m_place < m_pattern.size()) {
            if (!ReadPiece())
                return false;
        }
        EndText();
        return true;
    }

    const QStringList& GetTexts() const { return m_texts; }
    bool IsPlain() const { return m_isPlain; }

private:
    QChar At(int place) const { return m_pattern.at(place); }
    bool StandsHere(const char* text) const
    {
        return m_pattern.midRef(m_place).startsWith(QLatin1String(text));
    }

    void SkipMatchLimit()
    {
        if (StandsHere("(*LIMIT_MATCH="))
            m_place = m_pattern.indexOf(QLatin1Char(')')) + 1;
    }

    bool ReadPiece();
    bool ReadEscape();
    bool SkipGroup();
    bool SkipClass();
    void SkipBraces();
    void Repeat(bool atLeastOnce);
    void Add(QChar character)
    {
        if (character.isSurrogate())
            Break();
        else
            m_text += character;
    }
    void EndText()
    {
        if (!m_text.isEmpty())
            m_texts.append(m_text);
        m_text.clear();
    }
    /// Here stands something that is no character of its own.
    void Break()
    {
        EndText();
        m_isPlain = false;
    }

    const QString m_pattern;
    int m_place = 0;
    QString m_text;
    QStringList m_texts;
    bool m_isPlain = true;
};

bool PatternReader::ReadPiece()
{
    const QChar character = At(m_place);
    switch (character.unicode()) {
    case '|': return false;
    case '\\': return ReadEscape();
    case '(': return SkipGroup();
    case '[': return SkipClass();
    case '{': SkipBraces(); return true;
    case '*':
    case '?': Repeat(false); return true;
    case '+': Repeat(true); return true;
    case '.':
    case '^':
    case '$':
        Break();
        ++m_place;
        return true;
    default:
        Add(character);
        ++m_place;
        return true;
    }
}

/// The character before stands any number of times.
void PatternReader::Repeat(bool atLeastOnce)
{
    if (!atLeastOnce)
        m_text.chop(1);
    Break();
    ++m_place;
}

bool PatternReader::ReadEscape()
{
    // Those that stand alone; what others take with them is not followed.
    static const QString ALONE = QStringLiteral("bBdDwWsShHvVRXAzZGKntrfea");
    if (++m_place == m_pattern.size())
        return false;
    const QChar character = At(m_place);
    if (character.unicode() < 128 && character.isLetterOrNumber()) {
        if (!ALONE.contains(character))
            return false;
        Break();
    } else {
        Add(character);
    }
    ++m_place;
    return true;
}

/// To the bracket that closes the group. What stands in it may be repeated or one of several.
bool PatternReader::SkipGroup()
{
    Break();
    int depth = 0;
    while (m_place < m_pattern.size()) {
        // Verbs, comments and options reach beyond the group, or hide brackets.
        if (StandsHere("(*") || StandsHere("(?#") || StandsHere("\\Q") || StandsHere("\\c"))
            return false;
        const QChar character = At(m_place);
        if (character == QLatin1Char('\\')) {
            m_place += 2;
            continue;
        }
        if (character == QLatin1Char('[')) {
            if (!SkipClass())
                return false;
            continue;
        }
        if (StandsHere("(?")) {
            const int kind = m_place + 2;
            static const QString FOLLOWED = QStringLiteral(":=!<>|P'");
            if (kind >= m_pattern.size() || !FOLLOWED.contains(At(kind)))
                return false;
        }
        depth += character == QLatin1Char('(') ? 1 : character == QLatin1Char(')') ? -1 : 0;
        ++m_place;
        if (depth == 0)
            return true;
    }
    return false;
}

bool PatternReader::SkipClass()
{
    Break();
    ++m_place;
    if (StandsHere("^"))
        ++m_place;
    if (StandsHere("]"))
        ++m_place;
    while (m_place < m_pattern.size()) {
        if (StandsHere("[:") || StandsHere("\\Q") || StandsHere("\\c"))
            return false;
        const QChar character = At(m_place);
        m_place += character == QLatin1Char('\\') ? 2 : 1;
        if (character == QLatin1Char(']'))
            return true;
    }
    return false;
}

/// A count, or braces that stand for themselves: neither is followed closely.
void PatternReader::SkipBraces()
{
    Repeat(false);
    int end = m_place;
    const auto isOfCount = [](QChar character) {
        return character.isDigit() || character == QLatin1Char(',')
            || character == QLatin1Char(' ');
    };
    while (end < m_pattern.size() && isOfCount(At(end)))
        ++end;
    if (end < m_pattern.size() && At(end) == QLatin1Char('}'))
        m_place = end + 1;
}

QString WithoutWordEnds(const QString& pattern, bool& isWord)
{
    const QLatin1String wordEnd("\\b");
    // "\\b" would be an escaped backslash and a letter.
    isWord = pattern.size() > 4 && pattern.startsWith(wordEnd) && pattern.endsWith(wordEnd)
        && pattern.at(pattern.size() - 3) != QLatin1Char('\\');
    return isWord ? pattern.mid(2, pattern.size() - 4) : pattern;
}

bool IsAsciiWordCharacter(QChar character)
{
    return character == QLatin1Char('_')
        || (character.unicode() < 128 && character.isLetterOrNumber());
}

} // namespace

RequiredLiterals RequiredLiterals::Of(const QRegularExpression& expression)
{
    constexpr QRegularExpression::PatternOptions FOLLOWED
        = QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption
        | QRegularExpression::MultilineOption | QRegularExpression::InvertedGreedinessOption
        | QRegularExpression::DontCaptureOption | QRegularExpression::UseUnicodePropertiesOption;
    if ((expression.patternOptions() & ~FOLLOWED) || !expression.isValid())
        return {};
    RequiredLiterals literals;
    bool isWord = false;
    PatternReader reader(expression.pattern());
    if (!reader.Read())
        return {};
    literals.texts = reader.GetTexts();
    PatternReader inner(WithoutWordEnds(expression.pattern(), isWord));
    if (!inner.Read() || !inner.IsPlain() || inner.GetTexts().size() != 1)
        return literals;
    const QString text = inner.GetTexts().first();
    literals.isWhole = !isWord;
    // At other characters a word end is another thing.
    literals.isWord
        = isWord && IsAsciiWordCharacter(text.front()) && IsAsciiWordCharacter(text.back());
    return literals;
}
