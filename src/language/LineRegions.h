#pragma once

#include <QLatin1String>
#include <QStringView>
#include <QVector>

#include <array>

/// A delimited region that may span lines: strings and comments.
struct MultiLineHighlightingRule
{
    QLatin1String start;
    QLatin1String end; ///< empty: the end of the line
    int role = 0; ///< of the highlighter that the rule belongs to
    bool continuesWithBackslashOnly = false; ///< on the next line only behind a backslash
    bool isSingleLineComment = false;
    bool isBlockComment = false;
    bool isEscapable = false; ///< an end behind an odd number of backslashes is none
};

/// The part of a region that lies in one line.
struct LineRegion
{
    int start = 0;
    int end = 0; ///< behind the last character
    int rule = 0;
    bool opensHere = false;
    bool isClosed = false; ///< by its own delimiter, rather than by the end of the line
};

/// Finds the regions of lines, given the state that the line before ended in: the index of the rule
/// whose region is still open, or NO_STATE. Of rules that start at one place the first wins.
class RegionScanner
{
public:
    static constexpr int NO_STATE = -1;

    explicit RegionScanner(const QVector<MultiLineHighlightingRule>& rules);

    /// Without rules all lines end in NO_STATE.
    bool IsEmpty() const { return m_rules.isEmpty(); }
    const MultiLineHighlightingRule& GetRule(int rule) const { return m_rules.at(rule); }
    /// The state that the line ends in; its regions are appended to `regions` unless that is null.
    int Scan(QStringView text, int state, QVector<LineRegion>* regions) const;

private:
    int FindRule(QStringView text, int& position) const;
    int FindEnd(QStringView text, const MultiLineHighlightingRule& rule, int from) const;

    QVector<MultiLineHighlightingRule> m_rules;
    std::array<bool, 128> m_startsRegion{};
};
