#include "search/TextReplacement.h"

#include "editor/SearchExpression.h"

#include <QRegularExpression>

namespace {

/// Adds the edits of the listed hits of one line; `next` is the first that is not done.
void PlanLine(const QString& line, int position, const QVector<SearchResult>& hits, int& next,
    const QRegularExpression& expression, const QString& replacement, QVector<TextEdit>& edits)
{
    if (line.trimmed() != hits[next].lineText)
        return;
    QRegularExpressionMatchIterator matches = expression.globalMatch(line);
    while (matches.hasNext() && next < hits.size()) {
        const QRegularExpressionMatch match = matches.next();
        const int start = position + match.capturedStart();
        if (start != hits[next].position || match.capturedLength() != hits[next].length)
            continue;
        edits.append({start, match.capturedLength(), ExpandReplacement(replacement, match)});
        ++next;
    }
}

} // namespace

std::optional<QVector<TextEdit>> PlanReplacement(const QString& text,
    const QVector<SearchResult>& hits, const QRegularExpression& expression,
    const QString& replacement)
{
    QVector<TextEdit> edits;
    int next = 0;
    while (next < hits.size()) {
        const int position = hits[next].position;
        if (position < 0 || position > text.size())
            return {};
        const int start = position == 0 ? 0 : text.lastIndexOf(QLatin1Char('\n'), position - 1) + 1;
        const int found = text.indexOf(QLatin1Char('\n'), position);
        const int end = found < 0 ? text.size() : found;
        const int before = next;
        PlanLine(text.mid(start, end - start), start, hits, next, expression, replacement, edits);
        if (next == before)
            return {};
    }
    return edits;
}

QString ApplyEdits(const QString& text, const QVector<TextEdit>& edits)
{
    QString result;
    int done = 0;
    for (const TextEdit& edit : edits) {
        result += text.midRef(done, edit.start - done);
        result += edit.text;
        done = edit.start + edit.length;
    }
    return result + text.midRef(done);
}
