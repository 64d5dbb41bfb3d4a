#include "language/PythonCompletion.h"

#include "language/PythonLines.h"

#include <QRegularExpression>

namespace {

constexpr int TAB_WIDTH = 8;

int IndentLength(const QString& line)
{
    int length = 0;
    while (length < line.size() && line.at(length).isSpace())
        ++length;
    return length;
}

int IndentWidth(const QString& line)
{
    int width = 0;
    for (const QChar character : line) {
        if (!character.isSpace())
            break;
        width += character == QLatin1Char('\t') ? TAB_WIDTH - width % TAB_WIDTH : 1;
    }
    return width;
}

bool IsCode(const QString& line)
{
    const int indent = IndentLength(line);
    return indent < line.size() && line.at(indent) != QLatin1Char('#');
}

bool IsNameCharacter(QChar character)
{
    return character.isLetterOrNumber() || character == QLatin1Char('_');
}

/// Where the name that ends at `end` begins; `end` itself when none does.
int NameStart(const QString& text, int end)
{
    int start = end;
    while (start > 0 && IsNameCharacter(text.at(start - 1)))
        --start;
    return start;
}

bool IsName(const QString& word)
{
    return !word.isEmpty() && !word.at(0).isDigit();
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

/// Nobody at another place sees the names within a function, and reading them takes the host long.
/// Only whole functions at the top level go, the one of `line` stays.
void EmptyFunctions(QStringList& lines, int line)
{
    static const QRegularExpression FUNCTION(QStringLiteral("^(?:async\\s+)?def\\b"));
    PythonLineReader reader;
    int first = -1; // of the function that is read
    int body = -1;
    bool isInHead = false;
    const auto emptyUpTo = [&](int end) {
        if (first < 0 || body < 0 || (line >= first && line < end))
            return;
        for (int i = body; i < end; ++i)
            lines[i].clear();
        lines[body] = QStringLiteral(" pass");
    };
    for (int i = 0; i < lines.size(); ++i) {
        const bool continues = reader.Continues(lines[i]);
        if (continues || !IsCode(lines[i]))
            continue;
        if (IndentWidth(lines[i]) > 0) {
            if (isInHead)
                body = i;
            isInHead = false;
            continue;
        }
        emptyUpTo(i);
        isInHead = FUNCTION.match(lines[i]).hasMatch();
        first = isInHead ? i : -1;
        body = -1;
    }
    emptyUpTo(lines.size());
}

/// Every name but attributes.
void AppendWords(const QString& code, QHash<QString, QString>& names)
{
    for (int start = 0; start < code.size();) {
        if (!IsNameCharacter(code.at(start))) {
            ++start;
            continue;
        }
        int end = start + 1;
        while (end < code.size() && IsNameCharacter(code.at(end)))
            ++end;
        const bool isAttribute = start > 0 && code.at(start - 1) == QLatin1Char('.');
        const QString name = code.mid(start, end - start);
        if (!isAttribute && IsName(name) && !names.contains(name))
            names.insert(name, QString());
        start = end;
    }
}

/// What a line of code binds, by the word before it or the sign behind it.
void AppendDefinitions(const QString& code, QHash<QString, QString>& names)
{
    static const struct
    {
        QLatin1String sign; // searched first: most lines define nothing
        QRegularExpression pattern;
        QString iconName;
    } KINDS[] = {
        // clang-format off
        {QLatin1String("def "),    QRegularExpression(QStringLiteral("\\bdef\\s+(\\w+)")),                                    QStringLiteral("python_method")},
        {QLatin1String("class "),  QRegularExpression(QStringLiteral("\\bclass\\s+(\\w+)")),                                  QStringLiteral("python_class")},
        {QLatin1String("import "), QRegularExpression(QStringLiteral("^\\s*(?:from\\b.*)?\\bimport\\b.*?\\b(\\w+)\\s*$")), QStringLiteral("python_import")},
        {QLatin1String("="),       QRegularExpression(QStringLiteral("^\\s*(\\w+)\\s*=(?!=)")),                              QStringLiteral("python_variable")},
        {QLatin1String("for "),    QRegularExpression(QStringLiteral("\\bfor\\s+(\\w+)\\b")),                               QStringLiteral("python_variable")},
        // clang-format on
    };
    for (const auto& kind : KINDS) {
        if (!code.contains(kind.sign))
            continue;
        const QRegularExpressionMatch match = kind.pattern.match(code);
        if (match.hasMatch())
            names.insert(match.captured(1), kind.iconName);
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

QString PythonCompletion::SourceFor(const QString& text, int line, const QStringList& imports)
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
    FreeBranches(lines, statement.last + 1, indent);
    lines[statement.first] = marker;
    for (int i = statement.first + 1; i <= statement.last; ++i)
        lines[i].clear();
    EmptyFunctions(lines, statement.first);
    lines += imports;
    return lines.join(QLatin1Char('\n'));
}

QHash<QString, QString> PythonCompletion::NamesIn(const QString& text, int line)
{
    QHash<QString, QString> names;
    PythonLineReader reader;
    int number = 0;
    for (const QStringRef& each : text.splitRef(QLatin1Char('\n'))) {
        reader.Continues(each);
        if (number++ == line)
            continue;
        AppendWords(reader.GetCode(), names);
        AppendDefinitions(reader.GetCode(), names);
    }
    return names;
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
