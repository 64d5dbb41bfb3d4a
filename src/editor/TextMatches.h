#pragma once

#include <QString>
#include <QVector>

/// A piece of one line: column from 0 and length, at least 1.
struct TextMatch
{
    int start = 0;
    int length = 0;
};

/// Letters, digits and the underscore.
bool IsWordCharacter(QChar character);

/// Whether the piece of the line is made of word characters and none stands beside it. False for an
/// empty piece.
bool IsWholeWord(const QString& line, int start, int length);

/// Where `text` stands in the line, case-sensitive and without overlaps; with `wholeWords` only
/// where no letter, digit or underscore stands beside it.
QVector<TextMatch> FindOccurrences(const QString& line, const QString& text, bool wholeWords);
