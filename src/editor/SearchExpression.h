#pragma once

#include <QString>

class QRegularExpression;
class QRegularExpressionMatch;

/// How typed text is searched. Empty text gives an expression without pattern, which finds nothing
/// by convention; a fault in the text gives an invalid one. A whole word ends at letters of every
/// script.
QRegularExpression CreateSearchRegEx(
    const QString& text, bool matchCase, bool matchWord, bool useRegularExpression);

/// The same expression with a bound on the work of one match, so that one which tries without end
/// ("(a+)+[xy]") gives up instead of holding up the interface.
QRegularExpression WithMatchLimit(const QRegularExpression& expression);

/// What was typed, of the pattern of an expression with or without such a bound.
QStringRef WithoutMatchLimit(const QString& pattern);

/// A sentence about what is wrong with an expression as typed, and where; empty when nothing is.
QString DescribeFault(const QString& typed);

/// Whether the match gave up: there may be one or not.
bool HasExceededMatchLimit(const QRegularExpressionMatch& match);

/// What replaces the match. Of an expression that was typed as one (it has a match limit or
/// groups), "\0" stands for the match, "\1" to "\9" and "\g<name>" for its groups, "\n" for a line
/// end, "\t" for a tab and "\\" for a backslash; everything else, the "$" of variables too, and any
/// text for plain searches, stays as typed.
QString ExpandReplacement(const QString& text, const QRegularExpressionMatch& match);
