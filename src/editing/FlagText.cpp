#include "editing/FlagText.h"

#include <QString>

QString FlagText::InMel(const QString& longName, const QString& before)
{
    const bool isBehindWord = !before.isEmpty()
        && (before.back().isLetterOrNumber() || before.back() == QLatin1Char('_')
            || before.back() == QLatin1Char('"'));
    return QLatin1String(isBehindWord ? " -" : "-") + longName + QLatin1Char(' ');
}

QString FlagText::InPython(const QString& longName, const QString& before)
{
    int last = before.size() - 1;
    while (last >= 0 && before[last].isSpace())
        --last;
    const bool isFirst
        = last < 0 || before[last] == QLatin1Char('(') || before[last] == QLatin1Char(',');
    return QLatin1String(isFirst ? "" : ", ") + longName + QLatin1Char('=');
}
