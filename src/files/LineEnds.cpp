#include "files/LineEnds.h"

#include <QString>
#include <QStringView>

namespace {

/// How far behind a changed line the next unchanged one is looked for.
constexpr int LONGEST_CHANGE = 200; // lines

/// The editor ends a line at each of these. The first three have names.
const QString ENDS[] = {
    QStringLiteral("\n"),
    QStringLiteral("\r\n"),
    QStringLiteral("\r"),
    QString(QChar(0x2029)),
    QString(QChar(0xfdd0)),
    QString(QChar(0xfdd1)),
};
constexpr char NAMED_ENDS = 3;

/// The number of what ends a line at `index`; -1 when nothing does.
int EndAt(const QString& text, int index)
{
    const QChar character = text[index];
    if (character.unicode() > '\r' && character.unicode() < 0x2029)
        return -1;
    if (character == QLatin1Char('\r')) {
        const bool isPair = index + 1 < text.size() && text[index + 1] == QLatin1Char('\n');
        return isPair ? 1 : 2;
    }
    for (int end = 0; end < int(std::size(ENDS)); ++end) {
        if (end != 1 && ENDS[end][0] == character)
            return end;
    }
    return -1;
}

bool HasOnlyLineFeeds(const QString& text)
{
    return !text.contains(ENDS[2][0]) && !text.contains(ENDS[3][0]) && !text.contains(ENDS[4][0])
        && !text.contains(ENDS[5][0]);
}

/// Calls `take` with each line and whether it has an end.
template <class Take>
void ForEachLine(const QString& text, Take take)
{
    for (int start = 0; start <= text.size();) {
        const int found = text.indexOf(QLatin1Char('\n'), start);
        const int end = found < 0 ? text.size() : found;
        take(QStringView(text).mid(start, end - start), found >= 0);
        start = end + 1;
    }
}

QVector<uint> HashLines(const QString& text)
{
    QVector<uint> lines;
    ForEachLine(text, [&](QStringView line, bool) { lines.append(qHash(line)); });
    return lines;
}

/// Goes through the lines that were there along with those that are there now.
class EndsOfLines
{
public:
    EndsOfLines(const QVector<uint>& oldLines, const QByteArray& oldEnds, QVector<uint> lines)
        : m_oldLines(oldLines)
        , m_oldEnds(oldEnds)
        , m_lines(std::move(lines))
    {
        int same = 0;
        const int most = qMin(m_oldLines.size(), m_lines.size());
        while (same < most
            && m_oldLines[m_oldLines.size() - 1 - same] == m_lines[m_lines.size() - 1 - same])
            ++same;
        m_sameAtEnd = same;
        m_last = m_oldEnds[0];
    }

    /// Of the lines from the first to the last.
    char Next()
    {
        if (m_lines.size() - m_line == m_sameAtEnd)
            m_old = m_oldLines.size() - m_sameAtEnd;
        else if (m_new == 0)
            Compare();
        ++m_line;
        if (m_new > 0)
            --m_new;
        else if (m_old < m_oldEnds.size())
            m_last = m_oldEnds[m_old++];
        return m_last;
    }

private:
    /// Finds out whether lines have come or gone here; otherwise the line itself was changed.
    void Compare()
    {
        const int oldCount = m_oldLines.size() - m_sameAtEnd;
        const int count = m_lines.size() - m_sameAtEnd;
        if (m_old >= oldCount) {
            m_new = count - m_line;
            return;
        }
        for (int step = 0; step < LONGEST_CHANGE; ++step) {
            if (m_line + step < count && m_lines[m_line + step] == m_oldLines[m_old]) {
                m_new = step;
                return;
            }
            if (m_old + step < oldCount && m_oldLines[m_old + step] == m_lines[m_line]) {
                m_old += step;
                return;
            }
        }
    }

    const QVector<uint>& m_oldLines;
    const QByteArray& m_oldEnds;
    const QVector<uint> m_lines;
    int m_sameAtEnd = 0;
    int m_line = 0;
    int m_old = 0;
    int m_new = 0; ///< lines that were not there, from the present one on
    char m_last = 0;
};

} // namespace

LineEnds LineEnds::Take(QString& text)
{
    LineEnds result;
    if (HasOnlyLineFeeds(text))
        return result;
    QString plain;
    plain.reserve(text.size());
    int start = 0;
    for (int i = 0; i < text.size(); ++i) {
        const int end = EndAt(text, i);
        if (end < 0)
            continue;
        plain.append(text.constData() + start, i - start).append(QLatin1Char('\n'));
        result.m_ends.append(static_cast<char>(end));
        i += ENDS[end].size() - 1;
        start = i + 1;
    }
    plain.append(text.constData() + start, text.size() - start);
    text = plain;
    const char first = result.m_ends[0];
    const bool isSame = first < NAMED_ENDS && result.m_ends.count(first) == result.m_ends.size();
    result.m_kind = isSame ? Kind(first) : Kind::Mixed;
    if (isSame)
        result.m_ends.clear();
    else
        result.m_lines = HashLines(text);
    return result;
}

QString LineEnds::Restore(const QString& text) const
{
    if (m_kind == Kind::LineFeed)
        return text;
    if (m_kind != Kind::Mixed)
        return QString(text).replace(QLatin1Char('\n'), ENDS[int(m_kind)]);
    EndsOfLines ends(m_lines, m_ends, HashLines(text));
    QString restored;
    restored.reserve(text.size() + m_ends.size());
    ForEachLine(text, [&](QStringView line, bool hasEnd) {
        restored.append(line.data(), static_cast<int>(line.size()));
        if (hasEnd)
            restored.append(ENDS[int(ends.Next())]);
    });
    return restored;
}
