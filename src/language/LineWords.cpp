#include "language/LineWords.h"

#include "language/WordSet.h"

#include <QLatin1String>

#include <algorithm>
#include <array>

namespace {

using namespace LineWords;

constexpr std::array<uchar, 128> MakeClasses()
{
    std::array<uchar, 128> classes{};
    for (int code = 0; code < 128; ++code) {
        const bool digit = code >= '0' && code <= '9';
        const bool letter
            = (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z') || code == '_';
        const bool space = code == ' ' || (code >= '\t' && code <= '\r');
        const bool flag = code == '-' || code == '$';
        classes[std::size_t(code)] = uchar((digit || letter ? Letters : 0) | (digit ? Digit : 0)
            | (space ? Space : 0) | (flag ? FlagSigns : 0) | (code == '.' ? Dot : 0));
    }
    return classes;
}

constexpr std::array<uchar, 128> CLASSES = MakeClasses();

/// Digits with at most one dot among them.
int NumberEnd(QStringView text, int from)
{
    const int whole = SkipAll(text, from, Digit);
    const bool dot = whole < text.size() && text.at(whole) == QLatin1Char('.');
    return dot ? SkipAll(text, whole + 1, Digit) : whole;
}

} // namespace

LineRoles::LineRoles(int length)
    : m_roles(length)
{
    std::fill(m_roles.begin(), m_roles.end(), NO_ROLE);
}

void LineRoles::Fill(int start, int end, int role)
{
    std::fill(m_roles.begin() + start, m_roles.begin() + end, uchar(role));
}

bool LineWords::Is(QChar character, int characters)
{
    return character.unicode() < CLASSES.size() && (CLASSES[character.unicode()] & characters) != 0;
}

int LineWords::SkipAll(QStringView text, int from, int characters)
{
    while (from < text.size() && Is(text.at(from), characters))
        ++from;
    return from;
}

LineWord LineWords::Next(QStringView text, int from, int characters)
{
    while (from < text.size() && !Is(text.at(from), characters))
        ++from;
    return {from, SkipAll(text, from, characters)};
}

bool LineWords::IsCalled(QStringView text, int end)
{
    const int next = SkipAll(text, end, Space);
    return next < text.size() && text.at(next) == QLatin1Char('(');
}

void LineWords::FillWords(
    QStringView text, int characters, const WordSet& words, int role, LineRoles& roles)
{
    for (LineWord word = Next(text, 0, characters); word.start < text.size();
         word = Next(text, word.end, characters)) {
        const QStringView name = text.mid(word.start, word.end - word.start);
        if (!Is(name.front(), FlagSigns) && words.Contains(name))
            roles.Fill(word.start, word.end, role);
    }
}

void LineWords::FillNumbers(QStringView text, int role, LineRoles& roles)
{
    int filled = 0;
    const auto fill = [&](int from) {
        const int end = from < filled ? from : NumberEnd(text, from);
        if (end == from)
            return;
        roles.Fill(from, end, role);
        filled = end;
    };
    for (LineWord word = Next(text, 0, Letters); word.start < text.size();
         word = Next(text, word.end, Letters)) {
        fill(word.start);
        fill(word.end);
    }
}

void LineWords::FillDefinitions(QStringView text, QLatin1String keyword, int role, LineRoles& roles)
{
    LineWord last;
    for (LineWord word = Next(text, 0, Letters); word.start < text.size();
         word = Next(text, word.end, Letters)) {
        const bool isBehindKeyword = text.mid(last.start, last.end - last.start) == keyword
            && SkipAll(text, last.end, Space) == word.start;
        if (isBehindKeyword && IsCalled(text, word.end))
            roles.Fill(last.end, word.end, role);
        last = word;
    }
}
