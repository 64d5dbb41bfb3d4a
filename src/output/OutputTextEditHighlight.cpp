// What is drawn over the console's text, for the lines in view alone.

#include "editor/SearchExpression.h"
#include "output/OutputTextEdit.h"
#include "output/SelectionPattern.h"
#include "plugin/Logger.h"
#include "settings/ColorSettings.h"
#include "settings/Settings.h"

#include <QElapsedTimer>
#include <QTextBlock>

namespace {

// Margins that keep the marks right while the view scrolls until the next update.
constexpr int CHARACTERS_ABOVE = 600;
constexpr int PIXELS_BELOW = 50;
/// Of the last line, which is not looked at to its end when it is endless.
constexpr int CHARACTERS_OF_LAST_LINE = 10000;
/// A line this long gets marks only in view and this far beside it; there may be thousands.
constexpr int WIDE_LINE = 2000;
constexpr int CHARACTERS_BESIDE = 100;

// An expression may take as long as it likes on a line that it nearly matches. One that holds up
// the console several times in a row is not asked any more.
constexpr int RULE_BUDGET = 20; // ms of one update
constexpr int MOST_SLOW_UPDATES = 5;

/// The document's text from `start` up to `end`, lines parted by line feeds, without making a copy
/// of the whole.
QString TextBetween(const QTextDocument& document, int start, int end)
{
    QString text;
    for (QTextBlock block = document.findBlock(start); block.isValid() && block.position() < end;
         block = block.next()) {
        if (block.position() > start)
            text += QLatin1Char('\n');
        const int from = qMax(0, start - block.position());
        text += block.text().midRef(from, end - block.position() - from);
    }
    return text;
}

bool IsSame(
    const QList<QTextEdit::ExtraSelection>& left, const QList<QTextEdit::ExtraSelection>& right)
{
    if (left.size() != right.size())
        return false;
    for (int i = 0; i < left.size(); ++i) {
        if (left[i].cursor.selectionStart() != right[i].cursor.selectionStart()
            || left[i].cursor.selectionEnd() != right[i].cursor.selectionEnd()
            || left[i].format != right[i].format)
            return false;
    }
    return true;
}

} // namespace

// Scroll bar and selection change several times while one text is inserted.
void OutputTextEdit::ScheduleExtraSelections()
{
    m_extraSelectionsDue = true;
    ScheduleTurnEnd();
}

void OutputTextEdit::UpdateExtraSelections()
{
    FollowOutput();
    m_extraSelectionsDue = false;
    if (QPlainTextEdit::document()->isEmpty())
        return;
    const QList<QTextEdit::ExtraSelection> shown = m_extraSelections;
    m_extraSelections.clear();
    m_currentMatch = QTextCursor();
    m_markedColumns = {};
    if (Settings::outputSyntaxHighlightingEnabled) {
        const int start = qMax(0, cursorForPosition({0, 0}).position() - CHARACTERS_ABOVE);
        const int end = EndOfView();
        HighlightUserDefinedSelections(start, end);
        HighlightMatchedSelection(start, end);
        HighlightFoundSelection(start, end);
    }
    if (!IsSame(m_extraSelections, shown))
        setExtraSelections(m_extraSelections);
}

/// The line below the view counts with its text: it is the last of all where the view is not full.
int OutputTextEdit::EndOfView() const
{
    const QTextCursor bottom = cursorForPosition({0, viewport()->height() + PIXELS_BELOW});
    const int lineEnd = bottom.block().position() + bottom.block().length() - 1;
    return qMin(lineEnd, bottom.position() + CHARACTERS_OF_LAST_LINE);
}

OutputTextEdit::MarkedColumns OutputTextEdit::ColumnsToMark(const QTextBlock& block) const
{
    const bool isWide = block.length() > WIDE_LINE && blockBoundingRect(block).isValid();
    // A wrapped line is as wide as the view.
    if (!isWide || block.layout()->lineCount() != 1)
        return {block, 0, block.length()};
    const QTextLine line = block.layout()->lineAt(0);
    const double left = -contentOffset().x();
    return {block, line.xToCursor(left) - CHARACTERS_BESIDE,
        line.xToCursor(left + viewport()->width()) + CHARACTERS_BESIDE};
}

void OutputTextEdit::AppendSelection(int start, int end, const QTextCharFormat& format)
{
    if (!m_markedColumns.block.contains(start))
        m_markedColumns = ColumnsToMark(QPlainTextEdit::document()->findBlock(start));
    const int lineStart = m_markedColumns.block.position();
    if (end < lineStart + m_markedColumns.first || start > lineStart + m_markedColumns.last)
        return;
    QTextEdit::ExtraSelection selection;
    selection.cursor = QTextCursor(QPlainTextEdit::document());
    selection.cursor.setPosition(start);
    selection.cursor.setPosition(end, QTextCursor::KeepAnchor);
    selection.format = format;
    m_extraSelections.append(selection);
}

/// Compiles the rules again only when the user's list changed.
void OutputTextEdit::UpdateRules()
{
    // A copy shares its data with the list for as long as nobody changes that.
    if (m_rulesSource.isSharedWith(ColorSettings::outputUserDefinedSelections))
        return;
    m_rulesSource = ColorSettings::outputUserDefinedSelections;
    m_rules.clear();
    for (const ExtraSelectionProperties& rule : qAsConst(m_rulesSource)) {
        if (!rule.enabled || (!rule.hasForeground && !rule.hasBackground))
            continue;
        const QString pattern
            = rule.regularExpression ? rule.pattern : QRegularExpression::escape(rule.pattern);
        const QRegularExpression expression = WithMatchLimit(QRegularExpression(pattern));
        if (expression.isValid()) {
            m_rules.append(
                {expression, rule.format, rule.wholeLine, rule.name, rule.regularExpression, 0});
        }
    }
}

void OutputTextEdit::HighlightUserDefinedSelections(int start, int end)
{
    UpdateRules();
    const QStringList lines = TextBetween(*QPlainTextEdit::document(), start, end)
                                  .replace(QChar::LineSeparator, QLatin1Char('\n'))
                                  .split(QLatin1Char('\n'));
    for (Rule& rule : m_rules) {
        if (rule.slowUpdates >= MOST_SLOW_UPDATES)
            continue;
        rule.slowUpdates = HighlightRule(rule, lines, start) ? 0 : rule.slowUpdates + 1;
        if (rule.slowUpdates == MOST_SLOW_UPDATES) {
            const QString text
                = QStringLiteral("The highlight \"%1\" takes too long and rests until "
                                 "the highlights are changed")
                      .arg(rule.name);
            // It appends to the text that is being marked.
            QMetaObject::invokeMethod(
                this, [text] { Logger::Warning(text); }, Qt::QueuedConnection);
        }
    }
}

/// False when the rule took too long; the rest of the lines is left out then.
bool OutputTextEdit::HighlightRule(const Rule& rule, const QStringList& lines, int start)
{
    QElapsedTimer time;
    time.start();
    int lineStart = start;
    for (const QString& line : lines) {
        for (auto matches = rule.expression.globalMatch(line); matches.hasNext();) {
            const QRegularExpressionMatch match = matches.next();
            if (rule.wholeLine) {
                AppendSelection(lineStart, lineStart + line.size(), rule.format);
                break;
            }
            if (match.capturedLength() > 0)
                AppendSelection(lineStart + match.capturedStart(), lineStart + match.capturedEnd(),
                    rule.format);
        }
        lineStart += line.size() + 1;
        if (rule.isRegularExpression && time.hasExpired(RULE_BUDGET))
            return false;
    }
    return true;
}

void OutputTextEdit::HighlightMatchedSelection(int start, int end)
{
    const SelectionPattern pattern = MakeSelectionPattern(
        QPlainTextEdit::textCursor().selectedText(), Settings::outputMatchedSelectionWordsOnly,
        Settings::outputDoubleClickIncludesDollarSign);
    if (pattern.text.isEmpty())
        return;
    // One character before and behind, so that a word's edges are seen; a match may reach over the
    // end by its length.
    const int size = pattern.text.size();
    const int from = qMax(0, start - 1);
    const QString text = TextBetween(*QPlainTextEdit::document(), from, end + size + 1);
    const QTextCharFormat format
        = ColorSettings::GetOutputFormat(ColorSettings::MATCHING_SELECTION, false);
    int found = FindPattern(pattern, text, start - from);
    while (found >= 0 && from + found <= end) {
        AppendSelection(from + found, from + found + size, format);
        found = FindPattern(pattern, text, found + 1);
    }
}
