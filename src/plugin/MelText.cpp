#include "plugin/MelText.h"

#include <QRegularExpression>

QString MelText::Escaped(const QString& text)
{
    QString escaped = text;
    escaped.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    // The order matters: a backslash that is added below must not be doubled.
    escaped.replace(QLatin1String("\\"), QLatin1String("\\\\"));
    escaped.replace(QLatin1String("\n"), QLatin1String("\\n"));
    escaped.replace(QLatin1String("\""), QLatin1String("\\\""));
    return escaped;
}

bool MelText::IsVariable(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("^\\$[a-zA-Z0-9_]+\\z"));
    return pattern.match(text).hasMatch();
}

QString MelText::PrintVariable(const QString& variable)
{
    return QStringLiteral("print(") + variable + QStringLiteral("); print(\"\\n\")");
}

QString MelText::ScriptToShelf(const QString& label, const QString& script, bool isMel)
{
    const QString kind = isMel ? QStringLiteral("1") : QStringLiteral("0");
    return QStringLiteral("scriptToShelf(\"%1\", \"%2\", %3)").arg(label, Escaped(script), kind);
}

QString MelText::WorkspaceGeometry(const QRect& geometry, const QString& control)
{
    return QStringLiteral("workspaceControlState -e -tlc %1 %2 -width %3 -height %4 %5")
        .arg(QString::number(geometry.top()), QString::number(geometry.left()),
            QString::number(geometry.width()), QString::number(geometry.height()), control);
}

QStringList MelText::FlagsOfHelp(const QString& help)
{
    static const QRegularExpression lineEnds(QStringLiteral("[\r\n]"));
    static const QRegularExpression blanks(QStringLiteral("[ \t]"));
    constexpr int WORDS_OF_A_FLAG = 3;

    const QStringList parts = help.split(QStringLiteral("Flags:"), Qt::SkipEmptyParts);
    if (parts.size() != 2)
        return {};
    QStringList flags;
    for (const QString& line : parts[1].split(lineEnds, Qt::SkipEmptyParts)) {
        const QStringList words = line.split(blanks, Qt::SkipEmptyParts);
        for (int i = 0; i < WORDS_OF_A_FLAG; ++i)
            flags.append(words.value(i));
    }
    return flags;
}

QString MelText::WithoutStandardLibrary(const QString& searchPath, const QString& separator)
{
    QString kept;
    for (const QString& entry : searchPath.split(separator, Qt::SkipEmptyParts)) {
        if (!entry.contains(QLatin1String("/lib/python"), Qt::CaseInsensitive))
            kept += entry + separator;
    }
    return kept;
}
