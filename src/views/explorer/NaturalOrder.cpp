#include "views/explorer/NaturalOrder.h"

#include <QString>

namespace {

bool IsDigit(QChar character)
{
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

/// From the first digit that is not a leading zero to the end of the number; moves `position`
/// there.
QStringRef TakeNumber(const QString& text, int& position)
{
    while (position + 1 < text.size() && text[position] == QLatin1Char('0')
        && IsDigit(text[position + 1]))
        ++position;
    const int start = position;
    while (position < text.size() && IsDigit(text[position]))
        ++position;
    return text.midRef(start, position - start);
}

/// Numbers of any length: no value type would hold them all.
int CompareNumbers(const QStringRef& left, const QStringRef& right)
{
    return left.size() != right.size() ? left.size() - right.size() : left.compare(right);
}

int CompareFolded(const QString& left, const QString& right)
{
    int i = 0;
    int j = 0;
    while (i < left.size() && j < right.size()) {
        int order = 0;
        if (IsDigit(left[i]) && IsDigit(right[j])) {
            const QStringRef number = TakeNumber(left, i);
            order = CompareNumbers(number, TakeNumber(right, j));
        } else {
            order = left[i++].unicode() - right[j++].unicode();
        }
        if (order != 0)
            return order;
    }
    return (left.size() - i) - (right.size() - j);
}

} // namespace

bool NaturalLess(const QString& left, const QString& right)
{
    return NaturalLess(left, left.toCaseFolded(), right, right.toCaseFolded());
}

bool NaturalLess(const QString& left, const QString& foldedLeft, const QString& right,
    const QString& foldedRight)
{
    const int order = CompareFolded(foldedLeft, foldedRight);
    if (order != 0)
        return order < 0;
    return left.size() != right.size() ? left.size() < right.size() : left < right;
}
