// What completion reads of Python: statements nest, names stand in the text, and nothing is lost.

#include "fuzz/Fuzz.h"
#include "language/MelStatement.h"
#include "language/PythonCompletion.h"
#include "language/PythonForcedImports.h"
#include "language/PythonSource.h"

#include <QStringList>

using fuzz::Expect;

namespace {

constexpr int LIMIT = 20000;

void ExpectNested(const PythonSource& source, int lines)
{
    const QVector<PythonStatement>& statements = source.GetStatements();
    for (int i = 0; i < statements.size(); ++i) {
        const PythonStatement& statement = statements.at(i);
        Expect(0 <= statement.firstLine && statement.firstLine <= statement.lastLine
                && statement.lastLine < lines,
            [i] { return QStringLiteral("statement %1 has lines").arg(i); });
        Expect(statement.parent < i && statement.owner < i && statement.partner < i
                && statement.end > i && statement.end <= statements.size(),
            [i] { return QStringLiteral("statement %1 stands below those before it").arg(i); });
        Expect(0 <= statement.firstBinding && statement.firstBinding <= statement.endOfBindings
                && statement.endOfBindings <= source.GetBindings().size(),
            [i] { return QStringLiteral("statement %1 has bindings").arg(i); });
    }
    Expect(source.GetLineStatement() < statements.size(), QStringLiteral("its line has one"));
}

void ExpectNamed(const PythonSource& source, const QString& text)
{
    for (const PythonSource::Name& name : source.GetNames()) {
        Expect(text.contains(name.text.toString()), QStringLiteral("a name stands in the text"));
        Expect(
            name.lastBinding < source.GetBindings().size(), QStringLiteral("its binding is one"));
    }
    for (int i = 1; i < source.GetWords().size(); ++i) {
        Expect(!PythonSource::IsListedBefore(
                   source.GetWords().at(i).text, source.GetWords().at(i - 1).text),
            QStringLiteral("words are in order"));
    }
}

/// No quote ends the literal early, and no line end stands in it.
void ExpectEscaped(const QString& text)
{
    const QString escaped = PythonCompletion::EscapedForPython(text);
    bool isEscape = false;
    for (const QChar character : escaped) {
        Expect(character != QLatin1Char('\n') && (isEscape || character != QLatin1Char('"')),
            [&] { return QStringLiteral("one literal: %1").arg(escaped); });
        isEscape = !isEscape && character == QLatin1Char('\\');
    }
    Expect(!isEscape, QStringLiteral("with an end: %1").arg(escaped));
}

} // namespace

TE2_FUZZ_TARGET(PythonSources)
{
    const int place = input.Place(1000);
    const QString before = input.Text(1000);
    const QString text = input.Text(30000);
    const QStringList lines = text.split(QLatin1Char('\n'));
    const int line = place % (lines.size() + 1) - 1;
    const PythonSource source(text, line);
    ExpectNested(source, lines.size());
    ExpectNamed(source, text);
    if (line >= 0) {
        const QString own = lines.at(line);
        Expect(source.GetLineText(line) == own, QStringLiteral("the line: %1").arg(own));
        Expect(source.StillHolds(own), QStringLiteral("its own line changes nothing: %1").arg(own));
        Expect(source.GetText(own) == text, QStringLiteral("nothing is lost"));
    }
    const PythonCompletion::Request request = PythonCompletion::RequestAt(before);
    Expect(!request.isValid || before.endsWith(request.prefix),
        QStringLiteral("the prefix ends the line"));
    if (line >= 0) {
        const QString asked = PythonCompletion::SourceFor(
            source, before, request.object, {QStringLiteral("import os")}, LIMIT);
        // What stands for bodies that are left out is not counted.
        Expect(asked.size() <= 2 * LIMIT + before.size(),
            QStringLiteral("%1 of %2 is no longer than wanted").arg(asked.size()).arg(text.size()));
    }
    ExpectEscaped(text);
    PythonForcedImports::Parse(text);
    MelStatement::CommandBefore(text);
}
