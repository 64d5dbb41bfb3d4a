#include "search/TextSearch.h"

#include "editor/SearchExpression.h"
#include "search/Utf8Bytes.h"

#include <QBuffer>
#include <QTextCodec>
#include <QTextStream>

#include <algorithm>
#include <cstring>

namespace {

constexpr int MIB_UTF8 = 106;
constexpr int LINES_PER_POLL = 256;
const QByteArray BYTE_ORDER_MARK = QByteArrayLiteral("\xef\xbb\xbf");

bool StartsWith(const char* begin, const char* end, const QByteArray& bytes)
{
    return end - begin >= bytes.size() && std::memcmp(begin, bytes.constData(), bytes.size()) == 0;
}

/// In these ASCII characters are no bytes of their own.
bool IsWideUnicode(const char* begin, const char* end)
{
    static const QByteArray MARKS[] = {QByteArrayLiteral("\xfe\xff"), QByteArrayLiteral("\xff\xfe"),
        QByteArray("\0\0\xfe\xff", 4)};
    return std::any_of(std::begin(MARKS), std::end(MARKS),
        [&](const QByteArray& mark) { return StartsWith(begin, end, mark); });
}

bool IsWordByte(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z')
        || (byte >= '0' && byte <= '9') || byte == '_';
}

bool IsAscii(const QString& text)
{
    return std::all_of(
        text.begin(), text.end(), [](QChar character) { return character.unicode() < 128; });
}

const char* LineEnd(const char* place, const char* end)
{
    const void* found = std::memchr(place, '\n', static_cast<size_t>(end - place));
    return found ? static_cast<const char*>(found) : end;
}

/// Not at all like the toolkit, which takes a byte-order mark for none of the text.
QString Decode(const char* begin, const char* end, bool isAscii)
{
    const int length = static_cast<int>(end - begin);
    if (isAscii)
        return QString::fromLatin1(begin, length);
    const QString text = QString::fromUtf8(begin, length);
    return StartsWith(begin, end, BYTE_ORDER_MARK) ? QChar(QChar::ByteOrderMark) + text : text;
}

/// Letters that, case aside, are the same as one that is not ASCII.
bool HasRelatives(QChar character)
{
    return character.unicode() > 127 || QStringLiteral("kKsS").contains(character);
}

/// The pieces of the texts between such characters.
template <typename IsSeparator>
QStringList Split(const QStringList& texts, IsSeparator isSeparator)
{
    QStringList pieces;
    for (const QString& text : texts) {
        QString piece;
        for (const QChar character : text) {
            if (!isSeparator(character)) {
                piece += character;
                continue;
            }
            pieces.append(piece);
            piece.clear();
        }
        pieces.append(piece);
    }
    pieces.removeAll(QString());
    return pieces;
}

} // namespace

/// A text without carriage returns and without a byte-order mark.
struct TextSearch::Bytes
{
    const char* begin;
    const char* end;
    bool isAscii;
};

TextSearch::TextSearch(const QRegularExpression& expression, const QTextCodec* codec)
    : m_expression(expression)
    , m_codec(codec ? codec : QTextCodec::codecForLocale())
    , m_isUtf8(m_codec->mibEnum() == MIB_UTF8)
    , m_isSearching(!expression.pattern().isEmpty() && expression.isValid())
    , m_ignoresCase(expression.patternOptions() & QRegularExpression::CaseInsensitiveOption)
{
    if (!m_isSearching)
        return;
    m_expression.optimize();
    m_literals = RequiredLiterals::Of(expression);
    MakeNeedles();
}

void TextSearch::MakeNeedles()
{
    QStringList texts = m_literals.texts;
    // What is no character decodes to this one.
    const bool isDecoded = std::any_of(texts.begin(), texts.end(),
        [](const QString& text) { return text.contains(QChar(QChar::ReplacementCharacter)); });
    if (isDecoded)
        texts.clear();
    if (!m_ignoresCase) {
        m_needles = m_asciiNeedles = NeedlesOf(texts);
    } else {
        const QStringList certain = Split(texts, HasRelatives);
        texts = Split(texts, [](QChar character) { return character.unicode() > 127; });
        m_needles = NeedlesOf(certain);
        m_asciiNeedles = NeedlesOf(texts);
        m_needsAscii = certain != texts;
    }
    const bool isPlain = m_literals.isWhole || m_literals.isWord;
    if (isPlain && IsAscii(m_literals.texts.first())) {
        m_whole.emplace(m_literals.texts.first().toLatin1(),
            m_ignoresCase ? ByteFinder::Case::Ignored : ByteFinder::Case::Exact);
    }
}

TextSearch::Needles TextSearch::NeedlesOf(const QStringList& texts) const
{
    Needles needles;
    for (const QString& text : texts)
        needles.finders.emplace_back(
            text.toUtf8(), m_ignoresCase ? ByteFinder::Case::Ignored : ByteFinder::Case::Exact);
    const auto best = std::max_element(needles.finders.begin(), needles.finders.end(),
        [](const ByteFinder& left, const ByteFinder& right) {
            return left.GetRarity() < right.GetRarity();
        });
    if (best != needles.finders.end())
        std::iter_swap(needles.finders.begin(), best);
    return needles;
}

bool TextSearch::Needles::StandIn(const char* begin, const char* end) const
{
    return std::all_of(finders.begin() + 1, finders.end(),
        [&](const ByteFinder& finder) { return finder.Find(begin, end); });
}

QVector<SearchResult> TextSearch::TakeHits()
{
    QVector<SearchResult> hits;
    hits.swap(m_hits);
    return hits;
}

bool TextSearch::KeepGoing()
{
    if (m_isStopped || m_hasGivenUp)
        return false;
    if (m_keepGoing && --m_linesUntilPoll < 0) {
        m_linesUntilPoll = LINES_PER_POLL;
        m_isStopped = !m_keepGoing();
    }
    return !m_isStopped;
}

/// Long texts are searched as files are. False where that would not find the same.
bool TextSearch::SearchTextAsBytes(const QString& text)
{
    if (m_needles.finders.empty() || text.contains(QLatin1Char('\r')) || !text.isValidUtf16())
        return false;
    const QByteArray encoded = text.toUtf8();
    const Bytes bytes{
        encoded.begin(), encoded.end(), Utf8Bytes::IsAscii(encoded.begin(), encoded.end())};
    const Needles& needles = bytes.isAscii ? m_asciiNeedles : m_needles;
    SearchCandidates(bytes, needles.finders.front().Find(bytes.begin, bytes.end));
    return true;
}

QVector<SearchResult> TextSearch::SearchText(const QString& text)
{
    m_isStopped = m_hasGivenUp = false;
    if (!m_isSearching || SearchTextAsBytes(text))
        return TakeHits();
    for (int start = 0; start <= text.size() && KeepGoing();) {
        const int found = text.indexOf(QLatin1Char('\n'), start);
        const int end = found < 0 ? text.size() : found;
        MatchLine(text.mid(start, end - start), start);
        start = end + 1;
    }
    return TakeHits();
}

QVector<SearchResult> TextSearch::SearchBytes(const char* begin, const char* end)
{
    m_isStopped = m_hasGivenUp = false;
    if (!m_isSearching || begin == end)
        return {};
    if (!m_isUtf8 || IsWideUnicode(begin, end))
        return SearchPlainly(begin, end);
    Bytes bytes{begin, end, false};
    if (StartsWith(begin, end, BYTE_ORDER_MARK))
        bytes.begin += BYTE_ORDER_MARK.size();
    const auto length = static_cast<size_t>(end - begin);
    if (std::memchr(begin, '\r', length)) {
        m_withoutReturns.resize(static_cast<int>(length));
        char* const clean = m_withoutReturns.data();
        bytes = {clean, std::remove_copy(bytes.begin, end, clean, '\r'), false};
    }
    const bool knowsAscii = m_needsAscii;
    bytes.isAscii = m_needsAscii && Utf8Bytes::IsAscii(bytes.begin, bytes.end);
    const Needles& needles = bytes.isAscii ? m_asciiNeedles : m_needles;
    const bool hasNeedles = !needles.finders.empty();
    const char* const candidate
        = hasNeedles ? needles.finders.front().Find(bytes.begin, bytes.end) : nullptr;
    if (hasNeedles && !candidate)
        return {};
    bytes.isAscii = knowsAscii ? bytes.isAscii : Utf8Bytes::IsAscii(bytes.begin, bytes.end);
    if (!bytes.isAscii && !Utf8Bytes::IsValid(begin, end))
        return SearchPlainly(begin, end);
    if (hasNeedles)
        SearchCandidates(bytes, candidate);
    else
        SearchEveryLine(bytes);
    return TakeHits();
}

/// As the toolkit reads a file.
QVector<SearchResult> TextSearch::SearchPlainly(const char* begin, const char* end)
{
    const QByteArray bytes = QByteArray::fromRawData(begin, static_cast<int>(end - begin));
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly | QIODevice::Text);
    QTextStream stream(&buffer);
    stream.setCodec(m_codec->name().constData());
    int position = 0;
    QString line;
    while (stream.readLineInto(&line) && KeepGoing()) {
        MatchLine(line, position);
        position += line.size() + 1;
    }
    return TakeHits();
}

void TextSearch::SearchEveryLine(const Bytes& bytes)
{
    const QString text = Decode(bytes.begin, bytes.end, bytes.isAscii);
    for (int start = 0; start < text.size() && KeepGoing();) {
        const int found = text.indexOf(QLatin1Char('\n'), start);
        const int end = found < 0 ? text.size() : found;
        // Most lines have no match, which is told faster without a copy of them.
        const QRegularExpressionMatch match = m_expression.match(text.midRef(start, end - start), 0,
            QRegularExpression::NormalMatch, QRegularExpression::DontCheckSubjectStringMatchOption);
        if (match.hasMatch() || !match.isValid())
            MatchLine(text.mid(start, end - start), start);
        start = end + 1;
    }
}

void TextSearch::SearchCandidates(Bytes bytes, const char* candidate)
{
    const Needles& needles = bytes.isAscii ? m_asciiNeedles : m_needles;
    const ByteFinder& finder = needles.finders.front();
    const char* counted = bytes.begin;
    int position = 0; // of `counted`
    const char* unsought = bytes.begin; // where a line begins
    while (candidate && KeepGoing()) {
        if (IsInsideWord(candidate, bytes)) {
            candidate = finder.Find(candidate + 1, bytes.end);
            continue;
        }
        const void* before = memrchr(unsought, '\n', static_cast<size_t>(candidate - unsought));
        const char* const begin = before ? static_cast<const char*>(before) + 1 : unsought;
        const char* const end = LineEnd(candidate, bytes.end);
        if (needles.StandIn(begin, end)) {
            position += bytes.isAscii ? static_cast<int>(begin - counted)
                                      : Utf8Bytes::CountUnits(counted, begin);
            counted = begin;
            SearchLine(begin, end, position, bytes.isAscii);
        }
        if (end == bytes.end)
            return;
        unsought = end + 1;
        candidate = finder.Find(unsought, bytes.end);
    }
}

/// Whether letters beside the text tell that it is not the word that is sought.
bool TextSearch::IsInsideWord(const char* candidate, const Bytes& bytes) const
{
    if (!m_literals.isWord || !m_whole)
        return false;
    const Needles& needles = bytes.isAscii ? m_asciiNeedles : m_needles;
    const int length = m_whole->GetLength();
    if (needles.finders.front().GetLength() != length)
        return false;
    const char* const behind = candidate + length;
    return (candidate != bytes.begin && IsWordByte(candidate[-1]))
        || (behind != bytes.end && IsWordByte(*behind));
}

void TextSearch::SearchLine(const char* begin, const char* end, int position, bool isAscii)
{
    const bool isAsciiLine = isAscii || Utf8Bytes::IsAscii(begin, end);
    if (m_whole && isAsciiLine)
        AddPlainHits(begin, end, position);
    else
        MatchLine(Decode(begin, end, isAsciiLine), position);
}

/// The matches of an expression that is just a text, in a line of ASCII.
void TextSearch::AddPlainHits(const char* begin, const char* end, int position)
{
    SearchResult hit;
    hit.length = m_whole->GetLength();
    int leading = 0;
    for (const char* place = begin; (place = m_whole->Find(place, end));) {
        const char* const behind = place + hit.length;
        const bool isInWord = m_literals.isWord
            && ((place != begin && IsWordByte(place[-1]))
                || (behind != end && IsWordByte(*behind)));
        if (!isInWord) {
            if (hit.lineText.isNull()) {
                const QString line = QString::fromLatin1(begin, static_cast<int>(end - begin));
                hit.lineText = line.trimmed();
                while (leading < line.size() && line.at(leading).isSpace())
                    ++leading;
            }
            hit.position = position + static_cast<int>(place - begin);
            hit.column = static_cast<int>(place - begin) - leading;
            m_hits.append(hit);
        }
        place = isInWord ? place + 1 : behind;
    }
}

void TextSearch::MatchLine(const QString& line, int position)
{
    QRegularExpressionMatchIterator matches = m_expression.globalMatch(line);
    SearchResult hit;
    int leading = 0;
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        if (hit.lineText.isNull()) {
            hit.lineText = line.trimmed();
            while (leading < line.size() && line.at(leading).isSpace())
                ++leading;
        }
        hit.position = position + match.capturedStart();
        hit.column = match.capturedStart() - leading;
        hit.length = match.capturedLength();
        m_hits.append(hit);
    }
    // Behind an empty match at the end of a line there is no valid one either.
    const bool isAtEnd = hit.length == 0 && hit.column + leading == line.size();
    if (matches.isValid() || (isAtEnd && !hit.lineText.isNull()) || !line.isValidUtf16())
        return;
    // One that tries without end would do so on the next line and in the next file too.
    m_hasGivenUp = true;
    m_expression = WithMatchLimit(m_expression);
}
