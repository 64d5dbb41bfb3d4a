#pragma once

#include "language/ParserMessage.h"

#include <QStringList>
#include <QVector>

/// What pylint says about a script, by weight.
struct PylintMessages
{
    QVector<ParserMessage> errors;
    QVector<ParserMessage> warnings;
    QVector<ParserMessage> infos;
};

/// Reads lines of "category:line:column:id:text", the line counted from 1. Whatever has not exactly
/// `fieldCount` filled fields or no numbers where they belong is left out, as pylint also prints
/// headings.
PylintMessages ReadPylintMessages(const QStringList& lines, int fieldCount);
