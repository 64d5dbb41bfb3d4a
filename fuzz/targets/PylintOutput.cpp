// What pylint prints: messages have a place from the first line on, whatever it prints.

#include "editor/PylintMessages.h"
#include "fuzz/Fuzz.h"

using fuzz::Expect;

namespace {

void ExpectPlaced(const QVector<ParserMessage>& messages)
{
    for (const ParserMessage& message : messages) {
        Expect(message.line >= 0 && message.column >= 0,
            QStringLiteral("%1:%2 %3").arg(message.line).arg(message.column).arg(message.message));
        Expect(message.start == -1 && message.end == -1, QStringLiteral("and no other place"));
        Expect(!message.message.trimmed().isEmpty(), QStringLiteral("and say something"));
    }
}

} // namespace

TE2_FUZZ_TARGET(PylintOutput)
{
    constexpr int FIELDS = 5;
    const QStringList results = input.Text().split(QStringLiteral("::"), Qt::SkipEmptyParts);
    const PylintMessages messages = ReadPylintMessages(results, FIELDS);
    ExpectPlaced(messages.errors);
    ExpectPlaced(messages.warnings);
    ExpectPlaced(messages.infos);
    const int count = messages.errors.size() + messages.warnings.size() + messages.infos.size();
    Expect(count <= results.size(), QStringLiteral("each result is one message at most"));
}
