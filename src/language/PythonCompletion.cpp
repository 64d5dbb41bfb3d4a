#include "language/PythonCompletion.h"

#include "language/PythonExcerpt.h"
#include "language/PythonLines.h"
#include "language/PythonSource.h"
#include "language/PythonText.h"

#include <QRegularExpression>

namespace {

using PythonText::IndentLength;
using PythonText::IndentWidth;
using PythonText::IsCode;
using PythonText::IsName;

constexpr int SHORT_SOURCE = 8000; ///< characters; the host reads them in a few milliseconds

/// Where the name that ends at `end` begins; `end` itself when none does.
int NameStart(const QString& text, int end)
{
    int start = end;
    while (start > 0 && PythonText::IsNameCharacter(text.at(start - 1)))
        --start;
    return start;
}

/// The names and dots that end behind the dot at `dot`; empty when anything else is part of it.
QString ChainBefore(const QString& text, int dot)
{
    int start = dot;
    for (;;) {
        const int nameStart = NameStart(text, start);
        if (!IsName(text.mid(nameStart, start - nameStart)))
            return {};
        if (nameStart == 0 || text.at(nameStart - 1) != QLatin1Char('.'))
            return text.mid(nameStart, dot - nameStart);
        start = nameStart - 1;
    }
}

/// Where the blanks begin that end at `end`.
int BlanksBefore(const QString& text, int end)
{
    while (
        end > 0 && (text.at(end - 1) == QLatin1Char(' ') || text.at(end - 1) == QLatin1Char('\t')))
        --end;
    return end;
}

/// The lines from `first` to `last` that one statement takes, from 0.
struct StatementLines
{
    int first = 0;
    int last = 0;
};

/// A statement whose brackets are still open takes what is indented deeper, but not all the rest.
StatementLines StatementAt(const QStringList& lines, int line)
{
    PythonLineReader reader;
    StatementLines statement{line, line};
    for (int i = 0; i <= line; ++i) {
        if (!reader.Continues(lines[i]))
            statement.first = i;
    }
    const int indent = IndentWidth(lines[statement.first]);
    for (int i = line + 1; i < lines.size() && reader.IsOpen(); ++i) {
        const QString trimmed = lines[i].trimmed();
        const bool closes = !trimmed.isEmpty() && QLatin1String(")]}").contains(trimmed.at(0));
        if (!trimmed.isEmpty() && !closes && IndentWidth(lines[i]) <= indent)
            break;
        if (!reader.Continues(lines[i]))
            break;
        statement.last = i;
    }
    return statement;
}

/// Branches of a statement whose head was replaced stand on their own then.
void FreeBranches(QStringList& lines, int from, int indent)
{
    static const QRegularExpression BRANCH(
        QStringLiteral("^(\\s*)(?:elif|else|except|finally)\\b.*:"));
    for (int i = from; i < lines.size(); ++i) {
        if (!IsCode(lines[i]) || IndentWidth(lines[i]) > indent)
            continue;
        const QRegularExpressionMatch match = BRANCH.match(lines[i]);
        if (IndentWidth(lines[i]) < indent || !match.hasMatch())
            return;
        lines[i].replace(0, match.capturedLength(), match.captured(1) + QLatin1String("if 1:"));
    }
}

const QRegularExpression& TryPattern()
{
    static const QRegularExpression pattern(QStringLiteral("^(\\s*)try\\b\\s*:"));
    return pattern;
}

bool IsHandler(const QString& line)
{
    static const QRegularExpression HANDLER(QStringLiteral("^\\s*(?:except|finally)\\b"));
    return HANDLER.match(line).hasMatch();
}

/// Whether the block whose head ends above `from`, of that indent, has a handler behind it.
bool HasHandler(const QStringList& lines, int from, int indent)
{
    for (int i = from; i < lines.size(); ++i) {
        if (IsCode(lines[i]) && IndentWidth(lines[i]) <= indent)
            return IndentWidth(lines[i]) == indent && IsHandler(lines[i]);
    }
    return false;
}

/// Nobody writes the handlers first: where the statement stands in blocks that have none yet, or
/// is the first of them itself, there shall be plain blocks.
void FreeTries(QStringList& lines, const StatementLines& statement)
{
    int indent = IndentWidth(lines[statement.first]);
    bool isLastHandler = IsHandler(lines[statement.first]); // of the block above
    for (int i = statement.first - 1; i >= 0 && (indent > 0 || isLastHandler); --i) {
        const int width = IndentWidth(lines[i]);
        if (!IsCode(lines[i]) || width > indent || (width == indent && !isLastHandler))
            continue;
        const bool isSibling = width == indent;
        const QRegularExpressionMatch match = TryPattern().match(lines[i]);
        const bool isBare = isSibling || !HasHandler(lines, statement.last + 1, width);
        if (match.hasMatch() && isBare)
            lines[i].replace(0, match.capturedLength(), match.captured(1) + QLatin1String("if 1:"));
        indent = width;
        isLastHandler = false;
    }
}

} // namespace

PythonCompletion::Request PythonCompletion::RequestAt(const QString& before)
{
    static const QRegularExpression IMPORTED(
        QStringLiteral("^\\s*from\\s+([^\\W\\d][\\w.]*)\\s+import\\s*[\\s(](?:.*,\\s*)?\\w*\\z"),
        QRegularExpression::UseUnicodePropertiesOption);
    static const QRegularExpression NOTHING(
        QStringLiteral("^\\s*(?:import|from)\\s|\\b(?:def|class)\\s+\\w*\\z"),
        QRegularExpression::UseUnicodePropertiesOption);
    Request request;
    const int start = NameStart(before, before.size());
    request.prefix = before.mid(start);
    if (!request.prefix.isEmpty() && !IsName(request.prefix))
        return request;
    const QRegularExpressionMatch imported = IMPORTED.match(before);
    if (imported.hasMatch()) {
        request.object = imported.captured(1);
        request.isImport = true;
        request.isValid = true;
        return request;
    }
    if (NOTHING.match(before).hasMatch())
        return request;
    if (start > 0 && before.at(start - 1) == QLatin1Char('.')) {
        request.object = ChainBefore(before, start - 1);
        request.isValid = !request.object.isEmpty();
        return request;
    }
    request.isValid = true;
    return request;
}

QString PythonCompletion::SourceFor(const PythonSource& source, const QString& lineText,
    const QString& object, const QStringList& imports, int limit)
{
    if (source.GetSize() <= SHORT_SOURCE)
        return MarkedSource(source.GetText(lineText), source.GetLine(), imports);
    const QStringList chain = object.split(QLatin1Char('.'), Qt::SkipEmptyParts);
    const PythonExcerpt excerpt(source, chain, limit);
    if (excerpt.IsTooLong())
        return {};
    const PythonExcerpt::Text text = excerpt.GetText(lineText);
    return MarkedSource(text.text, text.line, imports);
}

QString PythonCompletion::MarkedSource(const QString& text, int line, const QStringList& imports)
{
    QStringList lines = text.split(QLatin1Char('\n'));
    const StatementLines statement = StatementAt(lines, qMin(line, lines.size() - 1));
    const QString& head = lines[statement.first];
    const int indent = IndentWidth(head);
    QString marker = head.left(IndentLength(head))
        + QLatin1String("def __tedefloc__(__tarnwick_lctr_qnht__):");
    int next = statement.last + 1;
    while (next < lines.size() && !IsCode(lines[next]))
        ++next;
    if (next == lines.size() || IndentWidth(lines[next]) <= indent)
        marker += QLatin1String(" pass");
    FreeTries(lines, statement);
    FreeBranches(lines, statement.last + 1, indent);
    lines[statement.first] = marker;
    for (int i = statement.first + 1; i <= statement.last; ++i)
        lines[i].clear();
    lines += imports;
    return lines.join(QLatin1Char('\n'));
}

QString PythonCompletion::EscapedForPython(QString text)
{
    const int end = text.endsWith(QLatin1Char('\n')) ? text.size() - 1 : text.size();
    const int start = BlanksBefore(text, end);
    text.remove(start, end - start);
    text.append(QLatin1Char('\n'));
    text.replace(QLatin1String("\\"), QLatin1String("\\\\"));
    text.replace(QLatin1String("\n"), QLatin1String("\\n"));
    text.replace(QLatin1String("\""), QLatin1String("\\\""));
    return text;
}
