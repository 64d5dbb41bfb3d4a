#pragma once

#include <QRegularExpression>
#include <QStringList>

/// What stands in every text that an expression matches, as far as it is easy to tell: reason to
/// pass over texts without it. A value.
struct RequiredLiterals
{
    QStringList texts; ///< in their order; empty: nothing is known
    bool isWhole = false; ///< a match is the one text and nothing besides
    bool isWord = false; ///< a match is the one text where it is a whole word

    /// Errs towards fewer and shorter texts.
    static RequiredLiterals Of(const QRegularExpression& expression);
};
