// Both parsers of the editor: what they tell lies in the text, and telling it twice tells the same.

#include "editor/CodeEditorMarks.h"
#include "fuzz/Fuzz.h"
#include "language/MelParser.h"
#include "language/PythonParser.h"

#include <QStringList>
#include <QTextDocument>

using fuzz::Expect;

namespace {

/// Shows what the MEL parser finds and keeps to itself.
class TellingMelParser : public MelParser
{
protected:
    void AppendError(const QString& message, int start, int end) override
    {
        BaseParser::AppendError(message, start, end);
    }
};

QString Told(const QVector<ParserMessage>& messages, int length)
{
    QStringList told;
    for (const ParserMessage& message : messages) {
        const QString text
            = QStringLiteral("%1-%2 %3").arg(message.start).arg(message.end).arg(message.message);
        Expect(!message.message.isEmpty(), QStringLiteral("a message says something"));
        // A note in a comment that is never closed ends nowhere, one in a text behind the line end
        // that is added.
        Expect(0 <= message.start && message.start <= length
                && (message.end == -1 || message.start <= message.end) && message.end <= length + 1,
            [&] { return QStringLiteral("within %1: %2").arg(length).arg(text); });
        told += text;
    }
    return told.join(QLatin1Char('\n'));
}

/// An item's name may be "alias = name (module)" of what stands at its place.
bool StandsAt(const ParserItem& item, const QString& script)
{
    const QStringRef text = script.midRef(item.position);
    return text.startsWith(item.name) || text.startsWith(item.name.section(QLatin1Char(' '), 0, 0))
        || text.startsWith(
            item.name.section(QStringLiteral(" = "), 1).section(QLatin1Char(' '), 0, 0));
}

/// The editor can show each message somewhere.
void ExpectMarked(const QVector<ParserMessage>& messages, const QTextDocument& document)
{
    CodeEditorMarks marks;
    marks.SetMessages(MarkSeverity::Info, messages, document);
    for (const CodeEditorMark& mark : marks.GetMarks(MarkSeverity::Info)) {
        Expect(0 <= mark.start && mark.start <= mark.end && mark.end < document.characterCount()
                && mark.line < document.blockCount(),
            [&] { return QStringLiteral("marked at %1-%2").arg(mark.start).arg(mark.end); });
    }
}

QString Told(BaseParser& parser, const QString& script)
{
    parser.Parse(script, QStringLiteral("a.py"));
    QStringList told;
    int last = -1;
    for (const ParserItem& item : parser.GetItems()) {
        const QString text = QStringLiteral("%1 %2@%3/%4")
                                 .arg(static_cast<int>(item.type))
                                 .arg(item.name)
                                 .arg(item.position)
                                 .arg(item.level);
        Expect(0 <= item.position && item.position <= script.size() && item.level >= 0
                && last <= item.position,
            [&] { return QStringLiteral("in order, within %1: %2").arg(script.size()).arg(text); });
        Expect(StandsAt(item, script), QStringLiteral("at its place: %1").arg(text));
        last = item.position;
        told += text;
    }
    told << Told(parser.GetErrors(), script.size()) << Told(parser.GetWarnings(), script.size())
         << Told(parser.GetInfos(), script.size());
    return told.join(QLatin1Char('\n'));
}

} // namespace

TE2_FUZZ_TARGET(ScriptParsers)
{
    const bool isMel = input.Flag();
    const QString script = input.Text(100000);
    PythonParser python;
    TellingMelParser mel;
    BaseParser& parser = isMel ? static_cast<BaseParser&>(mel) : python;
    const QString told = Told(parser, script);
    Expect(Told(parser, script) == told, QStringLiteral("each pass starts afresh"));
    QTextDocument document;
    document.setPlainText(script.left(2000));
    ExpectMarked(parser.GetErrors() + parser.GetWarnings() + parser.GetInfos(), document);
}
