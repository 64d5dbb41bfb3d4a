#include "views/quickhelp/QuickHelpText.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace {

using Flag = QuickHelpTopic::Flag;

/// Empty for a word that does not begin with one.
QString WithoutDash(const QString& name)
{
    return name.startsWith(QLatin1Char('-')) ? name.mid(1) : QString();
}

Flag FlagOf(const QStringList& triple)
{
    const QString shortName = WithoutDash(triple[0]);
    // A flag with a single name has its type in the second place.
    if (!triple[1].isEmpty() && !triple[1].startsWith(QLatin1Char('-')))
        return {shortName, QString(), triple[1]};
    const QString longName = WithoutDash(triple[1]);
    return {longName.isEmpty() ? shortName : longName, shortName, triple[2]};
}

} // namespace

QVector<Flag> QuickHelpText::Flags(const QStringList& triples)
{
    QVector<Flag> flags;
    QSet<QString> seen;
    for (int i = 0; i + 2 < triples.size(); i += 3) {
        const Flag flag = FlagOf(triples.mid(i, 3));
        if (flag.longName.isEmpty() || seen.contains(flag.longName))
            continue;
        seen.insert(flag.longName);
        flags.append(flag);
    }
    std::sort(flags.begin(), flags.end(), [](const Flag& left, const Flag& right) {
        const int order = left.longName.compare(right.longName, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : left.longName < right.longName;
    });
    return flags;
}

QString QuickHelpText::Synopsis(const QString& help)
{
    static const QRegularExpression LINE(
        QStringLiteral("^\\s*Synopsis:\\s*(.*\\S)"), QRegularExpression::MultilineOption);
    return LINE.match(help).captured(1);
}

QString QuickHelpText::DottedNameIn(const QString& text)
{
    static const QRegularExpression DOTTED(QStringLiteral("[^\\W\\d]\\w*(?:\\.[^\\W\\d]\\w*)*"),
        QRegularExpression::UseUnicodePropertiesOption);
    return DOTTED.match(text).captured();
}

QString QuickHelpText::LastPart(const QString& dottedName)
{
    return dottedName.section(QLatin1Char('.'), -1);
}

QuickHelpText::Definition QuickHelpText::DefinitionIn(
    const QString& script, const QString& procedure)
{
    const QRegularExpression header(
        QStringLiteral("^[ \\t]*((?:global\\s+)?proc\\s+(?:\\w+\\s*(?:\\[\\s*\\])?\\s+)?%1\\s*"
                       "\\([^)]*\\))")
            .arg(QRegularExpression::escape(procedure)),
        QRegularExpression::MultilineOption);
    const QRegularExpressionMatch match = header.match(script);
    if (!match.hasMatch())
        return {};
    return {match.captured(1).simplified(),
        script.leftRef(match.capturedStart(1)).count(QLatin1Char('\n')) + 1};
}
