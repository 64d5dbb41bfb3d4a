#include "editor/PylintMessages.h"

#include <optional>

namespace {

enum Field { Category, Line, Column, Id, Text, FIELDS };

std::optional<ParserMessage> ReadMessage(const QStringList& fields)
{
    bool hasLine = false;
    bool hasColumn = false;
    ParserMessage message;
    // What concerns the whole file may be told of no line; it is shown at the first one.
    message.line = qMax(1, fields[Line].toInt(&hasLine)) - 1;
    message.column = qMax(0, fields[Column].toInt(&hasColumn));
    if (!hasLine || !hasColumn)
        return std::nullopt;
    message.message = QStringLiteral("%1 %2").arg(fields[Id], fields[Text].trimmed());
    return message;
}

QVector<ParserMessage>* ListFor(PylintMessages& messages, const QString& category)
{
    if (category == QLatin1String("E") || category == QLatin1String("F"))
        return &messages.errors;
    if (category == QLatin1String("W"))
        return &messages.warnings;
    if (category == QLatin1String("C") || category == QLatin1String("R"))
        return &messages.infos;
    return nullptr;
}

} // namespace

PylintMessages ReadPylintMessages(const QStringList& lines, int fieldCount)
{
    PylintMessages messages;
    for (const QString& line : lines) {
        const QStringList fields = line.split(QLatin1Char(':'), Qt::SkipEmptyParts);
        if (fields.size() != fieldCount || fields.size() < FIELDS)
            continue;
        QVector<ParserMessage>* const list = ListFor(messages, fields[Category]);
        const auto message = ReadMessage(fields);
        if (list && message)
            list->append(*message);
    }
    return messages;
}
