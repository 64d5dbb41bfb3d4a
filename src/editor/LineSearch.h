#pragma once

#include <QRegularExpression>
#include <QStringMatcher>

/// Seeks an expression in one line after the other, plain text many times as fast as expressions
/// are. A line on which the expression tries without end, or whose text is no valid UTF-16, does no
/// harm. A value; the lines are those of whoever asks.
class LineSearch
{
public:
    /// Tries given up from which on an expression is hopeless and the rest is better left alone.
    static constexpr int MAXIMUM_GIVEN_UP = 100;

    LineSearch() = default;
    /// Without pattern or with a fault the expression finds nothing.
    explicit LineSearch(const QRegularExpression& expression);

    const QRegularExpression& GetExpression() const { return m_expression; }
    bool IsSearching() const { return m_isSearching; }

    /// Calls visit(start, end) for each match in turn, in columns, until it answers false. False
    /// when the line was given up, behind the matches that were visited.
    template <typename Visitor>
    bool Visit(const QStringRef& line, Visitor visit) const;
    /// The same with visit(match), for who needs more than its place; slower.
    template <typename Visitor>
    bool VisitMatches(const QStringRef& line, Visitor visit) const;

private:
    static bool IsValidText(const QStringRef& line);
    static QString MadeValid(const QStringRef& line);
    static bool IsWordBoundary(const QStringRef& line, int column);
    void PreparePlainText();

    QRegularExpression m_expression;
    QStringMatcher m_matcher; ///< without pattern when what is sought is no plain text
    bool m_isWord = false; ///< the plain text begins and ends at a word boundary
    bool m_isSearching = false;
};

template <typename Visitor>
bool LineSearch::Visit(const QStringRef& line, Visitor visit) const
{
    const int length = m_matcher.pattern().size();
    if (length == 0) {
        return VisitMatches(line, [&visit](const QRegularExpressionMatch& match) {
            return visit(match.capturedStart(), match.capturedEnd());
        });
    }
    int start = m_matcher.indexIn(line.unicode(), line.size());
    while (start >= 0) {
        const int end = start + length;
        const bool isMatch
            = !m_isWord || (IsWordBoundary(line, start) && IsWordBoundary(line, end));
        if (isMatch && !visit(start, end))
            return true;
        start = m_matcher.indexIn(line.unicode(), line.size(), isMatch ? end : start + 1);
    }
    return true;
}

template <typename Visitor>
bool LineSearch::VisitMatches(const QStringRef& line, Visitor visit) const
{
    if (!m_isSearching)
        return true;
    int from = 0;
    QRegularExpressionMatch match = m_expression.match(line);
    if (!match.isValid() && !IsValidText(line)) {
        const QString valid = MadeValid(line);
        return VisitMatches(QStringRef(&valid), visit);
    }
    // Cheaper than an iterator, which is for what comes after an empty match. That the text is
    // valid is known by now; checking again at each match would make long lines endless.
    while (match.hasMatch() && match.capturedEnd() > qMax(from, match.capturedStart())) {
        if (!visit(match))
            return true;
        from = match.capturedEnd();
        match = m_expression.match(line, from, QRegularExpression::NormalMatch,
            QRegularExpression::DontCheckSubjectStringMatchOption);
    }
    if (!match.hasMatch())
        return match.isValid();
    QRegularExpressionMatchIterator matches = m_expression.globalMatch(line, from,
        QRegularExpression::NormalMatch, QRegularExpression::DontCheckSubjectStringMatchOption);
    while (matches.hasNext()) {
        match = matches.next();
        if (!visit(match))
            return true;
    }
    // Behind an empty match at the end there is no place to try, which the toolkit calls invalid.
    return matches.isValid() || match.capturedEnd() == line.size();
}
