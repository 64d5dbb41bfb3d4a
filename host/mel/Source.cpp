#include "mel/Source.h"

#include <QTextCodec>

#include <algorithm>

namespace host::mel {

namespace {

constexpr ushort BYTE_ORDER_MARK = 0xFEFF;

} // namespace

Source::Source(const QString& text, const QString& path)
    : m_text(text)
    , m_path(path)
    , m_lineStarts{0}
{
    if (m_text.startsWith(QChar(BYTE_ORDER_MARK)))
        m_text.remove(0, 1);
    for (int i = 0; i < m_text.size(); ++i) {
        const QChar c = m_text.at(i);
        if (c == QLatin1Char('\r') && i + 1 < m_text.size()
            && m_text.at(i + 1) == QLatin1Char('\n'))
            ++i;
        else if (c != QLatin1Char('\n') && c != QLatin1Char('\r'))
            continue;
        m_lineStarts.append(i + 1);
    }
}

QString Source::Decode(const QByteArray& bytes)
{
    QTextCodec::ConverterState state;
    const QTextCodec* utf8 = QTextCodec::codecForName("UTF-8");
    const QString text = utf8->toUnicode(bytes.constData(), bytes.size(), &state);
    const bool valid = state.invalidChars == 0 && state.remainingChars == 0;
    return valid ? text : QString::fromLatin1(bytes);
}

int Source::LineOf(int offset) const
{
    const auto next = std::upper_bound(m_lineStarts.begin(), m_lineStarts.end(), offset);
    return static_cast<int>(next - m_lineStarts.begin());
}

int Source::ColumnOf(int offset) const
{
    return offset - m_lineStarts.at(LineOf(offset) - 1) + 1;
}

QString Source::LineText(int line) const
{
    const int start = m_lineStarts.value(line - 1, m_text.size());
    if (line >= m_lineStarts.size())
        return m_text.mid(start);
    int end = m_lineStarts.at(line) - 1;
    if (end > start && m_text.at(end) == QLatin1Char('\n')
        && m_text.at(end - 1) == QLatin1Char('\r'))
        --end;
    return m_text.mid(start, end - start) + QLatin1Char('\n');
}

} // namespace host::mel
