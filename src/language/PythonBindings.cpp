#include "language/PythonBindings.h"

#include "language/PythonText.h"
#include "language/WordSet.h"

namespace {

using Tokens = QVector<PythonToken>;
using Bindings = QVector<PythonBinding>;
using Scope = PythonBinding::Scope;
using Kind = PythonNameKind;

const QLatin1Char ASSIGNMENT('=');

bool IsSign(const Tokens& tokens, int index, const char* signs)
{
    if (index < 0 || index >= tokens.size() || tokens[index].sign.isNull())
        return false;
    return QLatin1String(signs).contains(tokens[index].sign);
}

bool IsWord(const Tokens& tokens, int index, const char* word)
{
    return index >= 0 && index < tokens.size() && tokens[index].word == QLatin1String(word);
}

bool IsBindable(const PythonToken& token)
{
    return PythonText::IsName(token.word) && !token.isAttribute
        && !PythonBindings::IsKeyword(token.word);
}

/// "a.b, c.d as e": a and e.
void AppendImports(const Tokens& tokens, int first, Bindings& bindings)
{
    bool isBound = false; // the name of the present part
    for (int i = first; i < tokens.size(); ++i) {
        if (IsSign(tokens, i, ",;"))
            isBound = false;
        if (!IsBindable(tokens[i]))
            continue;
        if (IsWord(tokens, i - 1, "as") && isBound)
            bindings.last().name = tokens[i].word;
        else if (!isBound)
            bindings.append({tokens[i].word, Kind::Import});
        isBound = true;
    }
}

void AppendAll(const Tokens& tokens, int first, Scope scope, Bindings& bindings)
{
    for (int i = first; i < tokens.size(); ++i) {
        if (IsBindable(tokens[i]))
            bindings.append({tokens[i].word, Kind::Unknown, scope});
    }
}

/// The targets of assignments and all else that words and signs beside a name make one.
class TargetFinder
{
public:
    TargetFinder(const Tokens& tokens, int first, Bindings& bindings)
        : m_tokens(tokens)
        , m_first(first)
        , m_bindings(bindings)
    {
        for (int i = 0, depth = 0; i < tokens.size(); ++i) {
            depth += IsSign(tokens, i, "([{") ? 1 : IsSign(tokens, i, ")]}") ? -1 : 0;
            if (depth == 0 && tokens[i].sign == ASSIGNMENT)
                m_lastAssignment = i;
        }
    }

    void Find()
    {
        for (int i = 0; i < m_tokens.size(); ++i) {
            const PythonToken& token = m_tokens[i];
            m_depth += IsSign(m_tokens, i, "([{") ? 1 : IsSign(m_tokens, i, ")]}") ? -1 : 0;
            if (!token.isAttribute && token.word == QLatin1String("for"))
                m_isInFor = true;
            else if (!token.isAttribute && token.word == QLatin1String("in"))
                m_isInFor = false;
            else if (!token.isAttribute && token.word == QLatin1String("as"))
                m_isBehindAs = true;
            else if (token.sign == QLatin1Char(':'))
                m_isBehindAs = false;
            else if (PythonText::IsName(token.word) && !IsSign(m_tokens, i + 1, ".[("))
                Append(i);
        }
    }

private:
    void Append(int i)
    {
        const bool isWalrus
            = i + 1 < m_tokens.size() && m_tokens[i + 1].sign == PythonBindings::WALRUS;
        if (i >= m_lastAssignment && !m_isInFor && !m_isBehindAs && !isWalrus && !IsAnnotated(i))
            return;
        // What runs through a comprehension stays in there.
        const Scope scope = m_isInFor && m_depth > 0 ? Scope::Inside : Scope::Here;
        if (IsMember(i))
            m_bindings.append({m_tokens[i].word, Kind::Unknown, Scope::Member});
        else if (IsBindable(m_tokens[i]))
            m_bindings.append({m_tokens[i].word, Kind::Variable, scope, IsFinal()});
    }

    bool IsMember(int i) const
    {
        return m_tokens[i].isAttribute && !IsSign(m_tokens, i - 3, ".")
            && (IsWord(m_tokens, i - 2, "self") || IsWord(m_tokens, i - 2, "cls"));
    }

    bool IsAnnotated(int i) const
    {
        const int first = IsMember(i) ? i - 2 : i;
        return first == m_first && IsSign(m_tokens, i + 1, ":");
    }

    /// "name = anything", but None does not hide what the name is at other times.
    bool IsFinal() const
    {
        return m_lastAssignment == 1 && m_tokens.size() > 2
            && !IsWord(m_tokens, m_lastAssignment + 1, "None");
    }

    const Tokens& m_tokens;
    const int m_first;
    Bindings& m_bindings;
    int m_lastAssignment = -1; ///< outside brackets
    int m_depth = 0;
    bool m_isInFor = false;
    bool m_isBehindAs = false;
};

/// Null for a character that begins no sign of several characters.
QChar LongSign(QChar first, QChar second)
{
    if (second != ASSIGNMENT)
        return {};
    if (first == QLatin1Char(':'))
        return PythonBindings::WALRUS;
    return QLatin1String("=<>!").contains(first) ? PythonBindings::COMPARISON : QChar();
}

} // namespace

bool PythonBindings::IsKeyword(QStringView word)
{
    static const WordSet KEYWORDS(QStringLiteral(
        "False None True and as assert async await break class continue def del elif "
        "else except finally for from global if import in is lambda nonlocal not or "
        "pass raise return try while with yield")
                                      .split(QLatin1Char(' ')));
    return KEYWORDS.Contains(word);
}

void PythonBindings::AppendTokens(QStringView code, QStringView line, QVector<PythonToken>& tokens)
{
    for (int start = 0; start < code.size();) {
        const QChar character = code[start];
        if (character == QLatin1Char(' ') || character == QLatin1Char('\t')) {
            ++start;
            continue;
        }
        if (!PythonText::IsNameCharacter(character)) {
            const QChar sign
                = start + 1 < code.size() ? LongSign(character, code[start + 1]) : QChar();
            tokens.append({{}, sign.isNull() ? character : sign});
            start += sign.isNull() ? 1 : 2;
            continue;
        }
        int end = start + 1;
        while (end < code.size() && PythonText::IsNameCharacter(code[end]))
            ++end;
        const bool isAttribute = start > 0 && code[start - 1] == QLatin1Char('.');
        tokens.append({line.mid(start, end - start), {}, isAttribute});
        start = end;
    }
}

void PythonBindings::AppendBindings(
    const QVector<PythonToken>& tokens, QVector<PythonBinding>& bindings)
{
    const int first = IsWord(tokens, 0, "async") ? 1 : 0;
    const bool isNamed = first + 1 < tokens.size() && IsBindable(tokens[first + 1]);
    if (IsWord(tokens, first, "import")) {
        AppendImports(tokens, first + 1, bindings);
        return;
    }
    if (IsWord(tokens, first, "from")) {
        int list = first + 1;
        while (list < tokens.size() && !IsWord(tokens, list, "import"))
            ++list;
        AppendImports(tokens, list + 1, bindings);
        return;
    }
    if (IsWord(tokens, first, "global")) {
        AppendAll(tokens, first + 1, Scope::Global, bindings);
        return;
    }
    if (IsWord(tokens, first, "case"))
        AppendAll(tokens, first + 1, Scope::Here, bindings);
    if (IsWord(tokens, first, "class") && isNamed)
        bindings.append({tokens[first + 1].word, Kind::Class});
    if (IsWord(tokens, first, "def") && isNamed) {
        bindings.append({tokens[first + 1].word, Kind::Function});
        AppendAll(tokens, first + 2, Scope::Argument, bindings);
    }
    TargetFinder(tokens, first, bindings).Find();
}
