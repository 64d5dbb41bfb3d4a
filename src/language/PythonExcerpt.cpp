#include "language/PythonExcerpt.h"

#include "language/PythonText.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace {

using Kind = PythonStatement::Kind;
using Scope = PythonBinding::Scope;

constexpr int LONG_LITERAL = 6; ///< lines

/// Of a list or dictionary of many lines that gets a name, so much as tells what it is; all of
/// everything else.
QStringList Shortened(const QStringList& lines)
{
    static const QRegularExpression START(QStringLiteral("^[\\s\\w.]+= ?([\\[{])$"));
    if (lines.size() < LONG_LITERAL)
        return lines;
    const QString bracket = START.match(lines.first()).captured(1);
    const QString last = lines.last().trimmed();
    const bool isList = bracket == QLatin1String("[") && last == QLatin1String("]");
    const bool isDictionary = bracket == QLatin1String("{") && last == QLatin1String("}")
        && lines[1].contains(QLatin1Char(':'));
    const bool isShort = (isList || isDictionary)
        && std::none_of(lines.cbegin(), lines.cend(),
            [](const QString& line) { return line.contains(QLatin1String(":=")); });
    return isShort ? QStringList{lines.first(), lines.last()} : lines;
}

} // namespace

PythonExcerpt::PythonExcerpt(const PythonSource& source, const QStringList& chain, int limit)
    : m_source(source)
    , m_statements(source.GetStatements())
    , m_limit(limit)
    , m_isNeeded(source.GetNames().size())
    , m_isKept(m_statements.size())
    , m_isResolved(m_statements.size())
    , m_isOpen(m_statements.size())
{
    for (int i = 0; i < m_statements.size(); ++i) {
        if (m_statements[i].isStarImport)
            Keep(i);
    }
    Keep(source.GetLineStatement());
    if (chain.isEmpty())
        return;
    for (const QString& name : chain)
        Need(source.FindName(name));
    for (int i = m_statements[source.GetLineStatement()].owner; i >= 0; i = m_statements[i].owner) {
        if (IsKind(i, Kind::Class))
            NeedClass(i);
        else
            Activate(i);
    }
    Follow();
}

void PythonExcerpt::Follow()
{
    while (!m_queue.isEmpty() && !IsTooLong()) {
        QSet<int> settled; // owners in which the name was bound anew
        const int name = m_queue.takeLast();
        for (int i = m_source.GetNames()[name].lastBinding; i >= 0;) {
            const PythonSource::Binding& binding = m_source.GetBindings()[i];
            i = binding.previous;
            const int owner = m_statements[binding.statement].owner;
            const bool isHere = binding.scope == Scope::Here;
            if ((isHere && settled.contains(owner)) || !Counts(binding))
                continue;
            if (isHere && binding.isFinal)
                settled.insert(owner);
            Resolve(binding.statement);
            if (IsTooLong())
                return;
        }
    }
}

void PythonExcerpt::Need(int name)
{
    if (name < 0 || m_isNeeded[name])
        return;
    m_isNeeded[name] = true;
    m_queue.append(name);
}

/// Whether what the statement binds can be seen from where it is needed.
bool PythonExcerpt::Counts(const PythonSource::Binding& binding) const
{
    switch (binding.scope) {
    case Scope::Here: {
        const int owner = m_statements[binding.statement].owner;
        return owner < 0 || m_isOpen[owner];
    }
    case Scope::Member: {
        const int around = ClassAround(binding.statement);
        return around >= 0 && m_isOpen[around];
    }
    case Scope::Argument: return m_isOpen[binding.statement];
    case Scope::Global: return true;
    case Scope::Inside: break;
    }
    return false;
}

void PythonExcerpt::Resolve(int statement)
{
    if (m_isResolved[statement])
        return;
    m_isResolved[statement] = true;
    Keep(statement);
    NeedWords(statement);
    if (IsKind(statement, Kind::Class))
        NeedClass(statement);
    for (int i = m_statements[statement].owner; i >= 0; i = m_statements[i].owner) {
        if (IsKind(i, Kind::Function))
            Activate(i);
    }
    // What it is made of may be known through self.
    const int around = ClassAround(statement);
    if (around >= 0)
        NeedClass(around);
}

/// Also those in strings, which annotations may be.
void PythonExcerpt::NeedWords(int statement)
{
    for (const QString& line : LinesOf(statement)) {
        for (int start = 0; start < line.size();) {
            int end = start;
            while (end < line.size() && PythonText::IsNameCharacter(line[end]))
                ++end;
            const QStringView word = QStringView(line).mid(start, end - start);
            if (PythonText::IsName(word) && !PythonBindings::IsKeyword(word))
                Need(m_source.FindName(word));
            start = end + 1;
        }
    }
}

/// All its members are listed, and what is known of those that are needed.
void PythonExcerpt::NeedClass(int statement)
{
    if (m_isOpen[statement])
        return;
    m_isOpen[statement] = true;
    Resolve(statement);
    for (int i = statement + 1; i < m_statements[statement].end && !IsTooLong(); ++i) {
        for (int b = m_statements[i].firstBinding; b < m_statements[i].endOfBindings; ++b) {
            const PythonSource::Binding& binding = m_source.GetBindings()[b];
            const bool isOwn = binding.scope == Scope::Member
                ? ClassAround(i) == statement
                : binding.scope == Scope::Here && m_statements[i].owner == statement;
            if (!isOwn)
                continue;
            Keep(i);
            if (m_isNeeded[binding.name])
                Resolve(i);
        }
    }
}

void PythonExcerpt::Activate(int function)
{
    if (m_isOpen[function])
        return;
    m_isOpen[function] = true;
    for (int i = function; i < m_statements[function].end && !IsTooLong(); ++i) {
        for (int b = m_statements[i].firstBinding; b < m_statements[i].endOfBindings; ++b) {
            const PythonSource::Binding& binding = m_source.GetBindings()[b];
            if (m_isNeeded[binding.name] && Counts(binding))
                Resolve(i);
        }
    }
}

/// With what it stands in. A statement with branches is kept with all their heads.
void PythonExcerpt::Keep(int statement)
{
    if (statement < 0 || m_isKept[statement] || m_statements[statement].isUnfinished)
        return;
    m_isKept[statement] = true;
    for (const QString& line : LinesOf(statement))
        m_size += line.size() + 1;
    const PythonStatement& kept = m_statements[statement];
    Keep(kept.parent);
    Keep(kept.partner);
    for (int i = kept.end; i < m_statements.size() && m_statements[i].partner == statement;
         i = m_statements[i].end)
        Keep(i);
}

int PythonExcerpt::ClassAround(int statement) const
{
    int owner = m_statements[statement].owner;
    while (owner >= 0 && !IsKind(owner, Kind::Class))
        owner = m_statements[owner].owner;
    return owner;
}

bool PythonExcerpt::IsKind(int statement, Kind kind) const
{
    return m_statements[statement].kind == kind;
}

bool PythonExcerpt::HasKeptInside(int statement) const
{
    // What stands in a statement comes directly behind it, with the heads that it stands in.
    for (int i = statement + 1; i < m_statements[statement].end; ++i) {
        if (m_isKept[i])
            return true;
    }
    return false;
}

QStringList PythonExcerpt::LinesOf(int statement) const
{
    QStringList lines;
    for (int i = m_statements[statement].firstLine; i <= m_statements[statement].lastLine; ++i)
        lines.append(m_source.GetLineText(i).toString());
    return statement == m_source.GetLineStatement() ? lines : Shortened(lines);
}

PythonExcerpt::Text PythonExcerpt::GetText(const QString& lineText) const
{
    Text excerpt;
    QStringList lines;
    for (int i = 0; i < m_statements.size(); ++i) {
        if (!m_isKept[i])
            continue;
        const int first = lines.size();
        lines += LinesOf(i);
        const PythonStatement& kept = m_statements[i];
        if (i == m_source.GetLineStatement()) {
            excerpt.line = first + m_source.GetLine() - kept.firstLine;
            lines[excerpt.line] = lineText;
        } else if (kept.isOpenHead && !HasKeptInside(i)) {
            const QString& head = lines[first];
            lines.append(head.left(PythonText::IndentLength(head)) + QLatin1String(" pass"));
        }
    }
    excerpt.text = lines.join(QLatin1Char('\n'));
    return excerpt;
}
