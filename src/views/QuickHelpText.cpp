#include "views/QuickHelpText.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace {

QString WithoutDash(const QString& name)
{
    return name.startsWith(QLatin1Char('-')) ? name.mid(1) : name;
}

} // namespace

QVector<QuickHelpText::Flag> QuickHelpText::Flags(const QStringList& triples)
{
    QVector<Flag> flags;
    QSet<QString> seen;
    for (int i = 0; i + 2 < triples.size(); i += 3) {
        const QString shortName = WithoutDash(triples[i]);
        const QString named = WithoutDash(triples[i + 1]);
        const QString longName = named.isEmpty() ? shortName : named;
        if (longName.isEmpty() || seen.contains(longName))
            continue;
        seen.insert(longName);
        flags.append({longName, shortName, triples[i + 2]});
    }
    std::sort(flags.begin(), flags.end(), [](const Flag& left, const Flag& right) {
        const int order = left.longName.compare(right.longName, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : left.longName < right.longName;
    });
    return flags;
}

QString QuickHelpText::NameIn(const QString& text)
{
    static const QRegularExpression DOTTED(QStringLiteral("[A-Za-z_]\\w*(?:\\.[A-Za-z_]\\w*)*"));
    return DOTTED.match(text).captured().section(QLatin1Char('.'), -1);
}

QString QuickHelpText::InsertedText(const QString& longName, bool python, const QString& before)
{
    if (!python)
        return QStringLiteral("-%1 ").arg(longName);
    int last = before.size() - 1;
    while (last >= 0 && before[last].isSpace())
        --last;
    const bool first
        = last < 0 || before[last] == QLatin1Char('(') || before[last] == QLatin1Char(',');
    return (first ? QString() : QStringLiteral(", ")) + longName + QLatin1Char('=');
}
