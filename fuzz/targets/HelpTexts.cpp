// What the host says about its commands, taken apart; and texts put into commands for it.

#include "fuzz/Fuzz.h"
#include "mel/Lexer.h"
#include "plugin/MelText.h"
#include "views/quickhelp/QuickHelpText.h"

using namespace host;
using fuzz::Expect;

namespace {

void ReadHelp(const QString& help)
{
    const QStringList triples = MelText::FlagsOfHelp(help);
    Expect(triples.size() % 3 == 0, QStringLiteral("three texts for each flag"));
    const QVector<QuickHelpTopic::Flag> flags = QuickHelpText::Flags(triples);
    QString last;
    for (const QuickHelpTopic::Flag& flag : flags) {
        Expect(!flag.longName.isEmpty(), QStringLiteral("a flag has a name"));
        Expect(last.compare(flag.longName, Qt::CaseInsensitive) <= 0 || last < flag.longName,
            QStringLiteral("flags are sorted: %1, %2").arg(last, flag.longName));
        last = flag.longName;
    }
    QuickHelpText::Synopsis(help);
    QuickHelpText::Flags(help.split(QLatin1Char('\n')));
}

/// The interpreter reads what was escaped as the text it was. Texts of documents hold no other
/// line ends.
void Escape(QString text)
{
    text.remove(QLatin1Char('\r'));
    const QString literal = QLatin1Char('"') + MelText::Escaped(text) + QLatin1Char('"');
    const mel::Lexer lexer(literal);
    const mel::Token token = lexer.Next(0, mel::Lexer::Mode::Expression);
    Expect(token.kind == mel::TokenKind::String && token.end == literal.size(),
        QStringLiteral("one string: %1").arg(literal));
    QString expected = text;
    expected.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    Expect(lexer.StringValue(token) == expected,
        QStringLiteral("%1 is read as %2").arg(expected, lexer.StringValue(token)));
}

void ReadNames(const QString& text)
{
    const QString name = QuickHelpText::DottedNameIn(text);
    Expect(text.contains(name), QStringLiteral("a name stands in its text"));
    const QString last = QuickHelpText::LastPart(name);
    Expect(
        name.endsWith(last) && !last.contains(QLatin1Char('.')), QStringLiteral("its last part"));
    MelText::IsVariable(text);
    const QString path = MelText::WithoutStandardLibrary(text, QStringLiteral(":"));
    Expect(path.isEmpty() || path.endsWith(QLatin1Char(':')), QStringLiteral("entries end"));
}

} // namespace

TE2_FUZZ_TARGET(HelpTexts)
{
    const QString text = input.Text(50000);
    ReadHelp(text);
    Escape(text);
    ReadNames(text);
    const QString procedure = QuickHelpText::LastPart(QuickHelpText::DottedNameIn(text));
    const QuickHelpText::Definition definition = QuickHelpText::DefinitionIn(text, procedure);
    Expect(definition.header.isEmpty() || definition.line >= 1,
        QStringLiteral("a definition has a place"));
}
