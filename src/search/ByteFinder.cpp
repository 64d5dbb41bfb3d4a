#include "search/ByteFinder.h"

#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace {

constexpr int LETTER_CASE_BIT = 0x20;
constexpr int RAREST = 64;

/// From common to rare in scripts; what is missing is rarer still.
const QByteArray COMMON = QByteArrayLiteral(" etanrsiolcdpmu_fhg.b(),=\"'yv0xkw1:2-\n#T/SE$R;[]C");

bool IsAsciiLetter(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

int Rarity(char character)
{
    const int place = COMMON.indexOf(character);
    return place < 0 ? RAREST : place;
}

} // namespace

ByteFinder::ByteFinder(const QByteArray& text, Case letterCase)
    : m_text(letterCase == Case::Ignored ? text.toLower() : text)
    , m_masks(text.size(), '\0')
{
    int best = -1;
    int secondBest = -1;
    for (int i = 0; i < m_text.size(); ++i) {
        if (letterCase == Case::Ignored && IsAsciiLetter(m_text[i]))
            m_masks[i] = LETTER_CASE_BIT;
        const int rarity = Rarity(m_text[i]);
        m_rarity += rarity + 1;
        if (rarity > best) {
            m_second = m_first;
            secondBest = best;
            m_first = i;
            best = rarity;
        } else if (rarity > secondBest) {
            m_second = i;
            secondBest = rarity;
        }
    }
}

bool ByteFinder::StandsAt(const char* place) const
{
    const char* const text = m_text.constData();
    const char* const masks = m_masks.constData();
    for (int i = 0; i < m_text.size(); ++i) {
        if ((place[i] | masks[i]) != text[i])
            return false;
    }
    return true;
}

const char* ByteFinder::Find(const char* from, const char* end) const
{
    const int length = m_text.size();
    const char* place = from;
#ifdef __SSE2__
    constexpr int WIDTH = sizeof(__m128i);
    const __m128i first = _mm_set1_epi8(m_text[m_first]);
    const __m128i second = _mm_set1_epi8(m_text[m_second]);
    const __m128i firstMask = _mm_set1_epi8(m_masks[m_first]);
    const __m128i secondMask = _mm_set1_epi8(m_masks[m_second]);
    const auto load
        = [](const char* at) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at)); };
    for (; end - place >= length + WIDTH; place += WIDTH) {
        const __m128i firstHere
            = _mm_cmpeq_epi8(_mm_or_si128(load(place + m_first), firstMask), first);
        const __m128i secondHere
            = _mm_cmpeq_epi8(_mm_or_si128(load(place + m_second), secondMask), second);
        int candidates = _mm_movemask_epi8(_mm_and_si128(firstHere, secondHere));
        for (; candidates != 0; candidates &= candidates - 1) {
            const char* const candidate = place + __builtin_ctz(candidates);
            if (StandsAt(candidate))
                return candidate;
        }
    }
#endif
    for (; end - place >= length; ++place) {
        if ((place[m_first] | m_masks[m_first]) == m_text[m_first] && StandsAt(place))
            return place;
    }
    return nullptr;
}
