#include "language/PythonSource.h"

#include "language/PythonText.h"

#include <algorithm>
#include <iterator>

namespace {

using Statement = PythonStatement;

constexpr int LINES_BETWEEN_LOOKS = 256; ///< whether somebody still wants the result

Statement::Kind KindOf(QStringView word)
{
    static const struct
    {
        const char* words; // each between blanks
        Statement::Kind kind;
    } KINDS[] = {
        {" def ", Statement::Kind::Function},
        {" class ", Statement::Kind::Class},
        {" elif else except finally ", Statement::Kind::Branch},
        {" if for while with try match async ", Statement::Kind::Block},
    };
    if (word.isEmpty() || word.size() > 7)
        return Statement::Kind::Simple;
    const QString framed = QLatin1Char(' ') + word.toString() + QLatin1Char(' ');
    for (const auto& each : KINDS) {
        if (QLatin1String(each.words).contains(framed))
            return each.kind;
    }
    return Statement::Kind::Simple;
}

Statement::Kind KindOf(const QVector<PythonToken>& tokens)
{
    const bool isAsync = tokens.size() > 1 && tokens[0].word == QLatin1String("async");
    return tokens.isEmpty() ? Statement::Kind::Simple : KindOf(tokens[isAsync ? 1 : 0].word);
}

bool IsOwner(const Statement& statement)
{
    return statement.kind == Statement::Kind::Function || statement.kind == Statement::Kind::Class;
}

} // namespace

/// What is known while the text is being read.
struct PythonSource::Reading
{
    PythonLineReader reader;
    QVector<PythonToken> tokens; ///< of the statement, without its decorators
    QVector<PythonBinding> bindings; ///< of one statement, kept for its memory
    QVector<int> heads; ///< statements that those to come may stand in
    bool isDecorator = false;
    bool isInStatement = false;
    bool hasLine = false; ///< the statement is being written
};

PythonSource::PythonSource(const QString& text, int line, const std::atomic<bool>* isCancelled)
    : m_text(text)
    , m_line(line)
{
    SplitLines();
    Read(isCancelled);
}

bool PythonSource::IsListedBefore(QStringView left, QStringView right)
{
    const bool leftIsPrivate = left.startsWith(QLatin1Char('_'));
    if (leftIsPrivate != right.startsWith(QLatin1Char('_')))
        return !leftIsPrivate;
    const int order = left.compare(right, Qt::CaseInsensitive);
    return order != 0 ? order < 0 : left < right;
}

void PythonSource::SplitLines()
{
    m_lineStarts.append(0);
    for (int i = m_text.indexOf(QLatin1Char('\n')); i >= 0;
         i = m_text.indexOf(QLatin1Char('\n'), i + 1))
        m_lineStarts.append(i + 1);
}

QStringView PythonSource::GetLineText(int line) const
{
    const int start = m_lineStarts[line];
    const int end = line + 1 < m_lineStarts.size() ? m_lineStarts[line + 1] - 1 : m_text.size();
    return QStringView(m_text).mid(start, end - start);
}

QString PythonSource::GetText(const QString& lineText) const
{
    QString text = m_text;
    return text.replace(m_lineStarts[m_line], GetLineText(m_line).size(), lineText);
}

bool PythonSource::LineState::IsLike(const LineState& other) const
{
    const bool isBranch = kind == Statement::Kind::Branch;
    return continues == other.continues && isOpen == other.isOpen && indent == other.indent
        && isBranch == (other.kind == Statement::Kind::Branch);
}

PythonSource::LineState PythonSource::StateOf(PythonLineReader before, QStringView line)
{
    LineState state;
    state.continues = before.Continues(line);
    state.isOpen = before.IsOpen();
    state.indent = PythonText::IndentWidth(line);
    const QStringView code = line.trimmed();
    int end = 0;
    while (end < code.size() && PythonText::IsNameCharacter(code[end]))
        ++end;
    state.kind = KindOf(code.left(end));
    return state;
}

bool PythonSource::StillHolds(const QString& lineText) const
{
    return m_line >= 0 && StateOf(m_beforeLine, lineText).IsLike(m_lineState);
}

void PythonSource::Read(const std::atomic<bool>* isCancelled)
{
    Reading reading;
    for (int line = 0; line < m_lineStarts.size(); ++line) {
        if (line % LINES_BETWEEN_LOOKS == 0 && isCancelled && *isCancelled)
            return;
        ReadLine(reading, line);
    }
    Finish(reading);
    for (const int head : qAsConst(reading.heads))
        m_statements[head].end = m_statements.size();
    CollectWords();
}

void PythonSource::ReadLine(Reading& reading, int line)
{
    const QStringView text = GetLineText(line);
    const int indent = PythonText::IndentWidth(text);
    PythonLineReader& reader = reading.reader;
    if (line == m_line) {
        m_beforeLine = reader;
        m_lineState = StateOf(reader, text);
    } else if (reading.hasLine && !reader.IsInString() && reader.IsOpen()) {
        // Brackets that are just being typed take what is indented deeper, but not all the rest.
        const QStringView trimmed = text.trimmed();
        const bool closes = !trimmed.isEmpty() && QLatin1String(")]}").contains(trimmed.front());
        if (!trimmed.isEmpty() && !closes && indent <= m_statements.last().indent)
            reader = PythonLineReader();
    }
    const bool wasOpen = reader.IsOpen();
    const bool continues = reader.Continues(text);
    if (!continues && wasOpen && reading.isInStatement && !reading.hasLine)
        m_statements.last().isUnfinished = true;
    if (!continues && (line == m_line || PythonText::IsCode(text)))
        Begin(reading, line, indent);
    else if (continues && reading.isInStatement)
        m_statements.last().lastLine = line;
    if (line == m_line) {
        reading.hasLine = true;
        m_lineStatement = m_statements.size() - 1;
        return;
    }
    const int from = reading.tokens.size();
    PythonBindings::AppendTokens(reader.GetCode(), text, reading.tokens);
    AppendWords(reading.tokens, from);
}

void PythonSource::Begin(Reading& reading, int line, int indent)
{
    if (reading.isDecorator)
        reading.tokens.clear(); // the definition below goes on with it
    else
        Finish(reading);
    const bool isDecorator
        = line != m_line && GetLineText(line).trimmed().startsWith(QLatin1Char('@'));
    if (!reading.isDecorator) {
        PythonStatement statement;
        statement.firstLine = line;
        m_statements.append(statement);
        reading.isInStatement = true;
    }
    m_statements.last().lastLine = line;
    m_statements.last().indent = indent;
    reading.isDecorator = isDecorator;
}

/// The statement that was read last is over.
void PythonSource::Finish(Reading& reading)
{
    if (reading.isInStatement) {
        PythonStatement& statement = m_statements.last();
        const bool beginsWithLine = reading.hasLine && statement.firstLine == m_line;
        statement.kind = beginsWithLine ? m_lineState.kind : KindOf(reading.tokens);
        Place(reading, statement);
        statement.firstBinding = m_bindings.size();
        if (!reading.hasLine)
            AppendBindings(reading);
        statement.endOfBindings = m_bindings.size();
    }
    reading.tokens.clear();
    reading.isInStatement = false;
    reading.isDecorator = false;
    reading.hasLine = false;
}

/// Among the statements before it.
void PythonSource::Place(Reading& reading, PythonStatement& statement)
{
    const int index = m_statements.size() - 1;
    statement.end = index + 1;
    int last = -1; // that ended here
    while (
        !reading.heads.isEmpty() && m_statements[reading.heads.last()].indent >= statement.indent) {
        last = reading.heads.takeLast();
        m_statements[last].end = index;
    }
    if (!reading.heads.isEmpty()) {
        statement.parent = reading.heads.last();
        const PythonStatement& parent = m_statements[statement.parent];
        statement.owner = IsOwner(parent) ? statement.parent : parent.owner;
    }
    if (statement.kind == Statement::Kind::Branch && last >= 0
        && m_statements[last].indent == statement.indent)
        statement.partner = m_statements[last].kind == Statement::Kind::Branch
            ? m_statements[last].partner
            : last;
    reading.heads.append(index);
    const QVector<PythonToken>& tokens = reading.tokens;
    statement.isOpenHead = statement.kind != Statement::Kind::Simple && !tokens.isEmpty()
        && tokens.last().sign == QLatin1Char(':');
    statement.isStarImport = tokens.size() > 3 && tokens[0].word == QLatin1String("from")
        && tokens.last().sign == QLatin1Char('*');
}

void PythonSource::AppendBindings(Reading& reading)
{
    reading.bindings.clear();
    PythonBindings::AppendBindings(reading.tokens, reading.bindings);
    for (const PythonBinding& found : qAsConst(reading.bindings)) {
        const int number = NumberOf(found.name);
        Name& name = m_names[number];
        if (found.kind != PythonNameKind::Unknown)
            name.kind = found.kind;
        if (found.scope == PythonBinding::Scope::Inside)
            continue;
        m_bindings.append(
            {number, m_statements.size() - 1, name.lastBinding, found.scope, found.isFinal});
        name.lastBinding = m_bindings.size() - 1;
    }
}

void PythonSource::AppendWords(const QVector<PythonToken>& tokens, int from)
{
    for (int i = from; i < tokens.size(); ++i) {
        if (!tokens[i].isAttribute && PythonText::IsName(tokens[i].word))
            m_names[NumberOf(tokens[i].word)].isWord = true;
    }
}

int PythonSource::SlotOf(QStringView name) const
{
    const int mask = m_slots.size() - 1;
    int slot = static_cast<int>(qHash(name)) & mask;
    while (m_slots[slot] >= 0 && m_names[m_slots[slot]].text != name)
        slot = (slot + 1) & mask;
    return slot;
}

void PythonSource::GrowSlots()
{
    constexpr int SMALLEST = 256;
    m_slots.fill(-1, qMax(SMALLEST, m_slots.size() * 2));
    for (int i = 0; i < m_names.size(); ++i)
        m_slots[SlotOf(m_names[i].text)] = i;
}

int PythonSource::FindName(QStringView name) const
{
    return m_slots.isEmpty() ? -1 : m_slots[SlotOf(name)];
}

int PythonSource::NumberOf(QStringView name)
{
    if (m_names.size() * 2 >= m_slots.size())
        GrowSlots();
    int& number = m_slots[SlotOf(name)];
    if (number < 0) {
        number = m_names.size();
        m_names.append({name});
    }
    return number;
}

void PythonSource::CollectWords()
{
    std::copy_if(m_names.cbegin(), m_names.cend(), std::back_inserter(m_words),
        [](const Name& name) { return name.isWord; });
    std::sort(m_words.begin(), m_words.end(),
        [](const Name& left, const Name& right) { return IsListedBefore(left.text, right.text); });
}
