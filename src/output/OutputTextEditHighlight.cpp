// What is drawn over the console's text, for the lines in view alone.

#include "output/OutputTextEdit.h"
#include "settings/ColorSettings.h"
#include "settings/Settings.h"

#include <QTextBlock>
#include <QTimer>

namespace {

// Margins that keep the marks right while the view scrolls until the next update.
constexpr int CHARACTERS_ABOVE = 600;
constexpr int PIXELS_BELOW = 50;

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

bool IsPlainWord(const QString& text)
{
    static const QRegularExpression OTHER(QStringLiteral("[^a-zA-Z0-9_-]"));
    return !OTHER.match(text).hasMatch();
}

} // namespace

// Scroll bar and selection change several times while one text is inserted.
void OutputTextEdit::ScheduleExtraSelections()
{
    m_extraSelectionsDue = true;
    if (!m_turnTimer->isActive())
        m_turnTimer->start();
}

void OutputTextEdit::UpdateExtraSelections()
{
    m_extraSelectionsDue = false;
    if (QPlainTextEdit::document()->isEmpty())
        return;
    const QList<QTextEdit::ExtraSelection> shown = m_extraSelections;
    m_extraSelections.clear();
    if (Settings::outputSyntaxHighlightingEnabled) {
        const QPoint below(0, viewport()->height() + PIXELS_BELOW);
        const int start = qMax(0, cursorForPosition({0, 0}).position() - CHARACTERS_ABOVE);
        QTextCursor bottom = cursorForPosition(below);
        bottom.movePosition(QTextCursor::EndOfBlock);
        HighlightUserDefinedSelections(start, bottom.position());
        HighlightMatchedSelection(start, bottom.position());
        HighlightFoundSelection(start, bottom.position());
    }
    if (!IsSame(m_extraSelections, shown))
        setExtraSelections(m_extraSelections);
}

void OutputTextEdit::AppendSelection(int start, int end, const QTextCharFormat& format)
{
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
    QString key;
    for (const ExtraSelectionProperties& rule : ColorSettings::outputUserDefinedSelections)
        key += ColorSettings::GetExtraSelectionString(rule) + QLatin1Char('\n');
    if (key == m_rulesKey)
        return;
    m_rulesKey = key;
    m_rules.clear();
    for (const ExtraSelectionProperties& rule : ColorSettings::outputUserDefinedSelections) {
        if (!rule.enabled || (!rule.hasForeground && !rule.hasBackground))
            continue;
        const QString pattern
            = rule.regularExpression ? rule.pattern : QRegularExpression::escape(rule.pattern);
        const QRegularExpression expression(pattern);
        if (expression.isValid())
            m_rules.append({expression, rule.format, rule.wholeLine});
    }
}

void OutputTextEdit::HighlightUserDefinedSelections(int start, int end)
{
    UpdateRules();
    const QStringList lines
        = TextBetween(*QPlainTextEdit::document(), start, end).split(QLatin1Char('\n'));
    for (const Rule& rule : qAsConst(m_rules)) {
        int lineStart = start;
        for (const QString& line : lines) {
            for (auto matches = rule.expression.globalMatch(line); matches.hasNext();) {
                const QRegularExpressionMatch match = matches.next();
                if (rule.wholeLine) {
                    AppendSelection(lineStart, lineStart + line.size(), rule.format);
                    break;
                }
                if (match.capturedLength() > 0)
                    AppendSelection(lineStart + match.capturedStart(),
                        lineStart + match.capturedEnd(), rule.format);
            }
            lineStart += line.size() + 1;
        }
    }
}

/// The expression that finds what equals the selection; empty when nothing is to be marked.
QRegularExpression OutputTextEdit::MatchedSelectionExpression(const QString& selected) const
{
    if (selected.trimmed().isEmpty() || selected.contains(QChar(0x2029)))
        return {};
    if (!Settings::outputMatchedSelectionWordsOnly)
        return QRegularExpression(QRegularExpression::escape(selected));
    if (Settings::outputDoubleClickIncludesDollarSign && selected.startsWith(QLatin1Char('$'))) {
        return IsPlainWord(selected.mid(1))
            ? QRegularExpression(QStringLiteral("\\%1\\b").arg(selected))
            : QRegularExpression();
    }
    // A hyphen counts as part of a word here although "\b" stops at it.
    return IsPlainWord(selected) ? QRegularExpression(QStringLiteral("\\b%1\\b").arg(selected))
                                 : QRegularExpression();
}

void OutputTextEdit::HighlightMatchedSelection(int start, int end)
{
    const QString selected = QPlainTextEdit::textCursor().selectedText();
    const QRegularExpression expression = MatchedSelectionExpression(selected);
    if (expression.pattern().isEmpty())
        return;
    // One character before and behind, so that a word's edges are seen; a match may reach over the
    // end by its length.
    const int from = qMax(0, start - 1);
    const QString text = TextBetween(*QPlainTextEdit::document(), from, end + selected.size() + 1);
    const QTextCharFormat format
        = ColorSettings::GetOutputFormat(ColorSettings::MATCHING_SELECTION, false);
    int offset = start - from;
    for (;;) {
        const QRegularExpressionMatch match = expression.match(text, offset);
        if (!match.hasMatch() || from + match.capturedStart() > end)
            return;
        AppendSelection(from + match.capturedStart(), from + match.capturedEnd(), format);
        offset = match.capturedStart() + 1;
    }
}
