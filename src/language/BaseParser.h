#pragma once

#include "language/ParserItem.h"
#include "language/ParserMessage.h"

#include <QString>
#include <QVector>

/// One pass over a script that finds outline items and messages; what parsers of all languages
/// share. Owned by a code editor group for its whole life and run on the interface thread.
/// Results stay until the next Parse. Nothing in a script makes a parser fail.
class BaseParser
{
public:
    BaseParser() = default;
    virtual ~BaseParser() = default;
    BaseParser(const BaseParser&) = delete;
    BaseParser& operator=(const BaseParser&) = delete;

    /// Forgets all results and counts of the last pass.
    virtual void ClearAll();
    /// Reads `text`, lines parted by line feeds or paragraph separators. `filePath` may be empty.
    virtual void Parse(const QString& text, const QString& filePath);
    virtual bool IsMel() const { return false; }
    virtual bool IsPython() const { return false; }

    /// In the order of discovery.
    QVector<ParserItem> GetItems() const { return m_items; }
    QVector<ParserMessage> GetErrors() const { return m_errors; }
    QVector<ParserMessage> GetWarnings() const { return m_warnings; }
    QVector<ParserMessage> GetInfos() const { return m_infos; }
    QString GetFilePath() const { return m_filePath; }

protected:
    virtual void AppendError(const QString& message, int start, int end);
    void AppendWarning(const QString& message, int start, int end);
    void AppendInfo(const QString& message, int start, int end);
    void AppendItem(const QString& name, ParserItemType type, int position, int level);
    /// A missing and a surplus bracket. Only the first of either kind in a pass is reported, as
    /// the others mostly follow from it.
    void ParenthesesError(QChar expected, int start, int end);
    void UnexpectedParenthesesError(QChar found, int start, int end);

    /// The script from `from` to the end of that line.
    QString GetLineFromScript(int from) const;
    /// Offset of the first line feed at or after `from`, or the length of the script.
    int LineEnd(int from) const;
    /// Offset of the first character at or after `from` that is not white space, or the length.
    int NextNonSpace(int from) const;
    /// The same, but not beyond the end of the line.
    int SkipSpaceInLine(int from) const;
    /// Offset behind the ASCII letters, digits and underscores (and `extra`) from `from` on.
    int NameEnd(int from, QChar extra = QLatin1Char('_')) const;
    bool StartsWith(int from, QLatin1String word) const;
    /// Moves over a quoted text that may continue behind a backslash at a line's end, from its
    /// opening quote at `start` to its closing one, or to the end of the line that cuts it off.
    bool ParseQuoted(QChar quote, int start);
    /// An info for [start, end) when the word TODO stands in the text between start and textEnd.
    void TodoCheck(int start, int textEnd, int end);

    /// The text with "\n" behind every line, the last included.
    QString m_script;
    int m_position = 0;
    QString m_filePath;
    QVector<ParserItem> m_items;
    QVector<ParserMessage> m_errors;
    QVector<ParserMessage> m_warnings;
    QVector<ParserMessage> m_infos;
    int m_parenthesesDepth = 0;
    int m_bracesDepth = 0;
    int m_bracketsDepth = 0;
    bool m_parenthesesErrorReported = false;

private:
    bool IsEscaped(int position) const;
    void ReportBracket(QLatin1String message, QChar bracket, int start, int end);
};
