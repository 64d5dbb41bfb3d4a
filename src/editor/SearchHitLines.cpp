#include "editor/SearchHitLines.h"

#include "editor/TextMatches.h"

#include <QElapsedTimer>
#include <QTextDocument>

#include <algorithm>
#include <utility>

namespace {

constexpr int SLICE = 4; // ms
constexpr int LINES_PER_LOOK_AT_THE_CLOCK = 64;

bool HasMatch(const QString& line, const QRegularExpression& expression)
{
    const QRegularExpressionMatch first = expression.match(line);
    // An empty match may stand before one that is not.
    return first.capturedLength() > 0
        || (first.hasMatch() && !FindMatches(line, expression).isEmpty());
}

} // namespace

SearchHitLines::SearchHitLines(const QTextDocument* document, QObject* parent)
    : QObject(parent)
    , m_document(document)
{
    connect(&m_timer, &QTimer::timeout, this, &SearchHitLines::SearchSlice);
}

void SearchHitLines::Search(const QRegularExpression& expression)
{
    m_expression = expression;
    if (expression.pattern().isEmpty() || !expression.isValid()) {
        m_found.clear();
        Finish();
        return;
    }
    Begin();
}

void SearchHitLines::Begin()
{
    m_found.clear();
    m_next = m_document->firstBlock();
    m_nextLine = 0;
    m_timer.start();
}

void SearchHitLines::SearchSlice()
{
    QElapsedTimer clock;
    clock.start();
    while (m_next.isValid()) {
        for (int i = 0; i < LINES_PER_LOOK_AT_THE_CLOCK && m_next.isValid(); ++i) {
            if (HasMatch(m_next.text(), m_expression))
                m_found.append(m_nextLine);
            m_next = m_next.next();
            ++m_nextLine;
        }
        if (clock.elapsed() >= SLICE)
            return;
    }
    Finish();
}

void SearchHitLines::Finish()
{
    m_timer.stop();
    m_next = QTextBlock();
    if (m_found == m_lines)
        return;
    m_lines = std::exchange(m_found, {});
    Q_EMIT LinesChanged();
}

void SearchHitLines::Offset(int line, int addedLines)
{
    // The next line may be one of those that went.
    if (m_timer.isActive())
        Begin();
    if (addedLines == 0 || m_lines.isEmpty())
        return;
    const auto behind = std::upper_bound(m_lines.begin(), m_lines.end(), line);
    std::for_each(behind, m_lines.end(),
        [line, addedLines](int& hit) { hit = qMax(line, hit + addedLines); });
    m_lines.erase(std::unique(m_lines.begin(), m_lines.end()), m_lines.end());
    Q_EMIT LinesChanged();
}
